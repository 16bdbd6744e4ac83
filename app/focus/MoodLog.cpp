#include "app/focus/MoodLog.h"

#include "app/focus/Stored.h"
#include "core/base/LocalText.h"

namespace ambrel {

MoodLog::MoodLog(UserDefaults& defaults, PresentCalendar calendar, std::function<Instant()> now, bool persists,
                 QObject* parent)
    : TimedModel(parent),
      defaults_(defaults),
      calendar_(std::move(calendar)),
      now_(std::move(now)),
      persists_(persists) {
  if (persists_) days_ = storedDayCounts(defaults_, "moodLog", Mood::worst, Mood::best);
  publish(now_());
}

void MoodLog::reload() {
  if (!persists_) return;
  days_ = storedDayCounts(defaults_, "moodLog", Mood::worst, Mood::best);
  publish(now_());
}

QString MoodLog::todayName() const { return nameOf(today_); }

QString MoodLog::nameOf(int mood) { return toQString(Mood::name(mood)); }

void MoodLog::setToday(int mood) {
  if (mood < Mood::worst || mood > Mood::best) return;
  const Instant now = now_();
  const std::string key = calendar_().dayKey(now);
  if (const auto found = days_.find(key); found != days_.end() && found->second == mood)
    days_.erase(found);
  else
    days_[key] = mood;
  days_ = newestDays(std::move(days_));
  if (persists_) store(defaults_, "moodLog", days_);
  publish(now);
}

void MoodLog::publish(Instant now) {
  dayEnds_ = calendar_().startOfDay(now, 1);
  const auto moodOf = [&](const std::string& key) {
    const auto found = days_.find(key);
    return found == days_.end() ? 0 : found->second;
  };
  const auto keys = lastSevenDays(now, calendar_);
  week_.clear();
  QStringList words;
  for (int i = 0; i < 7; ++i) {
    const Instant day = calendar_().startOfDay(now, i - 6);
    const int mood = moodOf(keys[static_cast<std::size_t>(i)]);
    const QString name = toQString(formattedDate(calendar_, day, "EEEE"));
    if (mood != 0) words.append(name + QStringLiteral(": ") + nameOf(mood));
    week_.append(QVariantMap{{QStringLiteral("day"), toQString(formattedDate(calendar_, day, "EEEEE"))},
                             {QStringLiteral("name"), name},
                             {QStringLiteral("mood"), mood},
                             {QStringLiteral("moodName"), nameOf(mood)}});
  }
  weekText_ = words.join(QStringLiteral(", "));
  today_ = moodOf(keys.back());
  Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
