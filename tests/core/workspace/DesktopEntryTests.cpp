#include <gtest/gtest.h>

#include "core/workspace/DesktopEntry.h"

namespace ambrel {
namespace {

using Command = std::optional<std::vector<std::string>>;

TEST(DesktopEntry, ReadsTheApplicationGroupAlone) {
  const auto entry = parseDesktopEntry("org.example.Editor",
                                       "# made by hand\n"
                                       "Name=Not in a group\n"
                                       "[Desktop Entry]\r\n"
                                       "Type = Application\r\n"
                                       "Name=Editor\n"
                                       "Name[de]=Bearbeiter\n"
                                       "Exec=editor --new %F\n"
                                       "TryExec=/opt/editor\n"
                                       "Icon=editor-icon\n"
                                       "Path=/opt/a\\sb\n"
                                       "StartupWMClass=Editor Main\n"
                                       "Terminal=true\n"
                                       "a line without a sign\n"
                                       "Actions=new;gone;nameless;\n"
                                       "[Desktop Action unlisted]\n"
                                       "Name=Not offered\n"
                                       "Exec=editor --hidden\n"
                                       "[Desktop Action new]\n"
                                       "Name=New Window\n"
                                       "Exec=editor \"--name=%c\"\n"
                                       "[Desktop Action nameless]\n"
                                       "Exec=editor --other\n");
  ASSERT_TRUE(entry);
  EXPECT_EQ(*entry, (DesktopEntry{.id = "org.example.Editor",
                                  .name = "Editor",
                                  .icon = "editor-icon",
                                  .exec = "editor --new %F",
                                  .tryExec = "/opt/editor",
                                  .workingFolder = "/opt/a b",
                                  .windowClass = "Editor Main",
                                  .actions = {{"new", "New Window", "", "editor \"--name=%c\""}},
                                  .runsInTerminal = true}));
  EXPECT_EQ(commandOf(*entry, entry->actions[0], ""), (Command{{"editor", "--name=Editor"}}));
}

TEST(DesktopEntry, WhatCannotBeStartedIsNone) {
  for (const char* text : {"", "[Desktop Entry]\nType=Link\nExec=x\n", "[Desktop Entry]\nType=Application\n",
                           "Type=Application\nExec=x\n"})
    EXPECT_FALSE(parseDesktopEntry("a", text)) << text;
  EXPECT_TRUE(parseDesktopEntry("a", "[Desktop Entry]\nHidden=true\n").value().isHidden);
}

TEST(DesktopEntry, IDsComeFromThePath) {
  EXPECT_EQ(desktopEntryID("code.desktop"), "code");
  EXPECT_EQ(desktopEntryID("kde/about.desktop"), "kde-about");
  EXPECT_FALSE(desktopEntryID("mimeinfo.cache"));
  EXPECT_FALSE(desktopEntryID(".desktop"));
}

TEST(DesktopEntry, CommandsFollowTheQuotingRules) {
  const std::pair<std::string, Command> cases[] = {
      {"editor", {{"editor"}}},
      {"  editor   -n\t--wait ", {{"editor", "-n", "--wait"}}},
      {"/opt/x/editor %F", {{"/opt/x/editor"}}},
      {"editor --open %U --last", {{"editor", "--open", "--last"}}},
      {"editor --file=%f", {{"editor", "--file="}}},
      {"editor %d%D%n%N%v%m", {{"editor"}}},
      {"editor 100%%", {{"editor", "100%"}}},
      {"editor %c %k", {{"editor", "The Editor", "/usr/share/applications/editor.desktop"}}},
      {"editor %i", {{"editor", "--icon", "pen"}}},
      {"\"/opt/My Editor/run\" \"\" x", {{"/opt/My Editor/run", "", "x"}}},
      {R"(editor "a \" b \$HOME \` \\ c")", {{"editor", R"(a " b $HOME ` \ c)"}}},
      {R"(editor "\n")", {{"editor", R"(\n)"}}},
      {"env A=1 editor; rm -rf $HOME && x | y", {{"env", "A=1", "editor;", "rm", "-rf", "$HOME", "&&", "x", "|", "y"}}},
      {"editor 50%", {{"editor", "50%"}}},
      {"editor \"unfinished", std::nullopt},
      {"editor \"unfinished\\", std::nullopt},
      {"%F", std::nullopt},
      {"\"\" x", std::nullopt},
  };
  DesktopEntry entry;
  entry.name = "The Editor";
  entry.icon = "pen";
  for (const auto& [exec, command] : cases) {
    entry.exec = exec;
    EXPECT_EQ(commandOf(entry, "/usr/share/applications/editor.desktop"), command) << exec;
  }
  entry.icon.clear();
  entry.exec = "editor %i x";
  EXPECT_EQ(commandOf(entry, ""), (Command{{"editor", "x"}}));
}

}  // namespace
}  // namespace ambrel
