#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/buddy/NoticeCases.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

// Core's tests replay all cases; these are the ones that need another zone or locale.
TEST(NoticesCommand, ReplaysInTheZoneAndLocaleOfTheEnvironment) {
  for (const NoticeCase& one : noticeCases()) {
    if (one.zone == "UTC" && one.locale == "en_US") continue;
    SCOPED_TRACE(one.name);
    const auto answers = linesOf(printed(
        runCommand({"notices"}, {"HOME=/", "TZ=" + one.zone, "LC_ALL=" + one.locale + ".UTF-8"}, one.input.string())));
    ASSERT_THAT(answers, SizeIs(one.expected.size()));
    for (std::size_t i = 0; i < answers.size(); ++i)
      EXPECT_EQ(difference(one.expected[i], parseJSON(answers[i]).value()), "") << "line " << i + 1;
  }
}

class NoticesCommandLines : public testing::Test {
 protected:
  CommandResult run(const std::string& lines, std::vector<std::string> words = {"notices"}) {
    folder.write("lines", lines);
    return runCommand(std::move(words), {"HOME=/"}, folder.path() / "lines");
  }
  TemporaryFolder folder;
};

TEST_F(NoticesCommandLines, EndAtTheFirstThatIsWrong) {
  const std::string good = "{\"now\":\"2026-11-21T09:00:00Z\"}\n";
  EXPECT_EQ(run(good + "\n  \r\n" + R"({"now":"2026-11-21T09:00:10Z","policy":{"level":"loud"}})" + "\n" + good),
            (CommandResult{1, "[]\n", "tilebayctl: line 4: \"loud\" is no case of \"level\" of \"policy\"\n"}));
  EXPECT_EQ(run(good, {"--json", "notices"}).out, "[]\n");
}

TEST_F(NoticesCommandLines, AreRemarkedUponOnStandardErrorAlone) {
  const auto result = run(R"({"now":"2026-11-21T09:00:00Z","sinals":{},"\u001b[2J":1})"
                          "\n"
                          R"({"now":"2026-11-21T09:00:00Z","snooze":{"id":"disk.low","minutes":15}})"
                          "\n");
  EXPECT_EQ(result, (CommandResult{0, "[]\n[]\n",
                                   "tilebayctl: line 1: the line has an unknown field \" [2J\"\n"
                                   "tilebayctl: line 1: the line has an unknown field \"sinals\"\n"
                                   "tilebayctl: line 2: no notice was returned under the id \"disk.low\"\n"}));
}

TEST_F(NoticesCommandLines, AreAnsweredOneByOne) {
  ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
  // Opened for both, so that neither side waits for the other to open.
  const int pipe = open((folder.path() / "pipe").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(pipe, 0);
  CommandRun command({"notices"}, {"HOME=/"}, folder.path() / "pipe");
  for (int i = 0; i < 3; ++i) {
    const std::string line = R"({"now":"2026-11-21T09:00:00Z"})"
                             "\n";
    ASSERT_EQ(write(pipe, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    EXPECT_EQ(command.line(), "[]");
  }
  close(pipe);
}

}  // namespace
}  // namespace ambrel
