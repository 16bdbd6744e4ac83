#include "app/time/MonthModel.h"

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/settings.h"

namespace ambrel {
namespace {

QString dateText(const Calendar& calendar, const Date& date, const char* skeleton) {
  return toQString(formattedDate(calendar, noonOf(calendar, date), skeleton));
}

QString distanceText(int days) {
  if (days == 0) return QObject::tr("Today");
  if (days == 1) return QObject::tr("Tomorrow");
  if (days == -1) return QObject::tr("Yesterday");
  return days > 0 ? QObject::tr("In %1 days").arg(days) : QObject::tr("%1 days ago").arg(-days);
}

std::vector<DayCell> cellsOf(const MonthPage& page, int month, const Date& today, const Calendar& calendar) {
  const auto off = daysOff(calendar.locale());
  std::vector<DayCell> cells;
  for (const Date& date : page.days)
    cells.push_back({.id = toQString(keyOf(date)),
                     .number = dateText(calendar, date, "d"),
                     .letter = dateText(calendar, date, "EEEEE"),
                     .name = dateText(calendar, date, "yMMMMEEEEd"),
                     .isInMonth = date.month == month,
                     .isToday = date == today,
                     .isOff = off[static_cast<std::size_t>(isoWeekday(date) - 1)]});
  return cells;
}

}  // namespace

void MonthModel::show(const Date& date) {
  own_ = date;
  turnedTo_.reset();
  update();
}

void MonthModel::pick(const Date& date) {
  // The years that a key can tell.
  if (date.year < 1 || date.year > 9999) return;
  show(date);
  Q_EMIT picked();
}

void MonthModel::choose(const QString& key) {
  if (const auto date = dateOfKey(key.toStdString())) pick(*date);
}

void MonthModel::moveDays(int days) { pick(daysLater(chosen_, days)); }
void MonthModel::moveMonths(int months) { pick(monthsLater(chosen_, months)); }

void MonthModel::turnPage(int months) {
  const Date date = monthsLater(turnedTo_.value_or(chosen_), months);
  if (date.year < 1 || date.year > 9999) return;
  turnedTo_ = date;
  update();
}

void MonthModel::goToToday() {
  own_.reset();
  turnedTo_.reset();
  update();
  Q_EMIT picked();
}

Instant MonthModel::renew(const Calendar& calendar, Instant now) {
  const Date today = dateOf(calendar, now);
  const WeekNumbering numbering = valueOf(seams_.defaults, setting::weekNumbering);
  chosen_ = own_.value_or(today);
  const Date shown = turnedTo_.value_or(chosen_);
  const MonthPage page = monthPage(shown.year, shown.month, numbering, calendar);
  const auto cells = cellsOf(page, shown.month, today, calendar);
  days_.setRows(cells);
  const MonthPage own = monthPage(today.year, today.month, numbering, calendar);
  const auto present = cellsOf(own, today.month, today, calendar);
  present_.setRows(present);
  const auto row = std::ranges::find(own.days, today) - own.days.begin();
  week_.setRows({present.begin() + row / 7 * 7, present.begin() + row / 7 * 7 + 7});

  MonthFace face{.title = dateText(calendar, {shown.year, shown.month, 1}, "yMMMM"),
                 .chosen = toQString(keyOf(chosen_)),
                 .chosenName = dateText(calendar, chosen_, "yMMMMEEEEd"),
                 .presentTitle = dateText(calendar, today, "yMMMM"),
                 .presentMonth = dateText(calendar, today, "LLLL"),
                 .presentDay = dateText(calendar, today, "d"),
                 .presentWeekday = dateText(calendar, today, "EEE"),
                 .isAtToday = chosen_ == today && page.days == own.days};
  for (int i = 0; i < 7; ++i) face.letters << cells[static_cast<std::size_t>(i)].letter;
  for (const int week : page.weeks) face.weeks << week;
  face.chosenDetail = QObject::tr("%1 · week %2 · day %3")
                          .arg(distanceText(daysBetween(today, chosen_)))
                          .arg(weekOf(chosen_, numbering, calendar.locale()).week)
                          .arg(daysBetween({chosen_.year, 1, 1}, chosen_) + 1);
  if (replaced(face_, std::move(face))) Q_EMIT changed();
  return calendar.startOfDay(now, 1);
}

}  // namespace ambrel
