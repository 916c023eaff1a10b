// Calendar conversions against Howard Hinnant's date library, and the date
// kernel's throughput over all kinds.
//
// Method: each benchmark walks a fixed, pseudo-random sequence of 4096 day
// numbers spread over the whole day line (0 to 3652058), so that neither
// branch prediction nor a cache of recent years flatters either side. The
// Hinnant cases do the same conversion (days <-> year, month, day) through
// date::year_month_day and date::sys_days, shifted to our epoch. Without the
// library's header (Debian: libhowardhinnant-date-dev) those cases are
// skipped and the rest still builds.
#include <txCommon/internal.h>

#include <benchmark/benchmark.h>

#include "alloc_counter.h"

#include <array>
#include <cstdint>

#if __has_include(<date/date.h>)
#include <date/date.h>
#define TXC_BENCH_HAVE_HINNANT 1
#else
#define TXC_BENCH_HAVE_HINNANT 0
#endif

namespace {

constexpr int kSamples = 4096;

// A fixed linear congruential walk over the day line.
std::array<int, kSamples> make_days() {
  std::array<int, kSamples> days{};
  std::uint32_t x = 12345u;
  for (int& d : days) {
    x = x * 1664525u + 1013904223u;  // Numerical Recipes constants
    d = static_cast<int>(x % static_cast<std::uint32_t>(CDateMin::GREGDAY_MAX + 1));
  }
  return days;
}

const std::array<int, kSamples>& days() {
  static const std::array<int, kSamples> d = make_days();
  return d;
}

struct Ymd {
  int y, m, d;
};

const std::array<Ymd, kSamples>& dates() {
  static const std::array<Ymd, kSamples> out = [] {
    std::array<Ymd, kSamples> a{};
    for (int i = 0; i < kSamples; ++i) CDateMin::gregday_to_ymd(days()[i], a[i].y, a[i].m, a[i].d);
    return a;
  }();
  return out;
}

void BM_Txc_GregdayToYmd(benchmark::State& state) {
  const auto& in = days();
  int i = 0;
  for (auto _ : state) {
    int y, m, d;
    CDateMin::gregday_to_ymd(in[i], y, m, d);
    benchmark::DoNotOptimize(y);
    benchmark::DoNotOptimize(m);
    benchmark::DoNotOptimize(d);
    i = (i + 1) & (kSamples - 1);
  }
}
BENCHMARK(BM_Txc_GregdayToYmd);

void BM_Txc_YmdToGregday(benchmark::State& state) {
  const auto& in = dates();
  int i = 0;
  for (auto _ : state) {
    int day;
    benchmark::DoNotOptimize(CDateMin::ymd_to_gregday(day, in[i].y, in[i].m, in[i].d, false));
    benchmark::DoNotOptimize(day);
    i = (i + 1) & (kSamples - 1);
  }
}
BENCHMARK(BM_Txc_YmdToGregday);

#if TXC_BENCH_HAVE_HINNANT
// date::sys_days counts from 1970-01-01; our day 0 is 0001-01-01.
constexpr int kHinnantShift = 719162;

void BM_Hinnant_DaysToYmd(benchmark::State& state) {
  const auto& in = days();
  int i = 0;
  for (auto _ : state) {
    const date::year_month_day ymd{date::sys_days{date::days{in[i] - kHinnantShift}}};
    benchmark::DoNotOptimize(ymd);
    i = (i + 1) & (kSamples - 1);
  }
}
BENCHMARK(BM_Hinnant_DaysToYmd);

void BM_Hinnant_YmdToDays(benchmark::State& state) {
  const auto& in = dates();
  int i = 0;
  for (auto _ : state) {
    const date::year_month_day ymd{date::year{in[i].y}, date::month{static_cast<unsigned>(in[i].m)},
                                   date::day{static_cast<unsigned>(in[i].d)}};
    // ok() is part of the job: ymd_to_gregday validates its input too.
    benchmark::DoNotOptimize(ymd.ok());
    benchmark::DoNotOptimize(date::sys_days{ymd}.time_since_epoch().count() + kHinnantShift);
    i = (i + 1) & (kSamples - 1);
  }
}
BENCHMARK(BM_Hinnant_YmdToDays);
#endif

// date_split then date_make of one kind (range(0)) on the sample days; the
// clock kinds are pinned so they measure the conversion, not the system.
void BM_Kernel_SplitMake(benchmark::State& state) {
  const int kind = static_cast<int>(state.range(0));
  txc::platform::pin_clock(946684800u);
  txc::platform::pin_zone(0);
  const auto& in = days();
  int i = 0;
  const bench::AllocScope allocs;
  for (auto _ : state) {
    int a = 0, b = 0, c = 0;
    date_split(in[i], 43200000, kind, &a, &b, &c);
    int day = -1, tics = -1;
    benchmark::DoNotOptimize(date_make(day, tics, kind, a, b, c, false));
    benchmark::DoNotOptimize(day);
    i = (i + 1) & (kSamples - 1);
  }
  state.counters["allocs/op"] = allocs.per(state);
  txc::platform::unpin_clock();
  txc::platform::unpin_zone();
}
BENCHMARK(BM_Kernel_SplitMake)->DenseRange(DF_GREGDAY, DF_NOW_AGAIN);

void BM_Kernel_SplitMakeDouble(benchmark::State& state) {
  const int kind = static_cast<int>(state.range(0));
  txc::platform::pin_zone(0);
  const auto& in = days();
  int i = 0;
  for (auto _ : state) {
    double x;
    date_split_double(in[i], 43200000, kind, &x);
    int day = -1, tics = -1;
    benchmark::DoNotOptimize(date_make_double(day, tics, kind, x, 2000.0, 1.0));
    benchmark::DoNotOptimize(day);
    i = (i + 1) & (kSamples - 1);
  }
  txc::platform::unpin_zone();
}
BENCHMARK(BM_Kernel_SplitMakeDouble)
    ->Arg(DF_GREGDAY)->Arg(DF_JULIAN_DAY)->Arg(DF_COM_DATE)->Arg(DF_SERIAL_1900)
    ->Arg(DF_FRACTION_Q)->Arg(DF_SECONDS_0001)->Arg(DF_SECONDS_1970)->Arg(DF_SECONDS_LOCAL);

}  // namespace
