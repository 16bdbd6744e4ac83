#include <gmock/gmock.h>

#include "core/weather/WeatherSchedule.h"
#include "tests/core/weather/Samples.h"

namespace ambrel {
namespace {

using Requests = WeatherSchedule::Requests;

constexpr Requests nothing{}, both{true, true}, forecastAlone{true, false}, airAlone{false, true};

// A place that somebody looks at, asked for at nine.
struct WeatherScheduleTest : testing::Test {
  WeatherScheduleTest() { EXPECT_EQ(schedule.setWanted(true, now), both); }

  void answer() {
    schedule.forecastAnswered();
    schedule.airQualityAnswered(now);
  }
  void fail(FetchFailure kind, Seconds wait = Seconds(0)) {
    schedule.forecastFailed(kind, wait, now);
    schedule.airQualityFailed(kind, wait, now);
  }
  Requests after(Seconds span) {
    now = advanced(now, span);
    return schedule.tick(now);
  }

  Instant now = at("2026-11-21T09:00:00Z");
  WeatherSchedule schedule;
};

TEST_F(WeatherScheduleTest, AsksForBothEveryHalfHour) {
  answer();
  EXPECT_EQ(schedule.due(), now + minutes(30));
  EXPECT_EQ(after(minutes(30) - seconds(1)), nothing);
  EXPECT_EQ(after(seconds(1)), both);
  answer();
  now += minutes(1);
  EXPECT_EQ(schedule.refresh(now), forecastAlone);
}

TEST_F(WeatherScheduleTest, StretchesItsPauses) {
  WeatherSchedule other(0.1);
  EXPECT_EQ(other.setWanted(true, now), both);
  EXPECT_EQ(other.due(), now + minutes(33));
  other.forecastFailed(FetchFailure::bad, Seconds(0), now);
  EXPECT_EQ(other.due(), now + seconds(66));
}

TEST_F(WeatherScheduleTest, WaitsLongerAfterEveryFailureWhileThereIsNothingToShow) {
  for (const int pause : {60, 120, 240, 480, 960, 1800, 1800}) {
    fail(FetchFailure::bad);
    EXPECT_EQ(schedule.due(), now + seconds(pause));
    EXPECT_EQ(after(seconds(pause)), both);
  }
}

TEST_F(WeatherScheduleTest, LeavesAServerAloneAsLongAsItWants) {
  answer();
  EXPECT_EQ(after(minutes(30)), both);
  fail(FetchFailure::bad);
  EXPECT_EQ(schedule.due(), now + minutes(30));
  EXPECT_EQ(after(minutes(30)), both);
  fail(FetchFailure::refused, hours(2));
  EXPECT_EQ(schedule.due(), now + hours(2));
  // A reason of another kind counts from one.
  EXPECT_EQ(after(hours(2)), both);
  fail(FetchFailure::unreached);
  EXPECT_EQ(schedule.due(), now + seconds(60));
}

TEST_F(WeatherScheduleTest, ANetworkThatReturnsBringsOnlyWhatWasNotReached) {
  answer();
  schedule.networkReturned(now);
  EXPECT_EQ(schedule.due(), now + minutes(30));
  EXPECT_EQ(after(minutes(30)), both);
  fail(FetchFailure::unreached);
  now += seconds(5);
  schedule.networkReturned(now);
  EXPECT_EQ(schedule.due(), now);
}

TEST_F(WeatherScheduleTest, AsksForTheAirByItselfUntilThereIsAReading) {
  schedule.forecastAnswered();
  schedule.airQualityFailed(FetchFailure::bad, Seconds(0), now);
  EXPECT_EQ(after(seconds(59)), nothing);
  EXPECT_EQ(after(seconds(1)), airAlone);
  schedule.airQualityAnswered(now);
  EXPECT_EQ(after(minutes(29)), forecastAlone);
}

TEST_F(WeatherScheduleTest, AsksForNothingWhileNobodyLooks) {
  answer();
  EXPECT_EQ(schedule.setWanted(false, now), nothing);
  EXPECT_EQ(schedule.due(), std::nullopt);
  EXPECT_EQ(after(hours(3)), nothing);
  EXPECT_EQ(schedule.setWanted(true, now), both);
  answer();
  EXPECT_EQ(schedule.setWanted(false, now), nothing);
  EXPECT_EQ(schedule.setWanted(true, now += minutes(10)), nothing);
  // Another place, chosen out of sight.
  EXPECT_EQ(schedule.setWanted(false, now), nothing);
  EXPECT_EQ(schedule.restart(now), nothing);
  EXPECT_EQ(schedule.setWanted(true, now), both);
}

TEST_F(WeatherScheduleTest, GivesTheNetworkAMomentAfterASleep) {
  answer();
  now += hours(8);
  schedule.slept(now);
  EXPECT_EQ(schedule.due(), now + seconds(10));
  EXPECT_EQ(after(seconds(10)), both);
}

TEST_F(WeatherScheduleTest, FollowsAClockThatIsSet) {
  answer();
  schedule.clockMoved(-hours(5));
  EXPECT_EQ(schedule.due(), now - hours(5) + minutes(30));
}

}  // namespace
}  // namespace ambrel
