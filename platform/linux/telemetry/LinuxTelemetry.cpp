#include "platform/linux/telemetry/LinuxTelemetry.h"

#include <memory>
#include <thread>
#include <unistd.h>

#include "platform/linux/telemetry/SmallFiles.h"
#include "platform/linux/telemetry/VolumeReader.h"

namespace ambrel {

std::optional<std::vector<PowerSupply>> readPowerSupplies(const std::filesystem::path& root) {
  const auto folder = root / "sys/class/power_supply";
  if (!isThere(folder)) return std::nullopt;
  std::vector<PowerSupply> supplies;
  for (const std::string& name : namesIn(folder)) {
    const auto uevent = readAttribute(folder / name / "uevent");
    if (!uevent) continue;
    auto supply = parsePowerSupply(*uevent);
    if (!supply)
      supply = parsePowerSupply(*uevent, readWord(folder / name / "type"), readWord(folder / name / "scope"));
    if (supply) supplies.push_back(std::move(*supply));
  }
  return supplies;
}

LinuxTelemetry::Sources LinuxTelemetry::runningSystem() {
  const long ticks = sysconf(_SC_CLK_TCK);
  // Opened at the first question: many computers have no Wi-Fi.
  auto connection = std::make_shared<std::optional<netlink::Connection>>();
  return {.clock = bootNanoseconds,
          .pause = [](std::chrono::milliseconds span) { std::this_thread::sleep_for(span); },
          .ticksPerSecond = ticks > 0 ? static_cast<std::uint32_t>(ticks) : 100,
          .wireless =
              [connection](const netlink::Request& request) {
                if (!*connection) connection->emplace();
                return (*connection)->exchange(request);
              },
          .otherSupplies = [] { return std::vector<PowerSupply>(); }};
}

LinuxTelemetry::LinuxTelemetry(Sources sources)
    : sources_(std::move(sources)),
      gpu_(GPUReader::Surroundings{sources_.root, sources_.managementLibrary, sources_.clock, sources_.pause}),
      disks_(sources_.root, sources_.clock),
      processes_(sources_.root, sources_.clock, sources_.ticksPerSecond),
      thermal_(sources_.root),
      wifi_(sources_.root, sources_.wireless) {}

std::optional<double> LinuxTelemetry::gpu() { return gpu_.read(); }
std::optional<DiskCounters> LinuxTelemetry::diskCounters() { return disks_.read(); }
std::optional<ProcessSnapshot> LinuxTelemetry::processes() { return processes_.read(); }
std::optional<ThermalReading> LinuxTelemetry::thermal() { return thermal_.read(); }
std::optional<WiFiReading> LinuxTelemetry::wifi() { return wifi_.read(); }
std::optional<std::vector<VolumeInfo>> LinuxTelemetry::volumes() { return readVolumes(sources_.root); }
std::vector<NetworkAddress> LinuxTelemetry::addresses() { return readAddresses(sources_.root); }

std::optional<PressureReading> LinuxTelemetry::pressure() {
  const auto text = readText(sources_.root / "proc/meminfo");
  const auto memory = text ? parseMeminfo(*text) : std::nullopt;
  if (!memory) return std::nullopt;
  const auto stalls = readText(sources_.root / "proc/pressure/memory");
  return pressureReading(*memory, stalls ? parsePressure(*stalls) : std::nullopt);
}

std::optional<BatteryHealthReading> LinuxTelemetry::batteryHealth() {
  const auto supplies = readPowerSupplies(sources_.root);
  if (supplies && hasBattery(*supplies)) return ambrel::batteryHealth(*supplies);
  const auto others = sources_.otherSupplies();
  if (!supplies && others.empty()) return std::nullopt;
  return ambrel::batteryHealth(others);
}

std::optional<PowerReading> LinuxTelemetry::power() {
  const auto supplies = readPowerSupplies(sources_.root);
  const bool isKnown = supplies && hasBattery(*supplies);
  PowerReading reading = powerReading(supplies.value_or(std::vector<PowerSupply>()));
  const bool lacksTime = reading.isOnAdapter ? reading.isCharging && !reading.minutesToFull : !reading.minutesToEmpty;
  if (isKnown && !lacksTime) return reading;
  const auto others = sources_.otherSupplies();
  if (!hasBattery(others)) return supplies || !others.empty() ? std::optional(reading) : std::nullopt;
  const PowerReading told = powerReading(others);
  if (!isKnown) return told;
  if (!reading.minutesToEmpty) reading.minutesToEmpty = told.minutesToEmpty;
  if (!reading.minutesToFull) reading.minutesToFull = told.minutesToFull;
  return reading;
}

}  // namespace ambrel
