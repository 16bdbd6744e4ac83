#include "core/workspace/Multiplexers.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

using Variables = std::map<std::string, std::string, std::less<>>;

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
