#include "core/telemetry/Power.h"

#include <fmt/format.h>

namespace ambrel {
namespace {

std::string clockTime(int minutes) { return fmt::format("{}:{:02}", minutes / 60, minutes % 60); }

}  // namespace

std::string PowerText::stateLine(const PowerReading& reading) {
  if (reading.isOnAdapter && (!reading.isCharging || reading.isCharged))
    return reading.isCharged ? "Fully charged" : "Not charging";
  const std::optional<int>& minutes = reading.isOnAdapter ? reading.minutesToFull : reading.minutesToEmpty;
  if (!minutes || *minutes < 1) return "Calculating…";
  return reading.isOnAdapter ? "Full in " + clockTime(*minutes) : clockTime(*minutes) + " left";
}

}  // namespace ambrel
