#include "app/focus/QuickTimer.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {

QuickTimer::QuickTimer(FocusSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {}

void QuickTimer::start(int seconds) {
  const Instant now = seams_.now();
  seams_.notifications.withdraw("timer");
  timer_.start(Seconds(seconds), now);
  publish(now);
}

void QuickTimer::cancel() {
  seams_.notifications.withdraw("timer");
  timer_.cancel();
  publish(seams_.now());
}

void QuickTimer::update() { publish(seams_.now()); }

void QuickTimer::tick(Instant now) {
  if (timer_.tick(now)) {
    seams_.sounds.play("alarm-clock-elapsed");
    seams_.notifications.post(notificationOf(timer_.notice()));
    publish(now);
    if (onDone) onDone();
  }
}

void QuickTimer::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publish(now);
}

void QuickTimer::publish(Instant now) {
  Shown next{.timer = timer_, .remaining = {}, .detail = {}, .percentLeft = 0};
  if (timer_.endDate) {
    next.remaining = toQString(countdownText(timer_.remaining(now)));
    next.detail = tr("until %1").arg(toQString(shortTime(seams_.calendar, *timer_.endDate)));
    next.percentLeft = 100.0 * timer_.remaining(now).count() / timer_.duration.count();
  } else if (timer_.finishedAt) {
    next.remaining = toQString(countdownText(Seconds(0)));
    next.detail = tr("finished at %1").arg(toQString(shortTime(seams_.calendar, *timer_.finishedAt)));
  }
  if (next != shown_) {
    shown_ = std::move(next);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
