#pragma once
// One mood a day, 1 to 5.

#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"
#include "core/focus.h"

namespace ambrel {

class MoodLog : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // 0 while today has none.
  Q_PROPERTY(int today READ today NOTIFY changed FINAL)
  Q_PROPERTY(QString todayName READ todayName NOTIFY changed FINAL)
  // The last seven days, today last: {"day": "M", "name": "Monday", "mood": 4, "moodName": "Good"}; 0 and "" without
  // one.
  Q_PROPERTY(QVariantList week READ week NOTIFY changed FINAL)
  // "Monday: Good, Tuesday: Okay"
  Q_PROPERTY(QString weekText READ weekText NOTIFY changed FINAL)

 public:
  // persists: whether the log is kept in the defaults, or for this run alone.
  MoodLog(UserDefaults& defaults, PresentCalendar calendar, std::function<Instant()> now, bool persists,
          QObject* parent = nullptr);

  int today() const { return today_; }
  QString todayName() const;
  QVariantList week() const { return week_; }
  QString weekText() const { return weekText_; }
  const DayCounts& days() const { return days_; }

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
  bool persists_;
  DayCounts days_;
  int today_ = 0;
  QVariantList week_;
  QString weekText_;
  Instant dayEnds_;
};

}  // namespace ambrel
