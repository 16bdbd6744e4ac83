#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

TEST(ClaudeUsage, CountsTheThreeKindsOfTokensOfARepliesLine) {
  struct Case {
    std::string file;
    std::optional<std::int64_t> tokens;
  };
  const Case cases[] = {
      {"reply", 4 + 1200 + 312},
      {"plain-date", 4 + 1200 + 312},
      {"no-counters", 0},
      {"wrong-types", 0},
      {"fractions", 2 + 1000},
      {"synthetic", 0},
      {"negative", -4},
      {"overflow", std::nullopt},
      {"user", std::nullopt},
      {"progress", std::nullopt},
      {"no-date", std::nullopt},
      {"bad-date", std::nullopt},
      {"number-date", std::nullopt},
      {"usage-is-text", std::nullopt},
      {"message-is-text", std::nullopt},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.file);
    LineParser parser;
    const std::string line = usageCase("claude/" + test.file + ".json");
    const auto object = parser.parse(line);
    ASSERT_TRUE(object);
    const auto use = ClaudeUsage::parseLine(*object);
    ASSERT_EQ(use.has_value(), test.tokens.has_value());
    if (use) {
      EXPECT_EQ(use->tokens, *test.tokens);
      EXPECT_EQ(use->date, at(test.file == "plain-date" ? "2026-11-21T09:37:05Z" : "2026-11-21T09:37:05.123Z"));
    }
  }
}

struct BlockCase {
  std::string about;
  std::string zone;
  std::vector<std::string> replies;  // the n-th has 10 to the n tokens
  std::string now;
  std::string start;  // empty: no block
  std::int64_t tokens;
  std::int64_t count;
};

class ActiveBlock : public testing::TestWithParam<BlockCase> {};

TEST_P(ActiveBlock, IsDerivedFromTheReplies) {
  const BlockCase& test = GetParam();
  std::vector<TokenUsage> uses;
  std::int64_t tokens = 1;
  for (const auto& reply : test.replies) {
    uses.push_back({at(reply), tokens});
    tokens *= 10;
  }
  const auto block = ClaudeUsage::activeBlock(uses, at(test.now), Calendar(test.zone, "en_US"));
  ASSERT_EQ(block.has_value(), !test.start.empty());
  if (!block) return;
  EXPECT_EQ(iso8601(block->start), test.start);
  EXPECT_EQ(block->end - block->start, std::chrono::hours(5));
  EXPECT_EQ(block->tokens, test.tokens);
  EXPECT_EQ(block->replies, test.count);
}

INSTANTIATE_TEST_SUITE_P(
    Blocks, ActiveBlock,
    testing::Values(
        BlockCase{"nothing", "UTC", {}, "2026-11-21T10:00:00Z", "", 0, 0},
        BlockCase{"one reply", "UTC", {"2026-11-21T14:37:00Z"}, "2026-11-21T14:37:00Z", "2026-11-21T14:00:00Z", 1, 1},
        BlockCase{"both in one",
                  "UTC",
                  {"2026-11-21T14:37:00Z", "2026-11-21T18:59:00Z"},
                  "2026-11-21T18:59:30Z",
                  "2026-11-21T14:00:00Z",
                  11,
                  2},
        BlockCase{"the end opens the next",
                  "UTC",
                  {"2026-11-21T14:37:00Z", "2026-11-21T19:00:00Z"},
                  "2026-11-21T19:30:00Z",
                  "2026-11-21T19:00:00Z",
                  10,
                  1},
        BlockCase{"a microsecond before the end",
                  "UTC",
                  {"2026-11-21T14:37:00Z", "2026-11-21T18:59:59.999999Z"},
                  "2026-11-21T18:59:59.999999Z",
                  "2026-11-21T14:00:00Z",
                  11,
                  2},
        BlockCase{"measured from the floored start",
                  "UTC",
                  {"2026-11-21T14:37:00Z", "2026-11-21T19:36:00Z"},
                  "2026-11-21T19:40:00Z",
                  "2026-11-21T19:00:00Z",
                  10,
                  1},
        BlockCase{"run out at its end", "UTC", {"2026-11-21T14:37:00Z"}, "2026-11-21T19:00:00Z", "", 0, 0},
        BlockCase{"open just before its end",
                  "UTC",
                  {"2026-11-21T14:37:00Z"},
                  "2026-11-21T18:59:59.999999Z",
                  "2026-11-21T14:00:00Z",
                  1,
                  1},
        BlockCase{"in any order",
                  "UTC",
                  {"2026-11-21T19:10:00Z", "2026-11-21T08:00:00Z", "2026-11-21T14:37:00Z", "2026-11-21T20:00:00Z"},
                  "2026-11-21T20:30:00Z",
                  "2026-11-21T19:00:00Z",
                  1001,
                  2},
        BlockCase{"the future opens, but does not count",
                  "UTC",
                  {"2026-11-21T14:37:00Z", "2026-11-21T19:10:00Z"},
                  "2026-11-21T18:00:00Z",
                  "2026-11-21T19:00:00Z",
                  0,
                  0},
        BlockCase{"half an hour off",
                  "Asia/Kolkata",
                  {"2026-11-21T14:37:00Z"},
                  "2026-11-21T15:00:00Z",
                  "2026-11-21T14:30:00Z",
                  1,
                  1},
        BlockCase{"a quarter of an hour off",
                  "Asia/Kathmandu",
                  {"2026-11-21T14:37:00Z"},
                  "2026-11-21T15:00:00Z",
                  "2026-11-21T14:15:00Z",
                  1,
                  1},
        BlockCase{"the hour that is skipped",
                  "Europe/Berlin",
                  {"2026-03-29T00:50:00Z", "2026-03-29T04:59:00Z"},
                  "2026-03-29T04:59:30Z",
                  "2026-03-29T00:00:00Z",
                  11,
                  2},
        BlockCase{"the second 02:30 of that night",
                  "Europe/Berlin",
                  {"2026-10-25T01:30:00Z"},
                  "2026-10-25T02:00:00Z",
                  "2026-10-25T01:00:00Z",
                  1,
                  1},
        BlockCase{"clocks that change by half an hour",
                  "Australia/Lord_Howe",
                  {"2026-04-04T15:20:00Z"},
                  "2026-04-04T16:00:00Z",
                  "2026-04-04T14:00:00Z",
                  1,
                  1}),
    [](const auto& test) {
      std::string name = test.param.about;
      std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
      return name;
    });

TEST(ClaudeUsageDeathTest, NeverShowsASumThatWrapped) {
  const std::vector<TokenUsage> uses{{at("2026-11-21T14:10:00Z"), INT64_MAX}, {at("2026-11-21T14:20:00Z"), 1}};
  EXPECT_DEATH(ClaudeUsage::activeBlock(uses, at("2026-11-21T14:30:00Z"), Calendar("UTC", "en_US")), "");
}

}  // namespace
}  // namespace ambrel
