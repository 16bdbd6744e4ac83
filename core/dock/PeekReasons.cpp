#include "core/dock.h"

namespace ambrel {

std::set<std::string> peekReasons(const PeekSignals& signals, Instant now) {
  constexpr Seconds eventLead{120}, waterLength{60};
  std::set<std::string> reasons;
  for (const auto& id : signals.waitingSessions) reasons.insert("agent:" + id);
  if (const auto& event = signals.nextEvent; event && !event->isAllDay) {
    const Seconds left = secondsBetween(now, event->start);
    if (left >= Seconds(0) && left <= eventLead) reasons.insert("event:" + event->id);
  }
  if (const auto due = signals.waterDue; due && *due <= now && secondsBetween(*due, now) < waterLength) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(due->time_since_epoch()).count();
    reasons.insert("water:" + std::to_string(seconds));
  }
  return reasons;
}

bool PeekMemory::check(const std::set<std::string>& reasons, bool isPeekingOn) {
  const std::size_t known = seen.size();
  seen.insert(reasons.begin(), reasons.end());
  return isPeekingOn && seen.size() > known;
}

}  // namespace ambrel
