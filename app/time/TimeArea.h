#pragma once
// The time of day and the calendar.

#include "app/base/Area.h"
#include "app/base/QmlObjects.h"
#include "app/time/ClockModel.h"

namespace ambrel {

class TimeArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ClockModel* clock READ clock CONSTANT FINAL)

 public:
  explicit TimeArea(PresentCalendar calendar, QObject* parent = nullptr)
      : Area(QStringLiteral("Time"), parent), clock_(std::move(calendar)) {
    keep({this, &clock_});
  }

  ClockModel* clock() { return &clock_; }
  void tick(Instant now) override { clock_.tick(now); }
  void zoneChanged(Instant now) override { clock_.zoneChanged(now); }

 private:
  ClockModel clock_;
};

}  // namespace ambrel
