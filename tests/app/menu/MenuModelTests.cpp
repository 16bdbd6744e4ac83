#include <gmock/gmock.h>

#include "app/menu/MenuModel.h"

namespace ambrel {
namespace {

using testing::ElementsAre;

std::vector<std::string> titles(const std::vector<MenuEntry>& entries) {
  std::vector<std::string> list;
  for (const MenuEntry& entry : entries) list.push_back(entry.title);
  return list;
}

const MenuEntry& entryOf(const MenuModel& menu, MenuCommand command) {
  static const MenuEntry none;
  for (const MenuEntry& entry : menu.entries)
    if (entry.command == command) return entry;
  return none;
}

MenuState deskState() {
  MenuState state;
  state.profiles = Profile::defaults();
  state.activeProfileID = state.profiles.back().id;
  state.displays = {{"eDP-1", true}, {"HDMI-1", false}};
  state.workingCount = 2;
  return state;
}

TEST(MenuModel, SaysWhatIsOnTheBarAndWhatCanBeBought) {
  MenuState state = deskState();
  state.displays = {{"eDP-1", true}};
  // Without a licence that is the first, whatever the displays say.
  state.activeProfileID = state.profiles.front().id;
  EXPECT_THAT(titles(menuModel(state).entries), testing::Contains("Active: Laptop"));
  EXPECT_THAT(titles(menuModel(state).entries), testing::Contains("Built-in display only"));
  EXPECT_EQ(entryOf(menuModel(state), MenuCommand::buyPro).title, "");
  state.isPro = false;
  EXPECT_EQ(entryOf(menuModel(state), MenuCommand::buyPro).title, "Buy Tilebay Pro…");
}

TEST(MenuModel, ThePickerMarksThePinnedProfileOrAuto) {
  MenuState state = deskState();
  const auto picker = [&] { return menuModel(state).entries[2].entries; };
  const auto marks = [&] {
    std::vector<bool> list;
    for (const MenuEntry& entry : picker()) list.push_back(entry.isChecked.value());
    return list;
  };
  EXPECT_THAT(titles(picker()), ElementsAre("Auto (by display)", "Laptop", "Desk"));
  EXPECT_THAT(marks(), ElementsAre(true, false, false));
  EXPECT_FALSE(picker()[0].profile);
  EXPECT_EQ(picker()[1].profile, state.profiles[0].id);
  state.pinnedProfileID = state.profiles[0].id;
  EXPECT_THAT(marks(), ElementsAre(false, true, false));
  state.pinnedProfileID = UUID::random();
  EXPECT_THAT(marks(), ElementsAre(true, false, false)) << "pinned to a profile that has been deleted";
}

TEST(MenuModel, TheLabelCountsThoseThatNeedTheUser) {
  MenuState state = deskState();
  EXPECT_EQ(menuModel(state).attention, 0);
  EXPECT_EQ(menuBarLabel(menuModel(state)), "Tilebay");
  state.needsInputCount = 1;
  EXPECT_EQ(menuBarLabel(menuModel(state)), "Tilebay: 1 agent needs you");
  state.needsInputCount = 3;
  EXPECT_EQ(menuModel(state).attention, 3);
  EXPECT_EQ(menuBarLabel(menuModel(state)), "Tilebay: 3 agents need you");
  state.isAgentTrackingAllowed = false;
  EXPECT_EQ(menuModel(state).attention, 0);
}

}  // namespace
}  // namespace ambrel
