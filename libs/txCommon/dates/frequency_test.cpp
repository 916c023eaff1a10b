// Frequency arithmetic against a brute-force oracle that steps one period at
// a time on the exported calendar (CDateMin), plus the fixed cases of each
// operation and hostile counts and records.
#include <txCommon/internal.h>

#include "frequency_calendar.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <random>

namespace {

constexpr int kDay = 86400000;

int ymd(int y, int m, int d) {
  int day = -1;
  EXPECT_TRUE(CDateMin::ymd_to_gregday(day, y, m, d, false)) << y << "-" << m << "-" << d;
  return day;
}

bool weekend(int day) { return day % 7 >= 5; }

// ---- the oracle: one period at a time

// Months stepped one at a time; false when the day of the month is missing.
bool oracle_add_months(int& day, int months) {
  int y, m, d;
  CDateMin::gregday_to_ymd(day, y, m, d);
  for (int i = 0; i < (months < 0 ? -months : months); ++i) {
    m += months < 0 ? -1 : 1;
    if (m == 0) m = 12, --y;
    if (m == 13) m = 1, ++y;
  }
  int out = -1;
  if (y < 1 || y > 9999 || !CDateMin::ymd_to_gregday(out, y, m, d, false)) return false;
  day = out;
  return true;
}

int oracle_add_business(int day, int n) {
  while (weekend(day)) ++day;
  for (int i = 0; i < (n < 0 ? -n : n); ++i) {
    do {
      day += n < 0 ? -1 : 1;
    } while (weekend(day));
  }
  return day;
}

// Months in one period of the month frequencies, days of the day ones.
int months_of(int frequency) {
  switch (frequency) {
    case FREQ_ANNUAL: return 12;
    case FREQ_SEMIANNUAL: return 6;
    case FREQ_QUARTERLY: return 3;
    default: return 1;
  }
}
int days_of(int frequency) { return frequency == FREQ_WEEKLY ? 7 : frequency == FREQ_FORTNIGHT ? 14 : 1; }
bool month_based(int frequency) { return frequency <= FREQ_MONTHLY; }

// The date k periods after (day, tics), by the oracle.
bool oracle_step(int frequency, int day, int k, int& out) {
  out = day;
  if (month_based(frequency)) return oracle_add_months(out, k * months_of(frequency));
  if (frequency == FREQ_BUSINESS_DAY) {
    out = oracle_add_business(day, k);
    return true;
  }
  out = day + k * days_of(frequency);
  return true;
}

bool not_after(int day1, int tics1, int day2, int tics2) {
  return day1 < day2 || (day1 == day2 && tics1 <= tics2);
}

// Periods from (d2, t2) to (d1, t1): floor and ceiling by stepping.
void oracle_diff(int frequency, int d1, int t1, int d2, int t2, int& floorCount, int& ceilCount) {
  int k = 0, at = 0;
  if (not_after(d2, t2, d1, t1)) {
    while (oracle_step(frequency, d2, k + 1, at) && not_after(at, t2, d1, t1)) ++k;
    floorCount = k;
    oracle_step(frequency, d2, k, at);
    ceilCount = (at == d1 && t2 == t1) ? k : k + 1;
  } else {
    while (oracle_step(frequency, d2, k - 1, at) && !not_after(at, t2, d1, t1)) --k;
    floorCount = k - 1;  // step k - 1 is the first not after the first date
    oracle_step(frequency, d2, k - 1, at);
    ceilCount = (at == d1 && t2 == t1) ? k - 1 : k;
  }
}

TEST(FrequencyCalendar, PrivateCalendarAgreesWithCDateMinEveryDay) {
  const int step = TXCOMMON_EXHAUSTIVE ? 1 : 97;
  for (int day = 0; day <= CDateMin::GREGDAY_MAX; day += step) {
    int y, m, d, y2, m2, d2;
    CDateMin::gregday_to_ymd(day, y, m, d);
    txc::cal::ymd_of(day, y2, m2, d2);
    if (y != y2 || m != m2 || d != d2 || txc::cal::day_of(y, m, d) != day) {
      FAIL() << "day " << day;
    }
  }
}

TEST(DateAdd, AgreesWithSteppingOracle) {
  std::mt19937 rng(20240601);
  const int frequencies[] = {FREQ_ANNUAL, FREQ_SEMIANNUAL, FREQ_QUARTERLY, FREQ_MONTHLY,
                             FREQ_FORTNIGHT, FREQ_WEEKLY, FREQ_BUSINESS_DAY, FREQ_DAILY};
  std::uniform_int_distribution<int> anyDay(0, CDateMin::GREGDAY_MAX);
  std::uniform_int_distribution<int> anyTics(0, kDay - 1);
  const int rounds = TXCOMMON_EXHAUSTIVE ? 20000 : 2000;
  for (const int frequency : frequencies) {
    const int reach = month_based(frequency) ? 600 / months_of(frequency) : 3000;
    std::uniform_int_distribution<int> anyN(-reach, reach);
    for (int i = 0; i < rounds; ++i) {
      const int start = anyDay(rng), tics0 = anyTics(rng), n = anyN(rng);
      int expected = 0;
      const bool ok = oracle_step(frequency, start, n, expected) && expected >= 0 &&
                      expected <= CDateMin::GREGDAY_MAX;
      int day = start, tics = tics0;
      const bool got = date_add(day, tics, frequency, n);
      if (ok != got || (ok && (day != expected || tics != tics0))) {
        ADD_FAILURE() << "frequency " << frequency << " day " << start << " n " << n
                      << ": oracle " << ok << " " << expected << ", got " << got << " "
                      << day << " " << tics;
        return;
      }
    }
  }
}

TEST(DateDiff, AgreesWithSteppingOracle) {
  std::mt19937 rng(7);
  const int frequencies[] = {FREQ_ANNUAL, FREQ_SEMIANNUAL, FREQ_QUARTERLY, FREQ_MONTHLY,
                             FREQ_FORTNIGHT, FREQ_WEEKLY, FREQ_BUSINESS_DAY, FREQ_DAILY};
  const int rounds = TXCOMMON_EXHAUSTIVE ? 5000 : 500;
  for (const int frequency : frequencies) {
    const int reach = month_based(frequency) ? 3000 : 800;
    std::uniform_int_distribution<int> anyDay(100000, 3000000), offset(-reach, reach);
    std::uniform_int_distribution<int> anyTics(0, kDay - 1);
    for (int i = 0; i < rounds; ++i) {
      int d1 = anyDay(rng), d2 = d1 + offset(rng);
      // Month steps are unambiguous only from days that every month has;
      // business days are counted here between weekdays at midnight.
      int t1 = anyTics(rng), t2 = anyTics(rng);
      if (month_based(frequency)) {
        int y, m, d;
        CDateMin::gregday_to_ymd(d1, y, m, d);
        if (d > 28) d1 -= d - 28;
        CDateMin::gregday_to_ymd(d2, y, m, d);
        if (d > 28) d2 -= d - 28;
      }
      if (frequency == FREQ_BUSINESS_DAY) {
        while (weekend(d1)) ++d1;
        while (weekend(d2)) ++d2;
        t1 = t2 = 0;
      }
      int lo = 0, hi = 0;
      oracle_diff(frequency, d1, t1, d2, t2, lo, hi);
      // Between lo and hi = lo + 1 the value is positive exactly when lo >= 0.
      const int truncated = lo >= 0 ? lo : hi;
      const int away = lo >= 0 ? hi : lo;
      const int expected[4] = {truncated, away, lo, hi};
      for (int rounding = 0; rounding <= 3; ++rounding) {
        int got = 0;
        char onWeekend = 9;
        ASSERT_TRUE(date_diff(got, d1, t1, d2, t2, frequency, rounding, &onWeekend));
        if (got != expected[rounding] || onWeekend != 0) {
          ADD_FAILURE() << "frequency " << frequency << " rounding " << rounding << " from "
                        << d2 << "+" << t2 << " to " << d1 << "+" << t1 << ": expected "
                        << expected[rounding] << ", got " << got;
          return;
        }
      }
    }
  }
}

// The clock frequencies against plain 64-bit arithmetic on milliseconds
// since day 0, which needs no borrow or carry of its own.
TEST(DateAdd, ClockUnitsAgreeWithAbsoluteMilliseconds) {
  std::mt19937 rng(99);
  const struct {
    int frequency;
    std::int64_t unit;
  } units[] = {{FREQ_HOUR, 3600000}, {FREQ_MINUTE, 60000}, {FREQ_SECOND, 1000}, {FREQ_MSEC, 1},
               {FREQ_TICS, 1}};
  std::uniform_int_distribution<int> anyDay(0, CDateMin::GREGDAY_MAX), anyTics(0, kDay - 1);
  std::uniform_int_distribution<int> anyN(INT_MIN, INT_MAX);
  const std::int64_t end = (static_cast<std::int64_t>(CDateMin::GREGDAY_MAX) + 1) * kDay;
  for (const auto& u : units) {
    for (int i = 0; i < 20000; ++i) {
      const int day0 = anyDay(rng), tics0 = anyTics(rng);
      const int n = i % 2 ? anyN(rng) : anyN(rng) % 100000;
      const std::int64_t at = static_cast<std::int64_t>(day0) * kDay + tics0 + n * u.unit;
      int day = day0, tics = tics0;
      const bool got = date_add(day, tics, u.frequency, n);
      const bool ok = at >= 0 && at < end;
      if (got != ok || (ok && (day != at / kDay || tics != at % kDay)) ||
          (!ok && (day != -1 || tics != -1))) {
        ADD_FAILURE() << "frequency " << u.frequency << " from " << day0 << "+" << tics0 << " n "
                      << n << ": got " << got << " " << day << "+" << tics;
        return;
      }
      // date_diff back to the start gives n again, while it fits.
      int back = 0;
      if (ok && u.frequency != FREQ_TICS && n > -(1 << 30) && n < (1 << 30)) {
        ASSERT_TRUE(date_diff(back, day, tics, day0, tics0, u.frequency, 0, nullptr));
        ASSERT_EQ(back, n) << "frequency " << u.frequency << " from " << day0 << "+" << tics0;
      }
    }
  }
}

TEST(DateAdd, FixedCases) {
  struct Case {
    const char* label;
    int day, tics, frequency, n;
    bool ok;
    int wantDay, wantTics;
  } cases[] = {
      {"31 Jan + 1 month ends on 28 Feb", ymd(2001, 1, 31), 5, FREQ_MONTHLY, 1, false, ymd(2001, 2, 28), 5},
      {"31 Jan + 2 months", ymd(2001, 1, 31), 0, FREQ_MONTHLY, 2, true, ymd(2001, 3, 31), 0},
      {"29 Feb + 1 year", ymd(2000, 2, 29), 0, FREQ_ANNUAL, 1, false, ymd(2001, 2, 28), 0},
      {"Saturday, business, 0", ymd(2024, 6, 1), 0, FREQ_BUSINESS_DAY, 0, true, ymd(2024, 6, 3), 0},
      {"Friday + 1 business day", ymd(2024, 5, 31), 0, FREQ_BUSINESS_DAY, 1, true, ymd(2024, 6, 3), 0},
      {"Monday - 1 business day", ymd(2024, 6, 3), 0, FREQ_BUSINESS_DAY, -1, true, ymd(2024, 5, 31), 0},
      {"half month + 1", ymd(2001, 1, 1), 0, FREQ_HALF_MONTH, 1, true, ymd(2001, 1, 16), 0},
      {"half month + 2", ymd(2001, 1, 1), 0, FREQ_HALF_MONTH, 2, true, ymd(2001, 2, 1), 0},
      {"half month - 1", ymd(2001, 1, 1), 0, FREQ_HALF_MONTH, -1, true, ymd(2000, 12, 16), 0},
      {"ten days + 5", ymd(2001, 1, 1), 0, FREQ_TEN_DAY, 5, true, ymd(2001, 2, 21), 0},
      {"five days - 7", ymd(2001, 3, 1), 0, FREQ_FIVE_DAY, -7, true, ymd(2001, 1, 26), 0},
      {"hour - 1 at midnight", ymd(2001, 3, 1), 0, FREQ_HOUR, -1, true, ymd(2001, 2, 28), 23 * 3600000},
      {"hour - 1 on day 0", 0, 0, FREQ_HOUR, -1, false, -1, -1},
      {"minute + a day and one", 10, kDay - 60000, FREQ_MINUTE, 1441, true, 12, 0},
      {"second - 86401", 10, 0, FREQ_SECOND, -86401, true, 8, kDay - 1000},
      {"msec + INT_MAX", 10, 0, FREQ_MSEC, INT_MAX, true, 34, 2147483647 % kDay},
      {"tics + INT_MAX", 10, kDay - 1, FREQ_TICS, INT_MAX, true, 35, (2147483647 - 1) % kDay},
      {"tics INT_MIN", 100, 0, FREQ_TICS, INT_MIN, true, 100 - 25, 12516352},
      {"daily past the calendar", CDateMin::GREGDAY_MAX, 0, FREQ_DAILY, 1, false, -1, -1},
      {"months INT_MIN", 1000, 0, FREQ_ANNUAL, INT_MIN, false, -1, -1},
      {"business INT_MAX", 1000, 0, FREQ_BUSINESS_DAY, INT_MAX, false, -1, -1},
      {"frequency 0", 1000, 0, 0, 5, false, -1, -1},
      {"date by FREQ_RAW", 1000, 0, FREQ_RAW, 3, false, 1000, 0},
      {"date by FREQ_RAW, n 0", 1000, 0, FREQ_RAW, 0, true, 1000, 0},
      {"frequency 99", 1000, 0, 99, 1, false, 1000, 0},
      {"raw 5 + 3", -1, 5, FREQ_RAW, 3, true, -1, 8},
      {"raw carries into the day", -1, kDay - 1, FREQ_TICS, 2, true, -2, 1},
      {"raw folded back", -3, 7, FREQ_RAW, -2 * kDay, true, -1, 7},
      {"raw below 0", -1, 5, FREQ_RAW, -6, true, -1, -1},
      {"raw past 49 days", -49, kDay - 1, FREQ_RAW, 1, true, -1, -1},
      {"raw up to the last count", -49, kDay - 2, FREQ_TICS, 1, true, -49, kDay - 1},
      {"raw n 0 folds nothing away", -7, 9, FREQ_RAW, 0, true, -7, 9},
      {"raw by frequency 0", -1, 5, 0, 1, false, -1, -1},
      {"negative code leaves the date", 1000, 7, -3, 5, true, 1000, 7},
      {"frequency 17 with n 0 on a date", 1000, 7, FREQ_RAW, 0, true, 1000, 7},
      {"business n 0 on a Sunday", ymd(2024, 6, 2), 9, FREQ_BUSINESS_DAY, 0, true, ymd(2024, 6, 3), 9},
      {"business -1 from a Sunday", ymd(2024, 6, 2), 0, FREQ_BUSINESS_DAY, -1, true, ymd(2024, 5, 31), 0},
      {"business +5 from a Wednesday", ymd(2024, 6, 5), 0, FREQ_BUSINESS_DAY, 5, true, ymd(2024, 6, 12), 0},
      {"business -6 from a Monday", ymd(2024, 6, 3), 0, FREQ_BUSINESS_DAY, -6, true, ymd(2024, 5, 24), 0},
      {"half month from the 16th", ymd(2001, 1, 16), 0, FREQ_HALF_MONTH, 1, true, ymd(2001, 1, 31), 0},
      {"half month from 31 Jan, +2", ymd(2001, 1, 31), 0, FREQ_HALF_MONTH, 2, false, ymd(2001, 2, 28), 0},
      {"half month -3", ymd(2001, 3, 1), 0, FREQ_HALF_MONTH, -3, true, ymd(2001, 1, 16), 0},
      {"ten days -1", ymd(2001, 3, 1), 0, FREQ_TEN_DAY, -1, true, ymd(2001, 2, 21), 0},
      {"semiannual over the year end", ymd(2001, 8, 31), 0, FREQ_SEMIANNUAL, 1, false, ymd(2002, 2, 28), 0},
      {"annual before year 1", ymd(1, 6, 1), 0, FREQ_ANNUAL, -1, false, -1, -1},
      {"hour + 25 carries", 10, 23 * 3600000, FREQ_HOUR, 25, true, 12, 0},
      {"msec -1 at midnight", 10, 0, FREQ_MSEC, -1, true, 9, kDay - 1},
      {"fortnight", 100, 0, FREQ_FORTNIGHT, -3, true, 58, 0},
      {"raw by months", -1, 5, FREQ_MONTHLY, 1, false, -1, 5},
      {"invalid stays", -1, -1, FREQ_RAW, 1, false, -1, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    int day = c.day, tics = c.tics;
    EXPECT_EQ(date_add(day, tics, c.frequency, c.n), c.ok);
    EXPECT_EQ(day, c.wantDay);
    EXPECT_EQ(tics, c.wantTics);
  }
}

TEST(DateDiff, FixedCases) {
  struct Case {
    const char* label;
    int day1, tics1, day2, tics2, frequency, rounding;
    bool ok;
    int want;
    char weekend;
  } cases[] = {
      {"quarters, exact", ymd(1990, 7, 1), 0, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 1, true, 2, 0},
      {"quarters, a day over, down", ymd(1990, 7, 2), 0, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 2, true, 2, 0},
      {"quarters, a day over, away", ymd(1990, 7, 2), 0, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 1, true, 3, 0},
      {"quarters, a day over, up", ymd(1990, 7, 2), 0, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 3, true, 3, 0},
      {"Saturday from Friday", ymd(2024, 6, 1), 0, ymd(2024, 5, 31), 0, FREQ_BUSINESS_DAY, 0, true, 1, 1},
      {"Sunday from Saturday", ymd(2024, 6, 2), 500, ymd(2024, 6, 1), 0, FREQ_BUSINESS_DAY, 3, true, 0, 1},
      {"half months", ymd(2001, 2, 16), 0, ymd(2001, 1, 1), 0, FREQ_HALF_MONTH, 0, true, 3, 0},
      {"ten days", ymd(2001, 1, 25), 0, ymd(2001, 1, 1), 0, FREQ_TEN_DAY, 0, true, 2, 0},
      {"ten days up", ymd(2001, 1, 25), 0, ymd(2001, 1, 1), 0, FREQ_TEN_DAY, 3, true, 3, 0},
      // One month and three days: date_add counts five-day periods from the
      // day of the month, so 26 January + 7 periods is 3 March.
      {"five days", ymd(2001, 3, 1), 0, ymd(2001, 1, 26), 0, FREQ_FIVE_DAY, 0, true, 6, 0},
      {"five days up", ymd(2001, 3, 1), 0, ymd(2001, 1, 26), 0, FREQ_FIVE_DAY, 3, true, 7, 0},
      // Backwards, the days are measured against the month before the first
      // date's month (December: 31 days, so 15 days back is no half month).
      {"half months back, under L", ymd(2001, 1, 1), 0, ymd(2001, 1, 16), 0, FREQ_HALF_MONTH, 0, true, 0, 0},
      {"half months back, down", ymd(2001, 1, 1), 0, ymd(2001, 1, 16), 0, FREQ_HALF_MONTH, 2, true, -1, 0},
      {"half months back in March", ymd(2001, 3, 1), 0, ymd(2001, 3, 20), 0, FREQ_HALF_MONTH, 0, true, -1, 0},
      {"half months back in March, away", ymd(2001, 3, 1), 0, ymd(2001, 3, 20), 0, FREQ_HALF_MONTH, 1, true, -2, 0},
      {"ten days back in March", ymd(2001, 3, 1), 0, ymd(2001, 3, 25), 0, FREQ_TEN_DAY, 0, true, -2, 0},
      {"five days back in March", ymd(2001, 3, 1), 0, ymd(2001, 3, 25), 0, FREQ_FIVE_DAY, 3, true, -5, 0},
      // 2 months and -30 days: the borrowed day and February leave 1 month,
      // -3 days and most of a day, which rounds up.
      {"months, tics borrow a day", ymd(2001, 3, 1), 0, ymd(2001, 1, 31), 1, FREQ_MONTHLY, 3, true, 2, 0},
      {"weeks backwards, up", 100, 0, 115, 0, FREQ_WEEKLY, 3, true, -2, 0},
      {"weeks backwards, down", 100, 0, 115, 0, FREQ_WEEKLY, 2, true, -3, 0},
      {"business, both on a weekend", ymd(2024, 6, 9), 7, ymd(2024, 6, 1), 9, FREQ_BUSINESS_DAY, 1, true, 5, 1},
      {"business backwards, time left", ymd(2024, 6, 3), 5, ymd(2024, 6, 5), 0, FREQ_BUSINESS_DAY, 2, true, -2, 0},
      {"hours with a borrowed day", 11, 3600000, 10, 7200000, FREQ_HOUR, 0, true, 23, 0},
      {"minutes, rest rounds down", 10, 90000, 10, 0, FREQ_MINUTE, 2, true, 1, 0},
      {"minutes backwards, away", 10, 0, 10, 90000, FREQ_MINUTE, 1, true, -2, 0},
      {"msec beyond 32 bits is held", 3000000, 0, 0, 0, FREQ_MSEC, 0, true, INT_MAX, 0},
      {"raw counts", -2, 5, -1, 7, FREQ_RAW, 0, true, kDay - 2, 0},
      {"raw and a date", -1, 5, 100, 0, FREQ_RAW, 0, false, 0, 0},
      {"a date and raw", 100, 0, -1, 5, FREQ_DAILY, 0, false, 0, 0},
      {"dates by FREQ_RAW", 100, 0, 10, 0, FREQ_RAW, 0, false, 0, 0},
      {"dates by FREQ_TICS", 100, 0, 10, 0, FREQ_TICS, 0, false, 0, 0},
      {"frequency 0", 100, 0, 10, 0, 0, 0, false, 0, 0},
      {"day past the calendar", 3652059, 0, 10, 0, FREQ_DAILY, 0, false, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    int result = 77;
    char weekendFlag = 9;
    EXPECT_EQ(date_diff(result, c.day1, c.tics1, c.day2, c.tics2, c.frequency, c.rounding,
                        &weekendFlag),
              c.ok);
    EXPECT_EQ(result, c.want);
    EXPECT_EQ(weekendFlag, c.weekend);
  }
}

TEST(DateSpan, OneSignWhereTheMonthsAllow) {
  struct Case {
    int day1, tics1, day2, tics2, months, days, rest;
  } cases[] = {
      {ymd(2001, 3, 10), 0, ymd(2001, 2, 20), 0, 0, 18, 0},
      {ymd(2001, 2, 20), 0, ymd(2001, 3, 10), 0, 0, -18, 0},
      {ymd(2001, 3, 10), 0, ymd(2001, 3, 9), 1000, 0, 0, kDay - 1000},
      {ymd(2001, 3, 9), 1000, ymd(2001, 3, 10), 0, 0, 0, 1000 - kDay},
      {ymd(2001, 3, 10), 5, ymd(2001, 3, 10), 2, 0, 0, 3},
      {ymd(2002, 5, 1), 0, ymd(2001, 3, 1), 0, 14, 0, 0},
      {100, 0, 100, 0, 0, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.day1 << " - " << c.day2);
    int months = 9, days = 9, rest = 9;
    date_span(c.day1, c.tics1, c.day2, c.tics2, months, days, rest);
    EXPECT_EQ(months, c.months);
    EXPECT_EQ(days, c.days);
    EXPECT_EQ(rest, c.rest);
  }
}

TEST(PeriodOfYear, FixedCases) {
  struct Case {
    int frequency, year, n;
    bool ok;
    int day, tics;
  } cases[] = {
      {FREQ_QUARTERLY, 1990, 4, true, ymd(1990, 10, 1), 0},
      {FREQ_QUARTERLY, 1990, 5, false, ymd(1991, 1, 1), 0},
      {FREQ_WEEKLY, 2001, 53, true, ymd(2001, 12, 31), 0},
      {FREQ_WEEKLY, 2001, 54, false, ymd(2002, 1, 7), 0},
      {FREQ_HOUR, 2001, 25, true, ymd(2001, 1, 2), 0},
      {FREQ_BUSINESS_DAY, 2000, 1, true, ymd(2000, 1, 3), 0},  // 1 January 2000 is a Saturday
      {FREQ_RAW, 0, 25, true, -1, 25},
      {FREQ_RAW, 0, kDay + 3, true, -2, 3},
      {FREQ_RAW, 0, -1, false, -1, -1},
      {FREQ_MONTHLY, 0, 1, false, -1, -1},
      {FREQ_MONTHLY, 10000, 1, false, -1, -1},
      {0, 1990, 1, false, -1, -1},
      {FREQ_DAILY, 1990, INT_MIN, false, -1, -1},
      {FREQ_DAILY, 1990, 0, false, ymd(1989, 12, 31), 0},
      {FREQ_DAILY, 2000, 366, true, ymd(2000, 12, 31), 0},
      {FREQ_DAILY, 2001, 366, false, ymd(2002, 1, 1), 0},
      {FREQ_MONTHLY, 9999, 13, false, -1, -1},  // off the calendar
      {FREQ_HALF_MONTH, 2001, 24, true, ymd(2001, 12, 16), 0},
      {FREQ_BUSINESS_DAY, 2001, 262, false, ymd(2002, 1, 1), 0},
      {FREQ_TICS, 2001, kDay + 1, true, ymd(2001, 1, 2), 0},
      // A code date_add refuses leaves 1 January, which is in the year.
      {99, 1990, 2, true, ymd(1990, 1, 1), 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "frequency " << c.frequency << " " << c.year << " n " << c.n);
    int day = 5, tics = 5;
    EXPECT_EQ(period_of_year(day, tics, c.frequency, c.year, c.n), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

RegularFreq record(int baseDay, int frequency, int innerUsed = 0, int innerCycle = 0,
                   int outerUsed = 0, int outerCycle = 0, int multiple = 1, int firstIndex = 0) {
  return RegularFreq{baseDay, 0, frequency, multiple, firstIndex, innerUsed, innerCycle, outerUsed, outerCycle};
}

TEST(FreqIndex, WorkingWeekOfDays) {
  const int monday = ymd(2024, 6, 3);
  const RegularFreq week = record(monday, FREQ_DAILY, 5, 7);
  EXPECT_EQ(freq_index(week, monday + 5, 0, true), 5);  // Saturday
  EXPECT_EQ(freq_index(week, monday + 7, 0, true), 5);  // next Monday
  EXPECT_EQ(freq_index(week, monday + 5, 0, false), 5);
  EXPECT_EQ(freq_index(week, monday + 4, 0, false), 4);
  int day = 0, tics = 0;
  freq_date(week, 5, day, tics);
  EXPECT_EQ(day, monday + 7);
  EXPECT_EQ(tics, 0);
  freq_date(week, -1, day, tics);
  EXPECT_EQ(day, monday - 3);  // the Friday before
}

TEST(FreqIndex, RoundTripsThroughCycles) {
  const int monday = ymd(2024, 6, 3);
  const RegularFreq records[] = {
      record(monday, FREQ_DAILY, 5, 7),
      record(monday, FREQ_HOUR, 40, 56, 8, 24),     // working hours of a working week
      record(monday, FREQ_MONTHLY, 0, 0, 0, 0, 3),  // quarterly as three months
      record(monday, FREQ_WEEKLY, 3, 4, 0, 0, 2, 17),
  };
  for (const RegularFreq& r : records) {
    SCOPED_TRACE(testing::Message() << "frequency " << r.frequency << " inner " << r.innerUsed
                                    << "/" << r.innerCycle);
    for (int i = -300; i <= 300; ++i) {
      int day = 0, tics = 0;
      freq_date(r, i, day, tics);
      ASSERT_GE(day, 0) << i;
      ASSERT_EQ(freq_index(r, day, tics, false), i) << i;
      ASSERT_EQ(freq_index(r, day, tics, true), i) << i;
    }
  }
}

TEST(FreqIndex, EmptyAndBrokenRecordsGiveNoIndex) {
  const RegularFreq broken[] = {
      record(1000, 0),
      record(1000, FREQ_DAILY, 0, 7),          // nothing used of the inner cycle
      record(1000, FREQ_DAILY, 5, 7, 0, 3),    // nothing used of the outer one
      record(1000, FREQ_DAILY, 1, 1, 0, 0, 0), // multiple 0
      record(1000, FREQ_DAILY, 5, -7),
  };
  for (const RegularFreq& r : broken) {
    SCOPED_TRACE(testing::Message() << "used " << r.innerUsed << "/" << r.innerCycle << " outer "
                                    << r.outerUsed << "/" << r.outerCycle << " multiple " << r.multiple);
    EXPECT_EQ(freq_index(r, 2000, 0, true), INT_MIN);
    int day = 5, tics = 5;
    freq_date(r, 3, day, tics);
    EXPECT_EQ(day, -1);
    EXPECT_EQ(tics, -1);
    EXPECT_FALSE(freq_period_of_year(r, day, tics, 1990, 1, true));
    EXPECT_EQ(day, -1);
  }
}

TEST(FreqIndex, UncountableDatesCountAsTheOrigin) {
  // date_diff can't count a raw count or the invalid form against a calendar
  // series: it answers 0 periods, so the index is that of the origin.
  const RegularFreq week = record(ymd(2024, 6, 3), FREQ_DAILY, 5, 7, 0, 0, 1, 4);
  EXPECT_EQ(freq_index(week, -1, 5, true), -4);
  EXPECT_EQ(freq_index(week, -1, -1, false), -4);
  const RegularFreq tics = record(1000, FREQ_TICS);
  EXPECT_EQ(freq_index(tics, 2000, 0, false), 0);
}

TEST(FreqIndex, HugeIndicesLeaveTheCalendar) {
  const RegularFreq r = record(1000, FREQ_DAILY, 1, INT_MAX, 0, 0, INT_MAX, INT_MAX);
  int day = 0, tics = 0;
  freq_date(r, INT_MAX, day, tics);
  EXPECT_EQ(day, -1);
  freq_date(r, INT_MIN, day, tics);
  EXPECT_EQ(day, -1);
  EXPECT_NE(freq_index(r, CDateMin::GREGDAY_MAX, 0, true), 12345);  // only must not fault
  // Used counts far above their cycles stretch the count twice over.
  const RegularFreq stretched = record(0, FREQ_MSEC, INT_MAX, 1, INT_MAX, 1);
  EXPECT_EQ(freq_index(stretched, CDateMin::GREGDAY_MAX, 0, true), INT_MAX);
  EXPECT_EQ(freq_index(record(CDateMin::GREGDAY_MAX, FREQ_MSEC, INT_MAX, 1, INT_MAX, 1), 0, 0, false),
            INT_MIN + 1);
}

TEST(FreqPeriodOfYear, CountsFromTheFirstObservationOfTheYear) {
  const int monday = ymd(2024, 6, 3);
  const RegularFreq week = record(monday, FREQ_DAILY, 5, 7);
  int day = 0, tics = 0;
  // 1 January 2000 is a Saturday: observation 1 is Monday 3 January.
  EXPECT_TRUE(freq_period_of_year(week, day, tics, 0, 1, true));
  EXPECT_EQ(day, ymd(2000, 1, 3));
  EXPECT_TRUE(freq_period_of_year(week, day, tics, 2000, 6, false));
  EXPECT_EQ(day, ymd(2000, 1, 10));
  EXPECT_FALSE(freq_period_of_year(week, day, tics, 2000, 261, false));  // 2000 has 260
  EXPECT_EQ(day, ymd(2001, 1, 1));
  EXPECT_FALSE(freq_period_of_year(week, day, tics, 10000, 1, false));
  EXPECT_EQ(day, -1);
}

}  // namespace
