#include "app/time/ClockModel.h"

#include "core/base/LocalText.h"

namespace ambrel {

ClockModel::ClockModel(PresentCalendar calendar, QObject* parent) : QObject(parent), calendar_(std::move(calendar)) {}

void ClockModel::tick(Instant now) {
  const auto minute = std::chrono::floor<std::chrono::minutes>(now);
  if (minute == minute_) return;
  minute_ = minute;
  const Calendar calendar = calendar_();
  const auto formatted = [&](const char* skeleton) {
    return QString::fromStdString(formattedDate(calendar, now, skeleton));
  };
  const QString time = QString::fromStdString(shortTime(calendar, now)), fullDate = formatted("yMMMMEEEEd");
  if (time == time_ && fullDate == fullDate_) return;
  time_ = time;
  fullDate_ = fullDate;
  shortDate_ = formatted("EEEdMMM");
  shortWeekday_ = formatted("EEE");
  day_ = formatted("d");
  weekday_ = formatted("EEEE");
  month_ = formatted("yMMMM");
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
