#include <cctype>
#include <gtest/gtest.h>
#include <map>

#include "core/settings/KeyBinding.h"

namespace ambrel {
namespace {

TEST(KeyBinding, IsALineInTheCompositorsOwnLanguage) {
  const KeyCombination bar{.key = 'd', .command = true, .option = true, .control = true};
  const KeyCombination pinned{.key = '1', .command = true, .shift = true};
  struct Case {
    const char *desktop, *bar, *pinned;
  };
  for (const auto& [desktop, barLine, pinnedLine] : {
           Case{"sway:wlroots", "bindsym Ctrl+Mod4+Mod1+d exec tilebay --reveal",
                "bindsym Mod4+Shift+1 exec tilebay --copy-pinned 1"},
           Case{"Hyprland", "bind = CTRL SUPER ALT, D, exec, tilebay --reveal",
                "bind = SUPER SHIFT, 1, exec, tilebay --copy-pinned 1"},
           Case{"labwc:wlroots",
                R"(<keybind key="C-W-A-d"><action name="Execute" command="tilebay --reveal"/></keybind>)",
                R"(<keybind key="W-S-1"><action name="Execute" command="tilebay --copy-pinned 1"/></keybind>)"},
           Case{"river", "riverctl map normal Control+Super+Alt D spawn 'tilebay --reveal'",
                "riverctl map normal Super+Shift 1 spawn 'tilebay --copy-pinned 1'"},
           Case{"wayfire",
                "binding_tilebay_reveal = <ctrl> <super> <alt> KEY_D\ncommand_tilebay_reveal = tilebay --reveal",
                "binding_tilebay_copy_pinned_1 = <super> <shift> KEY_1\n"
                "command_tilebay_copy_pinned_1 = tilebay --copy-pinned 1"},
           Case{"niri", R"(Ctrl+Super+Alt+D { spawn "sh" "-c" "tilebay --reveal"; })",
                R"(Super+Shift+1 { spawn "sh" "-c" "tilebay --copy-pinned 1"; })"},
           Case{"ubuntu:GNOME", "tilebay --reveal", "tilebay --copy-pinned 1"},
           Case{"", "tilebay --reveal", "tilebay --copy-pinned 1"},
       }) {
    EXPECT_EQ(keyBinding(desktop, bar, "tilebay --reveal"), barLine);
    EXPECT_EQ(keyBinding(desktop, pinned, "tilebay --copy-pinned 1"), pinnedLine);
    EXPECT_EQ(keyBinding(desktop, {}, "tilebay --reveal"), "") << "no key";
  }
}

TEST(KeyCombination, AKeyStandsForWhatIsUsuallyAtItsPlaceWhereALayoutHasNoLatinLetterOrNoDigit) {
  struct Case {
    char32_t typed;
    std::uint32_t place;
    char32_t usual;
  };
  for (const auto& [typed, place, usual] :
       {Case{'Q', 38, 'Q'}, Case{'1', 87, '1'}, Case{U'Й', 24, 'Q'}, Case{U'Ь', 58, 'M'}, Case{U'Ж', 47, U'Ж'},
        Case{U'&', 10, '1'}, Case{U'À', 19, '0'}, Case{',', 58, ','}, Case{U'Ö', 38, U'Ö'}, Case{U'Й', 0, U'Й'},
        Case{0x01000000, 24, 0x01000000}})
    EXPECT_EQ(usualKey(typed, place), usual) << std::uint32_t(typed) << " at " << place;
  for (const char key : std::string_view("0189amqz"))
    EXPECT_EQ(usualKey(U'я', usualPlace(key)), static_cast<std::uint32_t>(std::toupper(key)));
  EXPECT_EQ(usualPlace('-'), 0);
}

TEST(KeyBinding, ACompositorIsKnownByItsTraceWhereNothingNamesIt) {
  std::map<std::string, const char*> variables{{"LABWC_PID", "7"}};
  const auto inUse = [&] {
    return desktopInUse([&](const char* name) { return variables.contains(name) ? variables[name] : nullptr; });
  };
  EXPECT_EQ(inUse(), "labwc");
  variables["XDG_CURRENT_DESKTOP"] = "wlroots";
  EXPECT_EQ(inUse(), "labwc");
  variables["XDG_CURRENT_DESKTOP"] = "KDE";
  EXPECT_EQ(inUse(), "KDE");
}

}  // namespace
}  // namespace ambrel
