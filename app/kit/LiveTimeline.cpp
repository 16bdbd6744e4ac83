#include "app/kit/LiveTimeline.h"

#include <algorithm>
#include <utility>

namespace ambrel {
namespace {

// A timer that fires a little early would tick in the old second and again right after.
constexpr int grace = 5;  // milliseconds
// The clock may be set or the machine may sleep: nothing is waited for longer than this.
constexpr qint64 longestWait = 3'600'000;

}  // namespace

QDateTime nextTurn(LiveTimeline::Schedule schedule, const QDateTime& now) {
  using Schedule = LiveTimeline::Schedule;
  const QTime time = now.time();
  switch (schedule) {
    case Schedule::Never:
      return {};
    case Schedule::EverySecond:
      return now.addMSecs(1000 - time.msec());
    case Schedule::EveryMinute:
      return now.addMSecs(60'000 - time.second() * 1000 - time.msec());
    case Schedule::EveryHour:
      return now.addMSecs(3'600'000 - time.minute() * 60'000 - time.second() * 1000 - time.msec());
    case Schedule::EveryDay:
      return now.date().addDays(1).startOfDay();
  }
  return {};
}

LiveTimeline::LiveTimeline(QObject* parent) : QObject(parent), clock_([] { return QDateTime::currentDateTime(); }) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &LiveTimeline::wake);
}

void LiveTimeline::setSchedule(Schedule schedule) {
  if (schedule_ == schedule) return;
  schedule_ = schedule;
  Q_EMIT scheduleChanged();
  if (active_) refresh();
}

void LiveTimeline::setActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  Q_EMIT activeChanged();
  if (active_) {
    wake();
  } else {
    timer_.stop();
  }
}

void LiveTimeline::refresh() {
  now_ = clock_();
  wait(now_);
  Q_EMIT ticked();
}

std::optional<int> LiveTimeline::remaining() const {
  if (!timer_.isActive()) return std::nullopt;
  return timer_.remainingTime();
}

void LiveTimeline::wake() {
  const QDateTime now = clock_();
  const bool isDue =
      !now_.isValid() || now < now_ || (schedule_ != Schedule::Never && now >= nextTurn(schedule_, now_));
  if (isDue) {
    refresh();
  } else {
    wait(now);
  }
}

void LiveTimeline::wait(const QDateTime& from) {
  const QDateTime next = nextTurn(schedule_, from);
  if (!active_ || !next.isValid()) {
    timer_.stop();
    return;
  }
  const qint64 delay = std::clamp<qint64>(from.msecsTo(next) + grace, 1, longestWait);
  timer_.setTimerType(schedule_ == Schedule::EverySecond ? Qt::PreciseTimer : Qt::CoarseTimer);
  timer_.start(static_cast<int>(delay));
}

}  // namespace ambrel
