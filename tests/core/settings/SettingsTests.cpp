#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/settings.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::ElementsAre;

class Settings : public testing::Test {
 protected:
  SettingsValues holding(std::string_view json) {
    return loadSettings(UserDefaults(folder_.write("defaults.json", json)));
  }
  TemporaryFolder folder_;
};

TEST_F(Settings, HaveTheirDefaultsAtAFirstRun) {
  const auto values = loadSettings(UserDefaults(folder_ / "missing.json"));
  EXPECT_EQ(values, SettingsValues{});
  EXPECT_EQ(values.dockEdge, DockEdge::bottom);
  EXPECT_FALSE(values.barAlwaysVisible || values.clipboardPreviewInBar);
  EXPECT_TRUE(values.barPeeksForContext && values.shelfOpensOnHover && values.clipboardEnabled &&
              values.clipboardForgetSensitive && values.agentsEnabled && values.agentNotifications &&
              values.quietHoursOn && values.buddyOnlyUnfocusedAgents);
  EXPECT_EQ(values.clipboardLimit, 300);
  EXPECT_EQ(values.clipboardMaxAgeDays, 0);
  EXPECT_THAT(values.ignoredBundleIDs, ElementsAre("com.1password.1password", "com.agilebits.onepassword7",
                                                   "com.bitwarden.desktop", "com.apple.keychainaccess"));
  EXPECT_EQ(values.buddyLevel, BuddyLevel::all);
  EXPECT_EQ(values.buddyCategories.size(), 5u);
  EXPECT_EQ(values.quietStartHour, 22);
  EXPECT_EQ(values.quietEndHour, 8);
  EXPECT_EQ(values.claudeBudgetTokens, 0);
}

TEST_F(Settings, AreReadFromTheirOwnKeys) {
  const auto values = holding(R"({"dockEdge":"right","barAlwaysVisible":true,"barPeeksForContext":false,
    "shelfOpensOnHover":false,"clipboardPreviewInBar":true,"clipboardEnabled":false,"clipboardLimit":50,
    "clipboardMaxAgeDays":7,"clipboardForgetSensitive":false,"ignoredBundleIDs":[],"agentsEnabled":false,
    "agentNotifications":false,"buddyLevel":"important","buddyCategories":["health"],"quietHoursOn":false,
    "quietStartHour":20,"quietEndHour":6,"claudeBudgetTokens":5000000000,"buddyOnlyUnfocusedAgents":false})");
  const SettingsValues expected{.dockEdge = DockEdge::right,
                                .barAlwaysVisible = true,
                                .barPeeksForContext = false,
                                .shelfOpensOnHover = false,
                                .clipboardPreviewInBar = true,
                                .clipboardEnabled = false,
                                .clipboardLimit = 50,
                                .clipboardMaxAgeDays = 7,
                                .clipboardForgetSensitive = false,
                                .ignoredBundleIDs = {},
                                .agentsEnabled = false,
                                .agentNotifications = false,
                                .buddyLevel = BuddyLevel::important,
                                .buddyCategories = {BuddyCategory::health},
                                .quietHoursOn = false,
                                .quietStartHour = 20,
                                .quietEndHour = 6,
                                .claudeBudgetTokens = 5'000'000'000,
                                .buddyOnlyUnfocusedAgents = false};
  EXPECT_EQ(values, expected);
}

TEST_F(Settings, AValueOfAnotherTypeGivesTheDefault) {
  const auto values = holding(R"({"dockEdge":"top","barAlwaysVisible":1,"barPeeksForContext":"false",
    "shelfOpensOnHover":[],"clipboardPreviewInBar":"yes","clipboardEnabled":0,"clipboardLimit":"50",
    "clipboardMaxAgeDays":7.5,"clipboardForgetSensitive":0,"ignoredBundleIDs":"com.example","agentsEnabled":{},
    "agentNotifications":"no","buddyLevel":2,"buddyCategories":["health",3],"quietHoursOn":0,
    "quietStartHour":true,"quietEndHour":"6","claudeBudgetTokens":"9","buddyOnlyUnfocusedAgents":null})");
  EXPECT_EQ(values, SettingsValues{});
  EXPECT_EQ(holding("not json"), SettingsValues{});
}

TEST_F(Settings, OfTheStoredCategoriesTheKnownOnesCount) {
  EXPECT_TRUE(holding(R"({"buddyCategories":[]})").buddyCategories.empty());
  EXPECT_THAT(holding(R"({"buddyCategories":["health","gossip","agents","health"]})").buddyCategories,
              ElementsAre(BuddyCategory::agents, BuddyCategory::health));
  EXPECT_TRUE(holding(R"({"buddyCategories":["gossip"]})").buddyCategories.empty());
}

TEST_F(Settings, WhatIsStoredIsRead) {
  UserDefaults defaults(folder_ / "defaults.json");
  for (const DockEdge edge : allCases<DockEdge>()) {
    defaults.set("dockEdge", storedForm(edge));
    EXPECT_EQ(loadSettings(defaults).dockEdge, edge);
  }
  for (const BuddyLevel level : allCases<BuddyLevel>()) {
    defaults.set("buddyLevel", storedForm(level));
    EXPECT_EQ(loadSettings(defaults).buddyLevel, level);
  }
  const std::set categories{BuddyCategory::limits, BuddyCategory::system};
  defaults.set("buddyCategories", storedForm(categories));
  defaults.set("ignoredBundleIDs", storedForm(std::vector<std::string>{"a", "b"}));
  defaults.set("clipboardLimit", storedForm(std::int64_t{9}));
  defaults.set("quietHoursOn", storedForm(false));
  const auto values = loadSettings(UserDefaults(folder_ / "defaults.json"));
  EXPECT_EQ(values.buddyCategories, categories);
  EXPECT_THAT(values.ignoredBundleIDs, ElementsAre("a", "b"));
  EXPECT_EQ(values.clipboardLimit, 9);
  EXPECT_FALSE(values.quietHoursOn);
}

}  // namespace
}  // namespace ambrel
