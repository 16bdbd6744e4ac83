#pragma once
// All choices as one file, to carry to another computer or to keep:
//
//   {"tilebay": 1, "settings": {"dockEdge": "left", ...}, "profiles": [...]}

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/profiles.h"
#include "core/settings.h"

namespace ambrel {

// Every setting with its present value, defaults too, so that the file means the same to a later version. Without
// what the user has allowed to leave this computer (SettingPage::none).
std::string exportedChoices(const UserDefaults& defaults, const std::vector<Profile>& profiles);

struct ImportedChoices {
  DefaultsDictionary values;
  std::optional<std::vector<Profile>> profiles;  // absent where the file has none that can be read
  // What is not taken over and why: "clipboardLimit takes a whole number from 1 to 100000".
  std::vector<std::string> skipped;
};
// Each setting is checked on its own. Throws DecodingError for what is no such file.
ImportedChoices importedChoices(std::string_view text);

// The value of a setting as JSON has it.
nlohmann::json settingJSON(const DefaultsValue& value);

}  // namespace ambrel
