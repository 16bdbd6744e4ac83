#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "core/profiles.h"
#include "core/widgets.h"
#include "tests/core/profiles/Tiles.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

UUID idOf(int number) {
  UUID id;
  id.bytes[15] = static_cast<std::uint8_t>(number);
  return id;
}

DockItem item(int number, std::string widget) { return {.id = idOf(number), .bundleID = {}, .widget = widget}; }
DockItem application(int number) { return {.id = idOf(number), .bundleID = "com.example.app", .widget = {}}; }

Profile profile(int number, std::string name, std::optional<DisplayContext> trigger, std::vector<DockItem> items = {}) {
  return {.id = idOf(number), .name = std::move(name), .trigger = trigger, .items = std::move(items)};
}

constexpr auto builtin = DisplayContext::builtinOnly;
constexpr auto external = DisplayContext::external;

TEST(Defaults, AreALaptopAndADeskWithIdsOfTheirOwn) {
  std::set<UUID> ids;
  for (const auto& list : {Profile::defaults(), Profile::defaults()}) {
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].trigger, builtin);
    EXPECT_EQ(list[1].trigger, external);
    for (const auto& each : list) {
      EXPECT_TRUE(ids.insert(each.id).second);
      for (const auto& slot : each.items) {
        EXPECT_TRUE(ids.insert(slot.id).second);
        EXPECT_TRUE(fromName<DockWidget>(*slot.widget)) << *slot.widget;
      }
    }
  }
}

struct Choice {
  const char* what;
  std::vector<Profile> profiles;
  std::vector<DisplaySnapshot> displays;
  std::optional<UUID> pinned, expected;
};

TEST(Resolve, ChoosesByPinThenByDisplaysThenTheFirst) {
  const auto laptop = profile(1, "Laptop", builtin), desk = profile(2, "Desk", external),
             second = profile(3, "Studio", external), never = profile(4, "Quiet", std::nullopt);
  const DisplaySnapshot lid{"eDP-1", true}, monitor{"DP-2", false};
  const Choice choices[] = {
      {"the built-in display alone", {desk, laptop}, {lid}, {}, idOf(1)},
      {"an external display among others", {laptop, desk}, {lid, monitor}, {}, idOf(2)},
      {"an external display alone", {laptop, desk}, {monitor}, {}, idOf(2)},
      {"no display counts as built in", {desk, laptop}, {}, {}, idOf(1)},
      {"a pin wins over the displays", {laptop, desk}, {lid}, idOf(2), idOf(2)},
      {"a stale pin has no effect", {laptop, desk}, {lid}, idOf(9), idOf(1)},
      {"of two with one trigger the first", {laptop, desk, second}, {monitor}, {}, idOf(2)},
      {"their order decides", {laptop, second, desk}, {monitor}, {}, idOf(3)},
      {"no trigger fits: the first", {never, laptop}, {monitor}, {}, idOf(4)},
      {"without a trigger never by itself", {never, laptop}, {lid}, {}, idOf(1)},
      {"no profiles", {}, {lid}, idOf(1), {}},
  };
  for (const Choice& choice : choices) {
    SCOPED_TRACE(choice.what);
    const Profile* active = resolve(choice.profiles, choice.displays, choice.pinned);
    EXPECT_EQ(active ? std::optional(active->id) : std::nullopt, choice.expected);
  }
}

TEST(ProfileItems, MoveOntoATargetByTheDirectionOfTheMove) {
  const std::tuple<int, int, std::vector<std::string>> cases[] = {
      {1, 3, {"b", "c", "a"}}, {3, 1, {"c", "a", "b"}}, {1, 2, {"b", "a", "c"}}, {2, 1, {"b", "a", "c"}},
      {2, 3, {"a", "c", "b"}}, {2, 2, {"a", "b", "c"}}, {9, 1, {"a", "b", "c"}}, {1, 9, {"a", "b", "c"}},
  };
  for (const auto& [moved, target, expected] : cases) {
    auto edited = profile(1, "P", {}, {item(1, "a"), item(2, "b"), item(3, "c")});
    edited.move(idOf(moved), idOf(target));
    EXPECT_EQ(widgetsOf(edited), expected) << moved << " onto " << target;
  }
}

TEST(ProfileItems, InsertInFrontOfAnItemOrAtTheEnd) {
  using Row = std::pair<std::optional<UUID>, std::vector<std::string>>;
  for (const auto& [before, expected] : {Row{idOf(1), {"x", "a", "b"}}, Row{idOf(2), {"a", "x", "b"}},
                                         Row{std::nullopt, {"a", "b", "x"}}, Row{idOf(9), {"a", "b", "x"}}}) {
    auto edited = profile(1, "P", {}, {item(1, "a"), item(2, "b")});
    edited.insert(item(3, "x"), before);
    EXPECT_EQ(widgetsOf(edited), expected);
  }
}

class Edits : public testing::Test {
 protected:
  std::vector<Profile> profiles_{profile(1, "A", builtin, {item(11, "cpu"), item(12, "clock"), item(13, "cpu")}),
                                 profile(2, "B", external, {item(21, "cpu")})};
  const std::vector<Profile> before_ = profiles_;
};

TEST_F(Edits, AnUnknownProfileIsLeftAloneAndNotSaved) {
  EXPECT_FALSE(addWidget(profiles_, "date", idOf(9)));
  EXPECT_FALSE(removeWidget(profiles_, "cpu", idOf(9)));
  EXPECT_FALSE(moveItem(profiles_, idOf(11), idOf(12), idOf(9)));
  EXPECT_FALSE(removeItem(profiles_, idOf(11), idOf(9)));
  EXPECT_FALSE(deleteProfile(profiles_, idOf(9)));
  EXPECT_FALSE(renameProfile(profiles_, idOf(9), "Away"));
  EXPECT_EQ(profiles_, before_);
}

TEST_F(Edits, AWidgetStandsAtMostOnceInAProfileYetTheEditIsSaved) {
  EXPECT_TRUE(addWidget(profiles_, "cpu", idOf(2)));
  EXPECT_EQ(profiles_, before_);
  EXPECT_TRUE(addWidget(profiles_, "date", idOf(2), idOf(21)));
  EXPECT_THAT(widgetsOf(profiles_[1]), ElementsAre("date", "cpu"));
  EXPECT_NE(profiles_[1].items[0].id, UUID{});
  EXPECT_EQ(profiles_[0], before_[0]);
}

TEST_F(Edits, RemoveAllSlotsOfAWidgetOrOneSlot) {
  EXPECT_TRUE(removeWidget(profiles_, "cpu", idOf(1)));
  EXPECT_THAT(widgetsOf(profiles_[0]), ElementsAre("clock"));
  EXPECT_EQ(profiles_[1], before_[1]);
  EXPECT_TRUE(removeItem(profiles_, idOf(12), idOf(1)));
  EXPECT_THAT(profiles_[0].items, IsEmpty());
  // An item of another profile is not in this one.
  EXPECT_TRUE(removeItem(profiles_, idOf(21), idOf(1)));
  EXPECT_EQ(profiles_[1], before_[1]);
}

TEST_F(Edits, ANewProfileStandsLastAndHoldsTheDefaultWidgets) {
  const UUID id = addProfile(profiles_, "C", external);
  ASSERT_EQ(profiles_.size(), 3u);
  EXPECT_EQ(profiles_[2].id, id);
  EXPECT_EQ(profiles_[2].name, "C");
  EXPECT_EQ(profiles_[2].trigger, external);
  EXPECT_THAT(widgetsOf(profiles_[2]), ElementsAre("clipboard", "weather", "disk", "cpu", "clock"));
}

TEST_F(Edits, RenamesAProfileThatGetsAName) {
  EXPECT_TRUE(renameProfile(profiles_, idOf(1), "  Train "));
  EXPECT_EQ(profiles_[0].name, "Train");
  EXPECT_FALSE(renameProfile(profiles_, idOf(1), " \t"));
  EXPECT_EQ(profiles_[0].name, "Train");
}

TEST_F(Edits, ACopyIsBehindTheOriginalWithIdsAndANameOfItsOwn) {
  profiles_[0].name = "Desk";
  const auto first = duplicateProfile(profiles_, idOf(1)), second = duplicateProfile(profiles_, idOf(1));
  ASSERT_EQ(profiles_.size(), 4u);
  EXPECT_EQ(profiles_[1].id, second);
  EXPECT_EQ(profiles_[2].id, first);
  EXPECT_EQ(profiles_[1].name, "Desk 3");
  EXPECT_EQ(profiles_[2].name, "Desk 2");
  EXPECT_EQ(widgetsOf(profiles_[1]), widgetsOf(profiles_[0]));
  EXPECT_NE(profiles_[1].items[0].id, profiles_[0].items[0].id);
  EXPECT_EQ(profiles_[1].trigger, std::nullopt);
  EXPECT_EQ(duplicateProfile(profiles_, idOf(99)), std::nullopt);
}

TEST_F(Edits, AProfileStepsToItsNeighboursPlaceAndNoFurtherThanTheEnds) {
  EXPECT_FALSE(stepProfile(profiles_, idOf(1), -1));
  EXPECT_FALSE(stepProfile(profiles_, idOf(99), 1));
  EXPECT_TRUE(stepProfile(profiles_, idOf(1), 1));
  EXPECT_EQ(profiles_[0], before_[1]);
  EXPECT_EQ(profiles_[1], before_[0]);
}

TEST(Dragging, TheMoveAtItsEndGivesWhatTheBarHasShown) {
  const Profile all = profile(1, "A", {}, {item(1, "a"), item(2, "b"), item(3, "c"), item(4, "d")});
  for (const DockItem& held : all.items)
    for (int before = 1; before <= 5; ++before) {
      const auto slot = before <= 4 ? std::optional(idOf(before)) : std::nullopt;
      if (slot == held.id) continue;
      Profile moved = all;
      if (const auto target = moveTarget(all, held.id, slot)) moved.move(held.id, *target);
      EXPECT_EQ(moved.items, itemsWhileHeld(all.items, held, slot)) << *held.widget << " before " << before;
    }
  EXPECT_EQ(moveTarget(all, idOf(9), {}), std::nullopt);
}

TEST(Undo, TakesBackOneEditAndKeepsWhatCameSince) {
  const auto a = item(1, "a"), b = item(2, "b"), c = item(3, "c"), x = item(9, "x");
  auto a2 = item(8, "a");
  const struct {
    const char* what;
    std::vector<DockItem> before, after, present, expected;
  } rows[] = {
      {"a removal", {a, b, c}, {a, c}, {a, c}, {a, b, c}},
      {"of the first", {a, b}, {b}, {x, b}, {a, x, b}},
      {"after others have moved", {a, b, c}, {a, c}, {c, a, x}, {c, a, b, x}},
      {"when it is there again", {a, b}, {b}, {b, a2}, {b, a2}},
      {"an addition", {a}, {a, b}, {b, x, a}, {x, a}},
      {"a move", {a, b, c}, {b, c, a}, {b, x, c, a}, {a, x, b, c}},
      {"of what has gone", {a, b, c}, {b, c, a}, {b, c}, {b, c}},
  };
  for (const auto& row : rows) {
    std::vector<Profile> profiles{profile(1, "A", builtin, row.present)};
    EXPECT_EQ(undo(profiles, {idOf(1), row.before, row.after}), row.present != row.expected) << row.what;
    EXPECT_EQ(widgetsOf(profiles[0]), widgetsOf(profile(1, "A", builtin, row.expected))) << row.what;
    EXPECT_FALSE(undo(profiles, {idOf(2), row.before, row.after})) << "another profile";
  }
}

TEST_F(Edits, TheLastProfileCannotBeDeleted) {
  EXPECT_TRUE(deleteProfile(profiles_, idOf(1)));
  ASSERT_EQ(profiles_.size(), 1u);
  EXPECT_EQ(profiles_[0], before_[1]);
  EXPECT_FALSE(deleteProfile(profiles_, idOf(2)));
  EXPECT_EQ(profiles_.size(), 1u);
}

TEST(OldInstallation, ItsWidgetListIsGivenToEveryProfile) {
  const auto result = updated({profile(1, "A", builtin, {application(1)}), profile(2, "B", external)},
                              std::vector<std::string>{"clock", "memory"});
  EXPECT_TRUE(result.isConverted);
  EXPECT_TRUE(result.isChanged);
  ASSERT_EQ(result.profiles.size(), 2u);
  EXPECT_THAT(widgetsOf(result.profiles[0]), ElementsAre("clock", "memory"));
  EXPECT_THAT(widgetsOf(result.profiles[1]), ElementsAre("clock", "memory"));
  EXPECT_NE(result.profiles[0].items[0].id, result.profiles[1].items[0].id);
  EXPECT_THAT(widgetsOf(updated({profile(1, "A", builtin)}, std::nullopt).profiles[0]),
              ElementsAre("clipboard", "weather", "disk", "cpu", "clock"))
      << "without a list";
  const auto empty = updated({profile(1, "A", builtin)}, std::vector<std::string>{});
  EXPECT_TRUE(empty.isConverted);
  EXPECT_THAT(empty.profiles[0].items, IsEmpty());
  // One widget anywhere means that it has been converted.
  const std::vector<Profile> stored{profile(1, "A", builtin), profile(2, "B", external, {item(21, "cpu")})};
  const auto same = updated(stored, std::vector<std::string>{"clock"});
  EXPECT_FALSE(same.isConverted || same.isChanged);
  EXPECT_EQ(same.profiles, stored);
}

TEST(OldInstallation, SlotsOfApplicationsAreRemovedWhateverElseTheyHold) {
  auto both = item(3, "date");
  both.bundleID = "com.example.app";
  const auto result =
      updated({profile(1, "A", builtin, {application(1), item(2, "cpu"), both}), profile(2, "B", external)}, {});
  EXPECT_FALSE(result.isConverted);
  EXPECT_TRUE(result.isChanged);
  EXPECT_THAT(widgetsOf(result.profiles[0]), ElementsAre("cpu"));
}

TEST(SlotSettings, TilesOfOneThingShareIt) {
  const DefaultsValue paris{DefaultsData{"Paris"}};
  std::vector<Profile> profiles{profile(1, "A", {}, {item(11, "hourly"), item(12, "weather"), item(13, "secondCity")}),
                                profile(2, "B", {}, {item(21, "weather")})};
  EXPECT_TRUE(setSlotSetting(profiles, idOf(1), "weatherPlace", paris, {}));
  EXPECT_FALSE(setSlotSetting(profiles, idOf(1), "weatherPlace", paris, {}));
  EXPECT_FALSE(setSlotSetting(profiles, idOf(1), "theme", paris, {}));
  EXPECT_EQ(slotSetting(profiles[1], "weatherPlace"), nullptr) << "the first choice is for every profile";
  EXPECT_THAT(profiles[0].items[2].settings, IsEmpty());

  // It stays with the last of them.
  addWidget(profiles, "wind", idOf(1));
  for (const char* widget : {"hourly", "weather"}) removeWidget(profiles, widget, idOf(1));
  ASSERT_NE(slotSetting(profiles[0], "weatherPlace"), nullptr);
  EXPECT_EQ(*slotSetting(profiles[0], "weatherPlace"), paris);
}

TEST(SlotSettings, AreOfWidgetsThatThereAre) {
  for (const std::string_view key : slotSettingKeys()) {
    const auto all = allCases<DockWidget>();
    EXPECT_TRUE(std::ranges::any_of(all, [&](DockWidget widget) {
      std::vector<Profile> profiles{profile(1, "A", {}, {item(11, std::string(nameOf(widget)))})};
      return setSlotSetting(profiles, idOf(1), key, DefaultsValue{true}, {});
    })) << key;
  }
}

}  // namespace
}  // namespace ambrel
