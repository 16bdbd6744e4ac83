#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

TEST(ClaudeUsage, CountsTheThreeKindsOfTokensOfARepliesLine) {
  const auto parsed = [](const std::string& name) {
    LineParser parser;
    const std::string line = usageCase("claude/" + name + ".json");
    return ClaudeUsage::parseLine(parser.parse(line).value());
  };
  for (const auto& [name, tokens] : {std::pair{"reply", 4 + 1200 + 312},
                                     {"plain-date", 4 + 1200 + 312},
                                     {"no-counters", 0},
                                     {"wrong-types", 0},
                                     {"fractions", 2 + 1000},
                                     {"synthetic", 0},
                                     {"negative", -4}}) {
    const auto use = parsed(name);
    ASSERT_TRUE(use) << name;
    EXPECT_EQ(use->tokens, tokens) << name;
    EXPECT_EQ(use->date,
              at(std::string_view(name) == "plain-date" ? "2026-11-21T09:37:05Z" : "2026-11-21T09:37:05.123Z"));
  }
  for (const char* name :
       {"overflow", "user", "progress", "no-date", "bad-date", "number-date", "usage-is-text", "message-is-text"})
    EXPECT_FALSE(parsed(name)) << name;
}

// Times are of 21 November, or whole. The n-th reply has 10 to the n tokens; without a start there is no block.
struct BlockCase {
  const char *about, *zone;
  std::vector<std::string> replies;
  std::string now, start;
  std::int64_t tokens = 0, count = 0;
};
Instant on21st(const std::string& time) { return at(time.size() > 16 ? time : "2026-11-21T" + time + "Z"); }

TEST(ActiveBlock, IsDerivedFromTheReplies) {
  const BlockCase rows[] = {
      {"nothing", "UTC", {}, "10:00:00", ""},
      {"one reply", "UTC", {"14:37:00"}, "14:37:00", "14:00:00", 1, 1},
      {"the end opens the next", "UTC", {"14:37:00", "19:00:00"}, "19:30:00", "19:00:00", 10, 1},
      {"a moment before the end", "UTC", {"14:37:00", "18:59:59.999999"}, "18:59:59.999999", "14:00:00", 11, 2},
      {"measured from the floored start", "UTC", {"14:37:00", "19:36:00"}, "19:40:00", "19:00:00", 10, 1},
      {"run out at its end", "UTC", {"14:37:00"}, "19:00:00", ""},
      {"open just before its end", "UTC", {"14:37:00"}, "18:59:59.999999", "14:00:00", 1, 1},
      {"in any order", "UTC", {"19:10:00", "08:00:00", "14:37:00", "20:00:00"}, "20:30:00", "19:00:00", 1001, 2},
      {"the future opens, but does not count", "UTC", {"14:37:00", "19:10:00"}, "18:00:00", "19:00:00", 0, 0},
      {"a quarter of an hour off", "Asia/Kathmandu", {"14:37:00"}, "15:00:00", "14:15:00", 1, 1},
      {"the hour that is skipped",
       "Europe/Berlin",
       {"2026-03-29T00:50:00Z", "2026-03-29T04:59:00Z"},
       "2026-03-29T04:59:30Z",
       "2026-03-29T00:00:00Z",
       11,
       2},
      {"the second 02:30 of that night",
       "Europe/Berlin",
       {"2026-10-25T01:30:00Z"},
       "2026-10-25T02:00:00Z",
       "2026-10-25T01:00:00Z",
       1,
       1},
  };
  for (const BlockCase& row : rows) {
    SCOPED_TRACE(row.about);
    std::vector<TokenUsage> uses;
    std::int64_t tokens = 1;
    for (const auto& reply : row.replies) uses.push_back({on21st(reply), std::exchange(tokens, tokens * 10)});
    const auto block = ClaudeUsage::activeBlock(uses, on21st(row.now), Calendar(row.zone, "en_US"));
    if (row.start.empty()) {
      EXPECT_EQ(block, std::nullopt);
    } else {
      const Instant start = on21st(row.start);
      EXPECT_EQ(block, (UsageBlock{start, start + std::chrono::hours(5), row.tokens, row.count}));
    }
  }
}

TEST(ClaudeUsageDeathTest, NeverShowsASumThatWrapped) {
  const std::vector<TokenUsage> uses{{at("2026-11-21T14:10:00Z"), INT64_MAX}, {at("2026-11-21T14:20:00Z"), 1}};
  EXPECT_DEATH(ClaudeUsage::activeBlock(uses, at("2026-11-21T14:30:00Z"), Calendar("UTC", "en_US")), "");
}

}  // namespace
}  // namespace ambrel
