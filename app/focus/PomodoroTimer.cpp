#include "app/focus/PomodoroTimer.h"

#include "app/focus/Stored.h"

namespace ambrel {

PomodoroTimer::PomodoroTimer(FocusSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {
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

template <typename Value, typename Stored>
void PomodoroTimer::set(Value PomodoroSettings::*field, const Setting<Stored>& setting, Value value) {
  if constexpr (std::is_same_v<Value, int>) value = clamped(setting, value);
  if (value == timer_.settings.*field) return;
  timer_.settings.*field = value;
  store(seams_.defaults, setting.key, value);
  update();
}

void PomodoroTimer::setFocusMinutes(int minutes) {
  set(&PomodoroSettings::focusMinutes, setting::pomodoroFocus, minutes);
}

void PomodoroTimer::setBreakMinutes(int minutes) {
  set(&PomodoroSettings::breakMinutes, setting::pomodoroBreak, minutes);
}

void PomodoroTimer::setLongBreakMinutes(int minutes) {
  set(&PomodoroSettings::longBreakMinutes, setting::pomodoroLongBreak, minutes);
}

void PomodoroTimer::setSessionsUntilLongBreak(int sessions) {
  set(&PomodoroSettings::sessionsUntilLongBreak, setting::pomodoroSessions, sessions);
}

void PomodoroTimer::setStartsNextPhase(bool starts) {
  set(&PomodoroSettings::startsNextPhase, setting::pomodoroAutoStart, starts);
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

void PomodoroTimer::publish(Instant now) {
  if (now >= dayEnds_) publishWeek(now);
  if (show(face_, pomodoroFace(timer_, seams_.calendar, now))) Q_EMIT changed();
  announceDue();
}

void PomodoroTimer::publishWeek(Instant now) {
  dayEnds_ = seams_.calendar().startOfDay(now, 1);
  if (show(week_, focusWeek(timer_.history, seams_.calendar, now))) Q_EMIT weekChanged();
}

}  // namespace ambrel
