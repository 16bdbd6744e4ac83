#pragma once
// The habits, kept in a file of their own.

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>

#include "app/base/RecordListModel.h"
#include "app/base/TimedModel.h"
#include "core/base/PresentCalendar.h"
#include "core/focus/HabitList.h"

namespace ambrel {

struct HabitRow {
  UUID id;
  std::string name;
  bool isDone = false;  // today
  int streak = 0;       // days
  bool operator==(const HabitRow&) const = default;
};

// Roles: habitId, name, isDone, streakText ("5 days in a row", empty below 2).
class HabitListModel : public RecordListModel<HabitRow, UUID> {
  Q_OBJECT

 public:
  using RecordListModel::RecordListModel;
  using RecordListModel::setRows;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 protected:
  UUID keyOf(const HabitRow& row) const override { return row.id; }
};

class HabitStore : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(QAbstractListModel* habits READ habits CONSTANT FINAL)
  Q_PROPERTY(int count READ count NOTIFY changed FINAL)
  Q_PROPERTY(int doneToday READ doneToday NOTIFY changed FINAL)
  Q_PROPERTY(bool isFull READ isFull NOTIFY changed FINAL)
  // The longest run of any habit, in days.
  Q_PROPERTY(int bestStreak READ bestStreak NOTIFY changed FINAL)

 public:
  HabitStore(std::filesystem::path file, PresentCalendar calendar, std::function<Instant()> now,
             QObject* parent = nullptr);

  const std::vector<Habit>& items() const { return items_; }
  QAbstractListModel* habits() { return &rows_; }
  int count() const { return static_cast<int>(items_.size()); }
  int doneToday() const { return doneToday_; }
  bool isFull() const { return items_.size() >= mostHabits; }
  int bestStreak() const { return bestStreak_; }

  // Says whether it was taken: a name, and room for one more.
  Q_INVOKABLE bool add(const QString& name);
  Q_INVOKABLE void remove(const QString& id);
  Q_INVOKABLE void toggleToday(const QString& id);

  std::optional<Instant> due() const override { return dayEnds_; }
  void tick(Instant now) override { publish(now); }
  void clockMoved(Seconds, Instant now) override { publish(now); }

 Q_SIGNALS:
  void changed();

 private:
  void save();
  void publish(Instant now);

  std::filesystem::path file_;
  PresentCalendar calendar_;
  std::function<Instant()> now_;
  std::vector<Habit> items_;
  HabitListModel rows_;
  int doneToday_ = 0, bestStreak_ = 0;
  Instant dayEnds_;
};

}  // namespace ambrel
