#include "app/time/ClockModel.h"

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {

ClockFace clockFace(const Calendar& calendar, Instant now) {
  const auto formatted = [&](const char* skeleton) { return toQString(formattedDate(calendar, now, skeleton)); };
  const auto fields = calendar.fields(now);
  // The locale's habit shows in the hours of an afternoon.
  const Instant afternoon = calendar.instant(fields.year, fields.month, fields.day, 13);
  const bool hasHalves = formattedDate(calendar, afternoon, "j") != formattedDate(calendar, afternoon, "H");
  ClockFace face;
  face.time = toQString(shortTime(calendar, now));
  face.shortDate = formatted("EEEdMMM");
  face.shortWeekday = formatted("EEE");
  face.shortDay = formatted("MMMd");
  face.shortMonth = formatted("LLL");
  face.day = formatted("d");
  face.weekday = formatted("EEEE");
  face.month = formatted("yMMMM");
  face.fullDate = formatted("yMMMMEEEEd");
  face.hour = fields.hour;
  face.minute = fields.minute;
  face.hourText = hasHalves ? QString::number((fields.hour + 11) % 12 + 1)
                            : QStringLiteral("%1").arg(fields.hour, 2, 10, QChar(u'0'));
  face.minuteText = QStringLiteral("%1").arg(fields.minute, 2, 10, QChar(u'0'));
  if (hasHalves) face.dayHalf = formatted("a");
  return face;
}

Instant ClockModel::renew(const Calendar& calendar, Instant now) {
  if (replaced(face_, clockFace(calendar, now))) Q_EMIT changed();
  return nextTurn<std::chrono::minutes>(now);
}

}  // namespace ambrel
