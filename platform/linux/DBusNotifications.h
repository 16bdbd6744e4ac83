#pragma once
// org.freedesktop.Notifications, by asynchronous calls alone.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <map>
#include <optional>
#include <vector>

#include "platform/Notifications.h"

class QDBusServiceWatcher;

namespace ambrel {

class DBusNotifications : public QObject, public Notifications {
  Q_OBJECT

 public:
  explicit DBusNotifications(const QDBusConnection& bus);

  void requestAuthorization(std::function<void(bool isGranted)> done) override;
  void post(const Notification& notification) override;
  void withdraw(std::string_view identifier) override;
  void setActivationHandler(std::function<void(const std::string&)> handler) override;
  void setActionHandler(std::function<void(const std::string&, const std::string&)> handler) override;
  void setDismissalHandler(std::function<void(const std::string&)> handler) override;
  void setAvailabilityHandler(std::function<void(bool)> handler) override;

 private Q_SLOTS:
  void closed(uint id, uint reason);
  void actionInvoked(uint id, const QString& action);

 private:
  enum class Service { unknown, asking, present };

  // One notification that is on the screen, on its way there, or waits for the service.
  struct Shown {
    uint id = 0;              // 0 until the service has given it one
    bool isUnderWay = false;  // a call is out whose answer brings the id
    bool isUnwanted = false;  // withdrawn while it was under way
    std::optional<Notification> next;
  };

  void askCapabilities();
  void capabilitiesAnswered(const QDBusMessage& answer);
  void ownerChanged(const QString& newOwner);
  void becomes(bool isAvailable);
  void sendWaiting();
  void send(const std::string& identifier);
  void sent(const std::string& identifier, const QDBusMessage& answer);
  void close(uint id);
  std::map<std::string, Shown>::iterator find(uint id);

  QDBusConnection bus_;
  QDBusServiceWatcher* watcher_ = nullptr;
  Service service_ = Service::unknown;
  QStringList capabilities_;
  bool isReportedAvailable_ = true;  // what the handler was told last
  uint generation_ = 0;              // of the service; ids and answers of an earlier one mean nothing
  std::map<std::string, Shown> shown_;
  std::vector<std::function<void(bool)>> asked_;
  QTimer patience_;  // how long what cannot be shown is kept
  std::function<void(const std::string&)> activation_;
  std::function<void(const std::string&, const std::string&)> action_;
  std::function<void(const std::string&)> dismissal_;
  std::function<void(bool)> availability_;
};

// The body as the service wants it: special characters are written as entities when it reads markup.
QString notificationBody(const std::string& text, bool readsMarkup);

}  // namespace ambrel
