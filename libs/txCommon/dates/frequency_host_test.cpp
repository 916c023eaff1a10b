// With a host registered, frequency arithmetic and date text report nothing:
// no error code and no AssertFailed, even for days off the calendar, raw
// counts, broken records and hostile text. Every failure stays in the
// results.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

class DatesReportNothing : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override {
    EXPECT_TRUE(fakeHost().asserts.empty());
    EXPECT_TRUE(fakeHost().reports.empty());
  }
};

const int kDays[] = {INT_MIN, -50, -49, -2, -1, 0, 1, 730000, CDateMin::GREGDAY_MAX,
                     CDateMin::GREGDAY_MAX + 1, INT_MAX};
const int kTics[] = {-1, 0, 43200000, 86399999, 86400000, INT_MAX};
const int kCounts[] = {INT_MIN, -1000000, -1, 0, 1, 1000000, INT_MAX};

TEST_F(DatesReportNothing, StepsAndDifferencesOffTheCalendar) {
  for (int day : kDays) {
    for (int tics : kTics) {
      for (int frequency = -1; frequency <= 18; ++frequency) {
        for (int n : kCounts) {
          int d = day, t = tics;
          date_add(d, t, frequency, n);
        }
        int result = 0;
        char weekend = 0;
        date_diff(result, day, tics, 730000, 0, frequency, 1, &weekend);
        date_diff(result, 730000, 0, day, tics, frequency, 3, nullptr);
        int months = 0, days = 0, rest = 0;
        date_span(day, tics, 730000, 0, months, days, rest);
      }
    }
  }
}

TEST_F(DatesReportNothing, YearsAndRecords) {
  const RegularFreq records[] = {
      {0, 0, FREQ_DAILY, 1, 0, 5, 7, 0, 0},
      {-1, 0, FREQ_RAW, 1, 0, 0, 0, 0, 0},
      {CDateMin::GREGDAY_MAX, 0, FREQ_HOUR, 3, INT_MAX, 40, 56, 8, 24},
      {730000, 0, FREQ_MONTHLY, 0, 0, 0, 0, 0, 0},
      {730000, 0, FREQ_WEEKLY, -2, INT_MIN, INT_MAX, 1, INT_MAX, 1},
  };
  for (const RegularFreq& r : records) {
    for (int year : {INT_MIN, 0, 1, 99, 9999, 10000}) {
      for (int n : kCounts) {
        int d = 0, t = 0;
        freq_period_of_year(r, d, t, year, n, true);
        period_of_year(d, t, r.frequency, year, n);
        freq_date(r, n, d, t);
      }
    }
    for (int day : kDays) freq_index(r, day, 0, day % 2 == 0);
  }
}

TEST_F(DatesReportNothing, HostileText) {
  const std::string texts[] = {"", "@NOW", "1990Q3", "1/15/90 23:30 EST", "1/1/0001 0:30 CET",
                               "99999999999", "\xff\xfe", "31 Dec 9999 23:59 -12:00",
                               std::string(1 << 16, '1'), "Jan 15" + std::string(1 << 16, ' ')};
  for (const std::string& s : texts) {
    int day = 0, tics = 0, frequency = 0, step = 0, used = 0;
    parse_date_text(day, tics, frequency, step, s.c_str(), -1, nullptr, 0, nullptr, kDefaultDateHint);
    parse_date_text(day, tics, frequency, step, s.c_str(), static_cast<int>(s.size()), &used, 1,
                    nullptr, 0xFFFFFFFFu);
  }
}

}  // namespace
