#pragma once
// A model that has to act at times of its own choosing.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <optional>

#include "core/base/Instant.h"

namespace ambrel {

class TimedModel : public QObject {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  using QObject::QObject;

  // The next moment at which `tick` has something to do.
  virtual std::optional<Instant> due() const = 0;
  virtual void tick(Instant now) = 0;
  // The machine was suspended for that long, or the clock was set; told before the tick that follows.
  virtual void slept(Seconds /*span*/, Instant /*now*/) {}
  virtual void clockMoved(Seconds /*by*/, Instant /*now*/) {}
  // The user's time zone has changed, and days and hours with it; points in time have not.
  virtual void zoneChanged(Instant now) { clockMoved(Seconds(0), now); }

 Q_SIGNALS:
  // `due` has another answer.
  void dueChanged();

 protected:
  // To be called after every change that `due` may depend on.
  void announceDue() {
    if (announced_ && *announced_ == due()) return;
    announced_ = due();
    Q_EMIT dueChanged();
  }

 private:
  std::optional<std::optional<Instant>> announced_;
};

}  // namespace ambrel
