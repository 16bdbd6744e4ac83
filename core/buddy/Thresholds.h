#pragma once
// When the rules apply.

#include <cstddef>

#include "core/base/Instant.h"

namespace ambrel::BuddyThresholds {

inline constexpr Seconds shortestRun{300};       // a shorter run ends without a word
inline constexpr Seconds stillWorkingStep{900};  // and again after as long
inline constexpr Seconds meetingLead{300};       // `meetingSoon` from here to the start
inline constexpr Seconds meetingGrace{300};      // `meetingStart` from the start on
inline constexpr int limitPercent = 80;
inline constexpr double budgetRatio = 0.8;
inline constexpr int lowBattery = 20;                    // below, in percent
inline constexpr int criticalBattery = 10;               // below
inline constexpr std::int64_t lowDisk = 10'000'000'000;  // below, in bytes
inline constexpr double highLoad = 0.9;                  // above
inline constexpr Seconds highLoadLasts{120};
inline constexpr Seconds highLoadExpires{600};
inline constexpr int summaryHour = 18;
inline constexpr Seconds firedKept{86400};

// Agents in view, and what happened to the others.
inline constexpr Seconds inViewGrace{20};     // an agent is in view for so long after it left the front
inline constexpr Seconds awayThreshold{120};  // away for as long, and coming back is told of
inline constexpr Seconds logKept{21600};
inline constexpr std::ptrdiff_t logCapacity = 10'000;  // the newest; sessions that flicker for hours fill no memory

// The bubble.
inline constexpr Seconds mergeSpan{30};
inline constexpr Seconds pendingLifetime{300};
inline constexpr std::ptrdiff_t pendingCapacity = 5;

}  // namespace ambrel::BuddyThresholds
