#include <limits>

#include "core/base/Files.h"
#include "core/base/UserDefaults.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

class Defaults : public testing::Test {
 protected:
  UserDefaults opened() const { return UserDefaults(file_); }
  UserDefaults holding(std::string_view bytes) const {
    folder_.write("Ambrel/defaults.json", bytes);
    return opened();
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "Ambrel/defaults.json";
};

TEST_F(Defaults, EveryTypeComesBackAsItself) {
  const DefaultsValue values[] = {
      // Scalars at their limits.
      {true},
      {false},
      {std::int64_t{0}},
      {std::numeric_limits<std::int64_t>::min()},
      {std::numeric_limits<std::int64_t>::max()},
      {1.0},
      {0.1},
      {-1e300},
      {std::string()},
      {std::string("Grüße \"quoted\"\n\t\\ \x01 ✓")},
      {DefaultsData{}},
      {DefaultsData{std::string("\0\xff\xfe binary", 10)}},
      {Instant(std::chrono::microseconds(1'800'000'000'123'456))},
      // What holds others.
      {DefaultsArray{}},
      {DefaultsArray{{true}, {1.0}, {DefaultsArray{{DefaultsData{"x"}}}}}},
      {DefaultsDictionary{{"2026-11-21", {std::int64_t{3}}}, {"", {std::string("empty key")}}}},
      // Dictionaries that look like the forms of data and dates.
      {DefaultsDictionary{{"$data", {std::string("QUJD")}}}},
      {DefaultsDictionary{{"$date", {std::string("2026-11-21T09:00:00Z")}}}},
      {DefaultsDictionary{{"$dictionary", {DefaultsDictionary{{"$data", {std::string("QUJD")}}}}}}},
  };
  {
    auto defaults = opened();
    for (std::size_t i = 0; i < std::size(values); ++i) defaults.set("key" + std::to_string(i), values[i]);
  }
  const auto again = opened();
  for (std::size_t i = 0; i < std::size(values); ++i) {
    const auto* value = again.object("key" + std::to_string(i));
    ASSERT_TRUE(value) << i;
    EXPECT_EQ(*value, values[i]) << i;
  }
}

TEST_F(Defaults, AValueOfAnotherTypeIsAbsent) {
  const auto defaults = holding(R"({"limit": "300", "on": 1, "level": true, "share": 3, "half": 3.5, "big": 1e19,
      "names": ["a", 1], "list": ["a", "b"], "when": "2026-11-21T09:00:00Z", "nothing": null})");
  EXPECT_EQ(defaults.string("limit"), "300");
  EXPECT_EQ(defaults.number("share"), 3.0);
  EXPECT_EQ(defaults.number("half"), 3.5);
  EXPECT_THAT(defaults.strings("list").value(), ElementsAre("a", "b"));
  for (const char* key : {"limit", "level", "half", "big"}) EXPECT_EQ(defaults.integer(key), std::nullopt) << key;
  EXPECT_FALSE(defaults.boolean("on") || defaults.strings("names") || defaults.date("when") || defaults.data("when") ||
               defaults.dictionary("list") || defaults.object("nothing") || defaults.object("missing"));
}

TEST_F(Defaults, EachChangeIsOnDiskAtOnceAndForTheUserAlone) {
  auto defaults = opened();
  EXPECT_FALSE(std::filesystem::exists(file_.parent_path()));
  defaults.set("a", DefaultsValue{true});
  EXPECT_EQ(opened().boolean("a"), true);
  using std::filesystem::perms;
  EXPECT_EQ(std::filesystem::status(file_).permissions(), perms::owner_read | perms::owner_write);
  EXPECT_EQ(std::filesystem::status(file_.parent_path()).permissions(), perms::owner_all);
  defaults.remove("a");
  EXPECT_EQ(opened().object("a"), nullptr);
}

TEST_F(Defaults, AnEqualValueWritesNothing) {
  auto defaults = opened();
  defaults.set("a", DefaultsValue{std::int64_t{1}});
  std::filesystem::remove(file_);
  defaults.set("a", DefaultsValue{std::int64_t{1}});
  defaults.remove("missing");
  EXPECT_FALSE(std::filesystem::exists(file_));
  defaults.set("a", DefaultsValue{1.0});
  EXPECT_TRUE(std::filesystem::exists(file_));
}

TEST_F(Defaults, WhatCouldNotBeWrittenStaysInMemoryUntilItCan) {
  auto defaults = holding(R"({"mine": 1, "gone": true, "theirs": 1})");
  int failures = 0;
  defaults.onFailed = [&](const std::exception&) { ++failures; };
  std::filesystem::rename(folder_ / "Ambrel", folder_ / "away");
  folder_.write("Ambrel", "a file where the folder should be");
  EXPECT_THROW(defaults.set("mine", DefaultsValue{std::int64_t{2}}), FileError);
  EXPECT_THROW(defaults.remove("gone"), FileError);
  EXPECT_THROW(defaults.set({{"theirs", {std::int64_t{1}}}, {"new", {true}}}), FileError);
  EXPECT_THROW(defaults.save(), FileError);
  EXPECT_EQ(failures, 4);
  EXPECT_EQ(readFile(folder_ / "Ambrel"), "a file where the folder should be");

  std::filesystem::remove(folder_ / "Ambrel");
  folder_.write("Ambrel/defaults.json", R"({"mine": 1, "gone": true, "theirs": 2})");
  defaults.refresh();
  EXPECT_EQ(defaults.integer("mine"), 2);
  EXPECT_TRUE(defaults.isUnsaved());
  defaults.save();
  EXPECT_FALSE(defaults.isUnsaved());
  EXPECT_EQ(opened().all(),
            (DefaultsDictionary{{"mine", {std::int64_t{2}}}, {"theirs", {std::int64_t{2}}}, {"new", {true}}}));
}

TEST_F(Defaults, WhatCannotBeReadIsSetAsideBeforeItIsReplacedAndNoCopyIsLost) {
  int copies = 0;
  for (const std::string& bytes :
       {std::string("{\"a\": tru"), std::string("[1]"), std::string("\"text\""), std::string(), std::string("\xff\xfe"),
        std::string(5000, '['), std::string("{\"a\":") + std::string(5000, '{')}) {
    SCOPED_TRACE(bytes.substr(0, 20));
    auto defaults = holding(bytes);
    EXPECT_TRUE(defaults.isUnreadable());
    EXPECT_TRUE(defaults.all().empty());
    EXPECT_EQ(readFile(file_), bytes);
    std::vector<std::filesystem::path> kept;
    defaults.onSetAside = [&](const auto& copy) { kept.push_back(copy); };
    defaults.set("b", DefaultsValue{true});
    defaults.set("c", DefaultsValue{true});
    auto aside = file_;
    aside += ++copies == 1 ? ".unreadable" : ".unreadable-" + std::to_string(copies);
    EXPECT_THAT(kept, ElementsAre(aside));
    EXPECT_EQ(readFile(aside), bytes);
    EXPECT_EQ(opened().all().size(), 2u);
  }
  EXPECT_EQ(readFile(file_.string() + ".unreadable"), "{\"a\": tru");
}

TEST_F(Defaults, WhatOthersWriteMeanwhileIsTakenOverAndNotLost) {
  auto defaults = holding(R"({"mine": 1, "theirs": 1, "gone": true})");
  std::vector<std::set<std::string>> told;
  defaults.onRefreshed = [&](const auto& keys) { told.push_back(keys); };
  defaults.refresh();
  EXPECT_TRUE(told.empty());
  folder_.write("Ambrel/defaults.json", R"({"mine": 1, "theirs": 2, "new": "x"})");
  defaults.set("mine", DefaultsValue{std::int64_t{5}});
  EXPECT_THAT(told, ElementsAre(std::set<std::string>{"gone", "new", "theirs"}));
  EXPECT_EQ(opened().integer("theirs"), 2);
  EXPECT_EQ(opened().integer("mine"), 5);
  EXPECT_EQ(defaults.object("gone"), nullptr);
  defaults.refresh();
  EXPECT_EQ(told.size(), 1u) << "what we wrote ourselves is no news";

  // A slip of the pen resets nothing, and what was meant is not lost either.
  int slips = 0;
  defaults.onUnreadable = [&] { ++slips; };
  folder_.write("Ambrel/defaults.json", R"({"mine": 5, "theirs": 3,})");
  defaults.refresh();
  defaults.refresh();
  EXPECT_EQ(slips, 1);
  EXPECT_EQ(defaults.integer("theirs"), 2);
  defaults.set("mine", DefaultsValue{std::int64_t{6}});
  EXPECT_EQ(readFile(file_.string() + ".unreadable"), R"({"mine": 5, "theirs": 3,})");
  EXPECT_EQ(opened().integer("theirs"), 2);
}

TEST_F(Defaults, ALinkStaysALink) {
  folder_.write("dotfiles/defaults.json", R"({"a": 1})");
  std::filesystem::create_directories(file_.parent_path());
  std::filesystem::create_symlink(folder_ / "dotfiles/defaults.json", file_);
  auto defaults = opened();
  defaults.set("b", DefaultsValue{true});
  EXPECT_TRUE(std::filesystem::is_symlink(file_));
  EXPECT_EQ(UserDefaults(folder_ / "dotfiles/defaults.json").all().size(), 2u);
  // Damaged, the file is set aside, and the link stays.
  folder_.write("dotfiles/defaults.json", "{");
  defaults.set("c", DefaultsValue{true});
  EXPECT_TRUE(std::filesystem::is_symlink(file_));
  EXPECT_EQ(readFile(folder_ / "dotfiles/defaults.json.unreadable"), "{");
  EXPECT_EQ(UserDefaults(folder_ / "dotfiles/defaults.json").all().size(), 3u);
}

TEST_F(Defaults, KeysOfOtherVersionsStay) {
  auto defaults = holding(R"({"fromLater": {"x": [1, {"$new": 2}]}, "$data": "QUJD"})");
  defaults.set("mine", DefaultsValue{true});
  const auto again = opened();
  EXPECT_EQ(again.all().size(), 3u);
  EXPECT_EQ(*again.object("fromLater"), *defaults.object("fromLater"));
  EXPECT_EQ(again.string("$data"), "QUJD");
}

TEST_F(Defaults, AreTheSameToTheByteInWhateverOrderTheyWereSet) {
  auto defaults = opened();
  defaults.set("b", DefaultsValue{true});
  defaults.set("a", std::vector<std::string>{"x"});
  const auto first = readFile(file_);
  defaults.remove("b");
  defaults.set("b", DefaultsValue{true});
  EXPECT_EQ(readFile(file_), first);
}

}  // namespace
}  // namespace ambrel
