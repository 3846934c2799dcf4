// Heap allocations counted per thread: this program replaces the global operator new (which is why
// it is a program of its own) so that a test can tell how many allocations a stretch of code on
// its own thread made.
#pragma once

#include <cstddef>

namespace drav::alloc {

// Allocations made by the calling thread since it started.
std::size_t AllocationsOnThisThread();

// Counts the calling thread's allocations from construction on.
class AllocationCounter {
 public:
  AllocationCounter() : start_(AllocationsOnThisThread()) {}
  std::size_t Count() const { return AllocationsOnThisThread() - start_; }

 private:
  std::size_t start_;
};

}  // namespace drav::alloc
