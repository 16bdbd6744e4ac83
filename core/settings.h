#pragma once
// What can be chosen. Each setting is a row of one table (core/settings/SettingsTable.h) and is stored in the user
// defaults under its key.

#include <algorithm>
#include <cstdint>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "core/base/UserDefaults.h"
#include "core/buddy/BuddyChoices.h"
#include "core/dock/DockEdge.h"
#include "core/settings/KeyCombination.h"
#include "core/settings/SettingsTable.h"

namespace ambrel {

enum class AirQualityScale;  // core/weather.h
enum class WeekNumbering;    // core/time/Weeks.h
enum class ThemeChoice { system, dark, light };

// Where a setting has its control: on a page of the settings, in the panel of its tile, or nowhere.
enum class SettingPage { general, appearance, tiles, calendars, buddy, agents, clipboard, disk, panel, none };

enum class SettingType { boolean, integer, word, words, address, text, texts, keys };

struct SettingRow {
  const char* key;
  SettingType type;
  std::string_view standard;                // the default, in the form that parseSetting takes
  std::int64_t least, most;                 // of an integer
  std::span<const std::string_view> words;  // of a word and of words
  SettingPage page;
  std::string_view description;

  std::int64_t clamped(std::int64_t value) const { return std::clamp(value, least, most); }
};

// In the order of the table.
std::span<const SettingRow* const> allSettings();
const SettingRow* findSetting(std::string_view key);

// `value` as it may be stored: an integer within its range, of several words those that are known, each once, keys in
// their usual order. Absent for a value of another type, for a word that is none of them and for a text that is no
// address or no key combination.
std::optional<DefaultsValue> accepted(const SettingRow& row, const DefaultsValue& value);
// What is stored if it is accepted, else the default.
DefaultsValue presentValue(const UserDefaults& defaults, const SettingRow& row);
DefaultsValue standardValue(const SettingRow& row);

// Says what the setting takes instead, without naming it.
class SettingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
// From what a person writes: "true", "300", "left"; of several words or texts with commas between, or a JSON array.
// Unlike `accepted` it corrects nothing. Throws SettingError.
DefaultsValue parseSetting(const SettingRow& row, std::string_view text);
// The same form back; a JSON array only where a text has a comma.
std::string settingText(const DefaultsValue& value);

// A row whose value is a T: bool, std::int64_t, an enumeration, a set of its cases, std::string, a vector of them or a
// KeyCombination.
template <typename T>
struct Setting : SettingRow {};

namespace setting {
#define AMBREL_BOOLEAN(KEY, ...) extern const Setting<bool> KEY;
#define AMBREL_INTEGER(KEY, ...) extern const Setting<std::int64_t> KEY;
#define AMBREL_WORD(KEY, ENUM, ...) extern const Setting<ENUM> KEY;
#define AMBREL_WORDS(KEY, ENUM, ...) extern const Setting<std::set<ENUM>> KEY;
#define AMBREL_ADDRESS(KEY, ...) extern const Setting<std::string> KEY;
#define AMBREL_TEXT(KEY, ...) extern const Setting<std::string> KEY;
#define AMBREL_TEXTS(KEY, ...) extern const Setting<std::vector<std::string>> KEY;
#define AMBREL_KEYS(KEY, ...) extern const Setting<KeyCombination> KEY;
AMBREL_SHARED_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_WORDS, AMBREL_TEXTS)
AMBREL_OWN_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_ADDRESS, AMBREL_TEXT, AMBREL_KEYS)
#undef AMBREL_BOOLEAN
#undef AMBREL_INTEGER
#undef AMBREL_WORD
#undef AMBREL_WORDS
#undef AMBREL_ADDRESS
#undef AMBREL_TEXT
#undef AMBREL_TEXTS
#undef AMBREL_KEYS
}  // namespace setting

// The shared settings, each under its key. They are made by loadSettings.
struct SettingsValues {
#define AMBREL_BOOLEAN(KEY, ...) bool KEY{};
#define AMBREL_INTEGER(KEY, ...) std::int64_t KEY{};
#define AMBREL_WORD(KEY, ENUM, ...) ENUM KEY{};
#define AMBREL_WORDS(KEY, ENUM, ...) std::set<ENUM> KEY;
#define AMBREL_TEXTS(KEY, ...) std::vector<std::string> KEY;
  AMBREL_SHARED_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_WORDS, AMBREL_TEXTS)
#undef AMBREL_BOOLEAN
#undef AMBREL_INTEGER
#undef AMBREL_WORD
#undef AMBREL_WORDS
#undef AMBREL_TEXTS

  friend bool operator==(const SettingsValues&, const SettingsValues&) = default;
};

SettingsValues loadSettings(const UserDefaults& defaults);

namespace settings_detail {

std::vector<std::string> textsOf(const DefaultsValue& value);
DefaultsValue arrayOf(const std::vector<std::string>& texts);

template <typename T>
struct Form {
  static T read(const DefaultsValue& value) { return std::get<T>(value.value); }
  static DefaultsValue stored(const T& value) { return {value}; }
};
template <typename T>
requires std::is_enum_v<T>
struct Form<T> {
  static T read(const DefaultsValue& value) { return fromName<T>(std::get<std::string>(value.value)).value(); }
  static DefaultsValue stored(T value) { return {std::string(nameOf(value))}; }
};
template <>
struct Form<KeyCombination> {
  static KeyCombination read(const DefaultsValue& value) {
    return parseKeys(std::get<std::string>(value.value)).value();
  }
  static DefaultsValue stored(const KeyCombination& value) { return {keysText(value)}; }
};
template <>
struct Form<std::vector<std::string>> {
  static std::vector<std::string> read(const DefaultsValue& value) { return textsOf(value); }
  static DefaultsValue stored(const std::vector<std::string>& value) { return arrayOf(value); }
};
template <typename E>
struct Form<std::set<E>> {
  static std::set<E> read(const DefaultsValue& value) {
    std::set<E> cases;
    for (const auto& name : textsOf(value)) cases.insert(fromName<E>(name).value());
    return cases;
  }
  static DefaultsValue stored(const std::set<E>& value) {
    std::vector<std::string> names;
    for (const E element : value) names.emplace_back(nameOf(element));
    return arrayOf(names);
  }
};

}  // namespace settings_detail

template <typename T>
DefaultsValue storedForm(const Setting<T>&, const T& value) {
  return settings_detail::Form<T>::stored(value);
}

template <typename T>
T valueOf(const UserDefaults& defaults, const Setting<T>& setting) {
  return settings_detail::Form<T>::read(presentValue(defaults, setting));
}

}  // namespace ambrel
