#include <algorithm>

#include "core/base/Text.h"
#include "core/disk/Handles.h"
#include "platform/linux/FreedesktopTrash.h"
#include "tests/Matchers.h"
#include "tests/core/disk/Tree.h"

namespace ambrel {
namespace {

using test::Tree;

const Instant now = *parseISO8601("2026-11-21T23:30:05Z");

class FreedesktopTrashTest : public testing::Test {
 protected:
  DiskAdvice::TrashRequest request(const std::string& path) const {
    return {.url = path, .identity = *identityOf(path)};
  }
  void move(const std::string& relative) { trash.move(request(tree / relative), now); }
  std::string reasonFor(const DiskAdvice::TrashRequest& request) {
    try {
      trash.move(request, now);
    } catch (const TrashError& error) {
      return error.what();
    }
    return "moved";
  }
  std::vector<std::string> names(const std::string& folder) const {
    std::vector<std::string> out;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(tree / folder, missing))
      out.push_back(entry.path().filename().string());
    return out;
  }
  std::string info(const std::string& name) const {
    return readFile(tree / ("data/Trash/info/" + name + ".trashinfo")).value_or("");
  }
  bool exists(const std::string& relative) const {
    return std::filesystem::exists(std::filesystem::symlink_status(tree / relative));
  }

  Tree tree;
  FreedesktopTrash trash{tree / "data", getuid(), Calendar("Europe/Berlin", "en_US")};
};

TEST_F(FreedesktopTrashTest, MovesFilesAndFoldersWithTheirPlaceAndDate) {
  tree.fill("home/report.pdf", 1000);
  tree.fill("home/folder/inner/file", 1000);
  move("home/report.pdf");
  move("home/folder");
  EXPECT_THAT(names("data/Trash/files"), UnorderedElementsAre("report.pdf", "folder"));
  EXPECT_TRUE(exists("data/Trash/files/folder/inner/file"));
  EXPECT_FALSE(exists("home/report.pdf"));
  EXPECT_THAT(reasonFor(request(tree / "data/Trash/files/report.pdf")), HasSubstr("in the Trash"));
  tree.link("home/link", tree / "data");
  move("home/link");
  EXPECT_TRUE(std::filesystem::is_symlink(tree / "data/Trash/files/link")) << "a link goes itself";
  EXPECT_EQ(info("report.pdf"),
            "[Trash Info]\nPath=" + (tree / "home/report.pdf") + "\nDeletionDate=2026-11-22T00:30:05\n");
  struct stat status;
  ASSERT_EQ(stat((tree / "data/Trash/info/report.pdf.trashinfo").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
  ASSERT_EQ(stat((tree / "data/Trash").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(FreedesktopTrashTest, PathsArePercentEncodedByteByByte) {
  const std::string odd = "a%20b \n\xff\xc3\xa4\"";
  tree.fill("home/" + odd, 10);
  move("home/" + odd);
  EXPECT_THAT(info(odd), HasSubstr("/home/a%2520b%20%0A%FF%C3%A4%22\n"));
}

TEST_F(FreedesktopTrashTest, EqualNamesAreNumberedAndNothingIsReplaced) {
  for (const char* folder : {"one", "two", "three"}) tree.write("home/" + std::string(folder) + "/file.txt", folder);
  // Left behind by another program: a file without information, and information without a file.
  tree.write("data/Trash/files/file.2.txt", "orphan");
  tree.write("data/Trash/info/file.3.txt.trashinfo", "orphan");
  for (const char* folder : {"one", "two", "three"}) move("home/" + std::string(folder) + "/file.txt");
  EXPECT_THAT(names("data/Trash/files"), UnorderedElementsAre("file.txt", "file.2.txt", "file.4.txt", "file.5.txt"));
  EXPECT_EQ(readFile(tree / "data/Trash/files/file.txt"), "one");
  EXPECT_EQ(readFile(tree / "data/Trash/files/file.2.txt"), "orphan");
  EXPECT_EQ(readFile(tree / "data/Trash/info/file.3.txt.trashinfo"), "orphan");
  EXPECT_THAT(info("file.5.txt"), HasSubstr("/home/three/file.txt\n"));
}

TEST_F(FreedesktopTrashTest, LongNamesLeaveRoomForTheInformation) {
  std::string name;
  for (int i = 0; i < 60; ++i) name += "\xf0\x9f\x8c\x8d";
  name += ".tar";
  tree.fill("home/" + name, 10);
  tree.fill("home/again/" + name, 10);
  move("home/" + name);
  move("home/again/" + name);
  const auto files = names("data/Trash/files");
  EXPECT_EQ(files.size(), 2u);
  for (const std::string& file : files) {
    EXPECT_TRUE(isValidUTF8(file));
    EXPECT_THAT(file, EndsWith(".tar"));
  }
  // Bytes that are no text at all, and nowhere the beginning of a character.
  const std::string bytes(255, '\x80');
  tree.fill("home/" + bytes, 10);
  move("home/" + bytes);
  EXPECT_EQ(names("data/Trash/info").size(), 3u);
}

TEST_F(FreedesktopTrashTest, PathsMayBeLongerThanTheSystemsLimit) {
  const std::string name(200, 'd');
  std::string path = tree.path();
  FileDescriptor at = openFolder(path);
  for (int i = 0; i < 30; ++i) {
    ASSERT_EQ(mkdirat(at.get(), name.c_str(), 0755), 0);
    at = FileDescriptor(openat(at.get(), name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    path += "/" + name;
  }
  { const FileDescriptor file(openat(at.get(), "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644)); }
  trash.move(request(path + "/file"), now);
  EXPECT_THAT(names("data/Trash/files"), UnorderedElementsAre("file"));
}

TEST_F(FreedesktopTrashTest, WhatIsNotWhatWasAskedForStays) {
  const std::tuple<std::string, std::string, std::function<void(DiskAdvice::TrashRequest&)>> cases[] = {
      {"written to", "it has changed", [&](auto&) { tree.fill("home/sub/file", 2000); }},
      {"replaced", "it has changed",
       [&](auto&) {
         tree.fill("home/sub/new", 1000);
         std::filesystem::rename(tree / "home/sub/new", tree / "home/sub/file");
       }},
      {"gone", "it is gone", [&](auto&) { std::filesystem::remove(tree / "home/sub/file"); }},
      {"a folder on the way became a link", "Not a directory",
       [&](auto&) {
         std::filesystem::rename(tree / "home/sub", tree / "home/real");
         tree.link("home/sub", tree / "home/real");
       }},
      {"the folder is another one", "its folder has changed",
       [&](DiskAdvice::TrashRequest& request) { request.folder = identityOf(tree / "home"); }},
      {"climbing path", "Invalid argument",
       [&](DiskAdvice::TrashRequest& request) { request.url = tree / "home/sub/../sub/file"; }},
      {"no name", "Invalid argument", [&](DiskAdvice::TrashRequest& request) { request.url = tree / "home/sub/."; }},
      {"relative path", "Invalid argument", [&](DiskAdvice::TrashRequest& request) { request.url = "file"; }},
  };
  for (const auto& [name, reason, change] : cases) {
    SCOPED_TRACE(name);
    std::filesystem::remove_all(tree / "home");
    tree.fill("home/sub/file", 1000);
    auto asked = request(tree / "home/sub/file");
    change(asked);
    EXPECT_THAT(reasonFor(asked), HasSubstr(reason));
    EXPECT_THAT(names("data/Trash/files"), IsEmpty());
    EXPECT_THAT(names("data/Trash/info"), IsEmpty());
  }
}

TEST_F(FreedesktopTrashTest, WithoutPermissionNothingMovesAndNothingIsLeftBehind) {
  tree.fill("home/locked/file", 1000);
  const auto asked = request(tree / "home/locked/file");
  chmod(tree.path().c_str(), 0777);
  {
    const test::Unprivileged drop;
    FreedesktopTrash other(tree / "data", geteuid(), Calendar("UTC", "en_US"));
    EXPECT_THROW(other.move(asked, now), TrashError);
  }
  EXPECT_TRUE(exists("home/locked/file"));
  EXPECT_THAT(names("data/Trash/info"), IsEmpty());
}

// A whole run through the guard: what a report says is what is on the disk.
TEST_F(FreedesktopTrashTest, ServesTheGuardedMove) {
  tree.fill("home/.cache/app/a", 5000);
  tree.fill("home/.cache/app/b/c", 5000);
  tree.fill("home/Downloads/old.zip", 7000);
  const auto item = [&](const std::string& path, bool contentsOnly) {
    const Place place = placeOf(tree / path);
    return CleanupItem{.url = tree / path,
                       .title = "",
                       .bytes = allocatedSpace(place.folder, place.name)->bytes,
                       .modified = {},
                       .contentsOnly = contentsOnly,
                       .identity = identityOf(tree / path)};
  };
  const std::vector<CleanupItem> items{item("home/.cache/app", true), item("home/Downloads/old.zip", false),
                                       item("home/Downloads", false)};
  const auto report = DiskAdvice::moveToTrash(
      items, tree / "home", {}, [&](const DiskAdvice::TrashRequest& request) { return trash.move(request, now); });
  EXPECT_EQ(report.moved.size(), 2u);
  EXPECT_EQ(report.failed.size(), 1u);
  EXPECT_THAT(names("data/Trash/files"), UnorderedElementsAre("a", "b", "old.zip"));
  EXPECT_THAT(names("home/.cache/app"), IsEmpty());
  EXPECT_EQ(report.bytesMoved, items[0].bytes + items[1].bytes);
}

}  // namespace
}  // namespace ambrel
