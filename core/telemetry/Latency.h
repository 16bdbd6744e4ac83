#pragma once
// How long it takes to reach the Internet.

#include <optional>
#include <vector>

namespace ambrel {

struct LatencyCheck {
  std::optional<double> milliseconds = {};  // absent: the probe failed
  friend bool operator==(const LatencyCheck&, const LatencyCheck&) = default;
};

// Over the probes that were answered; 0 while none was.
struct LatencyStats {
  std::optional<double> last = {};  // the latest that was answered
  double minimum = 0;
  double average = 0;
  double maximum = 0;
  double jitter = 0;  // mean difference between one answered probe and the next
  int failures = 0;

  // Oldest first; an absent entry is a probe that failed.
  static LatencyStats of(const std::vector<std::optional<double>>& milliseconds);
  // 0 below 40 ms, 1 below 100, 2 below 250, else 3.
  static int level(double milliseconds);
  friend bool operator==(const LatencyStats&, const LatencyStats&) = default;
};

}  // namespace ambrel
