#include "app/time/TimeReading.h"

#include <algorithm>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

using namespace std::chrono;

QString daysText(int days) { return days == 1 ? QObject::tr("1 day") : QObject::tr("%1 days").arg(days); }

// When a wait for `end` that is told in whole units, each begun minute counted, is told otherwise.
Instant unitPasses(Instant end, Instant now, minutes unit) {
  const auto left = ceil<minutes>(end - now);
  return end - (left / unit * unit - minutes(1));
}

QString spanTitle(TimeSpan span) {
  switch (span) {
    case TimeSpan::day:
      return QObject::tr("Day");
    case TimeSpan::week:
      return QObject::tr("Week");
    case TimeSpan::month:
      return QObject::tr("Month");
    case TimeSpan::year:
      return QObject::tr("Year");
  }
  return {};
}

}  // namespace

QString waitText(const Wait& wait) {
  const QString hours = QObject::tr("%1 h").arg(wait.hours), minutes = QObject::tr("%1 min").arg(wait.minutes);
  if (wait.days > 0) return wait.hours > 0 ? daysText(wait.days) + u' ' + hours : daysText(wait.days);
  if (wait.hours > 0) return wait.minutes > 0 ? hours + u' ' + minutes : hours;
  return minutes;
}

ShownReading spanReading(TimeSpan span, const Calendar& calendar, Instant now) {
  const SpanProgress progress = spanProgress(span, calendar, now);
  ShownReading shown;
  shown.reading.title = spanTitle(span);
  shown.reading.percent = progress.percent;
  shown.reading.value = QString::number(progress.percent);
  if (const int days = daysBetween(dateOf(calendar, now), dateOf(calendar, progress.ends)) - 1; days > 0) {
    shown.reading.shortSubLine = daysText(days);
    shown.until = std::min(progress.nextPercent, calendar.startOfDay(now, 1));
  } else {
    const Wait wait = waitUntil(progress.ends, calendar, now);
    const bool inHours = wait.days > 0 || wait.hours > 0;
    shown.reading.shortSubLine = waitText({0, 24 * wait.days + wait.hours, inHours ? 0 : wait.minutes});
    shown.until =
        std::min(progress.nextPercent, unitPasses(progress.ends, now, inHours ? minutes(hours(1)) : minutes(1)));
  }
  shown.reading.subLine = QObject::tr("%1 left").arg(shown.reading.shortSubLine);
  return shown;
}

ShownReading weekendReading(const Calendar& calendar, Instant now) {
  const Weekend next = weekend(calendar, now);
  const Instant end = next.isNow ? next.ends : next.begins;
  const Wait wait = waitUntil(end, calendar, now);
  ShownReading shown;
  shown.reading.value = waitText(wait);
  shown.reading.subLine = next.isNow ? QObject::tr("left of the weekend") : QObject::tr("until the weekend");
  shown.reading.shortSubLine = next.isNow ? QObject::tr("left") : QObject::tr("to go");
  shown.until = unitPasses(end, now, wait.days > 0 ? minutes(hours(1)) : minutes(1));
  return shown;
}

ShownReading weekNumberReading(WeekNumbering numbering, const Calendar& calendar, Instant now) {
  const Date today = dateOf(calendar, now);
  const Date first = daysLater(today, -((isoWeekday(today) - firstWeekday(numbering, calendar) + 7) % 7));
  const auto text = [&](const Date& date) {
    return toQString(formattedDate(calendar, noonOf(calendar, date), "MMMd"));
  };
  ShownReading shown;
  shown.reading.value = QString::number(weekOf(today, numbering, calendar.locale()).week);
  shown.reading.subLine = QObject::tr("%1 – %2").arg(text(first), text(daysLater(first, 6)));
  shown.reading.shortSubLine = QObject::tr("from %1").arg(text(first));
  shown.until = calendar.startOfDay(now, 1);
  return shown;
}

ShownReading binaryReading(const Calendar& calendar, Instant now) {
  const auto fields = calendar.fields(now);
  ShownReading shown;
  for (const int pair : {fields.hour, fields.minute, fields.second}) shown.reading.digits << pair / 10 << pair % 10;
  shown.reading.value = QStringLiteral("%1:%2:%3")
                            .arg(fields.hour, 2, 10, QChar(u'0'))
                            .arg(fields.minute, 2, 10, QChar(u'0'))
                            .arg(fields.second, 2, 10, QChar(u'0'));
  shown.reading.subLine = toQString(shortTime(calendar, now));
  shown.until = nextTurn<seconds>(now);
  return shown;
}

ShownReading unixReading(const Calendar& calendar, Instant now) {
  ShownReading shown;
  shown.reading.value = QString::number(floor<seconds>(now).time_since_epoch().count());
  shown.reading.subLine = toQString(formattedDate(calendar, now, "MMMdjmmss"));
  shown.until = nextTurn<seconds>(now);
  return shown;
}

Instant TimeReadingModel::renew(const Calendar& calendar, Instant now) {
  ShownReading shown = read_(calendar, now);
  if (replaced(face_, std::move(shown.reading))) Q_EMIT changed();
  return shown.until;
}

}  // namespace ambrel
