#include "app/focus/HabitStore.h"

#include <algorithm>

#include "app/base/Log.h"
#include "app/focus/Stored.h"
#include "core/base/JSONFileStore.h"

namespace ambrel {
namespace {

enum Role { HabitId = Qt::UserRole, Name, IsDone, StreakText };

}  // namespace

QVariant HabitListModel::data(const QModelIndex& index, int role) const {
  const HabitRow* habit = row(index);
  if (!habit) return {};
  switch (role) {
    case HabitId:
      return toQString(habit->id.text());
    case Name:
      return toQString(habit->name);
    case IsDone:
      return habit->isDone;
    case StreakText:
      return habit->streak < 2 ? QString() : tr("%1 days in a row").arg(habit->streak);
  }
  return {};
}

QHash<int, QByteArray> HabitListModel::roleNames() const {
  return {{HabitId, "habitId"}, {Name, "name"}, {IsDone, "isDone"}, {StreakText, "streakText"}};
}

HabitStore::HabitStore(std::filesystem::path file, PresentCalendar calendar, std::function<Instant()> now,
                       QObject* parent)
    : TimedModel(parent), file_(std::move(file)), calendar_(std::move(calendar)), now_(std::move(now)) {
  try {
    if (auto stored = JSONFileStore<HabitList>{file_}.load()) items_ = std::move(stored->items);
  } catch (const std::exception& error) {
    logLine(std::string("cannot read habits: ") + error.what());
  }
  publish(now_());
}

bool HabitStore::add(const QString& name) {
  auto next = addingHabit(items_, name.toStdString(), UUID::random());
  if (!next) return false;
  items_ = std::move(*next);
  save();
  publish(now_());
  return true;
}

void HabitStore::remove(const QString& id) {
  const auto parsed = UUID::parse(id.toStdString());
  if (std::erase_if(items_, [&](const Habit& habit) { return habit.id == parsed; }) == 0) return;
  save();
  publish(now_());
}

void HabitStore::toggleToday(const QString& id) {
  const auto parsed = UUID::parse(id.toStdString());
  const auto habit = std::find_if(items_.begin(), items_.end(), [&](const Habit& one) { return one.id == parsed; });
  if (habit == items_.end()) return;
  const Instant now = now_();
  const std::string today = calendar_().dayKey(now);
  if (habit->days.erase(today) == 0) habit->days.insert(today);
  save();
  publish(now);
}

void HabitStore::save() {
  try {
    JSONFileStore<HabitList>{file_}.save({items_});
  } catch (const std::exception& error) {
    logLine(std::string("cannot save habits: ") + error.what());
  }
}

void HabitStore::publish(Instant now) {
  dayEnds_ = calendar_().startOfDay(now, 1);
  const std::string today = calendar_().dayKey(now);
  std::vector<HabitRow> rows;
  doneToday_ = bestStreak_ = 0;
  for (const auto& habit : items_) {
    rows.push_back({habit.id, habit.name, habit.days.contains(today), Streak::length(habit.days, now, calendar_)});
    doneToday_ += rows.back().isDone ? 1 : 0;
    bestStreak_ = std::max(bestStreak_, rows.back().streak);
  }
  rows_.setRows(rows);
  Q_EMIT changed();
  announceDue();
}

}  // namespace ambrel
