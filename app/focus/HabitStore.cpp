#include "app/focus/HabitStore.h"

#include <algorithm>

#include "app/base/Log.h"
#include "app/base/StoredValue.h"
#include "core/base/JSONFileStore.h"

namespace ambrel {
namespace {

std::vector<HabitRow> rowsOf(const std::vector<Habit>& habits, const Calendar& calendar, Instant now) {
  std::vector<HabitRow> rows;
  for (const Habit& habit : habits) {
    const int streak = Streak::length(habit.days, now, calendar);
    rows.push_back({.id = toQString(habit.id.text()),
                    .name = toQString(habit.name),
                    .isDone = habit.days.contains(calendar.dayKey(now)),
                    .streakText = streak < 2 ? QString() : QObject::tr("%1 days in a row").arg(streak)});
  }
  return rows;
}

}  // namespace

HabitStore::HabitStore(std::filesystem::path file, FocusSeams seams, QObject* parent)
    : FocusModel(std::move(seams), parent),
      file_(std::move(file)),
      write_(tr("The habits are not saved"), "cannot save habits: ", [this] { write(); }),
      followed_(file_) {
  connect(&write_, &PatientWrite::problemFound, this, &HabitStore::problemFound);
  connect(&followed_, &FollowedFile::changed, this, [this] {
    refresh();
    update();
  });
  read();
  update();
  followed_.start();
}

void HabitStore::read() {
  seen_ = fileStatus(file_);
  try {
    if (auto stored = JSONFileStore<HabitList>{file_}.load()) items_ = std::move(stored->items);
  } catch (const std::exception& error) {
    logLine(std::string("cannot read habits: ") + error.what());
    keepUnreadable();
  }
}

// A change that is not written yet stays, and so do the habits when their file has gone.
void HabitStore::refresh() {
  const auto present = fileStatus(file_);
  if (present && present != seen_ && write_.problem().isEmpty()) read();
}

// The next save would replace it.
void HabitStore::keepUnreadable() {
  try {
    const auto kept = setAside(file_, ".unreadable");
    if (!kept) return;
    logLine("the file is kept as " + kept->string());
    write_.tell(tr("The habits could not be read"),
                tr("The file is kept as %1").arg(toQString(kept->filename().string())));
  } catch (const FileError& error) {
    logLine(error.what());
  }
}

bool HabitStore::add(const QString& name) {
  refresh();
  auto next = addingHabit(items_, name.toStdString(), UUID::random());
  if (!next) return false;
  items_ = std::move(*next);
  save();
  return true;
}

void HabitStore::remove(const QString& id) {
  refresh();
  const auto parsed = UUID::parse(id.toStdString());
  if (std::erase_if(items_, [&](const Habit& habit) { return habit.id == parsed; }) != 0) save();
}

void HabitStore::toggleToday(const QString& id) {
  refresh();
  const auto habit = std::ranges::find(items_, UUID::parse(id.toStdString()), &Habit::id);
  if (habit == items_.end()) return;
  const std::string today = seams_.calendar().dayKey(seams_.now());
  if (habit->days.erase(today) == 0) habit->days.insert(today);
  save();
}

void HabitStore::write() {
  JSONFileStore<HabitList>{file_}.save({items_});
  seen_ = fileStatus(file_);
}

void HabitStore::save() {
  write_.now();
  update();
}

bool HabitStore::renewFace(Instant now) {
  rows_.setRows(rowsOf(items_, seams_.calendar, now));
  return show(face_, habitsFace(items_, seams_.calendar, now));
}

}  // namespace ambrel
