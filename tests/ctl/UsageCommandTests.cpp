#include <gmock/gmock.h>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

const std::string noonText = "2026-11-21T12:00:00Z";
const Instant noon = *parseISO8601(noonText);
const std::string reply =
    R"({"type":"assistant","message":{"usage":{"output_tokens":1500}},"timestamp":"2026-11-21T10:37:00Z"})"
    "\n";
const std::string codexEntry =
    R"({"timestamp":"2026-11-21T11:48:00.5Z","type":"event_msg","payload":{"type":"token_count","rate_limits":)"
    R"({"primary":{"used_percent":86,"window_minutes":300,"resets_at":1795266000},)"
    R"("secondary":{"used_percent":12.5,"window_minutes":10080,"resets_at":1795651200}}}})"
    "\n";
const std::string snapshot = R"({"rate_limits":{"seven_day":{"used_percentage":31,"resets_at":1795651200}}})";

// Whatever a command is told, it is told about this home.
class UsageCommand : public testing::Test {
 protected:
  std::vector<std::string> words(std::initializer_list<std::string> command) {
    std::vector<std::string> words{"--home", home.path(), "--data", home.path() / "data", "--now", noonText};
    words.insert(words.end(), command);
    return words;
  }
  CommandResult run(std::initializer_list<std::string> command) { return runCommand(words(command)); }
  void fill() {
    home.write(".claude/projects/p/a.jsonl", reply, advanced(noon, Seconds(-60)));
    home.write(".codex/sessions/2026/11/21/b.jsonl", codexEntry, advanced(noon, Seconds(-60)));
  }

  TemporaryFolder home;
};

TEST_F(UsageCommand, PrintsWhatIsThereAndLeavesOutTheRest) {
  EXPECT_EQ(parseJSON(printed(run({"--json", "usage"}))),
            parseJSON(R"({"claude":{"today":{"tokens":0,"replies":0}}})"));

  fill();
  EXPECT_EQ(run({"statusline", "install"}).status, 0);
  home.write("data/claude-status.json", snapshot, advanced(noon, Seconds(-120)));
  EXPECT_EQ(parseJSON(run({"--json", "usage"}).out), parseJSON(R"({
    "claude":{"today":{"tokens":1500,"replies":1},
              "block":{"start":"2026-11-21T10:00:00Z","end":"2026-11-21T15:00:00Z","tokens":1500,"replies":1}},
    "codex":{"session":{"usedPercent":86.0,"windowMinutes":300,"resetsAt":"2026-11-21T13:00:00Z"},
             "week":{"usedPercent":12.5,"windowMinutes":10080,"resetsAt":"2026-11-26T00:00:00Z"},
             "asOf":"2026-11-21T11:48:00.5Z"},
    "claudeLimits":{"week":{"usedPercent":31.0,"windowMinutes":10080,"resetsAt":"2026-11-26T00:00:00Z"},
                    "asOf":"2026-11-21T11:58:00Z"}})"));
}

TEST_F(UsageCommand, PrintsAlignedColumnsForPeople) {
  fill();
  EXPECT_EQ(runCommand(words({"usage"}), {"LC_ALL=en_GB.UTF-8", "TZ=UTC"}).out,
            "Claude · resets 15:00  1.5K tokens in 5 h\n"
            "Claude · today         1.5K tokens         1 reply\n"
            "Codex · 5 h            86%                 week 13%  reported 11 mins ago\n");
}

TEST_F(UsageCommand, WatchesWithOneDocumentAPass) {
  fill();
  CommandRun watch(words({"--json", "usage", "--watch", "--every", "0.02"}), {});
  EXPECT_EQ(parseJSON(watch.line())->at("claude").at("today").at("replies"), 1);
  EXPECT_EQ(parseJSON(watch.line())->at("claude").at("today").at("replies"), 1);
  const auto log = home / ".claude/projects/p/a.jsonl";
  std::ofstream(log, std::ios::app) << reply;
  // The scanner goes on from where it was: what is there already is not counted again.
  std::int64_t replies = 1;
  while (replies == 1) replies = parseJSON(watch.line())->at("claude").at("today").at("replies");
  EXPECT_EQ(replies, 2);
}

TEST_F(UsageCommand, ConnectsAndDisconnectsTheHook) {
  for (const auto& [verb, isConnected] :
       {std::pair{"status", false}, {"install", true}, {"status", true}, {"remove", false}})
    EXPECT_EQ(parseJSON(printed(run({"--json", "statusline", verb}))), (JSON{{"isConnected", isConnected}})) << verb;
  EXPECT_EQ(run({"statusline", "status"}).out, "Not connected.\n");
}

TEST_F(UsageCommand, InstallsAScriptThatCanBeFoundFromAnywhere) {
  home.write(".claude/settings.json", "{}");
  const auto relative = std::filesystem::relative(home.path()) / "data";
  EXPECT_EQ(runCommand({"--home", home.path(), "--data", relative, "statusline", "install"}).status, 0);
  const auto settings = parseJSON(readFile(home / ".claude/settings.json").value());
  EXPECT_TRUE(std::filesystem::path(settings->at("statusLine").at("command").get<std::string>()).is_absolute());
}

TEST_F(UsageCommand, RefusesSettingsThatAreNoObject) {
  home.write(".claude/settings.json", "{\"a\": oops}");
  for (const std::string verb : {"install", "remove"}) {
    EXPECT_EQ(run({"statusline", verb}),
              (CommandResult{1, "",
                             "tilebayctl: Could not change ~/.claude/settings.json. Check that it is valid JSON. (" +
                                 (home / ".claude/settings.json").string() + ": line 1: expected a value)\n"}));
    EXPECT_EQ(readFile(home / ".claude/settings.json"), "{\"a\": oops}");
  }
  EXPECT_EQ(run({"statusline"}).status, 2);
  EXPECT_EQ(run({"usage", "--every", "5"}).status, 2);
}

}  // namespace
}  // namespace ambrel
