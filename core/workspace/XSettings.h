#pragma once
// The settings that desktops hand to their programs through the X server (XSETTINGS), as bytes of one property.

#include <optional>
#include <string>
#include <string_view>

namespace ambrel {

// The text stored under `name` ("Net/ThemeName"); absent when it is not there, is not a text, or the bytes end early.
std::optional<std::string> textSetting(std::string_view bytes, std::string_view name);

}  // namespace ambrel
