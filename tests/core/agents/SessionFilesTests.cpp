#include <filesystem>

#include "core/agents/FolderListings.h"
#include "core/agents/SessionFiles.h"
#include "core/base/Instant.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

const Instant noon = *parseISO8601("2026-11-21T12:00:00Z");
const Instant since = advanced(noon, Seconds(-21600));

std::vector<std::string> names(const std::vector<SessionFile>& files, const std::filesystem::path& root) {
  std::vector<std::string> names;
  for (const SessionFile& file : files) names.push_back(std::filesystem::path(file.path).lexically_relative(root));
  return names;
}

std::vector<std::string> texts(const RecordTail& tail, bool newestFirst = true) {
  std::vector<std::string> found;
  LineParser parser;
  const auto visit = [&](const LineObject& record) {
    found.emplace_back(record.text("n").value_or("?"));
    return true;
  };
  newestFirst ? tail.eachNewestFirst(parser, visit) : tail.eachOldestFirst(parser, visit);
  return found;
}

TEST(RecentSessionFiles, KeepsRegularLogsThatChangedStrictlyLater) {
  TemporaryFolder root;
  root.write("new.jsonl", "{}", noon);
  root.write("old.jsonl", "{}", advanced(since, Seconds(-1)));
  root.write("edge.jsonl", "{}", since);
  root.write("beyond.jsonl", "{}", since);
  TemporaryFolder::setModified(root / "beyond.jsonl", since, 1);
  root.write("case.JSONL", "{}", noon);
  root.write("other.json", "{}", noon);
  root.write("other.jsonl.bak", "{}", noon);
  root.write(".jsonl", "{}", noon);
  std::filesystem::create_directory(root / "folder.jsonl");
  std::filesystem::create_symlink(root / "new.jsonl", root / "link.jsonl");
  root.write("deeper/new.jsonl", "{}", noon);

  EXPECT_THAT(names(recentSessionFiles(root.path(), since, false), root.path()),
              UnorderedElementsAre("new.jsonl", "beyond.jsonl"));
}

TEST(RecentSessionFiles, WalksFoldersButNoPackagesAndNoLinks) {
  TemporaryFolder root, elsewhere;
  root.write("2026/11/21/a.jsonl", "{}", noon);
  root.write("2026/11/20/b.jsonl", "{}", noon);
  root.write(".hidden/c.jsonl", "{}", noon);
  root.write("Tool.app/d.jsonl", "{}", noon);
  root.write("x.Framework/e.jsonl", "{}", noon);
  elsewhere.write("f.jsonl", "{}", noon);
  std::filesystem::create_directory_symlink(elsewhere.path(), root / "linked");
  std::filesystem::create_directory_symlink(root.path(), root / "2026/loop");

  EXPECT_THAT(names(recentSessionFiles(root.path(), since, true), root.path()),
              UnorderedElementsAre("2026/11/21/a.jsonl", "2026/11/20/b.jsonl", ".hidden/c.jsonl"));
}

TEST(RecentSessionFiles, GivesNothingForAFolderThatCannotBeListed) {
  TemporaryFolder root;
  root.write("file", "{}", noon);
  EXPECT_THAT(recentSessionFiles(root / "missing", since, true), IsEmpty());
  EXPECT_THAT(recentSessionFiles(root / "file", since, false), IsEmpty());
}

TEST(RecentSessionFiles, TellsDatesApartByTheNanosecond) {
  TemporaryFolder root;
  const auto file = root.write("a.jsonl", "{}", noon);
  const auto before = recentSessionFiles(root.path(), since, false).at(0);
  EXPECT_EQ(before.modified, noon);
  EXPECT_TRUE(before.hasSameDate(recentSessionFiles(root.path(), since, false).at(0)));
  TemporaryFolder::setModified(file, noon, 1);
  EXPECT_FALSE(before.hasSameDate(recentSessionFiles(root.path(), since, false).at(0)));
}

TEST(RecentSessionFiles, SurvivesAFolderNestedTooDeep) {
  TemporaryFolder root;
  std::string deep;
  for (int i = 0; i < 80; ++i) deep += "d/";
  root.write(deep + "deep.jsonl", "{}", noon);
  root.write("d/d/near.jsonl", "{}", noon);
  EXPECT_THAT(names(recentSessionFiles(root.path(), since, true), root.path()), ElementsAre("d/d/near.jsonl"));
}

TEST(FolderListings, SeeWhatComesAndGoes) {
  TemporaryFolder root;
  FolderListings listings;
  const auto look = [&] { return names(recentSessionFiles(root.path(), since, true, &listings), root.path()); };
  root.write("day/a.jsonl", "{}", noon);
  EXPECT_THAT(look(), UnorderedElementsAre("day/a.jsonl"));
  // Within the grain of the folder's date.
  root.write("day/b.jsonl", "{}", noon);
  look();
  EXPECT_THAT(look(), UnorderedElementsAre("day/a.jsonl", "day/b.jsonl"));
  look();
  root.write("other day/c.jsonl", "{}", noon);
  root.write("day/d.jsonl", "{}", noon);
  EXPECT_THAT(look(), UnorderedElementsAre("day/a.jsonl", "day/b.jsonl", "day/d.jsonl", "other day/c.jsonl"));
  std::filesystem::remove(root / "day/a.jsonl");
  std::filesystem::remove_all(root / "other day");
  EXPECT_THAT(look(), UnorderedElementsAre("day/b.jsonl", "day/d.jsonl"));
  std::filesystem::remove_all(root / "day");
  EXPECT_THAT(look(), IsEmpty());
}

TEST(FolderListings, OpenNoFolderThatHasNotChanged) {
  TemporaryFolder root;
  FolderListings listings;
  root.write("a.jsonl", "{}", noon);
  const auto entries = [&] { return listings.entries(root.path().string(), true); };
  const auto first = entries(), second = entries();
  EXPECT_NE(first, second);
  EXPECT_EQ(second, entries());
  EXPECT_EQ(listings.entries((root / "a.jsonl").string(), true), nullptr);
  std::filesystem::create_directory_symlink(root.path(), root / "loop");
  EXPECT_EQ(listings.entries((root / "loop").string(), false), nullptr);
  EXPECT_NE(listings.entries((root / "loop").string(), true), nullptr);
}

TEST(RecordTail, SkipsWhatIsNoObjectAndEmptyLines) {
  const RecordTail tail("{\"n\":\"1\"}\n\n\n[1]\n3\nnull\n{\"n\":\"2\"}\nnot json\n{\"n\":\"3\"}\n{\"n\":\"4", false);
  EXPECT_THAT(texts(tail), ElementsAre("3", "2", "1"));
  EXPECT_THAT(texts(tail, false), ElementsAre("1", "2", "3"));
}

TEST(RecordTail, DropsTheFirstPieceOfACutFile) {
  const std::string lines = "{\"n\":\"1\"}\n{\"n\":\"2\"}\n";
  EXPECT_THAT(texts(RecordTail(lines, true)), ElementsAre("2"));
  EXPECT_THAT(texts(RecordTail(lines, true), false), ElementsAre("2"));
  // Empty pieces go first: the piece behind a newline at the cut is dropped although it is whole.
  EXPECT_THAT(texts(RecordTail("\n" + lines, true)), ElementsAre("2"));
  EXPECT_THAT(texts(RecordTail("{\"n\":\"1\"}", true)), IsEmpty());
  EXPECT_THAT(texts(RecordTail("\n\n", true)), IsEmpty());
  EXPECT_THAT(texts(RecordTail("", true)), IsEmpty());
}

TEST(RecordTail, StopsWhenItsVisitorHasEnough) {
  const RecordTail tail("{\"n\":\"1\"}\n{\"n\":\"2\"}\n{\"n\":\"3\"}\n", false);
  LineParser parser;
  int visited = 0;
  tail.eachNewestFirst(parser, [&](const LineObject&) { return ++visited < 2; });
  EXPECT_EQ(visited, 2);
  tail.eachOldestFirst(parser, [&](const LineObject&) { return ++visited < 3; });
  EXPECT_EQ(visited, 3);
}

TEST(TailRecords, ReadsNoMoreThanItsLimit) {
  TemporaryFolder root;
  const std::string line = "{\"n\":\"x\"}\n";  // 10 bytes
  const auto file = root.write("a.jsonl", line + line + line);
  EXPECT_EQ(texts(tailRecords(file, 30)).size(), 3u);
  EXPECT_EQ(texts(tailRecords(file, 29)).size(), 2u);
  EXPECT_EQ(texts(tailRecords(file, 20)).size(), 1u);  // the first piece is whole, and dropped all the same
  EXPECT_EQ(texts(tailRecords(file, 5)).size(), 0u);
}

TEST(TailRecords, GivesNothingForWhatIsNoFile) {
  TemporaryFolder root;
  EXPECT_THAT(texts(tailRecords(root / "missing", 100)), IsEmpty());
  EXPECT_THAT(texts(tailRecords(root.path(), 100)), IsEmpty());
}

TEST(FirstRecord, IsTheObjectOnTheFirstLine) {
  const struct {
    std::string bytes;
    std::size_t limit;
    bool expected;
  } cases[] = {
      {"{\"n\":\"1\"}\n{\"n\":\"2\"}\n", 100, true},
      {"{\"n\":\"1\"}", 100, true},
      {"{\"n\":\"1\"}\nrest", 10, true},
      {"{\"n\":\"1\"}\n", 9, true},
      {"{\"n\":\"1\"}\n", 8, false},
      {"\n{\"n\":\"1\"}\n", 100, false},
      {"[]\n", 100, false},
      {"", 100, false},
  };
  for (const auto& each : cases) {
    TemporaryFolder root;
    LineParser parser;
    const auto record = firstRecord(openForReading(root.write("a.jsonl", each.bytes)), each.limit, parser);
    EXPECT_EQ(record.has_value(), each.expected) << each.bytes << each.limit;
    if (record) {
      EXPECT_EQ(record->text("n"), "1");
    }
  }
}

TEST(SessionIdentifier, IsTheNameWithoutExtension) {
  EXPECT_EQ(sessionIdentifier("/a/b.c/0b54c9de.jsonl"), "0b54c9de");
  EXPECT_EQ(sessionIdentifier("rollout-1.2.jsonl"), "rollout-1.2");
  EXPECT_EQ(sessionIdentifier("/a/\xff.jsonl"), "\xef\xbf\xbd");
}

}  // namespace
}  // namespace ambrel
