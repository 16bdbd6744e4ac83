#pragma once

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class AlarmClock : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isOn READ isOn WRITE setIsOn NOTIFY changed FINAL)
  Q_PROPERTY(int hour READ hour NOTIFY changed FINAL)
  Q_PROPERTY(int minute READ minute NOTIFY changed FINAL)
  Q_PROPERTY(int snoozeMinutes READ snoozeMinutes WRITE setSnoozeMinutes NOTIFY changed FINAL)
  Q_PROPERTY(bool isRinging READ isRinging NOTIFY changed FINAL)
  Q_PROPERTY(bool isSnoozed READ isSnoozed NOTIFY changed FINAL)
  // "7:30 AM", the time that is set
  Q_PROPERTY(QString time READ time NOTIFY changed FINAL)
  // "Tomorrow", "Today", "Ringing", "Snoozed until 7:40 AM", "Off"
  Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)
  // The same for a tile without room: "Until 7:40 AM"
  Q_PROPERTY(QString shortDetail READ shortDetail NOTIFY changed FINAL)

 public:
  AlarmClock(FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  bool isOn() const { return shown_.alarm.isOn; }
  int hour() const { return shown_.alarm.hour; }
  int minute() const { return shown_.alarm.minute; }
  int snoozeMinutes() const { return shown_.alarm.snoozeMinutes; }
  bool isRinging() const { return shown_.alarm.isRinging; }
  bool isSnoozed() const { return shown_.alarm.snoozedUntil.has_value(); }
  QString time() const { return shown_.time; }
  QString detail() const { return shown_.detail; }
  QString shortDetail() const { return shown_.shortDetail; }
  void setIsOn(bool on);
  void setSnoozeMinutes(int minutes);

  // Sets the time, and switches the alarm on.
  Q_INVOKABLE void set(int hour, int minute);
  Q_INVOKABLE void snooze();
  Q_INVOKABLE void stop();
  // What a button of the alarm's notification asks for, "snooze" or "stop"; a click on it stops as well.
  void answer(const std::string& action);

  const Alarm& value() const { return alarm_; }
  std::function<void()> onRing;

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  struct Shown {
    Alarm alarm;
    QString time, detail, shortDetail;
    bool operator==(const Shown&) const = default;
  };
  // What the alarm does next; `snoozed` is the phrase for that case.
  QString detailAt(Instant now, const QString& snoozed) const;
  void silence();
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  Alarm alarm_;
  Shown shown_;
  Instant dayEnds_;
};

}  // namespace ambrel
