#include "core/usage/KeySearch.h"

#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ambrel {

const char* findUsageKey(const char* begin, const char* end) {
#ifdef __SSE2__
  // Sixteen positions at a time, twice in one go: few have a 'g' and the second quote at the right distance.
  constexpr std::ptrdiff_t gAt = 4, lastAt = 6, lanes = 16;
  static_assert(usageKey[gAt] == 'g' && usageKey.size() == lastAt + 1);
  const __m128i quote = _mm_set1_epi8('"');
  const __m128i letter = _mm_set1_epi8('g');
  const auto load = [](const char* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); };
  const auto candidates = [&](const char* at) {
    return _mm_and_si128(_mm_cmpeq_epi8(load(at + gAt), letter), _mm_cmpeq_epi8(load(at + lastAt), quote));
  };
  for (; end - begin >= 2 * lanes + lastAt; begin += 2 * lanes) {
    const __m128i low = candidates(begin), high = candidates(begin + lanes);
    if (_mm_movemask_epi8(_mm_or_si128(low, high)) == 0) continue;
    auto matches = static_cast<unsigned>(_mm_movemask_epi8(low)) | static_cast<unsigned>(_mm_movemask_epi8(high))
                                                                       << lanes;
    for (; matches != 0; matches &= matches - 1) {
      const char* candidate = begin + __builtin_ctz(matches);
      if (std::memcmp(candidate, usageKey.data(), usageKey.size()) == 0) return candidate;
    }
  }
#endif
  const void* found = memmem(begin, static_cast<std::size_t>(end - begin), usageKey.data(), usageKey.size());
  return found ? static_cast<const char*>(found) : end;
}

}  // namespace ambrel
