#pragma once
// What the tiles and panels of the calendar show, made out of core's records.

#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/calendar.h"
#include "core/calendar/CalendarReader.h"

namespace ambrel {

struct EventRow {
  Q_GADGET
  QML_VALUE_TYPE(eventRow)
  Q_PROPERTY(QString eventId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, time, detail);  // "Stand-up", "10:00 – 10:30" or "All day", "Room 4 · Work"
  FACE_FIELDS(QString, day);                  // "Today", "Tomorrow", "Friday, November 27"; its first day to come
  FACE_FIELDS(QString, start);                // "10:00", "All day"
  FACE_FIELDS(QString, wait);                 // "in 6 min", "Now"; empty while it is more than an hour away
  FACE_FIELDS(QString, when);                 // the wait, or "at 15:00", "Tomorrow, 09:00", "Fri, Nov 27, 09:00"
  FACE_FIELDS(bool, isAllDay, isNow, isNear, hasLink);  // near: it begins within five minutes, or has just begun

  bool operator==(const EventRow&) const = default;
};
EventRow eventRow(const Occurrence& occurrence, const Calendar& calendar, Instant now);
// When the row says something else.
Instant eventRowChange(const Occurrence& occurrence, const Calendar& calendar, Instant now);

struct TaskRow {
  Q_GADGET
  QML_VALUE_TYPE(taskRow)
  Q_PROPERTY(QString taskId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, title, detail);  // "Call the bank", "Today, 17:00 · Private"
  FACE_FIELDS(QString, when);           // "Today, 17:00"; empty without a due time
  FACE_FIELDS(QString, section);        // "Overdue", "Today", "Later", "No date"
  FACE_FIELDS(bool, isOverdue, isDueToday);

  bool operator==(const TaskRow&) const = default;
};
TaskRow taskRow(const CalendarTask& task, const Calendar& calendar, Instant now);

struct SourceRow {
  Q_GADGET
  QML_VALUE_TYPE(sourceRow)
  Q_PROPERTY(QString sourceId MEMBER id FINAL)

 public:
  QString id{};                               // name and place
  FACE_FIELDS(QString, name, place, detail);  // "Work", "~/.calendars/work", "~/.calendars/work · 12 events"
  FACE_FIELDS(QString, added);                // as the user has written it; empty for one that was found
  FACE_FIELDS(bool, isShown, hasProblem);

  bool operator==(const SourceRow&) const = default;
};
// home: what "~" stands for.
SourceRow sourceRow(const CalendarSource& source, const std::string& home);

struct CalendarFace {
  Q_GADGET
  QML_VALUE_TYPE(calendarFace)
 public:
  FACE_FIELDS(QString, problem);          // "No calendar found"; empty while there is one, and before they are read
  FACE_FIELDS(ambrel::EventRow, next);    // what a glance should show; without an id when nothing is to come
  FACE_FIELDS(int, leftToday);            // events
  FACE_FIELDS(QString, todaySummary);     // "3 left today: 10:00 Stand-up, 12:30 Lunch, 15:00 Review"
  FACE_FIELDS(ambrel::TaskRow, task);     // the first of those that are due; without an id when there is none
  FACE_FIELDS(int, dueTasks, openTasks);  // due: today or before

  bool operator==(const CalendarFace&) const = default;
};

// An example of a day: an event at the next half hour.
CalendarFace sampleCalendarFace(const Calendar& calendar, Instant now);

}  // namespace ambrel
