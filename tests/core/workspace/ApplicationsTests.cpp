#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "core/workspace/Applications.h"

namespace ambrel {
namespace {

constexpr std::string_view claude = "com.anthropic.claudefordesktop";
constexpr std::string_view codex = "com.openai.codex";

ProcessRecord process(int pid, int parent, std::string name, std::vector<std::string> arguments = {}) {
  ProcessRecord record;
  record.pid = pid;
  record.parent = parent;
  record.state = 'S';
  record.name = std::move(name);
  record.arguments = std::move(arguments);
  return record;
}

ProcessRecord inWindow(ProcessRecord record, std::uint32_t window) {
  record.windowID = window;
  return record;
}

TEST(Applications, AnAgentIsKnownByItsCommand) {
  struct Case {
    ProcessRecord process;
    std::string_view bundleID;  // empty: no agent
  };
  const std::vector<Case> cases{
      {process(1, 0, "claude", {"claude"}), claude},
      {process(1, 0, "claude", {}), claude},
      {process(1, 0, "MainThread", {"/home/u/.local/bin/claude", "--resume"}), claude},
      {process(1, 0, "node", {"node", "/usr/local/bin/claude"}), claude},
      {process(1, 0, "node", {"/usr/bin/node", "--max-old-space-size=8192", "/opt/a b/claude", "-p"}), claude},
      {process(1, 0, "node", {"node", "/usr/lib/node_modules/@anthropic-ai/claude-code/cli.js"}), claude},
      {process(1, 0, "bun", {"bun", "run", "/x/claude"}), claude},
      {process(1, 0, "bash", {"/bin/bash", "/home/u/bin/codex"}), codex},
      {process(1, 0, "codex", {"codex", "exec"}), codex},
      {process(1, 0, "node", {"node", "/usr/lib/node_modules/@openai/codex/bin/codex.js"}), codex},
      {process(1, 0, "cursor-agent", {}), "com.todesktop.230313mzl4w4u92"},
      {process(1, 0, "agy", {"agy"}), "com.google.antigravity"},
      {process(1, 0, "vim", {"vim", "claude"}), ""},
      {process(1, 0, "less", {"less", "/tmp/codex"}), ""},
      {process(1, 0, "bash", {"-bash"}), ""},
      {process(1, 0, "bash", {"bash", "-c", "claude"}), ""},
      {process(1, 0, "node", {"node"}), ""},
      {process(1, 0, "node", {"node", "/srv/codex/server.js"}), ""},
      {process(1, 0, "claude-notes", {"claude-notes"}), ""},
      {process(1, 0, "", {}), ""},
  };
  for (const Case& test : cases) {
    const KnownApplication* agent = agentOf(test.process);
    EXPECT_EQ(agent ? agent->bundleID : "", test.bundleID)
        << test.process.name << " " << (test.process.arguments.empty() ? "" : test.process.arguments.back());
  }
  ProcessRecord dead = process(1, 0, "claude");
  dead.state = 'Z';
  EXPECT_FALSE(agentOf(dead));
}

TEST(Applications, IdentifiersOfWindows) {
  std::vector<DesktopEntry> entries(5);
  entries[0].id = "xterm";
  entries[0].windowClass = "something-else";
  entries[1].id = "org.kde.konsole";
  entries[2].id = "Web Browser";
  entries[2].windowClass = "Navigator";
  entries[3].id = "gone";
  entries[3].isHidden = true;
  entries[4].id = "org.example.shell";
  entries[4].windowClass = "XTerm";
  const std::vector<std::pair<WindowRecord, std::string>> cases{
      {{1, 1, "cursor", "Cursor"}, "com.todesktop.230313mzl4w4u92"},
      {{1, 1, "claude", "Claude"}, std::string(claude)},
      {{1, 1, "konsole", "konsole"}, "org.kde.konsole"},
      {{1, 1, "1password", "1Password"}, "com.1password.1password"},
      {{1, 1, "bitwarden", "Bitwarden"}, "com.bitwarden.desktop"},
      {{1, 1, "seahorse", "Org.gnome.seahorse.Application"}, "com.apple.keychainaccess"},
      {{1, 1, "navigator", "Firefox"}, "Web Browser"},
      {{1, 1, "xterm", "XTerm"}, "org.example.shell"},
      {{1, 1, "gone", "Gone"}, "gone"},
      {{1, 1, "x", "UnknownThing"}, "unknownthing"},
      {{1, 1, "only-instance", ""}, "only-instance"},
      {{1, 1, "", ""}, ""},
  };
  for (const auto& [window, expected] : cases) EXPECT_EQ(applicationOf(window, entries), expected) << expected;
}

TEST(Applications, HaveTheNamesThatPeopleKnow) {
  std::vector<DesktopEntry> entries(3);
  entries[0].id = "org.kde.konsole";
  entries[0].name = "Konsole";
  entries[1].id = "bitwarden";
  entries[1].name = "Bitwarden Vault";
  entries[2].id = "org.gone.thing";
  entries[2].name = "Thing that was";
  entries[2].isHidden = true;
  const std::vector<std::pair<std::string, std::string>> cases{{"org.kde.konsole", "Konsole"},
                                                               {"com.bitwarden.desktop", "Bitwarden Vault"},
                                                               {"org.gone.thing", "Thing"},
                                                               {"xterm", "Xterm"},
                                                               {"org.example.Mail", "Mail"},
                                                               {"", ""},
                                                               {"élan", "élan"}};
  for (const auto& [id, expected] : cases) EXPECT_EQ(applicationName(id, entries), expected) << id;
  entries[1].icon = entries[2].icon = "the-vault";
  EXPECT_EQ(applicationIcon("com.bitwarden.desktop", entries), "the-vault");
  EXPECT_EQ(applicationIcon("org.gone.thing", entries), "");
}

TEST(Applications, ATerminalCountsAsTheAgentsInIt) {
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"),
                                         process(11, 10, "bash", {"bash"}),
                                         process(12, 11, "node", {"node", "/usr/bin/codex"}),
                                         process(13, 12, "codex", {"/x/codex"}),
                                         process(14, 11, "claude"),
                                         process(20, 1, "xterm"),
                                         process(21, 20, "bash")};
  const std::vector<WindowRecord> windows{{100, 10, "xterm", "XTerm"}, {200, 20, "xterm", "XTerm"}, {300, {}, "", ""}};
  EXPECT_EQ(agentsIn(windows[0], windows, table), (std::vector<std::string>{std::string(claude), std::string(codex)}));
  EXPECT_TRUE(agentsIn(windows[1], windows, table).empty());
  EXPECT_TRUE(agentsIn(windows[2], windows, table).empty());
  EXPECT_EQ(windowOf(codex, windows, table, {}), 100u);
  EXPECT_EQ(windowOf("xterm", windows, table, {}), 200u);
  EXPECT_FALSE(windowOf("com.google.antigravity", windows, table, {}));
}

TEST(Applications, TheWindowOfATerminalServerThatRunsTheAgentWins) {
  // One process with three windows, as terminal servers have; only the second one runs claude.
  std::vector<ProcessRecord> table{process(10, 1, "terminal-server"), inWindow(process(11, 10, "bash"), 100),
                                   inWindow(process(12, 10, "bash"), 200), inWindow(process(13, 12, "claude"), 200)};
  const std::vector<WindowRecord> windows{{100, 10, "t", "T"}, {200, 10, "t", "T"}, {300, 10, "t", "T"}};
  EXPECT_EQ(windowOf(claude, windows, table, {}), 200u);
  EXPECT_TRUE(agentsIn(windows[2], windows, table).empty());
  EXPECT_FALSE(agentsIn(windows[1], windows, table).empty());
  // A number that is no window of this terminal says nothing (a multiplexer was started from another one).
  table[3].windowID = 999;
  EXPECT_EQ(windowOf(claude, windows, table, {}), 300u);
  table[3].windowID = std::nullopt;
  EXPECT_EQ(windowOf(claude, windows, table, {}), 300u);
}

TEST(Applications, TheTopmostWindowComesForward) {
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"), process(11, 10, "claude"), process(20, 1, "xterm"),
                                         process(21, 20, "claude"), process(30, 1, "app")};
  EXPECT_EQ(windowOf(claude, {{1, 10, "xterm", "XTerm"}, {2, 20, "xterm", "XTerm"}}, table, {}), 2u);
  EXPECT_EQ(windowOf(claude, {{2, 20, "xterm", "XTerm"}, {1, 10, "xterm", "XTerm"}}, table, {}), 1u);
  EXPECT_EQ(windowOf(claude, {{2, 20, "xterm", "XTerm"}, {3, 30, "claude", "Claude"}}, table, {}), 3u);
}

TEST(Applications, AMultiplexerLeadsToItsTerminal) {
  std::vector<ProcessRecord> table{process(10, 1, "xterm"),
                                   process(11, 10, "tmux: client"),
                                   process(20, 1, "xterm"),
                                   process(40, 1, "tmux: server"),
                                   process(41, 40, "bash"),
                                   process(42, 41, "claude"),
                                   process(12, 10, "screen", {"SCREEN"}),
                                   process(13, 12, "codex")};
  const std::vector<WindowRecord> windows{{100, 10, "xterm", "XTerm"}, {200, 20, "xterm", "XTerm"}};
  EXPECT_EQ(windowOf(claude, windows, table, {}), 100u);
  EXPECT_FALSE(windowOf("com.google.antigravity", windows, table, {}));
  // What a server runs is in its panes, also when it was started from this very terminal.
  EXPECT_TRUE(agentsIn(windows[0], windows, table).empty());
}

TEST(Applications, TheTableIsSound) {
  std::set<std::string_view> ids;
  for (const KnownApplication& application : knownApplications()) {
    EXPECT_TRUE(ids.insert(application.bundleID).second) << application.bundleID;
    EXPECT_EQ(findApplication(application.bundleID), &application);
    for (const std::string_view name : application.classes)
      EXPECT_EQ(std::ranges::count_if(name, [](char c) { return c >= 'A' && c <= 'Z'; }), 0) << name;
  }
  EXPECT_EQ(ids, (std::set<std::string_view>{claude, codex, "com.todesktop.230313mzl4w4u92", "com.google.antigravity",
                                             "com.1password.1password", "com.bitwarden.desktop",
                                             "com.apple.keychainaccess"}));
  EXPECT_EQ(findApplication("com.example.none"), nullptr);
}

}  // namespace
}  // namespace ambrel
