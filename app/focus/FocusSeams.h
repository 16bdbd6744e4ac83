#pragma once

#include <functional>

#include "core/base/PresentCalendar.h"
#include "core/base/UserDefaults.h"
#include "core/focus/FocusNotice.h"
#include "platform/Notifications.h"
#include "platform/Sounds.h"

namespace ambrel {

// What the models of focus and wellbeing are given. All of it outlives them.
struct FocusSeams {
  UserDefaults& defaults;
  PresentCalendar calendar;
  Notifications& notifications;
  Sounds& sounds;
  std::function<Instant()> now;
};

// Asked before a reminder disturbs, such as whether its tile is on the bar.
using IsEnabled = std::function<bool()>;

// Without a sound: the models sound by themselves.
inline Notification notificationOf(const FocusNotice& notice) {
  return {.identifier = notice.identifier, .title = notice.title, .body = notice.body, .sound = false};
}

// Says whether what is shown differs now.
template <typename Face>
bool show(Face& shown, Face next) {
  if (next == shown) return false;
  shown = std::move(next);
  return true;
}

}  // namespace ambrel
