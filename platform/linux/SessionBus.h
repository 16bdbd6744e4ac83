#pragma once
// The D-Bus session bus.

#include <QDBusConnection>

namespace ambrel {

// Not connected when this session has no bus. Never starts one: a bus of our own would have nobody on it, and the
// D-Bus library would leave it running.
// With a name it is a connection of its own, else the one that the program shares.
QDBusConnection openSessionBus(const QString& ownName = {});

}  // namespace ambrel
