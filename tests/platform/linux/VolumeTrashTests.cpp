// The Trash on other volumes, in a mount namespace of the program's own. Skipped where the system forbids that.

#include "core/disk/Handles.h"
#include "platform/linux/FreedesktopTrash.h"
#include "tests/Matchers.h"
#include "tests/core/disk/MountTest.h"

namespace ambrel {
namespace {

class VolumeTrash : public test::MountTest {
 protected:
  void SetUp() override {
    MountTest::SetUp();
    if (IsSkipped()) return;
    mountMemory(tree.folder("stick"), 0, "mode=755");
    tree.fill("stick/deep/er/my file", 3000);
  }
  void TearDown() override {
    if (isAvailable()) unmount(tree / "stick");
  }
  std::string move(const std::string& relative) {
    try {
      place = trash.move({.url = tree / relative, .identity = *identityOf(tree / relative)}, Instant{});
    } catch (const TrashError& error) {
      reason = error.reason();
      return error.what();
    }
    return "moved";
  }
  std::string text(const std::string& relative) const { return readFile(tree / relative).value_or("missing"); }
  bool exists(const std::string& relative) const { return std::filesystem::exists(tree / relative); }

  test::Tree tree;
  const std::string user = std::to_string(getuid());
  FreedesktopTrash trash{tree / "data", getuid(), Calendar("UTC", "en_US")};
  std::optional<StayReason> reason;
  TrashPlace place;
};

TEST_F(VolumeTrash, TheVolumesOwnFolderIsMadeAndPathsStartAtItsTop) {
  EXPECT_EQ(move("stick/deep/er/my file"), "moved");
  EXPECT_TRUE(exists("stick/.Trash-" + user + "/files/my file"));
  EXPECT_THAT(text("stick/.Trash-" + user + "/info/my file.trashinfo"), HasSubstr("\nPath=deep/er/my%20file\n"));
  EXPECT_FALSE(exists("data/Trash/files/my file"));
  // No file manager shows the Trash of a volume in memory.
  EXPECT_EQ(place, (TrashPlace{.folder = tree / ("stick/.Trash-" + user), .isListed = false}));
}

TEST_F(VolumeTrash, IsNamedBeforeAnythingMoves) {
  const std::string path = tree / "stick/deep/er/my file";
  EXPECT_EQ(trash.placeFor(path), (TrashPlace{.folder = tree / ("stick/.Trash-" + user), .isListed = false}));
  EXPECT_FALSE(exists("stick/.Trash-" + user));
  EXPECT_EQ(trash.placeFor(tree.fill("file", 10)), (TrashPlace{.folder = tree / "data/Trash"}));
  EXPECT_FALSE(exists("data"));
  tree.link("stick/.Trash-" + user, tree.path());
  EXPECT_EQ(trash.placeFor(path), std::nullopt);
}

TEST_F(VolumeTrash, AFullDiskIsCalledFull) {
  EXPECT_EQ(move("stick/deep/er/my file"), "moved");
  tree.fill("stick/last", 3000);
  ASSERT_EQ(mount(nullptr, (tree / "stick").c_str(), nullptr, MS_REMOUNT, "size=64k"), 0);
  {
    const FileDescriptor file(open((tree / "stick/filler").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    const std::string block(4096, 'x');
    while (write(file.get(), block.data(), block.size()) > 0) continue;
  }
  move("stick/last");
  EXPECT_EQ(reason, StayReason::diskFull);
  EXPECT_TRUE(exists("stick/last"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(tree / ("stick/.Trash-" + user + "/info")), {}), 1);
}

TEST_F(VolumeTrash, ASharedTrashNeedsItsStickyBit) {
  tree.folder("stick/.Trash");
  chmod((tree / "stick/.Trash").c_str(), 0777);
  EXPECT_EQ(move("stick/deep/er/my file"), "moved");
  EXPECT_FALSE(exists("stick/.Trash/" + user));
  tree.fill("stick/second", 100);
  chmod((tree / "stick/.Trash").c_str(), 01777);
  EXPECT_EQ(move("stick/second"), "moved");
  EXPECT_TRUE(exists("stick/.Trash/" + user + "/files/second"));
}

TEST_F(VolumeTrash, ATrashThatIsALinkIsNotUsed) {
  tree.folder("elsewhere");
  chmod((tree / "elsewhere").c_str(), 01777);
  tree.link("stick/.Trash", tree / "elsewhere");
  EXPECT_EQ(move("stick/deep/er/my file"), "moved");
  EXPECT_TRUE(exists("stick/.Trash-" + user + "/files/my file"));
  // Nor is one of the home.
  tree.fill("stick/another", 100);
  tree.folder("stick/data");
  tree.link("stick/data/Trash", tree / "elsewhere");
  FreedesktopTrash other(tree / "stick/data", getuid(), Calendar("UTC", "en_US"));
  other.move({.url = tree / "stick/another", .identity = *identityOf(tree / "stick/another")}, Instant{});
  EXPECT_TRUE(exists("stick/.Trash-" + user + "/files/another"));
  EXPECT_TRUE(std::filesystem::is_empty(tree / "elsewhere"));
}

TEST_F(VolumeTrash, WithoutATrashOnItsVolumeAFileStays) {
  tree.link("stick/.Trash-" + user, tree / "data");
  EXPECT_THAT(move("stick"), HasSubstr("something is mounted on it"));
  EXPECT_THAT(move("stick/deep/er/my file"), HasSubstr("its volume has no Trash"));
  EXPECT_EQ(reason, StayReason::noTrash);
  EXPECT_TRUE(exists("stick/deep/er/my file"));
  std::filesystem::remove(tree / ("stick/.Trash-" + user));
  ASSERT_EQ(mount(nullptr, (tree / "stick").c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  move("stick/deep/er/my file");
  EXPECT_EQ(reason, StayReason::readOnly);
}

// The same file system, yet nothing can be renamed from one mount of it to the other.
TEST_F(VolumeTrash, ABindMountHasATrashOfItsOwn) {
  tree.folder("bound");
  tree.fill("source/file", 100);
  bindMount(tree / "source", tree / "bound");
  EXPECT_EQ(move("bound/file"), "moved");
  EXPECT_TRUE(exists("source/.Trash-" + user + "/files/file"));
  EXPECT_THAT(text("source/.Trash-" + user + "/info/file.trashinfo"), HasSubstr("\nPath=file\n"));
  EXPECT_FALSE(place.isListed);
  unmount(tree / "bound");
}

TEST(ListedVolumes, AreDrivesUnderTheirFirstPath) {
  const std::vector<Mount> mounts{{"8:2", "/", "ext4", "/dev/sda2"},
                                  {"8:17", "/media/a/STICK", "vfat", "/dev/sdb1"},
                                  {"8:17", "/home/a/stick", "vfat", "/dev/sdb1"},
                                  {"8:33", "/home/a/part", "ext4", "/dev/sdc1", "/folder"},
                                  {"0:40", "/data", "btrfs", "/dev/sdd1", "/@data"},
                                  {"8:65", "/home", "ext4", "/dev/sde1"},
                                  {"0:41", "/mnt/ram", "tmpfs", "tmpfs"}};
  std::vector<std::string> listed;
  for (const Mount& mount : mounts)
    if (isListedVolume(mounts, mount.path)) listed.push_back(mount.path);
  EXPECT_THAT(listed, ElementsAre("/media/a/STICK", "/data"));
  EXPECT_FALSE(isListedVolume(mounts, "/data/subvolume"));
}

}  // namespace
}  // namespace ambrel
