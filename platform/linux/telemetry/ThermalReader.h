#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/telemetry/ThermalSensors.h"

namespace ambrel {

// The thermal zones and the processors' own sensors below `root`. Other sensors are left alone: asking a drive or a
// radio for its temperature may wake it.
class ThermalReader {
 public:
  explicit ThermalReader(std::filesystem::path root) : root_(std::move(root)) {}
  std::optional<ThermalReading> read();

 private:
  struct Source {
    std::filesystem::path file;
    ThermalSensor sensor;  // without its temperature
    bool isProcessor = false;
    std::optional<double> limit = {};
  };
  void describe();
  void describeZone(const std::filesystem::path& zone);
  void describeProcessor(const std::filesystem::path& folder);

  std::filesystem::path root_;
  std::vector<std::string> zones_, monitors_;  // what `sources_` was made from
  std::vector<Source> sources_;
};

}  // namespace ambrel
