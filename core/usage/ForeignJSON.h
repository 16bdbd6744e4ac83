#pragma once
// A JSON document that belongs to another program: what is changed in it is changed, and the rest keeps its meaning
// and its spelling. Numbers stay as they were written (1.0, 1e3, 20 digits), and so do texts, apart from "\/", which
// becomes "/". Keys that occur twice stay twice.

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ambrel {

class ForeignJSON {
 public:
  struct Member;
  using Array = std::vector<ForeignJSON>;
  using Object = std::vector<Member>;

  // An empty object.
  ForeignJSON();
  static ForeignJSON ofText(std::string_view text);

  // Strict JSON in UTF-8, nested at most 1000 deep. Throws DecodingError, which names the line.
  static ForeignJSON parse(std::string_view text);
  // Two blanks a level, the keys of every object in the order of their bytes, and a newline at the end.
  std::string pretty() const;

  bool isObject() const { return std::holds_alternative<Object>(value_); }
  // The decoded text; absent for anything but a text. Half of a surrogate pair reads as U+FFFD.
  std::optional<std::string> text() const;

  // Of a key that occurs twice the last counts, as it does for the readers of such files. Null for no object too.
  const ForeignJSON* find(std::string_view key) const;
  // Every member of that name is replaced by one. Only for objects.
  void set(std::string_view key, ForeignJSON value);
  void remove(std::string_view key);

  friend bool operator==(const ForeignJSON&, const ForeignJSON&);

 private:
  friend class ForeignJSONParser;
  // A number, a text with its quotes, or a literal, as it is spelled.
  struct Scalar {
    std::string spelling;
    friend bool operator==(const Scalar&, const Scalar&) = default;
  };

  void print(std::string& out, std::size_t indent) const;

  std::variant<Scalar, Array, Object> value_;
};

struct ForeignJSON::Member {
  std::string key;       // decoded
  std::string spelling;  // with its quotes
  ForeignJSON value;

  friend bool operator==(const Member&, const Member&) = default;
};

}  // namespace ambrel
