#pragma once
// Glasses of water by the day, and the reminder of the next.

#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class WaterTracker : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(int count READ count NOTIFY changed FINAL)
  Q_PROPERTY(int goal READ goal WRITE setGoal NOTIFY changed FINAL)
  Q_PROPERTY(int intervalMinutes READ intervalMinutes WRITE setIntervalMinutes NOTIFY changed FINAL)
  Q_PROPERTY(bool remindersOn READ remindersOn WRITE setRemindersOn NOTIFY changed FINAL)
  // Of the goal; may exceed a hundred.
  Q_PROPERTY(qreal percent READ percent NOTIFY changed FINAL)
  Q_PROPERTY(bool isGoalMet READ isGoalMet NOTIFY changed FINAL)
  // "Next glass at 14:30"; empty without a reminder.
  Q_PROPERTY(QString nextText READ nextText NOTIFY changed FINAL)

 public:
  WaterTracker(FocusSeams seams, IsEnabled isEnabled, QObject* parent = nullptr);

  int count() const { return shown_.count; }
  int goal() const { return water_.goal; }
  int intervalMinutes() const { return water_.intervalMinutes; }
  bool remindersOn() const { return water_.remindersOn; }
  qreal percent() const { return 100.0 * shown_.count / water_.goal; }
  bool isGoalMet() const { return shown_.count >= water_.goal; }
  QString nextText() const { return shown_.nextText; }
  void setGoal(int glasses);
  void setIntervalMinutes(int minutes);
  void setRemindersOn(bool on);

  Q_INVOKABLE void add();
  Q_INVOKABLE void remove();

  const Water& value() const { return water_; }
  // When the next glass is due, for whoever else reminds; absent without reminders, and where they are not wanted.
  std::optional<Instant> waterDueAt(Instant now) const;

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  struct Shown {
    int count = 0;
    QString nextText;
    Water settings;
    bool operator==(const Shown&) const = default;
  };
  void acted(Instant now);
  void remind(Instant now);
  void followDay(Instant now);
  void load();
  void publish(Instant now);

  FocusSeams seams_;
  IsEnabled isEnabled_;
  Water water_;
  Shown shown_;
  std::optional<Instant> reminder_;
  Instant dayEnds_;
};

}  // namespace ambrel
