#pragma once

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "app/focus/FocusSeams.h"

namespace ambrel {

class QuickTimer : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)
  Q_PROPERTY(bool isFinished READ isFinished NOTIFY changed FINAL)
  // "4:59"
  Q_PROPERTY(QString remaining READ remaining NOTIFY changed FINAL)
  // "until 14:35", "finished at 14:35"; empty before the first start.
  Q_PROPERTY(QString detail READ detail NOTIFY changed FINAL)
  // What is left, of a hundred.
  Q_PROPERTY(qreal percentLeft READ percentLeft NOTIFY changed FINAL)

 public:
  explicit QuickTimer(FocusSeams seams, QObject* parent = nullptr);

  bool isRunning() const { return shown_.timer.endDate.has_value(); }
  bool isFinished() const { return shown_.timer.finishedAt.has_value(); }
  QString remaining() const { return shown_.remaining; }
  QString detail() const { return shown_.detail; }
  qreal percentLeft() const { return shown_.percentLeft; }

  Q_INVOKABLE void start(int seconds);
  // Also puts a finished timer away.
  Q_INVOKABLE void cancel();
  // Brings the time that is left up to date, while somebody looks.
  Q_INVOKABLE void update();

  std::function<void()> onDone;

  std::optional<Instant> due() const override { return timer_.endDate; }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();

 private:
  struct Shown {
    QuickTimerValue timer;
    QString remaining, detail;
    qreal percentLeft = 0;
    bool operator==(const Shown&) const = default;
  };
  void publish(Instant now);

  FocusSeams seams_;
  QuickTimerValue timer_;
  Shown shown_;
};

}  // namespace ambrel
