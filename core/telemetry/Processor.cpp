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
  std::map<std::string_view, std::uint64_t> bytes;
  eachLine(text, [&](std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    std::string_view rest = line.substr(colon + 1);
    if (const auto kibibytes = takeNumber(rest)) bytes[line.substr(0, colon)] = *kibibytes * 1024;
  });
  const auto total = bytes.find("MemTotal");
  if (total == bytes.end() || total->second == 0) return std::nullopt;
  const auto available = bytes.find("MemAvailable");
  MemoryReading reading{.totalBytes = total->second,
                        .availableBytes = available != bytes.end()
                                              ? available->second
                                              : bytes["MemFree"] + bytes["Buffers"] + bytes["Cached"]};
  reading.swapTotalBytes = bytes["SwapTotal"];
  reading.swapFreeBytes = bytes["SwapFree"];
  return reading;
}

void History::append(double value) {
  values_.push_back(value);
  if (values_.size() > length_) values_.pop_front();
}

}  // namespace ambrel
