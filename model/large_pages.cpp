#include "model/large_pages.h"

#include <sys/mman.h>

#include <cstdlib>

namespace model {

void* AllocateLarge(std::size_t size) {
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  if (size >= kLargePage) {
    const std::size_t whole = (size + kLargePage - 1) / kLargePage * kLargePage;
    void* const memory = std::aligned_alloc(kLargePage, whole);
    if (memory == nullptr) throw std::bad_alloc();
    // A failure does not matter: without large pages the memory is just as usable.
    madvise(memory, whole, MADV_HUGEPAGE);
    return memory;
  }
  void* const memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void FreeLarge(void* memory) noexcept { std::free(memory); }

}  // namespace model
