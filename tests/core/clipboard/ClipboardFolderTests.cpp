#include <sys/stat.h>

#include "core/base/JSON.h"
#include "core/clipboard/ClipboardFolder.h"
#include "core/clipboard/ClipboardJSON.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/clipboard/Clips.h"

namespace ambrel {
namespace {

using namespace clips;

const std::string emptyName = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855.png";

int modeOf(const std::filesystem::path& path) {
  struct stat info {};
  return stat(path.c_str(), &info) == 0 ? static_cast<int>(info.st_mode & 0777) : -1;
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  if (!std::filesystem::exists(folder)) return names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  return names;
}

TEST(ClipboardFolder, AFirstRunIsEmptyAndTheFirstSaveMakesThePrivateFolder) {
  TemporaryFolder home;
  ClipboardFolder folder(home / "Ambrel/Clipboard");
  EXPECT_EQ(folder.load(), ClipboardLibrary{});
  EXPECT_FALSE(std::filesystem::exists(folder.path()));
  // One that others could read is closed.
  std::filesystem::create_directories(folder.path());
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  const ClipboardLibrary library{.items = {text(1, "words")}, .collections = {}};
  folder.save(library);
  const std::string name = folder.saveImage("picture");
  EXPECT_EQ(modeOf(folder.path()), 0700);
  EXPECT_EQ(modeOf(folder.path() / "Images"), 0700);
  EXPECT_EQ(modeOf(folder.path() / "library.json"), 0600);
  EXPECT_EQ(modeOf(folder.imagePath(name)), 0600);
  EXPECT_EQ(ClipboardFolder(folder.path()).load(), library);
}

TEST(ClipboardFolder, AnUnreadableLibraryIsSetAsideBeforeTheFirstSave) {
  TemporaryFolder home;
  home.write("library.json", "{\"items\": [");
  home.write("library.json.unreadable", "an earlier one");
  ClipboardFolder folder(home.path());
  EXPECT_THROW(folder.load(), DecodingError);
  EXPECT_THAT(namesIn(home.path()), UnorderedElementsAre("library.json", "library.json.unreadable"));
  folder.save({});
  folder.save({.items = {text(1, "later")}, .collections = {}});
  EXPECT_THAT(namesIn(home.path()),
              UnorderedElementsAre("library.json", "library.json.unreadable", "library.json.unreadable.2"));
  EXPECT_EQ(readFile(home / "library.json.unreadable"), "an earlier one");
  EXPECT_EQ(readFile(home / "library.json.unreadable.2"), "{\"items\": [");
  EXPECT_EQ(ClipboardFolder(home.path()).load().items.size(), 1u);
}

TEST(ClipboardFolder, WhatIsAppendedIsThereAfterACrash) {
  TemporaryFolder home;
  ClipboardLibrary library{.items = {text(1, "one"), text(2, "two"), text(3, "three")}, .collections = {}};
  ClipboardFolder folder(home.path());
  folder.save(library);
  const auto whole = readFile(home / "library.json");
  ClipItem again = text(2, "two"), pinned = text(1, "one");
  pinned.isPinned = true;
  const ClipItem large = text(4, std::string(300'000, 'x') + "\n\"\x01");
  const std::vector<LibraryChange> first{LibraryChange::put(again), LibraryChange::mark(pinned)};
  const std::vector<LibraryChange> second{LibraryChange::put(large),
                                          LibraryChange::drop(std::vector{text(3, "three")})};
  folder.append(first);
  folder.append(second);
  EXPECT_EQ(readFile(home / "library.json"), whole);
  EXPECT_EQ(modeOf(home / "library.journal"), 0600);
  library.items = {large, again, pinned};
  EXPECT_EQ(readLibrary(home.path()), library);
  // The crash cut the last line, and it came between the library and the end of its journal.
  home.write("library.journal", *readFile(home / "library.journal") + "{\"put\":{\"id\"");
  EXPECT_EQ(readLibrary(home.path()), library);
  const auto journal = *readFile(home / "library.journal");
  folder.save(library);
  EXPECT_FALSE(std::filesystem::exists(home / "library.journal"));
  home.write("library.journal", journal);
  EXPECT_EQ(readLibrary(home.path()), library);
}

TEST(ClipboardFolder, TheJournalGrowsNoLongerThanTheLibraryAndIsNothingWithoutIt) {
  TemporaryFolder home;
  ClipboardFolder folder(home.path());
  const std::vector<LibraryChange> change{LibraryChange::put(text(1, std::string(600'000, 'x')))};
  EXPECT_THROW(folder.append(change), FileError);
  folder.save({});
  folder.append(change);
  EXPECT_FALSE(folder.wantsWhole());
  folder.append(change);
  EXPECT_TRUE(folder.wantsWhole());
  // The user has deleted the history.
  std::filesystem::remove(home / "library.json");
  EXPECT_EQ(readLibrary(home.path()), ClipboardLibrary{});
  EXPECT_THROW(folder.append(change), FileError);
}

TEST(ClipboardFolder, OneAtATimeMayWrite) {
  TemporaryFolder home;
  std::optional<ClipboardFolder> first(home / "Clipboard");
  ClipboardFolder second(home / "Clipboard");
  EXPECT_TRUE(first->lock());
  EXPECT_TRUE(first->lock());
  EXPECT_FALSE(second.lock());
  first.reset();
  EXPECT_TRUE(second.lock());
}

TEST(ClipboardFolder, ALinkedLibraryStaysALink) {
  TemporaryFolder home;
  const auto target = home.write("synced/clips.json", "");
  std::filesystem::create_directories(home / "Clipboard");
  std::filesystem::create_symlink("../synced/clips.json", home / "Clipboard/library.json");
  ClipboardFolder(home / "Clipboard").save({.items = {text(1, "words")}, .collections = {}});
  EXPECT_TRUE(std::filesystem::is_symlink(home / "Clipboard/library.json"));
  EXPECT_EQ(readLibrary(home / "Clipboard").items.size(), 1u);
  EXPECT_EQ(std::filesystem::file_size(target), std::filesystem::file_size(home / "Clipboard/library.json"));
}

TEST(ClipboardFolder, OnePictureIsOneFile) {
  TemporaryFolder home;
  ClipboardFolder folder(home.path());
  EXPECT_EQ(folder.saveImage(""), emptyName);
  const std::string name = folder.saveImage("picture");
  EXPECT_EQ(folder.saveImage("picture"), name);
  EXPECT_TRUE(isImageName(name));
  std::string capital = emptyName;
  capital[0] = 'E';
  for (const std::string& other : {capital, emptyName.substr(1), "../" + emptyName.substr(3), std::string(".png")})
    EXPECT_FALSE(isImageName(other)) << other;
  EXPECT_EQ(readFile(folder.imagePath(name)), "picture");
  EXPECT_THAT(namesIn(home / "Images"), UnorderedElementsAre(emptyName, name));
  home.write("Images/" + name, "pic");
  folder.saveImage("picture");
  EXPECT_EQ(readFile(folder.imagePath(name)), "picture") << "a half-written one is written again";
}

TEST(ClipboardFolder, RemovesNothingButPictures) {
  TemporaryFolder home;
  ClipboardFolder folder(home.path());
  const std::string name = folder.saveImage("picture");
  folder.save({});
  home.write("Images/notes.txt", "mine");
  folder.removeImages(std::vector<std::string>{name, "../library.json", "notes.txt", "", emptyName});
  EXPECT_THAT(namesIn(home / "Images"), UnorderedElementsAre("notes.txt"));
  EXPECT_TRUE(std::filesystem::exists(home / "library.json"));
}

TEST(ClipboardFolder, SweepsThePicturesThatNothingUses) {
  TemporaryFolder home;
  ClipboardFolder folder(home.path());
  EXPECT_EQ(folder.sweepOrphans({}), 0);
  const std::string used = folder.saveImage("used");
  folder.saveImage("orphan");
  home.write("Images/notes.txt", "mine");
  EXPECT_EQ(folder.sweepOrphans({used}), 1);
  EXPECT_THAT(namesIn(home / "Images"), UnorderedElementsAre(used, "notes.txt"));
}

TEST(ClipboardFolder, KeepsThePicturesThatAnUnreadableLibraryMayName) {
  TemporaryFolder home;
  ClipboardFolder folder(home.path());
  folder.saveImage("picture");
  home.write("library.json", "?");
  EXPECT_THROW(folder.load(), DecodingError);
  EXPECT_EQ(folder.sweepOrphans({}), 0);
  folder.save({});
  ClipboardFolder later(home.path());
  later.load();
  EXPECT_EQ(later.sweepOrphans({}), 0);
  std::filesystem::remove(home / "library.json.unreadable");
  EXPECT_EQ(later.sweepOrphans({}), 1);
}

TEST(ClipboardJSON, HasTheKeysOfTheFile) {
  ClipItem item = collected(pinned(text(1, "words", 0.25)), 70);
  item.sourceBundleID = "org.example.editor";
  const ClipboardLibrary library{.items = {item, image(2, "ab.png", 0)}, .collections = {{id(70), "Recipes"}}};
  const auto expected = parseJSON(R"({
    "collections": [{"id": "00000000-0000-0000-0000-000000000046", "name": "Recipes"}],
    "items": [
      {"id": "00000000-0000-0000-0000-000000000001", "kind": "text", "text": "words",
       "sourceBundleID": "org.example.editor", "createdAt": "2027-01-15T08:00:00.25Z", "isPinned": true,
       "collectionIDs": ["00000000-0000-0000-0000-000000000046"]},
      {"id": "00000000-0000-0000-0000-000000000002", "kind": "image", "imageFileName": "ab.png",
       "createdAt": "2027-01-15T08:00:00Z", "isPinned": false, "collectionIDs": []}]})");
  EXPECT_EQ(JSON(library), *expected);
  EXPECT_EQ(expected->get<ClipboardLibrary>(), library);
}

TEST(ClipboardJSON, TheFileIsTheSameToTheByteAsTheWholeTreeGives) {
  const ClipItem hostile = collected(text(3, "quoted \"{\"\n  [],\r\n\t\xff\xfe and \u2028 tr\u00e8s\n"), 71);
  const ClipboardLibrary rows[] = {
      {},
      {.items = {text(1, "words")}, .collections = {}},
      {.items = {}, .collections = {{id(70), "Recipes\nand \"more\""}, {id(71), ""}}},
      {.items = {collected(hostile, 70), image(2, "ab.png"), text(4, "")}, .collections = {{id(70), "Recipes"}}}};
  for (const ClipboardLibrary& library : rows) EXPECT_EQ(fileText(library), prettyJSON(JSON(library)));
}

TEST(ClipboardJSON, OneBadEntrySpoilsTheLibrary) {
  const JSON whole = JSON(ClipboardLibrary{.items = {text(1, "words")}, .collections = {{id(2), "Name"}}});
  EXPECT_NO_THROW(whole.get<ClipboardLibrary>());
  for (const char* key :
       {"/items/0/id", "/items/0/kind", "/items/0/createdAt", "/items/0/isPinned", "/items/0/collectionIDs",
        "/collections/0/id", "/collections/0/name", "/items", "/collections"}) {
    const JSON::json_pointer pointer(key);
    JSON broken = whole;
    broken[pointer.parent_pointer()].erase(pointer.back());
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key;
  }
  const std::pair<const char*, JSON> rows[] = {
      {"kind", "colour"}, {"kind", 1}, {"id", "1"},     {"createdAt", "yesterday"}, {"createdAt", 100},
      {"isPinned", 1},    {"text", 3}, {"text", {"a"}}, {"collectionIDs", {}},      {"collectionIDs", {"x"}}};
  for (const auto& [key, value] : rows) {
    JSON broken = whole;
    broken["items"][0][key] = value;
    EXPECT_ANY_THROW(broken.get<ClipboardLibrary>()) << key << " " << value;
  }
  EXPECT_ANY_THROW(JSON::array().get<ClipboardLibrary>());
}

}  // namespace
}  // namespace ambrel
