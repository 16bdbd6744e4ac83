#include "core/workspace/Applications.h"
#include "core/workspace/Multiplexers.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

using Variables = std::map<std::string, std::string, std::less<>>;

constexpr std::string_view claude = "com.anthropic.claudefordesktop";
constexpr std::string_view codex = "com.openai.codex";

ProcessRecord process(int pid, int parent, std::string name, std::vector<std::string> arguments = {},
                      Variables variables = {}) {
  return {.pid = pid,
          .parent = parent,
          .state = 'S',
          .name = std::move(name),
          .arguments = std::move(arguments),
          .windowID = {},
          .variables = std::move(variables)};
}

ProcessRecord inWindow(ProcessRecord record, std::uint32_t window) {
  record.windowID = window;
  return record;
}

DesktopEntry entry(std::string id, std::string name = {}, std::string windowClass = {}) {
  DesktopEntry entry;
  entry.id = std::move(id);
  entry.name = std::move(name);
  entry.windowClass = std::move(windowClass);
  return entry;
}

TEST(Applications, AnAgentIsKnownByItsCommand) {
  using Words = std::vector<std::string>;
  const auto id = [](const char* name, Words words) {
    const KnownApplication* agent = agentOf(process(1, 0, name, std::move(words)));
    return agent ? agent->bundleID : "";
  };
  const std::pair<const char*, Words> claudes[] = {
      {"claude", {"claude"}},
      {"claude", {}},
      {"MainThread", {"/home/u/.local/bin/claude", "--resume"}},
      {"node", {"node", "/usr/local/bin/claude"}},
      {"node", {"/usr/bin/node", "--max-old-space-size=8192", "/opt/a b/claude", "-p"}},
      {"node", {"node", "/usr/lib/node_modules/@anthropic-ai/claude-code/cli.js"}},
      {"bun", {"bun", "run", "/x/claude"}}};
  for (const auto& [name, words] : claudes) EXPECT_EQ(id(name, words), claude) << (words.empty() ? name : words.back());
  EXPECT_EQ(id("bash", {"/bin/bash", "/home/u/bin/codex"}), codex);
  EXPECT_EQ(id("codex", {"codex", "exec"}), codex);
  EXPECT_EQ(id("node", {"node", "/usr/lib/node_modules/@openai/codex/bin/codex.js"}), codex);
  EXPECT_EQ(id("cursor-agent", {}), "com.todesktop.230313mzl4w4u92");
  EXPECT_EQ(id("agy", {"agy"}), "com.google.antigravity");
  using Row = std::pair<const char*, Words>;
  for (const auto& [name, words] :
       {Row{"vim", {"vim", "claude"}}, Row{"less", {"less", "/tmp/codex"}}, Row{"bash", {"-bash"}},
        Row{"bash", {"bash", "-c", "claude"}}, Row{"node", {"node"}}, Row{"node", {"node", "/srv/codex/server.js"}},
        Row{"claude-notes", {"claude-notes"}}, Row{"", {}}})
    EXPECT_EQ(id(name, words), "") << name;
  ProcessRecord dead = process(1, 0, "claude");
  dead.state = 'Z';
  EXPECT_FALSE(agentOf(dead));
}

TEST(Applications, IdentifiersOfWindows) {
  std::vector<DesktopEntry> entries{entry("xterm", "", "something-else"), entry("org.kde.konsole"),
                                    entry("Web Browser", "", "Navigator"), entry("gone"),
                                    entry("org.example.shell", "", "XTerm")};
  entries[3].isHidden = true;
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
  std::vector<DesktopEntry> entries{entry("org.kde.konsole", "Konsole"), entry("bitwarden", "Bitwarden Vault"),
                                    entry("org.gone.thing", "Thing that was")};
  entries[2].isHidden = true;
  using Row = std::pair<const char*, const char*>;
  for (const auto& [id, expected] : {Row{"org.kde.konsole", "Konsole"}, Row{"com.bitwarden.desktop", "Bitwarden Vault"},
                                     Row{"org.gone.thing", "Thing"}, Row{"xterm", "Xterm"},
                                     Row{"org.example.Mail", "Mail"}, Row{"", ""}, Row{"élan", "élan"}})
    EXPECT_EQ(applicationName(id, entries), expected) << id;
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

const WindowRecord terminal{100, 10, "xterm", "XTerm"};

std::vector<int> shown(const PaneQuestion& question, std::string_view answer,
                       const std::vector<ProcessRecord>& processes) {
  std::vector<int> pids;
  for (const ProcessRecord* one : shownInPanes(question, answer, processes)) pids.push_back(one->pid);
  std::ranges::sort(pids);
  return pids;
}

TEST(Multiplexers, TmuxIsAskedThroughTheSocketThatItsPanesKnow) {
  const Variables inside{{"TMUX", "/tmp/a, b/default,40,0"}};
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"),
                                         process(11, 10, "bash"),
                                         process(12, 11, "tmux: client", {"tmux"}),
                                         process(40, 1, "tmux: server", {"tmux"}),
                                         process(41, 40, "bash", {}, inside),
                                         process(42, 41, "claude", {}, inside),
                                         process(43, 40, "bash", {}, inside),
                                         process(44, 40, "bash", {}, inside)};
  const auto questions = paneQuestions(terminal, {terminal}, table);
  ASSERT_THAT(questions, SizeIs(1));
  EXPECT_EQ(questions[0].client, 12);
  EXPECT_THAT(std::vector(questions[0].command.begin(), questions[0].command.begin() + 4),
              ElementsAre("tmux", "-S", "/tmp/a, b/default", "list-clients"));
  // Another client, on another screen, looks at the window @2. Panes beside one another are all in view; a zoomed one
  // hides the others.
  const std::string clients = "client 99 @2\nclient 12 @1\n";
  EXPECT_THAT(shown(questions[0], clients + "pane @1 41 1\npane @1 43 1\npane @2 44 1\n", table),
              ElementsAre(41, 42, 43));
  EXPECT_THAT(shown(questions[0], clients + "pane @1 41 0\npane @1 43 1\npane @2 44 1\n", table), ElementsAre(43));
  EXPECT_THAT(shown(questions[0], "client 99 @2\npane @2 44 1\n", table), IsEmpty());
  for (const char* answer : {"", "no server running", "client 12\npane 12", "client 12 @1\npane @1 x 1\n"})
    EXPECT_THAT(shown(questions[0], answer, table), IsEmpty()) << answer;
}

TEST(Multiplexers, AScreenIsTheOneThatTheTerminalStartedOrNamed) {
  const auto pane = [](const char* session, const char* window) {
    return Variables{{"STY", session}, {"WINDOW", window}};
  };
  std::vector<ProcessRecord> table{process(10, 1, "xterm"),
                                   process(11, 10, "screen", {"screen"}),
                                   process(12, 11, "screen", {"SCREEN"}),
                                   process(13, 12, "bash", {}, pane("12.pts-0.desk", "0")),
                                   process(14, 13, "claude", {}, pane("12.pts-0.desk", "0")),
                                   process(15, 12, "bash", {}, pane("12.pts-0.desk", "1")),
                                   process(40, 1, "screen", {"SCREEN", "-S", "work"}),
                                   process(41, 40, "bash", {}, pane("40.work", "0"))};
  auto questions = paneQuestions(terminal, {terminal}, table);
  ASSERT_THAT(questions, SizeIs(1));
  EXPECT_THAT(questions[0].command, ElementsAre("screen", "-S", "12.pts-0.desk", "-Q", "number"));
  EXPECT_THAT(shown(questions[0], "0 (bash)", table), ElementsAre(13, 14));
  EXPECT_THAT(shown(questions[0], "1 (bash)\n", table), ElementsAre(15));
  EXPECT_THAT(shown(questions[0], "No screen session found.", table), IsEmpty());

  // Attached again from elsewhere, it is told by its name.
  table[2].parent = 1;
  table[1].arguments = {"screen", "-r", "work"};
  questions = paneQuestions(terminal, {terminal}, table);
  ASSERT_THAT(questions, SizeIs(1));
  EXPECT_EQ(questions[0].server, 40);
  table[1].arguments = {"screen", "-x"};
  EXPECT_THAT(paneQuestions(terminal, {terminal}, table), IsEmpty()) << "it may be either";
}

TEST(Multiplexers, ZellijNamesThePanesThatAreTypedInto) {
  const auto pane = [](const char* number) {
    return Variables{{"ZELLIJ_SESSION_NAME", "brave-fox"}, {"ZELLIJ_PANE_ID", number}};
  };
  const std::vector<ProcessRecord> table{
      process(10, 1, "xterm"),
      process(11, 10, "zellij", {"zellij"}),
      process(40, 1, "zellij", {"/usr/bin/zellij", "--server", "/run/zellij/brave-fox"}),
      process(41, 40, "bash", {}, pane("0")),
      process(42, 41, "claude", {}, pane("0")),
      process(43, 40, "bash", {}, pane("1"))};
  const auto questions = paneQuestions(terminal, {terminal}, table);
  ASSERT_THAT(questions, SizeIs(1));
  EXPECT_THAT(questions[0].command, ElementsAre("zellij", "--session", "brave-fox", "action", "list-clients"));
  EXPECT_THAT(shown(questions[0], "CLIENT_ID ZELLIJ_PANE_ID RUNNING_COMMAND\n1         terminal_0     claude\n", table),
              ElementsAre(41, 42));
  EXPECT_THAT(shown(questions[0], "1 plugin_0 zellij:tab-bar\n", table), IsEmpty());
}

TEST(Multiplexers, ATerminalWithoutOneAsksNothing) {
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"), process(11, 10, "bash"),
                                         process(40, 1, "tmux: server"),
                                         process(41, 40, "bash", {}, {{"TMUX", "/tmp/default,40,0"}})};
  EXPECT_THAT(paneQuestions(terminal, {terminal}, table), IsEmpty());
}

// The window that comes forward for a process, when the pane's command prints `answer`.
std::optional<std::uint32_t> windowFor(int pid, std::string_view answer, const std::vector<WindowRecord>& windows,
                                       const std::vector<ProcessRecord>& table) {
  return windowOfProcess(pid, paneOf(pid, table), answer, windows, table);
}

TEST(Multiplexers, TheWindowOfAProcessIsItsTerminalOrThatOfAClientOfItsSession) {
  const Variables inside{{"TMUX", "/tmp/tmux/default,40,0"}, {"TMUX_PANE", "%3"}};
  const WindowRecord other{200, 20, "xterm", "XTerm"};
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"),
                                         process(12, 10, "tmux: client", {"tmux"}),
                                         process(20, 1, "xterm"),
                                         process(22, 20, "tmux: client", {"tmux"}),
                                         process(23, 20, "codex"),
                                         process(40, 1, "tmux: server", {"tmux"}),
                                         process(42, 40, "claude", {}, inside)};
  EXPECT_THAT(paneOf(42, table)->command,
              ElementsAre("tmux", "-S", "/tmp/tmux/default", "select-window", "-t", "%3", ";", "select-pane", "-t",
                          "%3", ";", "list-clients", "-t", "%3", "-F", "#{client_pid}"));
  EXPECT_EQ(windowFor(42, "12\n", {terminal, other}, table), 100U);
  EXPECT_EQ(windowFor(42, "12\n22\n", {terminal, other}, table), 200U);
  // Nobody is attached to its session.
  EXPECT_EQ(windowFor(42, "", {terminal, other}, table), std::nullopt);
  EXPECT_EQ(windowFor(23, "", {other, terminal}, table), 200U);
  EXPECT_EQ(windowFor(99, "", {other, terminal}, table), std::nullopt);
}

TEST(Multiplexers, AWindowOfScreenIsChosenAndItsTerminalComesForward) {
  const Variables inside{{"STY", "40.work"}, {"WINDOW", "2"}};
  const std::vector<ProcessRecord> table{process(10, 1, "xterm"), process(12, 10, "screen", {"screen", "-r"}),
                                         process(40, 1, "screen", {"SCREEN"}), process(42, 40, "claude", {}, inside)};
  EXPECT_THAT(paneOf(42, table)->command, ElementsAre("screen", "-S", "40.work", "-X", "select", "2"));
  EXPECT_EQ(windowFor(42, "", {terminal}, table), 100U);
}

}  // namespace
}  // namespace ambrel
