#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class Stopwatch : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::StopwatchFace face READ face NOTIFY changed FINAL)

 public:
  explicit Stopwatch(std::function<Instant()> now, QObject* parent = nullptr);

  const StopwatchFace& face() const { return face_; }

  Q_INVOKABLE void toggle();
  Q_INVOKABLE void reset();
  // Brings the time up to date, while somebody looks.
  Q_INVOKABLE void update() { publish(now_()); }

  std::optional<Instant> due() const override { return std::nullopt; }
  void tick(Instant) override {}
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  void publish(Instant now);

  std::function<Instant()> now_;
  StopwatchValue watch_;
  StopwatchFace face_;
};

}  // namespace ambrel
