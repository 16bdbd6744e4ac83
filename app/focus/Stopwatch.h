#pragma once

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "core/focus.h"

namespace ambrel {

class Stopwatch : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)
  // Whether there is anything to reset.
  Q_PROPERTY(bool isZero READ isZero NOTIFY changed FINAL)
  // "1:02:05"
  Q_PROPERTY(QString elapsed READ elapsed NOTIFY changed FINAL)

 public:
  explicit Stopwatch(std::function<Instant()> now, QObject* parent = nullptr);

  bool isRunning() const { return watch_.startedAt.has_value(); }
  bool isZero() const { return watch_ == StopwatchValue{}; }
  QString elapsed() const { return elapsed_; }

  Q_INVOKABLE void start();
  Q_INVOKABLE void stop();
  Q_INVOKABLE void toggle() { isRunning() ? stop() : start(); }
  Q_INVOKABLE void reset();
  // Brings the time up to date, while somebody looks.
  Q_INVOKABLE void update();

  std::optional<Instant> due() const override { return std::nullopt; }
  void tick(Instant) override {}
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  void publish(const StopwatchValue& before, Instant now);

  std::function<Instant()> now_;
  StopwatchValue watch_;
  QString elapsed_;
};

}  // namespace ambrel
