#pragma once
// What the models of time and calendar share: each shows a function of the time, which holds until a moment that it
// tells.

#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/TimedModel.h"
#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"

namespace ambrel {

// What they are given. All of it outlives them.
struct TimeSeams {
  UserDefaults& defaults;
  PresentCalendar calendar;
  std::function<Instant()> now;
};

class TimeModel : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")

 public:
  // Whether somebody can see it. Only then is it woken.
  void setWanted(bool isWanted) {
    if (isWanted_ == isWanted) return;
    isWanted_ = isWanted;
    update();
  }
  // Makes what is shown, seen or not.
  Q_INVOKABLE void update() { tick(seams_.now()); }
  // What it is made from was changed.
  void refresh() {
    if (isWanted_) update();
  }

  std::optional<Instant> due() const override { return isWanted_ ? std::optional(holdsUntil_) : std::nullopt; }
  void tick(Instant now) override {
    holdsUntil_ = renew(seams_.calendar(), now);
    announceDue();
  }
  void clockMoved(Seconds /*by*/, Instant now) override { tick(now); }

 Q_SIGNALS:
  void changed();

 protected:
  TimeModel(TimeSeams seams, QObject* parent) : TimedModel(parent), seams_(std::move(seams)) {}

  // Makes what is shown, says `changed` if it differs, and returns the moment from which on it may be another.
  virtual Instant renew(const Calendar& calendar, Instant now) = 0;

  TimeSeams seams_;

 private:
  bool isWanted_ = false;
  Instant holdsUntil_{};
};

// The turn of the unit after `now`: what a clock that shows it waits for.
template <typename Unit>
Instant nextTurn(Instant now) {
  return Instant(std::chrono::floor<Unit>(now) + Unit(1));
}

}  // namespace ambrel
