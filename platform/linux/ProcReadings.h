#pragma once

#include <filesystem>

#include "platform/SystemReadings.h"

namespace ambrel {

// Reads below `root` ("/" on a running system): proc/stat, proc/meminfo, proc/net/dev, sys/class/net.
class ProcReadings : public SystemReadings {
 public:
  explicit ProcReadings(std::filesystem::path root = "/") : root_(std::move(root)) {}

  std::optional<ProcessorTicks> processor() const override;
  std::optional<MemoryReading> memory() const override;
  NetworkCounters network() const override;
  std::optional<VolumeSizes> startUpVolume() const override;
  Seconds sinceBoot() const override;

 private:
  std::filesystem::path root_;
};

}  // namespace ambrel
