#pragma once
// The parts of a Linux computer, each read from where the kernel or a service of the system tells it.

#include <functional>
#include <mutex>

#include "core/telemetry/PowerSupplies.h"
#include "platform/Telemetry.h"
#include "platform/linux/telemetry/ActivityReaders.h"
#include "platform/linux/telemetry/GPUReader.h"
#include "platform/linux/telemetry/ThermalReader.h"
#include "platform/linux/telemetry/WiFiReader.h"

namespace ambrel {

class LinuxTelemetry : public Telemetry {
 public:
  struct Sources {
    std::filesystem::path root = "/";
    std::string managementLibrary = "libnvidia-ml.so.1";  // NVIDIA's
    BootClock clock;
    std::function<void(std::chrono::milliseconds)> pause;
    std::uint32_t ticksPerSecond = 100;
    netlink::Exchange wireless;
    // Batteries and adapters as a service tells them, for when the kernel shows no battery, or not how long it lasts.
    std::function<std::vector<PowerSupply>()> otherSupplies;
  };
  // Those of the running system, without a service.
  static Sources runningSystem();

  explicit LinuxTelemetry(Sources sources);

  std::optional<double> gpu() override;
  std::optional<PressureReading> pressure() override;
  std::optional<DiskCounters> diskCounters() override;
  std::optional<ProcessSnapshot> processes() override;
  std::optional<BatteryHealthReading> batteryHealth() override;
  std::optional<PowerReading> power() override;
  std::optional<ThermalReading> thermal() override;
  std::optional<WiFiReading> wifi() override;
  std::optional<std::vector<VolumeInfo>> volumes() override;
  std::vector<NetworkAddress> addresses() override;

 private:
  // A reader that remembers what it has read, for one caller at a time.
  template <typename Reader>
  struct Shared {
    template <typename... Arguments>
    explicit Shared(Arguments&&... arguments) : reader(std::forward<Arguments>(arguments)...) {}
    auto read() {
      const std::scoped_lock lock(mutex);
      return reader.read();
    }
    std::mutex mutex;
    Reader reader;
  };

  Sources sources_;
  Shared<GPUReader> gpu_;
  Shared<DiskCounterReader> disks_;
  Shared<ProcessTimesReader> processes_;
  Shared<ThermalReader> thermal_;
  Shared<WiFiReader> wifi_;
};

// Every power supply that the kernel shows below `root`; absent where it shows no such folder.
std::optional<std::vector<PowerSupply>> readPowerSupplies(const std::filesystem::path& root);

}  // namespace ambrel
