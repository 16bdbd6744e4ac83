#include <array>

#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "core/telemetry.h"
#include "core/telemetry/ProcText.h"

namespace ambrel {

NetworkCounters parseNetDev(std::string_view text) {
  // Behind the name: 8 columns received (bytes first), 8 sent (bytes first).
  constexpr std::size_t sentColumn = 8;
  NetworkCounters counters;
  eachLine(text, [&](std::string_view line) {
    const std::size_t colon = line.rfind(':');
    if (colon == std::string_view::npos) return;
    std::string_view rest = line.substr(colon + 1);
    std::array<std::uint64_t, sentColumn + 1> columns{};
    for (std::uint64_t& column : columns) {
      const auto value = takeNumber(rest);
      if (!value) return;
      column = *value;
    }
    counters[std::string(trimmed(line.substr(0, colon)))] = {columns[0], columns[sentColumn]};
  });
  return counters;
}

std::optional<NetworkRates> networkRates(const NetworkCounters& before, const NetworkCounters& now, Seconds elapsed) {
  if (elapsed.count() <= 0 || elapsed > longestGap) return std::nullopt;
  NetworkRates rates;
  for (const auto& [name, bytes] : now) {
    const auto earlier = before.find(name);
    if (earlier == before.end()) continue;
    rates.receivedPerSecond += CounterRate::perSecond(earlier->second.received, bytes.received, elapsed).value_or(0);
    rates.sentPerSecond += CounterRate::perSecond(earlier->second.sent, bytes.sent, elapsed).value_or(0);
  }
  return rates;
}

RateText rateText(const Calendar& calendar, double rate) {
  constexpr std::array<std::string_view, 4> units{"B/s", "KB/s", "MB/s", "GB/s"};
  std::size_t unit = 0;
  while (rate >= 999.5 && unit + 1 < units.size()) {
    rate /= 1000;
    ++unit;
  }
  const bool isWhole = unit == 0 || rate >= 99.95;
  return {decimal(calendar, rate, isWhole ? 0 : 1), std::string(units[unit])};
}

}  // namespace ambrel
