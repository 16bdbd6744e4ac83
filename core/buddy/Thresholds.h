#pragma once
// When the rules apply.

#include "core/base/Instant.h"

namespace ambrel::BuddyThresholds {

inline constexpr Seconds shortestRun{300};       // a shorter run ends without a word
inline constexpr Seconds stillWorkingStep{900};  // and again after as long
inline constexpr Seconds awayThreshold{120};     // away from an agent for as long, and the digest tells of the others
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

}  // namespace ambrel::BuddyThresholds
