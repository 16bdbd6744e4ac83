#include "platform/linux/SessionBus.h"

#include <QFileInfo>

namespace ambrel {

QDBusConnection openSessionBus() {
  const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const bool hasBus = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
                      (!runtimeFolder.isEmpty() && QFileInfo::exists(runtimeFolder + QStringLiteral("/bus")));
  return hasBus ? QDBusConnection::sessionBus() : QDBusConnection(QStringLiteral("none"));
}

}  // namespace ambrel
