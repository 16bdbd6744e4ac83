#pragma once
// The one timer behind all models that act at a time: it sleeps until the first of them is due.

#include <QObject>
#include <vector>

#include "app/base/TimedModel.h"
#include "platform/WallClock.h"

namespace ambrel {

// Models that are added must outlive it, as must the clock. Changes of the clock and sleep are found by comparing the
// clock's readings, so they are told before anything falls due by them.
class DueTimer : public QObject {
  Q_OBJECT

 public:
  explicit DueTimer(WallClock& clock, QObject* parent = nullptr);

  void add(TimedModel& model);
  // Tells every model.
  void zoneChanged();

 private:
  void wake();
  void scheduleLater();
  void schedule();

  WallClock& clock_;
  WallClock::Reading last_;
  std::vector<TimedModel*> models_;
  bool isScheduled_ = false;
};

}  // namespace ambrel
