#include "core/settings.h"

#include <array>
#include <charconv>

#include "core/base/JSON.h"
#include "core/base/Overloaded.h"
#include "core/base/PlatformWords.h"
#include "core/base/Text.h"
#include "core/time/Weeks.h"
#include "core/weather.h"

namespace ambrel {
namespace {

template <typename E>
constexpr auto names = [] {
  std::array<std::string_view, allCases<E>().size()> all{};
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = EnumText<E>::table[i].second;
  return all;
}();

constexpr std::string_view everyWord = "*";

using Page = SettingPage;
using Type = SettingType;

}  // namespace

namespace setting {
#define AMBREL_BOOLEAN(KEY, DEFAULT, PAGE, ABOUT) \
  constinit const Setting<bool> KEY{{#KEY, Type::boolean, #DEFAULT, 0, 0, {}, Page::PAGE, ABOUT}};
#define AMBREL_INTEGER(KEY, DEFAULT, LEAST, MOST, PAGE, ABOUT) \
  constinit const Setting<std::int64_t> KEY{{#KEY, Type::integer, #DEFAULT, LEAST, MOST, {}, Page::PAGE, ABOUT}};
#define AMBREL_WORD(KEY, ENUM, DEFAULT, PAGE, ABOUT) \
  constinit const Setting<ENUM> KEY{{#KEY, Type::word, #DEFAULT, 0, 0, names<ENUM>, Page::PAGE, ABOUT}};
#define AMBREL_WORDS(KEY, ENUM, PAGE, ABOUT) \
  constinit const Setting<std::set<ENUM>> KEY{{#KEY, Type::words, everyWord, 0, 0, names<ENUM>, Page::PAGE, ABOUT}};
#define AMBREL_ADDRESS(KEY, PAGE, ABOUT) \
  constinit const Setting<std::string> KEY{{#KEY, Type::address, "", 0, 0, {}, Page::PAGE, ABOUT}};
#define AMBREL_TEXT(KEY, PAGE, ABOUT) \
  constinit const Setting<std::string> KEY{{#KEY, Type::text, "", 0, 0, {}, Page::PAGE, ABOUT}};
#define AMBREL_TEXTS(KEY, DEFAULT, PAGE, ABOUT) \
  constinit const Setting<std::vector<std::string>> KEY{{#KEY, Type::texts, DEFAULT, 0, 0, {}, Page::PAGE, ABOUT}};
AMBREL_SHARED_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_WORDS, AMBREL_TEXTS)
#define AMBREL_KEYS(KEY, DEFAULT, PAGE, ABOUT) \
  constinit const Setting<KeyCombination> KEY{{#KEY, Type::keys, DEFAULT, 0, 0, {}, Page::PAGE, ABOUT}};
AMBREL_OWN_SETTINGS(AMBREL_BOOLEAN, AMBREL_INTEGER, AMBREL_WORD, AMBREL_ADDRESS, AMBREL_TEXT, AMBREL_KEYS)
}  // namespace setting

namespace {

#define AMBREL_POINTER(KEY, ...) &setting::KEY,
constexpr const SettingRow* rows[] = {
    AMBREL_SHARED_SETTINGS(AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER)
        AMBREL_OWN_SETTINGS(AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER, AMBREL_POINTER,
                            AMBREL_POINTER)};

bool isWord(const SettingRow& row, std::string_view text) {
  return std::find(row.words.begin(), row.words.end(), text) != row.words.end();
}

bool isAddress(std::string_view text) {
  for (const std::string_view scheme : {"https://", "http://"})
    if (asciiLower(text).starts_with(scheme) && text.size() > scheme.size()) return true;
  return text.empty();
}

// Absent when an element is not a text.
std::optional<std::vector<std::string>> texts(const DefaultsValue& value) {
  const auto* array = std::get_if<DefaultsArray>(&value.value);
  if (!array) return std::nullopt;
  std::vector<std::string> out;
  for (const auto& element : *array) {
    const auto* text = std::get_if<std::string>(&element.value);
    if (!text) return std::nullopt;
    out.push_back(*text);
  }
  return out;
}

// Those of the row's words that are in `wanted`, in the row's order.
std::vector<std::string> knownWords(const SettingRow& row, const std::vector<std::string>& wanted) {
  std::vector<std::string> known;
  for (const auto word : row.words)
    if (std::find(wanted.begin(), wanted.end(), word) != wanted.end()) known.emplace_back(word);
  return known;
}

std::string joined(std::span<const std::string_view> words, std::string_view between) {
  std::string out;
  for (const auto word : words) out.append(out.empty() ? "" : between).append(word);
  return out;
}

std::vector<std::string> parsedTexts(std::string_view text) {
  std::vector<std::string> out;
  if (text.starts_with('[')) {
    const auto json = parseJSON(text);
    if (!json || !json->is_array()) throw SettingError("takes texts with commas between, or a JSON array of them");
    for (const auto& element : *json) {
      if (!element.is_string()) throw SettingError("takes texts with commas between, or a JSON array of them");
      out.push_back(element.get<std::string>());
    }
    return out;
  }
  if (!trimmed(text).empty())
    for (const auto piece : split(text, ',')) out.emplace_back(trimmed(piece));
  return out;
}

std::int64_t parsedInteger(const SettingRow& row, std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value != row.clamped(value))
    throw SettingError("takes a whole number from " + std::to_string(row.least) + " to " + std::to_string(row.most));
  return value;
}

}  // namespace

std::span<const SettingRow* const> allSettings() { return rows; }

const SettingRow* findSetting(std::string_view key) {
  const auto found = std::find_if(std::begin(rows), std::end(rows), [&](const auto* row) { return row->key == key; });
  return found == std::end(rows) ? nullptr : *found;
}

std::optional<DefaultsValue> accepted(const SettingRow& row, const DefaultsValue& value) {
  const auto* text = std::get_if<std::string>(&value.value);
  const auto* integer = std::get_if<std::int64_t>(&value.value);
  switch (row.type) {
    case Type::boolean:
      return std::holds_alternative<bool>(value.value) ? std::optional(value) : std::nullopt;
    case Type::integer:
      return integer ? std::optional(DefaultsValue{row.clamped(*integer)}) : std::nullopt;
    case Type::word:
      return text && isWord(row, *text) ? std::optional(value) : std::nullopt;
    case Type::address:
      return text && isAddress(*text) ? std::optional(value) : std::nullopt;
    case Type::text:
      return text ? std::optional(value) : std::nullopt;
    case Type::keys:
      if (const auto keys = text ? parseKeys(*text) : std::nullopt) return DefaultsValue{keysText(*keys)};
      return std::nullopt;
    case Type::words:
      if (const auto wanted = texts(value)) return settings_detail::arrayOf(knownWords(row, *wanted));
      return std::nullopt;
    case Type::texts:
      return texts(value) ? std::optional(value) : std::nullopt;
  }
  return std::nullopt;
}

DefaultsValue standardValue(const SettingRow& row) {
  return parseSetting(row, row.standard == everyWord ? joined(row.words, ",") : std::string(row.standard));
}

DefaultsValue presentValue(const UserDefaults& defaults, const SettingRow& row) {
  const DefaultsValue* stored = defaults.object(row.key);
  auto value = stored ? accepted(row, *stored) : std::nullopt;
  return value ? std::move(*value) : standardValue(row);
}

DefaultsValue parseSetting(const SettingRow& row, std::string_view text) {
  switch (row.type) {
    case Type::boolean:
      if (text != "true" && text != "false") throw SettingError("takes true or false");
      return {text == "true"};
    case Type::integer:
      return {parsedInteger(row, text)};
    case Type::word:
      if (!isWord(row, text)) throw SettingError("takes one of " + joined(row.words, ", "));
      return {std::string(text)};
    case Type::address:
      if (!isAddress(text)) throw SettingError("takes an address like https://server.example, or nothing");
      return {std::string(text)};
    case Type::text:
      return {std::string(text)};
    case Type::keys:
      if (const auto keys = parseKeys(text)) return {keysText(*keys)};
      throw SettingError("takes a letter or digit with Super, Alt or Control, like Super+Alt+V, or nothing");
    case Type::words: {
      const auto wanted = parsedTexts(text);
      if (!std::all_of(wanted.begin(), wanted.end(), [&](const auto& word) { return isWord(row, word); }))
        throw SettingError("takes any of " + joined(row.words, ", ") + " with commas between");
      return settings_detail::arrayOf(knownWords(row, wanted));
    }
    case Type::texts:
      return settings_detail::arrayOf(parsedTexts(text));
  }
  throw SettingError("takes nothing");
}

std::string settingText(const DefaultsValue& value) {
  return std::visit(Overloaded{[](bool is) { return std::string(is ? "true" : "false"); },
                               [](std::int64_t number) { return std::to_string(number); },
                               [](const std::string& text) { return text; },
                               [&](const DefaultsArray&) {
                                 std::string line;
                                 const auto all = settings_detail::textsOf(value);
                                 for (const auto& text : all) {
                                   if (text.empty() || text.find(',') != text.npos) return compactJSON(all);
                                   line.append(line.empty() ? "" : ",").append(text);
                                 }
                                 return line.starts_with('[') ? compactJSON(all) : line;
                               },
                               [](const auto&) { return std::string(); }},
                    value.value);
}

namespace settings_detail {

std::vector<std::string> textsOf(const DefaultsValue& value) {
  return texts(value).value_or(std::vector<std::string>{});
}

DefaultsValue arrayOf(const std::vector<std::string>& texts) {
  DefaultsArray array;
  for (const auto& text : texts) array.push_back({text});
  return {std::move(array)};
}

}  // namespace settings_detail

SettingsValues loadSettings(const UserDefaults& defaults) {
  SettingsValues values;
#define AMBREL_LOAD(KEY, ...) values.KEY = valueOf(defaults, setting::KEY);
  AMBREL_SHARED_SETTINGS(AMBREL_LOAD, AMBREL_LOAD, AMBREL_LOAD, AMBREL_LOAD, AMBREL_LOAD)
  return values;
}

}  // namespace ambrel
