// Search, comparison and hashing of vstring against the <cstring> and
// std::string way of doing the same work, in one run.
//
// Method: each pair runs the same question on the same bytes. The texts are
// statement-like (upper-case names, blanks, operators) at three sizes: a
// short command (about 40 bytes), a long equation line (about 1 KB) and a
// block far beyond the scratch buffer (256 KB). Needles sit near the end so a
// search crosses the whole text. Peers:
//   vstring::instr       strstr, std::string::find
//   vstring::rinstr      std::string::rfind
//   vstring::compare     strcmp
//   vstring::compareX    strcasecmp (+ strcmp on a tie, as compareX does)
//   vstring::hash        std::hash<std::string_view>
// Every benchmark reports allocator calls per operation; none of these
// should allocate.
#include "alloc_counter.h"

#include <txCommon/txCommon.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <string_view>
#include <strings.h>

namespace {

// A statement-like text of about `size` bytes that ends in the needle.
std::string statement_text(std::size_t size) {
  static const char* const kWords[] = {"GENR", "X1", "=", "LOG(Y)", "+", "0.5*Z", "SERIES"};
  std::string text;
  for (std::size_t i = 0; text.size() < size; ++i) {
    text += kWords[i % 7];
    text += ' ';
  }
  text += "TARGET";
  return text;
}

constexpr const char* kNeedle = "TARGET";

void SizeArgs(benchmark::internal::Benchmark* b) { b->Arg(40)->Arg(1024)->Arg(256 * 1024); }

// ---- find -------------------------------------------------------------------

void BM_Vstring_Instr(benchmark::State& state) {
  const vstring text(statement_text(static_cast<std::size_t>(state.range(0))).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.instr(kNeedle, 1, 0));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_Instr)->Apply(SizeArgs);

void BM_Strstr(benchmark::State& state) {
  const std::string text = statement_text(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(std::strstr(text.c_str(), kNeedle));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Strstr)->Apply(SizeArgs);

void BM_StdString_Find(benchmark::State& state) {
  const std::string text = statement_text(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.find(kNeedle));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_StdString_Find)->Apply(SizeArgs);

// rinstr checks the places a match may start from the back, as rfind does.
void BM_Vstring_Rinstr(benchmark::State& state) {
  const vstring text(statement_text(static_cast<std::size_t>(state.range(0))).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.rinstr("GENR", 1, 0));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_Rinstr)->Apply(SizeArgs);

void BM_StdString_Rfind(benchmark::State& state) {
  const std::string text = statement_text(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.rfind("GENR"));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_StdString_Rfind)->Apply(SizeArgs);

void BM_Vstring_InstrByte(benchmark::State& state) {
  const vstring text(statement_text(static_cast<std::size_t>(state.range(0))).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.instr('T'));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_InstrByte)->Apply(SizeArgs);

void BM_Strchr(benchmark::State& state) {
  const std::string text = statement_text(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(std::strchr(text.c_str(), 'T'));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Strchr)->Apply(SizeArgs);

// ---- compare ------------------------------------------------------------------

// Two equal texts but for the last byte: the scan crosses all of it.
std::pair<std::string, std::string> near_twins(std::size_t size) {
  std::string a = statement_text(size);
  std::string b = a;
  b.back() = 'X';
  return {a, b};
}

void BM_Vstring_Compare(benchmark::State& state) {
  const auto [a, b] = near_twins(static_cast<std::size_t>(state.range(0)));
  const vstring va(a.c_str()), vb(b.c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(va.compare(vb));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_Compare)->Apply(SizeArgs);

void BM_Strcmp(benchmark::State& state) {
  const auto [a, b] = near_twins(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(std::strcmp(a.c_str(), b.c_str()));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Strcmp)->Apply(SizeArgs);

void BM_Vstring_CompareX(benchmark::State& state) {
  const auto [a, b] = near_twins(static_cast<std::size_t>(state.range(0)));
  const vstring va(a.c_str()), vb(b.c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(va.compareX(vb));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_CompareX)->Apply(SizeArgs);

void BM_Strcasecmp(benchmark::State& state) {
  const auto [a, b] = near_twins(static_cast<std::size_t>(state.range(0)));
  bench::AllocScope allocs;
  for (auto _ : state) {
    int r = strcasecmp(a.c_str(), b.c_str());
    if (r == 0) r = std::strcmp(a.c_str(), b.c_str());
    benchmark::DoNotOptimize(r);
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Strcasecmp)->Apply(SizeArgs);

// ---- hash -----------------------------------------------------------------------

void BM_Vstring_Hash(benchmark::State& state) {
  const vstring text(statement_text(static_cast<std::size_t>(state.range(0))).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(text.hash());
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Vstring_Hash)->Apply(SizeArgs);

void BM_StdHash(benchmark::State& state) {
  const std::string text = statement_text(static_cast<std::size_t>(state.range(0)));
  const std::hash<std::string_view> hasher;
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(hasher(text));
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_StdHash)->Apply(SizeArgs);

}  // namespace
