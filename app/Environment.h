#pragma once
// What the process is told from outside: folders, zone, locale, display.

#include <functional>
#include <string>

#include "app/Surroundings.h"

namespace ambrel {

struct Environment {
  Surroundings surroundings;
  // The link that names the zone, /etc/localtime or a path that TZ holds; empty when TZ names the zone itself.
  std::filesystem::path zoneFile;
  std::string display, waylandDisplay;
  bool hasDisplay = false;
  // The user has chosen the toolkit's platform (QT_QPA_PLATFORM). Many choose Wayland for all programs; whether the bar
  // can do with it is for the program to find out.
  bool choosesPlatform = false;
  // Texts are made longer, to see whether they have room (TILEBAY_LONG_TEXTS).
  bool hasLongTexts = false;
  // The user has chosen a renderer (QT_QUICK_BACKEND or QSG_RHI_BACKEND); ours does not override it.
  bool choosesRenderer = false;
  // The toolkit may take GTK's theme and its dialogs, which run on GLib's event loop: the user asked for it
  // (QT_QPA_PLATFORMTHEME) or the desktop (XDG_CURRENT_DESKTOP, DESKTOP_SESSION) is one of those made with GTK.
  bool takesGTKTheme = false;
};

// variable: the value of an environment variable, or null.
// Data: $XDG_DATA_HOME/Ambrel, else ~/.local/share/Ambrel. Defaults: $XDG_CONFIG_HOME/Ambrel/defaults.json, else
// below ~/.config. Relative XDG folders count as unset, as their specification asks.
Environment environmentOf(const std::function<const char*(const char*)>& variable);

// tilebayctl, which belongs to this program: beside it, else on the search path. Empty where there is none.
std::filesystem::path toolOf(const std::filesystem::path& program, const std::string& searchPath);

}  // namespace ambrel
