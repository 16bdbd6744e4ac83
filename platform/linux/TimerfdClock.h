#pragma once
// The kernel's clocks. Its timer runs by the wall clock, so a suspended machine is late by nothing but its sleep, and
// it tells when the clock is set.

#include <QSocketNotifier>
#include <memory>

#include "core/base/Files.h"
#include "platform/WallClock.h"

namespace ambrel {

class TimerfdClock : public WallClock {
 public:
  TimerfdClock();

  Reading read() const override;
  void wakeAt(std::optional<Instant> time, std::function<void()> handler) override;

 private:
  void fired();

  FileDescriptor timer_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::function<void()> handler_;
};

}  // namespace ambrel
