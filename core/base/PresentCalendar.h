#pragma once
// The calendar in force. The user's zone can change while the program runs: whoever keeps a calendar keeps this one,
// and asks it at each use.

#include <memory>
#include <mutex>
#include <utility>

#include "core/base/Calendar.h"

namespace ambrel {

// Copies share what `replace` changes; safe to use from several threads.
class PresentCalendar {
 public:
  // One that stays until it is replaced.
  PresentCalendar(Calendar calendar) : shared_(std::make_shared<Shared>(std::move(calendar))) {}

  Calendar operator()() const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->calendar;
  }
  operator Calendar() const { return (*this)(); }

  void replace(Calendar calendar) {
    const std::lock_guard lock(shared_->mutex);
    std::swap(shared_->calendar, calendar);
  }

 private:
  struct Shared {
    explicit Shared(Calendar present) : calendar(std::move(present)) {}
    mutable std::mutex mutex;
    Calendar calendar;
  };
  std::shared_ptr<Shared> shared_;
};

}  // namespace ambrel
