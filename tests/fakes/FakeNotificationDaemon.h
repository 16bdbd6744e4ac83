#pragma once
// A notification service of our own on the bus: it records each call and lets the test play the user.

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <vector>

namespace ambrel {

struct NotifyCall {
  QString application;
  uint replaces = 0;
  QString title;
  QString body;
  QStringList actions;
  QVariantMap hints;
  int timeout = 0;
};

class FakeNotificationDaemon : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public:
  explicit FakeNotificationDaemon(const QStringList& capabilities)
      : capabilities_(capabilities),
        bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fake-daemon"))) {
    bus_.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
    isRegistered = bus_.registerService(QStringLiteral("org.freedesktop.Notifications"));
  }
  ~FakeNotificationDaemon() override {
    bus_.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
    bus_.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
    QDBusConnection::disconnectFromBus(QStringLiteral("fake-daemon"));
  }

  void click(uint id) { Q_EMIT ActionInvoked(id, QStringLiteral("default")); }
  void press(uint id, const QString& action) { Q_EMIT ActionInvoked(id, action); }
  void dismiss(uint id) { Q_EMIT NotificationClosed(id, 2); }
  void expire(uint id) { Q_EMIT NotificationClosed(id, 1); }

  bool isRegistered = false;
  std::vector<NotifyCall> calls;
  std::vector<uint> closed;
  uint lastID = 40;

 public Q_SLOTS:
  QStringList GetCapabilities() { return capabilities_; }
  uint Notify(const QString& application, uint replaces, const QString&, const QString& title, const QString& body,
              const QStringList& actions, const QVariantMap& hints, int timeout) {
    calls.push_back({application, replaces, title, body, actions, hints, timeout});
    return replaces != 0 ? replaces : ++lastID;
  }
  void CloseNotification(uint id) {
    closed.push_back(id);
    Q_EMIT NotificationClosed(id, 3);
  }

 Q_SIGNALS:
  void NotificationClosed(uint id, uint reason);
  void ActionInvoked(uint id, const QString& action);

 private:
  QStringList capabilities_;
  QDBusConnection bus_;
};

}  // namespace ambrel
