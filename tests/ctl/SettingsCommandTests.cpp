#include <memory>

#include "core/base/JSON.h"
#include "core/settings.h"
#include "tests/Matchers.h"
#include "tests/TemporaryFolder.h"
#include "tests/ctl/CommandRun.h"

namespace ambrel {
namespace {

class SettingsCommand : public testing::Test {
 protected:
  std::vector<std::string> environment() const { return {"HOME=" + home_.path().string()}; }
  CommandResult run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "settings");
    return runCommand(std::move(arguments), environment());
  }
  std::filesystem::path file() const { return home_ / ".config/Ambrel/defaults.json"; }

  TemporaryFolder home_;
};

TEST_F(SettingsCommand, ChangesWhatTheBarReadsAndLeavesTheRest) {
  home_.write(".config/Ambrel/defaults.json", R"({"dockEdge": "right", "welcomeDone": true})");
  EXPECT_EQ(run({"get", "dockEdge"}).out, "right\n");
  for (const auto& [key, value] : {std::pair{"dockEdge", "left"},
                                   {"quietStartHour", "21"},
                                   {"buddyCategories", "limits,agents"},
                                   {"ignoredBundleIDs", "[\"a,b\"]"}})
    EXPECT_EQ(run({"set", key, value}), CommandResult{});
  const UserDefaults stored(file());
  const auto values = loadSettings(stored);
  EXPECT_EQ(values.dockEdge, DockEdge::left);
  EXPECT_EQ(values.quietStartHour, 21);
  EXPECT_EQ(values.buddyCategories, (std::set{BuddyCategory::agents, BuddyCategory::limits}));
  EXPECT_THAT(values.ignoredBundleIDs, ElementsAre("a,b"));
  EXPECT_EQ(stored.boolean("welcomeDone"), true);
  EXPECT_EQ(run({"get", "ignoredBundleIDs"}).out, "[\"a,b\"]\n");

  EXPECT_EQ(run({"reset", "dockEdge"}).status, 0);
  EXPECT_EQ(run({"get", "dockEdge"}).out, "bottom\n");
  EXPECT_EQ(UserDefaults(file()).object("dockEdge"), nullptr);
}

TEST_F(SettingsCommand, ListsEverySettingWithWhatItTakes) {
  EXPECT_EQ(run({"set", "quietStartHour", "21"}).status, 0);
  const auto list = parseJSON(run({"list", "--json"}).out);
  ASSERT_TRUE(list && list->is_array());
  EXPECT_EQ(list->size(), allSettings().size());
  const auto entry = [&](std::string_view key) {
    for (const JSON& each : *list)
      if (each.at("key") == key) return each;
    return JSON();
  };
  EXPECT_EQ(entry("quietStartHour"), *parseJSON(R"({"key":"quietStartHour","value":21,"default":22,"type":"integer",
      "range":[0,23],"page":"buddy","description":"The hour at which the quiet hours begin"})"));
  EXPECT_EQ(entry("dockEdge").at("range"), (JSON{"bottom", "left", "right"}));
  EXPECT_EQ(entry("buddyCategories").at("value").size(), 5u);
  EXPECT_FALSE(entry("barAlwaysVisible").contains("range"));
  EXPECT_THAT(run({"list"}).out, HasSubstr("The hour at which the quiet hours begin (0 to 23)\n"));
}

TEST_F(SettingsCommand, RefusesWhatASettingDoesNotTake) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"get", "dockEgde"}, "unknown setting 'dockEgde'; did you mean 'dockEdge'?"},
      {{"set", "welcomeDone", "true"}, "unknown setting 'welcomeDone'; see 'tilebayctl settings list'"},
      {{"set", "dockEdge", "top"}, "'top' is no value of dockEdge, which takes one of bottom, left, right"},
      {{"set", "quietEndHour", "24"}, "'24' is no value of quietEndHour, which takes a whole number from 0 to 23"},
      {{"set", "agentsEnabled", "on"}, "'on' is no value of agentsEnabled, which takes true or false"},
  };
  for (const auto& [arguments, error] : cases)
    EXPECT_EQ(run(arguments), (CommandResult{2, "", "tilebayctl: " + std::string(error) + "\n"}));
  EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(SettingsCommand, LeavesAFileWithAMistakeForAPersonToMend) {
  home_.write(".config/Ambrel/defaults.json", R"({"dockEdge": "left",})");
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"list"}, {"get", "dockEdge"}, {"set", "dockEdge", "right"}, {"reset", "dockEdge"}})
    EXPECT_EQ(run(arguments),
              (CommandResult{1, "", "tilebayctl: " + file().string() + " is no JSON; mend or remove it first\n"}));
  EXPECT_EQ(readFile(file()), R"({"dockEdge": "left",})");
}

TEST_F(SettingsCommand, ChangesAtTheSameTimeAllStay) {
  home_.write(".config/Ambrel/defaults.json", "{}");
  std::vector<std::unique_ptr<CommandRun>> runs;
  std::size_t count = 0;
  for (const SettingRow* row : allSettings()) {
    if (row->type != SettingType::integer) continue;
    ++count;
    runs.push_back(std::make_unique<CommandRun>(
        std::vector<std::string>{"settings", "set", row->key, std::to_string(row->most)}, environment()));
  }
  for (const auto& each : runs) EXPECT_EQ(each->wait(), 0);
  EXPECT_EQ(UserDefaults(file()).all().size(), count);
}

}  // namespace
}  // namespace ambrel
