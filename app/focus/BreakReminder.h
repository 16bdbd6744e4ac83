#pragma once
// One of the two reminders: to rest the eyes, or to stand up.

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class BreakReminder : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isOn READ isOn WRITE setIsOn NOTIFY changed FINAL)
  Q_PROPERTY(int intervalMinutes READ intervalMinutes WRITE setIntervalMinutes NOTIFY changed FINAL)
  Q_PROPERTY(bool isDue READ isDue NOTIFY changed FINAL)
  Q_PROPERTY(bool isOnBreak READ isOnBreak NOTIFY changed FINAL)
  // To the next break, or to the end of the present one: "12:40"
  Q_PROPERTY(QString countdown READ countdown NOTIFY changed FINAL)
  // What is left of the interval or of the break, of a hundred.
  Q_PROPERTY(qreal percentLeft READ percentLeft NOTIFY changed FINAL)
  Q_PROPERTY(int countToday READ countToday NOTIFY changed FINAL)

 public:
  BreakReminder(BreakKind kind, FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  bool isOn() const { return shown_.timer.isOn; }
  int intervalMinutes() const { return shown_.timer.intervalMinutes; }
  bool isDue() const { return shown_.timer.isDue; }
  bool isOnBreak() const { return shown_.timer.breakEnds.has_value(); }
  QString countdown() const { return shown_.countdown; }
  qreal percentLeft() const { return shown_.percentLeft; }
  int countToday() const { return shown_.countToday; }
  void setIsOn(bool on);
  void setIntervalMinutes(int minutes);

  Q_INVOKABLE void takeBreak();
  Q_INVOKABLE void endBreak();
  // Brings the countdown up to date, while somebody looks.
  Q_INVOKABLE void update();

  const BreakTimer& value() const { return timer_; }
  std::function<void()> onDue;

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  struct Shown {
    BreakTimer timer;
    QString countdown;
    qreal percentLeft = 0;
    int countToday = 0;
    bool operator==(const Shown&) const = default;
  };
  std::string key(const char* suffix) const;
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  BreakTimer timer_;
  Shown shown_;
  Instant dayEnds_;
};

}  // namespace ambrel
