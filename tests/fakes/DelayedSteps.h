#pragma once

#include <deque>
#include <functional>
#include <utility>

#include "core/base/Instant.h"

namespace ambrel {

// Steps that are carried out when the test's time has come to them.
class DelayedSteps {
 public:
  explicit DelayedSteps(const Instant& now) : now_(now) {}
  std::function<void(Seconds, std::function<void()>)> later() {
    return [this](Seconds delay, std::function<void()> step) {
      steps_.emplace_back(advanced(now_, delay), std::move(step));
    };
  }
  void runDue() {
    for (auto& [due, step] : std::exchange(steps_, {})) {
      if (due <= now_)
        step();
      else
        steps_.emplace_back(due, std::move(step));
    }
  }
  void clear() { steps_.clear(); }

 private:
  const Instant& now_;
  std::deque<std::pair<Instant, std::function<void()>>> steps_;
};

}  // namespace ambrel
