#pragma once
// All that Buddy has to say, and what becomes of it: what is held, said, shown, put off, withdrawn and read. It keeps
// no timer and draws nothing: its owner acts at `due`, plays the trigger, and compares the bubble before and
// after.

#include <algorithm>

#include "core/buddy/AgentWatch.h"
#include "core/buddy/BuddyBubble.h"
#include "core/buddy/BuddyInbox.h"
#include "core/buddy/BuddyNoticeEngine.h"

namespace ambrel {

struct BuddySpeech {
  // Between two evaluations, and how long nothing happens before he falls asleep.
  static constexpr Seconds interval{10}, sleepsAfter{300};

  BuddyNoticeEngine engine = {};
  AgentWatch watch = {};
  BuddyBubble bubble = {};
  BuddyInbox inbox = {};
  std::vector<AgentWatch::DigestEntry> digest = {};  // the latest
  std::optional<Instant> digestSince = {};
  // Of the focus timer; the next evaluation tells of it.
  std::optional<BuddySignals::PhaseEnd> phaseEnded = {};
  // The reaction to what was said last, until it is played.
  std::optional<BuddyTrigger> trigger = {};
  Instant nextEvaluation = {}, lastStir = {};

  // The program starts.
  static BuddySpeech from(Instant now);
  // Says what the signals justify, and withdraws what has ended. It fills in `focusedAgents` and `phaseEnded`. `front`:
  // the agents in the window in front; absent when nobody has looked.
  void evaluate(BuddySignals signals, const std::optional<std::set<AgentKind>>& front, const BuddyPolicy& policy,
                Instant now, const Calendar& calendar);
  // Something else that happened, for the bubble and the inbox alike.
  void post(const BuddyNotice& notice, const BuddyPolicy& policy, Instant now);
  // Who comes back to an agent is told what the others did.
  void lookAtFront(const std::set<AgentKind>& front, const BuddyPolicy& policy, Instant now);
  // While the inbox is open nothing is said. What was seen there is not new any more.
  void openInbox(Instant now);
  void closeInbox(Instant now);
  void clear();

  bool isAsleep(Instant now) const { return secondsBetween(lastStir, now) >= sleepsAfter; }
  // When the bubble closes, or the next evaluation.
  Instant due() const { return bubble.closesAt ? std::min(*bubble.closesAt, nextEvaluation) : nextEvaluation; }
  // After the clock was set, by so much.
  void clockMoved(Seconds by);

  friend bool operator==(const BuddySpeech&, const BuddySpeech&) = default;

 private:
  void offer(const std::vector<BuddyNotice>& notices, Instant now);
};

}  // namespace ambrel
