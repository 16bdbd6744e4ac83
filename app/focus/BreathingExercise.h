#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

// A minute of slow breathing, step by step.
class BreathingExercise : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::BreathingFace face READ face NOTIFY changed FINAL)

 public:
  explicit BreathingExercise(FocusSeams seams, QObject* parent = nullptr) : FocusModel(std::move(seams), parent) {}

  const BreathingFace& face() const { return face_; }

  // Starts or stops.
  Q_INVOKABLE void toggle();

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 private:
  bool renewFace(Instant now) override;

  std::optional<Instant> startedAt_;
  Instant stepEnds_;
  BreathingFace face_ = breathingFace({});
};

}  // namespace ambrel
