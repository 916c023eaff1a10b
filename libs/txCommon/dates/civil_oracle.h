// Test support: an independent proleptic Gregorian calendar, written from
// Howard Hinnant's published days_from_civil / civil_from_days algorithms.
// They count on a 1970 epoch with years that begin in March, so they share no
// step with the library's 1 January cycles. Only the date tests include this.
#pragma once

#include <cstdint>

namespace oracle {

struct Civil {
  int year, month, day;
};

// Days since 1970-01-01 of a proleptic Gregorian date.
inline std::int64_t days_from_civil(std::int64_t y, int m, int d) {
  y -= m <= 2 ? 1 : 0;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yoe = y - era * 400;                              // 0..399
  const std::int64_t doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;  // 0..365
  const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;     // 0..146096
  return era * 146097 + doe - 719468;
}

inline Civil civil_from_days(std::int64_t z) {
  z += 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const std::int64_t doe = z - era * 146097;
  const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const std::int64_t mp = (5 * doy + 2) / 153;
  const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  return {static_cast<int>(yoe + era * 400 + (m <= 2 ? 1 : 0)), m, d};
}

inline constexpr std::int64_t kOracleDay0 = -719162;  // 0001-01-01 in days since 1970

inline int day(int y, int m, int d) { return static_cast<int>(days_from_civil(y, m, d) - kOracleDay0); }
inline Civil civil(int n) { return civil_from_days(n + kOracleDay0); }
// 1970-01-01 was a Thursday.
inline int weekday(int n) {
  const std::int64_t z = n + kOracleDay0;
  return static_cast<int>(((z % 7) + 7 + 3) % 7) + 1;
}
// ISO week: the week's Thursday decides the year.
inline void isoweek(int n, int& isoYear, int& isoWeek) {
  const int thursday = n - weekday(n) + 4;
  const Civil c = civil(thursday);
  isoYear = c.year;
  isoWeek = (thursday - day(c.year, 1, 1)) / 7 + 1;
}

}  // namespace oracle
