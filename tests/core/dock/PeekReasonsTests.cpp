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
  const std::tuple<double, bool, bool> cases[] = {{0, false, true},    {120, false, true}, {60, false, true},
                                                  {121, false, false}, {-1, false, false}, {120.000001, false, false},
                                                  {60, true, false},   {0, true, false}};
  for (const auto& [startsIn, isAllDay, isReason] : cases) {
    const PeekSignals signals{.nextEvent = PeekSignals::Event{"x", in(startsIn), isAllDay}};
    EXPECT_EQ(peekReasons(signals, now).contains("event:x"), isReason) << startsIn;
  }
}

TEST(PeekReasons, WaterIsOneForAMinuteAndNamesItsDueTime) {
  const std::pair<double, std::vector<std::string>> cases[] = {
      {0.001, {}}, {0, {"water:1800000000"}}, {-59.999, {"water:1799999940"}}, {-60, {}}};
  for (const auto& [dueIn, reasons] : cases)
    EXPECT_THAT(peekReasons({.waterDue = in(dueIn)}, now), testing::ElementsAreArray(reasons)) << dueIn;
}

TEST(PeekMemory, EachReasonPeeksOnce) {
  PeekMemory memory;
  EXPECT_FALSE(memory.check({}, true));
  EXPECT_TRUE(memory.check({"agent:a"}, true));
  EXPECT_FALSE(memory.check({"agent:a"}, true));
  EXPECT_FALSE(memory.check({}, true));
  EXPECT_FALSE(memory.check({"agent:a"}, true));
  EXPECT_TRUE(memory.check({"agent:a", "agent:b"}, true));
  EXPECT_FALSE(memory.check({"water:1"}, false)) << "peeking is off";
  EXPECT_FALSE(memory.check({"water:1"}, true));
}

}  // namespace
}  // namespace ambrel
