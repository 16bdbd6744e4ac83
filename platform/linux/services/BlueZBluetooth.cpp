#include "platform/linux/services/BlueZBluetooth.h"

#include <QDBusError>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <algorithm>

#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr int patienceMilliseconds = 5000;
const QString service = QStringLiteral("org.bluez");
const QString adapter = QStringLiteral("org.bluez.Adapter1");
const QString device = QStringLiteral("org.bluez.Device1");
const QString battery = QStringLiteral("org.bluez.Battery1");
const QString manager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

// While it looks for devices, signal strengths change all the time.
bool matters(const QString& property) {
  static const QStringList shown{QStringLiteral("Powered"), QStringLiteral("Connected"), QStringLiteral("Alias"),
                                 QStringLiteral("Icon"), QStringLiteral("Percentage")};
  return shown.contains(property);
}

}  // namespace

std::optional<BluetoothReading> bluetoothReading(const ManagedObjects& objects) {
  std::optional<BluetoothReading> reading;
  for (const Interfaces& interfaces : objects) {
    const auto found = interfaces.find(adapter);
    if (found == interfaces.end()) continue;
    if (!reading) reading.emplace();
    reading->isOn = reading->isOn || found->value(QStringLiteral("Powered")).toBool();
  }
  if (!reading || !reading->isOn) return reading;
  for (auto object = objects.begin(); object != objects.end(); ++object) {
    const auto found = object->find(device);
    if (found == object->end() || !found->value(QStringLiteral("Connected")).toBool()) continue;
    BluetoothDevice entry{.id = object.key().path().toStdString(),
                          .name = found->value(QStringLiteral("Alias")).toString().toStdString(),
                          .icon = found->value(QStringLiteral("Icon")).toString().toStdString()};
    const auto level = object->find(battery);
    if (level != object->end() && level->contains(QStringLiteral("Percentage")))
      entry.batteryPercent = std::clamp(level->value(QStringLiteral("Percentage")).toInt(), 0, 100);
    reading->devices.push_back(std::move(entry));
  }
  std::ranges::stable_sort(reading->devices, {}, [](const BluetoothDevice& entry) { return asciiLower(entry.name); });
  return reading;
}

BlueZBluetooth::BlueZBluetooth(const QDBusConnection& bus, std::chrono::milliseconds burst) : bus_(bus) {
  registerManagedObjects();
  soon_.setSingleShot(true);
  soon_.setInterval(burst);
  connect(&soon_, &QTimer::timeout, this, &BlueZBluetooth::ask);
}

void BlueZBluetooth::setChangeHandler(std::function<void()> handler) {
  const bool wasWatched = handler_ != nullptr;
  handler_ = std::move(handler);
  if ((handler_ != nullptr) == wasWatched || !bus_.isConnected()) return;
  watch(handler_ != nullptr);
}

void BlueZBluetooth::watch(bool isWatched) {
  ++generation_;
  soon_.stop();
  reading_.reset();
  adapters_.clear();
  const auto connection = [&](const QString& path, const QString& interface, const char* signal,
                              const QStringList& arguments, const char* slot) {
    // Without the name of the service: naming it would make the library ask the bus and wait.
    if (isWatched) {
      if (!bus_.connect(QString(), path, interface, QString::fromLatin1(signal), arguments, QString(), this, slot))
        qWarning("the bus does not tell of %s: %s", signal, qPrintable(bus_.lastError().message()));
    } else {
      bus_.disconnect(QString(), path, interface, QString::fromLatin1(signal), arguments, QString(), this, slot);
    }
  };
  for (const char* signal : {"InterfacesAdded", "InterfacesRemoved"})
    connection(QStringLiteral("/"), manager, signal, {}, SLOT(objectsChanged()));
  for (const QString& interface : {adapter, device, battery})
    connection(QString(), properties, "PropertiesChanged", {interface},
               SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
  if (!isWatched) {
    delete watcher_;
    watcher_ = nullptr;
    return;
  }
  watcher_ = new QDBusServiceWatcher(service, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, &BlueZBluetooth::objectsChanged);
  ask();
}

void BlueZBluetooth::propertiesChanged(const QString&, const QVariantMap& changed, const QStringList& invalidated) {
  const QStringList names = changed.keys() + invalidated;
  if (std::any_of(names.begin(), names.end(), matters)) soon_.start();
}

void BlueZBluetooth::ask() {
  callLater(bus_, this, quietCall(service, QStringLiteral("/"), manager, QStringLiteral("GetManagedObjects")),
            patienceMilliseconds, [this, generation = generation_](const QDBusMessage& answer) {
              if (generation == generation_) answered(answer);
            });
}

void BlueZBluetooth::answered(const QDBusMessage& answer) {
  const auto objects = managedObjects(answer);
  adapters_.clear();
  if (objects)
    for (auto object = objects->begin(); object != objects->end(); ++object)
      if (object->contains(adapter)) adapters_ << object.key().path();
  publish(objects ? bluetoothReading(*objects) : std::nullopt);
}

void BlueZBluetooth::publish(std::optional<BluetoothReading> reading) {
  if (reading == reading_) return;
  reading_ = std::move(reading);
  if (handler_) handler_();
}

void BlueZBluetooth::setOn(bool isOn) {
  for (const QString& path : adapters_) {
    QDBusMessage message = quietCall(service, path, properties, QStringLiteral("Set"),
                                     {adapter, QStringLiteral("Powered"), QVariant::fromValue(QDBusVariant(isOn))});
    // What it came to is told by a signal, or not at all: then the switch has to go back.
    callLater(bus_, this, message, patienceMilliseconds, [this](const QDBusMessage& answer) {
      if (!isReply(answer) && handler_) handler_();
    });
  }
}

}  // namespace ambrel
