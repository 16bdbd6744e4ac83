#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "core/base/Files.h"
#include "core/profiles.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ProfileFile : public testing::Test {
 protected:
  LoadedProfiles loading(std::string_view bytes) {
    makeFolders(file_.parent_path());
    writeAtomically(file_, bytes);
    return loadProfiles(file_);
  }
  static bool areDefaults(const std::vector<Profile>& profiles) {
    return profiles.size() == 2 && profiles[0].name == "Laptop" && profiles[1].name == "Desk" &&
           profiles[1].items.size() == 7;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() / "Ambrel" / "profiles.json";
};

TEST_F(ProfileFile, AFirstRunHasTheDefaultsAndNoProblemAndWritesNothing) {
  const auto loaded = loadProfiles(file_);
  EXPECT_TRUE(areDefaults(loaded.profiles));
  EXPECT_EQ(loaded.problem, std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_.parent_path()));
  saveProfiles(file_, loaded.profiles);
  EXPECT_EQ(loadProfiles(file_).profiles, loaded.profiles);
  saveProfiles(file_, {});
  EXPECT_EQ(loadProfiles(file_).problem, std::nullopt) << "no profiles are no problem";
}

TEST_F(ProfileFile, HoldsTheDocumentedKeysAndLeavesAbsentOnesOut) {
  const std::string stored = readFile(AMBREL_CASES "/profiles/stored.json").value();
  const auto loaded = loading(stored);
  ASSERT_EQ(loaded.problem, std::nullopt);
  ASSERT_EQ(loaded.profiles.size(), 2u);
  EXPECT_EQ(loaded.profiles[0].trigger, DisplayContext::builtinOnly);
  EXPECT_EQ(loaded.profiles[0].items[0].widget, "clock");
  EXPECT_EQ(loaded.profiles[0].items[1].bundleID, "com.example.app");
  EXPECT_EQ(loaded.profiles[1].trigger, std::nullopt);
  saveProfiles(file_, loaded.profiles);
  EXPECT_EQ(readFile(file_), stored);
}

TEST_F(ProfileFile, PassesOverUnknownKeysAndTakesNullForAbsent) {
  const auto loaded = loading(
      R"([{"id":"00000000-0000-4000-8000-000000000001","name":"A","trigger":null,"colour":[1,{"x":2}],)"
      R"("items":[{"id":"00000000-0000-4000-8000-0000000000a1","widget":"unheardOf","bundleID":null,"size":9}]}])");
  ASSERT_EQ(loaded.problem, std::nullopt);
  EXPECT_EQ(loaded.profiles[0].trigger, std::nullopt);
  // An id of a later version is kept for it.
  EXPECT_EQ(loaded.profiles[0].items[0].widget, "unheardOf");
  EXPECT_EQ(loaded.profiles[0].items[0].bundleID, std::nullopt);
}

TEST_F(ProfileFile, KeepsWhatASlotShowsAsItIs) {
  const auto with = [this](const std::string& settings) {
    return loading(R"([{"id":"00000000-0000-4000-8000-000000000001","name":"A","items":[)"
                   R"({"id":"00000000-0000-4000-8000-0000000000a1","settings":)" +
                   settings + R"(,"widget":"countdown"}]}])");
  };
  const std::string settings = R"({"countdownDate":8.5,"countdownTitle":null,"later":{"list":[1,"x"]}})";
  auto loaded = with(settings);
  ASSERT_EQ(loaded.problem, std::nullopt);
  const SlotSettings& read = loaded.profiles[0].items[0].settings;
  EXPECT_EQ(read.at("countdownDate"), DefaultsValue{8.5});
  EXPECT_EQ(read.at("countdownTitle"), std::nullopt);
  saveProfiles(file_, loaded.profiles);
  EXPECT_EQ(nlohmann::json::parse(readFile(file_).value())[0]["items"][0]["settings"], nlohmann::json::parse(settings));
  for (const char* none : {"null", "{}", "7", "[\"x\"]"}) {
    loaded = with(none);
    ASSERT_EQ(loaded.problem, std::nullopt) << none;
    EXPECT_TRUE(loaded.profiles[0].items[0].settings.empty());
  }
}

TEST_F(ProfileFile, AnythingElseGivesTheDefaultsALineForTheLogAndStaysInPlace) {
  const std::string id = R"("id":"00000000-0000-4000-8000-000000000001")", good = id + R"(,"name":"A","items":[])";
  const auto profile = [](const std::string& fields) { return "[{" + fields + "}]"; };
  const std::string bad[] = {
      "", "null", "{}", "[", "[{" + good + "}", profile(good) + " trailing", "[null]", "[[]]", "[{}]",
      std::string(100'000, '['), std::string("\0\0\0\0", 4),
      // One field of one profile.
      profile(id + R"(,"items":[])"), profile(id + R"(,"name":"A")"),
      profile(R"("id":"not an id","name":"A","items":[])"), profile(R"("id":7,"name":"A","items":[])"),
      profile(id + R"(,"name":7,"items":[])"), profile(id + R"(,"name":"A","items":{})"),
      profile(id + R"(,"name":"A","items":["clock"])"), profile(id + R"(,"name":"A","items":[{"widget":"clock"}])"),
      profile(id + R"(,"name":"A","items":[{)" + id + R"(,"widget":5}])"), profile(good + R"(,"trigger":"sometimes")"),
      profile(good + R"(,"trigger":1)"), profile(id + ",\"name\":\"\xff\xfe\",\"items\":[]")};
  for (const auto& bytes : bad) {
    SCOPED_TRACE(bytes.substr(0, 100));
    const auto loaded = loading(bytes);
    EXPECT_TRUE(areDefaults(loaded.profiles));
    ASSERT_TRUE(loaded.problem);
    EXPECT_THAT(*loaded.problem, StartsWith("cannot read profiles, using defaults: "));
    EXPECT_GT(loaded.problem->size(), 40u);
    EXPECT_EQ(readFile(file_), bytes);
  }
}

TEST_F(ProfileFile, AFolderInItsPlaceIsAProblemAndNotAFirstRun) {
  makeFolders(file_);
  const auto loaded = loadProfiles(file_);
  EXPECT_TRUE(areDefaults(loaded.profiles));
  ASSERT_TRUE(loaded.problem);
  EXPECT_THAT(*loaded.problem, HasSubstr(file_.string()));
  EXPECT_THROW(saveProfiles(file_, loaded.profiles), FileError);
}

}  // namespace
}  // namespace ambrel
