#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/StoredFile.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

class Files : public testing::Test {
 protected:
  std::filesystem::path at(std::string_view name) const { return folder_ / name; }
  static mode_t modeOf(const std::filesystem::path& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
  }
  std::size_t count(const std::filesystem::path& folder) const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
  }

  TemporaryFolder folder_;
};

TEST_F(Files, ReadsBoundedPiecesAndWholeFiles) {
  const std::string bytes = std::string("a\0b\n", 4) + std::string(200'000, 'x');
  const auto file = folder_.write("f", bytes);
  EXPECT_EQ(readFile(file), bytes);
  EXPECT_EQ(readFile(file, bytes.size()), bytes);
  EXPECT_EQ(readFile(file, bytes.size() - 1), std::nullopt);
  EXPECT_EQ(readFile(folder_.write("empty", ""), 0), "");
  const auto open = openForReading(file);
  EXPECT_EQ(readAt(open, 2, 2), "b\n");
  EXPECT_EQ(readAt(open, bytes.size() - 3, 100), "xxx");
  EXPECT_EQ(readAt(open, bytes.size() + 10, 5), "");
  EXPECT_EQ(readAt(FileDescriptor(), 0, 1), std::nullopt);
}

TEST_F(Files, WhatIsNoRegularFileIsAbsentAndNeverWaitedFor) {
  ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
  EXPECT_EQ(readFile(at("fifo")), std::nullopt);
  EXPECT_EQ(readFile(folder_.path()), std::nullopt);
  EXPECT_EQ(readFile(at("missing")), std::nullopt);
  EXPECT_EQ(readFile("/dev/zero"), std::nullopt);
  EXPECT_EQ(fileStatus(at("missing")), std::nullopt);
  // These say that they are empty, and are not.
  EXPECT_GT(readFile("/proc/self/status").value_or("").size(), 10u);
}

TEST_F(Files, WhatAKilledWriteLeftIsSweptAndOneUnderWayIsNot) {
  folder_.write("f", "whole");
  folder_.write(".f.aB3xyZ", "half");
  folder_.write(".f.notes", "mine");
  folder_.write(".fg.aB3xyZ", "another's");
  const auto underWay = FileLock::tryAcquire(folder_.write(".f.cD4uvW", "writing"));
  removeLeftovers(at("f"));
  EXPECT_FALSE(std::filesystem::exists(at(".f.aB3xyZ")));
  EXPECT_EQ(count(folder_.path()), 4u);
  removeLeftovers(at("missing/f"));
  // Both beside a link, from before it was one, and beside its target.
  folder_.write("away/g", "whole");
  std::filesystem::create_symlink("away/g", at("link"));
  for (const char* name : {".link.aB3xyZ", "away/.g.aB3xyZ"}) folder_.write(name, "half");
  removeLeftovers(at("link"));
  EXPECT_EQ(count(folder_.path()), 6u);
  EXPECT_EQ(count(at("away")), 1u);
}

TEST_F(Files, ASweepTakesWhatKilledWritesLeftInOurFoldersAndNothingElse) {
  for (const char* left : {"own/.a.json.aB3xyZ", "own/Images/.b.png.0Zz9Aa"}) folder_.write(left, "half");
  for (const char* mine :
       {"own/a.json", "own/.hidden", "own/.a.json.bak", "own/a.json.aB3xyZ", "own/.aB3xyZ", "away/.c.json.aB3xyZ"})
    folder_.write(mine, "whole");
  const auto underWay = FileLock::tryAcquire(folder_.write("own/Images/.d.png.cD4uvW", "writing"));
  std::filesystem::create_directory_symlink(at("away"), at("own/linked"));
  std::filesystem::create_symlink(at("own/a.json"), at("own/.link.aB3xyZ"));
  sweepLeftovers(at("own"));
  EXPECT_EQ(count(at("own")), 8u);
  EXPECT_EQ(count(at("own/Images")), 1u);
  EXPECT_EQ(count(at("away")), 1u);
  sweepLeftovers(at("missing"));
}

TEST_F(Files, StatusFollowsLinksAndKnowsTheTimeToTheMicrosecond) {
  const Instant modified = Instant(std::chrono::microseconds(1'800'000'000'123'456));
  const auto file = folder_.write("f", "12345", modified);
  std::filesystem::create_symlink(file, at("link"));
  const auto status = fileStatus(at("link"));
  ASSERT_TRUE(status);
  EXPECT_TRUE(status->isRegular);
  EXPECT_EQ(status->size, 5u);
  EXPECT_EQ(status->modified, modified);
  EXPECT_TRUE(fileStatus(folder_.path())->isFolder);
}

TEST_F(Files, MakesFoldersForTheUserAlone) {
  makeFolders(at("a/b/c"));
  EXPECT_EQ(modeOf(at("a")), 0700u);
  EXPECT_EQ(modeOf(at("a/b/c")), 0700u);
  makeFolders(at("a/b/c"));
  makeFolders(at("d/e/"));
  EXPECT_TRUE(std::filesystem::is_directory(at("d/e")));
  folder_.write("file", "");
  EXPECT_THROW(makeFolders(at("file")), FileError);
  EXPECT_THROW(makeFolders(at("file/below")), FileError);
}

TEST_F(Files, AWriteReplacesTheFileWithTheModeGivenAndLeavesNothingElse) {
  const mode_t old = umask(0777);
  writeAtomically(at("f"), "one");
  writeAtomically(at("f"), "two", 0644);
  umask(old);
  EXPECT_EQ(readFile(at("f")), "two");
  EXPECT_EQ(modeOf(at("f")), 0644u);
  EXPECT_EQ(count(folder_.path()), 1u);
  writeAtomically(at("f"), "");
  EXPECT_EQ(readFile(at("f")), "");
  EXPECT_EQ(modeOf(at("f")), 0600u);
}

TEST_F(Files, AWriteThatFailsSaysWhatAndWhyAndLeavesTheOld) {
  folder_.write("folder/inside", "kept");
  try {
    writeAtomically(at("folder"), "new");
    FAIL() << "a folder was replaced";
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), HasSubstr("cannot replace " + at("folder").string() + ": "));
    EXPECT_EQ(error.code(), EISDIR);
  }
  EXPECT_EQ(readFile(at("folder/inside")), "kept");
  EXPECT_EQ(count(folder_.path()), 1u);

  folder_.write("file", "kept");
  EXPECT_THROW(writeAtomically(at("file/below"), "new"), FileError);
  EXPECT_THROW(writeAtomically(at("missing/f"), "new"), FileError);
  EXPECT_EQ(readFile(at("file")), "kept");
}

// The child replaces the file over and over until it is killed, wherever it is just then.
TEST_F(Files, ACrashAtAnyInstantLeavesTheOldFileOrTheNew) {
  const std::string contents[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
  writeAtomically(at("f"), contents[0]);
  for (int round = 0; round < 12; ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      close(ends[0]);
      for (int i = 0;; ++i) {
        writeAtomically(at("f"), contents[i % 2]);
        if (write(ends[1], "", 1) != 1) _exit(1);
      }
    }
    close(ends[1]);
    char byte = 0;
    for (int i = 0; i <= round % 4; ++i) ASSERT_EQ(read(ends[0], &byte, 1), 1);
    for (int look = 0; look <= round; ++look) {
      const auto seen = readFile(at("f"));
      ASSERT_TRUE(seen == contents[0] || seen == contents[1]) << "torn while it was written";
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);
    const auto left = readFile(at("f"));
    ASSERT_TRUE(left == contents[0] || left == contents[1]) << "torn by the crash";
  }
}

// Ends with the number of the first thing that is not so.
int renamesWhereNothingIsPromised(const std::filesystem::path& folder) {
  sock_filter rules[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  const sock_fprog program{.len = std::size(rules), .filter = rules};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
    return 1;
  if (!renameToFreeName(AT_FDCWD, folder / "a", AT_FDCWD, folder / "c")) return 2;
  if (renameToFreeName(AT_FDCWD, folder / "b", AT_FDCWD, folder / "c") || errno != EEXIST) return 3;
  return readFile(folder / "b") == "b" && readFile(folder / "c") == "a" ? 0 : 4;
}

TEST_F(Files, AFileSystemThatKeepsNoPromiseOfAFreeNameRenamesAndReplacesNothing) {
  folder_.write("a", "a");
  folder_.write("b", "b");
  EXPECT_EXIT(_exit(renamesWhereNothingIsPromised(folder_.path())), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ambrel
