#include "core/settings/Choices.h"

#include "core/base/JSON.h"

namespace ambrel {
namespace {

constexpr int formVersion = 1;

// A consent is given on each computer by its user, in the question that asks for it: no file may bring it along.
bool isConsent(const SettingRow& row) { return row.page == SettingPage::none; }

// What `parseSetting` takes.
std::string textOf(const JSON& value) {
  if (value.is_string()) return value.get<std::string>();
  return compactJSON(value);
}

}  // namespace

nlohmann::json settingJSON(const DefaultsValue& value) {
  if (const auto* flag = std::get_if<bool>(&value.value)) return *flag;
  if (const auto* number = std::get_if<std::int64_t>(&value.value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value.value)) return *text;
  return settings_detail::textsOf(value);
}

std::string exportedChoices(const UserDefaults& defaults, const std::vector<Profile>& profiles) {
  JSON settings = JSON::object();
  for (const SettingRow* row : allSettings())
    if (!isConsent(*row)) settings[row->key] = settingJSON(presentValue(defaults, *row));
  return prettyJSON({{"tilebay", formVersion}, {"settings", std::move(settings)}, {"profiles", profiles}});
}

ImportedChoices importedChoices(std::string_view text) {
  const auto file = parseJSON(text);
  const JSON* settings = file ? objectField(*file, "settings") : nullptr;
  if (!settings || !integerField(*file, "tilebay")) throw DecodingError("not a file of Tilebay's choices");
  ImportedChoices choices;
  for (const auto& [key, value] : settings->items()) {
    const SettingRow* row = findSetting(key);
    if (!row) {
      choices.skipped.push_back(key + " is no setting of this version");
      continue;
    }
    if (isConsent(*row)) {
      choices.skipped.push_back(key + " is not taken from a file");
      continue;
    }
    try {
      choices.values[key] = parseSetting(*row, textOf(value));
    } catch (const SettingError& error) {
      choices.skipped.push_back(key + " " + error.what());
    }
  }
  if (!file->contains("profiles")) return choices;
  try {
    choices.profiles = file->at("profiles").get<std::vector<Profile>>();
    if (choices.profiles->empty()) choices.profiles.reset();
  } catch (const std::exception&) {
    choices.skipped.emplace_back("the profiles cannot be read");
  }
  return choices;
}

}  // namespace ambrel
