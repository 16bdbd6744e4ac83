#include "core/usage/WindowName.h"

#include <fmt/format.h>

#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr std::int64_t hour = 60, day = 24 * hour;

// Reports of old versions are a minute off.
bool lasts(const CodexUsage::Window& window, std::int64_t minutes) {
  return window.windowMinutes >= minutes - 1 && window.windowMinutes <= minutes + 1;
}

bool isFiveHours(const CodexUsage::Window& window) { return lasts(window, 5 * hour); }

}  // namespace

bool isLong(const CodexUsage::Window& window) { return window.windowMinutes > day; }
bool isWeek(const CodexUsage::Window& window) { return lasts(window, 7 * day); }

std::string windowName(const CodexUsage::Window& window, std::string_view unknown) {
  const std::int64_t minutes = window.windowMinutes;
  if (minutes <= 0) return std::string(unknown);
  if (isFiveHours(window)) return "5 h";
  if (isWeek(window)) return "week";
  if (minutes % day == 0) return fmt::format("{} d", minutes / day);
  if (minutes % hour == 0) return fmt::format("{} h", minutes / hour);
  return fmt::format("{} min", minutes);
}

std::string windowAdjective(const CodexUsage::Window& window, std::string_view unknown) {
  const std::int64_t minutes = window.windowMinutes;
  if (minutes <= 0) return std::string(unknown);
  if (isFiveHours(window)) return "5-hour";
  if (isWeek(window)) return "weekly";
  if (minutes % day == 0) return fmt::format("{}-day", minutes / day);
  if (minutes % hour == 0) return fmt::format("{}-hour", minutes / hour);
  return fmt::format("{}-minute", minutes);
}

std::string resetTime(const CodexUsage::Window& window, const Calendar& calendar) {
  return isLong(window) ? weekdayTime(calendar, window.resetsAt) : shortTime(calendar, window.resetsAt);
}

}  // namespace ambrel
