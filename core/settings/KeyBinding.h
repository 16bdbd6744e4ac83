#pragma once
// Keys on a desktop that gives programs none (Wayland): the user binds commands of ours there.

#include <functional>
#include <string>
#include <string_view>

#include "core/settings/KeyCombination.h"

namespace ambrel {

// The desktop, as in XDG_CURRENT_DESKTOP ("sway", "labwc:wlroots"); where that is not set, by what compositors leave in
// the environment. Empty for one that is not known.
std::string desktopInUse(const std::function<const char*(const char*)>& variable);

// Where on this desktop the user binds keys: "sway's configuration, ~/.config/sway/config".
std::string placeOfKeys(std::string_view desktop);
// What to write there: "bindsym Mod4+Mod1+v exec tilebay --toggle-clipboard". The command alone where keys are chosen
// in a window, and on an unknown desktop. Empty without a key.
std::string keyBinding(std::string_view desktop, const KeyCombination& keys, std::string_view command);

// As the shortcuts specification of freedesktop.org writes it: "CTRL+LOGO+ALT+SHIFT+v". Empty without a key.
std::string portalTrigger(const KeyCombination& keys);

}  // namespace ambrel
