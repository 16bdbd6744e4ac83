#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class QuickTimer : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::TimerFace face READ face NOTIFY changed FINAL)

 public:
  explicit QuickTimer(FocusSeams seams, QObject* parent = nullptr);

  const TimerFace& face() const { return face_; }

  Q_INVOKABLE void start(int seconds);
  // Also puts a finished timer away.
  Q_INVOKABLE void cancel();
  // Brings the time that is left up to date, while somebody looks.
  Q_INVOKABLE void update() { publish(seams_.now()); }

  std::optional<Instant> due() const override { return timer_.endDate; }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  void publish(Instant now);

  FocusSeams seams_;
  QuickTimerValue timer_;
  TimerFace face_;
};

}  // namespace ambrel
