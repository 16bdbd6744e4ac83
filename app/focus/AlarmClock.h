#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class AlarmClock : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AlarmFace face READ face NOTIFY changed FINAL)

 public:
  AlarmClock(FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  const AlarmFace& face() const { return face_; }

  Q_INVOKABLE void setIsOn(bool on);
  Q_INVOKABLE void setSnoozeMinutes(int minutes);
  // Sets the time, and switches the alarm on.
  Q_INVOKABLE void set(int hour, int minute);
  Q_INVOKABLE void snooze();
  Q_INVOKABLE void stop();
  // What a button of the alarm's notification asks for, "snooze" or "stop"; a click on it stops as well.
  void answer(const std::string& action);

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override { return earlier(alarm_.nextChange(seams_.calendar), dayEnds_); }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  // Turned and set; what rings falls silent.
  void turn(bool on, int hour, int minute);
  void silence();
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  Alarm alarm_;
  AlarmFace face_;
  Instant dayEnds_;
};

}  // namespace ambrel
