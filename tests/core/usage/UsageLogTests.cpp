#include <random>

#include "core/usage/KeySearch.h"
#include "core/usage/UsageLog.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/usage/UsageCases.h"

namespace ambrel {
namespace {

TEST(FindUsageKey, FindsTheFirstOneWhereverItIs) {
  const std::string key(usageKey);
  const std::string nearMisses = "\"usagE\" usage\" \"usage \"u\"a\"g\"\" \"\"\"g\"\"\"";
  for (std::size_t length = 0; length < 80; ++length) {
    for (std::size_t place = 0; place + key.size() <= length; ++place) {
      std::string text;
      while (text.size() < length) text += nearMisses;
      text.resize(length);
      text.replace(place, key.size(), key);
      const char* end = text.data() + text.size();
      const char* found = findUsageKey(text.data(), end);
      ASSERT_EQ(found == end ? std::string::npos : static_cast<std::size_t>(found - text.data()), text.find(key))
          << text;
    }
    // Across the end of what is searched.
    const std::string behind = std::string(length, '"') + key;
    for (std::size_t cut = 1; cut < key.size(); ++cut) {
      const char* end = behind.data() + length + cut;
      EXPECT_EQ(findUsageKey(behind.data(), end), end);
    }
  }
}

class UsageLogTest : public testing::Test {
 protected:
  std::optional<UsageLogReader::Reading> read(const std::string& bytes, std::uint64_t offset = 0) {
    return reader.read(folder.write("log.jsonl", bytes), offset);
  }
  static std::vector<std::int64_t> tokens(const std::optional<UsageLogReader::Reading>& reading) {
    std::vector<std::int64_t> tokens;
    for (const TokenUsage& use : reading.value().uses) tokens.push_back(use.tokens);
    return tokens;
  }

  TemporaryFolder folder;
  std::mutex turn;
  UsageLogReader reader{turn};
};

// A reply whose line, with its newline, has that many bytes.
std::string replyOfSize(std::size_t size, std::int64_t tokens) {
  const std::string bare = replyLine("2026-11-21T11:00:00Z", tokens);
  return replyLine("2026-11-21T11:00:00Z", tokens, std::string(size - bare.size(), 'x'));
}

TEST_F(UsageLogTest, StopsBehindTheLastNewline) {
  const std::string line = replyLine("2026-11-21T11:00:00Z", 7);
  const std::tuple<std::string, std::uint64_t, std::size_t> rows[] = {{"\n", 1, 0},
                                                                      {line + line.substr(0, 50), line.size(), 1},
                                                                      {line.substr(0, 50), 0, 0},
                                                                      {"\n\n" + line + "\n", line.size() + 3, 1}};
  for (const auto& [bytes, offset, count] : rows) {
    const auto reading = read(bytes);
    ASSERT_TRUE(reading);
    EXPECT_EQ(std::pair(reading->offset, reading->uses.size()), std::pair(offset, count)) << bytes;
  }
}

TEST_F(UsageLogTest, BeginsAtTheOffsetUnlessTheFileIsShorter) {
  const std::string one = replyLine("2026-11-21T11:00:00Z", 1), two = replyLine("2026-11-21T11:00:00Z", 2);
  EXPECT_THAT(tokens(read(one + two, one.size())), ElementsAre(2));
  EXPECT_THAT(tokens(read(one + two, 2 * one.size())), IsEmpty());
  EXPECT_THAT(tokens(read(one, 2 * one.size())), ElementsAre(1));
  EXPECT_EQ(read("", 99)->offset, 99u);
  EXPECT_FALSE(reader.read(folder / "missing.jsonl", 0));
  EXPECT_FALSE(reader.read(folder.path(), 0));
}

TEST_F(UsageLogTest, CountsLongLinesAndKeepsTheirNeighbours) {
  constexpr std::size_t mebi = 1 << 20;
  const std::string small = replyLine("2026-11-21T11:00:00Z", 1);
  const std::string keyless = "{\"type\":\"file-history-snapshot\",\"data\":\"" + std::string(40 * mebi, 'y') + "\"}\n";
  using Tokens = std::vector<std::int64_t>;
  const std::pair<std::string, Tokens> rows[] = {
      {replyOfSize(UsageLogReader::longestLine + 1, 2), {1, 2, 1}},  // with its newline
      {replyOfSize(UsageLogReader::longestLine + 2, 2), {1, 1}},
      {keyless, {1, 1}}};
  for (const auto& [line, expected] : rows) {
    const auto reading = read(small + line + small);
    EXPECT_EQ(tokens(reading), expected);
    EXPECT_EQ(reading->offset, 2 * small.size() + line.size());
  }
}

// The reader's buffer is a quarter of a mebibyte: lines of about that length meet its end in every way.
TEST_F(UsageLogTest, AgreesWithALineByLineReading) {
  std::mt19937 random(20261121);
  constexpr std::size_t buffer = 256 << 10;
  for (int round = 0; round < 60; ++round) {
    std::string bytes;
    std::vector<std::int64_t> expected;
    std::uint64_t offset = 0;
    const int lines = 1 + static_cast<int>(random() % 12);
    for (int i = 0; i < lines; ++i) {
      const std::size_t near = (bytes.size() / buffer + 1 + random() % 2) * buffer - bytes.size();
      const std::size_t size =
          random() % 3 == 0 ? 200 + random() % 3000 : std::max<std::size_t>(204, near) - 4 + random() % 9;
      if (random() % 3 == 0) {
        bytes += std::string(size, 'z') + "\n";
      } else {
        bytes += replyOfSize(size, i);
        expected.push_back(i);
      }
      offset = bytes.size();
    }
    if (random() % 2) bytes += replyOfSize(200 + random() % (2 * buffer), 99).substr(0, 150);
    SCOPED_TRACE(round);
    const auto reading = read(bytes);
    EXPECT_EQ(tokens(reading), expected);
    EXPECT_EQ(reading->offset, offset);
  }
}

// The key moves through the end of the buffer, in a line that does not fit into it.
TEST_F(UsageLogTest, FindsAKeyThatIsAcrossTwoReads) {
  const std::string bare = replyLine("2026-11-21T11:00:00Z", 3);
  const std::size_t keyAt = bare.find(usageKey);
  for (int shift = -10; shift <= 3; ++shift) {
    const std::size_t padding = (256 << 10) - keyAt + static_cast<std::size_t>(shift + 3);
    std::string line = replyLine("2026-11-21T11:00:00Z", 3, std::string(padding, 'x'));
    EXPECT_THAT(tokens(read(line + "{}\n")), ElementsAre(3)) << shift;
  }
}

}  // namespace
}  // namespace ambrel
