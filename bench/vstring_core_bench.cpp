// vstring core against std::string doing the same work, with allocator calls
// per operation. Method: each loop repeats one operation on stable inputs, so
// the numbers show steady state (the ring's blocks are warm after 96 calls).
#include "alloc_counter.h"

#include <txCommon/txCommon.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

const char* kText = "GENR LOGY = LOG(Y) + 0.5 * LOG(X(-1)) ' a comment of some length";

void BM_Vstring_Assign(benchmark::State& state) {
  vstring s;
  bench::AllocScope allocs;
  for (auto _ : state) {
    s = kText;
    benchmark::DoNotOptimize(s.optr());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_StdString_Assign(benchmark::State& state) {
  std::string s;
  bench::AllocScope allocs;
  for (auto _ : state) {
    s = kText;
    benchmark::DoNotOptimize(s.data());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_Vstring_Mid(benchmark::State& state) {
  const vstring s(kText);
  for (int i = 0; i < 96; ++i) s.mid(6, 12);  // warm the ring
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(s.mid(6, 12).optr());
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_StdString_Substr(benchmark::State& state) {
  const std::string s(kText);
  bench::AllocScope allocs;
  for (auto _ : state) {
    std::string piece = s.substr(5, 12);
    benchmark::DoNotOptimize(piece.data());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_Vstring_CatByte(benchmark::State& state) {
  bench::AllocScope allocs;
  for (auto _ : state) {
    vstring s;
    for (int i = 0; i < 64; ++i) s.cat('x');  // exact-size growth: one block per byte
    benchmark::DoNotOptimize(s.optr());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_StdString_PushBack(benchmark::State& state) {
  bench::AllocScope allocs;
  for (auto _ : state) {
    std::string s;
    for (int i = 0; i < 64; ++i) s.push_back('x');
    benchmark::DoNotOptimize(s.data());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_Spool_CatByte(benchmark::State& state) {
  bench::AllocScope allocs;
  for (auto _ : state) {
    StringSpool sp(64);
    for (int i = 0; i < 64; ++i) sp += 'x';
    benchmark::DoNotOptimize(sp.optr());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_Vstring_Plus(benchmark::State& state) {
  const vstring a("LOGY"), b(" = LOG(Y)");
  for (int i = 0; i < 96; ++i) (void)(a + b);
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize((a + b).optr());
  state.counters["allocs/op"] = allocs.per(state);
}

void BM_StdString_Plus(benchmark::State& state) {
  const std::string a("LOGY"), b(" = LOG(Y)");
  bench::AllocScope allocs;
  for (auto _ : state) {
    std::string r = a + b;
    benchmark::DoNotOptimize(r.data());
  }
  state.counters["allocs/op"] = allocs.per(state);
}

BENCHMARK(BM_Vstring_Assign);
BENCHMARK(BM_StdString_Assign);
BENCHMARK(BM_Vstring_Mid);
BENCHMARK(BM_StdString_Substr);
BENCHMARK(BM_Vstring_CatByte);
BENCHMARK(BM_StdString_PushBack);
BENCHMARK(BM_Spool_CatByte);
BENCHMARK(BM_Vstring_Plus);
BENCHMARK(BM_StdString_Plus);

}  // namespace
