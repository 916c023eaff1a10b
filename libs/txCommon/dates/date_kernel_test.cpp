// The date kernel: every kind both ways against published values (Julian day,
// MJD, COM DATE, spreadsheet serials, Unix time), round trips over the day
// line against the civil oracle, and hostile arguments for every kind.
#include <txCommon/CDateMin.h>
#include <txCommon/internal/date_kernel.h>
#include <txCommon/internal/platform_clock.h>

#include <gtest/gtest.h>

#include "civil_oracle.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

constexpr int kNoon = 43200000;
constexpr int kLastTic = 86399999;
constexpr int kKeep = 1234567;  // a sentinel for outputs that must stay untouched
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

int ymd(int y, int m, int d) { return oracle::day(y, m, d); }

bool is_na_pattern(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return bits == 0xFFF8000000000000ULL;
}

// Pins the clock and a UTC zone for one test, so the local-time kinds are
// deterministic.
struct PinnedClock {
  explicit PinnedClock(std::uint32_t now, int offset = 0) {
    txc::platform::pin_clock(now);
    txc::platform::pin_zone(offset);
  }
  ~PinnedClock() {
    txc::platform::unpin_clock();
    txc::platform::unpin_zone();
  }
};

// ---- date_make

struct MakeCase {
  const char* label;
  int kind, a, b, c;
  bool addCentury;
  int day0, tics0;  // the pair before the call
  bool ok;
  int day, tics;    // the pair after it
};

const MakeCase kMakeCases[] = {
    {"gregday 0", DF_GREGDAY, 0, 0, 0, false, -1, -1, true, 0, 0},
    {"gregday max", DF_GREGDAY, 3652058, 0, 0, false, 5, 77, true, 3652058, 77},
    {"gregday max+1", DF_GREGDAY, 3652059, 0, 0, false, 5, 77, false, -1, -1},
    {"julian J2000", DF_JULIAN_DAY, 2451545, 0, 0, false, -1, -1, true, ymd(2000, 1, 1), kNoon},
    {"julian day 0", DF_JULIAN_DAY, 1721426, 0, 0, false, -1, 5, true, 0, kNoon},
    {"julian min", DF_JULIAN_DAY, INT_MIN, 0, 0, false, 0, 0, false, -1, -1},
    {"mjd 0", DF_MJD, 0, 0, 0, false, -1, -1, true, ymd(1858, 11, 17), 0},
    {"mjd J2000", DF_MJD, 51544, 0, 0, false, -1, -1, true, ymd(2000, 1, 1), 0},
    {"mjd max", DF_MJD, INT_MAX, 0, 0, false, 0, 0, false, -1, -1},
    {"days1900", DF_DAYS_1900, 0, 0, 0, false, -1, -1, true, ymd(1900, 1, 1), 0},
    {"days1960", DF_DAYS_1960, 0, 0, 0, false, -1, -1, true, ymd(1960, 1, 1), 0},
    {"days2001 0", DF_DAYS_2001, 0, 0, 0, false, -1, -1, true, ymd(2001, 1, 1), 0},
    {"days2001 -366", DF_DAYS_2001, -366, 0, 0, false, -1, -1, true, ymd(2000, 1, 1), 0},
    {"serial 1", DF_SERIAL_1900, 1, 0, 0, false, -1, -1, true, ymd(1900, 1, 1), 0},
    {"serial 59", DF_SERIAL_1900, 59, 0, 0, false, -1, -1, true, ymd(1900, 2, 28), 0},
    {"serial 60", DF_SERIAL_1900, 60, 0, 0, false, -1, -1, true, ymd(1900, 2, 28), 0},
    {"serial 61", DF_SERIAL_1900, 61, 0, 0, false, -1, -1, true, ymd(1900, 3, 1), 0},
    {"serial 36526", DF_SERIAL_1900, 36526, 0, 0, false, -1, -1, true, ymd(2000, 1, 1), 0},
    {"com 0", DF_COM_DATE, 0, 0, 0, false, -1, -1, true, ymd(1899, 12, 30), 0},
    {"com 36526", DF_COM_DATE, 36526, 0, 0, false, 9, 500, true, ymd(2000, 1, 1), 500},
    {"days of year", DF_DAYS_OF_YEAR, 365, 2000, 0, false, -1, -1, true, ymd(2000, 12, 31), 0},
    {"days of year 0", DF_DAYS_OF_YEAR, 0, 0, 0, false, 5, 5, false, -1, -1},
    {"days of year huge", DF_DAYS_OF_YEAR, INT_MAX, 9999, 0, false, 5, 5, false, -1, -1},
    {"year yddd", DF_YEAR_YDDD, 2000, 366, 0, false, -1, -1, true, ymd(2000, 12, 31), 0},
    {"year yddd 1900/366", DF_YEAR_YDDD, 1900, 366, 0, false, 5, 5, false, -1, -1},
    {"year yddd century", DF_YEAR_YDDD, 99, 1, 0, true, -1, -1, true, ymd(1999, 1, 1), 0},
    {"yyyyddd", DF_YYYYDDD, 2000366, 0, 0, false, -1, -1, true, ymd(2000, 12, 31), 0},
    {"yyyyddd negative", DF_YYYYDDD, -98001, 0, 0, true, 5, 5, false, -1, -1},
    {"ymd", DF_YMD, 1999, 12, 31, false, -1, -1, true, ymd(1999, 12, 31), 0},
    {"ymd 99 century", DF_YMD, 99, 1, 1, true, -1, -1, true, ymd(1999, 1, 1), 0},
    {"ymd 99 plain", DF_YMD, 99, 1, 1, false, -1, -1, true, ymd(99, 1, 1), 0},
    {"ymd 31 april", DF_YMD, 2001, 4, 31, false, 5, 5, false, -1, -1},
    {"yyyymm d", DF_YYYYMM_D, 199912, 31, 0, false, -1, -1, true, ymd(1999, 12, 31), 0},
    {"yyyymmdd", DF_YYYYMMDD, 19991231, 0, 0, false, -1, -1, true, ymd(1999, 12, 31), 0},
    {"yyyymmdd min", DF_YYYYMMDD, INT_MIN, 0, 0, true, 5, 5, false, -1, -1},
    {"ddmmyy", DF_DDMMYYYY, 310199, 0, 0, false, -1, -1, true, ymd(1999, 1, 31), 0},
    {"ddmmyyyy", DF_DDMMYYYY, 31011999, 0, 0, false, -1, -1, true, ymd(1999, 1, 31), 0},
    {"ddmmyy 29 feb 2029", DF_DDMMYYYY, 290229, 0, 0, false, 5, 5, false, -1, -1},
    {"mmddyy", DF_MMDDYYYY, 123199, 0, 0, false, -1, -1, true, ymd(1999, 12, 31), 0},
    {"mmddyy 29 no century", DF_MMDDYYYY, 10129, 0, 0, false, -1, -1, true, ymd(2029, 1, 1), 0},
    {"mmddyy 29 century", DF_MMDDYYYY, 10129, 0, 0, true, -1, -1, true, ymd(2029, 1, 1), 0},
    {"mmddyyyy max", DF_MMDDYYYY, INT_MAX, 0, 0, false, 5, 5, false, -1, -1},
    {"year week day fri", DF_YEAR_WEEK_DAY, 2021, 1, 5, false, -1, -1, true, ymd(2021, 1, 1), 0},
    {"year week day mon", DF_YEAR_WEEK_DAY, 2021, 1, 1, false, -1, -1, true, ymd(2021, 1, 4), 0},
    {"yyyyww d", DF_YYYYWW_D, 202101, 5, 0, false, -1, -1, true, ymd(2021, 1, 1), 0},
    {"yyyywwd", DF_YYYYWWD, 2021025, 0, 0, false, -1, -1, true, ymd(2021, 1, 8), 0},
    {"iso", DF_ISO_YEAR_WEEK_DAY, 2021, 1, 1, false, -1, -1, true, ymd(2021, 1, 4), 0},
    {"iso weekday 8", DF_ISO_YEAR_WEEK_DAY, 2021, 1, 8, false, 5, 5, false, -1, -1},
    {"iso weekday 0", DF_ISO_YEAR_WEEK_DAY, 2021, 1, 0, false, 5, 5, false, -1, -1},
    {"iso yyyyww d", DF_ISO_YYYYWW_D, 202053, 5, 0, false, -1, -1, true, ymd(2021, 1, 1), 0},
    {"iso yyyywwd", DF_ISO_YYYYWWD, 2020535, 0, 0, false, -1, -1, true, ymd(2021, 1, 1), 0},
    {"semester", DF_YEAR_SEMESTER_DAY, 1999, 2, 1, false, -1, -1, true, ymd(1999, 7, 1), 0},
    {"semester 3", DF_YEAR_SEMESTER_DAY, 1999, 3, 1, false, 5, 5, false, -1, -1},
    {"semester huge", DF_YEAR_SEMESTER_DAY, 1999, INT_MAX, 1, false, 5, 5, false, -1, -1},
    {"yyyys", DF_YYYYS, 19992, 0, 0, false, -1, -1, true, ymd(1999, 7, 1), 0},
    {"quarter", DF_YEAR_QUARTER_DAY, 1999, 3, 1, false, -1, -1, true, ymd(1999, 7, 1), 0},
    {"quarter 31 april", DF_YEAR_QUARTER_DAY, 1999, 2, 31, false, 5, 5, false, -1, -1},
    {"quarter min", DF_YEAR_QUARTER_DAY, 1999, INT_MIN, 1, false, 5, 5, false, -1, -1},
    {"yyyyq", DF_YYYYQ, 19994, 0, 0, false, -1, -1, true, ymd(1999, 10, 1), 0},
    {"fraction ddd int keeps", DF_FRACTION_DDD, 1999, 0, 0, false, 5, 5, true, 5, 5},
    {"fraction ddd int invalid", DF_FRACTION_DDD, 1999, 0, 0, false, -1, -1, false, -1, -1},
    {"fraction q int", DF_FRACTION_Q, 1990, 0, 0, true, 5, 5, false, -1, -1},
    {"seconds 0001", DF_SECONDS_0001, 86400, 0, 0, false, -1, -1, true, 1, 0},
    {"seconds 0001 -1", DF_SECONDS_0001, -1, 0, 0, false, 5, 5, false, -1, -1},
    {"seconds 1960", DF_SECONDS_1960, 0, 0, 0, false, -1, -1, true, ymd(1960, 1, 1), 0},
    {"seconds 1970", DF_SECONDS_1970, 946684800, 0, 0, false, -1, -1, true, ymd(2000, 1, 1), 0},
    {"seconds 1970 min", DF_SECONDS_1970, INT_MIN, 0, 0, false, -1, -1, true, ymd(1901, 12, 13), 74752000},
    {"seconds of year", DF_SECONDS_OF_YEAR, 86401, 2000, 0, false, -1, -1, true, ymd(2000, 1, 2), 1000},
    {"seconds of year 0", DF_SECONDS_OF_YEAR, 0, 0, 0, false, 5, 5, false, -1, -1},
    {"second of day", DF_SECOND_OF_DAY, 3600, 0, 0, false, 10, 5, true, 10, 3600000},
    {"second of day 86400", DF_SECOND_OF_DAY, 86400, 0, 0, false, 10, 5, false, 10, 0},
    {"second of day -1", DF_SECOND_OF_DAY, -1, 0, 0, false, 10, 5, false, 10, 0},
    {"second of day invalid", DF_SECOND_OF_DAY, 3600, 0, 0, false, -1, -1, false, -1, -1},
    {"hms on invalid", DF_HMS, 12, 30, 0, false, -1, -1, true, 0, 45000000},
    {"hms 24", DF_HMS, 24, 0, 0, false, 10, 5, false, 10, 0},
    {"hms negative", DF_HMS, 0, -1, 0, false, 10, 5, false, 10, 0},
    {"hms on -2", DF_HMS, 1, 0, 0, false, -2, 5, false, -1, -1},
    {"hhmm s", DF_HHMM_S, 1230, 15, 0, false, 10, 0, true, 10, 45015000},
    {"hhmmss", DF_HHMMSS, 235959, 0, 0, false, 10, 0, true, 10, 86399000},
    {"hhmmss 240000", DF_HHMMSS, 240000, 0, 0, false, 10, 5, false, 10, 0},
    {"hhmmss min", DF_HHMMSS, INT_MIN, 0, 0, false, 10, 5, false, 10, 0},
    {"tics of day", DF_TICS_OF_DAY, kLastTic, 0, 0, false, 10, 0, true, 10, kLastTic},
    {"tics of day 1 day", DF_TICS_OF_DAY, 86400000, 0, 0, false, 10, 5, false, 10, 0},
    {"tics of day -1", DF_TICS_OF_DAY, -1, 0, 0, false, 10, 5, false, 10, 0},
    {"msec", DF_MSEC, 999, 0, 0, false, 10, 1234, true, 10, 1999},
    {"msec 1000", DF_MSEC, 1000, 0, 0, false, 10, 1234, false, 10, 1234},
    {"msec on invalid", DF_MSEC, 5, 0, 0, false, -1, -1, false, -1, -1},
    {"msec on a garbage time wraps", DF_MSEC, 999, 0, 0, false, 10, INT_MAX, true, 10, -2147483297},
    {"raw 0", DF_RAW_COUNT, 0, 0, 0, false, 10, 10, true, -1, 0},
    {"raw 1", DF_RAW_COUNT, 1, 0, 0, false, -1, -1, true, -1, 1},
    {"raw a day", DF_RAW_COUNT, 86400000, 0, 0, false, 10, 10, false, 10, 10},
    {"raw -1", DF_RAW_COUNT, -1, 0, 0, false, 10, 10, false, 10, 10},
    {"invalid", DF_INVALID, 0, 0, 0, false, 10, 10, false, -1, -1},
    {"kind 46", 46, 0, 0, 0, false, 10, 10, true, 10, 10},
    {"kind -1 invalid day", -1, 0, 0, 0, false, -5, 10, false, -1, -1},
    {"kind max", INT_MAX, 0, 0, 0, false, -1, -1, false, -1, -1},
};

TEST(DateKernel, MakeFromIntegers) {
  for (const MakeCase& c : kMakeCases) {
    SCOPED_TRACE(c.label);
    int day = c.day0, tics = c.tics0;
    EXPECT_EQ(date_make(day, tics, c.kind, c.a, c.b, c.c, c.addCentury), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

struct MakeDoubleCase {
  const char* label;
  int kind;
  double a, b, c;
  bool ok;
  int day, tics;  // from the invalid form
};

const MakeDoubleCase kMakeDoubleCases[] = {
    {"gregday half", DF_GREGDAY, 0.5, 0, 0, true, 0, kNoon},
    {"gregday last", DF_GREGDAY, 3652058.5, 0, 0, true, 3652058, kNoon},
    {"gregday past", DF_GREGDAY, 3652059.0, 0, 0, false, -1, -1},
    {"gregday nan", DF_GREGDAY, kNaN, 0, 0, false, -1, -1},
    {"gregday inf", DF_GREGDAY, kInf, 0, 0, false, -1, -1},
    {"gregday 2^31", DF_GREGDAY, 2147483648.0, 0, 0, false, -1, -1},
    {"days1900 quarter", DF_DAYS_1900, 1.25, 0, 0, true, ymd(1900, 1, 2), 21600000},
    {"days2001 -inf", DF_DAYS_2001, -kInf, 0, 0, false, -1, -1},
    {"julian", DF_JULIAN_DAY, 2451545.75, 0, 0, true, ymd(2000, 1, 1), kNoon},
    {"julian nan in c", DF_JULIAN_DAY, 2451545.0, 0, kNaN, false, -1, -1},
    {"serial 0.5", DF_SERIAL_1900, 0.5, 0, 0, true, ymd(1899, 12, 31), kNoon},
    {"serial 60.5", DF_SERIAL_1900, 60.5, 0, 0, true, ymd(1900, 2, 28), kNoon},
    {"com 1.5", DF_COM_DATE, 1.5, 0, 0, true, ymd(1899, 12, 31), kNoon},
    {"com -1e300", DF_COM_DATE, -1e300, 0, 0, false, -1, -1},
    {"fraction ddd", DF_FRACTION_DDD, 1999.365, 0, 0, true, ymd(1999, 12, 31), 0},
    {"fraction ddd 0", DF_FRACTION_DDD, 1999.0, 0, 0, false, -1, -1},
    {"fraction ddd century", DF_FRACTION_DDD, 99.001, 0, 0, true, ymd(1999, 1, 1), 0},
    {"fraction mm", DF_FRACTION_MM, 1990.12, 25.0, 0, true, ymd(1990, 12, 25), 0},
    {"fraction mm nan day", DF_FRACTION_MM, 1990.12, kNaN, 0, false, -1, -1},
    {"fraction q", DF_FRACTION_Q, 1990.3, 0, 0, true, ymd(1990, 7, 1), 0},
    {"fraction q century", DF_FRACTION_Q, 90.3, 0, 0, true, ymd(1990, 7, 1), 0},
    {"fraction q 5", DF_FRACTION_Q, 1990.5, 0, 0, false, -1, -1},
    {"fraction s", DF_FRACTION_S, 1990.2, 0, 0, true, ymd(1990, 7, 1), 0},
    {"seconds 0001 max", DF_SECONDS_0001, CDateMin::GREGSEC_MAX, 0, 0, true, 3652058, 86399000},
    {"seconds 0001 past", DF_SECONDS_0001, CDateMin::GREGSEC_MAX + 1.0, 0, 0, false, -1, -1},
    {"seconds 0001 -0", DF_SECONDS_0001, -0.0, 0, 0, true, 0, 0},
    {"seconds 1970 0", DF_SECONDS_1970, 0.0, 0, 0, true, 719162, 0},
    {"seconds 1970 -1.5", DF_SECONDS_1970, -1.5, 0, 0, true, 719161, 86398500},
    {"seconds 1970 truncates", DF_SECONDS_1970, 0.0019, 0, 0, true, 719162, 1},
    {"seconds 1970 nan", DF_SECONDS_1970, kNaN, 0, 0, false, -1, -1},
    {"seconds 1960 1e300", DF_SECONDS_1960, 1e300, 0, 0, false, -1, -1},
    {"seconds of year", DF_SECONDS_OF_YEAR, 0.0, 2000.9, 0, true, ymd(2000, 1, 1), 0},
    {"seconds of year 10000", DF_SECONDS_OF_YEAR, 0.0, 10000.0, 0, false, -1, -1},
    {"seconds of year nan", DF_SECONDS_OF_YEAR, kNaN, 2000.0, 0, false, -1, -1},
    {"ymd floors", DF_YMD, 1999.9, 12.9, 31.9, true, ymd(1999, 12, 31), 0},
    {"kind 99", 99, 5.0, 0, 0, false, -1, -1},  // no row: only the (invalid) day is tested
};

TEST(DateKernel, MakeFromDoubles) {
  PinnedClock pinned(0);
  for (const MakeDoubleCase& c : kMakeDoubleCases) {
    SCOPED_TRACE(c.label);
    int day = -1, tics = -1;
    EXPECT_EQ(date_make_double(day, tics, c.kind, c.a, c.b, c.c), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

TEST(DateKernel, LocalStampsAndTheClock) {
  struct Case { const char* label; int offset; double stamp; bool ok; int day, tics; };
  const Case cases[] = {
      {"epoch utc", 0, 0.0, true, ymd(1970, 1, 1), 0},
      {"epoch utc+1", 3600, 0.0, true, ymd(1970, 1, 1), 3600000},
      {"epoch utc-1", -3600, 0.0, true, ymd(1969, 12, 31), 23 * 3600000},
      {"last stamp", 0, 4294967295.0, true, ymd(2106, 2, 7), (6 * 3600 + 28 * 60 + 15) * 1000},
      {"fraction dropped", 0, 1.9, true, ymd(1970, 1, 1), 1000},
      {"past the last", 0, 4294967296.0, false, -1, -1},
      {"negative", 0, -1.0, false, -1, -1},
      {"nan", 0, kNaN, false, -1, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    PinnedClock pinned(0, c.offset);
    int day = -1, tics = -1;
    EXPECT_EQ(date_make_double(day, tics, DF_SECONDS_LOCAL, c.stamp, 0, 0), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
    if (c.ok) {  // and back through the same zone
      double back = -7;
      date_split_double(day, tics, DF_SECONDS_LOCAL, &back);
      EXPECT_EQ(back, std::floor(c.stamp));
    }
  }
  PinnedClock pinned(946731600u, 3600);  // 2000-01-01 13:00 UTC
  for (int kind : {DF_NOW, DF_NOW_AGAIN, DF_TODAY}) {
    SCOPED_TRACE(kind);
    int day = 5, tics = 5;
    EXPECT_TRUE(date_make(day, tics, kind, INT_MIN, INT_MAX, 0, false));
    EXPECT_EQ(day, ymd(2000, 1, 1));
    EXPECT_EQ(tics, kind == DF_TODAY ? 0 : 14 * 3600000);
  }
  double stamp = 0;  // a moment before 1970 has no stamp
  date_split_double(0, 0, DF_SECONDS_LOCAL, &stamp);
  EXPECT_EQ(stamp, -1.0);
}

// ---- date_split

struct SplitCase {
  const char* label;
  int day, tics, kind;
  int a, b, c;  // kKeep: untouched
};

const SplitCase kSplitCases[] = {
    {"invalid zeroes", -1, -1, DF_YMD, 0, 0, 0},
    {"invalid zeroes any kind", -1, -1, 99, 0, 0, 0},
    {"gregday", 77, 0, DF_GREGDAY, 77, kKeep, kKeep},
    {"julian before noon", 0, kNoon - 1, DF_JULIAN_DAY, 1721425, kKeep, kKeep},
    {"julian from noon", 0, kNoon, DF_JULIAN_DAY, 1721426, kKeep, kKeep},
    {"julian J2000", ymd(2000, 1, 1), kNoon, DF_JULIAN_DAY, 2451545, kKeep, kKeep},
    {"mjd", ymd(2000, 1, 1), 0, DF_MJD, 51544, kKeep, kKeep},
    {"days1900", ymd(1900, 1, 1), 0, DF_DAYS_1900, 0, kKeep, kKeep},
    {"days1960", ymd(1960, 1, 2), 0, DF_DAYS_1960, 1, kKeep, kKeep},
    {"days2001", ymd(2000, 1, 1), 0, DF_DAYS_2001, -366, kKeep, kKeep},
    {"com", ymd(2000, 1, 1), 0, DF_COM_DATE, 36526, kKeep, kKeep},
    {"serial 59", ymd(1900, 2, 28), 0, DF_SERIAL_1900, 59, kKeep, kKeep},
    {"serial 61", ymd(1900, 3, 1), 0, DF_SERIAL_1900, 61, kKeep, kKeep},
    {"serial 2000", ymd(2000, 1, 1), 0, DF_SERIAL_1900, 36526, kKeep, kKeep},
    {"year yddd", ymd(2000, 12, 31), 0, DF_YEAR_YDDD, 2000, 366, kKeep},
    {"yyyyddd", ymd(2000, 12, 31), 0, DF_YYYYDDD, 2000366, kKeep, kKeep},
    {"ymd", ymd(1999, 12, 31), 0, DF_YMD, 1999, 12, 31},
    {"yyyymmdd", ymd(1999, 12, 31), 0, DF_YYYYMMDD, 19991231, kKeep, kKeep},
    {"ddmmyyyy", ymd(1999, 1, 31), 0, DF_DDMMYYYY, 31011999, kKeep, kKeep},
    {"mmddyyyy", ymd(1999, 1, 31), 0, DF_MMDDYYYY, 1311999, kKeep, kKeep},
    {"year week day", ymd(2021, 1, 8), 0, DF_YEAR_WEEK_DAY, 2021, 2, 5},
    {"yyyywwd", ymd(2021, 1, 8), 0, DF_YYYYWWD, 2021025, kKeep, kKeep},
    {"iso", ymd(2021, 1, 1), 0, DF_ISO_YEAR_WEEK_DAY, 2020, 53, 5},
    {"iso packed", ymd(2021, 1, 1), 0, DF_ISO_YYYYWWD, 2020535, kKeep, kKeep},
    {"seconds 1970", ymd(2000, 1, 1), 1999, DF_SECONDS_1970, 946684801, kKeep, kKeep},
    {"seconds 0001 too big", ymd(2000, 1, 1), 0, DF_SECONDS_0001, INT_MIN, kKeep, kKeep},
    {"second of day", 5, 3601999, DF_SECOND_OF_DAY, 3601, kKeep, kKeep},
    {"hms", 5, 86399999, DF_HMS, 23, 59, 59},
    {"hms 0", 5, 0, DF_HMS, 0, 0, 0},
    {"hhmm s", 5, 45015000, DF_HHMM_S, 1230, 15, kKeep},
    {"hhmmss", 5, 86399000, DF_HHMMSS, 235959, kKeep, kKeep},
    // tics of a whole day, which assignment from a double can leave: plain
    // division, not the zeroes of tics_to_hms
    {"hms whole day", 5, 86400000, DF_HMS, 24, 0, 0},
    {"hhmm s whole day", 5, 86400000, DF_HHMM_S, 2400, 0, kKeep},
    {"hhmmss whole day", 5, 86400000, DF_HHMMSS, 240000, kKeep, kKeep},
    {"hms ms dropped", 5, 3723999, DF_HMS, 1, 2, 3},
    {"tics", 5, 12345, DF_TICS_OF_DAY, 12345, kKeep, kKeep},
    {"msec", 5, 12345, DF_MSEC, 345, kKeep, kKeep},
    {"raw -2", -2, 5, DF_RAW_COUNT, 86400005, kKeep, kKeep},
    {"raw on a date", 5, 5, DF_RAW_COUNT, 0, kKeep, kKeep},
    {"raw -49 wraps", -49, kLastTic, DF_RAW_COUNT, static_cast<int>(4233599999u), kKeep, kKeep},
    {"one way in", 5, 5, DF_YYYYMM_D, kKeep, kKeep, kKeep},
    {"fraction", 5, 5, DF_FRACTION_Q, kKeep, kKeep, kKeep},
    {"now", 5, 5, DF_NOW, kKeep, kKeep, kKeep},
};

TEST(DateKernel, SplitToIntegers) {
  for (const SplitCase& c : kSplitCases) {
    SCOPED_TRACE(c.label);
    int a = kKeep, b = kKeep, cc = kKeep;
    date_split(c.day, c.tics, c.kind, &a, &b, &cc);
    EXPECT_EQ(a, c.a);
    EXPECT_EQ(b, c.b);
    EXPECT_EQ(cc, c.c);
  }
}

TEST(DateKernel, SplitToDouble) {
  struct Case { const char* label; int day, tics, kind; double out; bool na; };
  const Case cases[] = {
      {"julian day 0", 0, 0, DF_JULIAN_DAY, 1721425.5, false},
      {"julian J2000 noon", ymd(2000, 1, 1), kNoon, DF_JULIAN_DAY, 2451545.0, false},
      {"mjd", ymd(2000, 1, 1), kNoon, DF_MJD, 51544.5, false},
      {"gregday", 10, kNoon, DF_GREGDAY, 10.5, false},
      {"days2001", ymd(2000, 12, 31), kNoon, DF_DAYS_2001, -0.5, false},
      {"serial day 0", 0, kNoon, DF_SERIAL_1900, 0.5, false},
      {"serial 1900", ymd(1900, 1, 1), kNoon, DF_SERIAL_1900, 1.5, false},
      {"serial before 1900", 5, 0, DF_SERIAL_1900, 0, true},
      {"com day 0", 0, kNoon, DF_COM_DATE, 0.5, false},
      {"com 1899-12-31", ymd(1899, 12, 31), kNoon, DF_COM_DATE, 1.5, false},
      {"seconds 0001", 1, 1999, DF_SECONDS_0001, 86401.0, false},
      {"seconds 1960", ymd(1960, 1, 1), 0, DF_SECONDS_1960, 0.0, false},
      {"seconds 1970", ymd(1970, 1, 1), 0, DF_SECONDS_1970, 0.0, false},
      {"ymd as year", ymd(1999, 5, 5), 0, DF_YMD, 1999.0, false},
      {"negative day", -1, 0, DF_GREGDAY, 0, true},
      {"invalid", -1, -1, DF_YMD, 0, true},
      {"raw of invalid", -1, -1, DF_RAW_COUNT, 0.0, false},
      {"raw -2", -2, 5, DF_RAW_COUNT, 86400005.0, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    double out = 12345.0;
    date_split_double(c.day, c.tics, c.kind, &out);
    if (c.na) {
      EXPECT_TRUE(is_na_pattern(out));
    } else {
      EXPECT_EQ(out, c.out);
    }
  }
}

// ---- round trips over the day line

// Kinds that both date_make and date_split know, with no loss of the day.
const int kRoundTripKinds[] = {
    DF_GREGDAY,   DF_JULIAN_DAY, DF_MJD,      DF_DAYS_1900,        DF_DAYS_1960,      DF_DAYS_2001,
    DF_COM_DATE,  DF_YEAR_YDDD,  DF_YYYYDDD,  DF_YMD,              DF_YYYYMMDD,       DF_DDMMYYYY,
    DF_MMDDYYYY,  DF_YEAR_WEEK_DAY, DF_YYYYWWD, DF_ISO_YEAR_WEEK_DAY, DF_ISO_YYYYWWD,
};

void round_trip_days(int stride) {
  for (int kind : kRoundTripKinds) {
    int failures = 0;
    for (int day = 0; day <= CDateMin::GREGDAY_MAX && failures < 3; day += stride) {
      int a = 0, b = 0, c = 0;
      date_split(day, kNoon, kind, &a, &b, &c);
      int back = -1, tics = kNoon;
      if (!date_make(back, tics, kind, a, b, c, false) || back != day) {
        ADD_FAILURE() << "kind " << kind << " day " << day << " -> " << a << "," << b << "," << c
                      << " -> " << back;
        ++failures;
      }
    }
  }
  // DF_SERIAL_1900 from its first day on.
  for (int day = CDateMin::GREGDAY_1900; day <= CDateMin::GREGDAY_MAX; day += stride) {
    int a = 0, back = -1, tics = 0;
    date_split(day, 0, DF_SERIAL_1900, &a, nullptr, nullptr);
    ASSERT_TRUE(date_make(back, tics, DF_SERIAL_1900, a, 0, 0, false));
    ASSERT_EQ(back, day);
  }
}

#if TXCOMMON_EXHAUSTIVE
TEST(DateKernel, EveryDayRoundTripsThroughEveryDayKind) { round_trip_days(1); }
#endif

TEST(DateKernel, SampledDaysRoundTrip) { round_trip_days(811); }

TEST(DateKernel, EveryWholeSecondRoundTripsThroughTheTimeKinds) {
  for (int kind : {DF_SECOND_OF_DAY, DF_HMS, DF_HHMM_S, DF_HHMMSS, DF_TICS_OF_DAY}) {
    for (int tics = 0; tics < CDateMin::TICS_PER_DAY; tics += 1000) {
      int a = 0, b = 0, c = 0;
      date_split(7, tics, kind, &a, &b, &c);
      int day = 7, back = 5;
      ASSERT_TRUE(date_make(day, back, kind, a, b, c, false)) << kind << " " << tics;
      ASSERT_EQ(back, tics) << kind;
      ASSERT_EQ(day, 7);
    }
  }
}

TEST(DateKernel, DoubleKindsRoundTrip) {
  // From day 1: a COM DATE of day 0 is a pure time of day, which has no way back.
  for (int day = 1; day <= CDateMin::GREGDAY_MAX; day += 7919) {
    for (int kind : {DF_GREGDAY, DF_DAYS_1900, DF_DAYS_1960, DF_DAYS_2001, DF_COM_DATE, DF_SECONDS_0001,
                     DF_SECONDS_1960, DF_SECONDS_1970}) {
      const int tics = 12345000;  // whole seconds survive the seconds kinds too
      double x;
      date_split_double(day, tics, kind, &x);
      int back = -1, backTics = -1;
      ASSERT_TRUE(date_make_double(back, backTics, kind, x, 0, 0)) << kind << " " << day;
      ASSERT_EQ(back, day) << kind;
      ASSERT_EQ(backTics, tics) << kind;
    }
  }
}

// ---- hostile arguments: false with the invalid form or the day kept, a
// valid pair on success, and nothing undefined (the sanitizer build).

const int kIntEdges[] = {INT_MIN, INT_MIN + 1, -1000001, -1, 0, 1, 999999, 1000000, INT_MAX - 1, INT_MAX};

void expect_sane(bool ok, int day0, int day, int tics, int kind) {
  if (ok) {
    const bool raw = kind == DF_RAW_COUNT && day == -1;
    EXPECT_TRUE(raw || (day >= 0 && day <= CDateMin::GREGDAY_MAX)) << kind << " day " << day;
    EXPECT_TRUE(tics >= 0 && tics <= CDateMin::TICS_PER_DAY) << kind << " tics " << tics;
  } else {
    EXPECT_TRUE((day == -1 && tics == -1) || day == day0) << kind << " day " << day;
  }
}

TEST(DateKernel, IntegerEdgesForEveryKind) {
  PinnedClock pinned(4294967295u);
  for (int kind = -2; kind <= 47; ++kind) {
    for (int a : kIntEdges)
      for (int b : kIntEdges)
        for (int c : kIntEdges)
          for (bool addCentury : {false, true}) {
            int day = 100, tics = 5;
            const bool ok = date_make(day, tics, kind, a, b, c, addCentury);
            expect_sane(ok, 100, day, tics, kind);
          }
  }
}

TEST(DateKernel, DoubleEdgesForEveryKind) {
  PinnedClock pinned(0);
  const double edges[] = {kNaN, kInf, -kInf, 1e300, -1e300, 2147483648.0, -2147483649.0, 4294967296.0,
                          CDateMin::GREGSEC_MAX + 1.0, -0.0, 0.5, 2000.5, -0.5, 3652058.9999999};
  for (int kind = -2; kind <= 47; ++kind) {
    for (double a : edges)
      for (double b : edges) {
        int day = 100, tics = 5;
        const bool ok = date_make_double(day, tics, kind, a, b, 1.0);
        expect_sane(ok, 100, day, tics, kind);
      }
  }
}

TEST(DateKernel, SplitOfAnyPairIsDefined) {
  PinnedClock pinned(0);
  const int days[] = {INT_MIN, -50, -49, -2, -1, 0, 1, CDateMin::GREGDAY_MAX, CDateMin::GREGDAY_MAX + 1, INT_MAX};
  const int tics[] = {INT_MIN, -1, 0, 1, kLastTic, CDateMin::TICS_PER_DAY, INT_MAX};
  for (int kind = -2; kind <= 47; ++kind)
    for (int day : days)
      for (int t : tics) {
        int a = 0, b = 0, c = 0;
        date_split(day, t, kind, &a, &b, &c);
        double x = 0;
        date_split_double(day, t, kind, &x);
        if (day < 0 && kind != DF_RAW_COUNT) {
          EXPECT_TRUE(is_na_pattern(x));
        }
      }
}

}  // namespace
