#pragma once
// Rates from two readings of a counter that only grows.

#include <cstdint>
#include <optional>

#include "core/base/Instant.h"

namespace ambrel {

// Between two readings further apart than this the computer slept, or nobody was looking: no rate comes of them.
inline constexpr Seconds longestGap{20};

namespace CounterRate {

// How far the counter went. One that went backwards was reset, and is unknown for that round; it counts as a wrap only
// where that is certain: `range`, the number of values it can take, is known (an energy counter tells it), or both
// readings are within 64 MiB of the end and the beginning of 32 bits (byte counters of small boards).
std::optional<std::uint64_t> difference(std::uint64_t before, std::uint64_t now,
                                        std::optional<std::uint64_t> range = std::nullopt);
// elapsed: since boot, sleep included; 0 or less, or longer than `longestGap`: absent.
std::optional<double> perSecond(std::uint64_t before, std::uint64_t now, Seconds elapsed,
                                std::optional<std::uint64_t> range = std::nullopt);

}  // namespace CounterRate

// The span between two readings of a clock in nanoseconds; absent when it did not advance.
std::optional<Seconds> elapsedSeconds(std::uint64_t beforeNanoseconds, std::uint64_t nowNanoseconds);

// Clock ticks of numerator/denominator nanoseconds each. A denominator of 0 leaves them as they are; otherwise
// computed in 64-bit floats and rounded to the nearest whole number, halves away from zero.
std::uint64_t nanosecondsFromTicks(std::uint64_t ticks, std::uint32_t numerator, std::uint32_t denominator);

}  // namespace ambrel
