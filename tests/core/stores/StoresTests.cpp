#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/stores/EntryList.h"
#include "core/stores/NewestFiles.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

UUID idOf(char letter) {
  UUID id;
  id.bytes[15] = static_cast<std::uint8_t>(letter);
  return id;
}

// A letter an entry; "!" after it: edited by me, "?": by the other side, "=": done.
Entries list(std::string_view letters) {
  Entries entries;
  for (const char c : letters) {
    if (c == '!' || c == '?')
      entries.back().title += c;
    else if (c == '=')
      entries.back().isDone = true;
    else
      entries.push_back({idOf(c), std::string(1, c), {}, false, {}});
  }
  return entries;
}

std::string letters(const Entries& entries) {
  std::string all;
  for (const ListEntry& entry : entries) all += entry.title + (entry.isDone ? "=" : "");
  return all;
}

TEST(EntryList, EditsOfTwoSidesComeTogether) {
  const struct {
    const char *base, *mine, *theirs, *both;
  } cases[] = {
      {"abc", "abc", "abcd", "abcd"},
      {"abc", "abcx", "abcd", "abcxd"},
      {"abc", "xabc", "dabc", "xdabc"},
      {"abc", "ac", "abc", "ac"},
      {"abc", "ac", "ab?c", "ab?c"},
      {"abc", "ab!c", "ac", "ab!c"},
      {"abc", "a!bc", "abc?", "a!bc?"},
      {"abc", "ab!c", "ab?c", "ab!c"},
      {"abc", "cab", "abcd", "cdab"},
      {"abc", "cab", "bac", "bac"},
      {"", "a", "b", "ab"},
      {"ab", "a=b", "b", "a=b"},
      {"abc", "", "abc", ""},
  };
  for (const auto& [base, mine, theirs, both] : cases)
    EXPECT_EQ(letters(merged(list(base), list(mine), list(theirs))), both) << base << ' ' << mine << ' ' << theirs;
}

TEST(EntryList, WhatWasRemovedComesBackToItsPlace) {
  Entries entries = list("a=bc=d");
  const Removal done = removeDone(entries);
  EXPECT_EQ(letters(entries), "bd");
  const Removal one = removeEntry(entries, idOf('d'));
  restore(entries, one);
  entries.push_back(list("c=").front());  // it is there again already
  restore(entries, done);
  EXPECT_EQ(letters(entries), "a=bdc=");
}

TEST(EntryList, MovesToTheEndsAtMost) {
  Entries entries = list("abcd");
  EXPECT_TRUE(moveEntry(entries, idOf('a'), 2));
  EXPECT_EQ(letters(entries), "bcad");
  EXPECT_TRUE(moveEntry(entries, idOf('d'), -9));
  EXPECT_EQ(letters(entries), "dbca");
  EXPECT_FALSE(moveEntry(entries, idOf('d'), -1));
}

struct Document : testing::Test {
  TemporaryFolder folder;
  std::filesystem::path file = folder / "Ambrel/todos.json";
  void write(std::string_view text) {
    makeFolders(file.parent_path());
    writeAtomically(file, text);
  }
};

TEST_F(Document, KeepsWhatWasWrittenByHand) {
  write(R"([{"title":"Milk","due":"friday","isDone":true},
            {"id":"00000000-0000-0000-0000-000000000061","title":"a"},
            {"id":"00000000-0000-0000-0000-000000000061","title":"its copy"}])");
  SharedEntries todos(ListKind::todos, file);
  EXPECT_TRUE(todos.refresh());
  EXPECT_EQ(letters(todos.entries()), "Milk=aits copy");
  EXPECT_EQ(todos.entries()[1].id, idOf('a'));
  EXPECT_NE(todos.entries()[2].id, idOf('a'));
  todos.edit()[0].title = "Oat milk";
  todos.save();
  const auto json = parseJSON(readFile(file).value()).value();
  EXPECT_EQ(json[0]["due"], "friday");
  EXPECT_EQ(json[0]["title"], "Oat milk");
  EXPECT_FALSE(todos.kept());
}

TEST_F(Document, TwoProgramsLoseNothingToEachOther) {
  SharedEntries one(ListKind::todos, file), other(ListKind::todos, file);
  one.edit() = list("a");
  one.save();
  other.edit() = list("b");
  other.save();
  EXPECT_TRUE(one.refresh());
  EXPECT_EQ(letters(one.entries()), letters(other.entries()));
  EXPECT_THAT(letters(one.entries()), AllOf(HasSubstr("a"), HasSubstr("b")));
  one.edit().clear();
  one.save();
  EXPECT_TRUE(other.refresh());
  EXPECT_TRUE(other.entries().empty());
}

TEST_F(Document, ADamagedFileStaysUntilSomethingReplacesIt) {
  const struct {
    const char *text, *shown;
  } cases[] = {{"[{\"title\":\"a\"},", ""}, {"{}", ""}, {"[{\"title\":\"a\"},7]", "a"}};
  for (int number = 1; const auto& [text, shown] : cases) {
    write(text);
    SharedEntries todos(ListKind::todos, file);
    todos.refresh();
    EXPECT_EQ(letters(todos.entries()), shown);
    EXPECT_EQ(todos.isUnreadable(), *shown == '\0');
    todos.save();
    EXPECT_EQ(readFile(file), text) << "nothing was changed";
    todos.edit().push_back(list("b").front());
    todos.save();
    const auto kept = file.string() + ".unreadable" + (number > 1 ? "-" + std::to_string(number) : "");
    EXPECT_EQ(todos.kept(), kept);
    EXPECT_EQ(readFile(kept), text);
    ++number;
  }
}

TEST_F(Document, ARivalTextIsKeptBesideOurs) {
  SharedText note(file);
  note.setText("mine");
  note.save();
  write("theirs");
  EXPECT_TRUE(note.refresh());
  EXPECT_EQ(note.text(), "theirs");
  note.setText("typed");
  write("typed elsewhere");
  note.refresh();
  EXPECT_EQ(note.text(), "typed");
  note.save();
  EXPECT_EQ(readFile(file), "typed");
  EXPECT_EQ(readFile(note.kept().value()), "typed elsewhere");
  write("no \xff text");
  EXPECT_FALSE(note.refresh());
  EXPECT_TRUE(note.isUnreadable());
}

TEST_F(Document, AFailedWriteKeepsTheChange) {
  write("[]");
  SharedEntries todos(ListKind::todos, file);
  todos.refresh();
  todos.edit() = list("a");
  // Nothing can be made in the folder's place.
  std::filesystem::rename(file.parent_path(), folder / "away");
  writeAtomically(file.parent_path(), "no folder");
  EXPECT_THROW(todos.save(), FileError);
  EXPECT_TRUE(todos.isChanged());
  std::filesystem::remove(file.parent_path());
  todos.save();
  EXPECT_FALSE(todos.isChanged());
  SharedEntries read(ListKind::todos, file);
  read.refresh();
  EXPECT_EQ(letters(read.entries()), "a");
}

TEST(NewestFiles, AreTheNewestFirstAndAllAreCounted) {
  const TemporaryFolder folder;
  const auto write = [&](const char* name, int age) {
    writeAtomically(folder / name, name);
    std::filesystem::last_write_time(folder / name,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(age));
  };
  write("old.pdf", 9);
  write("new.PNG", 1);
  write("middle", 5);
  write(".hidden", 0);
  write("film.mkv.part", 0);
  std::filesystem::create_symlink("nowhere", folder / "broken");
  std::filesystem::create_directory(folder / "sub");
  const auto found = newestItems(folder / "", 3);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->count, 5u);
  ASSERT_EQ(found->newest.size(), 3u);
  EXPECT_EQ(found->newest[2].name, "new.PNG");
  EXPECT_EQ(found->newest[2].bytes, 7);
  EXPECT_EQ(symbolOf(found->newest[2]), "photo");
  EXPECT_EQ(newestItems(folder / "", 5)->newest[4].name, "old.pdf");
  EXPECT_FALSE(newestItems(folder / "none", 3));
}

}  // namespace
}  // namespace ambrel
