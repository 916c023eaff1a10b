// Editing against the std::string way of doing the same work.
//
// Method: each pair runs the same input through vstring and through the
// obvious std::string code, one operation per iteration, on a statement-sized
// text (80 bytes) and a long one (16 KB for replace_mult, whose result grows
// by half; 64 KB for trim), both within the scratch buffer so that both sides
// do the whole work. The vstring side copies its input into a
// reused string first, as callers do; the std::string side copies into a
// reused std::string. allocs/op counts calls of the system allocator.
//
//   BM_ReplaceMult_vstring / BM_ReplaceMult_std   every "X" by "LOG(X)"
//   BM_Trim_vstring / BM_Trim_std                 blanks off both ends
#include "alloc_counter.h"

#include <txCommon/txCommon.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

// A statement with a name to replace every few bytes, `len` bytes long.
std::string statement(std::size_t len) {
  const std::string piece = "genr Y = X + 2*X(-1) ";
  std::string s;
  while (s.size() < len) s += piece;
  s.resize(len);
  return s;
}

std::string padded(std::size_t len) { return "   \t" + statement(len) + " \t  "; }

void BM_ReplaceMult_vstring(benchmark::State& state) {
  const std::string text = statement(static_cast<std::size_t>(state.range(0)));
  const vstring from("X"), to("LOG(X)");
  vstring s;
  bench::AllocScope scope;
  for (auto _ : state) {
    s.put(text.c_str());
    s.replace_mult(from, to, 9999999, 0);
    benchmark::DoNotOptimize(s.optr());
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * state.range(0));
}

void BM_ReplaceMult_std(benchmark::State& state) {
  const std::string text = statement(static_cast<std::size_t>(state.range(0)));
  const std::string from = "X", to = "LOG(X)";
  std::string s, out;
  bench::AllocScope scope;
  for (auto _ : state) {
    s = text;
    out.clear();
    std::size_t at = 0;
    for (std::size_t p; (p = s.find(from, at)) != std::string::npos; at = p + from.size()) {
      out.append(s, at, p - at);
      out += to;
    }
    out.append(s, at, std::string::npos);
    s.swap(out);
    benchmark::DoNotOptimize(s.data());
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * state.range(0));
}

void BM_Trim_vstring(benchmark::State& state) {
  const vstring text(padded(static_cast<std::size_t>(state.range(0))).c_str());
  bench::AllocScope scope;
  for (auto _ : state) {
    vstring& t = text.trim(0);
    benchmark::DoNotOptimize(t.optr());
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * state.range(0));
}

void BM_Trim_std(benchmark::State& state) {
  const std::string text = padded(static_cast<std::size_t>(state.range(0)));
  std::string t;
  bench::AllocScope scope;
  for (auto _ : state) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    if (first == std::string::npos) {
      t.clear();
    } else {
      t.assign(text, first, last - first + 1);
    }
    benchmark::DoNotOptimize(t.data());
  }
  state.counters["allocs/op"] = scope.per(state);
  state.SetBytesProcessed(static_cast<long long>(state.iterations()) * state.range(0));
}

BENCHMARK(BM_ReplaceMult_vstring)->Arg(80)->Arg(16384);
BENCHMARK(BM_ReplaceMult_std)->Arg(80)->Arg(16384);
BENCHMARK(BM_Trim_vstring)->Arg(80)->Arg(65536);
BENCHMARK(BM_Trim_std)->Arg(80)->Arg(65536);

}  // namespace
