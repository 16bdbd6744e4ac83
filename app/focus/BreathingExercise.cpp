#include "app/focus/BreathingExercise.h"

namespace ambrel {

BreathingExercise::BreathingExercise(std::function<Instant()> now, QObject* parent)
    : TimedModel(parent), now_(std::move(now)), face_(breathingFace({})) {}

void BreathingExercise::toggle() {
  const Instant now = now_();
  startedAt_ = startedAt_ ? std::nullopt : std::optional(now);
  publish(now);
}

std::optional<Instant> BreathingExercise::due() const { return startedAt_ ? std::optional(stepEnds_) : std::nullopt; }

void BreathingExercise::tick(Instant now) {
  if (startedAt_ && now >= stepEnds_) publish(now);
}

void BreathingExercise::slept(Seconds, Instant now) {
  if (!startedAt_) return;
  startedAt_.reset();
  publish(now);
}

void BreathingExercise::clockMoved(Seconds by, Instant) {
  if (startedAt_) startedAt_ = advanced(*startedAt_, by);
  stepEnds_ = advanced(stepEnds_, by);
}

void BreathingExercise::publish(Instant now) {
  std::optional<BreathingStep> step;
  if (startedAt_) {
    step = breathingStep(secondsBetween(*startedAt_, now));
    stepEnds_ = advanced(now, step->left);
    if (step->kind == BreathingStep::Kind::done) startedAt_.reset();
  }
  if (show(face_, breathingFace(step))) Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
