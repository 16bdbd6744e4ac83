#include "tests/core/focus/FocusSamples.h"

namespace ambrel {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;

const Calendar utc("UTC", "en_US");
const Instant noon = at("2026-11-21T12:00:00Z");

TEST(Water, CountsGlassesByTheDay) {
  Water water;
  water.add(noon, utc);
  water.add(noon, utc);
  EXPECT_EQ(water.glasses, (DayCount{2, "2026-11-21"}));
  water.remove(noon, utc);
  water.remove(noon, utc);
  water.remove(noon, utc);
  EXPECT_EQ(water.glasses.count, 0) << "never below none";
  water.add(noon, utc);
  EXPECT_EQ(water.glasses.today("2026-11-22"), 0);
  water.add(noon + std::chrono::hours(24), utc);
  EXPECT_EQ(water.glasses, (DayCount{1, "2026-11-22"}));
}

TEST(Water, RemindsAnIntervalAfterTheLastGlass) {
  Water water;
  EXPECT_EQ(water.reminderAt(noon, utc), std::nullopt) << "nobody has used it yet";
  water.add(noon, utc);
  EXPECT_EQ(water.dueAt(noon, utc), noon + minutes(30));
  EXPECT_EQ(water.reminderAt(noon, utc), noon + minutes(30));
  EXPECT_EQ(water.reminderAt(noon + minutes(29) + seconds(30), utc), noon + minutes(30) + seconds(30));
  const Instant late = noon + minutes(300);
  EXPECT_EQ(water.reminderAt(late, utc), late + seconds(60));
  EXPECT_EQ(water.dueAt(late, utc), noon + minutes(30)) << "it is due since then";
  water.remindersOn = false;
  EXPECT_EQ(water.reminderAt(late, utc), std::nullopt);
  EXPECT_EQ(water.dueAt(late, utc), std::nullopt);
}

TEST(Water, IsSilentOnceTheGoalIsMetUntilTheNextDay) {
  Water water;
  water.goal = 2;
  water.add(noon, utc);
  EXPECT_FALSE(water.isGoalMet(noon, utc));
  water.add(noon, utc);
  EXPECT_TRUE(water.isGoalMet(noon, utc));
  EXPECT_EQ(water.reminderAt(noon, utc), std::nullopt);
  const Instant midnight = at("2026-11-22T00:00:00Z"), morning = at("2026-11-22T08:00:00Z");
  EXPECT_EQ(water.dueAt(midnight, utc), morning);
  EXPECT_EQ(water.reminderAt(midnight, utc), morning);
  EXPECT_EQ(water.reminderAt(morning + minutes(5), utc), morning + minutes(6));
  EXPECT_EQ(water.dueAt(at("2026-11-25T00:00:00Z"), utc), morning) << "once, not each day";
}

TEST(Water, SaysHowMuchIsDrunk) {
  Water water;
  water.glasses = {3, "2026-11-21"};
  EXPECT_EQ(water.notice(noon, utc), (FocusNotice{"water", "Time for some water", "3 of 8 glasses today."}));
  EXPECT_EQ(water.notice(noon + std::chrono::hours(24), utc).body, "0 of 8 glasses today.");
}

}  // namespace
}  // namespace ambrel
