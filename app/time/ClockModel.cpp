#include "app/time/ClockModel.h"

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {

ClockFace clockFace(const Calendar& calendar, Instant now) {
  const auto formatted = [&](const char* skeleton) { return toQString(formattedDate(calendar, now, skeleton)); };
  ClockFace face;
  face.time = toQString(shortTime(calendar, now));
  face.shortDate = formatted("EEEdMMM");
  face.shortWeekday = formatted("EEE");
  face.day = formatted("d");
  face.weekday = formatted("EEEE");
  face.month = formatted("yMMMM");
  face.fullDate = formatted("yMMMMEEEEd");
  return face;
}

ClockModel::ClockModel(PresentCalendar calendar, QObject* parent) : QObject(parent), calendar_(std::move(calendar)) {}

void ClockModel::tick(Instant now) {
  const auto minute = std::chrono::floor<std::chrono::minutes>(now);
  if (minute == minute_) return;
  minute_ = minute;
  ClockFace face = clockFace(calendar_(), now);
  if (face == face_) return;
  face_ = std::move(face);
  Q_EMIT changed();
}

void ClockModel::zoneChanged(Instant now) {
  minute_.reset();
  tick(now);
}

Instant ClockModel::nextTick(Instant now) {
  using namespace std::chrono;
  return Instant(floor<minutes>(now) + minutes(1));
}

}  // namespace ambrel
