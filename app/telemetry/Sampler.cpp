#include "app/telemetry/Sampler.h"

#include <algorithm>

namespace ambrel {
namespace {

// Timers come a little early at times.
constexpr Seconds tolerance{0.25};

// Nobody asked for so long, or the machine slept.
Seconds longestPause(Seconds interval) { return std::max(longestGap, interval * 2.5); }

}  // namespace

void SamplerBase::poll(Instant now, Seconds interval) {
  if (isRunning_) return;
  const Seconds since = lastRun_ ? secondsBetween(*lastRun_, now) : interval;
  if (since.count() < 0 || since + tolerance >= interval) run(now, interval);
}

void SamplerBase::refresh(Instant now) {
  if (isRunning_)
    isWanted_ = true;
  else
    run(now, interval_);
}

void SamplerBase::run(Instant now, Seconds interval) {
  if (lastRun_ && secondsBetween(*lastRun_, now) > longestPause(interval)) forget();
  lastRun_ = now;
  isRunning_ = true;
  isWanted_ = false;
  start();
}

void SamplerBase::finish(bool isThere) {
  isRunning_ = false;
  isUnavailable_ = !isThere;
  Q_EMIT sampled();
  if (isWanted_) run(*lastRun_, interval_);
}

}  // namespace ambrel
