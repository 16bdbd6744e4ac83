#include "app/focus/MoodLog.h"

#include "app/focus/Stored.h"

namespace ambrel {

MoodLog::MoodLog(UserDefaults& defaults, PresentCalendar calendar, std::function<Instant()> now, QObject* parent)
    : TimedModel(parent), defaults_(defaults), calendar_(std::move(calendar)), now_(std::move(now)) {
  reload();
}

void MoodLog::reload() {
  days_ = storedDayCounts(defaults_, "moodLog", Mood::worst, Mood::best);
  publish(now_());
}

QString MoodLog::nameOf(int mood) { return toQString(Mood::name(mood)); }

void MoodLog::setToday(int mood) {
  if (mood < Mood::worst || mood > Mood::best) return;
  const Instant now = now_();
  const auto [today, isNew] = days_.try_emplace(calendar_().dayKey(now), mood);
  if (!isNew && today->second == mood)
    days_.erase(today);
  else
    today->second = mood;
  days_ = newestDays(std::move(days_));
  store(defaults_, "moodLog", days_);
  publish(now);
}

void MoodLog::publish(Instant now) {
  dayEnds_ = calendar_().startOfDay(now, 1);
  if (show(week_, moodWeek(days_, calendar_, now))) Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
