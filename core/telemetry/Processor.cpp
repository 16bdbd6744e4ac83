#include <array>
#include <utility>

#include "core/telemetry.h"
#include "core/telemetry/ProcText.h"

namespace ambrel {
namespace {

constexpr std::size_t idleColumn = 3, iowaitColumn = 4;

}  // namespace

std::optional<ProcessorTicks> parseProcStat(std::string_view text) {
  std::optional<ProcessorTicks> ticks;
  eachLine(text, [&](std::string_view line) {
    if (ticks || !line.starts_with("cpu ")) return;
    line.remove_prefix(4);
    ProcessorTicks read;
    std::size_t count = 0;
    while (count < read.columns.size()) {
      const auto value = takeNumber(line);
      if (!value) break;
      read.columns[count++] = *value;
    }
    if (count > idleColumn) ticks = read;
  });
  return ticks;
}

std::optional<double> processorUsage(const ProcessorTicks& before, const ProcessorTicks& now) {
  double busy = 0, total = 0;
  for (std::size_t i = 0; i < now.columns.size(); ++i) {
    if (now.columns[i] <= before.columns[i]) continue;
    const auto delta = static_cast<double>(now.columns[i] - before.columns[i]);
    total += delta;
    if (i != idleColumn && i != iowaitColumn) busy += delta;
  }
  if (total <= 0) return std::nullopt;
  return busy / total;
}

std::optional<MemoryReading> parseMeminfo(std::string_view text) {
  std::optional<std::uint64_t> total, available, free, buffers, cached, swapTotal, swapFree;
  const std::array<std::pair<std::string_view, std::optional<std::uint64_t>*>, 7> wanted{{{"MemTotal:", &total},
                                                                                          {"MemAvailable:", &available},
                                                                                          {"MemFree:", &free},
                                                                                          {"Buffers:", &buffers},
                                                                                          {"Cached:", &cached},
                                                                                          {"SwapTotal:", &swapTotal},
                                                                                          {"SwapFree:", &swapFree}}};
  eachLine(text, [&](std::string_view line) {
    for (const auto& [key, field] : wanted) {
      if (!line.starts_with(key)) continue;
      line.remove_prefix(key.size());
      if (const auto kibibytes = takeNumber(line)) *field = *kibibytes * 1024;
      return;
    }
  });
  if (total.value_or(0) == 0) return std::nullopt;
  return MemoryReading{
      .totalBytes = *total,
      .availableBytes = available.value_or(free.value_or(0) + buffers.value_or(0) + cached.value_or(0)),
      .swapTotalBytes = swapTotal.value_or(0),
      .swapFreeBytes = swapFree.value_or(0)};
}

}  // namespace ambrel
