#pragma once
// Decides what Buddy says now, and remembers what he has said. It keeps no timer: the same signals in the same state
// give the same notices.

#include <map>
#include <unordered_map>
#include <unordered_set>

#include "core/buddy.h"

namespace ambrel {

struct BuddyNoticeEngine {
  struct Snoozed {
    BuddyNotice notice;
    Instant until;
    friend bool operator==(const Snoozed&, const Snoozed&) = default;
  };

  std::optional<std::string> lastSummaryDay;              // day key of the last `daySummary`; the one field to persist
  std::vector<BuddyNotice> held;                          // waiting for the end of a focus session
  std::unordered_map<std::string, Instant> workingSince;  // by session id, when its run was first seen
  std::unordered_set<std::string> finishedToday;          // ids of sessions
  std::optional<std::string> finishedDay;                 // day key that `finishedToday` counts for
  std::optional<Instant> cpuHighSince;                    // start of the present spell of high load
  std::unordered_set<std::string> active;                 // ids of lasting notices, raised on the latest evaluation
  std::unordered_map<std::string, Instant> lastFired;     // by notice id, when it last passed the cooldown
  std::map<std::string, Snoozed> snoozed;                 // by notice id
  // Ids of `agentNeedsInput` left out on the latest evaluation, because the agent that waits is in view.
  std::unordered_set<std::string> waitingInView;
  // Ids of lasting notices whose condition has ended with the latest evaluation. Being in view is no end.
  std::unordered_set<std::string> ended;

  // What to show now, the most urgent first.
  std::vector<BuddyNotice> evaluate(const BuddySignals& signals, const BuddyPolicy& policy, Instant now,
                                    const Calendar& calendar);
  // Everything that the signals justify, before any filter.
  std::vector<BuddyNotice> candidates(const BuddySignals& signals, bool onlyUnfocused, Instant now,
                                      const Calendar& calendar);
  void snooze(const BuddyNotice& notice, std::int64_t minutes, Instant now);
  // After the clock was set, by so much: what is remembered moves along, so that nothing fires again or falls silent.
  void clockMoved(Seconds by);

  friend bool operator==(const BuddyNoticeEngine&, const BuddyNoticeEngine&) = default;
};

}  // namespace ambrel
