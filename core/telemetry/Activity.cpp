#include "core/telemetry/Activity.h"

#include <algorithm>

#include "core/telemetry/CounterRate.h"

namespace ambrel {

std::optional<DiskRates> diskRates(const std::optional<DiskCounters>& previous, const DiskCounters& current) {
  if (!previous) return std::nullopt;
  const auto elapsed = elapsedSeconds(previous->uptimeNanoseconds, current.uptimeNanoseconds);
  if (!elapsed) return std::nullopt;
  const auto read = CounterRate::perSecond(previous->read, current.read, *elapsed);
  const auto written = CounterRate::perSecond(previous->written, current.written, *elapsed);
  if (!read || !written) return std::nullopt;
  return DiskRates{.readPerSecond = *read, .writePerSecond = *written};
}

std::vector<ProcessUsage> ProcessRanking::usage(const std::unordered_map<std::int32_t, ProcessSample>& previous,
                                                const std::vector<ProcessSample>& current,
                                                std::uint64_t elapsedNanoseconds) {
  std::vector<ProcessUsage> ranking;
  if (elapsedNanoseconds == 0) return ranking;
  for (const ProcessSample& sample : current) {
    const auto earlier = previous.find(sample.pid);
    if (earlier == previous.end() || sample.cpuNanoseconds <= earlier->second.cpuNanoseconds) continue;
    const auto worked = static_cast<double>(sample.cpuNanoseconds - earlier->second.cpuNanoseconds);
    ranking.push_back({sample.pid, sample.name, worked / static_cast<double>(elapsedNanoseconds)});
  }
  std::ranges::sort(ranking, [](const ProcessUsage& a, const ProcessUsage& b) {
    return a.cores != b.cores ? a.cores > b.cores : a.pid < b.pid;
  });
  return ranking;
}

std::optional<std::vector<ProcessUsage>> ProcessRanking::usage(const std::optional<ProcessSnapshot>& previous,
                                                               const ProcessSnapshot& current) {
  if (!previous) return std::nullopt;
  const auto elapsed = elapsedSeconds(previous->uptimeNanoseconds, current.uptimeNanoseconds);
  if (!elapsed || *elapsed > longestGap) return std::nullopt;
  std::unordered_map<std::int32_t, ProcessSample> byPid;
  for (const ProcessSample& sample : previous->samples) byPid.emplace(sample.pid, sample);
  return usage(byPid, current.samples, current.uptimeNanoseconds - previous->uptimeNanoseconds);
}

}  // namespace ambrel
