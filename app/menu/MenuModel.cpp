#include "app/menu/MenuModel.h"

#include <algorithm>

namespace ambrel {
namespace {

MenuEntry text(std::string title) {
  MenuEntry entry;
  entry.title = std::move(title);
  return entry;
}

MenuEntry command(std::string title, MenuCommand command, std::string shortcut = {}) {
  MenuEntry entry = text(std::move(title));
  entry.command = command;
  entry.shortcut = std::move(shortcut);
  return entry;
}

MenuEntry choice(std::string title, std::optional<UUID> profile, bool isChecked) {
  MenuEntry entry = command(std::move(title), MenuCommand::pinProfile);
  entry.profile = profile;
  entry.isChecked = isChecked;
  return entry;
}

MenuEntry profilePicker(const MenuState& state) {
  MenuEntry picker = text("Profile");
  const auto isPinned = [&](const Profile& profile) { return profile.id == state.pinnedProfileID; };
  // A pinned profile that has been deleted leaves the choice to the displays again.
  picker.entries.push_back(choice("Auto (by display)", std::nullopt, std::ranges::none_of(state.profiles, isPinned)));
  for (const Profile& profile : state.profiles)
    picker.entries.push_back(choice(profile.name, profile.id, isPinned(profile)));
  return picker;
}

}  // namespace

MenuModel menuModel(const MenuState& state) {
  MenuModel menu;
  menu.attention = state.isAgentTrackingAllowed ? std::max(0, state.needsInputCount) : 0;
  auto& entries = menu.entries;
  if (const auto active = std::ranges::find(state.profiles, state.activeProfileID, &Profile::id);
      active != state.profiles.end())
    entries.push_back(text("Active: " + active->name));
  entries.push_back(text(displayContext(state.displays) == DisplayContext::external ? "External display connected"
                                                                                    : "Built-in display only"));
  entries.push_back(profilePicker(state));
  entries.emplace_back();
  entries.push_back(command("Clipboard Shelf", MenuCommand::toggleClipboard, "Meta+Alt+V"));
  entries.push_back(
      command("AI Agents (" + std::to_string(state.workingCount) + " working)", MenuCommand::toggleAgents));
  entries.emplace_back();
  entries.push_back(command("Customize Dock…", MenuCommand::customizeDock));
  entries.push_back(command("Disk Doctor…", MenuCommand::openDiskDoctor));
  entries.push_back(command("Welcome Guide…", MenuCommand::openWelcomeGuide));
  entries.push_back(command("Check for Updates…", MenuCommand::checkForUpdates));
  if (!state.isPro) entries.push_back(command("Buy Tilebay Pro…", MenuCommand::buyPro));
  entries.emplace_back();
  entries.push_back(command("Settings", MenuCommand::openSettings, "Meta+,"));
  entries.push_back(command("Quit Tilebay", MenuCommand::quit, "Meta+Q"));
  return menu;
}

std::string menuBarLabel(const MenuModel& menu) {
  if (menu.attention == 0) return "Tilebay";
  return "Tilebay: " + std::to_string(menu.attention) + (menu.attention == 1 ? " agent needs you" : " agents need you");
}

}  // namespace ambrel
