#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/linux/ProcessReader.h"

namespace ambrel {
namespace {

using std::string_literals::operator""s;

class ProcessReaderTest : public testing::Test {
 protected:
  void write(const QString& pid, const QString& name, const std::string& bytes) {
    ASSERT_TRUE(QDir(folder_.path()).mkpath(pid));
    QFile file(folder_.filePath(pid + '/' + name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), qint64(bytes.size()));
  }
  void addProcess(int pid, int parent, const std::string& name, const std::string& commandLine,
                  const std::string& environment = {}) {
    const QString folder = QString::number(pid);
    write(folder, "stat", std::to_string(pid) + " (" + name + ") S " + std::to_string(parent) + " 1 1 0 -1");
    write(folder, "cmdline", commandLine);
    write(folder, "environ", environment);
  }
  std::vector<ProcessRecord> read(const std::vector<int>& roots) {
    auto table = readProcesses(folder_.path().toStdString(), roots);
    std::ranges::sort(table, {}, &ProcessRecord::pid);
    return table;
  }

  QTemporaryDir folder_;
};

TEST_F(ProcessReaderTest, LooksIntoTheTreesThatAreAskedFor) {
  addProcess(1, 0, "init", "/sbin/init\0"s);
  addProcess(10, 1, "xterm (1)", "xterm\0"s);
  addProcess(11, 10, "node", "node\0/usr/bin/claude\0"s, "WINDOWID=77\0HOME=/h\0"s);
  addProcess(20, 1, "other", "other\0--secret\0"s, "WINDOWID=88\0"s);
  const auto table = read({10});
  ASSERT_EQ(table.size(), 4u);
  EXPECT_EQ(table[1].name, "xterm (1)");
  EXPECT_EQ(table[1].arguments, (std::vector<std::string>{"xterm"}));
  EXPECT_EQ(table[2].arguments, (std::vector<std::string>{"node", "/usr/bin/claude"}));
  EXPECT_EQ(table[2].windowID, 77u);
  EXPECT_TRUE(table[3].arguments.empty()) << "a process that nobody asked about";
  EXPECT_FALSE(table[3].windowID);
  addProcess(40, 1, "tmux: server", "tmux\0"s);
  addProcess(41, 40, "claude", "claude\0"s);
  EXPECT_EQ(read({}).back().arguments, std::vector<std::string>{"claude"})
      << "multiplexers are looked into on their own";
  EXPECT_TRUE(readProcesses("/nonexistent/proc", {1}).empty());
}

TEST_F(ProcessReaderTest, PassesOverWhatIsNoProcessOrHasGone) {
  addProcess(10, 1, "a", "a\0"s);
  write("sys", "stat", "7 (x) S 1");
  write("12x", "stat", "12 (x) S 1");
  write("13", "stat", "broken");
  QDir(folder_.path()).mkpath("14");  // ended between the listing and the reading
  addProcess(15, 10, "b", "b\0"s);
  QFile::remove(folder_.filePath("15/cmdline"));
  const auto table = read({10});
  ASSERT_EQ(table.size(), 2u);
  EXPECT_EQ(table[0].pid, 10);
  EXPECT_TRUE(table[1].arguments.empty());
}

TEST_F(ProcessReaderTest, TheRealTableHoldsUs) {
  const auto table = readProcesses("/proc", {getpid()});
  const auto us = std::ranges::find(table, getpid(), &ProcessRecord::pid);
  ASSERT_NE(us, table.end());
  EXPECT_EQ(us->parent, getppid());
  ASSERT_FALSE(us->arguments.empty());
  EXPECT_TRUE(us->arguments.front().ends_with("platform_linux_tests"));
}

}  // namespace
}  // namespace ambrel
