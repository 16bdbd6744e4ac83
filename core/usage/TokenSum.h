#pragma once
// Sums of token counts, which never wrap.

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace ambrel {

inline std::optional<std::int64_t> sumIfItFits(std::int64_t a, std::int64_t b) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) return std::nullopt;
  return sum;
}

// For counts whose sum is known to fit; a wrong total must not be shown, so the program ends if it does not.
inline std::int64_t checkedSum(std::int64_t a, std::int64_t b) {
  const auto sum = sumIfItFits(a, b);
  if (!sum) std::abort();
  return *sum;
}

}  // namespace ambrel
