// Scans across mounts. The program gives itself a mount namespace, so that nothing is mounted for anyone else; where
// the system forbids that, the tests are skipped.

#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

void writeTo(const char* path, const std::string& text) { std::ofstream(path) << text; }

bool enterNamespace() {
  const uid_t uid = getuid();
  const gid_t gid = getgid();
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  writeTo("/proc/self/setgroups", "deny");
  writeTo("/proc/self/uid_map", "0 " + std::to_string(uid) + " 1");
  writeTo("/proc/self/gid_map", "0 " + std::to_string(gid) + " 1");
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

class DiskMounts : public testing::Test {
 protected:
  static void SetUpTestSuite() { isAvailable_ = enterNamespace(); }
  void SetUp() override {
    if (!isAvailable_) GTEST_SKIP() << "mounting is not permitted here";
  }
  static inline bool isAvailable_ = false;
};

TEST_F(DiskMounts, OtherVolumesAndBindMountsAreNotEntered) {
  test::Tree tree;
  tree.fill("own/file", 10'000);
  tree.fill("deep/a/b/c/file", 10'000);
  for (const char* place : {"volume", "bind", "deep/a/b/c/volume", "deep/a/b/c/loop"}) tree.folder(place);
  ASSERT_EQ(mount("none", (tree / "volume").c_str(), "tmpfs", 0, nullptr), 0);
  ASSERT_EQ(mount("none", (tree / "deep/a/b/c/volume").c_str(), "tmpfs", 0, nullptr), 0);
  // The same volume again under another place, and the tree within itself.
  ASSERT_EQ(mount((tree / "own").c_str(), (tree / "bind").c_str(), nullptr, MS_BIND, nullptr), 0);
  ASSERT_EQ(mount(tree.path().c_str(), (tree / "deep/a/b/c/loop").c_str(), nullptr, MS_BIND, nullptr), 0);
  tree.fill("volume/file", 10'000);
  tree.fill("deep/a/b/c/volume/file", 10'000);

  const DiskScanResult result = DiskScanner{}.scan(tree.path());
  EXPECT_EQ(result.root->fileCount(), 2);
  for (const char* place : {"volume", "bind", "deep/a/b/c/volume", "deep/a/b/c/loop"})
    EXPECT_FALSE(find(*result.root, tree / place)) << place;
  EXPECT_TRUE(result.skipped.empty());

  // A volume can be chosen as the root.
  EXPECT_EQ(DiskScanner{}.scan(tree / "volume").root->fileCount(), 1);

  for (const char* place : {"deep/a/b/c/loop", "bind", "deep/a/b/c/volume", "volume"})
    EXPECT_EQ(umount2((tree / place).c_str(), MNT_DETACH), 0);
}

TEST_F(DiskMounts, AMainFolderIsKnownUnderABindMount) {
  test::Tree tree;
  tree.folder("home/Documents");
  tree.folder("elsewhere");
  const std::string home = tree / "home";
  EXPECT_FALSE(DiskAdvice::isMainFolder(tree / "elsewhere", home));
  ASSERT_EQ(mount((tree / "home/Documents").c_str(), (tree / "elsewhere").c_str(), nullptr, MS_BIND, nullptr), 0);
  EXPECT_TRUE(DiskAdvice::isMainFolder(tree / "elsewhere", home));
  EXPECT_EQ(umount2((tree / "elsewhere").c_str(), MNT_DETACH), 0);
}

// It would go along with the folder, and be emptied with the Trash.
TEST_F(DiskMounts, AFolderThatHoldsAVolumeStays) {
  test::Tree tree;
  tree.fill("home/own/file", 5000);
  tree.fill("home/web/node_modules/a", 5000);
  tree.fill("home/.cache/app/b", 5000);
  tree.fill("home/.cache/other", 5000);
  CleanupItem whole, contents;
  whole.url = tree / "home/web/node_modules";
  whole.bytes = test::Tree::space(whole.url);
  contents.url = tree / "home/.cache";
  contents.contentsOnly = true;
  for (const char* place : {"home/web/node_modules/volume", "home/.cache/app/deep/volume"}) {
    tree.folder(place);
    ASSERT_EQ(mount("none", (tree / place).c_str(), "tmpfs", 0, nullptr), 0);
  }
  // A single file can be mounted too, in a folder and as a child of the cache.
  CleanupItem holder;
  holder.url = tree.folder("home/web/target");
  for (const char* place : {"home/web/target/file", "home/.cache/file"}) {
    tree.fill(place, 1000);
    ASSERT_EQ(mount((tree / "home/own/file").c_str(), (tree / place).c_str(), nullptr, MS_BIND, nullptr), 0);
  }
  holder.bytes = test::Tree::space(holder.url);
  holder.identity = identityOf(holder.url);
  whole.identity = identityOf(whole.url);
  contents.identity = identityOf(contents.url);
  std::vector<std::string> asked;
  const auto report = DiskAdvice::moveToTrash({whole, holder, contents}, tree / "home", {},
                                              [&](const DiskAdvice::TrashRequest& request) {
                                                asked.push_back(request.url);
                                                return DiskAdvice::TrashPlace{};
                                              });
  EXPECT_EQ(report.failed.size(), 3u);
  for (const CleanupItem& item : report.failed) EXPECT_EQ(item.stayed, StayReason::holdsMount) << item.url;
  EXPECT_EQ(asked, std::vector<std::string>{tree / "home/.cache/other"});
  for (const char* place :
       {"home/web/node_modules/volume", "home/.cache/app/deep/volume", "home/web/target/file", "home/.cache/file"})
    EXPECT_EQ(umount2((tree / place).c_str(), MNT_DETACH), 0);
}

// Its dates of opening are those of its making.
TEST_F(DiskMounts, WhereOpeningIsNotNotedNoFileIsCalledUnused) {
  test::Tree tree;
  tree.folder("volume");
  const Instant now = test::someDay, longAgo = test::daysBefore(now, 500);
  DiskAnalyzer analyzer;
  analyzer.largeFileBytes = 10'000;
  for (const unsigned long flag : {MS_RELATIME, MS_NOATIME}) {
    ASSERT_EQ(mount("none", (tree / "volume").c_str(), "tmpfs", flag, nullptr), 0);
    tree.fill("volume/film", 20'000);
    tree.date("volume/film", longAgo);
    const DiskTree root = DiskScanner{}.scan(tree / "volume").root;
    const auto findings = analyzer.analyze(*root, tree / "home", {}, now, Calendar("UTC", "en_US"));
    EXPECT_EQ(findings.size(), flag == MS_NOATIME ? 0u : 1u);
    EXPECT_EQ(find(*root, tree / "volume/film")->accessed().has_value(), flag != MS_NOATIME);
    EXPECT_EQ(umount2((tree / "volume").c_str(), MNT_DETACH), 0);
  }
}

}  // namespace
}  // namespace ambrel
