#pragma once
// Brings the bar out for a few seconds when something new needs the user.

#include <functional>

#include "core/dock.h"

namespace ambrel {

class AgentsModel;
class AppSettings;

class ContextPeeker {
 public:
  static constexpr Seconds interval{10};

  ContextPeeker(const AgentsModel& agents, const AppSettings& settings, std::function<void(Seconds)> peek);

  // Called every 10 seconds.
  void check(Instant now);

  // While it says so, nothing brings the bar out. What still holds afterwards does so then.
  std::function<bool()> mustWait;
  // What the calendar and the water tracker add, once they are there.
  std::function<void(PeekSignals&)> gatherMore;

 private:
  const AgentsModel& agents_;
  const AppSettings& settings_;
  std::function<void(Seconds)> peek_;
  PeekMemory memory_;
};

}  // namespace ambrel
