// Counts calls of the system allocator (malloc/calloc/realloc, and operator
// new through them) made by this process, so a benchmark can report
// allocations per operation:
//
//   AllocScope scope;  ...work...;  state.counters["allocs/op"] = scope.per(state);
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>

namespace bench {

std::uint64_t allocation_count();

struct AllocScope {
  std::uint64_t start = allocation_count();
  benchmark::Counter per(const benchmark::State& state) const {
    return benchmark::Counter(static_cast<double>(allocation_count() - start) /
                              static_cast<double>(state.iterations()));
  }
};

}  // namespace bench
