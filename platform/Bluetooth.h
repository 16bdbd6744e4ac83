#pragma once
// Connected Bluetooth devices with their batteries.

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

struct BluetoothDevice {
  std::string id = {};
  std::string name = {};                   // as the user has named it
  std::string icon = {};                   // freedesktop icon name: "audio-headset", "input-mouse"; "" when not told
  std::optional<int> batteryPercent = {};  // absent where the device does not tell it
  friend bool operator==(const BluetoothDevice&, const BluetoothDevice&) = default;
};

struct BluetoothReading {
  bool isOn = false;
  std::vector<BluetoothDevice> devices = {};  // connected ones, by name
  friend bool operator==(const BluetoothReading&, const BluetoothReading&) = default;
};

// Main thread. No call waits. The service is asked only while somebody listens.
class Bluetooth {
 public:
  virtual ~Bluetooth() = default;

  // `handler` is called on the main thread when `reading` has another answer. An empty one ends the watch.
  virtual void setChangeHandler(std::function<void()> handler) = 0;
  // Absent without an adapter or without the service, and before it has answered.
  virtual std::optional<BluetoothReading> reading() const = 0;
  // Switches the adapter; a refusal leaves it as it is.
  virtual void setOn(bool isOn) = 0;
};

}  // namespace ambrel
