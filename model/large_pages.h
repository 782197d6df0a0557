/// Memory for the long tables of a package, in large pages where the system has them.
#pragma once

#include <cstddef>
#include <new>

namespace model {

/// Memory of `size` bytes, aligned and marked for large pages when it fills at least one.
/// Faults  std::bad_alloc
void* AllocateLarge(std::size_t size);
void FreeLarge(void* memory) noexcept;

/// A container's allocator over AllocateLarge. A table of 32,000 bonds takes 2,000 small pages, and providing
/// them one by one takes the system as long as filling them takes the reader.
template <class Record>
struct LargePages {
  using value_type = Record;

  LargePages() = default;
  template <class Other>
  LargePages(const LargePages<Other>&) {}

  Record* allocate(std::size_t count) {
    if (count > std::size_t(-1) / 2 / sizeof(Record)) throw std::bad_array_new_length();
    return static_cast<Record*>(AllocateLarge(count * sizeof(Record)));
  }
  void deallocate(Record* records, std::size_t) noexcept { FreeLarge(records); }

  bool operator==(const LargePages&) const = default;
};

}  // namespace model
