#include "app/focus/PomodoroTimer.h"

#include <algorithm>

#include "app/focus/Stored.h"
#include "core/base/LocalText.h"

namespace ambrel {

PomodoroTimer::PomodoroTimer(FocusSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {
  load();
  const Instant now = seams_.now();
  publish(now);
  publishWeek(now);
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
  const Pomodoro before = timer_;
  load();
  if (timer_ == before) return;
  Q_EMIT settingsChanged();
  const Instant now = seams_.now();
  publish(now);
  publishWeek(now);
}

QString PomodoroTimer::phaseTitle() const { return toQString(title(shown_.phase)); }

QString PomodoroTimer::lengthText() const { return tr("of %1 min").arg(shown_.lengthMinutes); }

void PomodoroTimer::setFocusMinutes(int minutes) {
  auto settings = timer_.settings;
  settings.focusMinutes = clamped(setting::pomodoroFocus, minutes);
  change(settings);
}

void PomodoroTimer::setBreakMinutes(int minutes) {
  auto settings = timer_.settings;
  settings.breakMinutes = clamped(setting::pomodoroBreak, minutes);
  change(settings);
}

void PomodoroTimer::setLongBreakMinutes(int minutes) {
  auto settings = timer_.settings;
  settings.longBreakMinutes = clamped(setting::pomodoroLongBreak, minutes);
  change(settings);
}

void PomodoroTimer::setSessionsUntilLongBreak(int sessions) {
  auto settings = timer_.settings;
  settings.sessionsUntilLongBreak = clamped(setting::pomodoroSessions, sessions);
  change(settings);
}

void PomodoroTimer::setStartsNextPhase(bool starts) {
  auto settings = timer_.settings;
  settings.startsNextPhase = starts;
  change(settings);
}

void PomodoroTimer::change(const PomodoroSettings& settings) {
  if (settings == timer_.settings) return;
  timer_.settings = settings;
  store(seams_.defaults, setting::pomodoroFocus.key, settings.focusMinutes);
  store(seams_.defaults, setting::pomodoroBreak.key, settings.breakMinutes);
  store(seams_.defaults, setting::pomodoroLongBreak.key, settings.longBreakMinutes);
  store(seams_.defaults, setting::pomodoroSessions.key, settings.sessionsUntilLongBreak);
  store(seams_.defaults, setting::pomodoroAutoStart.key, settings.startsNextPhase);
  Q_EMIT settingsChanged();
  publish(seams_.now());
}

void PomodoroTimer::start() {
  timer_.start(seams_.now());
  update();
}

void PomodoroTimer::pause() {
  timer_.pause(seams_.now());
  update();
}

void PomodoroTimer::toggle() { timer_.isRunning() ? pause() : start(); }

void PomodoroTimer::reset() {
  timer_.reset();
  update();
}

void PomodoroTimer::skip() {
  timer_.skip(seams_.now());
  update();
}

void PomodoroTimer::update() { publish(seams_.now()); }

std::optional<Instant> PomodoroTimer::due() const {
  return timer_.endDate ? std::min(*timer_.endDate, dayEnds_) : dayEnds_;
}

void PomodoroTimer::tick(Instant now) {
  if (const auto ended = timer_.tick(now, seams_.calendar)) {
    if (ended->phase == PomodoroPhase::focus) storeCounts();
    seams_.sounds.play("complete");
    seams_.notifications.post(notificationOf(ended->notice));
    publish(now);
    publishWeek(now);
    if (onPhaseEnded) onPhaseEnded(ended->phase);
    return;
  }
  publish(now);
  if (now >= dayEnds_) publishWeek(now);
}

void PomodoroTimer::storeCounts() {
  store(seams_.defaults, "pomodoroDone", "pomodoroDoneDay", timer_.completed);
  store(seams_.defaults, "pomodoroHistory", timer_.history);
}

void PomodoroTimer::slept(Seconds span, Instant now) {
  timer_.slept(span);
  publish(now);
}

void PomodoroTimer::clockMoved(Seconds by, Instant now) {
  timer_.clockMoved(by);
  publish(now);
  publishWeek(now);
}

void PomodoroTimer::publish(Instant now) {
  const Seconds length = timer_.length(), left = timer_.remaining(now);
  Shown next{.phase = timer_.phase,
             .isRunning = timer_.isRunning(),
             .isPaused = timer_.isPaused(),
             .remaining = toQString(countdownText(left)),
             .lengthMinutes = static_cast<int>(length.count() / 60),
             .percentLeft = std::clamp(100.0 * left.count() / length.count(), 0.0, 100.0),
             .sessionsToday = timer_.completed.today(seams_.calendar().dayKey(now))};
  if (next != shown_) {
    shown_ = std::move(next);
    Q_EMIT changed();
  }
  announceDue();
}

void PomodoroTimer::publishWeek(Instant now) {
  dayEnds_ = seams_.calendar().startOfDay(now, 1);
  const auto week = FocusStats::week(timer_.history, now, seams_.calendar);
  const std::string today = seams_.calendar().dayKey(now);
  int most = 1;
  for (const auto& day : week) most = std::max(most, day.count);
  week_.clear();
  QStringList words;
  for (const auto& day : week) {
    const QString name = toQString(formattedDate(seams_.calendar, day.date, "EEEE"));
    if (day.count > 0) words.append(QStringLiteral("%1 %2").arg(name).arg(day.count));
    week_.append(QVariantMap{{QStringLiteral("day"), toQString(formattedDate(seams_.calendar, day.date, "EEEEE"))},
                             {QStringLiteral("name"), name},
                             {QStringLiteral("count"), day.count},
                             {QStringLiteral("percent"), 100.0 * day.count / most},
                             {QStringLiteral("isToday"), seams_.calendar().dayKey(day.date) == today}});
  }
  weekTotal_ = FocusStats::total(week);
  weekText_ = weekTotal_ == 0 ? tr("No focus sessions this week yet")
                              : tr("%1 this week: ").arg(weekTotal_) + words.join(QStringLiteral(", "));
  std::set<std::string> days;
  for (const auto& [day, count] : timer_.history)
    if (count > 0) days.insert(day);
  streak_ = Streak::length(days, now, seams_.calendar);
  Q_EMIT weekChanged();
  announceDue();
}

}  // namespace ambrel
