#include "platform/linux/telemetry/ThermalReader.h"

#include <algorithm>
#include <array>

#include "platform/linux/telemetry/SmallFiles.h"

namespace ambrel {
namespace {

bool isProcessor(std::string_view name) {
  constexpr std::array<std::string_view, 5> names{"coretemp", "k10temp", "k8temp", "zenpower", "via_cputemp"};
  return std::ranges::find(names, name) != names.end();
}

bool isRadioOrDrive(std::string_view type) { return type.starts_with("iwlwifi") || type.starts_with("nvme"); }

std::optional<double> readDegrees(const std::filesystem::path& file) {
  const auto text = readAttribute(file);
  return text ? parseMillidegrees(*text) : std::nullopt;
}

}  // namespace

void ThermalReader::describeZone(const std::filesystem::path& zone) {
  if (isRadioOrDrive(readWord(zone / "type")) || readWord(zone / "mode") == "disabled") return;
  const bool userSpace = readWord(zone / "policy") == "user_space";
  Source source{.file = zone / "temp", .sensor = {}};
  for (int i = 0;; ++i) {
    const std::string trip = "trip_point_" + std::to_string(i);
    const std::string type = readWord(zone / (trip + "_type"));
    if (type.empty()) break;
    if (const auto celsius = readDegrees(zone / (trip + "_temp"))) addTrip(source.sensor, type, *celsius, userSpace);
  }
  // A zone at whose temperature nothing happens tells nothing of the computer's state.
  if (source.sensor != ThermalSensor{}) sources_.push_back(std::move(source));
}

void ThermalReader::describeProcessor(const std::filesystem::path& folder) {
  if (!isProcessor(readWord(folder / "name"))) return;
  // The first is the whole processor. Some of AMD's add an offset to it, and tell the true one beside it as "Tdie".
  std::string sensor = "temp1";
  for (const char* other : {"temp1", "temp2"})
    if (readWord(folder / (std::string(other) + "_label")) == "Tdie") sensor = other;
  sources_.push_back({.file = folder / (sensor + "_input"),
                      .sensor = {},
                      .isProcessor = true,
                      .limit = readDegrees(folder / (sensor + "_crit"))});
}

void ThermalReader::describe() {
  sources_.clear();
  for (const std::string& zone : zones_) describeZone(root_ / "sys/class/thermal" / zone);
  for (const std::string& monitor : monitors_) describeProcessor(root_ / "sys/class/hwmon" / monitor);
}

std::optional<ThermalReading> ThermalReader::read() {
  auto zones = namesIn(root_ / "sys/class/thermal", "thermal_zone"), monitors = namesIn(root_ / "sys/class/hwmon");
  if (zones != zones_ || monitors != monitors_) {
    zones_ = std::move(zones);
    monitors_ = std::move(monitors);
    describe();
  }
  std::vector<ThermalSensor> sensors;
  for (const Source& source : sources_) {
    const auto celsius = readDegrees(source.file);
    if (!celsius) continue;
    ThermalSensor sensor = source.isProcessor ? processorSensor(*celsius, source.limit) : source.sensor;
    sensor.celsius = *celsius;
    sensors.push_back(sensor);
  }
  return thermalReading(sensors);
}

}  // namespace ambrel
