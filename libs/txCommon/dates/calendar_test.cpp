// The calendar against an independent oracle (civil_oracle.h, written from
// Howard Hinnant's published algorithms) over the whole day line, and against
// published day numbers that Python's datetime agrees with
// (date.toordinal() - 1 is our day number).
#include <txCommon/CDateMin.h>
#include <txCommon/internal/date_kernel.h>

#include <gtest/gtest.h>

#include "civil_oracle.h"

#include <climits>
#include <cstdint>
#include <string>

namespace {

// Checks every calendar form of one day; returns false on the first mismatch.
bool day_agrees(int day, std::string& why) {
  const oracle::Civil c = oracle::civil(day);
  int y, m, d;
  CDateMin::gregday_to_ymd(day, y, m, d);
  if (y != c.year || m != c.month || d != c.day) return why = "gregday_to_ymd", false;
  int back = -7;
  if (!CDateMin::ymd_to_gregday(back, c.year, c.month, c.day, false) || back != day)
    return why = "ymd_to_gregday", false;
  int yy, yddd;
  CDateMin::gregday_to_yddd(day, yy, yddd);
  if (yy != c.year || yddd != day - oracle::day(c.year, 1, 1) + 1) return why = "gregday_to_yddd", false;
  if (!CDateMin::yddd_to_gregday(back, yy, yddd) || back != day) return why = "yddd_to_gregday", false;
  int isoYear, isoWeek, oYear, oWeek;
  gregday_to_isoweek(day, isoYear, isoWeek);
  oracle::isoweek(day, oYear, oWeek);
  if (isoYear != oYear || isoWeek != oWeek) return why = "gregday_to_isoweek", false;
  if (oYear >= 1 && oYear <= 9999) {
    if (!isoweek_to_gregday(back, oYear, oWeek) || back != day - oracle::weekday(day) + 1)
      return why = "isoweek_to_gregday", false;
  }
  if (txc::weekday_of(day) != oracle::weekday(day)) return why = "weekday_of", false;
  const int week = (yddd - 1) / 7 + 1;
  if (!yearweek_to_gregday(back, c.year, week, oracle::weekday(day)) || back != day)
    return why = "yearweek_to_gregday", false;
  return true;
}

void sweep(int first, int last, int stride) {
  int failures = 0;
  for (int day = first; day <= last && failures < 5; day += stride) {
    std::string why;
    if (!day_agrees(day, why)) {
      ADD_FAILURE() << "day " << day << ": " << why;
      ++failures;
    }
  }
}

}  // namespace

// ---- the whole range

#if TXCOMMON_EXHAUSTIVE
TEST(Calendar, EveryDayAgreesWithTheOracle) { sweep(0, CDateMin::GREGDAY_MAX, 1); }
#endif

TEST(Calendar, SampledDaysAgreeWithTheOracle) {
  sweep(0, CDateMin::GREGDAY_MAX, 997);
  sweep(0, 800, 1);                                          // the first years
  sweep(CDateMin::GREGDAY_MAX - 800, CDateMin::GREGDAY_MAX, 1);  // the last ones
  for (int year : {100, 1600, 1700, 1900, 2000, 2100, 2400}) {  // century edges
    const int jan1 = oracle::day(year, 1, 1);
    sweep(jan1 - 400, jan1 + 400, 1);
  }
}

// Every day's calendar fields, folded by 64-bit FNV-1a over their 32-bit
// values in the order year, month, day, day of year, weekday, ISO year, ISO
// week. The expected digest comes from Python's datetime over the same days
// (date.fromordinal(day + 1), its isocalendar() and isoweekday()), so this
// checks the whole day line against a second, unrelated calendar; the way
// back from each field must land on the same day.
TEST(Calendar, EveryDayMatchesPythonDatetimeDigest) {
  constexpr std::uint64_t kPythonDigest = 0xf4ef26833e1e4069ULL;
  std::uint64_t digest = 0xcbf29ce484222325ULL;
  const auto fold = [&digest](int v) {
    digest = (digest ^ static_cast<std::uint32_t>(v)) * 0x100000001b3ULL;
  };
  int wrongWayBack = 0;
  for (int day = 0; day <= CDateMin::GREGDAY_MAX; ++day) {
    int y, m, d, yy, yddd, isoYear, isoWeek;
    CDateMin::gregday_to_ymd(day, y, m, d);
    CDateMin::gregday_to_yddd(day, yy, yddd);
    gregday_to_isoweek(day, isoYear, isoWeek);
    const int weekday = day % 7 + 1;
    for (int v : {y, m, d, yddd, weekday, isoYear, isoWeek}) fold(v);
    int fromYmd = -7, fromYddd = -7, fromIso = -7;
    CDateMin::ymd_to_gregday(fromYmd, y, m, d, false);
    CDateMin::yddd_to_gregday(fromYddd, yy, yddd);
    if (isoYear <= 9999) isoweek_to_gregday(fromIso, isoYear, isoWeek);
    if (fromYmd != day || fromYddd != day || (isoYear <= 9999 && fromIso + weekday - 1 != day)) {
      if (++wrongWayBack <= 5) ADD_FAILURE() << "day " << day << " does not come back";
    }
  }
  EXPECT_EQ(digest, kPythonDigest);
}

TEST(Calendar, OracleItselfMatchesPublishedOrdinals) {
  // Python: date(y, m, d).toordinal() - 1.
  struct Case { int y, m, d, day; };
  const Case cases[] = {
      {1, 1, 1, 0}, {1900, 1, 1, 693595}, {1970, 1, 1, 719162}, {2000, 1, 1, 730119},
      {2000, 2, 29, 730178}, {9999, 12, 31, 3652058}, {1858, 11, 17, 678575}, {1899, 12, 30, 693593},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.y << "-" << c.m << "-" << c.d);
    EXPECT_EQ(oracle::day(c.y, c.m, c.d), c.day);
    int day = -7;
    EXPECT_TRUE(CDateMin::ymd_to_gregday(day, c.y, c.m, c.d, false));
    EXPECT_EQ(day, c.day);
  }
}

// ---- constants and tables

TEST(Calendar, ConstantsAreTheirDerivations) {
  EXPECT_EQ(CDateMin::GREGDAY_1900, oracle::day(1900, 1, 1));
  EXPECT_EQ(CDateMin::GREGDAY_1970, oracle::day(1970, 1, 1));
  EXPECT_EQ(CDateMin::GREGDAY_MAX, oracle::day(9999, 12, 31));
  EXPECT_EQ(CDateMin::GREGSEC_1970, CDateMin::GREGDAY_1970 * 86400.0);
  EXPECT_EQ(CDateMin::GREGSEC_MAX, (CDateMin::GREGDAY_MAX + 1) * 86400.0 - 1.0);
  EXPECT_EQ(CDateMin::DAYS_PER_FOUR_HUNDRED_YEARS, oracle::day(401, 1, 1));
  EXPECT_EQ(CDateMin::TICS_PER_WEEK, 7 * CDateMin::TICS_PER_DAY);
  EXPECT_EQ(CDateMin::MSECS_PER_DAY, CDateMin::SECS_PER_DAY * CDateMin::TICS_PER_SEC);
  for (int year : {1999, 2000}) {
    const int* table = CDateMin::is_leap_year(year) ? CDateMin::month_starts_in_leap : CDateMin::month_starts;
    for (int m = 1; m <= 12; ++m) {
      SCOPED_TRACE(testing::Message() << year << " month " << m);
      EXPECT_EQ(table[m - 1], oracle::day(year, m, 1) - oracle::day(year, 1, 1) + 1);
      const int next = m == 12 ? oracle::day(year + 1, 1, 1) : oracle::day(year, m + 1, 1);
      EXPECT_EQ(month_days(year, m), next - oracle::day(year, m, 1));
    }
  }
  EXPECT_EQ(month_days(2000, 0), 0);
  EXPECT_EQ(month_days(2000, 13), 0);
}

TEST(Calendar, LeapYearsAndCenturyRule) {
  struct Case { int year; bool leap; };
  const Case leap[] = {{2000, true}, {1900, false}, {2004, true}, {2001, false}, {400, true},
                       {0, true},    {-4, true},    {-100, false}, {INT_MIN, true}, {INT_MAX, false}};
  for (const Case& c : leap) {
    SCOPED_TRACE(c.year);
    EXPECT_EQ(CDateMin::is_leap_year(c.year), c.leap);
  }
  struct Century { int in, out; };
  const Century century[] = {{0, 2000}, {29, 2029}, {30, 1930}, {99, 1999}, {100, 100},
                             {-1, 1999}, {-50, 1950}, {INT_MIN, INT_MIN + 2000}, {INT_MAX, INT_MAX}};
  for (const Century& c : century) {
    SCOPED_TRACE(c.in);
    EXPECT_EQ(CDateMin::add_century(c.in), c.out);
  }
}

// ---- conversions and their failure values

TEST(Calendar, YdddToGregdayFailures) {
  struct Case { int year, yddd; bool ok; int day; };
  const Case cases[] = {
      {1900, 366, false, -1}, {2000, 366, true, oracle::day(2000, 12, 31)}, {2000, 367, false, -1},
      {1, 1, true, 0},        {9999, 365, true, CDateMin::GREGDAY_MAX},     {9999, 366, false, -1},
      {0, 1, false, -1},      {10000, 1, false, -1},  {2000, 0, false, -1}, {INT_MIN, INT_MIN, false, -1},
      {INT_MAX, INT_MAX, false, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.year << "/" << c.yddd);
    int day = 12345;
    EXPECT_EQ(CDateMin::yddd_to_gregday(day, c.year, c.yddd), c.ok);
    EXPECT_EQ(day, c.day);
  }
}

TEST(Calendar, YmdToGregdayClampsOrLeavesUntouched) {
  constexpr int kUntouched = 4242;
  struct Case { int y, m, d; bool addCentury; bool ok; int day; };
  const Case cases[] = {
      {2001, 2, 30, false, false, oracle::day(2001, 2, 28)},  // clamped to the month's end
      {2000, 2, 31, false, false, oracle::day(2000, 2, 29)},
      {2001, 4, 31, false, false, oracle::day(2001, 4, 30)},
      {2001, 13, 1, false, false, kUntouched},
      {10000, 1, 1, false, false, kUntouched},
      {2001, 1, 32, false, false, kUntouched},
      {2001, 0, 1, false, false, kUntouched},
      {2001, 1, 0, false, false, kUntouched},
      {45, 6, 1, true, true, oracle::day(1945, 6, 1)},  // 30 and above: 19xx
      {29, 6, 1, true, true, oracle::day(2029, 6, 1)},
      {45, 6, 1, false, true, oracle::day(45, 6, 1)},
      {99, 1, 1, true, true, oracle::day(1999, 1, 1)},
      {-1, 1, 1, true, true, oracle::day(1999, 1, 1)},
      {0, 1, 1, false, false, kUntouched},
      {INT_MIN, INT_MIN, INT_MIN, true, false, kUntouched},
      {INT_MAX, INT_MAX, INT_MAX, true, false, kUntouched},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.y << "-" << c.m << "-" << c.d << " century " << c.addCentury);
    int day = kUntouched;
    EXPECT_EQ(CDateMin::ymd_to_gregday(day, c.y, c.m, c.d, c.addCentury), c.ok);
    EXPECT_EQ(day, c.day);
  }
  int yddd = 0;
  EXPECT_FALSE(CDateMin::ymd_to_yddd(yddd, 2001, 2, 30));
  EXPECT_EQ(yddd, 59);
  EXPECT_FALSE(CDateMin::ymd_to_yddd(yddd, 2001, 13, 1));
  EXPECT_EQ(yddd, -1);
}

TEST(Calendar, YdddToYmdHasNoChecksButNoFaults) {
  int m = 0, d = 0;
  CDateMin::yddd_to_ymd(2000, 60, m, d);
  EXPECT_EQ(m, 2);
  EXPECT_EQ(d, 29);
  CDateMin::yddd_to_ymd(2001, 60, m, d);
  EXPECT_EQ(m, 3);
  EXPECT_EQ(d, 1);
  CDateMin::yddd_to_ymd(2001, INT_MIN, m, d);  // before the year: month 1
  EXPECT_EQ(m, 1);
  CDateMin::yddd_to_ymd(2001, INT_MAX, m, d);  // beyond it: month 12
  EXPECT_EQ(m, 12);
}

TEST(Calendar, BoundaryDaysAndWeekdays) {
  int y, m, d;
  CDateMin::gregday_to_ymd(0, y, m, d);
  EXPECT_EQ(y * 10000 + m * 100 + d, 10101);
  EXPECT_EQ(txc::weekday_of(0), 1);
  CDateMin::gregday_to_ymd(CDateMin::GREGDAY_MAX, y, m, d);
  EXPECT_EQ(y * 10000 + m * 100 + d, 99991231);
  EXPECT_EQ(txc::weekday_of(CDateMin::GREGDAY_MAX), 5);
  EXPECT_EQ(txc::weekday_of(-1), 7);
  EXPECT_EQ(txc::weekday_of(INT_MIN), oracle::weekday(INT_MIN + 0));
}

// ---- weeks

TEST(Calendar, IsoWeeks) {
  struct Case { int y, m, d, isoYear, isoWeek; };
  const Case cases[] = {
      {2021, 1, 1, 2020, 53}, {2021, 1, 4, 2021, 1}, {2018, 12, 31, 2019, 1},
      {2020, 12, 31, 2020, 53}, {2004, 12, 31, 2004, 53}, {1, 1, 1, 1, 1}, {9999, 12, 31, 9999, 52},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.y << "-" << c.m << "-" << c.d);
    int isoYear, isoWeek;
    gregday_to_isoweek(oracle::day(c.y, c.m, c.d), isoYear, isoWeek);
    EXPECT_EQ(isoYear, c.isoYear);
    EXPECT_EQ(isoWeek, c.isoWeek);
  }
  int day = 0;
  EXPECT_FALSE(isoweek_to_gregday(day, 2021, 53));
  EXPECT_EQ(day, -1);
  EXPECT_TRUE(isoweek_to_gregday(day, 2020, 53));
  EXPECT_EQ(day, oracle::day(2020, 12, 28));
  for (int bad : {0, 54, -1, INT_MIN, INT_MAX}) {
    SCOPED_TRACE(bad);
    EXPECT_FALSE(isoweek_to_gregday(day, 2020, bad));
  }
  for (int bad : {0, 10000, -1, INT_MIN, INT_MAX}) {
    SCOPED_TRACE(bad);
    EXPECT_FALSE(isoweek_to_gregday(day, bad, 1));
  }
}

TEST(Calendar, OccurrenceWeeks) {
  struct Case { int year, week, weekday; bool ok; int day; };
  const Case cases[] = {
      {2021, 1, 5, true, oracle::day(2021, 1, 1)},   // 1 January 2021 is a Friday
      {2021, 1, 1, true, oracle::day(2021, 1, 4)},   // the first Monday
      {2021, 2, 5, true, oracle::day(2021, 1, 8)},
      {2021, 53, 5, true, oracle::day(2021, 12, 31)},
      {2021, 53, 6, false, -1},                    // would be 1 January 2022
      {2020, 53, 4, true, oracle::day(2020, 12, 31)},  // leap year: 366th day allowed
      {0, 1, 1, false, -1},
      {10000, 1, 1, false, -1},
      {1, 0, 1, false, -1},  // before day 0
      {2021, INT_MAX, INT_MAX, false, -1},
      {2021, INT_MIN, INT_MIN, false, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.year << " w" << c.week << " d" << c.weekday);
    int day = 777;
    EXPECT_EQ(yearweek_to_gregday(day, c.year, c.week, c.weekday), c.ok);
    EXPECT_EQ(day, c.day);
  }
}

// ---- time of day

TEST(Calendar, TicsToHms) {
  struct Case { int tics; bool ok; int h, m, s; };
  const Case cases[] = {
      {86399999, true, 23, 59, 59}, {86400000, false, 0, 0, 0}, {0, true, 0, 0, 0},
      {1, true, 0, 0, 0},           {-1, false, 0, 0, 0},       {3723999, true, 1, 2, 3},
      {INT_MIN, false, 0, 0, 0},    {INT_MAX, false, 0, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tics);
    int h = 9, m = 9, s = 9;
    EXPECT_EQ(CDateMin::tics_to_hms(c.tics, h, m, s), c.ok);
    EXPECT_EQ(h, c.h);
    EXPECT_EQ(m, c.m);
    EXPECT_EQ(s, c.s);
  }
}

TEST(Calendar, HmsToTics) {
  struct Case { int h, m, s, ms; bool ok; int tics; };
  const Case cases[] = {
      {24, 0, 0, 0, false, 0},    {0, 0, 0, 5000, true, 5000}, {23, 59, 59, 999, true, 86399999},
      {0, 60, 0, 0, false, 0},    {0, 0, 60, 0, false, 0},     {-1, 0, 0, 0, false, 0},
      {0, -1, 0, 0, false, 0},    {0, 0, -1, 0, false, 0},     {INT_MIN, 0, 0, 0, false, 0},
      {1, 2, 3, -3000, true, 3720000},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.h << ":" << c.m << ":" << c.s << "." << c.ms);
    int tics = 77;
    EXPECT_EQ(CDateMin::hms_to_tics(tics, c.h, c.m, c.s, c.ms), c.ok);
    EXPECT_EQ(tics, c.tics);
  }
  int tics = 0;  // an unchecked msecs must wrap, not overflow
  EXPECT_TRUE(CDateMin::hms_to_tics(tics, 23, 59, 59, INT_MAX));
}
