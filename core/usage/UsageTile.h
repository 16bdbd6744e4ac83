#pragma once
// What the usage tiles say, in the user's words and forms.

#include <optional>
#include <string>

#include "core/base/Calendar.h"
#include "core/usage.h"

namespace ambrel {

struct UsageBar {
  double fraction = 0;  // 0 to 1
  bool isHigh = false;  // to be drawn red

  friend bool operator==(const UsageBar&, const UsageBar&) = default;
};

// Empty texts are not shown.
struct UsageTile {
  std::string caption = {};  // "Claude · resets 2:00 PM"
  std::string age = {};      // of a reported limit, once it is a minute old: "12 min"
  bool isStale = false;
  std::string value = {};            // "62%", "1.2M", "No open window"
  std::string unit = {};             // small, beside the value: "tokens in 5 h", "not reported"
  std::optional<UsageBar> bar = {};  // of the value
  std::string line = {};             // smaller, beneath: "week 31%", "Today 1.2M tokens"
  std::optional<UsageBar> lineBar = {};
  std::string help = {};    // lines joined by newlines
  std::string spoken = {};  // all that is shown, in one sentence

  friend bool operator==(const UsageTile&, const UsageTile&) = default;
};

// hasLoaded: the first pass over the logs has ended.
UsageTile claudeUsageTile(const ClaudeUsageSnapshot& claude, const std::optional<ClaudeLimits::Limits>& limits,
                          bool hasLoaded, Instant now, const Calendar& calendar);
UsageTile codexLimitsTile(const std::optional<CodexUsage::Limits>& limits, bool hasLoaded, Instant now,
                          const Calendar& calendar);

// The share of a limit that is used now: as reported while its window lasts, then 0.
double usedPercent(const CodexUsage::Window& window, Instant now);

}  // namespace ambrel
