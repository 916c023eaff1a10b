// wildcardMatch against POSIX fnmatch on the same names and patterns.
//
// Method: 4096 series names as a statement holds them (upper-case letters,
// digits and `_`, 3 to 24 bytes, fixed seed), matched one after the other
// against one pattern per benchmark, one full pass over the names per
// iteration. The patterns are the shapes users write: a prefix (`GDP_*`), a
// suffix (`*_SA`), an inner part (`*_Q*`), single-byte holes (`X??_?`) and a
// pattern of several stars that makes a matcher search (`*A*B*C*_9`).
// fnmatch runs with FNM_NOESCAPE and no other flag, where it follows the same
// rule on `*` and `?`; the counts of matches are checked equal before timing.
// Both allocate nothing; allocs/op shows that.
#include "alloc_counter.h"

#include <txCommon/internal.h>

#include <benchmark/benchmark.h>

#include <fnmatch.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

const std::vector<std::string>& names() {
  static const std::vector<std::string> list = [] {
    const char bytes[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789__";
    const char* heads[] = {"GDP_", "CPI_", "X12_", "", "", ""};
    const char* tails[] = {"_SA", "_Q1", "", "", "_9"};
    std::mt19937 gen(4711);
    std::vector<std::string> out;
    for (int i = 0; i < 4096; ++i) {
      std::string n = heads[gen() % 6];
      const int body = 3 + static_cast<int>(gen() % 14);
      for (int k = 0; k < body; ++k) n += bytes[gen() % (sizeof bytes - 1)];
      n += tails[gen() % 5];
      out.push_back(n);
    }
    return out;
  }();
  return list;
}

const char* const kPatterns[] = {"GDP_*", "*_SA", "*_Q*", "X??_?*", "*A*B*C*_9"};

int count_ours(const char* pattern) {
  const int plen = static_cast<int>(std::char_traits<char>::length(pattern));
  int n = 0;
  for (const std::string& s : names())
    n += wildcardMatch(s.data(), static_cast<int>(s.size()), pattern, plen) ? 1 : 0;
  return n;
}

int count_fnmatch(const char* pattern) {
  int n = 0;
  for (const std::string& s : names()) n += fnmatch(pattern, s.c_str(), FNM_NOESCAPE) == 0 ? 1 : 0;
  return n;
}

void check_agreement(benchmark::State& state, const char* pattern) {
  if (count_ours(pattern) != count_fnmatch(pattern)) state.SkipWithError("matchers disagree");
}

void BM_WildcardMatch(benchmark::State& state) {
  const char* pattern = kPatterns[state.range(0)];
  check_agreement(state, pattern);
  state.SetLabel(pattern);
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(count_ours(pattern));
  state.counters["allocs/op"] = allocs.per(state);
  state.SetItemsProcessed(state.iterations() * static_cast<long long>(names().size()));
}

void BM_Fnmatch(benchmark::State& state) {
  const char* pattern = kPatterns[state.range(0)];
  check_agreement(state, pattern);
  state.SetLabel(pattern);
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(count_fnmatch(pattern));
  state.counters["allocs/op"] = allocs.per(state);
  state.SetItemsProcessed(state.iterations() * static_cast<long long>(names().size()));
}

BENCHMARK(BM_WildcardMatch)->DenseRange(0, 4);
BENCHMARK(BM_Fnmatch)->DenseRange(0, 4);

}  // namespace
