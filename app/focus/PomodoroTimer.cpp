#include "app/focus/PomodoroTimer.h"

#include "app/focus/Stored.h"

namespace ambrel {

PomodoroTimer::PomodoroTimer(FocusSeams seams, QObject* parent) : FocusModel(std::move(seams), parent) {
  load();
  update();
}

void PomodoroTimer::load() {
  timer_.settings = PomodoroSettings{.focusMinutes = valueOf(seams_.defaults, setting::pomodoroFocus),
                                     .breakMinutes = valueOf(seams_.defaults, setting::pomodoroBreak),
                                     .longBreakMinutes = valueOf(seams_.defaults, setting::pomodoroLongBreak),
                                     .sessionsUntilLongBreak = valueOf(seams_.defaults, setting::pomodoroSessions),
                                     .startsNextPhase = valueOf(seams_.defaults, setting::pomodoroAutoStart)};
  timer_.completed = storedDayCount(seams_.defaults, "pomodoroDone", "pomodoroDoneDay");
  timer_.history = storedDayCounts(seams_.defaults, "pomodoroHistory", 0, 100000);
}

void PomodoroTimer::reload() {
  load();
  publishWeek(seams_.now());
  update();
}

void PomodoroTimer::toggle() {
  const Instant now = seams_.now();
  timer_.isRunning() ? timer_.pause(now) : timer_.start(now);
  publish(now);
}

void PomodoroTimer::reset() {
  timer_.reset();
  update();
}

void PomodoroTimer::skip() {
  timer_.skip(seams_.now());
  update();
}

void PomodoroTimer::tick(Instant now) {
  const auto ended = timer_.tick(now, seams_.calendar);
  if (!ended) return publish(now);
  if (ended->phase == PomodoroPhase::focus) {
    store(seams_.defaults, "pomodoroDone", "pomodoroDoneDay", timer_.completed);
    store(seams_.defaults, "pomodoroHistory", timer_.history);
    publishWeek(now);
  }
  seams_.sounds.play("complete");
  seams_.notifications.post(notificationOf(ended->notice));
  publish(now);
  Q_EMIT phaseEnded(ended->phase);
}

void PomodoroTimer::slept(Seconds span, Instant now) {
  timer_.slept(span);
  publish(now);
}

void PomodoroTimer::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publishWeek(now);
  publish(now);
}

bool PomodoroTimer::renewFace(Instant now) {
  if (now >= dayEnds_) publishWeek(now);
  return show(face_, pomodoroFace(timer_, seams_.calendar, now));
}

void PomodoroTimer::publishWeek(Instant now) {
  if (show(week_, focusWeek(timer_.history, seams_.calendar, now))) Q_EMIT weekChanged();
}

}  // namespace ambrel
