#include "core/settings/KeyBinding.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "core/base/Text.h"

namespace ambrel {
namespace {

struct Keeper {
  std::string_view name;  // in XDG_CURRENT_DESKTOP, in lower case
  const char* trace;      // a variable that it sets; null for none
  std::string_view place;
  std::array<std::string_view, 4> modifiers;  // Control, Super, Alt, Shift
  std::string_view between;
  // {mods}, {key} ("v"), {KEY} ("V"), {command}, {name} (of a binding)
  std::string_view line = "{command}";
};
constexpr Keeper keepers[] = {
    {"sway",
     "SWAYSOCK",
     "sway's configuration, ~/.config/sway/config",
     {"Ctrl", "Mod4", "Mod1", "Shift"},
     "+",
     "bindsym {mods}+{key} exec {command}"},
    {"hyprland",
     "HYPRLAND_INSTANCE_SIGNATURE",
     "Hyprland's configuration, ~/.config/hypr/hyprland.conf",
     {"CTRL", "SUPER", "ALT", "SHIFT"},
     " ",
     "bind = {mods}, {KEY}, exec, {command}"},
    {"labwc",
     "LABWC_PID",
     "the keyboard section of ~/.config/labwc/rc.xml",
     {"C", "W", "A", "S"},
     "-",
     "<keybind key=\"{mods}-{key}\"><action name=\"Execute\" command=\"{command}\"/></keybind>"},
    {"river",
     nullptr,
     "river's script, ~/.config/river/init",
     {"Control", "Super", "Alt", "Shift"},
     "+",
     "riverctl map normal {mods} {KEY} spawn '{command}'"},
    {"wayfire",
     "WAYFIRE_SOCKET",
     "the command section of ~/.config/wayfire.ini",
     {"<ctrl>", "<super>", "<alt>", "<shift>"},
     " ",
     "binding_{name} = {mods} KEY_{KEY}\ncommand_{name} = {command}"},
    {"niri",
     "NIRI_SOCKET",
     "the binds of ~/.config/niri/config.kdl",
     {"Ctrl", "Super", "Alt", "Shift"},
     "+",
     "{mods}+{KEY} {{ spawn \"sh\" \"-c\" \"{command}\"; }}"},
    {"kde", nullptr, "the settings of Plasma, Keyboard, Shortcuts, Add New, Command", {}, ""},
    {"gnome", nullptr, "the settings of GNOME, Keyboard, View and Customize Shortcuts, Custom Shortcuts", {}, ""},
    {"cosmic", nullptr, "the settings of COSMIC, Input Devices, Keyboard, Custom Shortcuts", {}, ""},
};

const Keeper* keeperOf(std::string_view desktop) {
  const std::string names = asciiLower(desktop);
  for (const std::string_view name : split(names, ':'))
    if (const auto* found = std::ranges::find(keepers, name, &Keeper::name); found != std::end(keepers)) return found;
  return nullptr;
}

std::string modifiersText(const std::array<std::string_view, 4>& modifiers, std::string_view between,
                          const KeyCombination& keys) {
  const std::array held{keys.control, keys.command, keys.option, keys.shift};
  std::string text;
  for (std::size_t i = 0; i < held.size(); ++i)
    if (held[i]) text.append(text.empty() ? "" : between).append(modifiers[i]);
  return text;
}

// "tilebay --toggle-clipboard" is "tilebay_toggle_clipboard".
std::string nameOf(std::string_view command) {
  std::string name;
  for (const char c : command)
    if (const bool isMark = c == '-' || c == ' '; !isMark || !name.ends_with('_')) name += isMark ? '_' : c;
  return name;
}

}  // namespace

std::string desktopInUse(const std::function<const char*(const char*)>& variable) {
  if (const char* named = variable("XDG_CURRENT_DESKTOP"); named && keeperOf(named)) return named;
  for (const Keeper& keeper : keepers)
    if (keeper.trace && variable(keeper.trace)) return std::string(keeper.name);
  return {};
}

std::string placeOfKeys(std::string_view desktop) {
  const Keeper* keeper = keeperOf(desktop);
  return std::string(keeper ? keeper->place : "the settings of your desktop");
}

std::string keyBinding(std::string_view desktop, const KeyCombination& keys, std::string_view command) {
  if (keys.key == 0) return {};
  const Keeper* keeper = keeperOf(desktop);
  if (!keeper) return std::string(command);
  const bool isLetter = keys.key >= 'a' && keys.key <= 'z';
  return fmt::format(
      fmt::runtime(keeper->line), fmt::arg("mods", modifiersText(keeper->modifiers, keeper->between, keys)),
      fmt::arg("key", keys.key), fmt::arg("KEY", isLetter ? static_cast<char>(keys.key - 'a' + 'A') : keys.key),
      fmt::arg("command", command), fmt::arg("name", nameOf(command)));
}

std::string portalTrigger(const KeyCombination& keys) {
  if (keys.key == 0) return {};
  const std::string modifiers = modifiersText({"CTRL", "LOGO", "ALT", "SHIFT"}, "+", keys);
  return modifiers + (modifiers.empty() ? "" : "+") + keys.key;
}

}  // namespace ambrel
