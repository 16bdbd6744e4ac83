#pragma once
// The user's time zone, which can change while the program runs.

#include <functional>
#include <string>

namespace ambrel {

class TimeZone {
 public:
  virtual ~TimeZone() = default;

  // An IANA name ("Europe/Berlin"); "" when the system keeps its zone without a name.
  virtual std::string name() const = 0;
  // `handler` is called when the zone has become another.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
};

}  // namespace ambrel
