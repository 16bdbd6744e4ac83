#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

// One mood a day, 1 to 5.
class MoodLog : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::MoodWeek week READ week NOTIFY changed FINAL)

 public:
  MoodLog(UserDefaults& defaults, PresentCalendar calendar, std::function<Instant()> now, QObject* parent = nullptr);

  const MoodWeek& week() const { return week_; }

  // The same mood again takes it back.
  Q_INVOKABLE void setToday(int mood);
  Q_INVOKABLE static QString nameOf(int mood);

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override { return dayEnds_; }
  void tick(Instant now) override { publish(now); }
  void clockMoved(Seconds, Instant now) override { publish(now); }

 Q_SIGNALS:
  void changed();

 private:
  void publish(Instant now);

  UserDefaults& defaults_;
  PresentCalendar calendar_;
  std::function<Instant()> now_;
  DayCounts days_;
  MoodWeek week_;
  Instant dayEnds_;
};

}  // namespace ambrel
