#include "app/menu/MenuModel.h"

#include <algorithm>

namespace ambrel {
namespace {

using enum MenuCommand;

MenuEntry profilePicker(const MenuState& state) {
  const auto isPinned = [&](const Profile& profile) { return profile.id == state.pinnedProfileID; };
  // When the pinned profile has been deleted, the displays choose again.
  MenuEntry picker{.title = "Profile",
                   .entries = {{.title = "Auto (by display)",
                                .command = pinProfile,
                                .isChecked = std::ranges::none_of(state.profiles, isPinned)}}};
  for (const Profile& profile : state.profiles)
    picker.entries.push_back(
        {.title = profile.name, .command = pinProfile, .profile = profile.id, .isChecked = isPinned(profile)});
  return picker;
}

}  // namespace

MenuModel menuModel(const MenuState& state) {
  MenuModel menu;
  menu.attention = state.isAgentTrackingAllowed ? std::max(0, state.needsInputCount) : 0;
  const auto add = [&](MenuEntry entry) { menu.entries.push_back(std::move(entry)); };
  if (const auto active = std::ranges::find(state.profiles, state.activeProfileID, &Profile::id);
      active != state.profiles.end())
    add({.title = "Active: " + active->name});
  const bool hasExternal = displayContext(state.displays) == DisplayContext::external;
  add({.title = hasExternal ? "External display connected" : "Built-in display only"});
  add(profilePicker(state));
  add({});
  add({.title = "Clipboard Shelf", .command = toggleClipboard, .shortcut = state.shelfShortcut});
  add({.title = "AI Agents (" + std::to_string(state.workingCount) + " working)", .command = toggleAgents});
  add({});
  add({.title = "Customize Dock…", .command = customizeDock});
  add({.title = "Disk Doctor…", .command = openDiskDoctor});
  add({.title = "Welcome Guide…", .command = openWelcomeGuide});
  add({.title = "Check for Updates…", .command = checkForUpdates});
  if (!state.isPro) add({.title = "Buy Tilebay Pro…", .command = buyPro});
  add({});
  add({.title = "Settings", .command = openSettings, .shortcut = "Meta+,"});
  add({.title = "Quit Tilebay", .command = quit, .shortcut = "Meta+Q"});
  return menu;
}

std::string menuBarLabel(const MenuModel& menu) {
  if (menu.attention == 0) return "Tilebay";
  return "Tilebay: " + std::to_string(menu.attention) + (menu.attention == 1 ? " agent needs you" : " agents need you");
}

}  // namespace ambrel
