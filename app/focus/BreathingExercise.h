#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

// A minute of slow breathing, step by step.
class BreathingExercise : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::BreathingFace face READ face NOTIFY changed FINAL)

 public:
  explicit BreathingExercise(std::function<Instant()> now, QObject* parent = nullptr);

  const BreathingFace& face() const { return face_; }

  // Starts or stops.
  Q_INVOKABLE void toggle();

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  void publish(Instant now);

  std::function<Instant()> now_;
  std::optional<Instant> startedAt_;
  Instant stepEnds_;
  BreathingFace face_;
};

}  // namespace ambrel
