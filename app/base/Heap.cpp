#include "app/base/Heap.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ambrel {

void returnLargeBlocks() {
#ifdef __GLIBC__
  constexpr int large = 1 << 20;
  mallopt(M_MMAP_THRESHOLD, large);
  mallopt(M_TRIM_THRESHOLD, 2 * large);
#endif
}

void returnFreedMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace ambrel
