#include <gtest/gtest.h>

#include "core/focus/Water.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

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
  water.add(noon + hours(24), utc);
  EXPECT_EQ(water.glasses, (DayCount{1, "2026-11-22"}));
}

TEST(Water, RemindsOnceAnIntervalAfterTheLastGlass) {
  Water water;
  water.settle(noon, utc);
  EXPECT_EQ(water.reminder, std::nullopt) << "nobody has used it yet";
  water.add(noon, utc);
  EXPECT_EQ(water.reminder, noon + minutes(30));
  EXPECT_FALSE(water.tick(noon + minutes(30) - seconds(1), true));
  EXPECT_TRUE(water.tick(noon + minutes(30), true));
  EXPECT_EQ(water.reminder, std::nullopt) << "it comes once, until something changes";
  EXPECT_EQ(water.dueAt(noon + minutes(300), utc), noon + minutes(30)) << "it is due since then";

  for (const auto& [since, reminds] :
       {std::pair{minutes(29), minutes(30)}, {minutes(30), minutes(31)}, {minutes(300), minutes(301)}}) {
    water.settle(noon + since, utc);
    EXPECT_EQ(water.reminder, noon + reminds) << "at least a minute ahead";
  }
  Water unwanted;
  unwanted.add(noon, utc);
  EXPECT_FALSE(unwanted.tick(noon + minutes(30), false));
  EXPECT_EQ(unwanted.reminder, noon + minutes(60)) << "passed over for an interval";
  unwanted.clockMoved(-minutes(60));
  EXPECT_EQ(unwanted.reminder, noon);
  EXPECT_EQ(unwanted.dueAt(noon - minutes(60), utc), noon - minutes(30));
  water.remindersOn = false;
  water.settle(noon, utc);
  EXPECT_EQ(water.reminder, std::nullopt);
  EXPECT_EQ(water.dueAt(noon, utc), std::nullopt);
}

TEST(Water, IsSilentOnceTheGoalIsMetUntilTheNextMorning) {
  Water water;
  water.goal = 2;
  water.add(noon, utc);
  EXPECT_FALSE(water.isGoalMet(noon, utc));
  water.add(noon, utc);
  EXPECT_TRUE(water.isGoalMet(noon, utc));
  EXPECT_EQ(water.dueAt(noon, utc), std::nullopt);
  const Instant morning = at("2026-11-22T08:00:00Z");
  EXPECT_EQ(water.reminder, morning);
  EXPECT_EQ(water.dueAt(at("2026-11-22T00:00:00Z"), utc), morning);
  EXPECT_TRUE(water.tick(morning, true));
  EXPECT_EQ(water.dueAt(at("2026-11-25T00:00:00Z"), utc), morning) << "once, not each day";
  // The program was not running in the morning.
  water.settle(morning + minutes(5), utc);
  EXPECT_EQ(water.reminder, morning + minutes(6));
}

TEST(Water, SaysHowMuchIsDrunk) {
  Water water;
  water.glasses = {3, "2026-11-21"};
  EXPECT_EQ(water.notice(noon, utc), (FocusNotice{"water", "Time for some water", "3 of 8 glasses today."}));
  EXPECT_EQ(water.notice(noon + hours(24), utc).body, "0 of 8 glasses today.");
}

}  // namespace
}  // namespace ambrel
