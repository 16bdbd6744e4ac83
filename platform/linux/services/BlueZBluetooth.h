#pragma once
// Bluetooth by BlueZ (org.bluez on the system's bus), by asynchronous calls alone.

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariantMap>
#include <chrono>

#include "platform/Bluetooth.h"
#include "platform/linux/services/ManagedObjects.h"

class QDBusServiceWatcher;

namespace ambrel {

class BlueZBluetooth : public QObject, public Bluetooth {
  Q_OBJECT

 public:
  // burst: how long is waited for further changes after one; they come in bursts.
  explicit BlueZBluetooth(const QDBusConnection& bus, std::chrono::milliseconds burst = std::chrono::milliseconds(150));

  void setChangeHandler(std::function<void()> handler) override;
  std::optional<BluetoothReading> reading() const override { return reading_; }
  void setOn(bool isOn) override;

 private Q_SLOTS:
  void objectsChanged() { soon_.start(); }
  void propertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

 private:
  void watch(bool isWatched);
  void ask();
  void answered(const QDBusMessage& answer);
  void publish(std::optional<BluetoothReading> reading);

  QDBusConnection bus_;
  QDBusServiceWatcher* watcher_ = nullptr;
  std::function<void()> handler_;
  std::optional<BluetoothReading> reading_;
  QStringList adapters_;  // their paths
  QTimer soon_;
  uint generation_ = 0;  // of the watch; later answers to earlier questions mean nothing
};

// The adapters' and devices' state from BlueZ's objects; absent without an adapter.
std::optional<BluetoothReading> bluetoothReading(const ManagedObjects& objects);

}  // namespace ambrel
