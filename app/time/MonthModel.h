#pragma once
// A page of the calendar: the month that is shown, the day that is chosen in it, and the present week.

#include <QString>
#include <QStringList>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/time/TimeModel.h"
#include "core/time/Weeks.h"

namespace ambrel {

struct DayCell {
  Q_GADGET
  QML_VALUE_TYPE(dayCell)
  Q_PROPERTY(QString key MEMBER id FINAL)

 public:
  QString id{};                  // "2026-11-22"
  FACE_FIELDS(QString, number);  // "22"
  FACE_FIELDS(QString, letter);  // of its weekday: "S"
  FACE_FIELDS(QString, name);    // "Sunday, November 22, 2026"
  FACE_FIELDS(bool, isInMonth, isToday, isOff);

  bool operator==(const DayCell&) const = default;
};

struct MonthFace {
  Q_GADGET
  QML_VALUE_TYPE(monthFace)
 public:
  FACE_FIELDS(QString, title);                       // "November 2026"
  FACE_FIELDS(QStringList, letters);                 // "S", "M", ... of the seven columns
  FACE_FIELDS(QList<int>, weeks);                    // the numbers of the six rows
  FACE_FIELDS(QString, chosen);                      // the key of the chosen day
  FACE_FIELDS(QString, chosenName);                  // "Sunday, November 22, 2026"
  FACE_FIELDS(QString, chosenDetail);                // "Tomorrow · week 47 · day 326"
  FACE_FIELDS(QString, presentTitle, presentMonth);  // "November 2026", "November"
  FACE_FIELDS(QString, presentDay, presentWeekday);  // "22", "Sun"
  FACE_FIELDS(bool, isAtToday);                      // the present day is chosen, and its month is shown

  bool operator==(const MonthFace&) const = default;
};

class MonthModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::MonthFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* days READ days CONSTANT FINAL)
  // Of the present week, and of the present month, whatever page is shown.
  Q_PROPERTY(ambrel::RowList* week READ week CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* present READ present CONSTANT FINAL)

 public:
  explicit MonthModel(TimeSeams seams, QObject* parent = nullptr) : TimeModel(std::move(seams), parent) {}

  const MonthFace& face() const { return face_; }
  RowList* days() { return &days_; }
  RowList* week() { return &week_; }
  RowList* present() { return &present_; }
  const Date& chosen() const { return chosen_; }
  // Without telling `picked`.
  void show(const Date& date);

  Q_INVOKABLE void choose(const QString& key);
  // The chosen day moves along.
  Q_INVOKABLE void moveDays(int days);
  Q_INVOKABLE void moveMonths(int months);
  // Shows another month, and chooses nothing.
  Q_INVOKABLE void turnPage(int months);
  Q_INVOKABLE void goToToday();

 Q_SIGNALS:
  // The user has chosen a day.
  void picked();

 private:
  void pick(const Date& date);
  Instant renew(const Calendar& calendar, Instant now) override;

  MonthFace face_;
  GadgetListModel<DayCell> days_, week_, present_;
  // The chosen day is today until the user chooses another.
  std::optional<Date> own_;
  std::optional<Date> turnedTo_;  // a day of the month that is shown, unless it is the chosen day's
  Date chosen_;
};

}  // namespace ambrel
