#pragma once
// The time and the date in the user's own forms, updated once a minute.

#include <QString>

#include "app/base/Face.h"
#include "app/time/TimeModel.h"

namespace ambrel {

struct ClockFace {
  Q_GADGET
  QML_VALUE_TYPE(clockFace)
 public:
  FACE_FIELDS(QString, time);                           // "9:41 AM"
  FACE_FIELDS(QString, shortDate);                      // "Sat, Nov 21"
  FACE_FIELDS(QString, shortWeekday);                   // "Sat"
  FACE_FIELDS(QString, shortDay, shortMonth);           // "Nov 21", "Nov"
  FACE_FIELDS(QString, day, weekday, month);            // "21", "Saturday", "November 2026"
  FACE_FIELDS(QString, fullDate);                       // "Saturday, November 21, 2026"
  FACE_FIELDS(QString, hourText, minuteText, dayHalf);  // "9", "41", "AM"; "09" and "" where a day has 24 hours
  FACE_FIELDS(int, hour, minute);                       // 0 to 23, 0 to 59

  bool operator==(const ClockFace&) const = default;
};
ClockFace clockFace(const Calendar& calendar, Instant now);

class ClockModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ClockFace face READ face NOTIFY changed FINAL)

 public:
  explicit ClockModel(TimeSeams seams, QObject* parent = nullptr) : TimeModel(std::move(seams), parent) {}

  const ClockFace& face() const { return face_; }

 private:
  Instant renew(const Calendar& calendar, Instant now) override;

  ClockFace face_;
};

}  // namespace ambrel
