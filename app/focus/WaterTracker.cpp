#include "app/focus/WaterTracker.h"

#include <algorithm>

#include "app/focus/Stored.h"
#include "core/base/LocalText.h"

namespace ambrel {
WaterTracker::WaterTracker(FocusSeams seams, IsEnabled isEnabled, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), isEnabled_(std::move(isEnabled)) {
  load();
  const Instant now = seams_.now();
  reminder_ = water_.reminderAt(now, seams_.calendar);
  publish(now);
}

void WaterTracker::load() {
  water_ = {.glasses = storedDayCount(seams_.defaults, "waterCount", "waterDay"),
            .lastDrinkAt = seams_.defaults.date("waterLastDrink"),
            .goal = valueOf(seams_.defaults, setting::waterGoal),
            .intervalMinutes = valueOf(seams_.defaults, setting::waterInterval),
            .remindersOn = valueOf(seams_.defaults, setting::waterReminders)};
  // The clock was wrong then; to wait for that time could take years.
  if (water_.lastDrinkAt) water_.lastDrinkAt = std::min(*water_.lastDrinkAt, seams_.now());
}

void WaterTracker::reload() {
  const Water before = water_;
  load();
  if (water_ != before) acted(seams_.now());
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

void WaterTracker::setGoal(int glasses) {
  glasses = clamped(setting::waterGoal, glasses);
  if (glasses == water_.goal) return;
  water_.goal = glasses;
  store(seams_.defaults, setting::waterGoal.key, glasses);
  acted(seams_.now());
}

void WaterTracker::setIntervalMinutes(int minutes) {
  minutes = clamped(setting::waterInterval, minutes);
  if (minutes == water_.intervalMinutes) return;
  water_.intervalMinutes = minutes;
  store(seams_.defaults, setting::waterInterval.key, minutes);
  acted(seams_.now());
}

void WaterTracker::setRemindersOn(bool on) {
  if (on == water_.remindersOn) return;
  water_.remindersOn = on;
  store(seams_.defaults, setting::waterReminders.key, on);
  acted(seams_.now());
}

// Each change replaces the one pending reminder; what an earlier one has said is out of date.
void WaterTracker::acted(Instant now) {
  seams_.notifications.withdraw("water");
  reminder_ = water_.reminderAt(now, seams_.calendar);
  publish(now);
}

std::optional<Instant> WaterTracker::waterDueAt(Instant now) const {
  return isEnabled_ && !isEnabled_() ? std::nullopt : water_.dueAt(now, seams_.calendar);
}

std::optional<Instant> WaterTracker::due() const { return reminder_ ? std::min(*reminder_, dayEnds_) : dayEnds_; }

// Met on the day before, the goal is to be reached again.
void WaterTracker::followDay(Instant now) {
  if (isGoalMet() && !water_.isGoalMet(now, seams_.calendar)) reminder_ = water_.reminderAt(now, seams_.calendar);
}

void WaterTracker::tick(Instant now) {
  followDay(now);
  if (reminder_ && now >= *reminder_) remind(now);
  publish(now);
}

void WaterTracker::remind(Instant now) {
  // Passed over for an interval, as a break is.
  if (isEnabled_ && !isEnabled_()) {
    reminder_ = now + std::chrono::minutes(water_.intervalMinutes);
    return;
  }
  reminder_.reset();
  Notification notification = notificationOf(water_.notice(now, seams_.calendar));
  notification.sound = true;
  seams_.notifications.post(notification);
}

void WaterTracker::clockMoved(Seconds by, Instant now) {
  if (reminder_) reminder_ = advanced(*reminder_, by);
  if (water_.lastDrinkAt && by != Seconds(0)) {
    water_.clockMoved(by);
    store(seams_.defaults, "waterLastDrink", DefaultsValue{*water_.lastDrinkAt});
  }
  followDay(now);
  publish(now);
}

void WaterTracker::publish(Instant now) {
  dayEnds_ = seams_.calendar().startOfDay(now, 1);
  Shown next{.count = water_.glasses.today(seams_.calendar().dayKey(now)), .nextText = {}, .settings = water_};
  if (reminder_) next.nextText = tr("Next glass at %1").arg(toQString(shortTime(seams_.calendar, *reminder_)));
  if (next != shown_) {
    shown_ = std::move(next);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
