// What the replay cases cannot show: the engine's memory, many sessions at once, and clocks that are set.

#include "core/buddy/BuddyNoticeEngine.h"
#include "tests/Matchers.h"
#include "tests/core/agents/Sessions.h"
#include "tests/core/buddy/Notices.h"

namespace ambrel {
namespace {

using enum AgentStatus;

BuddySignals sessions(int count, AgentStatus status) {
  BuddySignals signals;
  for (int i = 0; i < count; ++i)
    signals.agents.push_back(agentSession("codex:" + std::to_string(i), AgentKind::codex, status));
  return signals;
}

struct Bench {
  Calendar calendar{"UTC", "en_US"};
  BuddyNoticeEngine engine;

  std::vector<BuddyNotice> evaluate(const BuddySignals& signals, double seconds, const BuddyPolicy& policy = {}) {
    return engine.evaluate(signals, policy, after(seconds), calendar);
  }
};

TEST(BuddyNoticeEngine, RemembersTheIDsOfWhatLastsAndNotOfEvents) {
  Bench bench;
  BuddySignals signals = sessions(1, needsInput);
  signals.phaseEnded = BuddySignals::PhaseEnd::focus;
  bench.evaluate(signals, 0);
  EXPECT_THAT(bench.engine.active, UnorderedElementsAre("needsInput:codex:0"));
  EXPECT_THAT(bench.engine.lastFired, SizeIs(2));
  bench.evaluate({}, 10);
  EXPECT_THAT(bench.engine.active, IsEmpty());
  bench.evaluate(sessions(2000, working), 20);
  bench.evaluate({}, 30);
  EXPECT_THAT(bench.engine.workingSince, IsEmpty()) << "nothing is kept of sessions that are no longer listed";
}

TEST(BuddyNoticeEngine, RemembersWhatItSaidForADay) {
  Bench bench;
  BuddySignals signals;
  signals.battery = BuddySignals::Battery{15, false};
  bench.evaluate(signals, 0);
  bench.evaluate({}, 86399.999);
  EXPECT_EQ(bench.engine.lastFired.count("battery.low"), 1u);
  bench.evaluate({}, 86400);
  EXPECT_EQ(bench.engine.lastFired.count("battery.low"), 0u);
}

TEST(BuddyNoticeEngine, TakesAnAgentThatIsLookedAtAsWaitingStill) {
  Bench bench;
  BuddySignals waiting = sessions(1, needsInput);
  const std::string id = bench.evaluate(waiting, 0).at(0).id;
  BuddySignals lookedAt = waiting;
  lookedAt.focusedAgents = {lookedAt.agents[0].kind};
  BuddyPolicy policy;
  policy.onlyUnfocusedAgents = true;
  EXPECT_THAT(bench.evaluate(lookedAt, 10, policy), IsEmpty());
  EXPECT_THAT(bench.engine.ended, IsEmpty());
  bench.evaluate(waiting, 40, policy);
  EXPECT_THAT(bench.engine.ended, IsEmpty());
  // It is answered while it is looked at.
  bench.evaluate(lookedAt, 50, policy);
  lookedAt.agents[0].status = working;
  bench.evaluate(lookedAt, 60, policy);
  EXPECT_THAT(bench.engine.ended, ElementsAre(id));
  bench.evaluate(lookedAt, 70, policy);
  EXPECT_THAT(bench.engine.ended, IsEmpty());
}

TEST(BuddyNoticeEngine, RepeatsNothingWhileTheClockJumpsBackAndForth) {
  Bench bench;
  BuddySignals signals = sessions(100, needsInput);
  signals.battery = BuddySignals::Battery{5, false};
  signals.diskFreeBytes = 1;
  signals.waterDueAt = after(-7200);
  EXPECT_THAT(bench.evaluate(signals, 0), SizeIs(103));
  for (const double seconds : {-3600.0, 3600.0, -7200.0, 7200.0, 0.0, -1.0, 30000.0})
    EXPECT_THAT(bench.evaluate(signals, seconds), IsEmpty()) << seconds;
}

// By so much the clock was set; what was said stays said, and what is to come comes in its time.
class BuddyClock : public testing::TestWithParam<double> {};

TEST_P(BuddyClock, IsFollowedByTheLengthOfARun) {
  Bench bench;
  bench.evaluate(sessions(1, working), 0);
  bench.engine.clockMoved(Seconds(GetParam()));
  EXPECT_THAT(bench.evaluate(sessions(1, working), GetParam() + 899), IsEmpty());
  const auto still = bench.evaluate(sessions(1, working), GetParam() + 900);
  ASSERT_THAT(still, SizeIs(1));
  EXPECT_EQ(still[0].detail, "15 min so far in web-shop.");
  const auto finish = bench.evaluate(sessions(1, finished), GetParam() + 1260);
  ASSERT_THAT(finish, SizeIs(1));
  EXPECT_EQ(finish[0].detail, "A 21-minute run in web-shop.");
}

TEST_P(BuddyClock, RepeatsNothingThatLasts) {
  Bench bench;
  BuddySignals signals = sessions(1, working);
  signals.battery = BuddySignals::Battery{15, false};
  bench.evaluate(signals, 0);
  EXPECT_THAT(bench.evaluate(signals, 900), SizeIs(1));
  bench.engine.clockMoved(Seconds(GetParam()));
  EXPECT_THAT(bench.evaluate(signals, GetParam() + 910), IsEmpty());
  EXPECT_THAT(bench.evaluate(signals, GetParam() + 1800), SizeIs(1));
}

TEST_P(BuddyClock, IsFollowedByCooldowns) {
  Bench bench;
  bench.evaluate(sessions(1, needsInput), 0);
  bench.evaluate({}, 10);
  bench.engine.clockMoved(Seconds(GetParam()));
  EXPECT_THAT(bench.evaluate(sessions(1, needsInput), GetParam() + 100), IsEmpty());
  bench.evaluate({}, GetParam() + 110);
  EXPECT_THAT(bench.evaluate(sessions(1, needsInput), GetParam() + 121), SizeIs(1));
}

TEST_P(BuddyClock, IsFollowedBySnoozesAndSpellsOfLoad) {
  Bench bench;
  BuddySignals signals;
  signals.battery = BuddySignals::Battery{15, false};
  signals.cpuUsage = 0.95;
  const auto notices = bench.evaluate(signals, 0);
  ASSERT_THAT(notices, SizeIs(1));
  bench.engine.snooze(notices[0], 15, after(0));
  bench.engine.clockMoved(Seconds(GetParam()));
  EXPECT_THAT(bench.evaluate(signals, GetParam() + 119), IsEmpty());
  EXPECT_THAT(ids(bench.evaluate(signals, GetParam() + 120)), ElementsAre("cpu.high"));
  EXPECT_THAT(bench.evaluate(signals, GetParam() + 899), IsEmpty());
  EXPECT_THAT(ids(bench.evaluate(signals, GetParam() + 900)), ElementsAre("battery.low"));
}

TEST_P(BuddyClock, KeepsWhatAFocusSessionHolds) {
  Bench bench;
  BuddySignals signals = sessions(1, working);
  bench.evaluate(signals, 0);
  signals.isFocusRunning = true;
  EXPECT_THAT(bench.evaluate(signals, 900), IsEmpty());
  bench.engine.clockMoved(Seconds(GetParam()));
  signals.isFocusRunning = false;
  const auto said = bench.evaluate(signals, GetParam() + 1000);
  ASSERT_THAT(said, SizeIs(1));
  EXPECT_EQ(said[0].detail, "15 min so far in web-shop.");
}

INSTANTIATE_TEST_SUITE_P(Set, BuddyClock, testing::Values(-7200.0, -1.5, 0.25, 3600.0, 7200.0));

}  // namespace
}  // namespace ambrel
