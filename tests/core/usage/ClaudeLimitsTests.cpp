#include "core/usage/ClaudeStatusLine.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

const Instant asOf = at("2026-11-21T09:12:00Z");
const CodexUsage::Window session{62.4, 300, at("2026-11-21T12:00:00Z")};
const CodexUsage::Window week{31, 10080, at("2026-11-26T00:00:00Z")};

TEST(ClaudeLimits, ReadsWhatAStatusLineIsHanded) {
  using Limits = ClaudeLimits::Limits;
  const std::pair<const char*, Limits> rows[] = {
      {"both", {session, week, asOf}},
      {"week-alone", {std::nullopt, week, asOf}},
      {"session-alone", {session, std::nullopt, asOf}},
      {"over", {CodexUsage::Window{104.5, 300, session.resetsAt}, std::nullopt, asOf}}};
  TemporaryFolder folder;
  const auto read = [&](const std::string& name) {
    return ClaudeLimits::read(folder.write("claude-status.json", usageCase("limits/" + name + ".json"), asOf));
  };
  for (const auto& [name, limits] : rows) EXPECT_EQ(read(name), limits) << name;
  for (const char* name : {"none", "empty", "null", "text-percent", "iso-reset", "array"})
    EXPECT_EQ(read(name), std::nullopt) << name;
  EXPECT_EQ(ClaudeLimits::read(folder.write("cut.json", "{\"rate_limits\":{")), std::nullopt);
  EXPECT_EQ(ClaudeLimits::read(folder / "missing.json"), std::nullopt);
  EXPECT_EQ(ClaudeLimits::read(folder.path()), std::nullopt);
}

class AIUsageReaderTest : public testing::Test {
 protected:
  AIUsage read() { return reader.read(at("2026-11-21T12:00:00Z"), Calendar("UTC", "en_US")); }

  TemporaryFolder home;
  ClaudeStatusLine::Files files{home.path(), home / "data"};
  AIUsageReader reader{home.path(), home / "data"};
};

TEST_F(AIUsageReaderTest, JoinsTheThreeSources) {
  EXPECT_EQ(read(), AIUsage{});
  const Instant recently = at("2026-11-21T11:00:00Z");
  home.write(".claude/projects/p/a.jsonl", replyLine("2026-11-21T10:30:00Z", 5), recently);
  home.write(".codex/sessions/a.jsonl", usageCase("codex/both.json") + "\n", recently);
  ClaudeStatusLine::install(files);
  home.write("data/claude-status.json", usageCase("limits/both.json"), asOf);
  const AIUsage usage = read();
  EXPECT_EQ(usage.claude.today, (UsageTotal{5, 1}));
  EXPECT_EQ(usage.codex.value().session.usedPercent, 37.5);
  EXPECT_EQ(usage.claudeLimits, (ClaudeLimits::Limits{session, week, asOf}));
}

TEST_F(AIUsageReaderTest, FollowsToolsThatKeepTheirFilesElsewhere) {
  const AgentFolders folders{home / "config/claude", home / "config/codex"};
  const Instant recently = at("2026-11-21T11:00:00Z");
  home.write("config/claude/projects/p/a.jsonl", replyLine("2026-11-21T10:30:00Z", 5), recently);
  home.write("config/codex/sessions/a.jsonl", usageCase("codex/both.json") + "\n", recently);
  ClaudeStatusLine::install({home.path(), home / "data", folders});
  EXPECT_FALSE(std::filesystem::exists(home / ".claude"));
  home.write("data/claude-status.json", usageCase("limits/both.json"), asOf);
  const AIUsage usage = AIUsageReader(home.path(), home / "data", folders).read(recently, Calendar("UTC", "en_US"));
  EXPECT_EQ(usage.claude.today, (UsageTotal{5, 1}));
  EXPECT_TRUE(usage.codex && usage.claudeLimits);
}

TEST_F(AIUsageReaderTest, ShowsNoSnapshotWhileTheHookIsNotConnected) {
  home.write("data/claude-status.json", usageCase("limits/both.json"), asOf);
  EXPECT_FALSE(read().claudeLimits);
  ClaudeStatusLine::install(files);
  EXPECT_TRUE(read().claudeLimits);
  home.write(".claude/settings.json", R"({"statusLine":{"command":"other"}})");
  EXPECT_FALSE(read().claudeLimits);
  home.write(".claude/settings.json", "no JSON");
  EXPECT_FALSE(read().claudeLimits);
}

}  // namespace
}  // namespace ambrel
