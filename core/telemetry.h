#pragma once
// System readings: the kernel's texts turned into counters, and counters into rates.
//
// A first reading publishes no rate. A counter that went backwards was reset, and counts as unknown for that round; as
// a wrap only where that is certain, since a wrap that was none would be a spike.

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/base/Instant.h"
#include "core/telemetry/Activity.h"
#include "core/telemetry/Conditions.h"
#include "core/telemetry/CounterRate.h"
#include "core/telemetry/DisplayText.h"
#include "core/telemetry/Latency.h"
#include "core/telemetry/Power.h"
#include "core/telemetry/Volumes.h"
#include "core/telemetry/WiFi.h"

namespace ambrel {

// The line "cpu" of /proc/stat, in clock ticks over all cores since boot: user, nice, system, idle, iowait, irq,
// softirq, steal. The two guest columns behind them are part of user and nice already (proc(5)).
struct ProcessorTicks {
  std::array<std::uint64_t, 8> columns{};
  friend bool operator==(const ProcessorTicks&, const ProcessorTicks&) = default;
};
// Kernels that give fewer columns count as 0 there; fewer than four: absent.
std::optional<ProcessorTicks> parseProcStat(std::string_view text);
// The busy share of all cores between two readings, 0 to 1. Waiting for a disk is no work. Each column is taken by
// itself, since idle and iowait may step back; without any progress: absent.
std::optional<double> processorUsage(const ProcessorTicks& before, const ProcessorTicks& now);

struct MemoryReading {
  std::uint64_t totalBytes = 0;
  std::uint64_t availableBytes = 0;
  std::uint64_t swapTotalBytes = 0;
  std::uint64_t swapFreeBytes = 0;

  std::uint64_t usedBytes() const { return totalBytes > availableBytes ? totalBytes - availableBytes : 0; }
  friend bool operator==(const MemoryReading&, const MemoryReading&) = default;
};
// /proc/meminfo: MemTotal and MemAvailable; without the latter (kernels before 3.14) free plus buffers plus cached.
std::optional<MemoryReading> parseMeminfo(std::string_view text);

struct InterfaceBytes {
  std::uint64_t received = 0;
  std::uint64_t sent = 0;
  friend bool operator==(const InterfaceBytes&, const InterfaceBytes&) = default;
};
// By interface name. /proc/net/dev; names may hold colons (aliases), the counters begin behind the last one.
using NetworkCounters = std::map<std::string, InterfaceBytes>;
NetworkCounters parseNetDev(std::string_view text);

struct NetworkRates {
  double receivedPerSecond = 0;
  double sentPerSecond = 0;
  friend bool operator==(const NetworkRates&, const NetworkRates&) = default;
};
// Summed over the interfaces that both readings hold, so that one that has just been plugged in only primes.
// elapsed: since boot, not by the wall clock; 0 or less, or more than `longestGap`: absent.
std::optional<NetworkRates> networkRates(const NetworkCounters& before, const NetworkCounters& now, Seconds elapsed);

// What a file system says of itself. Some of it may be reserved for root, which is neither free nor used.
struct VolumeSizes {
  std::int64_t freeBytes = 0;  // for those who are not root
  std::int64_t totalBytes = 0;
  std::int64_t usedBytes = 0;
  friend bool operator==(const VolumeSizes&, const VolumeSizes&) = default;
};

// Of what can be used, as df has it; absent when nothing is known.
std::optional<double> usedPercent(std::int64_t usedBytes, std::int64_t freeBytes);

// A rate as a tile shows it: "8.4" and "MB/s", with the locale's decimal mark. Decimal units; three figures at
// most; below 1000 in whole bytes.
struct RateText {
  std::string figure;
  std::string unit;
  friend bool operator==(const RateText&, const RateText&) = default;
};
RateText rateText(const Calendar& calendar, double bytesPerSecond);

}  // namespace ambrel
