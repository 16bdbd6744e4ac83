#include <algorithm>

#include "core/disk/Handles.h"
#include "tests/Matchers.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using test::Tree;

CleanupItem itemAt(const std::string& path, bool contentsOnly = false,
                   std::set<std::string, std::less<>> keeping = {}) {
  return {.url = path,
          .title = "t",
          .bytes = std::max<std::int64_t>(Tree::space(path), 0),
          .modified = {},
          .contentsOnly = contentsOnly,
          .keeping = std::move(keeping),
          .identity = identityOf(path)};
}

// Records what it is asked to move, and moves nothing.
struct Recorder {
  std::vector<std::string> asked;
  std::set<std::string> refused;
  std::vector<DiskAdvice::TrashRequest> requests;

  DiskAdvice::TrashMove move() {
    return [this](const DiskAdvice::TrashRequest& request) {
      asked.push_back(request.url);
      requests.push_back(request);
      if (refused.contains(request.url)) throw std::runtime_error("busy");
      return DiskAdvice::TrashPlace{};
    };
  }
};

class MoveToTrash : public testing::Test {
 protected:
  MoveToTrash() : home(tree.folder("home")) {}
  DiskAdvice::TrashReport move(const std::vector<CleanupItem>& items) {
    return DiskAdvice::moveToTrash(items, home, {}, recorder.move());
  }
  static std::vector<std::pair<std::string, StayReason>> stayed(const DiskAdvice::TrashReport& report) {
    std::vector<std::pair<std::string, StayReason>> out;
    for (const CleanupItem& item : report.failed) out.emplace_back(item.url, item.stayed.value());
    return out;
  }
  Tree tree;
  std::string home;
  Recorder recorder;
};

TEST_F(MoveToTrash, MovesItemsInOrderAndReportsTheirBytes) {
  tree.fill("home/a", 10'000);
  tree.fill("home/b/c", 20'000);
  tree.fill("home/d", 30'000);
  recorder.refused = {tree / "home/b"};
  const std::vector<CleanupItem> items{itemAt(tree / "home/d"), itemAt(tree / "home/b"), itemAt(tree / "home/a")};
  const auto report = move(items);
  EXPECT_THAT(recorder.asked, ElementsAre(tree / "home/d", tree / "home/b", tree / "home/a"));
  EXPECT_THAT(report.moved, ElementsAre(items[0], items[2]));
  EXPECT_THAT(stayed(report), ElementsAre(std::pair(items[1].url, StayReason::inUse)));
  EXPECT_EQ(report.bytesMoved, items[0].bytes + items[2].bytes);
  EXPECT_EQ(recorder.requests[0].identity, items[0].identity);
}

TEST_F(MoveToTrash, AFileWhoseSpaceTheFileSystemSettledAfterTheScanGoes) {
  tree.fill("home/a", 10'000);
  CleanupItem item = itemAt(tree / "home/a");
  item.bytes -= 4096;
  const auto report = move({item});
  EXPECT_EQ(report.moved.size(), 1u);
  EXPECT_EQ(report.bytesMoved, item.bytes + 4096);
}

TEST_F(MoveToTrash, ContentsGoChildByChildWithoutThoseKept) {
  for (const char* name : {"Homebrew/x", "com.app/y", "pip/z", ".hidden"})
    tree.fill("home/Library/Caches/" + std::string(name), 5000);
  const std::string caches = tree / "home/Library/Caches";
  const auto report = move({itemAt(caches, true, {"Homebrew", "pip", "missing"})});
  EXPECT_THAT(recorder.asked, UnorderedElementsAre(caches + "/com.app", caches + "/.hidden"));
  ASSERT_EQ(report.moved.size(), 1u);
  EXPECT_EQ(report.bytesMoved, Tree::allocated(caches + "/.hidden") + Tree::allocated(caches + "/com.app/y"));
  EXPECT_EQ(report.moved.front().bytes, report.bytesMoved);
  for (const auto& request : recorder.requests) EXPECT_EQ(request.folder, identityOf(caches));
}

TEST_F(MoveToTrash, AChildThatStaysFailsTheItemAndTheRestStillCounts) {
  tree.fill("home/.cache/a", 5000);
  tree.fill("home/.cache/b", 7000);
  recorder.refused = {tree / "home/.cache/b"};
  const auto report = move({itemAt(tree / "home/.cache", true)});
  EXPECT_THAT(recorder.asked, ElementsAre(tree / "home/.cache/a", tree / "home/.cache/b"));
  EXPECT_THAT(report.moved, IsEmpty());
  EXPECT_THAT(stayed(report), ElementsAre(std::pair(tree / "home/.cache", StayReason::inUse)));
  EXPECT_EQ(report.bytesMoved, Tree::allocated(tree / "home/.cache/a"));
  EXPECT_EQ(report.failed.front().bytes, Tree::allocated(tree / "home/.cache/b"));
}

TEST_F(MoveToTrash, ACacheThatGrewIsStillEmptied) {
  tree.fill("home/.cache/app/a", 5000);
  const CleanupItem item = itemAt(tree / "home/.cache/app", true);
  tree.fill("home/.cache/app/b", 5000);
  EXPECT_EQ(move({item}).moved.size(), 1u);
  EXPECT_EQ(move({itemAt(tree / "home/.cache")}).failed.size(), 1u) << "the cache folder itself never goes whole";
}

// A list that was made some time ago must not be acted on when the disk has moved on.
TEST_F(MoveToTrash, WhatChangedSinceItWasFoundStays) {
  struct Case {
    std::string name;
    std::function<void()> change;
  };
  const Case cases[] = {
      {"other content of the same length and dates",
       [&] {
         // Until the system's clock has ticked.
         for (const auto before = identityOf(tree / "home/file"); identityOf(tree / "home/file") == before;) {
           tree.fill("home/file", 10'000, 2);
           tree.date("home/file", test::someDay);
         }
       }},
      {"gone", [&] { std::filesystem::remove(tree / "home/file"); }},
      {"grown", [&] { tree.fill("home/file", 12'000); }},
      {"touched", [&] { tree.date("home/file", test::daysBefore(test::someDay, 1)); }},
      {"another file under its name",
       [&] {
         tree.fill("home/other", 10'000);
         tree.date("home/other", test::someDay);
         std::filesystem::rename(tree / "home/other", tree / "home/file");
       }},
      {"a link in its place",
       [&] {
         std::filesystem::rename(tree / "home/file", tree / "home/elsewhere");
         tree.link("home/file", tree / "home/elsewhere");
       }},
      {"a folder on its way became a link",
       [&] {
         std::filesystem::rename(home, tree / "moved home");
         tree.link("home", tree / "moved home");
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    tree.fill("home/file", 10'000);
    tree.date("home/file", test::someDay);
    const CleanupItem item = itemAt(tree / "home/file");
    c.change();
    const auto report = move({item});
    const bool isGone = c.name == "gone";
    EXPECT_THAT(stayed(report), ElementsAre(std::pair(item.url, isGone ? StayReason::gone : StayReason::changed)));
    if (isGone) {
      EXPECT_EQ(report.failed.front().bytes, 0);
    }
    EXPECT_THAT(recorder.asked, IsEmpty());
    std::filesystem::remove(tree / "home/file");
    std::filesystem::remove(tree / "home/elsewhere");
  }
}

TEST_F(MoveToTrash, WhatChangedDeepWithinOrWasNeverIdentifiedStays) {
  tree.fill("home/web/node_modules/a/b/c", 5000);
  CleanupItem deep = itemAt(tree / "home/web/node_modules");
  tree.fill("home/web/node_modules/a/b/d", 5000);
  EXPECT_THAT(stayed(move({deep})), ElementsAre(std::pair(deep.url, StayReason::changed)));
  deep = itemAt(deep.url);
  deep.identity.reset();
  EXPECT_EQ(move({deep}).failed.size(), 1u);
  deep.contentsOnly = true;
  EXPECT_EQ(move({deep}).failed.size(), 1u);
  EXPECT_THAT(recorder.asked, IsEmpty());
}

// At least one copy stays, decided here and not by what someone selected.
TEST_F(MoveToTrash, ADuplicateGoesOnlyWhileTheKeptCopyIsWhatItWas) {
  const auto withKept = [&] {
    tree.fill("home/kept", 9000);
    tree.fill("home/copy", 9000);
    CleanupItem item = itemAt(tree / "home/copy");
    item.kept = KeptCopy{.url = tree / "home/kept", .identity = *identityOf(tree / "home/kept")};
    return item;
  };
  CleanupItem item = withKept();
  EXPECT_EQ(move({item}).moved.size(), 1u);
  item = withKept();
  std::filesystem::remove(tree / "home/kept");
  EXPECT_EQ(move({item}).failed.size(), 1u);
  item = withKept();
  while (identityOf(tree / "home/kept") == item.kept->identity) tree.fill("home/kept", 9000, 3);
  EXPECT_EQ(move({item}).failed.size(), 1u);
}

// Wherever a Trash is, and by whatever path it is reached: what is in one goes when it is emptied.
TEST_F(MoveToTrash, ADeletedFileIsNoCopyThatStays) {
  for (const char* place : {"home/.local/share/Trash/files", "home/.Trash", "stick/.Trash-1000/files/sub",
                            "stick/.Trash/1000/files", "elsewhere/share/Trash/files", "renamed/files/deep/er"}) {
    SCOPED_TRACE(place);
    tree.folder("elsewhere/share/Trash/info");
    tree.write("renamed/info/kept.trashinfo", "[Trash Info]");
    const std::string keptPath = tree.fill(place + std::string("/kept"), 9000);
    tree.fill("home/copy", 9000);
    CleanupItem copy = itemAt(tree / "home/copy");
    copy.kept = KeptCopy{.url = keptPath, .identity = *identityOf(keptPath)};
    EXPECT_THAT(stayed(move({copy})), ElementsAre(std::pair(copy.url, StayReason::noCopy)));
    // Nor is it moved from one Trash to another.
    EXPECT_THAT(stayed(move({itemAt(keptPath)})), ElementsAre(std::pair(keptPath, StayReason::isDeleted)));
    EXPECT_THAT(recorder.asked, IsEmpty());
  }
}

// Also when its duplicates went some time ago, and nothing but a folder with it is chosen now.
TEST_F(MoveToTrash, AKeptCopyStaysThroughAllMovesOfItsScan) {
  tree.fill("home/archive/kept", 9000);
  const KeptCopy kept{.url = tree / "home/archive/kept", .identity = *identityOf(tree / "home/archive/kept")};
  const auto report =
      DiskAdvice::moveToTrash({itemAt(tree / "home/archive"), itemAt(kept.url)}, home, {kept}, recorder.move());
  EXPECT_THAT(stayed(report), ElementsAre(std::pair(tree / "home/archive", StayReason::keptCopy),
                                          std::pair(kept.url, StayReason::keptCopy)));
  EXPECT_THAT(recorder.asked, IsEmpty());
}

// Also when both were found, one as a duplicate and its kept copy by another rule, and both were chosen.
TEST_F(MoveToTrash, OfEqualFilesOneStaysAlthoughAllWereChosen) {
  tree.fill("home/archive/kept", 9000);
  tree.fill("home/copy", 9000);
  tree.fill("home/another copy", 9000);
  CleanupItem copy = itemAt(tree / "home/copy"), another = itemAt(tree / "home/another copy");
  copy.kept = another.kept =
      KeptCopy{.url = tree / "home/archive/kept", .identity = *identityOf(tree / "home/archive/kept")};
  const CleanupItem kept = itemAt(tree / "home/archive/kept"), holder = itemAt(tree / "home/archive");
  EXPECT_THAT(stayed(move({kept, copy, another, holder})),
              ElementsAre(std::pair(kept.url, StayReason::keptCopy), std::pair(holder.url, StayReason::keptCopy)));
  EXPECT_THAT(recorder.asked, ElementsAre(copy.url, another.url));
}

// A link inside a cache goes as the link that it is.
TEST_F(MoveToTrash, LinksInContentsAreNotFollowed) {
  tree.fill("outside/precious", 5000);
  tree.folder("home/.cache/app");
  tree.link("home/.cache/app/link", tree / "outside");
  move({itemAt(tree / "home/.cache/app", true)});
  EXPECT_THAT(recorder.asked, ElementsAre(tree / "home/.cache/app/link"));
  EXPECT_EQ(recorder.requests.front().identity, identityOf(tree / "home/.cache/app/link"));
}

TEST_F(MoveToTrash, AContentsFolderThatBecameALinkIsNotEmptied) {
  tree.fill("home/Documents/thesis", 5000);
  tree.fill("home/.cache/app/x", 5000);
  const CleanupItem item = itemAt(tree / "home/.cache/app", true);
  std::filesystem::remove_all(tree / "home/.cache/app");
  tree.link("home/.cache/app", tree / "home/Documents");
  EXPECT_EQ(move({item}).failed.size(), 1u);
  EXPECT_THAT(recorder.asked, IsEmpty());
}

TEST_F(MoveToTrash, MainFoldersFailWithNoAttempt) {
  tree.fill("home/Downloads/a.zip", 5000);
  tree.link("home/shortcut", tree / "home/Downloads");
  std::vector<CleanupItem> items;
  for (const std::string& path : {tree / "home/Downloads", tree / "home/Downloads/", tree / "home/./Downloads",
                                  tree / "home/Downloads/../Downloads", tree / "home/shortcut", home, tree.path(),
                                  std::string("/"), tree / "home/shortcut/.."})
    for (const bool contentsOnly : {false, true}) {
      items.push_back(itemAt(tree / "home/Downloads", contentsOnly));
      items.back().url = path;
    }
  const auto report = move(items);
  EXPECT_EQ(report.failed.size(), items.size());
  EXPECT_THAT(recorder.asked, IsEmpty());
  EXPECT_EQ(move({itemAt(tree / "home/Downloads/a.zip")}).moved.size(), 1u);
}

// What cannot be looked at may have something mounted in it, which would be emptied with the Trash.
TEST_F(MoveToTrash, WhatCannotBeLookedAtStaysAlsoInACache) {
  tree.fill("home/.cache/app/locked/file", 5000);
  tree.fill("home/.cache/other", 5000);
  chmod((tree / "home/.cache/app/locked").c_str(), 0);
  const CleanupItem item = itemAt(tree / "home/.cache", true);
  DiskAdvice::TrashReport report;
  {
    const test::Unprivileged drop;
    report = move({item});
  }
  chmod((tree / "home/.cache/app/locked").c_str(), 0755);
  EXPECT_THAT(recorder.asked, ElementsAre(tree / "home/.cache/other"));
  EXPECT_THAT(stayed(report), ElementsAre(std::pair(item.url, StayReason::unreadable)));
}

class MainFolders : public testing::Test {
 protected:
  MainFolders() : home(tree.folder("home/user")) {
    for (const char* name : {"Documents", "Bilder", "Documents/inner", "other", ".config", ".local/share/Trash"})
      tree.folder("home/user/" + std::string(name));
    tree.write("home/user/.config/user-dirs.dirs", "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
    tree.link("home/user/to-documents", tree / "home/user/Documents");
    tree.link("home/user/to-inner", tree / "home/user/Documents/inner");
    tree.link("alias", home);
  }
  Tree tree;
  std::string home;
};

TEST_F(MainFolders, AreKnownByEverySpelling) {
  for (const char* path : {"/", "//", "/proc", "/sys/", "/private/var/vm"})
    EXPECT_TRUE(DiskAdvice::isMainFolder(path, home)) << path;
  for (const char* below : {"home", ".", "alias", "alias/Documents", "alias/"})
    EXPECT_TRUE(DiskAdvice::isMainFolder(tree / below, home)) << below;
  for (const char* below :
       {"", "/", "/.", "/Desktop", "/Documents", "/Documents/", "//Documents", "/./Documents", "/other/../Documents",
        "/Documents/inner/..", "/to-documents", "/to-documents/", "/to-inner/..",
        // By name, there or not.
        "/Library", "/Movies", "/Music", "/Pictures", "/Public", "/Applications", "/.Trash", "/Downloads", "/Videos",
        "/Bilder", "/.config", "/.local", "/.local/share/Trash"})
    EXPECT_TRUE(DiskAdvice::isMainFolder(home + below, home)) << below;
  // The home may be spelled in its own way too.
  EXPECT_TRUE(DiskAdvice::isMainFolder(home + "/Documents", tree / "alias/"));
}

TEST_F(MainFolders, WhatIsInThemIsNone) {
  for (const char* below : {"/other", "/Documents/inner", "/to-inner", "/Documentsx", "/documents", "/.cache",
                            "/.cache/app", "/.local/share/Trash/files"})
    EXPECT_FALSE(DiskAdvice::isMainFolder(home + below, home)) << below;
  EXPECT_FALSE(DiskAdvice::isMainFolder("/tmp/x", home));
}

}  // namespace
}  // namespace ambrel
