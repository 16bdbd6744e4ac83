#pragma once
// A minute of slow breathing, step by step.

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "core/focus.h"

namespace ambrel {

class BreathingExercise : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)
  // "Breathe in", "Hold", "Breathe out", "Well done"; "Breathe" before the first exercise.
  Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
  // The same for a tile without room: "In", "Hold", "Out", "Done", "Breathe"
  Q_PROPERTY(QString shortTitle READ shortTitle NOTIFY changed FINAL)
  // "Round 2 of 5", "A minute of calm"
  Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)
  // "2 of 5", "1 minute"
  Q_PROPERTY(QString shortDetail READ shortDetail NOTIFY changed FINAL)
  // How full the lungs are at the end of the step, 0 to 1, and how long it takes to get there.
  Q_PROPERTY(qreal target READ target NOTIFY changed FINAL)
  Q_PROPERTY(int stepMilliseconds READ stepMilliseconds NOTIFY changed FINAL)

 public:
  explicit BreathingExercise(std::function<Instant()> now, QObject* parent = nullptr);

  bool isRunning() const { return startedAt_.has_value(); }
  QString title() const;
  QString shortTitle() const;
  QString detail() const;
  QString shortDetail() const;
  qreal target() const;
  int stepMilliseconds() const;

  Q_INVOKABLE void start();
  Q_INVOKABLE void stop();
  Q_INVOKABLE void toggle() { isRunning() ? stop() : start(); }

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  void publish(Instant now);

  std::function<Instant()> now_;
  std::optional<Instant> startedAt_;
  std::optional<BreathingStep> step_;  // absent before the first exercise and after one that was stopped
  Instant stepEnds_;
};

}  // namespace ambrel
