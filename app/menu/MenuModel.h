#pragma once
// The menu of the status item as a value: what it says is decided here, how it is drawn is the tray's business.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/profiles.h"

namespace ambrel {

enum class MenuCommand {
  pinProfile,  // the entry's profile; none: choose by the displays
  toggleClipboard,
  toggleAgents,
  customizeDock,
  openDiskDoctor,
  openWelcomeGuide,
  checkForUpdates,
  buyPro,
  openSettings,
  quit,
};

struct MenuEntry {
  std::string title{};                   // empty: a line between groups
  std::optional<MenuCommand> command{};  // absent: a text that does nothing, or a submenu
  std::optional<UUID> profile{};         // for pinProfile
  std::string shortcut{};                // in the toolkit's portable form ("Meta+Alt+V"); empty for none
  std::optional<bool> isChecked{};       // absent: not a choice
  std::vector<MenuEntry> entries{};      // of a submenu
  bool operator==(const MenuEntry&) const = default;
};

struct MenuModel {
  std::vector<MenuEntry> entries;
  int attention = 0;  // sessions that need the user: the icon shows a hand and this count; 0 for the plain icon
  bool operator==(const MenuModel&) const = default;
};

// What the menu tells about.
struct MenuState {
  std::vector<Profile> profiles;
  std::optional<UUID> activeProfileID;
  std::optional<UUID> pinnedProfileID;
  std::vector<DisplaySnapshot> displays;
  int workingCount = 0;
  int needsInputCount = 0;
  bool isAgentTrackingAllowed = true;
  bool isPro = true;
  std::string shelfShortcut = "Meta+Alt+V";  // as of an entry
};

MenuModel menuModel(const MenuState& state);

// What the icon is called for those who do not see it: "Tilebay", with the count when there is one.
std::string menuBarLabel(const MenuModel& menu);

}  // namespace ambrel
