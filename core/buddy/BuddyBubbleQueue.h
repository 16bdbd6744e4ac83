#pragma once
// What the one speech bubble shows when several notices want it.

#include "core/buddy.h"

namespace ambrel {

struct BuddyBubbleQueue {
  std::optional<BuddyNotice> current;
  std::vector<BuddyNotice> pending;  // the most urgent first, five at most

  // True when `current` changed in place: two notices about one session within half a minute speak once.
  bool offer(const BuddyNotice& notice);
  // Drops from `pending` what is older than five minutes or has expired.
  void prune(Instant now);
  // The bubble has closed: the first of `pending` that is still worth it becomes `current`.
  void advance(Instant now);
  // The more urgent of the two, else `a`, with a mention of the other.
  static BuddyNotice merged(const BuddyNotice& a, const BuddyNotice& b);
  // After the clock was set, by so much.
  void clockMoved(Seconds by);

  friend bool operator==(const BuddyBubbleQueue&, const BuddyBubbleQueue&) = default;
};

}  // namespace ambrel
