#pragma once
// What the disks and the processes are doing.

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ambrel {

// Bytes over all disks since they were connected, each disk once.
struct DiskCounters {
  std::uint64_t read = 0;
  std::uint64_t written = 0;
  std::uint64_t uptimeNanoseconds = 0;  // when they were read; since boot, sleep included
  friend bool operator==(const DiskCounters&, const DiskCounters&) = default;
};
struct DiskRates {
  double readPerSecond = 0;
  double writePerSecond = 0;
  friend bool operator==(const DiskRates&, const DiskRates&) = default;
};
// Absent for a first reading, after a gap, and in a round in which a disk went away.
std::optional<DiskRates> diskRates(const std::optional<DiskCounters>& previous, const DiskCounters& current);

struct ProcessSample {
  std::int32_t pid = 0;
  std::string name = {};  // valid UTF-8
  std::uint64_t cpuNanoseconds = 0;
  friend bool operator==(const ProcessSample&, const ProcessSample&) = default;
};
struct ProcessSnapshot {
  std::vector<ProcessSample> samples = {};
  std::uint64_t uptimeNanoseconds = 0;
  friend bool operator==(const ProcessSnapshot&, const ProcessSnapshot&) = default;
};
struct ProcessUsage {
  std::int32_t pid = 0;
  std::string name = {};
  double cores = 0;  // 1.0 is one core fully busy
  friend bool operator==(const ProcessUsage&, const ProcessUsage&) = default;
};

namespace ProcessRanking {

// The busiest first; equal ones by their number. A process that was not there before, that did nothing, or whose time
// went backwards (its number went to another) is left out. No time between the readings gives nothing.
std::vector<ProcessUsage> usage(const std::unordered_map<std::int32_t, ProcessSample>& previous,
                                const std::vector<ProcessSample>& current, std::uint64_t elapsedNanoseconds);
// The same from two snapshots. Absent for a first snapshot and after a gap.
std::optional<std::vector<ProcessUsage>> usage(const std::optional<ProcessSnapshot>& previous,
                                               const ProcessSnapshot& current);

}  // namespace ProcessRanking

}  // namespace ambrel
