#pragma once
// Small choices under string keys, each with its type, in one JSON document.

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "core/base/Files.h"
#include "core/base/Instant.h"

namespace ambrel {

struct DefaultsValue;
struct DefaultsData {
  std::string bytes;
  friend bool operator==(const DefaultsData&, const DefaultsData&) = default;
};
using DefaultsArray = std::vector<DefaultsValue>;
using DefaultsDictionary = std::map<std::string, DefaultsValue>;

// What a key may hold. A boolean never reads as an integer, nor an integer as a floating-point number.
struct DefaultsValue {
  std::variant<bool, std::int64_t, double, std::string, DefaultsData, Instant, DefaultsArray, DefaultsDictionary> value;
  friend bool operator==(const DefaultsValue&, const DefaultsValue&) = default;
};

// Holds the whole document in memory; every change is written at once and atomically. What others write meanwhile is
// read before that, so that neither is lost, and programs that write at the same time take turns; a symbolic link
// stays one.
//
// In the file, data and dates are objects of one key, {"$data": BASE64} and {"$date": ISO8601}; a dictionary whose
// only key begins with "$" is wrapped as {"$dictionary": {...}}. A file that cannot be read or decoded changes nothing
// in memory, and is set aside as "<name>.unreadable", "<name>.unreadable-2" and so on before a change replaces it.
class UserDefaults {
 public:
  explicit UserDefaults(std::filesystem::path file);

  const DefaultsValue* object(const std::string& key) const;
  // Absent when the key is missing or holds another type.
  std::optional<bool> boolean(const std::string& key) const;
  std::optional<std::int64_t> integer(const std::string& key) const;
  // Also from an integer.
  std::optional<double> number(const std::string& key) const;
  std::optional<std::string> string(const std::string& key) const;
  // Absent too when any element is no string.
  std::optional<std::vector<std::string>> strings(const std::string& key) const;
  std::optional<std::string> data(const std::string& key) const;
  std::optional<Instant> date(const std::string& key) const;
  const DefaultsDictionary* dictionary(const std::string& key) const;
  // The document alone.
  const DefaultsDictionary& all() const { return values_; }

  // Setting an equal value writes nothing. Throws FileError when the file cannot be written; the change is kept in
  // memory, whatever others write, and the next write has it too.
  void set(const std::string& key, DefaultsValue value);
  void set(const std::string& key, const std::vector<std::string>& strings);
  // All of them in one write.
  void set(DefaultsDictionary values);
  void remove(const std::string& key);

  // Somebody else may keep keys, too. What he keeps is read in place of the document's (null: no value); absent where
  // he keeps nothing.
  std::function<std::optional<const DefaultsValue*>(const std::string& key)> keptElsewhere;
  // For a choice that is asked for now and made later, as in a dialog: gives what keeps it then. Empty: the document
  // does.
  using Keeper = std::function<void(const DefaultsValue& value)>;
  std::function<Keeper(const std::string& key)> keeperFor;
  // Told of every key that is about to be set or removed (null), before the document is.
  std::function<void(const std::string& key, const DefaultsValue* value)> onChosen;

  // Changes are not in the file, since their write failed.
  bool isUnsaved() const { return !unsaved_.empty(); }
  // Writes them. Throws FileError.
  void save();
  // Told of every write that fails, before it throws.
  std::function<void(const std::exception& error)> onFailed;

  const std::filesystem::path& file() const { return file_; }

  // Reads the file if it is another than was read or written last. A missing file changes nothing.
  void refresh();
  // The keys that a refresh has found changed.
  std::function<void(const std::set<std::string>& keys)> onRefreshed;

  // The file as it is now cannot be read or decoded.
  bool isUnreadable() const { return isUnreadable_; }
  // Moves such a file out of the way now; returns where it is kept. Throws FileError.
  std::optional<std::filesystem::path> setAside();
  // A file was found to be unreadable; it was set aside there.
  std::function<void()> onUnreadable;
  std::function<void(const std::filesystem::path& copy)> onSetAside;

 private:
  // What is in the file; absent when that cannot be read.
  std::optional<DefaultsDictionary> read();
  void write();

  std::filesystem::path file_;
  DefaultsDictionary values_;
  std::set<std::string> unsaved_;   // keys that were set or removed
  std::optional<FileStatus> seen_;  // the file that was read or written last
  bool isUnreadable_ = false;
};

}  // namespace ambrel
