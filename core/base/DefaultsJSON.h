#pragma once
// Values of the defaults as JSON, in the form that `UserDefaults` describes.

#include <nlohmann/json_fwd.hpp>
#include <optional>

#include "core/base/UserDefaults.h"

namespace ambrel {

nlohmann::json defaultsJSON(const DefaultsValue& value);
nlohmann::json defaultsJSON(const DefaultsDictionary& dictionary);

// Absent for null, which the defaults do not know.
std::optional<DefaultsValue> defaultsValue(const nlohmann::json& json);
// Of an object.
DefaultsDictionary defaultsDictionary(const nlohmann::json& json);

}  // namespace ambrel
