#include "app/base/Heap.h"

#include <cstdlib>
#ifdef __linux__
#include <fstream>
#include <link.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#endif
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ambrel {
namespace {

#ifdef __linux__
bool isDebugged() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("TracerPid:")) return std::atoi(line.c_str() + 10) != 0;
  return false;
}

// The loader has written into the code of such an object: what it wrote would be lost.
bool hasRelocatedCode(const dl_phdr_info& object, const ElfW(Phdr) & dynamic) {
  const auto* entry = reinterpret_cast<const ElfW(Dyn)*>(object.dlpi_addr + dynamic.p_vaddr);
  for (; entry->d_tag != DT_NULL; ++entry)
    if (entry->d_tag == DT_TEXTREL || (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL))) return true;
  return false;
}

int unmapConstants(dl_phdr_info* object, std::size_t, void*) {
  const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  for (int i = 0; i < object->dlpi_phnum; ++i)
    if (object->dlpi_phdr[i].p_type == PT_DYNAMIC && hasRelocatedCode(*object, object->dlpi_phdr[i])) return 0;
  for (int i = 0; i < object->dlpi_phnum; ++i) {
    const auto& segment = object->dlpi_phdr[i];
    if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W)) continue;
    const std::size_t begin = (object->dlpi_addr + segment.p_vaddr) / page * page;
    const std::size_t end = (object->dlpi_addr + segment.p_vaddr + segment.p_memsz + page - 1) / page * page;
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
  }
  return 0;
}
#endif

}  // namespace

void returnLargeBlocks() {
#ifdef __GLIBC__
  constexpr int large = 1 << 20;
  mallopt(M_MMAP_THRESHOLD, large);
  mallopt(M_TRIM_THRESHOLD, 2 * large);
  mallopt(M_ARENA_MAX, 2);
#endif
}

void returnFreedMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

void returnUnusedCode() {
#ifdef __linux__
  if (!isDebugged()) dl_iterate_phdr(unmapConstants, nullptr);
#endif
}

}  // namespace ambrel
