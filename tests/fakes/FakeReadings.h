#pragma once

#include "platform/SystemReadings.h"

namespace ambrel {

// Counters that the test moves on.
class FakeReadings : public SystemReadings {
 public:
  std::optional<ProcessorTicks> processor() const override { return ticks; }
  std::optional<MemoryReading> memory() const override { return memoryReading; }
  NetworkCounters network() const override { return counters; }
  std::optional<VolumeSizes> startUpVolume() const override {
    ++volumeReads;
    return volume;
  }
  Seconds sinceBoot() const override { return boot; }

  void pass(double seconds, std::uint64_t busy, std::uint64_t idle) {
    boot += Seconds(seconds);
    ticks->columns[0] += busy;
    ticks->columns[3] += idle;
  }

  std::optional<ProcessorTicks> ticks = ProcessorTicks{};
  std::optional<MemoryReading> memoryReading =
      MemoryReading{.totalBytes = 16'000'000'000, .availableBytes = 4'000'000'000};
  NetworkCounters counters{{"eth0", {1'000, 500}}};
  std::optional<VolumeSizes> volume =
      VolumeSizes{.freeBytes = 250'000'000'000, .totalBytes = 1'000'000'000'000, .usedBytes = 375'000'000'000};
  Seconds boot{1000};
  mutable int volumeReads = 0;
};

}  // namespace ambrel
