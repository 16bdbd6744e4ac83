#include "core/time/Countdown.h"

#include <cmath>

namespace ambrel {

Countdown countdownOf(const std::optional<std::string>& title, std::optional<double> seconds, const Calendar& calendar,
                      Instant now) {
  // Beyond the years that a calendar shows, it is a mistake.
  constexpr double most = 253402300800;  // the year 10000
  const bool isDate = seconds && std::isfinite(*seconds) && std::abs(*seconds) < most;
  return {
      .title = title.value_or("New Year"),
      .date = isDate ? dateOf(calendar, instantFromUnixSeconds(*seconds)) : Date{calendar.fields(now).year + 1, 1, 1}};
}

double storedMoment(const Date& date, const Calendar& calendar) { return unixSeconds(noonOf(calendar, date)); }

}  // namespace ambrel
