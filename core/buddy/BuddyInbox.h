#pragma once
// The notices of this session of the program.

#include "core/buddy.h"

namespace ambrel {

struct BuddyInbox {
  static constexpr std::size_t capacity = 200;

  std::vector<BuddyNotice> recent;  // newest first; what goes beyond the capacity falls off the end
  std::size_t newCount = 0;         // the first of them, which nobody has read

  // In the order in which they are said, which is now. One that comes back from a snooze, with the date at which it was
  // first said, moves to the front; it is not listed twice.
  void add(const std::vector<BuddyNotice>& notices, Instant now);
  void markRead() { newCount = 0; }

  friend bool operator==(const BuddyInbox&, const BuddyInbox&) = default;
};

// Names one entry of the inbox for as long as it is there; a notice's own id recurs when it comes again.
std::string inboxKey(const BuddyNotice& notice);

}  // namespace ambrel
