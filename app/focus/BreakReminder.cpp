#include "app/focus/BreakReminder.h"

#include <algorithm>

#include "app/focus/Stored.h"

namespace ambrel {

namespace {

const Setting<bool>& isOnSetting(BreakKind kind) {
  return kind == BreakKind::eyes ? setting::eyeBreakOn : setting::standUpOn;
}
const Setting<std::int64_t>& intervalSetting(BreakKind kind) {
  return kind == BreakKind::eyes ? setting::eyeBreakInterval : setting::standUpInterval;
}

}  // namespace

BreakReminder::BreakReminder(BreakKind kind, FocusSeams seams, IsEnabled isEnabled, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), isEnabled_(std::move(isEnabled)) {
  const Instant now = seams_.now();
  timer_.kind = kind;
  timer_.isOn = valueOf(seams_.defaults, isOnSetting(kind));
  timer_.setInterval(valueOf(seams_.defaults, intervalSetting(kind)), now);
  timer_.taken = storedDayCount(seams_.defaults, key("Count"), key("Day"));
  publish(now);
}

std::string BreakReminder::key(const char* suffix) const { return std::string(keyPrefix(timer_.kind)) + suffix; }

void BreakReminder::reload() {
  const Instant now = seams_.now();
  timer_.turn(valueOf(seams_.defaults, isOnSetting(timer_.kind)), now);
  const int minutes = valueOf(seams_.defaults, intervalSetting(timer_.kind));
  if (minutes != timer_.intervalMinutes) timer_.setInterval(minutes, now);
  timer_.taken = storedDayCount(seams_.defaults, key("Count"), key("Day"));
  publish(now);
}

void BreakReminder::setIsOn(bool on) {
  if (on == timer_.isOn) return;
  const Instant now = seams_.now();
  timer_.turn(on, now);
  store(seams_.defaults, isOnSetting(timer_.kind).key, on);
  publish(now);
}

void BreakReminder::setIntervalMinutes(int minutes) {
  if (minutes == timer_.intervalMinutes) return;
  const Instant now = seams_.now();
  timer_.setInterval(minutes, now);
  store(seams_.defaults, intervalSetting(timer_.kind).key, timer_.intervalMinutes);
  publish(now);
}

void BreakReminder::takeBreak() {
  const Instant now = seams_.now();
  timer_.takeBreak(now, seams_.calendar);
  publish(now);
}

void BreakReminder::endBreak() {
  const Instant now = seams_.now();
  timer_.endBreak(now);
  publish(now);
}

void BreakReminder::update() { publish(seams_.now()); }

std::optional<Instant> BreakReminder::due() const {
  const auto change = timer_.nextChange();
  return change ? std::min(*change, dayEnds_) : dayEnds_;
}

void BreakReminder::tick(Instant now) {
  const auto change = timer_.nextChange();
  // The question is asked only when there is something to ask for.
  const bool mayFire = change && *change <= now && !timer_.breakEnds && !timer_.isDue;
  const bool isEnabled = !mayFire || !isEnabled_ || isEnabled_();
  const bool fires = timer_.tick(now, seams_.calendar, isEnabled);
  publish(now);
  if (!fires) return;
  Notification notification = notificationOf(timer_.notice());
  notification.sound = true;
  seams_.notifications.post(notification);
  if (onDue) onDue();
}

void BreakReminder::slept(Seconds span, Instant now) {
  timer_.slept(span, now);
  publish(now);
}

void BreakReminder::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publish(now);
}

void BreakReminder::publish(Instant now) {
  dayEnds_ = seams_.calendar().startOfDay(now, 1);
  // The first time it only writes what it has read, which writes nothing.
  if (shown_.timer.taken != timer_.taken) store(seams_.defaults, key("Count"), key("Day"), timer_.taken);
  if (shown_.timer.isDue && !timer_.isDue) seams_.notifications.withdraw(timer_.notice().identifier);
  const Instant end = timer_.breakEnds.value_or(timer_.nextDue);
  const Seconds left = std::max(Seconds(0), secondsBetween(now, end));
  const Seconds whole =
      timer_.breakEnds ? BreakTimer::eyeBreakLength : Seconds(std::chrono::minutes(timer_.intervalMinutes));
  Shown next{.timer = timer_,
             .countdown = timer_.isOn || timer_.breakEnds ? toQString(countdownText(left)) : QString(),
             .percentLeft = std::clamp(100.0 * left.count() / whole.count(), 0.0, 100.0),
             .countToday = timer_.taken.today(seams_.calendar().dayKey(now))};
  if (next != shown_) {
    shown_ = std::move(next);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
