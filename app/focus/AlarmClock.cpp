#include "app/focus/AlarmClock.h"

#include <algorithm>

#include "app/focus/Stored.h"
#include "core/base/LocalText.h"

namespace ambrel {

AlarmClock::AlarmClock(FocusSeams seams, IsEnabled isEnabled, QObject* parent)
    : TimedModel(parent), seams_(std::move(seams)), isEnabled_(std::move(isEnabled)) {
  const Instant now = seams_.now();
  alarm_.isOn = valueOf(seams_.defaults, setting::alarmOn);
  alarm_.set(valueOf(seams_.defaults, setting::alarmHour), valueOf(seams_.defaults, setting::alarmMinute), now);
  alarm_.snoozeMinutes = valueOf(seams_.defaults, setting::alarmSnooze);
  publish(now);
}

void AlarmClock::reload() {
  const Instant now = seams_.now();
  const bool isOn = valueOf(seams_.defaults, setting::alarmOn);
  const int hour = valueOf(seams_.defaults, setting::alarmHour);
  const int minute = valueOf(seams_.defaults, setting::alarmMinute);
  if (isOn != alarm_.isOn || hour != alarm_.hour || minute != alarm_.minute) {
    if (alarm_.isRinging) silence();
    alarm_.turn(isOn, now);
    alarm_.set(hour, minute, now);
  }
  alarm_.snoozeMinutes = valueOf(seams_.defaults, setting::alarmSnooze);
  publish(now);
}

void AlarmClock::setIsOn(bool on) {
  if (on == alarm_.isOn) return;
  const Instant now = seams_.now();
  if (alarm_.isRinging) silence();
  alarm_.turn(on, now);
  store(seams_.defaults, setting::alarmOn.key, on);
  publish(now);
}

void AlarmClock::setSnoozeMinutes(int minutes) {
  alarm_.snoozeMinutes = clamped(setting::alarmSnooze, minutes);
  store(seams_.defaults, setting::alarmSnooze.key, alarm_.snoozeMinutes);
  publish(seams_.now());
}

void AlarmClock::set(int hour, int minute) {
  const Instant now = seams_.now();
  if (alarm_.isRinging) silence();
  alarm_.turn(true, now);
  alarm_.set(hour, minute, now);
  store(seams_.defaults, setting::alarmOn.key, true);
  store(seams_.defaults, setting::alarmHour.key, alarm_.hour);
  store(seams_.defaults, setting::alarmMinute.key, alarm_.minute);
  publish(now);
}

void AlarmClock::snooze() {
  if (!alarm_.isRinging) return;
  const Instant now = seams_.now();
  silence();
  alarm_.snooze(now);
  publish(now);
}

void AlarmClock::stop() {
  if (alarm_.isRinging) silence();
  alarm_.stop();
  publish(seams_.now());
}

void AlarmClock::answer(const std::string& action) {
  if (action == "snooze")
    snooze();
  else if (alarm_.isRinging)
    stop();
}

void AlarmClock::silence() {
  seams_.sounds.stop();
  seams_.notifications.withdraw("alarm");
}

std::optional<Instant> AlarmClock::due() const {
  const auto change = alarm_.nextChange(seams_.calendar);
  return change ? std::min(*change, dayEnds_) : dayEnds_;
}

void AlarmClock::tick(Instant now) {
  const auto ring = alarm_.nextRing(seams_.calendar);
  // The question is asked only when there is something to ask for.
  const bool mayRing = !alarm_.isRinging && ring && *ring <= now;
  switch (alarm_.tick(now, seams_.calendar, !mayRing || !isEnabled_ || isEnabled_())) {
    case Alarm::Event::rings: {
      seams_.sounds.loop("alarm-clock-elapsed");
      Notification notification = notificationOf(alarm_.notice(false, seams_.calendar));
      notification.isUrgent = true;
      notification.actions = {{"snooze", "Snooze"}, {"stop", "Stop"}};
      seams_.notifications.post(notification);
      publish(now);
      if (onRing) onRing();
      return;
    }
    case Alarm::Event::missed:
      seams_.notifications.post(notificationOf(alarm_.notice(true, seams_.calendar)));
      break;
    case Alarm::Event::silenced:
      // The notification stays, so that the user sees what has been.
      seams_.sounds.stop();
      break;
    case Alarm::Event::none:
      break;
  }
  publish(now);
}

void AlarmClock::clockMoved(Seconds by, Instant now) {
  if (alarm_.snoozedUntil) alarm_.snoozedUntil = advanced(*alarm_.snoozedUntil, by);
  if (alarm_.silenceAt) alarm_.silenceAt = advanced(*alarm_.silenceAt, by);
  publish(now);
}

void AlarmClock::zoneChanged(Instant now) {
  // What has passed by the new zone's clock alone was not missed.
  alarm_.watchedFrom = std::max(alarm_.watchedFrom, now);
  publish(now);
}

QString AlarmClock::detailAt(Instant now, const QString& snoozed) const {
  if (alarm_.isRinging) return tr("Ringing");
  const auto ring = alarm_.nextRing(seams_.calendar);
  if (!ring) return tr("Off");
  if (alarm_.snoozedUntil) return snoozed.arg(toQString(shortTime(seams_.calendar, *ring)));
  return *ring < seams_.calendar().startOfDay(now, 1) ? tr("Today") : tr("Tomorrow");
}

void AlarmClock::publish(Instant now) {
  dayEnds_ = seams_.calendar().startOfDay(now, 1);
  const auto day = seams_.calendar().fields(now);
  const Instant time = seams_.calendar().instant(day.year, day.month, day.day, alarm_.hour, alarm_.minute);
  Shown next{.alarm = alarm_,
             .time = toQString(shortTime(seams_.calendar, time)),
             .detail = detailAt(now, tr("Snoozed until %1")),
             .shortDetail = detailAt(now, tr("Until %1"))};
  if (next != shown_) {
    shown_ = std::move(next);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
