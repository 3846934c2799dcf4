#include "CountingNew.h"

#include <cstdlib>
#include <new>

namespace {
// Plain thread-local storage: no constructor, so reading it never allocates.
thread_local std::size_t tAllocations = 0;

void* Allocate(std::size_t size, std::size_t alignment) {
  ++tAllocations;
  if (size == 0) size = 1;
  void* memory = alignment > alignof(std::max_align_t)
                     ? std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment)
                     : std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
}  // namespace

namespace drav::alloc {
std::size_t AllocationsOnThisThread() { return tAllocations; }
}  // namespace drav::alloc

void* operator new(std::size_t size) { return Allocate(size, 0); }
void* operator new[](std::size_t size) { return Allocate(size, 0); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return Allocate(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size, 0);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return Allocate(size, 0);
  } catch (...) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
