#include "base/heap.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#if defined(__GLIBC__) && defined(__linux__)
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace vistaplot {

#if defined(__GLIBC__) && defined(__linux__)

void PrepareHeap() {
  constexpr int kGrowth = 64 << 20;        // bytes of address space
  constexpr int kOwnMapping = 32 << 20;    // the library's limit: larger blocks stay apart
  constexpr std::size_t kProbe = 1 << 20;  // more than what is left of the first heap
  constexpr std::uintptr_t kPage = 4096;
  mallopt(M_MMAP_THRESHOLD, kOwnMapping);
  mallopt(M_TRIM_THRESHOLD, kGrowth);
  mallopt(M_TOP_PAD, kGrowth);
  char* const before = static_cast<char*>(sbrk(0));
  void* volatile probe = std::malloc(kProbe);  // volatile: else the pair is optimised away
  std::free(probe);
  char* const after = static_cast<char*>(sbrk(0));
  char* const begin = before + (kPage - reinterpret_cast<std::uintptr_t>(before) % kPage) % kPage;
  if (after > begin) {
    // Only advice: a system without large pages refuses it, and nothing changes.
    madvise(begin, static_cast<std::size_t>(after - begin), MADV_HUGEPAGE);
  }
}

#else

void PrepareHeap() {}

#endif

}  // namespace vistaplot
