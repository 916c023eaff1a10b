// The number reader and writer against the C library and <charconv>, on the
// same data in one run.
//
// Method: 4096 doubles with random 17-digit mantissas and decimal exponents
// from -20 to 20 (fixed seed), so fixed forms stay short enough for any
// buffer. Readers parse each value's "%.17g" text; writers format each value
// with 6 digits in the f, e and g forms. Each iteration handles one value;
// "allocs/op" counts calls of the system allocator per value (0 expected for
// ReadNumber and WriteNumber).
//
//   cmake -DTXCOMMON_BUILD_BENCH=ON ... && cmake --build . --target benchmarks
//   bench/number_io_bench --benchmark_min_time=0.2
#include "alloc_counter.h"

#include <txCommon/internal/number_io.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kCount = 4096;  // a power of two: the index wraps with a mask
constexpr int kPrecision = 6;

const std::vector<double>& values() {
  static const std::vector<double> v = [] {
    std::mt19937_64 rng(12345);
    std::uniform_real_distribution<double> mant(1.0, 10.0);
    std::uniform_int_distribution<int> expo(-20, 20);
    std::vector<double> out;
    for (int i = 0; i < kCount; ++i) out.push_back(mant(rng) * std::pow(10.0, expo(rng)) * (i % 3 == 0 ? -1 : 1));
    return out;
  }();
  return v;
}

const std::vector<std::string>& texts() {
  static const std::vector<std::string> t = [] {
    std::vector<std::string> out;
    char buf[40];
    for (const double d : values()) {
      std::snprintf(buf, sizeof buf, "%.17g", d);
      out.emplace_back(buf);
    }
    return out;
  }();
  return t;
}

// ---- reading

void BM_Read_ReadNumber(benchmark::State& state) {
  const auto& t = texts();
  const NumFormat g{'g', 0, 0, 0, 999};
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    const std::string& s = t[i++ & (kCount - 1)];
    double v = 0.0;
    int used = 0;
    ReadNumber(g, s.data(), static_cast<int>(s.size()), &used, &v, nullptr);
    benchmark::DoNotOptimize(v);
  }
  state.counters["allocs/op"] = scope.per(state);
}
BENCHMARK(BM_Read_ReadNumber);

void BM_Read_strtod(benchmark::State& state) {
  const auto& t = texts();
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::strtod(t[i++ & (kCount - 1)].c_str(), nullptr));
  }
  state.counters["allocs/op"] = scope.per(state);
}
BENCHMARK(BM_Read_strtod);

void BM_Read_from_chars(benchmark::State& state) {
  const auto& t = texts();
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    const std::string& s = t[i++ & (kCount - 1)];
    double v = 0.0;
    std::from_chars(s.data(), s.data() + s.size(), v);
    benchmark::DoNotOptimize(v);
  }
  state.counters["allocs/op"] = scope.per(state);
}
BENCHMARK(BM_Read_from_chars);

// ---- writing: one function per peer, the form as the argument

constexpr char kLetters[] = {'f', 'e', 'g'};

void BM_Write_WriteNumber(benchmark::State& state) {
  const auto& v = values();
  const NumFormat f{kLetters[state.range(0)], 0, 0, 0, kPrecision};
  char buf[64];
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    int n = 0;
    WriteNumber(v[i++ & (kCount - 1)], f, buf, sizeof buf, nullptr, &n);
    benchmark::DoNotOptimize(buf);
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetLabel(std::string(1, f.letter));
}
BENCHMARK(BM_Write_WriteNumber)->DenseRange(0, 2);

void BM_Write_snprintf(benchmark::State& state) {
  const auto& v = values();
  const char* const formats[] = {"%.*f", "%.*e", "%.*g"};
  const char* fmt = formats[state.range(0)];
  char buf[64];
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    std::snprintf(buf, sizeof buf, fmt, kPrecision, v[i++ & (kCount - 1)]);
    benchmark::DoNotOptimize(buf);
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetLabel(std::string(1, kLetters[state.range(0)]));
}
BENCHMARK(BM_Write_snprintf)->DenseRange(0, 2);

void BM_Write_to_chars(benchmark::State& state) {
  const auto& v = values();
  const std::chars_format forms[] = {std::chars_format::fixed, std::chars_format::scientific,
                                     std::chars_format::general};
  const std::chars_format form = forms[state.range(0)];
  char buf[64];
  std::size_t i = 0;
  bench::AllocScope scope;
  for (auto _ : state) {
    std::to_chars(buf, buf + sizeof buf, v[i++ & (kCount - 1)], form, kPrecision);
    benchmark::DoNotOptimize(buf);
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetLabel(std::string(1, kLetters[state.range(0)]));
}
BENCHMARK(BM_Write_to_chars)->DenseRange(0, 2);

}  // namespace
