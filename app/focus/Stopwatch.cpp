#include "app/focus/Stopwatch.h"

namespace ambrel {

Stopwatch::Stopwatch(std::function<Instant()> now, QObject* parent) : TimedModel(parent), now_(std::move(now)) {
  update();
}

void Stopwatch::toggle() {
  const Instant now = now_();
  watch_.startedAt ? watch_.stop(now) : watch_.start(now);
  publish(now);
}

void Stopwatch::reset() {
  watch_.reset();
  update();
}

void Stopwatch::clockMoved(Seconds by, Instant now) {
  watch_.clockMoved(by);
  publish(now);
}

void Stopwatch::publish(Instant now) {
  if (show(face_, stopwatchFace(watch_, now))) Q_EMIT changed();
}

}  // namespace ambrel
