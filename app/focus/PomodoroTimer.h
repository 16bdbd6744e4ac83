#pragma once

#include "app/focus/FocusModel.h"

namespace ambrel {

// The focus timer; its rules are core's.
class PomodoroTimer : public ambrel::FocusModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::PomodoroFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::FocusWeek week READ week NOTIFY weekChanged FINAL)

 public:
  explicit PomodoroTimer(FocusSeams seams, QObject* parent = nullptr);

  const PomodoroFace& face() const { return face_; }
  const FocusWeek& week() const { return week_; }
  const Pomodoro& value() const { return timer_; }

  // Starts, pauses or resumes.
  Q_INVOKABLE void toggle();
  Q_INVOKABLE void reset();
  Q_INVOKABLE void skip();

  void reload() override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void weekChanged();
  // A phase has ended by itself.
  void phaseEnded(ambrel::PomodoroPhase phase);

 private:
  void load();
  std::optional<Instant> nextChange() const override { return timer_.endDate; }
  bool renewFace(Instant now) override;
  // Once a day, and when a session was counted.
  void publishWeek(Instant now);

  Pomodoro timer_;
  PomodoroFace face_;
  FocusWeek week_;
};

}  // namespace ambrel
