#include "app/focus/MoodLog.h"

#include "app/focus/Stored.h"

namespace ambrel {

MoodLog::MoodLog(FocusSeams seams, QObject* parent) : FocusModel(std::move(seams), parent) { MoodLog::reload(); }

void MoodLog::reload() {
  days_ = storedDayCounts(seams_.defaults, "moodLog", Mood::worst, Mood::best);
  update();
}

QString MoodLog::nameOf(int mood) { return toQString(Mood::name(mood)); }

void MoodLog::setToday(int mood) {
  if (mood < Mood::worst || mood > Mood::best) return;
  const Instant now = seams_.now();
  const auto [today, isNew] = days_.try_emplace(seams_.calendar().dayKey(now), mood);
  if (!isNew && today->second == mood)
    days_.erase(today);
  else
    today->second = mood;
  days_ = newestDays(std::move(days_));
  store(seams_.defaults, "moodLog", days_);
  publish(now);
}

}  // namespace ambrel
