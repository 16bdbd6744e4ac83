#include "app/focus/BreathingExercise.h"

namespace ambrel {

void BreathingExercise::toggle() {
  const Instant now = seams_.now();
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

bool BreathingExercise::renewFace(Instant now) {
  std::optional<BreathingStep> step;
  if (startedAt_) {
    step = breathingStep(secondsBetween(*startedAt_, now));
    stepEnds_ = advanced(now, step->left);
    if (step->kind == BreathingStep::Kind::done) startedAt_.reset();
  }
  return show(face_, breathingFace(step));
}

}  // namespace ambrel
