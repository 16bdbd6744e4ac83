#include "core/usage/KeySearch.h"

#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ambrel {

const char* findUsageKey(const char* begin, const char* end) {
#ifdef __SSE2__
  // Sixteen positions at a time: few of them have both quotes at the right distance and the 'g' between them.
  constexpr std::ptrdiff_t gAt = 4, lastAt = 6, lanes = 16;
  static_assert(usageKey[gAt] == 'g' && usageKey.size() == lastAt + 1);
  const __m128i quote = _mm_set1_epi8('"');
  const __m128i letter = _mm_set1_epi8('g');
  const auto load = [](const char* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); };
  for (; end - begin >= lanes + lastAt; begin += lanes) {
    const __m128i first = _mm_cmpeq_epi8(load(begin), quote);
    const __m128i middle = _mm_cmpeq_epi8(load(begin + gAt), letter);
    const __m128i last = _mm_cmpeq_epi8(load(begin + lastAt), quote);
    auto matches = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(_mm_and_si128(first, middle), last)));
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
