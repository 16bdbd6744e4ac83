#pragma once

#include <QtQml/qqmlregistration.h>

#include "app/base/TimedModel.h"
#include "app/focus/FocusFaces.h"
#include "app/focus/FocusSeams.h"
#include "core/settings.h"

namespace ambrel {

// The focus timer; its rules are core's.
class PomodoroTimer : public TimedModel {
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

  Q_INVOKABLE void setFocusMinutes(int minutes);
  Q_INVOKABLE void setBreakMinutes(int minutes);
  Q_INVOKABLE void setLongBreakMinutes(int minutes);
  Q_INVOKABLE void setSessionsUntilLongBreak(int sessions);
  Q_INVOKABLE void setStartsNextPhase(bool starts);

  // Starts, pauses or resumes.
  Q_INVOKABLE void toggle();
  Q_INVOKABLE void reset();
  Q_INVOKABLE void skip();
  // Brings the time that is left up to date, while somebody looks.
  Q_INVOKABLE void update() { publish(seams_.now()); }

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override { return earlier(timer_.endDate, dayEnds_); }
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();
  void weekChanged();
  // A phase has ended by itself.
  void phaseEnded(ambrel::PomodoroPhase phase);

 private:
  template <typename Value, typename Stored>
  void set(Value PomodoroSettings::*field, const Setting<Stored>& setting, Value value);
  void load();
  void publish(Instant now);
  // Once a day, and when a session was counted.
  void publishWeek(Instant now);

  FocusSeams seams_;
  Pomodoro timer_;
  PomodoroFace face_;
  FocusWeek week_;
  Instant dayEnds_;
};

}  // namespace ambrel
