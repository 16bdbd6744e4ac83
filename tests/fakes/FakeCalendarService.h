#pragma once

#include "platform/CalendarService.h"
#include "tests/fakes/Told.h"

namespace ambrel {

class FakeCalendarService : public Told<CalendarService> {
 public:
  std::vector<ServedCalendar> calendars() const override { return served; }
  std::set<std::string> ownAddresses() const override { return own; }

  void change() {
    Told::change([] {});
  }

  std::vector<ServedCalendar> served;
  std::set<std::string> own;
};

}  // namespace ambrel
