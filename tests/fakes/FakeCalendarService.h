#pragma once

#include <utility>

#include "platform/CalendarService.h"

namespace ambrel {

class FakeCalendarService : public CalendarService {
 public:
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }
  std::vector<ServedCalendar> calendars() const override { return served; }
  std::set<std::string> ownAddresses() const override { return own; }

  void change() {
    if (handler_) handler_();
  }

  std::vector<ServedCalendar> served;
  std::set<std::string> own;

 private:
  std::function<void()> handler_;
};

}  // namespace ambrel
