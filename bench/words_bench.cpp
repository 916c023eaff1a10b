// Word lists against the standard-container way of doing the same work.
//
// Method: lists of names as a statement holds them (upper-case series names
// of 2 to 8 bytes, one blank between, a name in eight repeated) at three
// sizes: a short list (about 60 bytes), a long option line (about 4 KB) and
// a block of about 256 KB. Each pair answers the same question on the same
// bytes, one operation per iteration. Peers:
//   WCount                  std::istringstream >> std::string, counting
//   WMid(n/2, 10)           std::istringstream, skipping to word n/2
//   WUnique / WUnion /      std::istringstream into std::unordered_set
//   WIntersect / WNotIn     <std::string>, the result joined by one blank
// The std side splits at white space only (no quotes, no parentheses), so it
// does less than the word rule; the lists hold neither, so the answers agree.
// allocs/op counts calls of the system allocator: the word table's entries
// and its tracked bucket array are among them, the spool's block too (no
// host is registered).
#include "alloc_counter.h"

#include <txCommon/txCommon.h>

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>
#include <unordered_set>

namespace {

// About `size` bytes of names; `salt` shifts the names so that two lists
// overlap in part.
std::string name_list(std::size_t size, int salt) {
  std::string text;
  for (int i = 0; text.size() < size; ++i) {
    const int id = (i % 8 == 7) ? i / 2 : i + salt;  // every eighth repeats
    if (!text.empty()) text += ' ';
    text += "S";
    text += std::to_string(id * 37 % 100000);
  }
  return text;
}

void SizeArgs(benchmark::internal::Benchmark* b) { b->Arg(60)->Arg(4096)->Arg(256 * 1024); }

std::string joined(const std::unordered_set<std::string>& seen, const std::string& text,
                   bool (*keep)(const std::unordered_set<std::string>&, const std::string&)) {
  std::istringstream in(text);
  std::unordered_set<std::string> emitted;
  std::string out;
  for (std::string w; in >> w;) {
    if (!keep(seen, w) || !emitted.insert(w).second) continue;
    if (!out.empty()) out += ' ';
    out += w;
  }
  return out;
}

// ---- counting and positions -------------------------------------------------

void BM_WCount(benchmark::State& state) {
  const vstring list(name_list(static_cast<std::size_t>(state.range(0)), 0).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(list.WCount());
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_WCount)->Apply(SizeArgs);

void BM_Istringstream_Count(benchmark::State& state) {
  const std::string list = name_list(static_cast<std::size_t>(state.range(0)), 0);
  bench::AllocScope allocs;
  for (auto _ : state) {
    std::istringstream in(list);
    int n = 0;
    for (std::string w; in >> w;) ++n;
    benchmark::DoNotOptimize(n);
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Istringstream_Count)->Apply(SizeArgs);

void BM_WMid(benchmark::State& state) {
  const vstring list(name_list(static_cast<std::size_t>(state.range(0)), 0).c_str());
  const int middle = list.WCount() / 2 + 1;
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(list.WMid(middle, 10).len());
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_WMid)->Apply(SizeArgs);

void BM_Istringstream_Mid(benchmark::State& state) {
  const std::string list = name_list(static_cast<std::size_t>(state.range(0)), 0);
  const int middle = vstring(list.c_str()).WCount() / 2 + 1;
  bench::AllocScope allocs;
  for (auto _ : state) {
    std::istringstream in(list);
    std::string w;
    for (int skip = middle - 1; skip > 0 && in >> w; --skip) {
    }
    std::string out;
    for (int n = 0; n < 10 && in >> w; ++n) {
      if (!out.empty()) out += ' ';
      out += w;
    }
    benchmark::DoNotOptimize(out.size());
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Istringstream_Mid)->Apply(SizeArgs);

// ---- set operations ---------------------------------------------------------

enum class SetOp { Unique, Union, Intersect, NotIn };

const vstring& run_vstring(SetOp op, const vstring& a, const vstring& b) {
  switch (op) {
    case SetOp::Unique: return a.WUnique();
    case SetOp::Union: return a.WUnion(b);
    case SetOp::Intersect: return a.WIntersect(b);
    case SetOp::NotIn: return a.WNotIn(b);
  }
  return a;
}

std::string run_std(SetOp op, const std::string& a, const std::string& b) {
  const auto any = [](const std::unordered_set<std::string>&, const std::string&) { return true; };
  const auto in = [](const std::unordered_set<std::string>& s, const std::string& w) { return s.count(w) != 0; };
  const auto out = [](const std::unordered_set<std::string>& s, const std::string& w) { return s.count(w) == 0; };
  const std::unordered_set<std::string> none;
  switch (op) {
    case SetOp::Unique: return joined(none, a, any);
    case SetOp::Union: return joined(none, a + " " + b, any);
    case SetOp::Intersect:
    case SetOp::NotIn: {
      std::unordered_set<std::string> other;
      std::istringstream words(b);
      for (std::string w; words >> w;) other.insert(w);
      return joined(other, a, op == SetOp::Intersect ? +in : +out);
    }
  }
  return {};
}

template <SetOp Op>
void BM_Vstring_Set(benchmark::State& state) {
  const std::size_t size = static_cast<std::size_t>(state.range(0));
  const vstring a(name_list(size, 0).c_str());
  const vstring b(name_list(size, 5).c_str());
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(run_vstring(Op, a, b).len());
  state.counters["allocs/op"] = allocs.per(state);
}

template <SetOp Op>
void BM_Std_Set(benchmark::State& state) {
  const std::size_t size = static_cast<std::size_t>(state.range(0));
  const std::string a = name_list(size, 0);
  const std::string b = name_list(size, 5);
  bench::AllocScope allocs;
  for (auto _ : state) benchmark::DoNotOptimize(run_std(Op, a, b).size());
  state.counters["allocs/op"] = allocs.per(state);
}

BENCHMARK_TEMPLATE(BM_Vstring_Set, SetOp::Unique)->Name("BM_WUnique")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Std_Set, SetOp::Unique)->Name("BM_UnorderedSet_Unique")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Vstring_Set, SetOp::Union)->Name("BM_WUnion")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Std_Set, SetOp::Union)->Name("BM_UnorderedSet_Union")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Vstring_Set, SetOp::Intersect)->Name("BM_WIntersect")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Std_Set, SetOp::Intersect)->Name("BM_UnorderedSet_Intersect")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Vstring_Set, SetOp::NotIn)->Name("BM_WNotIn")->Apply(SizeArgs);
BENCHMARK_TEMPLATE(BM_Std_Set, SetOp::NotIn)->Name("BM_UnorderedSet_NotIn")->Apply(SizeArgs);

}  // namespace
