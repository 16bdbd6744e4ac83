#pragma once

#include <QDBusConnection>
#include <vector>

#include "core/telemetry/PowerSupplies.h"

namespace ambrel {

// The devices of UPower; empty where it does not run. Waits for its answer: not for the main thread.
std::vector<PowerSupply> readUPower(const QDBusConnection& bus);

}  // namespace ambrel
