#pragma once
// The objects of a D-Bus service with their interfaces and properties (org.freedesktop.DBus.ObjectManager), and calls
// that do not wait.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>
#include <functional>
#include <optional>

class QObject;

namespace ambrel {

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;
void registerManagedObjects();

// A call that starts no service.
QDBusMessage quietCall(const QString& service, const QString& path, const QString& interface, const QString& method,
                       const QVariantList& arguments = {});
// `answered` gets the reply or the error, on the owner's thread, as long as the owner lives.
void callLater(const QDBusConnection& bus, QObject* owner, const QDBusMessage& message, int milliseconds,
               std::function<void(const QDBusMessage&)> answered);
bool isReply(const QDBusMessage& answer);

// The answer to GetManagedObjects; absent for anything else.
std::optional<ManagedObjects> managedObjects(const QDBusMessage& answer);

// The system's bus; not connected where there is none.
QDBusConnection openSystemBus();

}  // namespace ambrel
