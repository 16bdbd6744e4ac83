#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/buddy/BuddyText.h"

namespace ambrel {

bool QuietHours::contains(Instant date, const Calendar& calendar) const {
  const int hour = calendar.fields(date).hour;
  if (startHour <= endHour) return hour >= startHour && hour < endHour;
  return hour >= startHour || hour < endHour;
}

bool BuddyPolicy::allows(BuddyRule rule) const {
  if (level == BuddyLevel::off) return false;
  if (level == BuddyLevel::important && priority(rule) == BuddyPriority::info) return false;
  return categories.count(category(rule)) != 0;
}

std::string quietText(const BuddyPolicy& policy, std::size_t heldCount, Instant now, const Calendar& calendar) {
  const auto& quietHours = policy.quietHours;
  const auto time = [&](int hour) { return shortTime(calendar, calendar.instant(2000, 1, 3, hour)); };
  if (policy.level == BuddyLevel::off) return "Buddy says nothing";
  if (heldCount == 1) return "1 note waits for the break";
  if (heldCount > 1) return fmt::format("{} notes wait for the break", heldCount);
  if (!quietHours || quietHours->startHour == quietHours->endHour) return "No quiet hours";
  if (quietHours->contains(now, calendar)) return "Quiet until " + time(quietHours->endHour);
  return fmt::format("Quiet from {} to {}", time(quietHours->startHour), time(quietHours->endHour));
}

}  // namespace ambrel
