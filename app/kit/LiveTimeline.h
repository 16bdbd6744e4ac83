#pragma once
// When a tile has to update: at the turn of each second, minute, hour or day, and only while it is visible.

#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>

namespace ambrel {

// One timer that fires at the next turn of the schedule's unit. Inactive, or with nothing to wait for, it has no
// timer running; when it becomes active it ticks at once if a turn has passed meanwhile.
class LiveTimeline : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Schedule schedule READ schedule WRITE setSchedule NOTIFY scheduleChanged FINAL)
  Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged FINAL)
  Q_PROPERTY(QDateTime now READ now NOTIFY ticked FINAL)

 public:
  // Names are capitalised because QML asks for it.
  enum class Schedule { Never, EverySecond, EveryMinute, EveryHour, EveryDay };
  Q_ENUM(Schedule)
  using Clock = std::function<QDateTime()>;

  explicit LiveTimeline(QObject* parent = nullptr);

  Schedule schedule() const { return schedule_; }
  void setSchedule(Schedule schedule);
  // Bind it to the bar's `widgetsActive`.
  bool active() const { return active_; }
  void setActive(bool active);
  // The time of the last tick; invalid before the first.
  QDateTime now() const { return now_; }
  void setClock(Clock clock) { clock_ = std::move(clock); }

  // Ticks and restarts the timer, as after a change of the clock or of the time zone.
  Q_INVOKABLE void refresh();
  // How long the timer still runs, in milliseconds; absent when none does.
  std::optional<int> remaining() const;

 Q_SIGNALS:
  void ticked();
  void scheduleChanged();
  void activeChanged();

 private:
  void wake();
  void wait(const QDateTime& from);

  QTimer timer_;
  Clock clock_;
  QDateTime now_;
  Schedule schedule_ = Schedule::Never;
  bool active_ = false;
};

// The first turn of the schedule's unit after `now`, in local time; invalid for `Never`.
QDateTime nextTurn(LiveTimeline::Schedule schedule, const QDateTime& now);

}  // namespace ambrel
