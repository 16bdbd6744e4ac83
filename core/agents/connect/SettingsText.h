#pragma once
// A settings file of another program, changed in place: JSON, with comments and a comma behind the last element where
// its owner writes them so. Every byte that is not part of a change stays.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

class SettingsText {
 public:
  struct Node {
    enum class Kind { object, array, text, other };
    Kind kind = Kind::other;
    std::size_t begin = 0, end = 0;         // without the key
    std::size_t whole = 0;                  // where the key begins, else the value
    std::size_t comma = std::string::npos;  // where the one behind it is
    std::string key;                        // decoded; empty in an array
    std::vector<Node> children;

    // The last member of that name, which is the one that counts. Null for what is no object.
    const Node* find(std::string_view name) const;
  };

  // A text without anything in it is an empty object. Throws DecodingError, which names the line.
  explicit SettingsText(std::string text);

  const std::string& text() const { return text_; }
  const Node& root() const { return root_; }
  // The decoded value of a text.
  std::string value(const Node& node) const;

  // `json` is on one line; it is laid out as its surroundings are. `key` only for an object. Nodes given out before
  // are invalid afterwards.
  void append(const Node& container, std::optional<std::string_view> key, std::string_view json);
  void remove(const Node& container, std::size_t child);

 private:
  void read();
  std::string laidOut(std::string_view json, std::size_t depth) const;
  std::string lineAt(std::size_t depth) const;
  std::size_t depthOf(const Node& node) const;

  std::string text_;
  Node root_;
  std::string unit_;  // of indentation; empty: all on one line
};

}  // namespace ambrel
