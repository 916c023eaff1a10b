// Formatting and random draws against the standard peers.
//
// Method: each formatting benchmark cycles through the same 1024 values (a
// seeded spread over twelve decades, both signs) and writes one text per
// iteration; the snprintf peer uses the printf format that gives the same
// text (iformat 2 -> "% .2f", format 8.2 -> "%8.2f" with a blank for the
// sign, format 0.03 -> "% .3E", format 0.0 -> "%.12g"). The vstring
// benchmarks include the copy into the string, which reuses its block after
// the first call (the allocation counter shows it). Draw benchmarks produce
// one uniform double per iteration.
#include <txCommon/internal.h>

#include <benchmark/benchmark.h>

#include "alloc_counter.h"

#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace {

// Without start-up every value counts as missing and formats as "NA".
const bool started = (txcommon_initialize(nullptr), true);

const std::vector<double>& sample_values() {
  static const std::vector<double> values = [] {
    RndGenKnuth02 gen;
    gen.Seed(7);
    std::vector<double> v(1024);
    for (double& x : v) {
      const double decade = std::floor(gen.NextUniform() * 12) - 4;
      x = (gen.NextUniform() - 0.3) * std::pow(10.0, decade);
    }
    return v;
  }();
  benchmark::DoNotOptimize(started);
  return values;
}

void BM_Iformat2(benchmark::State& state) {
  const auto& v = sample_values();
  vstring s;
  std::size_t i = 0;
  bench::AllocScope allocs;
  for (auto _ : state) {
    s.iformat(v[i++ & 1023], 2);
    benchmark::DoNotOptimize(s.optr());
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Iformat2);

void BM_FormatDigits2(benchmark::State& state) {
  const auto& v = sample_values();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(FormatDigits(v[i++ & 1023], 2));
}
BENCHMARK(BM_FormatDigits2);

void BM_Snprintf_Fixed2(benchmark::State& state) {
  const auto& v = sample_values();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, "% .2f", v[i++ & 1023]);
    benchmark::DoNotOptimize(buf);
  }
}
BENCHMARK(BM_Snprintf_Fixed2);

void BM_FormatSpecWidth(benchmark::State& state) {
  const auto& v = sample_values();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(FormatSpec(v[i++ & 1023], 8.2f, 0));
}
BENCHMARK(BM_FormatSpecWidth);

void BM_Snprintf_Width(benchmark::State& state) {
  const auto& v = sample_values();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, "% 8.2f", v[i++ & 1023]);
    benchmark::DoNotOptimize(buf);
  }
}
BENCHMARK(BM_Snprintf_Width);

void BM_FormatSpecExponent(benchmark::State& state) {
  const auto& v = sample_values();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(FormatSpec(v[i++ & 1023], 0.03f, 0));
}
BENCHMARK(BM_FormatSpecExponent);

void BM_Snprintf_Exponent(benchmark::State& state) {
  const auto& v = sample_values();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, "% .3E", v[i++ & 1023]);
    benchmark::DoNotOptimize(buf);
  }
}
BENCHMARK(BM_Snprintf_Exponent);

void BM_FormatGeneral12(benchmark::State& state) {
  const auto& v = sample_values();
  vstring s;
  std::size_t i = 0;
  bench::AllocScope allocs;
  for (auto _ : state) {
    s.format(v[i++ & 1023], 0.0f, 0u);
    benchmark::DoNotOptimize(s.optr());
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_FormatGeneral12);

void BM_Snprintf_General12(benchmark::State& state) {
  const auto& v = sample_values();
  char buf[64];
  std::size_t i = 0;
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, "%.12g", v[i++ & 1023]);
    benchmark::DoNotOptimize(buf);
  }
}
BENCHMARK(BM_Snprintf_General12);

void BM_Knuth02_NextUniform(benchmark::State& state) {
  RndGenKnuth02 gen;
  gen.Seed(12345);
  for (auto _ : state) benchmark::DoNotOptimize(gen.NextUniform());
}
BENCHMARK(BM_Knuth02_NextUniform);

// Through the base class, as a host would call it.
void BM_Knuth02_NextUniformVirtual(benchmark::State& state) {
  RndGenKnuth02 gen;
  gen.Seed(12345);
  RndGen* base = &gen;
  benchmark::DoNotOptimize(base);
  for (auto _ : state) benchmark::DoNotOptimize(base->NextUniform());
}
BENCHMARK(BM_Knuth02_NextUniformVirtual);

void BM_Mt19937_64_Uniform(benchmark::State& state) {
  std::mt19937_64 engine(12345);
  std::uniform_real_distribution<double> dist(0.0, 1.0);
  for (auto _ : state) benchmark::DoNotOptimize(dist(engine));
}
BENCHMARK(BM_Mt19937_64_Uniform);

}  // namespace
