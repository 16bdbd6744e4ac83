#include "core/telemetry/CounterRate.h"

#include <cmath>

namespace ambrel {
namespace {

constexpr std::uint64_t values32 = 1ull << 32;
constexpr std::uint64_t nearTheEdge = 1ull << 26;

}  // namespace

std::optional<std::uint64_t> CounterRate::difference(std::uint64_t before, std::uint64_t now,
                                                     std::optional<std::uint64_t> range) {
  if (now >= before) return now - before;
  if (range) {
    if (before >= *range) return std::nullopt;
    return *range - before + now;
  }
  if (before < values32 && before >= values32 - nearTheEdge && now < nearTheEdge) return values32 - before + now;
  return std::nullopt;
}

std::optional<double> CounterRate::perSecond(std::uint64_t before, std::uint64_t now, Seconds elapsed,
                                             std::optional<std::uint64_t> range) {
  if (!(elapsed > Seconds(0)) || elapsed > longestGap) return std::nullopt;
  const auto steps = difference(before, now, range);
  if (!steps) return std::nullopt;
  return static_cast<double>(*steps) / elapsed.count();
}

std::optional<Seconds> elapsedSeconds(std::uint64_t beforeNanoseconds, std::uint64_t nowNanoseconds) {
  if (nowNanoseconds <= beforeNanoseconds) return std::nullopt;
  return Seconds(static_cast<double>(nowNanoseconds - beforeNanoseconds) / 1e9);
}

std::uint64_t nanosecondsFromTicks(std::uint64_t ticks, std::uint32_t numerator, std::uint32_t denominator) {
  if (denominator == 0) return ticks;
  const double nanoseconds = std::round(static_cast<double>(ticks) * numerator / denominator);
  // 2^64, the first value that does not fit.
  if (nanoseconds >= 18446744073709551616.0) return UINT64_MAX;
  return static_cast<std::uint64_t>(nanoseconds);
}

}  // namespace ambrel
