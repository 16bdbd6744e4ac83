#include "core/buddy.h"

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

}  // namespace ambrel
