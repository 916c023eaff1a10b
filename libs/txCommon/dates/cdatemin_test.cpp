// CDateMin: the three forms, the double encoding, and the public make_date /
// split_date where they differ from the kernel (pure times on day 0, whole
// days in the double split, the kinds the public road doesn't take).
#include <txCommon/CDateMin.h>
#include <txCommon/internal/platform_clock.h>

#include <gtest/gtest.h>

#include "civil_oracle.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

constexpr int kNoon = 43200000;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

std::uint64_t bits_of(double x) {
  std::uint64_t b;
  std::memcpy(&b, &x, sizeof b);
  return b;
}
constexpr std::uint64_t kNaBits = 0xFFF8000000000000ULL;

TEST(CDateMin, FormsAndTests) {
  struct Case { int day, tics; bool valid, raw; };
  const Case cases[] = {
      {-1, -1, false, false}, {-50, -1, false, false}, {0, 0, true, false},    {3652058, 86399999, true, false},
      {-1, 0, true, true},    {-49, 5, true, true},    {-50, 0, true, false}, {INT_MIN, 0, true, false},
      {5, -1, true, false},   {INT_MIN, -1, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.day << "," << c.tics);
    CDateMin d;
    d.gregday = c.day;
    d.tics = c.tics;
    EXPECT_EQ(d.is_valid(), c.valid);
    EXPECT_EQ(d.is_rawint(), c.raw);
  }
  CDateMin d;
  EXPECT_FALSE(d.is_valid());
  EXPECT_EQ(bits_of(static_cast<double>(d)), kNaBits);
}

TEST(CDateMin, AssignmentFromDouble) {
  struct Case { double x; bool valid; int day, tics; };
  const Case cases[] = {
      {0.5, true, 0, kNoon},
      {-0.25, true, -1, 64800000},
      {-50.0, true, -50, 0},
      {-50.5, false, -1, -1},
      {3652058.999, true, 3652058, 86313600},
      {3652059.0, false, -1, -1},
      {kNaN, false, -1, -1},
      {kInf, false, -1, -1},
      {-kInf, false, -1, -1},
      {0.99999999999, true, 0, 86400000},  // rounds up with no carry into the day
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.x);
    CDateMin d(c.x);
    EXPECT_EQ(d.is_valid(), c.valid);
    EXPECT_EQ(d.gregday, c.day);
    EXPECT_EQ(d.tics, c.tics);
  }
  EXPECT_EQ(static_cast<double>(CDateMin(0.5)), 0.5);
  EXPECT_EQ(static_cast<double>(CDateMin(-0.25)), -0.25);
  CDateMin na;
  na = std::bit_cast<double>(kNaBits);
  EXPECT_FALSE(na.is_valid());
  CDateMin moved(CDateMin(7.5));
  CDateMin source(2.0);
  moved = std::move(source);
  EXPECT_EQ(source.gregday, 2);  // a move copies
  EXPECT_EQ(moved.gregday, 2);
}

TEST(CDateMin, MakeDateIntegers) {
  struct Case { const char* label; DateFormatMin kind; int a, b, c; bool century; int day0, tics0; bool ok; int day, tics; };
  const Case cases[] = {
      {"ymd 99 century", DF_YMD, 99, 1, 1, true, -1, -1, true, oracle::day(1999, 1, 1), 0},
      {"ymd 99 plain", DF_YMD, 99, 1, 1, false, -1, -1, true, oracle::day(99, 1, 1), 0},
      {"ymd 31 april", DF_YMD, 2001, 4, 31, false, 5, 5, false, -1, -1},
      {"hms 24", DF_HMS, 24, 0, 0, false, 10, 5, false, 10, 0},
      {"julian", DF_JULIAN_DAY, 2451545, 0, 0, false, -1, -1, true, oracle::day(2000, 1, 1), kNoon},
      {"second of day on invalid", DF_SECOND_OF_DAY, 1, 0, 0, false, -1, -1, false, -1, -1},
      {"msec on invalid", DF_MSEC, 1, 0, 0, false, -1, -1, false, -1, -1},
      {"hms on invalid", DF_HMS, 1, 0, 0, false, -1, -1, true, 0, 3600000},
      {"seconds 1970", DF_SECONDS_1970, 0, 0, 0, false, -1, -1, true, 719162, 0},
      // A kind this road refuses leaves a calendar day as it is (true) and an
      // invalid pair invalid, never a raw count.
      {"not on this road", DF_YYYYMMDD, 19991231, 0, 0, false, 10, -1, true, 10, 0},
      {"not on this road, invalid", DF_YYYYMMDD, 19991231, 0, 0, false, -1, -1, false, -1, -1},
      {"no raw counts", DF_RAW_COUNT, 1, 0, 0, false, 10, 5, true, 10, 5},
      {"no raw counts, invalid", DF_RAW_COUNT, 1, 0, 0, false, -1, -1, false, -1, -1},
      {"no raw counts, raw", DF_TICS_OF_DAY, 1, 0, 0, false, -2, 5, false, -1, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    int day = c.day0, tics = c.tics0;
    EXPECT_EQ(CDateMin::make_date(day, tics, c.kind, c.a, c.b, c.c, c.century), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

TEST(CDateMin, MakeDateDoubles) {
  struct Case { const char* label; DateFormatMin kind; double a, b; bool ok; int day, tics; };
  const Case cases[] = {
      {"com 0.5 is a time", DF_COM_DATE, 0.5, 0, true, 0, kNoon},
      {"com 1.5", DF_COM_DATE, 1.5, 0, true, oracle::day(1899, 12, 31), kNoon},
      {"com nan", DF_COM_DATE, kNaN, 0, false, -1, -1},
      {"serial 0.25 is a time", DF_SERIAL_1900, 0.25, 0, true, 0, 21600000},
      {"serial 1", DF_SERIAL_1900, 1, 0, true, oracle::day(1900, 1, 1), 0},
      {"serial 59", DF_SERIAL_1900, 59, 0, true, oracle::day(1900, 2, 28), 0},
      {"serial 60", DF_SERIAL_1900, 60, 0, true, oracle::day(1900, 2, 28), 0},
      {"serial 61", DF_SERIAL_1900, 61, 0, true, oracle::day(1900, 3, 1), 0},
      {"fraction q", DF_FRACTION_Q, 1990.3, 0, true, oracle::day(1990, 7, 1), 0},
      {"fraction mm", DF_FRACTION_MM, 1990.12, 25.0, true, oracle::day(1990, 12, 25), 0},
      {"seconds 1970", DF_SECONDS_1970, 0.0, 0, true, 719162, 0},
      {"seconds 1960", DF_SECONDS_1960, 0.0, 0, true, oracle::day(1960, 1, 1), 0},
      {"gregday -inf", DF_GREGDAY, -kInf, 0, false, -1, -1},
      {"ymd b nan", DF_YMD, 1999, kNaN, false, -1, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    int day = -1, tics = -1;
    EXPECT_EQ(CDateMin::make_date(day, tics, c.kind, c.a, c.b, 1.0), c.ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

TEST(CDateMin, SplitDate) {
  double out = -7;
  CDateMin::split_date(0, kNoon, DF_COM_DATE, &out);
  EXPECT_EQ(out, 0.5);
  CDateMin::split_date(-1, -1, DF_RAW_COUNT, &out);
  EXPECT_EQ(out, 0.0);
  CDateMin::split_date(-1, -1, DF_YMD, &out);
  EXPECT_EQ(bits_of(out), kNaBits);
  CDateMin::split_date(oracle::day(1970, 1, 1), 1500, DF_SECONDS_1970, &out);
  EXPECT_EQ(out, 1.0);
  CDateMin::split_date(oracle::day(1900, 1, 2), kNoon, DF_DAYS_1900, &out);
  EXPECT_EQ(out, 1.0);  // whole days on this road
  int a = 0, b = 0, c = 0;
  CDateMin::split_date(-2, 5, DF_RAW_COUNT, &a, nullptr, nullptr);
  EXPECT_EQ(a, 86400005);
  CDateMin::split_date(oracle::day(1999, 12, 31), 0, DF_YMD, &a, &b, &c);
  EXPECT_EQ(a * 10000 + b * 100 + c, 19991231);
  a = b = c = 9;
  CDateMin::split_date(-1, -1, DF_HMS, &a, &b, &c);
  EXPECT_EQ(a + b + c, 0);
  // A fraction that rounded up to a whole day divides into 24:00:00.
  CDateMin full(0.99999999999);
  full.split(DF_HMS, &a, &b, &c);
  EXPECT_EQ(a * 10000 + b * 100 + c, 240000);
}

TEST(CDateMin, RefusedKindsKeepTheForm) {
  CDateMin none;
  EXPECT_FALSE(none.set(DF_DAYS_1960, 5.0));  // the double road hands it to the integer one
  EXPECT_FALSE(none.is_valid());
  EXPECT_FALSE(none.is_rawint());
  CDateMin day(DF_YMD, 1999, 12, 31);
  EXPECT_TRUE(day.set(DF_YYYYQ, 19994.0));
  EXPECT_EQ(day.gregday, oracle::day(1999, 12, 31));
}

TEST(CDateMin, MembersRoundTrip) {
  txc::platform::pin_zone(0);
  // From the year 101 on: the double road applies the century rule to years
  // below 100.
  for (int day = 40000; day <= CDateMin::GREGDAY_MAX; day += 9973) {
    CDateMin d(DF_GREGDAY, day + 0.25);
    ASSERT_TRUE(d.is_valid());
    EXPECT_EQ(d.gregday, day);
    EXPECT_EQ(d.tics, 21600000);
    int y, m, dd;
    d.split(DF_YMD, &y, &m, &dd);
    CDateMin e(DF_YMD, y, m, dd);
    EXPECT_EQ(e.gregday, day);
    EXPECT_TRUE(e.set(DF_HMS, 6, 0, 0));
    EXPECT_EQ(static_cast<double>(e), static_cast<double>(d));
    double com;
    d.split(DF_COM_DATE, &com);
    EXPECT_TRUE(e.set(DF_COM_DATE, com));
    EXPECT_EQ(e.gregday, day);
  }
  txc::platform::unpin_zone();
}

}  // namespace
