#include "platform/linux/SessionBus.h"

#include <QFileInfo>

namespace ambrel {

QDBusConnection openSessionBus(const QString& ownName) {
  const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const bool hasBus = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
                      (!runtimeFolder.isEmpty() && QFileInfo::exists(runtimeFolder + QStringLiteral("/bus")));
  if (!hasBus) return QDBusConnection(QStringLiteral("none"));
  return ownName.isEmpty() ? QDBusConnection::sessionBus()
                           : QDBusConnection::connectToBus(QDBusConnection::SessionBus, ownName);
}

}  // namespace ambrel
