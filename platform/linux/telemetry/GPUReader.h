#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/linux/telemetry/ActivityReaders.h"

namespace ambrel {

// How busy the graphics processors are: amdgpu's busy file, the idle time that i915 and xe count, the load of small
// boards' devfreq, NVIDIA's management library. One that is asleep is never asked, since asking would wake it.
class GPUReader {
 public:
  struct Surroundings {
    std::filesystem::path root;  // "/" on a running system
    std::string managementLibrary = "libnvidia-ml.so.1";
    BootClock clock;
    std::function<void(std::chrono::milliseconds)> pause;  // between the first two readings of a counter
  };
  explicit GPUReader(Surroundings surroundings) : surroundings_(std::move(surroundings)) {}

  // The busiest, 0 to 1.
  std::optional<double> read();

 private:
  using Path = std::filesystem::path;
  std::optional<double> cardLoad(const Path& card);
  std::optional<double> loadFromIdleTime(const Path& counter);
  std::optional<double> nvidiaLoad(const std::string& busID);
  std::optional<double> boardLoad();

  Surroundings surroundings_;
  struct IdleTime {
    std::uint64_t milliseconds = 0;
    std::uint64_t at = 0;
  };
  std::map<Path, IdleTime> idleTimes_;
  std::map<std::string, std::uint64_t> restsUntil_;  // by bus id, of cards that may fall asleep if they are let alone
};

}  // namespace ambrel
