#include "platform/linux/services/ManagedObjects.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <utility>

namespace ambrel {

void registerManagedObjects() {
  qDBusRegisterMetaType<Interfaces>();
  qDBusRegisterMetaType<ManagedObjects>();
}

QDBusMessage quietCall(const QString& service, const QString& path, const QString& interface, const QString& method,
                       const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
  message.setAutoStartService(false);
  message.setArguments(arguments);
  return message;
}

void callLater(const QDBusConnection& bus, QObject* owner, const QDBusMessage& message, int milliseconds,
               std::function<void(const QDBusMessage&)> answered) {
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, milliseconds), owner);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher, answered = std::move(answered)] {
    watcher->deleteLater();
    answered(watcher->reply());
  });
}

bool isReply(const QDBusMessage& answer) { return answer.type() == QDBusMessage::ReplyMessage; }

std::optional<ManagedObjects> managedObjects(const QDBusMessage& answer) {
  if (!isReply(answer) || answer.signature() != QLatin1String("a{oa{sa{sv}}}")) return std::nullopt;
  return qdbus_cast<ManagedObjects>(answer.arguments().constFirst());
}

QDBusConnection openSystemBus() {
  const bool hasBus = !qEnvironmentVariableIsEmpty("DBUS_SYSTEM_BUS_ADDRESS") ||
                      QFileInfo::exists(QStringLiteral("/run/dbus/system_bus_socket")) ||
                      QFileInfo::exists(QStringLiteral("/var/run/dbus/system_bus_socket"));
  return hasBus ? QDBusConnection::systemBus() : QDBusConnection(QStringLiteral("none"));
}

}  // namespace ambrel
