#include "core/base/UserDefaults.h"

#include <utility>

#include "core/base/DefaultsJSON.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/StoredFile.h"

namespace ambrel {
namespace {

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
  return defaultsDictionary(*json);
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
  for (const std::string& key : unsaved_)
    if (const auto ours = values_.find(key); ours != values_.end())
      values->insert_or_assign(key, ours->second);
    else
      values->erase(key);
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
  if (const auto found = keptElsewhere ? keptElsewhere(key) : std::nullopt) return *found;
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
  if (onChosen) onChosen(key, &value);
  const FolderTurn turn(file_.parent_path());
  refresh();
  const auto found = values_.find(key);
  if (found != values_.end() && found->second == value) return;
  values_.insert_or_assign(key, std::move(value));
  unsaved_.insert(key);
  write();
}

void UserDefaults::set(const std::string& key, const std::vector<std::string>& strings) {
  DefaultsArray array;
  for (const auto& text : strings) array.push_back({text});
  set(key, DefaultsValue{std::move(array)});
}

void UserDefaults::set(DefaultsDictionary values) {
  if (onChosen)
    for (const auto& [key, value] : values) onChosen(key, &value);
  const FolderTurn turn(file_.parent_path());
  refresh();
  std::erase_if(values, [this](const auto& entry) {
    const auto found = values_.find(entry.first);
    return found != values_.end() && found->second == entry.second;
  });
  if (values.empty()) return;
  for (auto& [key, value] : values) {
    unsaved_.insert(key);
    values_.insert_or_assign(key, std::move(value));
  }
  write();
}

void UserDefaults::remove(const std::string& key) {
  if (onChosen) onChosen(key, nullptr);
  const FolderTurn turn(file_.parent_path());
  refresh();
  if (values_.erase(key) == 0) return;
  unsaved_.insert(key);
  write();
}

void UserDefaults::save() {
  if (!isUnsaved()) return;
  const FolderTurn turn(file_.parent_path());
  refresh();
  write();
}

void UserDefaults::write() {
  try {
    makeFolders(file_.parent_path());
    setAside();
    rewriteAtomically(file_, prettyJSON(defaultsJSON(values_)));
  } catch (const std::exception& error) {
    if (onFailed) onFailed(error);
    throw;
  }
  unsaved_.clear();
  seen_ = fileStatus(file_);
}

}  // namespace ambrel
