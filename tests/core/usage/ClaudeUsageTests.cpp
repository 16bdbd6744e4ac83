#include <gmock/gmock.h>
#include <thread>

#include "core/usage/UsageLog.h"
#include "tests/TemporaryFolder.h"
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

const Instant noon = at("2026-11-21T12:00:00Z");

// A home folder and a scanner, with the clock at noon. Every write is dated a second later than the one before.
class ClaudeUsageScannerTest : public testing::Test {
 protected:
  void write(std::string_view name, const std::string& bytes) { home.write(path(name), bytes, modified()); }
  void append(std::string_view name, const std::string& bytes) {
    const auto file = home / path(name);
    std::ofstream(file, std::ios::binary | std::ios::app) << bytes;
    TemporaryFolder::setModified(file, modified());
  }
  ClaudeUsageSnapshot scan() { return scanner.scan(home.path(), noon, calendar); }
  UsageTotal today() { return scan().today; }

  static std::string path(std::string_view name) { return ".claude/projects/" + std::string(name); }
  Instant modified() { return advanced(noon, Seconds(writes++ - 3600)); }

  TemporaryFolder home;
  ClaudeUsageScanner scanner;
  Calendar calendar{"UTC", "en_US"};
  int writes = 0;
};

TEST_F(ClaudeUsageScannerTest, SumsTodayAndTheOpenBlockOfAllLogs) {
  EXPECT_EQ(scan(), ClaudeUsageSnapshot{});
  write("a/one.jsonl", replyLine("2026-11-20T23:59:59Z", 1) + replyLine("2026-11-21T00:00:00Z", 10));
  write("a/one/subagents/agent-7.jsonl", replyLine("2026-11-21T10:20:00Z", 100));
  write("b/two.jsonl", replyLine("2026-11-21T11:00:00Z", 1000) + replyLine("2026-11-21T11:00:00Z", 1000));
  const auto snapshot = scan();
  EXPECT_EQ(snapshot.today, (UsageTotal{2110, 4}));
  EXPECT_EQ(snapshot.block, (UsageBlock{at("2026-11-21T10:00:00Z"), at("2026-11-21T15:00:00Z"), 2100, 3}));
  calendar = Calendar("Asia/Kolkata", "en_US");  // where the day began at 18:30
  EXPECT_EQ(today(), (UsageTotal{2111, 5}));
}

TEST_F(ClaudeUsageScannerTest, CountsALineOnceHoweverItArrives) {
  const std::string line = replyLine("2026-11-21T11:00:00Z", 5);
  write("a/one.jsonl", line + line.substr(0, 40));
  EXPECT_EQ(today(), (UsageTotal{5, 1}));
  append("a/one.jsonl", line.substr(40, 20));
  EXPECT_EQ(today(), (UsageTotal{5, 1}));
  append("a/one.jsonl", line.substr(60, line.size() - 61));
  EXPECT_EQ(today(), (UsageTotal{5, 1}));  // whole, but for its newline
  append("a/one.jsonl", "\n" + line);
  EXPECT_EQ(today(), (UsageTotal{15, 3}));
  EXPECT_EQ(today(), (UsageTotal{15, 3}));
}

TEST_F(ClaudeUsageScannerTest, ReadsAFileThatShrankFromItsStart) {
  write("a/one.jsonl", replyLine("2026-11-21T11:00:00Z", 1) + replyLine("2026-11-21T11:00:01Z", 10));
  EXPECT_EQ(today(), (UsageTotal{11, 2}));
  write("a/one.jsonl", replyLine("2026-11-21T11:00:02Z", 100));
  EXPECT_EQ(today(), (UsageTotal{111, 3}));
}

TEST_F(ClaudeUsageScannerTest, OpensNoFileThatHasNotChanged) {
  const std::string line = replyLine("2026-11-21T11:00:00Z", 1), other = replyLine("2026-11-21T11:00:00Z", 2);
  write("a/one.jsonl", line + std::string(other.size(), 'x'));
  EXPECT_EQ(today(), (UsageTotal{1, 1}));
  // Other bytes under the same size and date: whoever opened the file would see them.
  const auto before = fileStatus(home / path("a/one.jsonl"));
  home.write(path("a/one.jsonl"), line + other, before->modified);
  EXPECT_EQ(today(), (UsageTotal{1, 1}));
  TemporaryFolder::setModified(home / path("a/one.jsonl"), before->modified, 1);
  EXPECT_EQ(today(), (UsageTotal{3, 2}));
}

TEST_F(ClaudeUsageScannerTest, PassesOverLogsThatHaveNotChangedForADay) {
  home.write(path("a/old.jsonl"), replyLine("2026-11-21T11:00:00Z", 1), advanced(noon, Seconds(-86400)));
  EXPECT_EQ(today(), UsageTotal{});
  append("a/old.jsonl", replyLine("2026-11-21T11:00:00Z", 10));
  EXPECT_EQ(today(), (UsageTotal{11, 2}));
}

TEST_F(ClaudeUsageScannerTest, ForgetsRepliesAfterADay) {
  write("a/one.jsonl", replyLine("2026-11-20T13:30:00Z", 1) + replyLine("2026-11-21T11:30:00Z", 10));
  // What is still held shows when the clock goes back.
  const auto heldAfter = [&](std::string_view now) {
    scanner.scan(home.path(), at(now), calendar);
    return scanner.scan(home.path(), at("2026-11-20T14:00:00Z"), calendar).today.tokens;
  };
  EXPECT_EQ(heldAfter("2026-11-21T13:30:00Z"), 11);
  EXPECT_EQ(heldAfter("2026-11-21T13:30:00.000001Z"), 10);
  EXPECT_EQ(heldAfter("2026-11-22T11:30:00.000001Z"), 0);
}

TEST_F(ClaudeUsageScannerTest, LosesNothingButTheMalformedLine) {
  const std::string good = replyLine("2026-11-21T11:00:00Z", 1);
  write("a/one.jsonl", "");
  for (const std::string name : {"cut", "array", "deep", "nul", "latin1", "overflow", "user"})
    append("a/one.jsonl", usageCase("claude/" + name + ".json") + "\n" + good);
  append("a/one.jsonl", "\n\n\r\n\"usage\"\n" + good);
  EXPECT_EQ(today(), (UsageTotal{8, 8}));
}

TEST_F(ClaudeUsageScannerTest, NeverHoldsMoreThanCanBeSummed) {
  const std::string huge = replyLine("2026-11-21T11:00:00Z", INT64_MAX - 5);
  write("a/one.jsonl", huge + huge + replyLine("2026-11-21T11:00:00Z", 3) + replyLine("2026-11-21T11:00:00Z", -2) +
                           replyLine("2026-11-21T11:00:00Z", 1) + replyLine("2026-11-21T11:00:00Z", INT64_MIN));
  EXPECT_EQ(today(), (UsageTotal{INT64_MAX - 4, 3}));
}

TEST_F(ClaudeUsageScannerTest, SharesTheWorkWithoutLosingAny) {
  // Enough for a second thread.
  const std::string padding(3000, 'x');
  std::int64_t tokens = 0;
  for (int file = 0; file < 40; ++file) {
    std::string bytes;
    for (int line = 0; line < 50; ++line) {
      bytes += replyLine("2026-11-21T11:00:00Z", file * 100 + line, padding);
      tokens += file * 100 + line;
    }
    write(fmt::format("p{}/log.jsonl", file), bytes);
  }
  EXPECT_EQ(today(), (UsageTotal{tokens, 2000}));
}

TEST_F(ClaudeUsageScannerTest, LetsOverlappingScansWait) {
  write("a/one.jsonl", replyLine("2026-11-21T11:00:00Z", 1));
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back([this] { EXPECT_EQ(today(), (UsageTotal{1, 1})); });
  }
  EXPECT_EQ(today(), (UsageTotal{1, 1}));
}

}  // namespace
}  // namespace ambrel
