#include "app/focus/Stopwatch.h"

namespace ambrel {

void Stopwatch::toggle() {
  const Instant now = seams_.now();
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

}  // namespace ambrel
