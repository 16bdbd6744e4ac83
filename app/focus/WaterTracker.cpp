#include "app/focus/WaterTracker.h"

#include <algorithm>

#include "app/focus/Stored.h"

namespace ambrel {

WaterTracker::WaterTracker(FocusSeams seams, IsEnabled isEnabled, QObject* parent)
    : FocusModel(std::move(seams), parent), isEnabled_(std::move(isEnabled)) {
  const Instant now = seams_.now();
  load();
  water_.settle(now, seams_.calendar);
  publish(now);
}

void WaterTracker::load() {
  water_.glasses = storedDayCount(seams_.defaults, "waterCount", "waterDay");
  water_.lastDrinkAt = seams_.defaults.date("waterLastDrink");
  water_.goal = valueOf(seams_.defaults, setting::waterGoal);
  water_.intervalMinutes = valueOf(seams_.defaults, setting::waterInterval);
  water_.remindersOn = valueOf(seams_.defaults, setting::waterReminders);
  // The clock was wrong then; to wait for that time could take years.
  if (water_.lastDrinkAt) water_.lastDrinkAt = std::min(*water_.lastDrinkAt, seams_.now());
}

void WaterTracker::reload() {
  const Water before = water_;
  load();
  if (water_ != before) acted(seams_.now());
}

void WaterTracker::acted(Instant now) {
  seams_.notifications.withdraw("water");
  water_.settle(now, seams_.calendar);
  publish(now);
}

void WaterTracker::add() {
  const Instant now = seams_.now();
  water_.add(now, seams_.calendar);
  store(seams_.defaults, "waterCount", "waterDay", water_.glasses);
  store(seams_.defaults, "waterLastDrink", DefaultsValue{*water_.lastDrinkAt});
  acted(now);
}

void WaterTracker::remove() {
  const Instant now = seams_.now();
  water_.remove(now, seams_.calendar);
  store(seams_.defaults, "waterCount", "waterDay", water_.glasses);
  acted(now);
}

std::optional<Instant> WaterTracker::waterDueAt(Instant now) const {
  return isEnabled_() ? water_.dueAt(now, seams_.calendar) : std::nullopt;
}

void WaterTracker::tick(Instant now) {
  if (water_.tick(now, isEnabled_())) {
    Notification notification = notificationOf(water_.notice(now, seams_.calendar));
    notification.sound = true;
    seams_.notifications.post(notification);
  }
  publish(now);
}

void WaterTracker::clockMoved(Seconds by, Instant now) {
  water_.clockMoved(by);
  if (water_.lastDrinkAt && by != Seconds(0))
    store(seams_.defaults, "waterLastDrink", DefaultsValue{*water_.lastDrinkAt});
  // The morning comes at another time in another zone.
  if (water_.reminder) water_.settle(now, seams_.calendar);
  publish(now);
}

}  // namespace ambrel
