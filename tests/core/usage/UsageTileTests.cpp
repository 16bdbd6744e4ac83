#include "core/usage/TokenBudget.h"
#include "core/usage/UsageTile.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

const Instant now = at("2026-11-21T13:00:00Z");
const Calendar berlin("Europe/Berlin", "en_GB");

CodexUsage::Window window(double percent, std::string_view reset, std::int64_t minutes = 300) {
  return {percent, minutes, at(reset)};
}
const CodexUsage::Window session = window(62.4, "2026-11-21T15:00:00Z");
const CodexUsage::Window week = window(31, "2026-11-26T00:30:00Z", 10080);
const ClaudeUsageSnapshot used{{3'456'789, 40},
                               UsageBlock{at("2026-11-21T10:00:00Z"), at("2026-11-21T15:00:00Z"), 1'234'567, 12}};

UsageTile claude(const std::optional<ClaudeLimits::Limits>& limits, const ClaudeUsageSnapshot& snapshot = used,
                 bool hasLoaded = true) {
  return claudeUsageTile(snapshot, limits, hasLoaded, now, berlin);
}
UsageTile codex(const std::optional<CodexUsage::Limits>& limits, bool hasLoaded = true) {
  return codexLimitsTile(limits, hasLoaded, now, berlin);
}

TEST(ClaudeUsageTile, ShowsThePlansPercentages) {
  const UsageTile tile = claude(ClaudeLimits::Limits{session, week, now});
  EXPECT_EQ(tile, (UsageTile{.caption = "Claude · resets 16:00",
                             .value = "62%",
                             .bar = UsageBar{0.624, false},
                             .line = "week 31%",
                             .lineBar = UsageBar{0.31, false},
                             .help = "Claude plan usage as of 14:00.\n"
                                     "Session: 62% used, resets 16:00.\n"
                                     "This week: 31% used, resets Thursday 01:30.",
                             .spoken = "Claude · resets 16:00: 62%, week 31%"}));
}

TEST(ClaudeUsageTile, CountsAResetThatHasPassedAsNothing) {
  const UsageTile tile =
      claude(ClaudeLimits::Limits{window(97, "2026-11-21T13:00:00Z"), window(88, "2026-11-21T12:59:59Z", 10080), now});
  EXPECT_EQ(tile.caption, "Claude · session");
  EXPECT_EQ(tile.value, "0%");
  EXPECT_EQ(tile.unit, "since the reset");
  EXPECT_EQ(tile.bar, UsageBar{});
  EXPECT_EQ(tile.line, "week 0%");
  EXPECT_EQ(tile.lineBar, UsageBar{});
}

TEST(ClaudeUsageTile, TellsWhatNobodyReportedFromNothing) {
  const UsageTile weekAlone = claude(ClaudeLimits::Limits{std::nullopt, week, now});
  EXPECT_EQ(weekAlone.caption, "Claude · session");
  EXPECT_EQ(weekAlone.value + " " + weekAlone.unit, "0% not reported");
  EXPECT_FALSE(weekAlone.bar);
  EXPECT_EQ(weekAlone.help, "Claude plan usage as of 14:00.\nThis week: 31% used, resets Thursday 01:30.");

  const UsageTile sessionAlone = claude(ClaudeLimits::Limits{window(0, "2026-11-21T15:00:00Z"), std::nullopt, now});
  EXPECT_EQ(sessionAlone.value + sessionAlone.unit, "0%");
  EXPECT_EQ(sessionAlone.bar, UsageBar{});
  EXPECT_EQ(sessionAlone.line, "week not reported");
  EXPECT_FALSE(sessionAlone.lineBar);
}

TEST(ClaudeUsageTile, RoundsForTheEyeAndWarnsAbove85) {
  const std::tuple<double, const char*, UsageBar> rows[] = {{0.4, "0%", {0.004, false}},  {85, "85%", {0.85, false}},
                                                            {85.1, "85%", {0.851, true}}, {99.5, "100%", {0.995, true}},
                                                            {104.6, "105%", {1, true}},   {-0.3, "0%", {0, false}}};
  for (const auto& [percent, text, bar] : rows) {
    const UsageTile tile = claude(ClaudeLimits::Limits{window(percent, "2026-11-21T15:00:00Z"), std::nullopt, now});
    EXPECT_EQ(tile.value, text);
    EXPECT_EQ(tile.bar, bar);
  }
  const ClaudeLimits::Limits absurd{window(1e300, "2026-11-21T15:00:00Z"), std::nullopt, now};
  EXPECT_EQ(claude(absurd).bar, (UsageBar{1, true}));
}

TEST(ClaudeUsageTile, SaysHowOldAReportIs) {
  const std::tuple<const char*, const char*, bool> rows[] = {{"2026-11-21T13:05:00Z", "", false},
                                                             {"2026-11-21T12:59:01Z", "", false},
                                                             {"2026-11-21T12:59:00Z", "1 min", false},
                                                             {"2026-11-21T12:00:00Z", "1 hr", false},
                                                             {"2026-11-21T11:59:59Z", "1 hr", true}};
  for (const auto& [asOf, age, isStale] : rows) {
    const UsageTile tile = claude(ClaudeLimits::Limits{session, week, at(asOf)});
    EXPECT_EQ(std::pair(tile.age, tile.isStale), std::pair(std::string(age), isStale)) << asOf;
  }
}

TEST(ClaudeUsageTile, EstimatesWithoutThePlansPercentages) {
  const UsageTile tile = claude(std::nullopt);
  EXPECT_EQ(tile, (UsageTile{.caption = "Claude · resets 16:00",
                             .value = "1.2M",
                             .unit = "tokens in 5 h",
                             .bar = UsageBar{0.6, false},
                             .help = "Claude Code tokens in the current 5-hour window, from your local logs. An "
                                     "estimate. For Claude's own percentages, connect the status line in Settings › "
                                     "Buddy.",
                             .spoken = "Claude · resets 16:00: 1.2M tokens in 5 h"}));
  ClaudeUsageSnapshot future = used;
  future.block->start = at("2026-11-21T14:00:00Z");
  EXPECT_EQ(claude(std::nullopt, future).bar, UsageBar{});
}

TEST(ClaudeUsageTile, SaysWhenNoWindowIsOpen) {
  const UsageTile none = claude(std::nullopt, {{12'345, 3}, std::nullopt});
  EXPECT_EQ(none.caption, "Claude");
  EXPECT_EQ(none.value, "No open window");
  EXPECT_EQ(none.line, "Today 12.3K tokens");
  EXPECT_FALSE(none.bar);
  const UsageTile loading = claude(std::nullopt, {}, false);
  EXPECT_EQ(loading.value, "Reading logs…");
  EXPECT_EQ(loading.line, "Today 0 tokens");
}

TEST(CodexLimitsTile, ShowsTheReportedWindows) {
  const UsageTile tile = codex(CodexUsage::Limits{session, week, at("2026-11-21T12:48:00Z")});
  EXPECT_EQ(tile, (UsageTile{.caption = "Codex · 5 h",
                             .age = "12 mins",
                             .value = "62%",
                             .bar = UsageBar{0.624, false},
                             .line = "week 31%",
                             .lineBar = UsageBar{0.31, false},
                             .help = "Codex limits as of 21 Nov 2026, 13:48. 5-hour window resets 16:00.",
                             .spoken = "Codex · 5 h: 62%, week 31%, reported 12 mins ago"}));
}

TEST(CodexLimitsTile, HasWordsForHavingNothing) {
  EXPECT_EQ(codex(std::nullopt).value, "No use this week");
  EXPECT_EQ(codex(std::nullopt, false).value, "Reading logs…");
  EXPECT_EQ(codex(std::nullopt).caption, "Codex");
  EXPECT_EQ(codex(std::nullopt).help, "Codex limits appear after your next Codex turn.");
}

TEST(CodexLimitsTile, NeverPassesAnotherWindowOffAsFiveHours) {
  const std::tuple<std::int64_t, const char*, const char*, const char*> rows[] = {
      {299, "5 h", "week not reported", "5-hour window resets 16:00."},
      {10079, "week", "5 h not reported", "Weekly window resets Saturday 16:00."},
      {43200, "30 d", "week not reported", "30-day window resets Saturday 16:00."},
      {120, "2 h", "week not reported", "2-hour window resets 16:00."},
      {95, "95 min", "week not reported", "95-minute window resets 16:00."},
      {0, "5 h", "week not reported", "5-hour window resets 16:00."}};
  for (const auto& [minutes, length, line, help] : rows) {
    const UsageTile tile = codex(CodexUsage::Limits{window(10, "2026-11-21T15:00:00Z", minutes), std::nullopt, now});
    EXPECT_EQ(tile.caption, std::string("Codex · ") + length);
    EXPECT_EQ(tile.line, line);
    EXPECT_TRUE(tile.help.ends_with(std::string(". ") + help)) << tile.help;
  }
  EXPECT_EQ(codex(CodexUsage::Limits{session, window(20, "2026-11-21T15:00:00Z", 2880), now}).line, "2 d 20%");
}

TEST(TokenBudget, StepsFromAnyNumberToTheNextRoundOne) {
  using Row = std::tuple<std::int64_t, int, std::int64_t>;
  for (const auto& [from, direction, to] :
       {Row{0, 1, 10'000}, Row{10'000, -1, 0}, Row{0, -1, 0}, Row{-5, 1, 0}, Row{220'000, 1, 300'000},
        Row{220'000, -1, 200'000}, Row{700'000'000, 1, 1'000'000'000}, Row{5'000'000'000, 1, 5'000'000'000},
        Row{5'000'000'000, -1, 1'000'000'000}})
    EXPECT_EQ(steppedBudget(from, direction), to) << from;
}

}  // namespace
}  // namespace ambrel
