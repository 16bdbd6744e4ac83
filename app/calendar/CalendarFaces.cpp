#include "app/calendar/CalendarFaces.h"

#include <QObject>
#include <QUrl>
#include <algorithm>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

using namespace std::chrono;

constexpr minutes nearby{5}, countsDown{60};

QString timeOf(const Calendar& calendar, Instant instant) { return toQString(shortTime(calendar, instant)); }

// Whole days from today to the day of `instant`.
int daysAway(const Calendar& calendar, Instant instant, Instant now) {
  const auto today = floor<days>(wallTime(calendar, now)), day = floor<days>(wallTime(calendar, instant));
  return static_cast<int>((day - today).count());
}

QString dayName(const Calendar& calendar, Instant instant, Instant now, const char* skeleton) {
  const int away = daysAway(calendar, instant, now);
  if (away == 0) return QObject::tr("Today");
  if (away == 1) return QObject::tr("Tomorrow");
  if (away == -1) return QObject::tr("Yesterday");
  return toQString(formattedDate(calendar, instant, skeleton));
}

QString span(const Occurrence& event, const Calendar& calendar, Instant now) {
  const Instant lastMoment = event.end - microseconds(1);
  const bool endsLater =
      event.end > event.start && daysAway(calendar, lastMoment, now) > daysAway(calendar, event.start, now);
  if (event.isAllDay)
    return endsLater ? QObject::tr("All day, until %1").arg(dayName(calendar, lastMoment, now, "EEEdMMM"))
                     : QObject::tr("All day");
  const QString start = timeOf(calendar, event.start);
  if (event.end <= event.start) return start;
  const QString end = timeOf(calendar, event.end);
  return QObject::tr("%1 – %2").arg(start, endsLater ? dayName(calendar, event.end, now, "EEE") + u' ' + end : end);
}

QString waitOf(const Occurrence& event, Instant now) {
  if (event.isAllDay) return {};
  if (event.start <= now) return event.end > now || now - event.start < nearby ? QObject::tr("Now") : QString();
  const auto left = ceil<minutes>(event.start - now);
  return left <= countsDown ? QObject::tr("in %1 min").arg(left.count()) : QString();
}

QString whenOf(const Occurrence& event, const Calendar& calendar, Instant now) {
  if (const QString wait = waitOf(event, now); !wait.isEmpty()) return wait;
  const bool isToday = daysAway(calendar, event.start, now) <= 0;
  if (event.isAllDay) return isToday ? QObject::tr("All day") : dayName(calendar, event.start, now, "EEEdMMM");
  const QString time = timeOf(calendar, event.start);
  if (isToday) return QObject::tr("at %1").arg(time);
  return QObject::tr("%1, %2").arg(dayName(calendar, event.start, now, "EEEdMMM"), time);
}

QString joined(const QString& first, const QString& second) {
  return first.isEmpty() ? second : second.isEmpty() ? first : first + QStringLiteral(" · ") + second;
}

// A place that is an address of the web says nothing that its Join button does not.
QString placeOf(const EventDetails& event) {
  const QString place = toQString(event.location).simplified();
  return place.startsWith(QLatin1String("http"), Qt::CaseInsensitive) && !event.link.empty() ? QString() : place;
}

}  // namespace

EventRow eventRow(const Occurrence& event, const Calendar& calendar, Instant now) {
  EventRow row;
  row.id = toQString(event.id());
  row.title = toQString(event.event->title).simplified();
  if (row.title.isEmpty()) row.title = QObject::tr("Untitled event");
  row.time = span(event, calendar, now);
  row.detail = joined(placeOf(*event.event), toQString(event.event->calendar));
  row.day = dayName(calendar, std::max(event.start, calendar.startOfDay(now)), now, "EEEEMMMMd");
  row.start = event.isAllDay ? QObject::tr("All day") : timeOf(calendar, event.start);
  row.wait = waitOf(event, now);
  row.when = whenOf(event, calendar, now);
  row.isAllDay = event.isAllDay;
  row.isNow = !event.isAllDay && event.start <= now && now < event.end;
  row.isNear = !event.isAllDay && event.start - now <= nearby && now - event.start < nearby;
  row.hasLink = !event.event->link.empty();
  return row;
}

Instant eventRowChange(const Occurrence& event, const Calendar& calendar, Instant now) {
  Instant change = calendar.startOfDay(now, 1);
  const auto at = [&](Instant instant) {
    if (instant > now) change = std::min(change, instant);
  };
  at(event.end);
  if (event.isAllDay) return change;
  at(event.start);
  at(event.start + nearby);
  at(event.start - countsDown);
  if (const auto left = event.start - now; left > Instant::duration::zero() && left <= countsDown)
    at(event.start - (ceil<minutes>(left) - minutes(1)));
  return change;
}

TaskRow taskRow(const CalendarTask& task, const Calendar& calendar, Instant now) {
  TaskRow row;
  row.id = toQString(task.uid.empty() ? task.title : task.uid);
  row.title = toQString(task.title).simplified();
  if (task.due) {
    const Instant due = task.due->instant(calendar);
    const int away = daysAway(calendar, due, now);
    row.isDueToday = away == 0;
    row.isOverdue = task.due->isDate ? away < 0 : due < now;
    const QString day = dayName(calendar, due, now, "EEEdMMM");
    row.when = task.due->isDate ? day : QObject::tr("%1, %2").arg(day, timeOf(calendar, due));
    row.section = row.isOverdue ? QObject::tr("Overdue") : row.isDueToday ? QObject::tr("Today") : QObject::tr("Later");
  } else {
    row.section = QObject::tr("No date");
  }
  row.detail = joined(row.when, toQString(task.calendar));
  return row;
}

SourceRow sourceRow(const CalendarSource& source, const std::string& home) {
  SourceRow row;
  row.id = toQString(source.place + '\n' + source.name);
  row.name = toQString(source.name);
  const bool isAtHome = !home.empty() && source.place.starts_with(home + '/');
  row.place = toQString(isAtHome ? "~" + source.place.substr(home.size()) : source.place);
  // The rest of an address may be a secret, and so may what is before its host.
  if (row.place.contains(QLatin1String("://")))
    row.place =
        QUrl(row.place).toString(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment) +
        QStringLiteral("/…");
  row.isShown = !source.isHidden;
  row.hasProblem = !source.problem.empty();
  const auto counted = [](int count, const QString& one, const QString& many) {
    return count == 1 ? one : many.arg(count);
  };
  QString count;
  if (source.events > 0 || source.tasks == 0)
    count = counted(source.events, QObject::tr("1 event"), QObject::tr("%1 events"));
  if (source.tasks > 0)
    count = joined(count, counted(source.tasks, QObject::tr("1 reminder"), QObject::tr("%1 reminders")));
  row.detail = joined(row.place.isEmpty() ? QObject::tr("Online account") : row.place,
                      row.hasProblem ? toQString(source.problem) : count);
  return row;
}

CalendarFace sampleCalendarFace(const Calendar& calendar, Instant now) {
  const auto details = std::make_shared<EventDetails>();
  details->title = QObject::tr("Stand-up").toStdString();
  const Instant midnight = calendar.startOfDay(now);
  Occurrence event;
  event.start = midnight + floor<minutes>(now - midnight) / minutes(30) * minutes(30) + minutes(30);
  event.end = event.start + minutes(30);
  event.event = details;
  return {.problem = {},
          .next = eventRow(event, calendar, now),
          .leftToday = 3,
          .todaySummary = QObject::tr("%1 left today").arg(3),
          .task = {.id = QStringLiteral("task"), .title = QObject::tr("Call the bank"), .when = QObject::tr("Today")},
          .dueTasks = 2,
          .openTasks = 5};
}

}  // namespace ambrel
