// Internal to the frequency and date text code: the few calendar steps they
// need, on days already known to be in range (so without the range reports
// of the exported CDateMin conversions), over the kernel's own helpers.
//
// The day line: day 0 is 1 January of the year 1 (a Monday), day 3652058 is
// 31 December 9999, proleptic Gregorian throughout.
#pragma once

#include <txCommon/internal/date_kernel.h>

#include <cstdint>

namespace txc::cal {

inline constexpr int kTicsPerDay = 86400000;
inline constexpr int kLastDay = 3652058;

// Floor division and its non-negative remainder, for b > 0.
constexpr std::int64_t floor_div(std::int64_t a, std::int64_t b) {
  const std::int64_t q = a / b;
  return (a % b < 0) ? q - 1 : q;
}
constexpr std::int64_t floor_mod(std::int64_t a, std::int64_t b) {
  const std::int64_t r = a % b;
  return r < 0 ? r + b : r;
}

// Days of month 1 to 12 of year 1 to 9999.
inline int month_length(int year, int month) { return month_days(year, month); }

// A calendar date that exists, to its day number.
inline int day_of(int year, int month, int dayOfMonth) {
  return txc::days_before_year(year) + txc::month_table(year)[month - 1] - 1 + dayOfMonth - 1;
}

// Year of a day 0 to kLastDay.
inline int year_of(int day) {
  int year = 0, yddd = 0;
  txc::gregday_to_yddd_unchecked(day, year, yddd);
  return year;
}

// Calendar date of a day 0 to kLastDay.
inline void ymd_of(int day, int& year, int& month, int& dayOfMonth) {
  int yddd = 0;
  txc::gregday_to_yddd_unchecked(day, year, yddd);
  CDateMin::yddd_to_ymd(year, yddd, month, dayOfMonth);
}

}  // namespace txc::cal
