#pragma once
// What the plain tiles of time show: a value, what it is about, and until when it is true.

#include <QList>
#include <QString>
#include <functional>

#include "app/base/Face.h"
#include "app/time/TimeModel.h"
#include "core/time/Spans.h"
#include "core/time/Weeks.h"

namespace ambrel {

struct TimeReading {
  Q_GADGET
  QML_VALUE_TYPE(timeReading)
 public:
  FACE_FIELDS(QString, value, subLine, shortSubLine);
  FACE_FIELDS(QString, title);      // of a row in a panel
  FACE_FIELDS(int, percent);        // of a span that has passed
  FACE_FIELDS(QList<int>, digits);  // of a time, from the hours on

  bool operator==(const TimeReading&) const = default;
};

struct ShownReading {
  TimeReading reading;
  Instant until{};
};
// "52", "39 days left"
ShownReading spanReading(TimeSpan span, const Calendar& calendar, Instant now);
// "2 days 5 h", "until the weekend"; while it is: "13 h 20 min", "left of the weekend"
ShownReading weekendReading(const Calendar& calendar, Instant now);
// "47", "Nov 16 – 22"
ShownReading weekNumberReading(WeekNumbering numbering, const Calendar& calendar, Instant now);
// "14:30:05" and its six digits
ShownReading binaryReading(const Calendar& calendar, Instant now);
// "1795354233"
ShownReading unixReading(const Calendar& calendar, Instant now);

class TimeReadingModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::TimeReading face READ face NOTIFY changed FINAL)

 public:
  using Read = std::function<ShownReading(const Calendar&, Instant)>;
  TimeReadingModel(TimeSeams seams, Read read, QObject* parent = nullptr)
      : TimeModel(std::move(seams), parent), read_(std::move(read)) {}

  const TimeReading& face() const { return face_; }

 private:
  Instant renew(const Calendar& calendar, Instant now) override;

  Read read_;
  TimeReading face_;
};

// "2 days 5 h", "5 h 12 min", "12 min"
QString waitText(const Wait& wait);

}  // namespace ambrel
