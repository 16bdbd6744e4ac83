#include <gtest/gtest.h>

#include "core/web/AskSchedule.h"

namespace ambrel {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;

struct AskScheduleTest : testing::Test {
  Instant now = *parseISO8601("2026-11-21T09:00:00Z");
  AskSchedule schedule{minutes(15)};
};

TEST_F(AskScheduleTest, AnAnswerOfAnEarlierRunIsNotAskedForAgainUntilItIsOld) {
  schedule.kept(now - minutes(5));
  EXPECT_FALSE(schedule.setWanted(true, now));
  EXPECT_EQ(schedule.due(), now + minutes(10));
  AskSchedule other{minutes(15)};
  other.kept(now - minutes(16));
  EXPECT_TRUE(other.setWanted(true, now));
}

TEST_F(AskScheduleTest, WaitsForTheNetworkOnceARequestHasFailedWithoutIt) {
  // The desktop may be wrong, so the first request goes out.
  schedule.setOnline(false, now);
  EXPECT_TRUE(schedule.setWanted(true, now));
  schedule.failed(FetchFailure::unreached, Seconds(0), now);
  EXPECT_EQ(schedule.due(), now + minutes(15));
  schedule.setOnline(true, now + seconds(30));
  EXPECT_TRUE(schedule.tick(now + seconds(30)));
  schedule.failed(FetchFailure::unreached, Seconds(0), now);
  EXPECT_EQ(schedule.due(), now + seconds(120));
}

TEST(RetryPause, DependsOnTheFailure) {
  const int unreached[] = {1800, 60, 120, 240, 300, 300};
  const int refused[] = {1800, 1800, 3600, 7200, 14400, 14400};
  constexpr seconds interval(1800);
  for (int failures = 0; failures < 6; ++failures)
    for (const bool hasAnswer : {false, true}) {
      EXPECT_EQ(retryPause(failures, FetchFailure::unreached, hasAnswer, interval).count(), unreached[failures]);
      EXPECT_EQ(retryPause(failures, FetchFailure::refused, hasAnswer, interval).count(), refused[failures]);
    }
  EXPECT_EQ(retryPause(1'000'000, FetchFailure::bad, false, interval).count(), 1800);
}

}  // namespace
}  // namespace ambrel
