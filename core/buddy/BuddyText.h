#pragma once
// How notices are written and shown.

#include <algorithm>

#include "core/base/Instant.h"
#include "core/base/Text.h"
#include "core/buddy.h"

namespace ambrel {

// Truncated, and at least 1.
inline std::int64_t wholeMinutes(Seconds span) {
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(span.count() / 60));
}

// The names of a symbol and of a tone for the notices of a rule: "hand.raised.fill", "orange".
std::string_view symbol(BuddyRule rule);
std::string_view tone(BuddyRule rule);

// When nothing is said, in words: "Quiet from 22:00 to 08:00", "1 note waits for the break". `heldCount`: the notices
// that a focus session holds.
std::string quietText(const BuddyPolicy& policy, std::size_t heldCount, Instant now, const Calendar& calendar);

// As part of a notice's id: "1795262400.0".
inline std::string idTime(Instant instant) { return shortestDecimal(unixSeconds(instant)); }

}  // namespace ambrel
