#pragma once
// The time and the date in the user's own forms, updated once a minute.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <chrono>
#include <optional>

#include "app/base/Face.h"
#include "core/base/PresentCalendar.h"

namespace ambrel {

struct ClockFace {
  Q_GADGET
  QML_VALUE_TYPE(clockFace)
 public:
  FACE_FIELDS(QString, time);                 // "9:41 AM"
  FACE_FIELDS(QString, shortDate);            // "Sat, Nov 21"
  FACE_FIELDS(QString, shortWeekday);         // "Sat"
  FACE_FIELDS(QString, day, weekday, month);  // "21", "Saturday", "November 2026"
  FACE_FIELDS(QString, fullDate);             // "Saturday, November 21, 2026"

  bool operator==(const ClockFace&) const = default;
};
ClockFace clockFace(const Calendar& calendar, Instant now);

class ClockModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ClockFace face READ face NOTIFY changed FINAL)

 public:
  explicit ClockModel(PresentCalendar calendar, QObject* parent = nullptr);

  const ClockFace& face() const { return face_; }
  void tick(Instant now);
  void zoneChanged(Instant now);
  // When the texts change next: the turn of the minute.
  static Instant nextTick(Instant now);

 Q_SIGNALS:
  void changed();

 private:
  PresentCalendar calendar_;
  std::optional<std::chrono::sys_time<std::chrono::minutes>> minute_;  // of the face
  ClockFace face_;
};

}  // namespace ambrel
