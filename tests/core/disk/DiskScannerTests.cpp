#include <atomic>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#include "core/disk/DiskScanner.h"
#include "core/disk/Handles.h"
#include "tests/Matchers.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using Kind = DiskItem::Kind;
using test::namesOf;
using test::Tree;

constexpr std::int64_t keepAll = 0;

DiskScanResult scan(const std::string& path, std::int64_t minItemSize = keepAll) {
  return DiskScanner{.minItemSize = minItemSize}.scan(path);
}

TEST(DiskScanner, ReadsFilesFoldersAndTheirDates) {
  Tree tree;
  tree.fill("Docs/report.pdf", 20'000);
  tree.fill("Docs/deep/er/note.txt", 5'000);
  tree.fill("movie.mp4", 300'000);
  tree.folder("empty");
  const Instant opened = test::daysBefore(test::someDay, 3);
  tree.date("movie.mp4", test::someDay, opened);

  const DiskScanResult result = scan(tree.path());
  EXPECT_THAT(result.skipped, IsEmpty());
  EXPECT_THAT(namesOf(*result.root), ElementsAre("movie.mp4", "Docs", "empty"));
  const DiskItem* movie = find(*result.root, tree / "movie.mp4");
  ASSERT_TRUE(movie);
  EXPECT_EQ(movie->kind(), Kind::file);
  EXPECT_EQ(movie->size(), Tree::allocated(tree / "movie.mp4"));
  EXPECT_EQ(movie->modified(), test::someDay);
  EXPECT_EQ(movie->accessed(), opened);
  EXPECT_EQ(find(*result.root, tree / "empty")->fileCount(), 0);
  EXPECT_EQ(result.root->fileCount(), 3);
  EXPECT_EQ(find(*result.root, tree / "Docs")->size(),
            Tree::allocated(tree / "Docs/report.pdf") + Tree::allocated(tree / "Docs/deep/er/note.txt"));
}

TEST(DiskScanner, CountsTheBlocksOfEveryName) {
  Tree tree;
  const std::string sparse = tree.write("sparse", "x");
  ASSERT_EQ(truncate(sparse.c_str(), 1 << 30), 0);
  std::filesystem::create_hard_link(sparse, tree / "second name");
  EXPECT_EQ(scan(tree.path()).root->size(), 2 * Tree::allocated(sparse));
  EXPECT_LT(Tree::allocated(sparse), 1 << 20);
  const std::string odd = "bad\xff\xfe \"quote\"\n$(x)/\xc3\x28";
  tree.fill(odd, 1000);
  EXPECT_TRUE(find(*scan(tree.path()).root, tree / odd)) << "a name may hold any bytes";
}

TEST(DiskScanner, SymbolicLinksAndSpecialFilesAddNothing) {
  Tree tree, other;
  other.fill("huge", 500'000);
  tree.fill("file", 1000);
  tree.link("to-folder", other.path());
  tree.link("to-file", other / "huge");
  tree.link("loop", tree.path());
  tree.link("broken", "/nowhere");
  ASSERT_EQ(mkfifo((tree / "pipe").c_str(), 0600), 0);
  const DiskScanResult result = scan(tree.path());
  EXPECT_THAT(namesOf(*result.root), ElementsAre("file"));
  EXPECT_THAT(result.skipped, IsEmpty());
}

TEST(DiskScanner, UnreadableFoldersAreSkippedAndNamed) {
  Tree tree;
  tree.fill("open/file", 1000);
  tree.fill("closed/secret", 1000);
  tree.fill("a/b/c/closed/secret", 1000);
  ASSERT_EQ(chmod((tree / "closed").c_str(), 0), 0);
  ASSERT_EQ(chmod((tree / "a/b/c/closed").c_str(), 0), 0);
  {
    const test::Unprivileged drop;
    const DiskScanResult result = scan(tree.path());
    EXPECT_THAT(result.skipped, UnorderedElementsAre(tree / "closed", tree / "a/b/c/closed"));
    EXPECT_EQ(find(*result.root, tree / "closed")->size(), 0);
    EXPECT_EQ(result.root->fileCount(), 1);
  }
  chmod((tree / "closed").c_str(), 0755);
  chmod((tree / "a/b/c/closed").c_str(), 0755);
}

TEST(DiskScanner, AnUnreadableRootThrows) {
  Tree tree;
  tree.folder("closed");
  chmod((tree / "closed").c_str(), 0);
  {
    const test::Unprivileged drop;
    EXPECT_THROW(scan(tree / "closed"), FileError);
  }
  EXPECT_THROW(scan(tree / "missing"), FileError);
  EXPECT_THROW(scan(tree.write("file", "x")), FileError);
  chmod((tree / "closed").c_str(), 0755);
}

TEST(DiskScanner, ExclusionsMatchWholePathsOfFoldersAlone) {
  Tree tree;
  tree.fill("out/file", 1000);
  tree.fill("outside/file", 1000);
  tree.fill("in/out/file", 1000);
  tree.fill("kept", 1000);
  DiskScanner scanner;
  scanner.excluded = {tree / "out", tree / "kept", tree / "in/out", "out"};
  const DiskScanResult result = scanner.scan(tree.path());
  EXPECT_FALSE(find(*result.root, tree / "out"));
  EXPECT_FALSE(find(*result.root, tree / "in/out"));
  EXPECT_TRUE(find(*result.root, tree / "in"));
  EXPECT_TRUE(find(*result.root, tree / "outside/file"));
  EXPECT_TRUE(find(*result.root, tree / "kept"));
}

TEST(DiskScanner, KnowsPackages) {
  Tree tree;
  for (const char* file : {"Editor.app/Contents/bin", "Tool.AppDir/x", "extracted/AppRun", "extracted/tool.desktop",
                           "Downloads/AppRun", "plain.folder/x", ".app/x"})
    tree.fill(file, 1000);
  const DiskScanResult result = scan(tree.path());
  std::set<std::string> packages;
  for (const DiskItem& child : result.root->children())
    if (child.kind() == Kind::package) packages.emplace(child.name());
  EXPECT_THAT(packages, ElementsAre("Editor.app", "Tool.AppDir", "extracted"));
  EXPECT_TRUE(find(*result.root, tree / "Editor.app/Contents/bin"));
}

// Paths of more than PATH_MAX bytes, in more levels than folders are kept open.
TEST(DiskScanner, GoesDeeperThanPathsMayBeLong) {
  Tree tree;
  const std::string name(100, 'd');
  FileDescriptor at(open(tree.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  constexpr int depth = 80;
  for (int i = 0; i < depth; ++i) {
    ASSERT_EQ(mkdirat(at.get(), name.c_str(), 0755), 0);
    ASSERT_EQ(mkdirat(at.get(), "side", 0755), 0);
    // A second folder after the deep one: its parent has to be found again on the way back.
    const FileDescriptor side(openat(at.get(), "side/file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    ASSERT_EQ(write(side.get(), "x", 1), 1);
    at = FileDescriptor(openat(at.get(), name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_TRUE(at);
  }
  const DiskScanResult result = scan(tree.path());
  EXPECT_EQ(result.root->fileCount(), depth);
  EXPECT_THAT(result.skipped, IsEmpty());
  const DiskItem* node = result.root.get();
  int levels = 0;
  for (;;) {
    const auto children = node->children();
    const auto next =
        std::find_if(children.begin(), children.end(), [&](const DiskItem& c) { return c.name() == name; });
    if (next == children.end()) break;
    node = &*next;
    ++levels;
  }
  EXPECT_EQ(levels, depth);
  EXPECT_GT(node->url().size(), 8000u);
  EXPECT_TRUE(openFolder(node->url()));
}

// The share of a whole tree is one, however its folders are nested and whatever could not be entered.
TEST(DiskScanner, ReportsEveryFiveHundredFilesAndAShareThatGrowsToOne) {
  Tree tree;
  for (int i = 0; i < 1200; ++i)
    tree.write("f" + std::to_string(i % 3) + "/g" + std::to_string(i % 5) + "/h" + std::to_string(i % 7) + "/" +
                   std::to_string(i),
               "");
  tree.folder("empty");
  tree.folder("closed");
  chmod((tree / "closed").c_str(), 0);
  std::mutex lock;
  std::vector<std::pair<DiskScanProgress, double>> reports;
  std::int64_t size = 0;
  {
    const test::Unprivileged drop;
    const auto watch = [&](const DiskScanProgress& progress, double share) {
      const std::scoped_lock hold(lock);
      reports.emplace_back(progress, share);
    };
    size = DiskScanner{}.scan(tree.path(), DiskScanWatch{.progress = watch}).root->size();
  }
  chmod((tree / "closed").c_str(), 0755);
  std::vector<std::int64_t> files;
  for (const auto& [report, share] : reports) {
    files.push_back(report.files);
    EXPECT_TRUE(share > 0 && share <= 1 + 1e-9) << share;
  }
  EXPECT_THAT(files, UnorderedElementsAre(500, 1000, 1200));
  EXPECT_EQ(reports.back(), std::pair(DiskScanProgress{.files = 1200, .bytes = size}, 1.0));
}

TEST(DiskScanner, NamesItsUpperFoldersAndShowsEachWhenItIsRead) {
  Tree tree;
  tree.fill("a/deep/er/file", 20'000);
  tree.fill("b/file", 10'000);
  tree.folder("empty");
  tree.fill("file", 5000);
  std::mutex lock;
  std::vector<std::string> listed;
  std::map<std::string, std::int64_t> finished;
  const DiskScanResult result = DiskScanner{}.scan(
      tree.path(), DiskScanWatch{.listed = [&](const std::vector<std::string>& names) { listed = names; },
                                 .finished =
                                     [&](const DiskItem& folder) {
                                       const std::scoped_lock hold(lock);
                                       EXPECT_FALSE(listed.empty());
                                       finished[std::string(folder.name())] = folder.size();
                                     }});
  EXPECT_THAT(listed, UnorderedElementsAre("a", "b", "empty"));
  for (const std::string& name : listed) EXPECT_EQ(finished.at(name), find(*result.root, tree / name)->size()) << name;
}

TEST(DiskScanner, CancellingThrowsAndEntersNoFurtherFolder) {
  Tree tree;
  for (int folder = 0; folder < 40; ++folder)
    for (int i = 0; i < 100; ++i) tree.write("d/e/" + std::to_string(folder) + "/" + std::to_string(i), "");
  std::stop_source stop;
  std::atomic<std::int64_t> last = 0;
  const auto onProgress = [&](const DiskScanProgress& progress) {
    stop.request_stop();
    last = progress.files;
  };
  EXPECT_THROW(DiskScanner{}.scan(tree.path(), onProgress, stop.get_token()), Cancelled);
  EXPECT_EQ(last, 500);

  std::stop_source before;
  before.request_stop();
  int calls = 0;
  EXPECT_THROW(DiskScanner{}.scan(
                   tree.path(), [&](const DiskScanProgress&) { ++calls; }, before.get_token()),
               Cancelled);
  EXPECT_EQ(calls, 0);
}

// Folders appear, vanish and turn into files while they are read.
TEST(DiskScanner, SurvivesATreeThatChangesUnderIt) {
  Tree tree;
  for (int i = 0; i < 30; ++i) tree.fill("steady/" + std::to_string(i % 5) + "/s/" + std::to_string(i), 100);
  std::jthread vandal([&](std::stop_token stop) {
    for (unsigned round = 0; !stop.stop_requested(); ++round) {
      const std::string path = tree / ("shaky/" + std::to_string(round % 3));
      std::error_code ignored;
      std::filesystem::create_directories(path + "/x/y/z", ignored);
      std::filesystem::remove_all(path, ignored);
      if (round % 2) std::filesystem::create_symlink("/", path, ignored);
      std::filesystem::remove(path, ignored);
    }
  });
  for (int round = 0; round < 50; ++round) {
    const DiskScanResult result = scan(tree.path());
    EXPECT_EQ(find(*result.root, tree / "steady")->fileCount(), 30);
    EXPECT_EQ(result.root->fileCount(), 30);
  }
}

TEST(DiskScanner, RootsAreSpelledInManyWays) {
  Tree tree;
  tree.fill("sub/file", 1000);
  for (const std::string& path : {tree.path() + "/", tree.path() + "/./", tree / "sub/..", tree.path() + "//"})
    EXPECT_EQ(scan(path).root->url(), tree.path()) << path;
}

TEST(AllocatedSpace, AgreesWithAScan) {
  Tree tree;
  tree.fill("folder/a", 10'000);
  tree.fill("folder/b/c", 50'000);
  tree.link("folder/link", "/usr");
  EXPECT_EQ(Tree::space(tree / "folder"), find(*scan(tree.path()).root, tree / "folder")->size());
  tree.fill("file", 12'345);
  EXPECT_EQ(Tree::space(tree / "file"), Tree::allocated(tree / "file"));
  tree.link("link", tree / "folder");
  EXPECT_EQ(Tree::space(tree / "link"), 0);
  EXPECT_FALSE(allocatedSpace(openFolder(tree.path()), "missing"));
  chmod((tree / "folder/b").c_str(), 0);
  {
    const test::Unprivileged drop;
    const auto space = allocatedSpace(openFolder(tree.path()), "folder");
    ASSERT_TRUE(space);
    EXPECT_FALSE(space->isWhole);
    EXPECT_EQ(space->bytes, Tree::allocated(tree / "folder/a"));
  }
  chmod((tree / "folder/b").c_str(), 0755);
}

}  // namespace
}  // namespace ambrel
