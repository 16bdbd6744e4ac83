#include <gmock/gmock.h>
#include <iostream>

#include "core/agents/attention/AgentPoll.h"
#include "core/agents/attention/HookStore.h"
#include "core/agents/attention/TitleSearch.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/Replay.h"

namespace ambrel {
namespace {

struct Mode {
  const char* name;
  ReplayOptions options;
};
constexpr Mode modes[] = {{"registry and hooks", {true, true}}, {"registry", {true, false}}, {"hooks", {false, true}}};

// Codex keeps no registry: without hooks its permissions are nowhere.
bool tellsAll(const std::filesystem::path& recording, const ReplayOptions& options) {
  return options.hasHooks || !recording.filename().string().starts_with("codex");
}

TEST(Attention, FindsTheWaitsOfTheRecordingsAtOnceAndNoOthers) {
  for (const Mode& mode : modes) {
    ReplayScore sum;
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(AMBREL_CASES) / "agents/replay")) {
      if (!tellsAll(file.path(), mode.options)) continue;
      sum += replay(file.path(), mode.options);
    }
    std::cout << mode.name << ": " << sum.agreeing << " of " << sum.moments << " moments agree, " << sum.found << " of "
              << sum.waits << " waits found, " << sum.falseAlarms << " false alarms\n"
              << sum.differences;
    EXPECT_GT(sum.waits, 0);
    EXPECT_EQ(sum.found, sum.waits) << mode.name;
    EXPECT_EQ(sum.falseAlarms, 0) << mode.name;
    EXPECT_GE(sum.agreeing, 0.95 * sum.moments);
  }
}

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");
constexpr std::string_view log = ".claude/projects/-x/s1.jsonl";
const std::string asking =
    "{\"type\":\"assistant\",\"cwd\":\"/home/mira/"
    "tilebay\",\"timestamp\":\"2026-11-21T11:59:00Z\",\"message\":{\"content\":"
    "[{\"type\":\"tool_use\",\"id\":\"t\",\"name\":\"AskUserQuestion\",\"input\":{\"questions\":[{\"question\":\"Why?"
    "\"}]}}]}}\n"
    "{\"type\":\"ai-title\",\"aiTitle\":\"A question\"}\n";

class Home {
 public:
  TemporaryFolder folder;
  AgentPoll poll{folder / "data", {}, folder / "proc"};

  void live(int pid, const std::string& status, const std::string& start = "55", const std::string& rest = "") {
    folder.write(".claude/sessions/" + std::to_string(pid) + ".json",
                 "{\"pid\":" + std::to_string(pid) + ",\"sessionId\":\"s1\",\"procStart\":\"" + start +
                     "\",\"status\":\"" + status + "\",\"statusUpdatedAt\":1795262370000" + rest + "}");
  }
  void process(int pid, const std::string& start, const std::string& name = "a) b", int parent = 1) {
    const std::string id = std::to_string(pid);
    folder.write("proc/" + id + "/stat", id + " (" + name + ") S " + std::to_string(parent) +
                                             " 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 " + start + " 0 0");
  }
  AgentSession session(Seconds later = Seconds(0)) {
    const auto sessions = poll.sessions(folder.path(), advanced(noon, later));
    EXPECT_EQ(sessions.size(), 1U);
    return sessions.empty() ? AgentSession{} : sessions.front();
  }
};

TEST(AgentPoll, GivesTheReadersSessionsInAHomeWithoutRegistryAndHooks) {
  Home home;
  home.folder.write(log, asking, noon);
  // Files of earlier versions are no registry.
  home.folder.write(".claude/sessions/pid-3.json", "{\"session_id\":\"s1\",\"cwd\":\"/\"}");
  const auto readers = makeAgentReaders();
  EXPECT_EQ(home.poll.sessions(home.folder.path(), noon), mergedSessions(readers, home.folder.path(), noon));
  EXPECT_EQ(home.session().detail, "AskUserQuestion");
  appendHookEvent(HookStoreFiles(home.folder / "data"), {.session = "other", .at = noon});
  EXPECT_EQ(home.session().wait,
            (AgentWait{AgentWait::Reason::question, "Why?", advanced(noon, Seconds(-60)), AgentWait::Source::log}));
  EXPECT_EQ(home.session().title, "A question");
}

TEST(AgentPoll, BelievesARecordOnlyWhileItsOwnProcessRuns) {
  Home home;
  home.folder.write(log, asking, noon);
  home.process(7, "55");
  home.live(7, "waiting");
  AgentSession session = home.session();
  EXPECT_EQ(session.status, AgentStatus::needsInput);
  ASSERT_TRUE(session.wait);
  EXPECT_EQ(session.wait->source, AgentWait::Source::registry);
  EXPECT_EQ(session.wait->since, advanced(noon, Seconds(-30)));
  EXPECT_EQ(session.wait->detail, "Why?");
  // While the file is being written again.
  home.folder.write(".claude/sessions/7.json", "{\"pid\":7,\"sess");
  EXPECT_EQ(home.session().status, AgentStatus::needsInput);
  home.live(7, "busy");
  EXPECT_EQ(home.session(Seconds(3000)).status, AgentStatus::working);
  // The number has gone to another process.
  home.process(7, "56");
  EXPECT_EQ(home.session().status, AgentStatus::idle);
  EXPECT_EQ(home.session().wait, std::nullopt);
  // Another process has taken the conversation up.
  home.process(9, "90");
  home.live(9, "idle", "90");
  EXPECT_EQ(home.session().status, AgentStatus::finished);
}

TEST(AgentPoll, SeesTheProcessOfAContainerByItsNumberThere) {
  Home home;
  home.folder.write(log, asking, noon);
  home.live(7, "waiting");
  EXPECT_EQ(home.session().status, AgentStatus::idle);
  home.process(900, "55");
  home.folder.write("proc/900/status", "Name:\tnode\nNSpid:\t900\t7\nThreads:\t1\n");
  home.live(7, "waiting", "55", ",\"updatedAt\":1795262371000");
  const AgentSession session = home.session();
  EXPECT_EQ(session.status, AgentStatus::needsInput);
  EXPECT_EQ(session.place, AgentPlace::container);
  EXPECT_EQ(session.process, 900);
  std::filesystem::remove_all(home.folder / "proc/900");
  EXPECT_EQ(home.session().status, AgentStatus::idle);
}

TEST(AgentPoll, BelievesWhatAnotherComputerWroteUntilItFallsSilent) {
  Home home;
  home.folder.write(log, asking, noon);
  home.folder.write("proc/stat", "cpu  1\nbtime " + std::to_string(1795258800) + "\n");
  const auto started = [](std::int64_t milliseconds) { return ",\"startedAt\":" + std::to_string(milliseconds); };
  // Soon after our own start, half a second into which the process began: it was ours, and has ended.
  home.live(7, "busy", "55", started(1795258801000));
  EXPECT_EQ(home.session().status, AgentStatus::idle);
  home.live(7, "waiting", "55", started(1795262000000));
  EXPECT_EQ(home.session().status, AgentStatus::needsInput);
  EXPECT_EQ(home.session().place, AgentPlace::otherComputer);
  EXPECT_EQ(home.session().process, 0);
  home.live(7, "busy", "55", started(1795262000000));
  EXPECT_EQ(home.session(Seconds(500)).status, AgentStatus::working);
  EXPECT_EQ(home.session(Seconds(700)).status, AgentStatus::idle);
}

TEST(AgentPoll, KnowsATerminalOfAnotherComputer) {
  Home home;
  home.folder.write(log, asking, noon);
  home.process(5, "50", "sshd");
  home.process(6, "51", "bash", 5);
  home.process(7, "55", "claude", 6);
  home.live(7, "waiting");
  EXPECT_EQ(home.session().place, AgentPlace::secureShell);
}

TEST(AgentPoll, TakesNoNumberOfAnotherComputersProcessForOneOfOurs) {
  Home home;
  home.folder.write(log, asking, noon);
  const ToolProcess elsewhere{.pid = 7, .start = "55", .ticks = 60, .space = "another run"};
  appendHookEvent(HookStoreFiles(home.folder / "data"), {.name = HookEvent::Name::permissionRequest,
                                                         .session = "s1",
                                                         .at = noon,
                                                         .tool = "Bash",
                                                         .asks = "Bash: ls",
                                                         .process = elsewhere});
  EXPECT_EQ(home.session().status, AgentStatus::needsInput);
  EXPECT_EQ(home.session().process, 0);
}

TEST(AgentPoll, FollowsAToolThatKeepsItsFilesElsewhere) {
  Home home;
  home.folder.write("config/projects/-x/s1.jsonl", asking, noon);
  home.folder.write("codex/sessions/2026/11/21/rollout-1.jsonl", "{}\n", noon);
  const AgentFolders folders{home.folder / "config", home.folder / "codex"};
  EXPECT_EQ(AgentPoll(home.folder / "data", folders, home.folder / "proc").sessions(home.folder.path(), noon).size(),
            2U);
}

TEST(AgentPoll, ReadsALogOnlyWhenItChanged) {
  Home home;
  home.process(7, "55");
  home.live(7, "waiting");
  const auto file = home.folder.write(log, asking, noon);
  const AgentSession before = home.session();
  const std::string other(asking.size(), ' ');
  home.folder.write(log, other, noon);
  EXPECT_EQ(home.session(), before);
}

TEST(TitleSearch, FindsATitleFurtherBackThanTheTail) {
  TemporaryFolder folder;
  const auto title = [](const std::string& text) {
    return "{\"type\":\"custom-title\",\"customTitle\":\"" + text + "\"}\n";
  };
  const std::string ai = "{\"type\":\"ai-title\",\"aiTitle\":\"The tool's own\"}\n";
  const std::string filler =
      "{\"type\":\"user\",\"message\":\"about \\\"custom-title\\\"" + std::string(90, '.') + "\"}\n";
  std::string bytes = ai + filler;
  while (bytes.size() < (5 << 20)) bytes += filler;
  TitleSearch search;
  LineParser parser;
  const auto found = [&](const std::optional<std::string>& inTail = std::nullopt) {
    const auto path = folder.write("log.jsonl", bytes);
    search.beginLook();
    return search.titles({.path = path, .modified = {}, .size = bytes.size()}, 100000, {.custom = inTail}, parser);
  };
  EXPECT_EQ(found(), (LogTitles{.ai = "The tool's own"}));
  bytes += title("First") + filler + title("Second");
  while (bytes.size() < (11 << 19)) bytes += filler;
  EXPECT_EQ(found().custom, "Second");
  EXPECT_EQ(found("Third").custom, "Third");
  EXPECT_EQ(found().custom, "Third");
  // More than a tail comes between two looks.
  bytes += title("Fourth") + std::string(3000, '\n');
  while (bytes.size() < (6 << 20)) bytes += filler;
  EXPECT_EQ(found().custom, "Fourth");
}

}  // namespace
}  // namespace ambrel
