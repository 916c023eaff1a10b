// Observation numbers of a RegularFreq series: freq_index, freq_date and
// freq_period_of_year.
//
// A series counts periods of its frequency from its origin, groups them by
// `multiple`, and drops the periods that the cycles leave out. freq_index
// compresses a period count onto the observation scale (outer cycle first,
// then inner); freq_date expands an observation number back (inner, then
// outer) and steps the origin by the result.
#include <txCommon/internal.h>

#include "frequency_calendar.h"

#include <climits>
#include <cstdint>

namespace {

using txc::cal::floor_div;
using txc::cal::floor_mod;

// A record that can be evaluated: not empty, and no field that the
// arithmetic divides by is 0. Negative cycle lengths have no meaning either.
bool usable(const RegularFreq& f) {
  if (f.frequency == 0 || f.multiple == 0) return false;
  if (f.innerCycle == 0) return true;
  if (f.innerCycle < 0 || f.innerUsed <= 0) return false;
  if (f.outerCycle == 0) return true;
  return f.outerCycle > 0 && f.outerUsed > 0;
}

// Periods counted by `cycle` to the `used` of each: a period in the unused
// tail of a cycle moves to the first period of the next one.
// A record whose used count is above its cycle stretches the count instead;
// two such stretches in a row are held at a bound far beyond any 32-bit
// index, so that the product can't overflow.
std::int64_t compress(std::int64_t k, std::int64_t cycle, std::int64_t used) {
  std::int64_t q = floor_div(k, cycle);
  std::int64_t r = floor_mod(k, cycle);
  if (r >= used) {
    r = 0;
    ++q;
  }
  constexpr std::int64_t kBound = std::int64_t{1} << 62;
  if (q > kBound / used) return kBound;
  if (q < -(kBound / used)) return -kBound;
  return used * q + r;
}

// The inverse: observation k is used-period r of cycle q.
std::int64_t expand(std::int64_t k, std::int64_t cycle, std::int64_t used) {
  return cycle * floor_div(k, used) + floor_mod(k, used);
}

void set_invalid(int& day, int& tics) {
  day = -1;
  tics = -1;
}

}  // namespace

int freq_index(const RegularFreq& freq, int day, int tics, bool roundUp) {
  if (!usable(freq)) return INT_MIN;
  // A pair that date_diff can't count leaves 0 periods, and the index of the
  // origin follows from that like any other.
  int periods = 0;
  date_diff(periods, day, tics, freq.baseDay, freq.baseTics, freq.frequency, roundUp ? 3 : 2,
            nullptr);
  std::int64_t k = periods;
  if (freq.multiple != 1) {
    const std::int64_t rest = k % freq.multiple;
    k /= freq.multiple;
    if (roundUp && rest > 0) ++k;
    if (!roundUp && rest < 0) --k;
  }
  if (freq.innerCycle != 0) {
    if (freq.outerCycle != 0) k = compress(k, freq.outerCycle, freq.outerUsed);
    k = compress(k, freq.innerCycle, freq.innerUsed);
  }
  k -= freq.firstIndex;
  // INT_MIN stands for "no index", so a count that far down is held one above.
  if (k > INT_MAX) return INT_MAX;
  if (k <= INT_MIN) return INT_MIN + 1;
  return static_cast<int>(k);
}

void freq_date(const RegularFreq& freq, int index, int& day, int& tics) {
  if (!usable(freq)) return set_invalid(day, tics);
  // Each step keeps |k| below 2^32, so that the next product (a 31-bit
  // factor) stays inside 64 bits; date_add takes a 32-bit count in the end.
  const auto fits = [](std::int64_t v) { return v >= INT_MIN && v <= INT_MAX; };
  std::int64_t k = static_cast<std::int64_t>(freq.firstIndex) + index;
  if (freq.innerCycle != 0) {
    k = expand(k, freq.innerCycle, freq.innerUsed);
    if (!fits(k)) return set_invalid(day, tics);
    if (freq.outerCycle != 0) k = expand(k, freq.outerCycle, freq.outerUsed);
  }
  if (!fits(k)) return set_invalid(day, tics);
  k *= freq.multiple;
  if (!fits(k)) return set_invalid(day, tics);
  day = freq.baseDay;
  tics = freq.baseTics;
  if (!date_add(day, tics, freq.frequency, static_cast<int>(k))) set_invalid(day, tics);
}

bool freq_period_of_year(const RegularFreq& freq, int& day, int& tics, int year, int n,
                         bool addCentury) {
  if (!usable(freq)) {
    set_invalid(day, tics);
    return false;
  }
  if (addCentury && year < 100) year = CDateMin::add_century(year);
  if (year < 1 || year > 9999) {
    set_invalid(day, tics);
    return false;
  }
  const int first = freq_index(freq, txc::cal::day_of(year, 1, 1), 0, true);
  if (first == INT_MIN) {
    set_invalid(day, tics);
    return false;
  }
  const std::int64_t index = static_cast<std::int64_t>(first) + n - 1;
  if (index > INT_MAX || index < INT_MIN) {
    set_invalid(day, tics);
    return false;
  }
  freq_date(freq, static_cast<int>(index), day, tics);
  if (day < 0) return false;
  return txc::cal::year_of(day) <= year;
}
