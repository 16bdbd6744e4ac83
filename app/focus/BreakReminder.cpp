#include "app/focus/BreakReminder.h"

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
    : FocusModel(std::move(seams), parent), isEnabled_(std::move(isEnabled)) {
  const Instant now = seams_.now();
  timer_.kind = kind;
  timer_.setInterval(valueOf(seams_.defaults, intervalSetting(kind)), now);
  load(now);
  published_ = timer_;
  publish(now);
}

std::string BreakReminder::key(const char* suffix) const { return std::string(keyPrefix(timer_.kind)) + suffix; }

void BreakReminder::load(Instant now) {
  timer_.turn(valueOf(seams_.defaults, isOnSetting(timer_.kind)), now);
  const int minutes = valueOf(seams_.defaults, intervalSetting(timer_.kind));
  if (minutes != timer_.intervalMinutes) timer_.setInterval(minutes, now);
  timer_.taken = storedDayCount(seams_.defaults, key("Count"), key("Day"));
}

void BreakReminder::reload() {
  const Instant now = seams_.now();
  load(now);
  publish(now);
}

void BreakReminder::setIsOn(bool on) {
  const Instant now = seams_.now();
  timer_.turn(on, now);
  store(seams_.defaults, isOnSetting(timer_.kind).key, on);
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

void BreakReminder::tick(Instant now) {
  const bool comesDue = timer_.tick(now, seams_.calendar, isEnabled_());
  publish(now);
  if (!comesDue) return;
  Notification notification = notificationOf(timer_.notice());
  notification.sound = true;
  seams_.notifications.post(notification);
}

void BreakReminder::slept(Seconds span, Instant now) {
  timer_.slept(span, now);
  publish(now);
}

void BreakReminder::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publish(now);
}

bool BreakReminder::renewFace(Instant now) {
  if (timer_.taken != published_.taken) store(seams_.defaults, key("Count"), key("Day"), timer_.taken);
  if (published_.isDue && !timer_.isDue) seams_.notifications.withdraw(timer_.notice().identifier);
  published_ = timer_;
  return show(face_, breakFace(timer_, seams_.calendar, now));
}

}  // namespace ambrel
