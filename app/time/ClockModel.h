#pragma once
// The time and the date in the user's own forms, brought up to date once a minute.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <chrono>
#include <optional>

#include "core/base/PresentCalendar.h"

namespace ambrel {

class ClockModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QString time READ time NOTIFY changed)
  // "Sat, Nov 21"
  Q_PROPERTY(QString shortDate READ shortDate NOTIFY changed)
  // "Sat"
  Q_PROPERTY(QString shortWeekday READ shortWeekday NOTIFY changed)
  // "21", "Saturday", "November 2026"
  Q_PROPERTY(QString day READ day NOTIFY changed)
  Q_PROPERTY(QString weekday READ weekday NOTIFY changed)
  Q_PROPERTY(QString month READ month NOTIFY changed)
  // "Saturday, November 21, 2026"
  Q_PROPERTY(QString fullDate READ fullDate NOTIFY changed)

 public:
  explicit ClockModel(PresentCalendar calendar, QObject* parent = nullptr);

  void tick(Instant now);
  // The zone is another.
  void zoneChanged(Instant now);
  // When the texts change next: the turn of the minute.
  static Instant nextTick(Instant now);

  QString time() const { return time_; }
  QString shortDate() const { return shortDate_; }
  QString shortWeekday() const { return shortWeekday_; }
  QString day() const { return day_; }
  QString weekday() const { return weekday_; }
  QString month() const { return month_; }
  QString fullDate() const { return fullDate_; }

 Q_SIGNALS:
  void changed();

 private:
  PresentCalendar calendar_;
  std::optional<std::chrono::sys_time<std::chrono::minutes>> minute_;  // that the texts are for
  QString time_, shortDate_, shortWeekday_, day_, weekday_, month_, fullDate_;
};

}  // namespace ambrel
