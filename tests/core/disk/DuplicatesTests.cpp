#include <atomic>
#include <cstring>

#include "core/disk/Duplicates.h"
#include "core/disk/FileContent.h"
#include "tests/Matchers.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using test::Tree;

constexpr std::int64_t window = 1 << 16;

struct Scanned {
  explicit Scanned(const Tree& tree) : root(DiskScanner{}.scan(tree.path()).root) { collect(*root); }
  void collect(const DiskItem& item) {
    if (item.kind() == DiskItem::Kind::file) candidates.push_back({&item, item.url()});
    for (const DiskItem& child : item.children()) collect(child);
  }
  DiskTree root;
  std::vector<DuplicateCandidate> candidates;
};

std::vector<CleanupItem> duplicatesIn(const Tree& tree, const AnalysisControl& control = {}) {
  const Scanned scanned(tree);
  return findDuplicates(scanned.candidates, window, control);
}

std::vector<std::string> urls(const std::vector<CleanupItem>& items) {
  std::vector<std::string> out;
  for (const CleanupItem& item : items) out.push_back(item.url);
  return out;
}

TEST(Duplicates, TheOldestCopyStaysAndTheOthersAreNamedAgainstIt) {
  Tree tree;
  for (const char* name : {"a/first.mov", "b/second.mov", "c/third.mov"}) tree.fill(name, 300'000);
  tree.fill("c/other.mov", 300'000, 2);
  tree.date("a/first.mov", test::daysBefore(test::someDay, 2));
  tree.date("b/second.mov", test::daysBefore(test::someDay, 9));
  tree.date("c/third.mov", test::daysBefore(test::someDay, 1));
  const auto items = duplicatesIn(tree);
  ASSERT_THAT(urls(items), UnorderedElementsAre(tree / "a/first.mov", tree / "c/third.mov"));
  for (const CleanupItem& item : items) {
    EXPECT_THAT(item.title, EndsWith(".mov, a copy of b/second.mov"));
    EXPECT_EQ(item.bytes, Tree::allocated(item.url));
    ASSERT_TRUE(item.kept);
    EXPECT_EQ(item.kept->url, tree / "b/second.mov");
    EXPECT_TRUE(item.identity);
    EXPECT_FALSE(item.contentsOnly);
  }
}

// Files of one size that differ in a single byte, at every place where one stage ends and another begins; alone, and
// among more of them than are held in memory, so that digests decide.
TEST(Duplicates, OneDifferentByteAnywhereTellsFilesApart) {
  const auto check = [](std::size_t size, std::size_t place, std::size_t crowd) {
    Tree tree;
    std::string bytes = Tree::noise(size, 3);
    tree.write("one", bytes);
    tree.write("same", bytes);
    bytes[place] = static_cast<char>(bytes[place] ^ 0x40);
    tree.write("other", bytes);
    for (unsigned i = 0; i < crowd; ++i) {
      std::memcpy(bytes.data() + size / 2 - sizeof i, &i, sizeof i);
      tree.write("crowd/" + std::to_string(i), bytes);
    }
    EXPECT_THAT(urls(duplicatesIn(tree)), ElementsAre(AnyOf(tree / "one", tree / "same")))
        << size << " " << place << " " << crowd;
  };
  constexpr std::size_t w = window;
  for (const std::size_t size : {std::size_t{5'000}, w, w + 4096, 2 * w, 5 * w + 77, 14 * w + 77})
    for (const std::size_t place : {std::size_t{0}, size / 2, size - 1, std::min(w - 1, size - 1),
                                    std::min(w, size - 1), size - std::min(w + 1, size)})
      check(size, place, 0);
  for (const std::size_t size : {w / 2, w + 4096, 2 * w, 5 * w})
    for (const std::size_t place : {std::size_t{0}, size / 2, size - 1}) check(size, place, 20 + (1 << 22) / size);
}

TEST(Duplicates, LargerCopiesComeFirstAndTheShorterNameStays) {
  Tree tree;
  for (const std::size_t size :
       {std::size_t{90'000}, std::size_t{5'000}, std::size_t{10 * window}, std::size_t{20'000}})
    for (const char* copy : {" (copy)", ""}) {
      tree.fill(std::to_string(size) + copy, size, static_cast<unsigned>(size));
      tree.date(std::to_string(size) + copy, test::someDay);
    }
  // Many in one length, so that a digest decides about small ones too.
  for (unsigned i = 0; i <= (1 << 22) / 20'000; ++i) tree.fill("crowd/" + std::to_string(i), 20'000, 100'000 + i);
  EXPECT_THAT(urls(duplicatesIn(tree)),
              ElementsAre(tree / "655360 (copy)", tree / "90000 (copy)", tree / "20000 (copy)", tree / "5000 (copy)"));
}

TEST(Duplicates, LengthsThatShareTheirBlocksAreNoCopies) {
  Tree tree;
  tree.write("zeros", std::string(5000, '\0'));
  tree.write("more zeros", std::string(5001, '\0'));
  tree.write("text", "abc");
  tree.write("text and zero", std::string("abc\0", 4));
  EXPECT_THAT(duplicatesIn(tree), IsEmpty());
}

TEST(Duplicates, NamesOfOneFileAreNotOffered) {
  Tree tree;
  tree.fill("a/file", 200'000);
  std::filesystem::create_directory(tree / "b");
  std::filesystem::create_hard_link(tree / "a/file", tree / "b/file");
  EXPECT_THAT(duplicatesIn(tree), IsEmpty());
  // A true copy is; the file with two names is not, even when it is the newer one.
  tree.fill("c/copy", 200'000);
  tree.date("a/file", test::daysBefore(test::someDay, 5));
  tree.date("c/copy", test::someDay);
  EXPECT_THAT(urls(duplicatesIn(tree)), ElementsAre(tree / "c/copy"));
  tree.date("c/copy", test::daysBefore(test::someDay, 50));
  EXPECT_THAT(duplicatesIn(tree), IsEmpty());
}

TEST(Duplicates, ALinkIsNoCopyOfItsTarget) {
  Tree tree;
  tree.fill("real", 100'000);
  Scanned scanned(tree);
  tree.link("alias", tree / "real");
  // As if the tree had changed after the scan: the candidate became a link.
  scanned.candidates.push_back({scanned.candidates.front().node, tree / "alias"});
  EXPECT_THAT(findDuplicates(scanned.candidates, window, {}), IsEmpty());
}

TEST(Duplicates, FilesThatVanishOrCannotBeReadDropOut) {
  Tree tree;
  for (const char* name : {"one", "two", "three"}) tree.fill(name, 50'000);
  const Scanned scanned(tree);
  std::filesystem::remove(tree / "one");
  chmod((tree / "two").c_str(), 0);
  const test::Unprivileged drop;
  EXPECT_THAT(findDuplicates(scanned.candidates, window, {}), IsEmpty());
}

TEST(Duplicates, HolesAreNotReadAndCompareAsZeros) {
  Tree tree;
  const std::string head = Tree::noise(window, 1), tail = Tree::noise(window, 2);
  for (const char* name : {"one", "two", "three"}) {
    tree.write(name, head);
    const FileDescriptor file(open((tree / name).c_str(), O_WRONLY | O_CLOEXEC));
    ASSERT_EQ(pwrite(file.get(), tail.data(), tail.size(), 1 << 28), static_cast<ssize_t>(tail.size()));
    fsync(file.get());
  }
  {
    const FileDescriptor file(open((tree / "three").c_str(), O_WRONLY | O_CLOEXEC));
    ASSERT_EQ(pwrite(file.get(), "x", 1, (1 << 28) - 1), 1);
    ASSERT_EQ(ftruncate(file.get(), (1 << 28) + window), 0);
    fsync(file.get());
  }
  std::atomic<std::int64_t> read = 0;
  ContentHasher hasher;
  const FileDescriptor file = openQuietly(tree / "one");
  const auto count = [&](std::int64_t bytes) { read += bytes; };
  const auto sparse = hasher.digest(file, 0, (1 << 28) + window, true, count);
  EXPECT_LT(read, 8 * window);
  // The same bytes without asking for holes.
  EXPECT_EQ(hasher.digest(file, 0, (1 << 28) + window, false, {}), sparse);
  EXPECT_EQ(duplicatesIn(tree).size(), 1u);
}

TEST(Duplicates, HolesOfSmallFilesAreNotReadEither) {
  Tree tree;
  for (const char* name : {"one", "two"}) {
    tree.fill(name, 8192);
    ASSERT_EQ(truncate((tree / name).c_str(), 1 << 21), 0);
  }
  AnalysisControl control;
  control.progress = [](const CompareProgress& progress) { ADD_FAILURE() << progress.bytes << " bytes were read"; };
  EXPECT_EQ(findDuplicates(Scanned(tree).candidates, 1 << 21, control).size(), 1u);
}

TEST(Duplicates, FilesThatDifferAtTheirEndsAreNotReadWhole) {
  Tree tree;
  for (unsigned i = 0; i < 4; ++i) tree.fill(std::to_string(i), 1 << 20, i);
  AnalysisControl control;
  control.progress = [](const CompareProgress& progress) { ADD_FAILURE() << progress.bytes << " bytes were read"; };
  EXPECT_THAT(duplicatesIn(tree, control), IsEmpty());
}

TEST(Duplicates, SeveralGroupsMayShareLengthAndEnds) {
  Tree tree;
  std::string bytes = Tree::noise(14 * window, 3);
  for (const char* kind : {"x", "y", "z"}) {
    bytes[9 * window] = kind[0];
    for (const char* copy : {"1", "2", "3"}) {
      const std::string name = std::string(kind) + copy;
      tree.write(name, bytes);
      tree.date(name, test::daysBefore(test::someDay, '9' - copy[0]));
    }
  }
  bytes[4 * window] = static_cast<char>(bytes[4 * window] ^ 1);
  tree.write("alone", bytes);
  EXPECT_THAT(urls(duplicatesIn(tree)),
              UnorderedElementsAre(tree / "x2", tree / "x3", tree / "y2", tree / "y3", tree / "z2", tree / "z3"));
}

TEST(Duplicates, AFileThatIsWrittenToMeanwhileDropsOut) {
  Tree tree;
  for (const char* name : {"one", "two"}) tree.fill(name, 12 << 20);
  AnalysisControl control;
  control.progress = [&](const CompareProgress&) { tree.date("one", test::someDay); };
  EXPECT_THAT(duplicatesIn(tree, control), IsEmpty());
}

TEST(Duplicates, NoByteIsReadTwice) {
  Tree tree;
  std::int64_t total = 0;
  for (const std::size_t size :
       {std::size_t{1000}, std::size_t{window + 1}, std::size_t{3 * window}, std::size_t{40 * window}})
    for (const char* copy : {"a", "b", "c"}) {
      tree.fill(std::to_string(size) + copy, size, static_cast<unsigned>(size));
      total += static_cast<std::int64_t>(size);
    }
  // Further names of a file, which is read once. It is the oldest, so that the others are the copies.
  const std::string named = std::to_string(40 * window) + "a";
  tree.date(named, test::daysBefore(test::someDay, 5));
  for (const char* name : {"second name", "third name"}) std::filesystem::create_hard_link(tree / named, tree / name);
  // Same blocks, other content: their ends are read and nothing else.
  tree.fill("alone", 40 * window, 99);
  total += 2 * window;

  std::atomic<std::int64_t> reported = 0;
  AnalysisControl control;
  control.progress = [&](const CompareProgress& progress) {
    std::int64_t before = reported;
    while (before < progress.bytes && !reported.compare_exchange_weak(before, progress.bytes)) {
    }
    EXPECT_LE(progress.bytes, progress.expected + (1 << 20));
  };
  EXPECT_EQ(duplicatesIn(tree, control).size(), 8u);
  EXPECT_LE(reported, total);
  EXPECT_GT(reported, total - (1 << 23));
}

TEST(Duplicates, CanBeCancelledWhileFilesAreRead) {
  Tree large, small;
  for (const char* name : {"one", "two"}) large.fill(name, 12 << 20);
  for (unsigned i = 0; i < 240; ++i) small.fill(std::to_string(i), 50'000 + i / 20, i);
  for (const Tree* tree : {&large, &small}) {
    std::stop_source stop;
    EXPECT_THROW(duplicatesIn(*tree, {.stop = stop.get_token(),
                                      .progress = [&](const CompareProgress&) { stop.request_stop(); }}),
                 Cancelled);
  }
}

TEST(Duplicates, ReadingLeavesNoAccessDate) {
  Tree tree;
  for (const char* name : {"one", "two"}) {
    tree.fill(name, 100'000);
    tree.date(name, test::someDay, test::daysBefore(test::someDay, 400));
  }
  EXPECT_EQ(duplicatesIn(tree).size(), 1u);
  struct stat info;
  ASSERT_EQ(stat((tree / "one").c_str(), &info), 0);
  EXPECT_EQ(Instant(std::chrono::seconds(info.st_atim.tv_sec)), test::daysBefore(test::someDay, 400));
}

TEST(Duplicates, AnyWindowFindsTheSame) {
  Tree tree;
  for (const char* name : {"a", "b"}) tree.fill(name, 200'000);
  tree.fill("c", 200'000, 5);
  const Scanned scanned(tree);
  for (const std::int64_t size : {std::int64_t{-5}, std::int64_t{0}, std::int64_t{1}, std::int64_t{99'999},
                                  std::int64_t{100'000}, std::int64_t{1} << 40})
    EXPECT_EQ(findDuplicates(scanned.candidates, size, {}).size(), 1u) << size;
}

}  // namespace
}  // namespace ambrel
