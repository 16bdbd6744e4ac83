#include "core/agents.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/profiles.h"
#include "core/widgets.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/StoreFixture.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

const std::string noonText = "2026-11-21T12:00:00Z";
const Instant noon = *parseISO8601(noonText);
const std::string working = "{\"type\":\"user\",\"cwd\":\"/home/mira/tilebay\"}\n";

// A home with a session of every kind.
void fill(const TemporaryFolder& home) {
  home.write(".claude/projects/-x/0b54.jsonl", working, advanced(noon, Seconds(-60)));
  home.write(".codex/sessions/2026/11/21/rollout-1.jsonl",
             "{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"/home/mira/weather\"}}\n"
             "{\"type\":\"event_msg\",\"payload\":{\"type\":\"task_complete\"}}\n",
             advanced(noon, Seconds(-90.25)));
  writeStore(home / ".config/Cursor/User/globalStorage/state.vscdb",
             "CREATE TABLE composerHeaders (composerId, lastUpdatedAt, isArchived, isSubagent, value);"
             "INSERT INTO composerHeaders VALUES ('c1', 1795262280000, 0, 0, '{\"name\":\"Ask\\u001b[31m me\","
             "\"lastUpdatedAt\":1795262280000,\"hasBlockingPendingActions\":true,\"filesChangedCount\":2}');");
  writeStore(home / ".gemini/antigravity/conversation_summaries.db",
             "CREATE TABLE conversation_summaries (conversation_id, title, status, not_fully_idle, killed, step_count,"
             " workspace_uris, last_modified_time);"
             "INSERT INTO conversation_summaries VALUES ('a1', 'Größe', '', 0, 1, 4, '[]', '2026-11-21 11:00:00');");
}

TEST(Tilebayctl, PrintsTheSessionsAsJSON) {
  TemporaryFolder home;
  fill(home);
  const std::string out = printed(runCommand({"--home", home.path(), "--now", noonText, "--json", "agents"}));
  const auto expected = parseJSON(R"([
    {"id":"cursor:c1","kind":"cursor","title":"Ask\u001b[31m me","detail":"+0 −0 · 2 files","status":"needsInput",
     "updatedAt":"2026-11-21T11:58:00Z",
     "wait":{"reason":"other","since":"2026-11-21T11:58:00Z","source":"store"}},
    {"id":"claude:0b54","kind":"claudeCode","title":"tilebay","project":"tilebay","detail":"Thinking",
     "status":"working","updatedAt":"2026-11-21T11:59:00Z"},
    {"id":"codex:rollout-1","kind":"codex","title":"weather","project":"weather","detail":"Done",
     "status":"finished","updatedAt":"2026-11-21T11:58:29.75Z"},
    {"id":"antigravity:a1","kind":"antigravity","title":"Größe","detail":"4 steps","status":"idle",
     "updatedAt":"2026-11-21T11:00:00Z"}])");
  EXPECT_EQ(parseJSON(out), expected);
  EXPECT_EQ(std::ranges::count(out, '\n'), 1);

  const TemporaryFolder empty;
  EXPECT_EQ(runCommand({"--home", empty.path(), "--json", "agents"}).out, "[]\n");
  EXPECT_EQ(runCommand({"--home", empty.path(), "agents"}).out,
            "No agent activity\nSessions from the last 6 hours appear here.\n");
}

TEST(Tilebayctl, PrintsTheSessionsForPeopleInAlignedColumns) {
  TemporaryFolder home;
  fill(home);
  // The escape of a hostile title does not reach the terminal.
  EXPECT_EQ(printed(runCommand({"agents", "--home", home.path(), "--now", noonText}, {"LC_ALL=en_US.UTF-8"})),
            "Needs you  Ask [31m me  Cursor       +0 −0 · 2 files  2m ago\n"
            "Working    tilebay      Claude Code  Thinking         1m ago\n"
            "Done       weather      Codex        Done             1m ago\n"
            "Idle       Größe        Antigravity  4 steps          1h ago\n");
}

TEST(Tilebayctl, ColoursAndFitsWhatATerminalShows) {
  TemporaryFolder home;
  fill(home);
  home.write(".claude/projects/-y/1.jsonl",
             working + "{\"type\":\"custom-title\",\"customTitle\":\"東京の天気を調べる長い長い題名\"}\n", noon);
  const std::vector<std::string> arguments{"agents", "--home", home.path(), "--now", noonText};
  const auto coloured = runOnTerminal(arguments, {"LC_ALL=en_US.UTF-8", "TERM=xterm"}, 200);
  EXPECT_THAT(coloured, HasSubstr("\x1b[1;33mNeeds you\x1b[0m  \x1b[1mAsk [31m me\x1b[0m"));
  EXPECT_THAT(coloured, HasSubstr("東京の天気を調べる長い長い題名"));

  for (const char* plain : {"NO_COLOR=1", "TERM=dumb"})
    EXPECT_THAT(runOnTerminal(arguments, {"LC_ALL=en_US.UTF-8", plain}, 200), Not(HasSubstr("\x1b"))) << plain;

  // The other columns and the gaps take 58, so the title has 16: seven wide characters and the mark.
  EXPECT_EQ(runOnTerminal(arguments, {"LC_ALL=en_US.UTF-8", "TERM=dumb"}, 74),
            "Needs you  Ask [31m me                Cursor       +0 −0 · 2 files  2m ago\n"
            "Working    東京の天気を調…   tilebay  Claude Code  Thinking         now\n"
            "Working    tilebay                    Claude Code  Thinking         1m ago\n"
            "Done       weather                    Codex        Done             1m ago\n"
            "Idle       Größe                      Antigravity  4 steps          1h ago\n");
}

TEST(Tilebayctl, WatchesForChangesAndEndsWithItsReader) {
  TemporaryFolder home;
  CommandRun run({"agents", "--json", "--watch", "--every", "0.01", "--home", home.path(), "--now", noonText}, {});
  EXPECT_EQ(run.line(), "[]");
  // Written whole elsewhere first: a half-written file would be a change of its own.
  const auto draft = home.write("draft.jsonl", working, noon);
  std::filesystem::create_directories(home / ".claude/projects/-x");
  std::filesystem::rename(draft, home / ".claude/projects/-x/a.jsonl");
  EXPECT_THAT(run.line(), HasSubstr("claude:a"));
  std::filesystem::remove(home / ".claude/projects/-x/a.jsonl");
  EXPECT_EQ(run.line(), "[]");
  // Nothing changes any more: the closed pipe itself ends it.
  run.closeOutput();
  EXPECT_EQ(run.wait(), 0);
  EXPECT_EQ(run.restOfError(), "");
}

TEST(Tilebayctl, TakesItsFoldersFromTheEnvironment) {
  TemporaryFolder home, data;
  fill(home);
  const auto profile = [](const std::string& name) {
    return "[{\"id\":\"6F9619FF-8B86-D011-B42D-00C04FC964FF\",\"name\":\"" + name + "\",\"items\":[]}]";
  };
  home.write(".local/share/Ambrel/profiles.json", profile("AtHome"));
  data.write("Ambrel/profiles.json", profile("Elsewhere"));
  const std::string atHome = "HOME=" + home.path().string();

  EXPECT_THAT(runCommand({"--now", noonText, "--json", "agents"}, {atHome}).out, HasSubstr("claude:0b54"));
  using Row = std::pair<std::vector<std::string>, std::string>;
  for (const auto& [environment, name] :
       {Row{{atHome}, "AtHome"}, Row{{atHome, "XDG_DATA_HOME=" + data.path().string()}, "Elsewhere"},
        Row{{atHome, "XDG_DATA_HOME=relative"}, "AtHome"}, Row{{atHome, "XDG_DATA_HOME="}, "AtHome"}})
    EXPECT_EQ(parseJSON(runCommand({"profiles", "--json"}, environment).out)->at("active"), name);
}

TEST(Tilebayctl, ChoosesTheProfileForTheDisplays) {
  TemporaryFolder data;
  const std::string stored = R"([
    {"id":"6F9619FF-8B86-D011-B42D-00C04FC964F1","name":"Lap","trigger":"builtinOnly",
     "items":[{"id":"6F9619FF-8B86-D011-B42D-00C04FC964F3","widget":"clock"}]},
    {"id":"6F9619FF-8B86-D011-B42D-00C04FC964F2","name":"Desk","trigger":"external","items":[]}])";
  data.write("profiles.json", stored);
  const struct {
    std::vector<std::string> arguments;
    const char* active;
  } cases[] = {
      {{}, "Lap"},
      {{"--display", "eDP-1:builtin", "--display", "DP-1"}, "Desk"},
      {{"--display", "DP-1", "--pin", "Lap"}, "Lap"},
      {{"--pin", "Desk"}, "Desk"},
  };
  for (const auto& each : cases) {
    std::vector<std::string> arguments{"--data", data.path(), "--json", "profiles"};
    arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
    EXPECT_EQ(parseJSON(printed(runCommand(arguments))),
              (JSON{{"active", each.active}, {"profiles", *parseJSON(stored)}}));
  }
  EXPECT_EQ(runCommand({"--data", data.path(), "profiles", "--pin", "Nobody"}),
            (CommandResult{1, "", "tilebayctl: there is no profile named 'Nobody'\n"}));
}

TEST(Tilebayctl, ShowsTheDefaultProfilesInPlaceOfABrokenFileAndLeavesTheFile) {
  TemporaryFolder data;
  const auto file = data.write("profiles.json", "[{");
  const auto result = runCommand({"--data", data.path(), "profiles"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, AllOf(HasSubstr("Laptop"), HasSubstr("Desk")));
  EXPECT_THAT(result.error, HasSubstr("cannot read profiles, using defaults"));
  EXPECT_EQ(readFile(file), "[{");
}

TEST(Tilebayctl, AnswersAsBuddyDoesAndSavesTheEdit) {
  TemporaryFolder data;
  const auto ask = [&](const char* text) {
    return runCommand({"--data", data.path(), "--home", data.path(), "--json", "ask", text},
                      {"XDG_CONFIG_HOME=" + data.path().string(), "LC_ALL=tr_TR.UTF-8"});
  };
  EXPECT_EQ(ask(" Add CPU and Battery\n").out,
            "{\"reply\":\"CPU is already in the bar. Added the Battery widget.\"}\n");
  EXPECT_TRUE(loadProfiles(data / "profiles.json").profiles.front().contains("battery"));
  EXPECT_EQ(ask("What are they doing?").out, "{\"reply\":\"No agent sessions are active.\"}\n");
  const auto pinned = ask("use desk");
  EXPECT_EQ(pinned.out, "{\"reply\":\"Pinned the Desk profile.\"}\n");
  EXPECT_THAT(pinned.error, HasSubstr("as long as the bar runs"));
  EXPECT_EQ(ask(" ").status, 2);
  // A question leaves a damaged file alone, and an edit is refused.
  data.write("profiles.json", "[{");
  EXPECT_EQ(ask("open").status, 0);
  const auto refused = ask("Remove clock");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.out, "");
  EXPECT_EQ(readFile(data / "profiles.json"), "[{");
}

TEST(Tilebayctl, PrintsTheCatalogueInOrder) {
  const auto widgets = parseJSON(runCommand({"widgets", "--json"}, {"HOME=/"}).out);
  ASSERT_TRUE(widgets && widgets->is_array());
  const auto cases = allCases<DockWidget>();
  ASSERT_EQ(widgets->size(), cases.size());
  for (std::size_t i = 0; i < cases.size(); ++i)
    EXPECT_EQ(widgets->at(i), (JSON{{"id", nameOf(cases[i])},
                                    {"title", title(cases[i])},
                                    {"symbol", symbol(cases[i])},
                                    {"group", nameOf(group(cases[i]))},
                                    {"description", description(cases[i])}}));
}

TEST(Tilebayctl, RefusesWrongUsageWithAHint) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{}, "no command is given; see 'tilebayctl --help'"},
      {{"agnets"}, "unknown command 'agnets'; did you mean 'agents'?"},
      {{"frobnicate"}, "unknown command 'frobnicate'; see 'tilebayctl --help'"},
      {{"--jsno", "agents"}, "unknown option '--jsno'; did you mean '--json'?"},
      {{"agents", "--colour"}, "unknown option '--colour'; see 'tilebayctl agents --help'"},
      {{"agents", "now"}, "unexpected argument 'now'; see 'tilebayctl agents --help'"},
      {{"agents", "--every", "3"}, "--every needs --watch"},
      {{"agents", "--watch", "--every", "0"}, "--every '0' is no number above zero"},
      {{"agents", "--watch", "--every", "nan"}, "--every 'nan' is no number above zero"},
      {{"--now", "noon", "agents"}, "--now 'noon' is no instant; it is written like 2026-11-21T09:00:00Z"},
      {{"profiles", "--display", ":builtin"}, "--display needs a name, as in --display eDP-1:builtin"}};
  for (const auto& [arguments, error] : rows)
    EXPECT_EQ(runCommand(arguments, {"HOME=/nowhere"}),
              (CommandResult{2, "", std::string("tilebayctl: ") + error + "\n"}));
  // An option whose value is missing: the words are the parser's own.
  const auto missing = runCommand({"agents", "--home"}, {"HOME=/nowhere"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.error, AllOf(StartsWith("tilebayctl: "), HasSubstr("--home"), HasSubstr("--help'")));
  EXPECT_THAT(printed(runCommand({"agents", "--help"})),
              AllOf(HasSubstr("Usage: tilebayctl"), HasSubstr("--every"), Not(HasSubstr("--pin"))));
  EXPECT_THAT(runCommand({"--version"}).out, testing::MatchesRegex("tilebayctl [0-9.]+\n"));
}

}  // namespace
}  // namespace ambrel
