#include "app/focus/AlarmClock.h"

#include "app/focus/Stored.h"

namespace ambrel {

AlarmClock::AlarmClock(FocusSeams seams, IsEnabled isEnabled, QObject* parent)
    : FocusModel(std::move(seams), parent), isEnabled_(std::move(isEnabled)) {
  alarm_.watchedFrom = seams_.now();
  reload();
}

void AlarmClock::reload() {
  const bool isOn = valueOf(seams_.defaults, setting::alarmOn);
  const int hour = valueOf(seams_.defaults, setting::alarmHour);
  const int minute = valueOf(seams_.defaults, setting::alarmMinute);
  alarm_.snoozeMinutes = valueOf(seams_.defaults, setting::alarmSnooze);
  if (isOn != alarm_.isOn || hour != alarm_.hour || minute != alarm_.minute)
    turn(isOn, hour, minute);
  else
    update();
}

void AlarmClock::turn(bool on, int hour, int minute) {
  const Instant now = seams_.now();
  if (alarm_.isRinging) silence();
  alarm_.turn(on, now);
  alarm_.set(hour, minute, now);
  publish(now);
}

void AlarmClock::setIsOn(bool on) {
  store(seams_.defaults, setting::alarmOn.key, on);
  turn(on, alarm_.hour, alarm_.minute);
}

void AlarmClock::set(int hour, int minute) {
  turn(true, hour, minute);
  store(seams_.defaults, setting::alarmOn.key, true);
  store(seams_.defaults, setting::alarmHour.key, alarm_.hour);
  store(seams_.defaults, setting::alarmMinute.key, alarm_.minute);
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
  update();
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

void AlarmClock::tick(Instant now) {
  switch (alarm_.tick(now, seams_.calendar, isEnabled_())) {
    case Alarm::Event::rings: {
      seams_.sounds.loop("alarm-clock-elapsed");
      Notification notification = notificationOf(alarm_.notice(false, seams_.calendar));
      notification.isUrgent = true;
      notification.actions = {{"snooze", "Snooze"}, {"stop", "Stop"}};
      seams_.notifications.post(notification);
      break;
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
  alarm_.clockMoved(by);
  publish(now);
}

void AlarmClock::zoneChanged(Instant now) {
  alarm_.zoneChanged(now);
  publish(now);
}

}  // namespace ambrel
