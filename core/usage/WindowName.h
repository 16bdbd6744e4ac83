#pragma once
// How the tiles and Buddy call a window of Codex by its length: some plans report the week, or another span, where most
// report five hours.

#include <string>
#include <string_view>

#include "core/usage.h"

namespace ambrel {

// Both give `unknown` for a window without a length.
// As a caption: "5 h", "week", "2 d", "90 min".
std::string windowName(const CodexUsage::Window& window, std::string_view unknown);
// In a sentence, before "limit" or "window": "5-hour", "weekly", "2-day", "90-minute".
std::string windowAdjective(const CodexUsage::Window& window, std::string_view unknown);
// When it resets: "16:00", "Saturday 16:00" for a long one.
std::string resetTime(const CodexUsage::Window& window, const Calendar& calendar);

// Longer than a day, so that a bare time of day does not tell when it resets.
bool isLong(const CodexUsage::Window& window);
bool isWeek(const CodexUsage::Window& window);

}  // namespace ambrel
