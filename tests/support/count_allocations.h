// Counts every heap allocation of the program, so a test or benchmark can
// check that the roll path allocates nothing. Replaces the global operator
// new: include it in exactly one source file of a program.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

inline std::atomic<long> gAllocations{0};

#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t n) {
  gAllocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
