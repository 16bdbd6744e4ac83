#pragma once
// Notifications of the desktop.

#include <functional>
#include <string>
#include <string_view>

namespace ambrel {

struct Notification {
  std::string identifier;  // a later notification with the same one replaces the earlier
  std::string title;
  std::string body;  // plain text
  bool sound = false;
  bool operator==(const Notification&) const = default;
};

class Notifications {
 public:
  virtual ~Notifications() = default;

  // `done` is told, later and on the main thread, whether notifications can be shown at present.
  virtual void requestAuthorization(std::function<void(bool isGranted)> done) = 0;
  // Never waits. What cannot be shown now is shown if a notification service turns up within a minute.
  virtual void post(const Notification& notification) = 0;
  virtual void withdraw(std::string_view identifier) = 0;

  // `handler` gets the identifier of a notification that the user has clicked.
  virtual void setActivationHandler(std::function<void(const std::string& identifier)> handler) = 0;
  // `handler` is told when the service goes missing and when it is there again; not again while nothing changes.
  virtual void setAvailabilityHandler(std::function<void(bool isAvailable)> handler) = 0;
};

}  // namespace ambrel
