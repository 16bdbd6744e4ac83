#include "core/base/UserDefaults.h"

#include <utility>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/Overloaded.h"
#include "core/base/StoredFile.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

JSON encoded(const DefaultsDictionary& dictionary);

JSON encoded(const DefaultsValue& value) {
  return std::visit(Overloaded{[](const DefaultsData& data) {
                                 return JSON{{"$data", base64Encoded(data.bytes)}};
                               },
                               [](const Instant& date) {
                                 return JSON{{"$date", iso8601(date)}};
                               },
                               [](const DefaultsArray& array) {
                                 JSON out = JSON::array();
                                 for (const auto& element : array) out.push_back(encoded(element));
                                 return out;
                               },
                               [](const DefaultsDictionary& dictionary) {
                                 const bool isAmbiguous =
                                     dictionary.size() == 1 && dictionary.begin()->first.starts_with('$');
                                 JSON out = encoded(dictionary);
                                 return isAmbiguous ? JSON{{"$dictionary", std::move(out)}} : out;
                               },
                               [](const auto& plain) { return JSON(plain); }},
                    value.value);
}

JSON encoded(const DefaultsDictionary& dictionary) {
  JSON out = JSON::object();
  for (const auto& [key, value] : dictionary) out[key] = encoded(value);
  return out;
}

std::optional<DefaultsValue> decoded(const JSON& json);

DefaultsDictionary decodedDictionary(const JSON& json) {
  DefaultsDictionary out;
  for (const auto& [key, value] : json.items())
    if (auto entry = decoded(value)) out.emplace(key, std::move(*entry));
  return out;
}

DefaultsValue decodedObject(const JSON& json) {
  if (json.size() == 1) {
    if (const auto data = stringField(json, "$data"))
      if (auto bytes = base64Decoded(*data)) return {DefaultsData{std::move(*bytes)}};
    if (const auto text = stringField(json, "$date"))
      if (const auto date = parseISO8601(*text)) return {*date};
    if (const JSON* inner = objectField(json, "$dictionary")) return {decodedDictionary(*inner)};
  }
  return {decodedDictionary(json)};
}

// Absent for null, which the defaults do not know.
std::optional<DefaultsValue> decoded(const JSON& json) {
  switch (json.type()) {
    case JSON::value_t::boolean:
      return DefaultsValue{json.get<bool>()};
    case JSON::value_t::number_integer:
      return DefaultsValue{json.get<std::int64_t>()};
    case JSON::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) return DefaultsValue{json.get<double>()};
      return DefaultsValue{json.get<std::int64_t>()};
    case JSON::value_t::number_float:
      return DefaultsValue{json.get<double>()};
    case JSON::value_t::string:
      return DefaultsValue{json.get<std::string>()};
    case JSON::value_t::array: {
      DefaultsArray array;
      for (const auto& element : json)
        if (auto value = decoded(element)) array.push_back(std::move(*value));
      return DefaultsValue{std::move(array)};
    }
    case JSON::value_t::object:
      return decodedObject(json);
    case JSON::value_t::null:
    case JSON::value_t::binary:
    case JSON::value_t::discarded:
      return std::nullopt;
  }
  return std::nullopt;
}

template <typename T>
const T* held(const DefaultsValue* value) {
  return value ? std::get_if<T>(&value->value) : nullptr;
}

template <typename T>
std::optional<T> copied(const DefaultsValue* value) {
  const T* found = held<T>(value);
  return found ? std::optional<T>(*found) : std::nullopt;
}

}  // namespace

UserDefaults::UserDefaults(std::filesystem::path file) : file_(std::move(file)) {
  removeLeftovers(file_);
  seen_ = fileStatus(file_);
  if (auto values = read())
    values_ = std::move(*values);
  else
    isUnreadable_ = seen_.has_value();
}

std::optional<DefaultsDictionary> UserDefaults::read() {
  const auto bytes = readFile(file_);
  const auto json = bytes ? parseJSON(*bytes) : std::nullopt;
  if (!json || !json->is_object()) return std::nullopt;
  return decodedDictionary(*json);
}

void UserDefaults::refresh() {
  const auto present = fileStatus(file_);
  if (!present || present == seen_) return;
  seen_ = present;
  auto values = read();
  const bool wasUnreadable = std::exchange(isUnreadable_, !values);
  if (!values) {
    if (!wasUnreadable && onUnreadable) onUnreadable();
    return;
  }
  std::set<std::string> keys;
  const auto compare = [&](const DefaultsDictionary& some, const DefaultsDictionary& others) {
    for (const auto& [key, value] : some)
      if (const auto found = others.find(key); found == others.end() || found->second != value) keys.insert(key);
  };
  compare(*values, values_);
  compare(values_, *values);
  values_ = std::move(*values);
  if (!keys.empty() && onRefreshed) onRefreshed(keys);
}

std::optional<std::filesystem::path> UserDefaults::setAside() {
  if (!isUnreadable_) return std::nullopt;
  auto kept = ambrel::setAside(file_, ".unreadable");
  isUnreadable_ = false;
  seen_.reset();
  if (kept && onSetAside) onSetAside(*kept);
  return kept;
}

const DefaultsValue* UserDefaults::object(const std::string& key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? nullptr : &found->second;
}

std::optional<bool> UserDefaults::boolean(const std::string& key) const { return copied<bool>(object(key)); }

std::optional<std::int64_t> UserDefaults::integer(const std::string& key) const {
  return copied<std::int64_t>(object(key));
}

std::optional<double> UserDefaults::number(const std::string& key) const {
  if (const auto whole = integer(key)) return static_cast<double>(*whole);
  return copied<double>(object(key));
}

std::optional<std::string> UserDefaults::string(const std::string& key) const {
  return copied<std::string>(object(key));
}

std::optional<std::vector<std::string>> UserDefaults::strings(const std::string& key) const {
  const auto* array = held<DefaultsArray>(object(key));
  if (!array) return std::nullopt;
  std::vector<std::string> out;
  for (const auto& element : *array) {
    const auto* text = held<std::string>(&element);
    if (!text) return std::nullopt;
    out.push_back(*text);
  }
  return out;
}

std::optional<std::string> UserDefaults::data(const std::string& key) const {
  const auto* found = held<DefaultsData>(object(key));
  return found ? std::optional(found->bytes) : std::nullopt;
}

std::optional<Instant> UserDefaults::date(const std::string& key) const { return copied<Instant>(object(key)); }

const DefaultsDictionary* UserDefaults::dictionary(const std::string& key) const {
  return held<DefaultsDictionary>(object(key));
}

void UserDefaults::set(const std::string& key, DefaultsValue value) {
  const FolderTurn turn(file_.parent_path());
  refresh();
  const auto found = values_.find(key);
  if (found != values_.end() && found->second == value) return;
  values_.insert_or_assign(key, std::move(value));
  save();
}

void UserDefaults::set(const std::string& key, const std::vector<std::string>& strings) {
  DefaultsArray array;
  for (const auto& text : strings) array.push_back({text});
  set(key, DefaultsValue{std::move(array)});
}

void UserDefaults::set(DefaultsDictionary values) {
  const FolderTurn turn(file_.parent_path());
  refresh();
  const DefaultsDictionary before = values_;
  for (auto& [key, value] : values) values_.insert_or_assign(key, std::move(value));
  if (values_ != before) save();
}

void UserDefaults::remove(const std::string& key) {
  const FolderTurn turn(file_.parent_path());
  refresh();
  if (values_.erase(key) > 0) save();
}

void UserDefaults::save() {
  makeFolders(file_.parent_path());
  setAside();
  rewriteAtomically(file_, prettyJSON(encoded(values_)));
  seen_ = fileStatus(file_);
}

}  // namespace ambrel
