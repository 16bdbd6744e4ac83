#include "core/telemetry/Latency.h"

#include <algorithm>
#include <cmath>

namespace ambrel {

LatencyStats LatencyStats::of(const std::vector<std::optional<double>>& milliseconds) {
  LatencyStats stats;
  double sum = 0, differences = 0;
  int answered = 0;
  for (const std::optional<double>& value : milliseconds) {
    if (!value) {
      ++stats.failures;
      continue;
    }
    if (stats.last) differences += std::abs(*value - *stats.last);
    stats.minimum = answered == 0 ? *value : std::min(stats.minimum, *value);
    stats.maximum = answered == 0 ? *value : std::max(stats.maximum, *value);
    stats.last = value;
    sum += *value;
    ++answered;
  }
  if (answered > 0) stats.average = sum / answered;
  if (answered > 1) stats.jitter = differences / (answered - 1);
  return stats;
}

int LatencyStats::level(double milliseconds) {
  if (milliseconds < 40) return 0;
  if (milliseconds < 100) return 1;
  if (milliseconds < 250) return 2;
  return 3;
}

}  // namespace ambrel
