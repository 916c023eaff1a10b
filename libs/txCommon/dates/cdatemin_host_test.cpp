// The few date calls that report AssertFailed to a registered host, and the
// many that must not.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

class DateAsserts : public testing::Test {
protected:
  void SetUp() override {
    fakeHost().reset();
    txc::platform::pin_clock(0);
    txc::platform::pin_zone(0);
  }
  void TearDown() override {
    txc::platform::unpin_clock();
    txc::platform::unpin_zone();
  }
  static std::size_t asserts() { return fakeHost().asserts.size(); }
};

TEST_F(DateAsserts, DayOutOfRangeInCalendarConversions) {
  const int days[] = {-1, CDateMin::GREGDAY_MAX + 1, INT_MIN, INT_MAX};
  for (int day : days) {
    SCOPED_TRACE(day);
    fakeHost().reset();
    int y = 0, m = 0, d = 0;
    CDateMin::gregday_to_yddd(day, y, d);
    CDateMin::gregday_to_ymd(day, y, m, d);
    EXPECT_EQ(asserts(), 2u);
    if (!fakeHost().asserts.empty()) {
      EXPECT_NE(fakeHost().asserts[0].first.find("calendar"), std::string::npos);
      EXPECT_GT(fakeHost().asserts[0].second, 0);
    }
  }
  fakeHost().reset();
  int y, m, d;
  CDateMin::gregday_to_ymd(0, y, m, d);
  CDateMin::gregday_to_ymd(CDateMin::GREGDAY_MAX, y, m, d);
  EXPECT_EQ(asserts(), 0u);
}

TEST_F(DateAsserts, KindsThePublicRoadDoesNotTake) {
  struct Case { DateFormatMin kind; bool makeAsserts, splitAsserts; };
  const Case cases[] = {
      {DF_GREGDAY, false, false},    {DF_YMD, false, false},         {DF_YYYYMMDD, true, true},
      {DF_MJD, false, true},         {DF_DAYS_1960, true, true},     {DF_RAW_COUNT, true, false},
      {DF_TICS_OF_DAY, true, true},  {DF_NOW, false, true},          {DF_INVALID, false, true},
      {static_cast<DateFormatMin>(46), true, true},
      {static_cast<DateFormatMin>(-1), true, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.kind));
    fakeHost().reset();
    int day = 10, tics = 5;
    CDateMin::make_date(day, tics, c.kind, 1, 1, 1, false);
    EXPECT_EQ(asserts(), c.makeAsserts ? 1u : 0u);
    fakeHost().reset();
    int a = 7, b = 7, cc = 7;
    CDateMin::split_date(730000, 5, c.kind, &a, &b, &cc);
    EXPECT_EQ(asserts(), c.splitAsserts ? 1u : 0u);
    if (c.splitAsserts) {
      EXPECT_EQ(a + b + cc, 21);  // outputs untouched
    }
  }
}

TEST_F(DateAsserts, MakeOnAnUnsupportedKindOnlyTestsTheDay) {
  int day = 10, tics = -1;
  EXPECT_TRUE(CDateMin::make_date(day, tics, DF_YYYYQ, 19994, 0, 0, false));
  EXPECT_EQ(day, 10);
  EXPECT_EQ(tics, 0);
  EXPECT_EQ(asserts(), 1u);
  fakeHost().reset();
  day = -1;
  tics = -1;
  EXPECT_FALSE(CDateMin::make_date(day, tics, DF_YYYYQ, 19994, 0, 0, false));
  EXPECT_EQ(day, -1);
  EXPECT_EQ(tics, -1);
  EXPECT_EQ(asserts(), 1u);
}

TEST_F(DateAsserts, SplittingARawCountAsACalendarDateAsserts) {
  int a = 0, b = 0, c = 0;
  CDateMin::split_date(-2, 5, DF_YMD, &a, &b, &c);
  EXPECT_EQ(asserts(), 1u);
  fakeHost().reset();
  CDateMin::split_date(-2, 5, DF_RAW_COUNT, &a, nullptr, nullptr);
  EXPECT_EQ(a, 86400005);
  EXPECT_EQ(asserts(), 0u);
}

TEST_F(DateAsserts, TheKernelNeverReports) {
  for (int kind = -2; kind <= 47; ++kind) {
    int day = 100, tics = 5;
    date_make(day, tics, kind, INT_MIN, INT_MAX, -1, true);
    date_make_double(day, tics, kind, 1e300, -1.0, 0.5);
    int a, b, c;
    date_split(-2, 5, kind, &a, &b, &c);
    date_split(INT_MAX, INT_MAX, kind, &a, &b, &c);
    double x;
    date_split_double(-2, 5, kind, &x);
  }
  EXPECT_EQ(asserts(), 0u);
  EXPECT_TRUE(fakeHost().reports.empty());
}

}  // namespace
