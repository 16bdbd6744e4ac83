#pragma once
// Days until a date of the user's.

#include "app/time/MonthModel.h"
#include "core/time/Countdown.h"

namespace ambrel {

struct CountdownFace {
  Q_GADGET
  QML_VALUE_TYPE(countdownFace)
 public:
  FACE_FIELDS(QString, title);         // "New Year"
  FACE_FIELDS(QString, value, unit);   // "39", "days"; "Today" and ""
  FACE_FIELDS(QString, date);          // "Friday, January 1, 2027"
  FACE_FIELDS(QString, weeks);         // "5 weeks and 4 days"; empty below a week
  FACE_FIELDS(bool, isPast, isUsual);  // isUsual: neither title nor date is the user's

  bool operator==(const CountdownFace&) const = default;
};
CountdownFace countdownFace(const Countdown& countdown, const Calendar& calendar, Instant now);

class CountdownModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::CountdownFace face READ face NOTIFY changed FINAL)
  // The page on which the date is chosen.
  Q_PROPERTY(ambrel::MonthModel* month READ month CONSTANT FINAL)

 public:
  explicit CountdownModel(TimeSeams seams, QObject* parent = nullptr);

  const CountdownFace& face() const { return face_; }
  MonthModel* month() { return &month_; }

  // Shown at once, and stored when the edit ends, as is the date. A blank title is the usual one.
  Q_INVOKABLE void setTitle(const QString& title);
  Q_INVOKABLE void finish();
  // Back to the next New Year.
  Q_INVOKABLE void reset();
  // Turns to the month of the date.
  Q_INVOKABLE void showDate();

 private:
  Instant renew(const Calendar& calendar, Instant now) override;
  Countdown stored(const Calendar& calendar, Instant now) const;

  MonthModel month_;
  // Not stored yet.
  std::optional<std::string> title_;
  std::optional<Date> date_;
  CountdownFace face_;
};

}  // namespace ambrel
