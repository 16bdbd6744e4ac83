#include "app/focus/QuickTimer.h"

namespace ambrel {

void QuickTimer::start(int seconds) {
  const Instant now = seams_.now();
  seams_.notifications.withdraw("timer");
  timer_.start(Seconds(seconds), now);
  publish(now);
}

void QuickTimer::cancel() {
  seams_.notifications.withdraw("timer");
  timer_.cancel();
  update();
}

void QuickTimer::tick(Instant now) {
  if (!timer_.tick(now)) return;
  seams_.sounds.play("alarm-clock-elapsed");
  seams_.notifications.post(notificationOf(timer_.notice()));
  publish(now);
}

void QuickTimer::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publish(now);
}

}  // namespace ambrel
