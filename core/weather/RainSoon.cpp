#include <algorithm>
#include <cmath>
#include <fmt/format.h>

#include "core/weather.h"

namespace ambrel {
namespace {

using std::chrono::seconds;

constexpr double wetFrom = 0.1;  // millimetres in a slot
constexpr seconds slotLength{900};
constexpr seconds hourLength{3600};
constexpr int likelyAbove = 39;  // per cent

bool isWetSlot(const RainSoon::Slot& slot) { return slot.millimeters >= wetFrom; }

std::string_view rainName(double millimeters) {
  const double hourly = millimeters * 4;
  if (hourly < 2.5) return "Light rain";
  return hourly < 7.6 ? "Moderate rain" : "Heavy rain";
}

// The greatest chance among the hours that touch the horizon.
std::optional<int> greatestChance(const std::vector<RainSoon::Chance>& chances, Instant now, Instant end) {
  std::optional<int> greatest;
  for (const auto& chance : chances)
    if (chance.start + hourLength > now && chance.start < end)
      greatest = std::max(greatest.value_or(chance.percent), chance.percent);
  return greatest;
}

}  // namespace

std::string RainSoon::duration(Seconds span) {
  const auto minutes = std::max<long long>(5, std::llround(span.count() / 300) * 5);
  if (minutes < 60) return fmt::format("{} min", minutes);
  if (minutes % 60 == 0) return fmt::format("{} h", minutes / 60);
  return fmt::format("{} h {} min", minutes / 60, minutes % 60);
}

RainSoon::Summary RainSoon::summary(const std::vector<Slot>& slots, const std::vector<Chance>& chances, Instant now,
                                    seconds horizon) {
  const Instant end = now + horizon;
  std::vector<Slot> upcoming;
  std::copy_if(slots.begin(), slots.end(), std::back_inserter(upcoming),
               [&](const Slot& slot) { return slot.start + slotLength > now && slot.start < end; });
  if (upcoming.empty()) return {"No forecast", "Waiting for data", false};

  if (upcoming.front().start <= now && isWetSlot(upcoming.front())) {
    const auto dry = std::find_if_not(upcoming.begin(), upcoming.end(), isWetSlot);
    if (dry == upcoming.end()) return {"Raining now", "For the next 2 h", true};
    return {"Raining now", "Stops in " + duration(secondsBetween(now, dry->start)), true};
  }
  const auto wet = std::find_if(upcoming.begin(), upcoming.end(), isWetSlot);
  if (wet != upcoming.end())
    return {"Rain in " + duration(secondsBetween(now, wet->start)), std::string(rainName(wet->millimeters)), true};

  if (const auto percent = greatestChance(chances, now, end); percent && *percent > likelyAbove)
    return {"Rain possible", fmt::format("{}% chance in 2 h", *percent), false};
  return {"No rain soon", "Dry for the next 2 h", false};
}

}  // namespace ambrel
