#include <random>

#include "core/disk/DiskItem.h"
#include "tests/Matchers.h"
#include "tests/core/disk/SyntheticTree.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using Kind = DiskItem::Kind;
using test::someDay;

DiskFolderBuilder folder(std::string name, std::int64_t minItemSize, Instant modified = someDay) {
  return DiskFolderBuilder(std::move(name), modified, minItemSize);
}

TEST(DiskItem, FoldsWhatIsBelowTheThresholdIntoOneNode) {
  struct Case {
    std::string name;
    std::int64_t minItemSize;
    std::vector<std::int64_t> sizes;
    std::vector<std::int64_t> children;  // sizes, largest first
    bool folds;
  };
  const Case cases[] = {{"one small file", 1000, {100}, {100}, true},
                        {"exactly the threshold stays", 1000, {1000}, {1000}, false},
                        {"small ones together", 1000, {999, 1, 5000, 2}, {5000, 1002}, true},
                        {"the folded node can be the largest", 1000, {900, 900, 1000}, {1800, 1000}, true},
                        {"threshold 0 folds nothing", 0, {0, 7, 3}, {7, 3, 0}, false},
                        {"empty", 1000, {}, {}, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    auto builder = folder("/base", c.minItemSize);
    for (const std::int64_t size : c.sizes) builder.addFile("f", size, someDay, someDay);
    const DiskTree tree = makeTree(std::move(builder).build(Kind::folder));
    std::vector<std::int64_t> sizes;
    bool hasSmall = false;
    for (const DiskItem& child : tree->children()) {
      sizes.push_back(child.size());
      hasSmall |= child.kind() == Kind::smallItems;
    }
    EXPECT_EQ(sizes, c.children);
    EXPECT_EQ(hasSmall, c.folds);
    EXPECT_EQ(tree->fileCount(), static_cast<std::int64_t>(c.sizes.size()));
  }
}

TEST(DiskItem, NamesAndPathsFollowTheTree) {
  auto inner = folder("inner", 1000);
  inner.addFile("movie.mp4", 5000, someDay, someDay);
  inner.addFile("note", 10, someDay, someDay);
  auto outer = folder("/home/u", 1000);
  outer.add(std::move(inner).build(Kind::package));
  const DiskTree tree = makeTree(std::move(outer).build(Kind::folder));

  EXPECT_EQ(tree->name(), "u");
  EXPECT_EQ(tree->id(), "/home/u");
  const DiskItem& child = tree->children().front();
  EXPECT_EQ(child.url(), "/home/u/inner");
  EXPECT_THAT(test::namesOf(child), ElementsAre("movie.mp4", "Smaller items"));
  const DiskItem& small = child.children().back();
  EXPECT_EQ(small.url(), "/home/u/inner");
  EXPECT_EQ(small.id(), "/home/u/inner/\x01small");
  EXPECT_EQ(small.accessed(), std::nullopt);
  EXPECT_EQ(child.accessed(), std::nullopt);
  EXPECT_EQ(child.children().front().accessed(), someDay);

  auto etc = folder("etc", 0), root = folder("/", 0);
  root.add(std::move(etc).build(Kind::folder));
  DiskTree top = makeTree(std::move(root).build(Kind::folder));
  EXPECT_EQ(top->name(), "/");
  const DiskTree kept = shared(top, top->children().front());
  top.reset();
  EXPECT_EQ(kept->url(), "/etc") << "a node keeps its tree alive";
}

TEST(DiskItem, DateOfAFolderIsTheNewestWithin) {
  const Instant old = test::daysBefore(someDay, 100), newer = test::daysBefore(someDay, 1);
  struct Case {
    Instant own, file, smallFile, expected;
  };
  for (const Case& c : {Case{old, newer, old, newer}, Case{newer, old, old, newer}, Case{old, old, newer, newer},
                        Case{distantPast, distantPast, distantPast, distantPast}}) {
    auto builder = folder("/base", 1000, c.own);
    builder.addFile("large", 5000, c.file, c.file);
    builder.addFile("small", 5, c.smallFile, c.smallFile);
    EXPECT_EQ(makeTree(std::move(builder).build(Kind::folder))->modified(), c.expected);
  }
}

TEST(DiskItem, FindsNodesByPath) {
  auto docs = folder("Docs", 1000);
  docs.addFile("big", 4000, someDay, someDay);
  docs.addFile("tiny", 4, someDay, someDay);
  auto home = folder("/home/u", 1000);
  home.add(std::move(docs).build(Kind::folder));
  home.addFile("loose", 1, someDay, someDay);
  const DiskTree tree = makeTree(std::move(home).build(Kind::folder));
  for (const char* path : {"/home/u", "/home/u/", "/home/u/Docs/big", "/home//u/./Docs/../Docs/big"}) {
    const DiskItem* node = find(*tree, path);
    ASSERT_TRUE(node) << path;
    EXPECT_EQ(node->url(), standardizedPath(path));
  }
  for (const char* path : {"/home/u/Docs/tiny", "/home/u/Smaller items", "/home/u/Smaller items/tiny", "/home",
                           "/home/uu", "/home/u/docs", "home/u", ""})
    EXPECT_FALSE(find(*tree, path)) << path;
}

TEST(DiskItem, AnOutlineHasFewerNodesAndTheSameTotals) {
  const DiskTree tree =
      test::treeOf("/base", {{"a/b/c/deep", 500}, {"a/b/near", 300}, {"a/tiny", 5}, {"a/small", 7}, {"top", 50}},
                   /*minItemSize=*/6);
  const DiskTree copy = makeTree(outline(*find(*tree, "/base/a"), 1, 10));
  EXPECT_EQ(copy->name(), "a");
  EXPECT_EQ(copy->size(), 812);
  EXPECT_EQ(copy->fileCount(), 4);
  ASSERT_EQ(copy->children().size(), 2u);
  EXPECT_EQ(copy->children()[0].name(), "b");
  EXPECT_EQ(copy->children()[0].size(), 800);
  EXPECT_TRUE(copy->children()[0].children().empty());
  EXPECT_EQ(copy->children()[1].kind(), Kind::smallItems);
  EXPECT_EQ(copy->children()[1].size(), 12);
}

// A chain of folders far deeper than any stack, if the tree were destroyed recursively.
TEST(DiskItem, DeepTreesComeAndGo) {
  auto innermost = folder("x", 0);
  innermost.addFile("file", 7, someDay, someDay);
  DiskItem item = std::move(innermost).build(Kind::folder);
  for (int depth = 0; depth < 200'000; ++depth) {
    auto around = folder("x", 0);
    around.add(std::move(item));
    item = std::move(around).build(Kind::folder);
  }
  DiskTree tree = makeTree(std::move(item));
  EXPECT_EQ(tree->size(), 7);
  tree.reset();
}

std::int64_t sumOfChildren(const DiskItem& item) {
  std::int64_t sum = 0;
  for (const DiskItem& child : item.children()) sum += child.size();
  return sum;
}

// Builds the same random tree with any threshold.
DiskItem randomFolder(std::mt19937& random, std::string name, int depth, std::int64_t minItemSize) {
  auto builder = folder(std::move(name), minItemSize, someDay + std::chrono::seconds(random() % 1000));
  const int files = static_cast<int>(random() % 6), folders = depth == 0 ? 0 : static_cast<int>(random() % 4);
  for (int i = 0; i < files; ++i) {
    const auto size = static_cast<std::int64_t>(random() % 3000);
    const Instant date = someDay + std::chrono::seconds(random() % 1000);
    builder.addFile("file" + std::to_string(i), size, date, date);
  }
  for (int i = 0; i < folders; ++i)
    builder.add(randomFolder(random, "folder" + std::to_string(i), depth - 1, minItemSize));
  return std::move(builder).build(Kind::folder);
}

void expectSums(const DiskItem& item) {
  if (!item.hasChildren()) return;
  EXPECT_EQ(item.size(), sumOfChildren(item)) << item.id();
  for (const DiskItem& child : item.children()) expectSums(child);
}

// Every folder that survives in the folded tree has the totals that it has in the whole one.
void expectSameTotals(const DiskItem& folded, const DiskItem& whole) {
  EXPECT_EQ(folded.size(), whole.size()) << folded.id();
  EXPECT_EQ(folded.fileCount(), whole.fileCount()) << folded.id();
  EXPECT_EQ(folded.modified(), whole.modified()) << folded.id();
  for (const DiskItem& child : folded.children()) {
    if (child.kind() == Kind::smallItems) continue;
    const DiskItem* twin = find(whole, child.url());
    ASSERT_TRUE(twin) << child.id();
    expectSameTotals(child, *twin);
  }
}

TEST(DiskItem, TotalsAreSumsAndFoldingChangesNone) {
  for (unsigned seed = 1; seed <= 60; ++seed)
    for (const std::int64_t threshold :
         {std::int64_t{1}, std::int64_t{700}, std::int64_t{4000}, std::int64_t{1} << 40}) {
      std::mt19937 random(seed), again(seed);
      const DiskTree whole = makeTree(randomFolder(random, "/base", 4, 0));
      const DiskTree folded = makeTree(randomFolder(again, "/base", 4, threshold));
      expectSums(*whole);
      expectSums(*folded);
      expectSameTotals(*folded, *whole);
    }
}

TEST(DiskPaths, StandardizedBySpelling) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [path, expected] :
       {Row{"/", "/"}, Row{"//", "/"}, Row{"/a//b/", "/a/b"}, Row{"/a/./b/.", "/a/b"}, Row{"/a/../b", "/b"},
        Row{"/../a", "/a"}, Row{"/a/..", "/"}, Row{"a/../..", ".."}, Row{"", ""}, Row{"./a", "a"}})
    EXPECT_EQ(standardizedPath(path), expected) << path;
}

TEST(DiskPaths, WithinNeedsAWholeComponent) {
  EXPECT_TRUE(isWithin("/a/b", "/a") && isWithin("/a", "/a") && isWithin("/a", "/"));
  EXPECT_FALSE(isWithin("/ab", "/a") || isWithin("/a", "/a/b"));
}

}  // namespace
}  // namespace ambrel
