#pragma once
// Notifications of the desktop.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// A button of a notification.
struct NotificationAction {
  std::string id;  // not "default", which is a click on the notification itself
  std::string label;
  bool operator==(const NotificationAction&) const = default;
};

struct Notification {
  std::string identifier;  // a later notification with the same one replaces the earlier
  std::string title;
  std::string body;  // plain text
  bool sound = false;
  std::vector<NotificationAction> actions = {};  // where the service has buttons
  bool isUrgent = false;                         // stays until it is answered, and is shown where others are not
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
  // `handler` gets the identifier of a notification and the id of its button that the user has pressed.
  virtual void setActionHandler(
      std::function<void(const std::string& identifier, const std::string& action)> handler) = 0;
  // `handler` gets the identifier of a notification that the user has dismissed without an answer. What has expired,
  // and what was withdrawn, is not reported.
  virtual void setDismissalHandler(std::function<void(const std::string& identifier)> handler) = 0;
  // `handler` is told when the service goes missing and when it is there again; not again while nothing changes.
  virtual void setAvailabilityHandler(std::function<void(bool isAvailable)> handler) = 0;
};

}  // namespace ambrel
