#include "core/buddy/BuddySpeech.h"
#include "tests/Matchers.h"
#include "tests/core/agents/Sessions.h"

namespace ambrel {
namespace {

using enum AgentStatus;

const Instant start = *parseISO8601("2026-11-21T09:41:00Z");  // a Saturday
const Calendar utc("UTC", "en_GB");

AgentSession codex(AgentStatus status) { return agentSession("codex:a", AgentKind::codex, status); }
AgentSession claude(AgentStatus status) { return agentSession("claude:a", AgentKind::claudeCode, status); }

// Buddy on a desktop of records: each step is ten seconds long.
struct Desk {
  BuddySpeech speech = BuddySpeech::from(start);
  BuddySignals signals;
  BuddyPolicy policy;
  std::optional<std::set<AgentKind>> front;
  Instant now = start;

  void step(int times = 1) {
    for (int i = 0; i < times; ++i) {
      now = speech.nextEvaluation;
      speech.bubble.tick(now);
      speech.evaluate(signals, front, policy, now, utc);
    }
  }
  std::string bubble() const { return speech.bubble.isShown ? speech.bubble.shown->title : ""; }
  std::vector<std::string> inbox() const {
    std::vector<std::string> titles;
    for (const BuddyNotice& notice : speech.inbox.recent) titles.push_back(notice.title);
    return titles;
  }
};

TEST(BuddySpeech, SaysListsAndPlaysWhatTheRulesRaise) {
  Desk desk;
  desk.signals.agents = {codex(needsInput)};
  desk.step();
  EXPECT_EQ(desk.bubble(), "Codex needs you");
  EXPECT_THAT(desk.inbox(), ElementsAre("Codex needs you"));
  EXPECT_EQ(desk.speech.trigger, BuddyTrigger::startle);
  EXPECT_EQ(desk.speech.due(), desk.now + std::chrono::seconds(10)) << "an urgent one does not close";
  desk.signals.agents = {codex(working)};
  desk.step();
  EXPECT_EQ(desk.bubble(), "") << "it was answered elsewhere";
  EXPECT_EQ(desk.speech.inbox.recent.size(), 1u);
}

TEST(BuddySpeech, KeepsForTheInboxAloneThatAnAgentStillWorks) {
  Desk desk;
  desk.signals.agents = {codex(working)};
  desk.step(92);
  EXPECT_THAT(desk.inbox(), ElementsAre("Codex still working"));
  EXPECT_EQ(desk.bubble(), "");
  EXPECT_EQ(desk.speech.trigger, std::nullopt);
}

TEST(BuddySpeech, SaysInTheBreakWhatTheUserStillWantsToHear) {
  for (const bool wantsSystem : {true, false}) {
    Desk desk;
    desk.signals.isFocusRunning = true;
    desk.signals.battery = BuddySignals::Battery{.percent = 15, .isCharging = false};
    desk.step();
    EXPECT_EQ(desk.bubble(), "");
    EXPECT_EQ(desk.speech.engine.held.size(), 1u);
    if (!wantsSystem) desk.policy.categories.erase(BuddyCategory::system);
    desk.signals.isFocusRunning = false;
    desk.speech.phaseEnded = BuddySignals::PhaseEnd::focus;
    desk.step();
    EXPECT_EQ(desk.bubble(), wantsSystem ? "Battery 15%" : "Focus session done");
    EXPECT_EQ(desk.speech.bubble.shown->date, desk.now) << "it has its whole time to be seen";
    EXPECT_EQ(desk.speech.phaseEnded, std::nullopt) << "told once";
  }
}

TEST(BuddySpeech, TellsWhoComesBackWhatTheOthersDid) {
  Desk desk;
  desk.signals.agents = {codex(working), claude(working)};
  desk.front = std::set{AgentKind::codex};
  desk.step();
  desk.front = std::set<AgentKind>{};
  desk.step();
  desk.signals.agents = {codex(working), claude(needsInput)};
  desk.step(13);
  desk.speech.bubble.close(desk.now);
  desk.front = std::set{AgentKind::codex};
  desk.step();
  EXPECT_EQ(desk.bubble(), "While you were away");
  ASSERT_EQ(desk.speech.digest.size(), 1u);
  EXPECT_EQ(desk.speech.digestSince, start);
  EXPECT_EQ(desk.speech.watch.lastLookAt, desk.now) << "what has been told is not told again";
  desk.speech.clear();
  EXPECT_TRUE(desk.speech.digest.empty() && desk.speech.inbox.recent.empty());
}

TEST(BuddySpeech, FallsAsleepWhenNothingHappens) {
  const std::pair<const char*, void (*)(Desk&)> busy[] = {
      {"an agent at work", [](Desk& desk) { desk.signals.agents = {codex(working)}; }},
      {"an agent that waits", [](Desk& desk) { desk.signals.agents = {codex(needsInput)}; }},
      {"a focus session", [](Desk& desk) { desk.signals.isFocusRunning = true; }},
      {"the open inbox", [](Desk& desk) { desk.speech.openInbox(desk.now); }}};
  for (const auto& [what, wake] : busy) {
    Desk desk;
    desk.step(29);
    EXPECT_FALSE(desk.speech.isAsleep(desk.now));
    desk.step();
    EXPECT_TRUE(desk.speech.isAsleep(desk.now));
    wake(desk);
    desk.step(60);
    EXPECT_FALSE(desk.speech.isAsleep(desk.now)) << what;
  }
}

TEST(BuddySpeech, IsSilentWhileTheInboxIsOpen) {
  Desk desk;
  const auto say = [&](const std::string& id) {
    desk.speech.post(BuddyNotice(id, BuddyRule::diskLow, id, "", desk.now), desk.policy, desk.now);
  };
  say("a");
  EXPECT_EQ(desk.bubble(), "a");
  desk.speech.openInbox(desk.now);
  say("b");
  EXPECT_EQ(desk.bubble(), "");
  EXPECT_EQ(desk.speech.inbox.newCount, 2u);
  desk.speech.closeInbox(desk.now);
  EXPECT_EQ(desk.bubble(), "") << "it was read there";
  EXPECT_EQ(desk.speech.inbox.newCount, 0u);
}

TEST(BuddyInbox, CountsWhatNobodyHasRead) {
  BuddyInbox inbox;
  const BuddyNotice notice("battery.low", BuddyRule::batteryLow, "Battery 15%", "", start);
  inbox.add({notice}, start);
  inbox.markRead();
  inbox.add({BuddyNotice("x", BuddyRule::water, "Water", "", start)}, start);
  EXPECT_EQ(inbox.newCount, 1u);
  // It comes back from a snooze, listed once and new again.
  inbox.add({notice}, start + std::chrono::minutes(15));
  EXPECT_EQ(inbox.newCount, 2u);
  ASSERT_EQ(inbox.recent.size(), 2u);
  EXPECT_EQ(inbox.recent.front().id, "battery.low");
  std::vector<BuddyNotice> many;
  for (int i = 0; i < 300; ++i) many.emplace_back(std::to_string(i), BuddyRule::cpuHigh, "", "", start);
  inbox.add(many, start);
  EXPECT_EQ(inbox.recent.size(), BuddyInbox::capacity);
  EXPECT_EQ(inbox.recent.front().id + " to " + inbox.recent.back().id, "299 to 100");
  EXPECT_EQ(inbox.newCount, BuddyInbox::capacity);
}

TEST(BuddySpeech, RepeatsNothingWhenTheClockIsSet) {
  for (const double by : {-3600.0, 3600.0, 86400.0 * 40}) {
    Desk desk;
    desk.now = start;
    desk.speech.engine.lastSummaryDay = "2026-11-21";
    desk.signals.agents = {codex(needsInput), claude(working)};
    desk.step(40);
    const auto before = desk.inbox();
    desk.speech.bubble.close(desk.now);
    desk.speech.clockMoved(Seconds(by));
    desk.step(6);
    EXPECT_EQ(desk.inbox(), before);
    EXPECT_EQ(desk.bubble(), "");
    desk.signals.agents = {codex(needsInput), claude(finished)};
    desk.step();
    EXPECT_EQ(desk.bubble(), "Claude Code finished") << "and he goes on";
  }
}

}  // namespace
}  // namespace ambrel
