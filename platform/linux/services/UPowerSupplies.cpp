#include "platform/linux/services/UPowerSupplies.h"

#include <QDBusArgument>
#include <algorithm>

#include "platform/linux/services/ManagedObjects.h"

namespace ambrel {
namespace {

constexpr int patienceMilliseconds = 2000;
const QString service = QStringLiteral("org.freedesktop.UPower");

QDBusMessage ask(const QDBusConnection& bus, const QString& path, const QString& interface, const QString& method,
                 const QVariantList& arguments = {}) {
  return bus.call(quietCall(service, path, interface, method, arguments), QDBus::Block, patienceMilliseconds);
}

// The numbers of UPower's documentation.
PowerSupply::Kind kindOf(uint type) {
  if (type == 1) return PowerSupply::Kind::adapter;
  return type == 2 ? PowerSupply::Kind::battery : PowerSupply::Kind::other;
}

PowerSupply::Status statusOf(uint state) {
  switch (state) {
    case 1:
      return PowerSupply::Status::charging;
    case 2:
    case 3:  // empty
      return PowerSupply::Status::discharging;
    case 4:
      return PowerSupply::Status::full;
    case 5:  // waits to be charged
    case 6:  // waits to be used
      return PowerSupply::Status::notCharging;
    default:
      return PowerSupply::Status::unknown;
  }
}

// It writes 0 for what it does not know.
std::optional<double> figure(const QVariantMap& properties, const QString& key) {
  const double value = properties.value(key).toDouble();
  return value > 0 ? std::optional(value) : std::nullopt;
}

PowerSupply supplyFrom(const QVariantMap& properties) {
  PowerSupply supply;
  supply.name = properties.value(QStringLiteral("NativePath")).toString().toStdString();
  supply.kind = kindOf(properties.value(QStringLiteral("Type")).toUInt());
  supply.isOfDevice = !properties.value(QStringLiteral("PowerSupply")).toBool();
  supply.isOnline = properties.value(QStringLiteral("Online")).toBool();
  if (supply.kind != PowerSupply::Kind::battery) return supply;
  supply.isPresent = properties.value(QStringLiteral("IsPresent"), true).toBool();
  supply.status = statusOf(properties.value(QStringLiteral("State")).toUInt());
  supply.percent = std::clamp(properties.value(QStringLiteral("Percentage")).toDouble(), 0.0, 100.0);
  supply.energyFull = figure(properties, QStringLiteral("EnergyFull"));
  supply.energyDesign = figure(properties, QStringLiteral("EnergyFullDesign"));
  supply.energy = figure(properties, QStringLiteral("Energy"));
  if (!supply.energy && supply.energyFull) supply.energy = *supply.energyFull * *supply.percent / 100;
  supply.rate = figure(properties, QStringLiteral("EnergyRate"));
  supply.secondsToEmpty = figure(properties, QStringLiteral("TimeToEmpty"));
  supply.secondsToFull = figure(properties, QStringLiteral("TimeToFull"));
  supply.cycles = std::max(0, properties.value(QStringLiteral("ChargeCycles")).toInt());
  return supply;
}

}  // namespace

std::vector<PowerSupply> readUPower(const QDBusConnection& bus) {
  std::vector<PowerSupply> supplies;
  if (!bus.isConnected()) return supplies;
  const QDBusMessage list =
      ask(bus, QStringLiteral("/org/freedesktop/UPower"), service, QStringLiteral("EnumerateDevices"));
  if (!isReply(list) || list.signature() != QLatin1String("ao")) return supplies;
  for (const QDBusObjectPath& path : qdbus_cast<QList<QDBusObjectPath>>(list.arguments().constFirst())) {
    const QDBusMessage answer = ask(bus, path.path(), QStringLiteral("org.freedesktop.DBus.Properties"),
                                    QStringLiteral("GetAll"), {QStringLiteral("org.freedesktop.UPower.Device")});
    if (isReply(answer) && answer.signature() == QLatin1String("a{sv}"))
      supplies.push_back(supplyFrom(qdbus_cast<QVariantMap>(answer.arguments().constFirst())));
  }
  return supplies;
}

}  // namespace ambrel
