#pragma once
// Focus and wellbeing: the models, which wait on one timer, and what their notifications lead to.

#include <array>
#include <filesystem>

#include "app/base/Area.h"
#include "app/base/DueTimer.h"
#include "app/focus/AlarmClock.h"
#include "app/focus/BreakReminder.h"
#include "app/focus/BreathingExercise.h"
#include "app/focus/HabitStore.h"
#include "app/focus/MoodLog.h"
#include "app/focus/PomodoroTimer.h"
#include "app/focus/QuickTimer.h"
#include "app/focus/Stopwatch.h"
#include "app/focus/WaterTracker.h"

namespace ambrel {

// What has no tile to be switched off at stays silent. An alarm rings while any profile has its tile: it has to ring
// whichever profile the displays have chosen by then.
class FocusArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::PomodoroTimer* pomodoro READ pomodoro CONSTANT FINAL)
  Q_PROPERTY(ambrel::WaterTracker* water READ water CONSTANT FINAL)
  Q_PROPERTY(ambrel::Stopwatch* stopwatch READ stopwatch CONSTANT FINAL)
  Q_PROPERTY(ambrel::QuickTimer* timer READ timer CONSTANT FINAL)
  Q_PROPERTY(ambrel::AlarmClock* alarm READ alarm CONSTANT FINAL)
  Q_PROPERTY(ambrel::BreakReminder* eyeBreak READ eyeBreak CONSTANT FINAL)
  Q_PROPERTY(ambrel::BreakReminder* standUp READ standUp CONSTANT FINAL)
  Q_PROPERTY(ambrel::BreathingExercise* breathing READ breathing CONSTANT FINAL)
  Q_PROPERTY(ambrel::HabitStore* habits READ habits CONSTANT FINAL)
  Q_PROPERTY(ambrel::MoodLog* mood READ mood CONSTANT FINAL)

 public:
  // All but the path outlive it.
  FocusArea(const FocusSeams& seams, std::filesystem::path habitsFile, DueTimer& due, Shell& shell,
            QObject* parent = nullptr);

  PomodoroTimer* pomodoro() { return &pomodoro_; }
  WaterTracker* water() { return &water_; }
  Stopwatch* stopwatch() { return &stopwatch_; }
  QuickTimer* timer() { return &timer_; }
  AlarmClock* alarm() { return &alarm_; }
  BreakReminder* eyeBreak() { return &eyeBreak_; }
  BreakReminder* standUp() { return &standUp_; }
  BreathingExercise* breathing() { return &breathing_; }
  HabitStore* habits() { return &habits_; }
  MoodLog* mood() { return &mood_; }

  void defaultsChanged(const std::set<std::string>& keys) override;
  void addSignals(BuddySignals& signals, Instant now) override;
  void addPeeks(PeekSignals& signals, Instant now) override;
  bool answerNotification(const std::string& identifier, const std::string& action) override;
  void notificationDismissed(const std::string& identifier) override;

 private:
  Shell& shell_;
  PresentCalendar calendar_;
  PomodoroTimer pomodoro_;
  WaterTracker water_;
  Stopwatch stopwatch_;
  QuickTimer timer_;
  AlarmClock alarm_;
  BreakReminder eyeBreak_, standUp_;
  BreathingExercise breathing_;
  HabitStore habits_;
  MoodLog mood_;
  const std::array<FocusModel*, 10> models_{&pomodoro_, &water_,   &stopwatch_, &timer_,  &alarm_,
                                            &eyeBreak_, &standUp_, &breathing_, &habits_, &mood_};
};

}  // namespace ambrel
