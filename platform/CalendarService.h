#pragma once
// Calendars that a service of the session keeps, with the user's accounts.

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "core/calendar/CalendarReader.h"

namespace ambrel {

// Main thread. No call waits. The service is asked only while somebody listens.
class CalendarService {
 public:
  virtual ~CalendarService() = default;

  // `handler` is called on the main thread when `calendars` has another answer. An empty one ends the watch.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
  // Those that the user has switched on; none without the service, and before it has answered.
  virtual std::vector<ServedCalendar> calendars() const = 0;
  // The addresses of their accounts, in lower case.
  virtual std::set<std::string> ownAddresses() const = 0;
};

}  // namespace ambrel
