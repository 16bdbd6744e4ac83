#include "platform/linux/TimerfdClock.h"

#include <algorithm>
#include <cstdint>
#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>

namespace ambrel {
namespace {

using namespace std::chrono;

nanoseconds readClock(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

}  // namespace

TimerfdClock::TimerfdClock() : timer_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)) {
  if (!timer_) return;
  notifier_ = std::make_unique<QSocketNotifier>(timer_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { fired(); });
}

WallClock::Reading TimerfdClock::read() const {
  const nanoseconds boot = readClock(CLOCK_BOOTTIME), awake = readClock(CLOCK_MONOTONIC);
  // The two are read one after the other.
  return {Instant(duration_cast<microseconds>(readClock(CLOCK_REALTIME))), boot,
          std::max(Seconds(0), Seconds(boot - awake))};
}

void TimerfdClock::wakeAt(std::optional<Instant> time, std::function<void()> handler) {
  handler_ = std::move(handler);
  if (!timer_) return;
  // A timer that is to tell of changes alone is set to a time that never comes.
  constexpr microseconds never = hours(24) * 365 * 200;
  const microseconds at = time ? std::max(time->time_since_epoch(), microseconds(1)) : never;
  itimerspec setting{};
  setting.it_value.tv_sec = duration_cast<seconds>(at).count();
  setting.it_value.tv_nsec = nanoseconds(at % seconds(1)).count();
  timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &setting, nullptr);
}

void TimerfdClock::fired() {
  // Fails with ECANCELED when the clock was set; both are reasons to look.
  std::uint64_t times = 0;
  [[maybe_unused]] const auto count = ::read(timer_.get(), &times, sizeof times);
  if (handler_) {
    const auto handler = handler_;
    handler();
  }
}

}  // namespace ambrel
