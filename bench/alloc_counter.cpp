// glibc lets a program interpose malloc and friends; these forward to the
// C library's own entry points and count each call.
#include "alloc_counter.h"

#include <atomic>
#include <cstddef>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
}

namespace {
std::atomic<std::uint64_t> g_calls{0};
}

extern "C" void* malloc(std::size_t n) {
  g_calls.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(n);
}

extern "C" void* calloc(std::size_t n, std::size_t size) {
  g_calls.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(n, size);
}

extern "C" void* realloc(void* p, std::size_t n) {
  g_calls.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(p, n);
}

namespace bench {
std::uint64_t allocation_count() { return g_calls.load(std::memory_order_relaxed); }
}  // namespace bench
