#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Instant now = Instant(std::chrono::milliseconds(1'800'000'000'250));
Instant in(double seconds) { return advanced(now, Seconds(seconds)); }

TEST(PeekReasons, EachSessionThatWaitsIsOne) {
  EXPECT_THAT(peekReasons({}, now), IsEmpty());
  EXPECT_THAT(peekReasons({.waitingSessions = {"b", "a"}}, now), ElementsAre("agent:a", "agent:b"));
}

TEST(PeekReasons, AnEventIsOneInTheTwoMinutesBeforeItStarts) {
  struct {
    double startsIn;
    bool isAllDay, isReason;
  } const cases[] = {{0, false, true},   {120, false, true},         {60, false, true}, {121, false, false},
                     {-1, false, false}, {120.000001, false, false}, {60, true, false}, {0, true, false}};
  for (const auto& each : cases) {
    const PeekSignals signals{.nextEvent = PeekSignals::Event{"x", in(each.startsIn), each.isAllDay}};
    EXPECT_EQ(peekReasons(signals, now).contains("event:x"), each.isReason) << each.startsIn;
  }
}

TEST(PeekReasons, WaterIsOneForAMinuteAndNamesItsDueTime) {
  struct {
    double dueIn;
    std::vector<std::string> reasons;
  } const cases[] = {{0.001, {}}, {0, {"water:1800000000"}}, {-59.999, {"water:1799999940"}}, {-60, {}}};
  for (const auto& each : cases)
    EXPECT_THAT(peekReasons({.waterDue = in(each.dueIn)}, now), testing::ElementsAreArray(each.reasons)) << each.dueIn;
}

TEST(PeekMemory, EachReasonPeeksOnce) {
  PeekMemory memory;
  EXPECT_FALSE(memory.check({}, true));
  EXPECT_TRUE(memory.check({"agent:a"}, true));
  EXPECT_FALSE(memory.check({"agent:a"}, true));
  EXPECT_FALSE(memory.check({}, true));
  EXPECT_FALSE(memory.check({"agent:a"}, true));
  EXPECT_TRUE(memory.check({"agent:a", "agent:b"}, true));
}

TEST(PeekMemory, RemembersWhatCameWhilePeekingWasOff) {
  PeekMemory memory;
  EXPECT_FALSE(memory.check({"agent:a"}, false));
  EXPECT_FALSE(memory.check({"agent:a"}, true));
  EXPECT_TRUE(memory.check({"water:1"}, true));
}

}  // namespace
}  // namespace ambrel
