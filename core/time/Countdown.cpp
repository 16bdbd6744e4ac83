#include "core/time/Countdown.h"

#include <cmath>

namespace ambrel {
namespace {

constexpr double dayInSeconds = 86400;
constexpr Date dayOfZero{1970, 1, 1};

}  // namespace

Countdown countdownOf(const std::optional<std::string>& title, std::optional<double> seconds, const Calendar& calendar,
                      Instant now) {
  // Beyond the years that a calendar shows, it is a mistake.
  constexpr double most = 253402300800;  // the year 10000
  const bool isDate = seconds && std::isfinite(*seconds) && std::abs(*seconds) < most;
  Countdown countdown{.title = title.value_or("New Year"), .date = {calendar.fields(now).year + 1, 1, 1}};
  if (!isDate) return countdown;
  const double days = std::floor(*seconds / dayInSeconds);
  const bool isNoon = *seconds == (days + 0.5) * dayInSeconds;
  countdown.date =
      isNoon ? daysLater(dayOfZero, static_cast<int>(days)) : dateOf(calendar, instantFromUnixSeconds(*seconds));
  return countdown;
}

double storedMoment(const Date& date) { return (daysBetween(dayOfZero, date) + 0.5) * dayInSeconds; }

}  // namespace ambrel
