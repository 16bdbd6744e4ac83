#include <gmock/gmock.h>
#include <thread>

#include "core/usage/UsageLog.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

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
