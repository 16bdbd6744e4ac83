#include "core/focus/Timers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>

namespace ambrel {
namespace {

std::string clockText(long long seconds) {
  const auto hours = seconds / 3600;
  if (hours > 0) return fmt::format("{}:{:02}:{:02}", hours, seconds / 60 % 60, seconds % 60);
  return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
}

void move(std::optional<Instant>& instant, Seconds by) {
  if (instant) instant = advanced(*instant, by);
}

struct BreathingPart {
  BreathingStep::Kind kind;
  double length;
  double fullnessAtStart, fullnessAtEnd;
};

constexpr std::array breathingParts{BreathingPart{BreathingStep::Kind::breatheIn, 4, 0, 1},
                                    BreathingPart{BreathingStep::Kind::hold, 4, 1, 1},
                                    BreathingPart{BreathingStep::Kind::breatheOut, 6, 1, 0}};
constexpr double breathingRound = 14;

}  // namespace

std::string countdownText(Seconds left) {
  return clockText(static_cast<long long>(std::ceil(std::max(0.0, left.count()))));
}

std::string elapsedText(Seconds elapsed) {
  return clockText(static_cast<long long>(std::floor(std::max(0.0, elapsed.count()))));
}

Seconds StopwatchValue::elapsed(Instant now) const {
  if (!startedAt) return accumulated;
  return accumulated + std::max(Seconds(0), secondsBetween(*startedAt, now));
}

void StopwatchValue::start(Instant now) {
  if (!startedAt) startedAt = now;
}

void StopwatchValue::stop(Instant now) {
  accumulated = elapsed(now);
  startedAt.reset();
}

void StopwatchValue::clockMoved(Seconds by) { move(startedAt, by); }

void QuickTimerValue::start(Seconds length, Instant now) {
  duration = std::clamp<Seconds>(length, Seconds(1), std::chrono::hours(24));
  endDate = advanced(now, duration);
  finishedAt.reset();
}

Seconds QuickTimerValue::remaining(Instant now) const {
  return endDate ? std::max(Seconds(0), secondsBetween(now, *endDate)) : Seconds(0);
}

bool QuickTimerValue::tick(Instant now) {
  if (!endDate || now < *endDate) return false;
  finishedAt = *endDate;
  endDate.reset();
  return true;
}

FocusNotice QuickTimerValue::notice() const {
  return {"timer", "Timer finished", countdownText(duration) + " is over."};
}

void QuickTimerValue::clockMoved(Seconds by) {
  move(endDate, by);
  move(finishedAt, by);
}

BreathingStep breathingStep(Seconds sinceStart) {
  const double time = std::max(0.0, sinceStart.count());
  if (time >= breathingRound * breathingRounds) return {BreathingStep::Kind::done, 0, Seconds(0), breathingRounds};
  const int round = static_cast<int>(time / breathingRound);
  double within = time - round * breathingRound;
  for (const auto& part : breathingParts) {
    if (within < part.length) {
      const double share = within / part.length;
      return {part.kind, part.fullnessAtStart + share * (part.fullnessAtEnd - part.fullnessAtStart),
              Seconds(part.length - within), round + 1};
    }
    within -= part.length;
  }
  return {BreathingStep::Kind::done, 0, Seconds(0), breathingRounds};
}

std::string_view title(BreathingStep::Kind kind) {
  switch (kind) {
    case BreathingStep::Kind::breatheIn:
      return "Breathe in";
    case BreathingStep::Kind::hold:
      return "Hold";
    case BreathingStep::Kind::breatheOut:
      return "Breathe out";
    case BreathingStep::Kind::done:
      return "Well done";
  }
  return {};
}

std::string_view shortTitle(BreathingStep::Kind kind) {
  switch (kind) {
    case BreathingStep::Kind::breatheIn:
      return "In";
    case BreathingStep::Kind::hold:
      return "Hold";
    case BreathingStep::Kind::breatheOut:
      return "Out";
    case BreathingStep::Kind::done:
      return "Done";
  }
  return {};
}

}  // namespace ambrel
