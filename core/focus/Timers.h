#pragma once
// The stopwatch, the quick timer and the breathing exercise.

#include <optional>
#include <string>
#include <string_view>

#include "core/base/EnumText.h"
#include "core/base/Instant.h"
#include "core/focus/FocusNotice.h"

namespace ambrel {

struct StopwatchValue {
  std::optional<Instant> startedAt;  // while it runs
  Seconds accumulated{0};            // from earlier runs

  Seconds elapsed(Instant now) const;
  void start(Instant now);
  void stop(Instant now);
  void reset() { *this = {}; }
  void clockMoved(Seconds by);
  friend bool operator==(const StopwatchValue&, const StopwatchValue&) = default;
};

struct QuickTimerValue {
  std::optional<Instant> endDate;  // while it runs
  Seconds duration{0};
  std::optional<Instant> finishedAt;  // until the next start or a look at it

  // One second to 24 hours.
  void start(Seconds length, Instant now);
  void cancel() { *this = {}; }
  Seconds remaining(Instant now) const;
  // Says whether it finished just now.
  bool tick(Instant now);
  FocusNotice notice() const;
  void clockMoved(Seconds by);
  friend bool operator==(const QuickTimerValue&, const QuickTimerValue&) = default;
};

// A moment of the exercise: rounds of breathing in for 4 seconds, holding for 4 and breathing out for 6.
struct BreathingStep {
  enum class Kind { breatheIn, hold, breatheOut, done };
  Kind kind = Kind::done;
  double fullness = 0;  // of the lungs, 0 to 1
  Seconds left{0};      // of this step
  int round = 0;        // from 1
  friend bool operator==(const BreathingStep&, const BreathingStep&) = default;
};
inline constexpr int breathingRounds = 5;
BreathingStep breathingStep(Seconds sinceStart);
// "Breathe in", "Hold", "Breathe out", "Well done"; the short ones: "In", "Hold", "Out", "Done"
std::string_view title(BreathingStep::Kind kind);
std::string_view shortTitle(BreathingStep::Kind kind);

// "18:24", "1:02:05": to whole seconds, upwards, so that a timer shows 0:00 only at its end.
std::string countdownText(Seconds left);
// "1:02:05", to whole seconds, downwards.
std::string elapsedText(Seconds elapsed);

}  // namespace ambrel
