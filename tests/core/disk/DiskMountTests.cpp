// Scans and moves across mounts.

#include "tests/core/disk/MountTest.h"

namespace ambrel {
namespace {

using DiskMounts = test::MountTest;

TEST_F(DiskMounts, OtherVolumesAndBindMountsAreNotEntered) {
  test::Tree tree;
  tree.fill("own/file", 10'000);
  tree.fill("deep/a/b/c/file", 10'000);
  for (const char* place : {"volume", "bind", "deep/a/b/c/volume", "deep/a/b/c/loop"}) tree.folder(place);
  mountMemory(tree / "volume");
  mountMemory(tree / "deep/a/b/c/volume");
  // The same volume again under another place, and the tree within itself.
  bindMount(tree / "own", tree / "bind");
  bindMount(tree.path(), tree / "deep/a/b/c/loop");
  tree.fill("volume/file", 10'000);
  tree.fill("deep/a/b/c/volume/file", 10'000);

  const DiskScanResult result = DiskScanner{}.scan(tree.path());
  EXPECT_EQ(result.root->fileCount(), 2);
  for (const char* place : {"volume", "bind", "deep/a/b/c/volume", "deep/a/b/c/loop"})
    EXPECT_FALSE(find(*result.root, tree / place)) << place;
  EXPECT_TRUE(result.skipped.empty());

  // A volume can be chosen as the root.
  EXPECT_EQ(DiskScanner{}.scan(tree / "volume").root->fileCount(), 1);

  for (const char* place : {"deep/a/b/c/loop", "bind", "deep/a/b/c/volume", "volume"}) unmount(tree / place);
}

TEST_F(DiskMounts, AMainFolderIsKnownUnderABindMount) {
  test::Tree tree;
  tree.folder("home/Documents");
  tree.folder("elsewhere");
  const std::string home = tree / "home";
  EXPECT_FALSE(DiskAdvice::isMainFolder(tree / "elsewhere", home));
  bindMount(tree / "home/Documents", tree / "elsewhere");
  EXPECT_TRUE(DiskAdvice::isMainFolder(tree / "elsewhere", home));
  unmount(tree / "elsewhere");
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
    mountMemory(tree / place);
  }
  // A single file can be mounted too, in a folder and as a child of the cache.
  CleanupItem holder;
  holder.url = tree.folder("home/web/target");
  for (const char* place : {"home/web/target/file", "home/.cache/file"}) {
    tree.fill(place, 1000);
    bindMount(tree / "home/own/file", tree / place);
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
    unmount(tree / place);
}

// Its dates of opening are those of its making.
TEST_F(DiskMounts, WhereOpeningIsNotNotedNoFileIsCalledUnused) {
  test::Tree tree;
  tree.folder("volume");
  const Instant now = test::someDay, longAgo = test::daysBefore(now, 500);
  DiskAnalyzer analyzer;
  analyzer.largeFileBytes = 10'000;
  for (const unsigned long flag : {MS_RELATIME, MS_NOATIME}) {
    mountMemory(tree / "volume", flag);
    tree.fill("volume/film", 20'000);
    tree.date("volume/film", longAgo);
    const DiskTree root = DiskScanner{}.scan(tree / "volume").root;
    const auto findings = analyzer.analyze(*root, tree / "home", {}, now, Calendar("UTC", "en_US"));
    EXPECT_EQ(findings.size(), flag == MS_NOATIME ? 0u : 1u);
    EXPECT_EQ(find(*root, tree / "volume/film")->accessed().has_value(), flag != MS_NOATIME);
    unmount(tree / "volume");
  }
}

}  // namespace
}  // namespace ambrel
