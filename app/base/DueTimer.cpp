#include "app/base/DueTimer.h"

#include <algorithm>
#include <cmath>

namespace ambrel {
namespace {

// Below this, what differs is the time between reading the clocks, and their usual corrections.
constexpr Seconds noticed{2};

}  // namespace

DueTimer::DueTimer(WallClock& clock, QObject* parent) : QObject(parent), clock_(clock), last_(clock.read()) {}

void DueTimer::add(TimedModel& model) {
  models_.push_back(&model);
  connect(&model, &TimedModel::dueChanged, this, &DueTimer::scheduleLater);
  scheduleLater();
}

void DueTimer::wake() {
  const WallClock::Reading reading = clock_.read();
  const Seconds slept = reading.slept - last_.slept;
  const Seconds moved = secondsBetween(last_.now, reading.now) - (reading.sinceBoot - last_.sinceBoot);
  last_ = reading;
  for (TimedModel* model : models_) {
    if (std::abs(moved.count()) >= noticed.count()) model->clockMoved(moved, reading.now);
    if (slept >= noticed) model->slept(slept, reading.now);
    const auto due = model->due();
    if (due && *due <= reading.now) model->tick(reading.now);
  }
  scheduleLater();
}

void DueTimer::zoneChanged() {
  const Instant now = clock_.read().now;
  for (TimedModel* model : models_) model->zoneChanged(now);
}

// Several changes in a row set the timer once.
void DueTimer::scheduleLater() {
  if (isScheduled_) return;
  isScheduled_ = true;
  QMetaObject::invokeMethod(
      this, [this] { schedule(); }, Qt::QueuedConnection);
}

void DueTimer::schedule() {
  isScheduled_ = false;
  std::optional<Instant> first;
  for (const TimedModel* model : models_)
    if (const auto due = model->due(); due && (!first || *due < *first)) first = due;
  clock_.wakeAt(first, [this] { wake(); });
}

}  // namespace ambrel
