#pragma once
// The focus timer as the tile shows it; its rules are core's.

#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class PomodoroTimer : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // "Focus", "Break", "Long Break"
  Q_PROPERTY(QString phaseTitle READ phaseTitle NOTIFY changed FINAL)
  Q_PROPERTY(bool isFocus READ isFocus NOTIFY changed FINAL)
  Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)
  Q_PROPERTY(bool isPaused READ isPaused NOTIFY changed FINAL)
  // "18:24"
  Q_PROPERTY(QString remaining READ remaining NOTIFY changed FINAL)
  // "of 25 min"
  Q_PROPERTY(QString lengthText READ lengthText NOTIFY changed FINAL)
  // What is left, of a hundred.
  Q_PROPERTY(qreal percentLeft READ percentLeft NOTIFY changed FINAL)
  Q_PROPERTY(int sessionsToday READ sessionsToday NOTIFY changed FINAL)
  Q_PROPERTY(int focusMinutes READ focusMinutes WRITE setFocusMinutes NOTIFY settingsChanged FINAL)
  Q_PROPERTY(int breakMinutes READ breakMinutes WRITE setBreakMinutes NOTIFY settingsChanged FINAL)
  Q_PROPERTY(int longBreakMinutes READ longBreakMinutes WRITE setLongBreakMinutes NOTIFY settingsChanged FINAL)
  Q_PROPERTY(int sessionsUntilLongBreak READ sessionsUntilLongBreak WRITE setSessionsUntilLongBreak NOTIFY
                 settingsChanged FINAL)
  Q_PROPERTY(bool startsNextPhase READ startsNextPhase WRITE setStartsNextPhase NOTIFY settingsChanged FINAL)
  // The seven days of this week: {"day": "Mon", "name": "Monday", "count": 3, "percent": 60.0, "isToday": false}
  Q_PROPERTY(QVariantList week READ week NOTIFY weekChanged FINAL)
  // "9 this week: Monday 6, Tuesday 3"
  Q_PROPERTY(QString weekText READ weekText NOTIFY weekChanged FINAL)
  Q_PROPERTY(int weekTotal READ weekTotal NOTIFY weekChanged FINAL)
  // Days in a row with a session.
  Q_PROPERTY(int streak READ streak NOTIFY weekChanged FINAL)

 public:
  explicit PomodoroTimer(FocusSeams seams, QObject* parent = nullptr);

  QString phaseTitle() const;
  bool isFocus() const { return shown_.phase == PomodoroPhase::focus; }
  bool isRunning() const { return shown_.isRunning; }
  bool isPaused() const { return shown_.isPaused; }
  QString remaining() const { return shown_.remaining; }
  QString lengthText() const;
  qreal percentLeft() const { return shown_.percentLeft; }
  int sessionsToday() const { return shown_.sessionsToday; }
  int focusMinutes() const { return timer_.settings.focusMinutes; }
  int breakMinutes() const { return timer_.settings.breakMinutes; }
  int longBreakMinutes() const { return timer_.settings.longBreakMinutes; }
  int sessionsUntilLongBreak() const { return timer_.settings.sessionsUntilLongBreak; }
  bool startsNextPhase() const { return timer_.settings.startsNextPhase; }
  void setFocusMinutes(int minutes);
  void setBreakMinutes(int minutes);
  void setLongBreakMinutes(int minutes);
  void setSessionsUntilLongBreak(int sessions);
  void setStartsNextPhase(bool starts);
  QVariantList week() const { return week_; }
  QString weekText() const { return weekText_; }
  int weekTotal() const { return weekTotal_; }
  int streak() const { return streak_; }

  Q_INVOKABLE void start();
  Q_INVOKABLE void pause();
  Q_INVOKABLE void resume() { start(); }
  // Starts, pauses or resumes.
  Q_INVOKABLE void toggle();
  Q_INVOKABLE void reset();
  Q_INVOKABLE void skip();
  // Brings the time that is left up to date, while somebody looks.
  Q_INVOKABLE void update();

  const Pomodoro& value() const { return timer_; }
  // Whether a focus session, and no break, is running.
  bool isFocusRunning() const { return timer_.isRunning() && timer_.phase == PomodoroPhase::focus; }
  // Told after a phase has ended by itself.
  std::function<void(PomodoroPhase ended)> onPhaseEnded;

  // The defaults have been changed by others.
  void reload();
  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();
  void settingsChanged();
  void weekChanged();

 private:
  struct Shown {
    PomodoroPhase phase = PomodoroPhase::focus;
    bool isRunning = false, isPaused = false;
    QString remaining;
    int lengthMinutes = 0;
    qreal percentLeft = 0;
    int sessionsToday = 0;
    bool operator==(const Shown&) const = default;
  };
  void change(const PomodoroSettings& settings);
  void storeCounts();
  void load();
  void publish(Instant now);
  void publishWeek(Instant now);

  FocusSeams seams_;
  Pomodoro timer_;
  Shown shown_;
  QVariantList week_;
  QString weekText_;
  int weekTotal_ = 0, streak_ = 0;
  Instant dayEnds_;
};

}  // namespace ambrel
