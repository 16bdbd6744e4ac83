#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/settings.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {
namespace {

using testing::ElementsAre;

class Settings : public testing::Test {
 protected:
  UserDefaults holding(std::string_view json) { return UserDefaults(folder_.write("defaults.json", json)); }
  TemporaryFolder folder_;
};

TEST_F(Settings, EachTakesItsDefaultAndWhatItWritesItself) {
  std::set<std::string> keys;
  for (const SettingRow* row : allSettings()) {
    SCOPED_TRACE(row->key);
    EXPECT_TRUE(keys.insert(row->key).second);
    EXPECT_EQ(findSetting(row->key), row);
    const DefaultsValue standard = standardValue(*row);
    EXPECT_EQ(accepted(*row, standard), standard);
    EXPECT_EQ(parseSetting(*row, settingText(standard)), standard);
    EXPECT_FALSE(row->description.empty() || row->description.ends_with('.'));
  }
  EXPECT_EQ(findSetting("welcomeDone"), nullptr) << "what a model keeps for itself";
}

TEST_F(Settings, AValueOfAnotherTypeGivesTheDefault) {
  const DefaultsArray mixed{{std::string("x")}, {true}};
  const std::vector<DefaultsValue> values{{true},  {std::int64_t{1}},     {7.5}, {std::string("1")},
                                          {mixed}, {DefaultsDictionary{}}};
  for (const SettingRow* row : allSettings()) {
    UserDefaults defaults(folder_ / "defaults.json");
    for (const DefaultsValue& value : values) {
      if (row->type == SettingType::text && std::holds_alternative<std::string>(value.value)) continue;
      if (value.value.index() == standardValue(*row).value.index() &&
          !std::holds_alternative<DefaultsArray>(value.value) && !std::holds_alternative<std::string>(value.value))
        continue;
      defaults.set(row->key, value);
      EXPECT_EQ(presentValue(defaults, *row), standardValue(*row)) << row->key << " " << value.value.index();
    }
  }
  EXPECT_EQ(valueOf(holding(R"({"clipboardLimit":"50"})"), setting::clipboardLimit), 300);
  EXPECT_EQ(valueOf(holding(R"({"dockEdge":"top"})"), setting::dockEdge), DockEdge::bottom);
  EXPECT_EQ(valueOf(holding(R"({"weatherForecastURL":"ftp://x"})"), setting::weatherForecastURL), "");
}

TEST_F(Settings, ANumberIsKeptWithinItsRange) {
  EXPECT_EQ(valueOf(holding(R"({"quietStartHour":-1})"), setting::quietStartHour), 0);
  EXPECT_EQ(valueOf(holding(R"({"quietStartHour":24})"), setting::quietStartHour), 23);
  EXPECT_EQ(valueOf(holding(R"({"clipboardLimit":9223372036854775807})"), setting::clipboardLimit), 100000);
  EXPECT_EQ(valueOf(holding(R"({"claudeBudgetTokens":5000000000})"), setting::claudeBudgetTokens), 5'000'000'000);
}

TEST_F(Settings, OfTheStoredCategoriesTheKnownOnesCount) {
  const auto categories = [&](std::string_view json) { return valueOf(holding(json), setting::buddyCategories); };
  EXPECT_TRUE(categories(R"({"buddyCategories":[]})").empty());
  EXPECT_THAT(categories(R"({"buddyCategories":["health","gossip","agents","health"]})"),
              ElementsAre(BuddyCategory::agents, BuddyCategory::health));
  EXPECT_TRUE(categories(R"({"buddyCategories":["gossip"]})").empty());
  EXPECT_EQ(categories(R"({"buddyCategories":["health",3]})").size(), 5u);
}

TEST_F(Settings, WhatAPersonWritesIsReadBackAsItWas) {
  const std::vector<std::string> texts{"", "a,b", "[c", "d"};
  const DefaultsValue stored = storedForm(setting::ignoredBundleIDs, texts);
  EXPECT_EQ(parseSetting(setting::ignoredBundleIDs, settingText(stored)), stored);
  EXPECT_EQ(settingText(parseSetting(setting::ignoredBundleIDs, " a , b ")), "a,b");
  EXPECT_EQ(settingText(parseSetting(setting::ignoredBundleIDs, "")), "");
  EXPECT_EQ(settingText(parseSetting(setting::buddyCategories, "health,agents")), "agents,health");
}

TEST_F(Settings, ASlipOfAPersonIsRefusedAndNotCorrected) {
  using namespace setting;
  const std::pair<const SettingRow*, std::vector<const char*>> rows[] = {
      {&barAlwaysVisible, {"yes"}},           {&quietStartHour, {"24", "8.5", ""}},
      {&dockEdge, {"top", "Left"}},           {&buddyCategories, {"agents,x", "agents,"}},
      {&ignoredBundleIDs, {"[1]", "[\"a\""}}, {&weatherForecastURL, {"https://"}}};
  for (const auto& [row, slips] : rows)
    for (const char* text : slips) EXPECT_THROW(parseSetting(*row, text), SettingError) << row->key << " " << text;
}

}  // namespace
}  // namespace ambrel
