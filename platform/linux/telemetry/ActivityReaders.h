#pragma once
// Disks and processes, below `root` ("/" on a running system).

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "core/telemetry/Activity.h"
#include "core/telemetry/KernelTexts.h"

namespace ambrel {

using BootClock = std::function<std::uint64_t()>;  // nanoseconds

// Adds up what every whole disk has read and written: no partitions, and nothing on top of disks (device
// mapper, RAID, loop, compressed memory). The sum never falls: a disk that is pulled leaves its share, one that is
// plugged in counts from then on.
class DiskCounterReader {
 public:
  DiskCounterReader(std::filesystem::path root, BootClock clock) : root_(std::move(root)), clock_(std::move(clock)) {}
  std::optional<DiskCounters> read();

 private:
  bool isWholeDisk(const std::string& name);

  std::filesystem::path root_;
  BootClock clock_;
  std::map<std::string, bool> isWholeDisk_;
  std::optional<std::map<std::string, BlockDevice>> last_;
  DiskCounters sum_;
};

// ticksPerSecond: what processor times are counted in; sysconf(_SC_CLK_TCK) on a running system.
class ProcessTimesReader {
 public:
  ProcessTimesReader(std::filesystem::path root, BootClock clock, std::uint32_t ticksPerSecond)
      : root_(std::move(root)), clock_(std::move(clock)), ticksPerSecond_(ticksPerSecond) {}
  std::optional<ProcessSnapshot> read();

 private:
  struct Name {
    std::uint64_t startTicks = 0;
    std::string cut, whole;
    bool isAlive = true;
  };
  const std::string& nameOf(int folder, const ProcessTimes& process);

  std::filesystem::path root_;
  BootClock clock_;
  std::uint32_t ticksPerSecond_;
  std::unordered_map<std::int32_t, Name> names_;
};

}  // namespace ambrel
