#pragma once
// The models of focus and wellbeing, built together and waiting on one timer.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <filesystem>

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

// Asked before each of them disturbs. What has no tile to be switched off at stays silent.
struct FocusPresence {
  IsEnabled water, alarm, eyeBreak, standUp;
};

class FocusModels : public QObject {
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
  FocusModels(const FocusSeams& seams, std::filesystem::path habitsFile, const FocusPresence& presence, DueTimer& due,
              QObject* parent = nullptr);

  // The defaults have been changed by others.
  void reload();

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

 private:
  PomodoroTimer pomodoro_;
  WaterTracker water_;
  Stopwatch stopwatch_;
  QuickTimer timer_;
  AlarmClock alarm_;
  BreakReminder eyeBreak_, standUp_;
  BreathingExercise breathing_;
  HabitStore habits_;
  MoodLog mood_;
};

}  // namespace ambrel
