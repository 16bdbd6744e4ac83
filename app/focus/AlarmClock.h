#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

class AlarmClock : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AlarmFace face READ face NOTIFY changed FINAL)

 public:
  AlarmClock(FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  const AlarmFace& face() const { return face_; }

  Q_INVOKABLE void setIsOn(bool on);
  // Sets the time, and switches the alarm on.
  Q_INVOKABLE void set(int hour, int minute);
  Q_INVOKABLE void snooze();
  Q_INVOKABLE void stop();
  // What a button of the alarm's notification asks for, "snooze" or "stop"; a click on it stops as well.
  void answer(const std::string& action);

  void reload() override;
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 private:
  // Turned and set; what rings falls silent.
  void turn(bool on, int hour, int minute);
  void silence();
  std::optional<Instant> nextChange() const override { return alarm_.nextChange(seams_.calendar); }
  bool renewFace(Instant now) override { return show(face_, alarmFace(alarm_, seams_.calendar, now)); }

  IsEnabled isEnabled_;
  Alarm alarm_;
  AlarmFace face_;
};

}  // namespace ambrel
