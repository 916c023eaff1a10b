// Date text and frequency arithmetic.
//
// Method: parse_date_text reads a mix of hand-written forms, each of which it
// must recognise by itself; the peers get the one fixed format that each
// text needs (strptime with a format string per sample, and Howard Hinnant's
// date::parse with the same format when <date/date.h> is installed), so they
// do less work than the parser, which also decides the form. date_add and
// date_diff run per frequency on a fixed set of days with counts of all sizes:
// the closed form must cost the same for n of 1 and of 100000.
#include "alloc_counter.h"

#include <txCommon/internal.h>

#include <benchmark/benchmark.h>

#include <ctime>
#include <sstream>
#include <string>
#include <vector>

#if __has_include(<date/date.h>)
#include <date/date.h>
#define TXC_BENCH_HAVE_HINNANT 1
#else
#define TXC_BENCH_HAVE_HINNANT 0
#endif

namespace {

struct Sample {
  const char* text;
  const char* format;  // what a fixed-format reader needs for it
};

const Sample kSamples[] = {
    {"1990-01-15", "%Y-%m-%d"},
    {"1/15/1990", "%m/%d/%Y"},
    {"15 Jan 1990", "%d %b %Y"},
    {"1990-01-15T10:30:00", "%Y-%m-%dT%H:%M:%S"},
    {"1/15/1990 10:30:15", "%m/%d/%Y %H:%M:%S"},
    {"10:30:15", "%H:%M:%S"},
};

void BM_ParseDateText_Mix(benchmark::State& state) {
  const bench::AllocScope allocs;
  std::size_t i = 0;
  for (auto _ : state) {
    int day, tics, frequency, step;
    const bool ok = parse_date_text(day, tics, frequency, step, kSamples[i].text, -1, nullptr, 0,
                                    nullptr, kDefaultDateHint);
    benchmark::DoNotOptimize(ok);
    benchmark::DoNotOptimize(day);
    i = (i + 1) % std::size(kSamples);
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_ParseDateText_Mix);

// The forms only this parser reads: periods, ordinals, zones, am/pm.
void BM_ParseDateText_OwnForms(benchmark::State& state) {
  const char* texts[] = {"1990Q3", "Jan 1990", "15th January 1990", "1/15/90 10:30 EST",
                         "3:15pm ", "123190"};
  std::size_t i = 0;
  for (auto _ : state) {
    int day, tics, frequency, step;
    benchmark::DoNotOptimize(parse_date_text(day, tics, frequency, step, texts[i], -1, nullptr,
                                             0, nullptr, kDefaultDateHint));
    i = (i + 1) % std::size(texts);
  }
}
BENCHMARK(BM_ParseDateText_OwnForms);

void BM_Strptime_FixedFormat(benchmark::State& state) {
  const bench::AllocScope allocs;
  std::size_t i = 0;
  for (auto _ : state) {
    std::tm tm{};
    benchmark::DoNotOptimize(strptime(kSamples[i].text, kSamples[i].format, &tm));
    benchmark::DoNotOptimize(tm);
    i = (i + 1) % std::size(kSamples);
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_Strptime_FixedFormat);

#if TXC_BENCH_HAVE_HINNANT
void BM_HinnantDateParse_FixedFormat(benchmark::State& state) {
  const bench::AllocScope allocs;
  std::size_t i = 0;
  std::istringstream in;
  for (auto _ : state) {
    in.clear();
    in.str(kSamples[i].text);
    date::sys_time<std::chrono::seconds> t{};
    in >> date::parse(kSamples[i].format, t);
    benchmark::DoNotOptimize(t);
    i = (i + 1) % std::size(kSamples);
  }
  state.counters["allocs/op"] = allocs.per(state);
}
BENCHMARK(BM_HinnantDateParse_FixedFormat);
#endif

// A long text: the parser stops at the first byte that can't be a date.
void BM_ParseDateText_LongPrefix(benchmark::State& state) {
  std::string text = "1/15/1990 10:30 EST ";
  text += std::string(static_cast<std::size_t>(state.range(0)), 'x');
  for (auto _ : state) {
    int day, tics, frequency, step, used;
    benchmark::DoNotOptimize(parse_date_text(day, tics, frequency, step, text.c_str(),
                                             static_cast<int>(text.size()), &used, 1, nullptr,
                                             kDefaultDateHint));
  }
}
BENCHMARK(BM_ParseDateText_LongPrefix)->Arg(0)->Arg(1 << 20);

// Days spread over the calendar, counts from 1 to 100000 periods.
std::vector<int> sample_days() {
  std::vector<int> days;
  for (int d = 3; d < CDateMin::GREGDAY_MAX; d += 36529) days.push_back(d);
  return days;
}

void BM_DateAdd(benchmark::State& state) {
  const int frequency = static_cast<int>(state.range(0));
  const int n = static_cast<int>(state.range(1));
  const std::vector<int> days = sample_days();
  std::size_t i = 0;
  for (auto _ : state) {
    int day = days[i], tics = 43200000;
    benchmark::DoNotOptimize(date_add(day, tics, frequency, (i & 1) ? n : -n));
    benchmark::DoNotOptimize(day);
    i = (i + 1) % days.size();
  }
  state.SetLabel(std::to_string(frequency) + " n=" + std::to_string(n));
}
BENCHMARK(BM_DateAdd)->ArgsProduct({{1, 3, 4, 5, 7, 9, 10, 11, 12, 15, 16}, {1, 100000}});

void BM_DateDiff(benchmark::State& state) {
  const int frequency = static_cast<int>(state.range(0));
  const std::vector<int> days = sample_days();
  std::size_t i = 0;
  for (auto _ : state) {
    int result = 0;
    const int a = days[i], b = days[(i + 7) % days.size()];
    benchmark::DoNotOptimize(date_diff(result, a, 1000, b, 2000, frequency, 3, nullptr));
    benchmark::DoNotOptimize(result);
    i = (i + 1) % days.size();
  }
}
BENCHMARK(BM_DateDiff)->DenseRange(1, 15);

}  // namespace
