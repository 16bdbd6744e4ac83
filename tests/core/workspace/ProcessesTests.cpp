#include "core/workspace/Processes.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

ProcessRecord process(int pid, int parent) {
  return {.pid = pid, .parent = parent, .name = {}, .arguments = {}, .windowID = {}};
}

std::vector<int> pids(const std::vector<const ProcessRecord*>& tree) {
  std::vector<int> list;
  for (const ProcessRecord* record : tree) list.push_back(record->pid);
  return list;
}

TEST(Processes, NamesMayHoldBlanksAndBrackets) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"42 (bash) S 7 42 42 34816 99 4194304", "bash"},
      {"42 (tmux: server) S 7 42", "tmux: server"},
      {"42 (a) R 1 (b)) S 7 42", "a) R 1 (b)"},
      {"42 (((() S 7 42", "((("},
      {"42 () S 7 42", ""},
      {"42 (new\nline) S 7 42\n", "new\nline"},
      {"42 (caf\xe9) S 7 42", "caf\xe9"},
  };
  for (const auto& [text, name] : cases) {
    const auto record = parseProcessStat(text);
    ASSERT_TRUE(record) << text;
    EXPECT_EQ(record->name, name);
    EXPECT_EQ(record->pid, 42);
    EXPECT_EQ(record->parent, 7);
    EXPECT_EQ(record->state, 'S');
  }
}

TEST(Processes, BrokenStatLinesAreNone) {
  for (const char* text : {"", "42", "42 (bash", "42 bash) S 7", "42 (bash) S", "42 (bash) S x", "x (bash) S 7",
                           "42 )bash( S 7", "99999999999999 (bash) S 7", "42 (bash)  7"})
    EXPECT_FALSE(parseProcessStat(text)) << text;
}

TEST(Processes, ArgumentsEndWithNulBytes) {
  using std::string_literals::operator""s;
  EXPECT_EQ(parseProcessArguments(""), std::vector<std::string>{});
  EXPECT_EQ(parseProcessArguments("\0\0"s), std::vector<std::string>{});
  EXPECT_EQ(parseProcessArguments("node\0/usr/bin/claude\0--x y\0"s),
            (std::vector<std::string>{"node", "/usr/bin/claude", "--x y"}));
  EXPECT_EQ(parseProcessArguments("claude\0\0\0\0"s), (std::vector<std::string>{"claude"}));
  EXPECT_EQ(parseProcessArguments("a\0\0b\0"s), (std::vector<std::string>{"a", "", "b"}));
}

TEST(Processes, TheTerminalTellsItsWindow) {
  using std::string_literals::operator""s;
  EXPECT_EQ(parseWindowID("HOME=/h\0WINDOWID=4194318\0X=1\0"s), 4194318u);
  EXPECT_FALSE(parseWindowID("MYWINDOWID=3\0"s));
  EXPECT_FALSE(parseWindowID("WINDOWID=\0"s));
  EXPECT_FALSE(parseWindowID("WINDOWID=99999999999\0"s));
  EXPECT_FALSE(parseWindowID(""));
}

TEST(Processes, ATreeHoldsAllDescendants) {
  const std::vector<ProcessRecord> table{process(1, 0),  process(5, 4),   process(10, 1),
                                         process(4, 10), process(11, 10), process(20, 1)};
  EXPECT_THAT(pids(processTree(table, 10)), UnorderedElementsAre(10, 4, 11, 5));
  EXPECT_EQ(pids(processTree(table, 10)).front(), 10);
  EXPECT_EQ(pids(processTree(table, 20)), (std::vector<int>{20}));
  EXPECT_TRUE(processTree(table, 99).empty());
  const std::vector<ProcessRecord> circles{process(10, 11), process(11, 10), process(12, 12), process(13, 12)};
  EXPECT_EQ(pids(processTree(circles, 10)), (std::vector<int>{10, 11}));
  EXPECT_EQ(pids(processTree(circles, 12)), (std::vector<int>{12, 13}));
}

}  // namespace
}  // namespace ambrel
