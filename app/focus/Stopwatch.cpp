#include "app/focus/Stopwatch.h"

#include "app/base/StoredValue.h"

namespace ambrel {

Stopwatch::Stopwatch(std::function<Instant()> now, QObject* parent)
    : TimedModel(parent), now_(std::move(now)), elapsed_(toQString(elapsedText(Seconds(0)))) {}

void Stopwatch::start() {
  const auto before = watch_;
  const Instant now = now_();
  watch_.start(now);
  publish(before, now);
}

void Stopwatch::stop() {
  const auto before = watch_;
  const Instant now = now_();
  watch_.stop(now);
  publish(before, now);
}

void Stopwatch::reset() {
  const auto before = watch_;
  watch_.reset();
  publish(before, now_());
}

void Stopwatch::update() { publish(watch_, now_()); }

void Stopwatch::clockMoved(Seconds by, Instant now) {
  watch_.clockMoved(by);
  publish(watch_, now);
}

void Stopwatch::publish(const StopwatchValue& before, Instant now) {
  const QString elapsed = toQString(elapsedText(watch_.elapsed(now)));
  if (before == watch_ && elapsed == elapsed_) return;
  elapsed_ = elapsed;
  Q_EMIT changed();
}

}  // namespace ambrel
