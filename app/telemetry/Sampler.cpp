#include "app/telemetry/Sampler.h"

#include <algorithm>

namespace ambrel {
namespace {

// Timers come a little early at times.
constexpr Seconds tolerance{0.25};

// Nobody asked for so long, or the machine slept.
Seconds longestPause(Seconds interval) { return std::max(longestGap, interval * 2.5); }

}  // namespace

void SamplerBase::poll(Seconds now, Seconds interval) {
  if (isRunning_) return;
  if (!lastRun_ || now - *lastRun_ + tolerance >= interval) run(now, interval);
}

void SamplerBase::refresh(Seconds now) {
  if (isRunning_)
    isWanted_ = true;
  else
    run(now, interval_);
}

void SamplerBase::run(Seconds now, Seconds interval) {
  if (lastRun_ && now - *lastRun_ > longestPause(interval)) forget();
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
