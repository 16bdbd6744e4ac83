#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/base/Files.h"
#include "core/settings/SandboxMigration.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr auto library = "home/Library/Containers/com.ambrel.app/Data/Library/";

class SandboxMigration : public testing::Test {
 protected:
  void holdsOldFile(const std::string& name, std::string_view bytes) {
    folder_.write(library + ("Application Support/Ambrel/" + name), bytes);
  }
  void holdsOldDefaults(std::string_view json) {
    folder_.write(library + std::string("Preferences/com.ambrel.app.json"), json);
  }
  std::vector<std::string> migrate(std::string identifier = "dev.qorvin.ambrel") {
    return migrateFromSandbox({folder_ / "home", data_, std::move(identifier)}, defaults_);
  }
  bool isDone() { return UserDefaults(defaults_.file()).boolean("migratedFromLegacyBundleID") == true; }

  TemporaryFolder folder_;
  std::filesystem::path data_ = folder_ / "share/Ambrel";
  UserDefaults defaults_{folder_ / "config/defaults.json"};
};

TEST_F(SandboxMigration, CopiesTheDataAndTheDefaultsOnce) {
  holdsOldFile("profiles.json", "[]");
  holdsOldFile("Clipboard/one.png", "picture");
  holdsOldDefaults(
      R"({"clipboardLimit": 50, "weatherPlace": {"$data": "QUJD"}, "waterLastDrink": {"$date": "2026-11-21T09:00:00Z"}})");
  EXPECT_THAT(migrate(), IsEmpty());
  EXPECT_EQ(readFile(data_ / "profiles.json"), "[]");
  EXPECT_EQ(readFile(data_ / "Clipboard/one.png"), "picture");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(data_.parent_path()), {}), 1);
  const UserDefaults stored(defaults_.file());
  EXPECT_EQ(stored.integer("clipboardLimit"), 50);
  EXPECT_EQ(stored.data("weatherPlace"), "ABC");
  EXPECT_EQ(stored.date("waterLastDrink"), parseISO8601("2026-11-21T09:00:00Z"));
  EXPECT_TRUE(isDone());

  std::filesystem::remove_all(data_);
  defaults_.remove("clipboardLimit");
  EXPECT_THAT(migrate(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data_));
  EXPECT_EQ(defaults_.object("clipboardLimit"), nullptr);
}

TEST_F(SandboxMigration, AFolderOfOursStaysAsItIsYetTheDefaultsAreMerged) {
  holdsOldFile("profiles.json", "old");
  holdsOldDefaults(R"({"clipboardLimit": 50, "dockEdge": "left"})");
  folder_.write("share/Ambrel/profiles.json", "ours");
  defaults_.set("clipboardLimit", DefaultsValue{std::int64_t{9}});
  EXPECT_THAT(migrate(), IsEmpty());
  EXPECT_EQ(readFile(data_ / "profiles.json"), "ours");
  EXPECT_EQ(defaults_.integer("clipboardLimit"), 9);
  EXPECT_EQ(defaults_.string("dockEdge"), "left");
}

TEST_F(SandboxMigration, LeavesBookmarksAndMarksOfMigrationsBehind) {
  holdsOldDefaults(R"({"homeBookmark": 1, "cleanupBookmark.x": 1, "migratedShelf": true, "Bookmarks": 2,
                       "migratedFromLegacyBundleID": false, "cleanupbookmark.": 3, "unmigrated": 4})");
  migrate();
  std::vector<std::string> keys;
  for (const auto& [key, value] : defaults_.all()) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("Bookmarks", "cleanupbookmark.", "migratedFromLegacyBundleID", "unmigrated"));
  EXPECT_TRUE(isDone());
}

TEST_F(SandboxMigration, ReadsAPropertyListWhenThereIsNoDocument) {
  folder_.write(library + std::string("Preferences/com.ambrel.app.plist"),
                "<plist version=\"1.0\"><dict><key>quietStartHour</key><integer>20</integer></dict></plist>");
  migrate();
  EXPECT_EQ(defaults_.integer("quietStartHour"), 20);
}

TEST_F(SandboxMigration, TheSandboxedProgramItselfChangesNothing) {
  holdsOldFile("profiles.json", "[]");
  holdsOldDefaults(R"({"dockEdge": "left"})");
  EXPECT_THAT(migrate("com.ambrel.app"), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data_));
  EXPECT_TRUE(defaults_.all().empty());
}

TEST_F(SandboxMigration, ACopyThatFailsIsToldLeavesNothingHalfDoneAndIsNotTriedAgain) {
  holdsOldFile("profiles.json", "[]");
  holdsOldDefaults(R"({"dockEdge": "left"})");
  folder_.write("share", "a file where the folder should be");
  EXPECT_THAT(migrate(), ElementsAre(StartsWith("cannot copy data from the sandbox container: ")));
  EXPECT_EQ(defaults_.string("dockEdge"), "left");
  EXPECT_TRUE(isDone());
  std::filesystem::remove(folder_ / "share");
  EXPECT_THAT(migrate(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(data_));
}

TEST_F(SandboxMigration, AnUnfinishedCopyOfACrashIsStartedAgain) {
  holdsOldFile("profiles.json", "whole");
  folder_.write("share/Ambrel.unfinished/profiles.json", "ha");
  folder_.write("share/Ambrel.unfinished/stale", "");
  EXPECT_THAT(migrate(), IsEmpty());
  EXPECT_EQ(readFile(data_ / "profiles.json"), "whole");
  EXPECT_FALSE(std::filesystem::exists(data_ / "stale"));
}

}  // namespace
}  // namespace ambrel
