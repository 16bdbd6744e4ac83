#include "app/focus/BreathingExercise.h"

#include <cmath>

#include "app/base/StoredValue.h"

namespace ambrel {

BreathingExercise::BreathingExercise(std::function<Instant()> now, QObject* parent)
    : TimedModel(parent), now_(std::move(now)) {}

QString BreathingExercise::title() const { return step_ ? toQString(ambrel::title(step_->kind)) : tr("Breathe"); }

QString BreathingExercise::shortTitle() const {
  if (!step_) return tr("Breathe");
  switch (step_->kind) {
    case BreathingStep::Kind::breatheIn:
      return tr("In");
    case BreathingStep::Kind::hold:
      return tr("Hold");
    case BreathingStep::Kind::breatheOut:
      return tr("Out");
    case BreathingStep::Kind::done:
      return tr("Done");
  }
  return {};
}

QString BreathingExercise::detail() const {
  return isRunning() && step_ ? tr("Round %1 of %2").arg(step_->round).arg(breathingRounds) : tr("A minute of calm");
}

QString BreathingExercise::shortDetail() const {
  return isRunning() && step_ ? tr("%1 of %2").arg(step_->round).arg(breathingRounds) : tr("1 minute");
}

qreal BreathingExercise::target() const {
  if (!step_ || !isRunning()) return 0;
  switch (step_->kind) {
    case BreathingStep::Kind::breatheIn:
    case BreathingStep::Kind::hold:
      return 1;
    case BreathingStep::Kind::breatheOut:
    case BreathingStep::Kind::done:
      return 0;
  }
  return 0;
}

int BreathingExercise::stepMilliseconds() const {
  return step_ && isRunning() ? static_cast<int>(std::lround(step_->left.count() * 1000)) : 300;
}

void BreathingExercise::start() {
  startedAt_ = now_();
  publish(*startedAt_);
}

void BreathingExercise::stop() {
  startedAt_.reset();
  step_.reset();
  Q_EMIT changed();
  announceDue();
}

std::optional<Instant> BreathingExercise::due() const { return startedAt_ ? std::optional(stepEnds_) : std::nullopt; }

void BreathingExercise::tick(Instant now) {
  if (startedAt_ && now >= stepEnds_) publish(now);
}

void BreathingExercise::slept(Seconds, Instant) {
  if (isRunning()) stop();
}

void BreathingExercise::clockMoved(Seconds by, Instant) {
  if (startedAt_) startedAt_ = advanced(*startedAt_, by);
  stepEnds_ = advanced(stepEnds_, by);
}

void BreathingExercise::publish(Instant now) {
  step_ = breathingStep(secondsBetween(*startedAt_, now));
  stepEnds_ = advanced(now, step_->left);
  if (step_->kind == BreathingStep::Kind::done) startedAt_.reset();
  Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
