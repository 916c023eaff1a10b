// Date text: tables of texts with the day, time, frequency and bytes used
// that each must give, grouped by form and hint, and hostile input.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr unsigned kStart = kDefaultDateHint;
constexpr int kHour = 3600000;
constexpr int kMinute = 60000;
constexpr int kFail = -99;  // the expected day of a text that is no date

int ymd(int y, int m, int d) {
  int day = -1;
  CDateMin::ymd_to_gregday(day, y, m, d, false);
  return day;
}

struct Case {
  const char* text;
  unsigned hint;
  int day;  // kFail: invalid form expected
  int tics;
  int frequency;
};

// Whole-text mode: the day, time and frequency, or the invalid form.
void check_whole(const Case* cases, std::size_t n, const RegularFreq* freq = nullptr) {
  for (std::size_t i = 0; i < n; ++i) {
    const Case& c = cases[i];
    SCOPED_TRACE(testing::Message() << "[" << c.text << "] hint 0x" << std::hex << c.hint);
    int day = 7, tics = 7, frequency = 7, step = 7;
    const bool ok = parse_date_text(day, tics, frequency, step, c.text, -1, nullptr, 0, freq, c.hint);
    if (c.day == kFail) {
      EXPECT_FALSE(ok);
      EXPECT_EQ(day, -1);
      EXPECT_EQ(tics, -1);
      continue;
    }
    EXPECT_TRUE(ok);
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
    EXPECT_EQ(frequency, c.frequency);
    // The same text given by its length must read the same.
    int day2 = 0, tics2 = 0, f2 = 0, s2 = 0;
    parse_date_text(day2, tics2, f2, s2, c.text, static_cast<int>(std::strlen(c.text)), nullptr,
                    0, freq, c.hint);
    EXPECT_EQ(day2, day);
    EXPECT_EQ(tics2, tics);
  }
}

TEST(ParseDateText, OneNumber) {
  const unsigned dmy = DH_DAY_MONTH_YEAR | DH_DAY_NUMBER;
  const Case cases[] = {
      {"1990", kStart, ymd(1990, 1, 1), 0, FREQ_ANNUAL},
      {"90", kStart, ymd(1990, 1, 1), 0, FREQ_ANNUAL},
      {"29", kStart, ymd(2029, 1, 1), 0, FREQ_ANNUAL},
      {"123", kStart, ymd(123, 1, 1), 0, FREQ_ANNUAL},
      {"0", kStart, ymd(2000, 1, 1), 0, FREQ_ANNUAL},
      {"  1990  ", kStart, ymd(1990, 1, 1), 0, FREQ_ANNUAL},
      {"123190", kStart, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"12311990", kStart, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"19901231", kStart, kFail, 0, 0},  // month 19
      {"133190", kStart, 133190, 0, FREQ_DAILY},
      {"13319", kStart, 13319, 0, FREQ_DAILY},
      {"133190", DH_MONTH_DAY_YEAR, kFail, 0, 0},  // no day numbers
      {"023190", kStart, kFail, 0, 0},              // 31 February
      {"311290", dmy, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"31121990", dmy, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"901231", DH_YEAR_MONTH_DAY, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"19901231", DH_YEAR_MONTH_DAY, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"19901231", 0, ymd(1990, 12, 31), 0, FREQ_DAILY},
      {"123456789", kStart, kFail, 0, 0},
      {"19902", DH_QUARTERLY, ymd(1990, 4, 1), 0, FREQ_QUARTERLY},
      {"19905", DH_QUARTERLY, kFail, 0, 0},
      {"199002", DH_MONTHLY, ymd(1990, 2, 1), 0, FREQ_MONTHLY},
      {"19902", DH_SEMIANNUAL, ymd(1990, 7, 1), 0, FREQ_SEMIANNUAL},
      {"199002", DH_WEEKLY, ymd(1990, 1, 8), 0, FREQ_SEMIANNUAL},  // second Monday
      {"1990032", DH_DAILY, ymd(1990, 2, 1), 0, FREQ_SEMIANNUAL},
      {"9002", DH_MONTHLY | DH_QUARTERLY, ymd(900, 4, 1), 0, FREQ_QUARTERLY},  // quarterly first
      {"902", DH_QUARTERLY | DH_MONTHLY, ymd(1990, 4, 1), 0, FREQ_QUARTERLY},
      {"9002", DH_MONTHLY | DH_SEMIANNUAL, ymd(1990, 2, 1), 0, FREQ_MONTHLY},
      {"7", DH_TIME_OF_DAY, 0, 7 * kHour, FREQ_HOUR},
      {"24", DH_TIME_OF_DAY, kFail, 0, 0},
      {"25", DH_TIME_OF_DAY, ymd(2025, 1, 1), 0, FREQ_ANNUAL},
      {"Jan", kStart, kFail, 0, 0},
  };
  check_whole(cases, std::size(cases));
}

TEST(ParseDateText, TwoFields) {
  const Case cases[] = {
      {"Jan 1990", kStart, ymd(1990, 1, 1), 0, FREQ_MONTHLY},
      {"1990 January", kStart, ymd(1990, 1, 1), 0, FREQ_MONTHLY},
      {"jan90", kStart, ymd(1990, 1, 1), 0, FREQ_MONTHLY},
      {"1990Q3", kStart, ymd(1990, 7, 1), 0, FREQ_QUARTERLY},
      {"1990q3", kStart, ymd(1990, 7, 1), 0, FREQ_QUARTERLY},
      {"1990Q5", kStart, kFail, 0, 0},
      {"1990M2", kStart, ymd(1990, 2, 1), 0, FREQ_MONTHLY},
      {"90S2", kStart, ymd(1990, 7, 1), 0, FREQ_SEMIANNUAL},
      {"1990W2", kStart, ymd(1990, 1, 8), 0, FREQ_WEEKLY},
      {"1990D32", kStart, ymd(1990, 2, 1), 0, FREQ_DAILY},
      {"1990H25", kStart, ymd(1990, 1, 2), 0, FREQ_HOUR},
      {"1990T4", kStart, ymd(1990, 2, 1), 0, FREQ_TEN_DAY},
      {"1990:3", kStart, kFail, 0, 0},
      {"1990 3", kStart, kFail, 0, 0},
      {"1990:3", DH_QUARTERLY, ymd(1990, 7, 1), 0, FREQ_QUARTERLY},
      {"1990/3", DH_MONTHLY, ymd(1990, 3, 1), 0, FREQ_MONTHLY},
      {"3 1990", DH_QUARTERLY | DH_YEAR_SECOND, ymd(1990, 7, 1), 0, FREQ_QUARTERLY},
      {"3 90", DH_QUARTERLY | DH_YEAR_SECOND, ymd(1990, 7, 1), 0, FREQ_QUARTERLY},
      {"7:30", DH_TIME_OF_DAY, 0, 7 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"7:75", DH_TIME_OF_DAY, kFail, 0, 0},
      {"Janx 1990", kStart, kFail, 0, 0},
      {"Jan Feb", kStart, kFail, 0, 0},
  };
  check_whole(cases, std::size(cases));
}

TEST(ParseDateText, PairsWithARecord) {
  const RegularFreq monthly{0, 0, FREQ_MONTHLY, 1, 0, 0, 0, 0, 0};
  const RegularFreq twoMonths{0, 0, FREQ_MONTHLY, 2, 0, 0, 0, 0, 0};
  int day = 0, tics = 0, frequency = 0, step = 0;
  EXPECT_TRUE(parse_date_text(day, tics, frequency, step, "1990:3", -1, nullptr, 0, &monthly, kStart));
  EXPECT_EQ(day, ymd(1990, 3, 1));
  EXPECT_EQ(frequency, FREQ_MONTHLY);
  EXPECT_EQ(step, 1);
  EXPECT_TRUE(parse_date_text(day, tics, frequency, step, "1990:3", -1, nullptr, 0, &twoMonths, kStart));
  EXPECT_EQ(day, ymd(1990, 5, 1));  // observations on odd months from January 1 AD
  EXPECT_EQ(step, 2);

  const RegularFreq raw{-1, 0, FREQ_RAW, 1, 0, 0, 0, 0, 0};
  for (const char* text : {"U25", "25"}) {
    SCOPED_TRACE(text);
    EXPECT_TRUE(parse_date_text(day, tics, frequency, step, text, -1, nullptr, 0, &raw, kStart));
    EXPECT_EQ(day, -1);
    EXPECT_EQ(tics, 25);
    EXPECT_EQ(frequency, FREQ_RAW);
  }
  EXPECT_TRUE(parse_date_text(day, tics, frequency, step, "86400005", -1, nullptr, 0, &raw, kStart));
  EXPECT_EQ(day, -2);
  EXPECT_EQ(tics, 5);
  EXPECT_FALSE(parse_date_text(day, tics, frequency, step, "1990:3", -1, nullptr, 0, &raw, kStart));
}

TEST(ParseDateText, ThreeFields) {
  const unsigned dmyOnly = DH_DAY_MONTH_YEAR;
  const Case cases[] = {
      {"1/15/90", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1/15/1990", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1990-01-15", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1990\\1\\15", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"31/1/90", kStart, kFail, 0, 0},
      {"31/1/90", dmyOnly, ymd(1990, 1, 31), 0, FREQ_DAILY},
      {"31/1/1990", dmyOnly, ymd(1990, 1, 31), 0, FREQ_DAILY},
      {"31/1/1990", dmyOnly | DH_MONTH_FIRST_LONG_YEAR, kFail, 0, 0},
      {"90/1/31", 0, ymd(1990, 1, 31), 0, FREQ_DAILY},
      {"1 2 3", kStart, ymd(2003, 1, 2), 0, FREQ_DAILY},
      {"1-2/3", kStart, kFail, 0, 0},
      {"15 Jan 1990", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"Jan 15, 1990", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"15-jan-90", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"15th January 1990", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1st Feb 1990", kStart, ymd(1990, 2, 1), 0, FREQ_DAILY},
      {"22ND Feb 1990", kStart, ymd(1990, 2, 22), 0, FREQ_DAILY},
      {"11th Feb 1990", kStart, ymd(1990, 2, 11), 0, FREQ_DAILY},
      {"1th Feb 1990", kStart, kFail, 0, 0},
      {"15 1990 Jan", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1990 Jan 15", kStart, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"1/2/90", DH_MONTH_DAY_YEAR | DH_DAY_MONTH_YEAR, ymd(1990, 1, 2), 0, FREQ_DAILY},
      {"1/2/1990", 0, ymd(1990, 2, 1), 0, FREQ_DAILY},
      {"1/2/1990", DH_MONTH_FIRST_LONG_YEAR, ymd(1990, 1, 2), 0, FREQ_DAILY},
      {"1/2/03", 0, ymd(2001, 2, 3), 0, FREQ_DAILY},
      {"1/2/03", DH_YEAR_MONTH_DAY, ymd(2001, 2, 3), 0, FREQ_DAILY},
      {"0099/1/2", kStart, ymd(99, 1, 2), 0, FREQ_DAILY},
  };
  check_whole(cases, std::size(cases));
  // "90 Jan 15": the day is 90 without DH_YEAR_MONTH_DAY, which no month has.
  const Case named[] = {
      {"90 Jan 15", kStart, kFail, 0, 0},
      {"90 Jan 15", DH_YEAR_MONTH_DAY, ymd(1990, 1, 15), 0, FREQ_DAILY},
      {"30 Feb 1990", kStart, kFail, 0, 0},
      {"15 Jan 10000", kStart, kFail, 0, 0},
  };
  check_whole(named, std::size(named));
}

TEST(ParseDateText, Times) {
  const int jan15 = ymd(1990, 1, 15);
  const Case cases[] = {
      {"1990-01-15 10:30", kStart, jan15, 10 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1990-01-15 10", kStart, kFail, 0, 0},
      {"1990-01-15T10", kStart, jan15, 10 * kHour, FREQ_HOUR},
      {"1990-01-15T10:30:00.5", kStart, jan15, 10 * kHour + 30 * kMinute + 500, FREQ_MSEC},
      {"1/15/90 10:30:15.5", kStart, jan15, 37815500, FREQ_MSEC},
      {"1/15/90 10:30:15.12345", kStart, jan15, 37815123, FREQ_MSEC},
      {"1/15/90 10:30:15.", kStart, kFail, 0, 0},
      {"1/15/90 10 : 30", kStart, jan15, 10 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 3pm", kStart, jan15, 15 * kHour, FREQ_HOUR},
      {"1/15/90 3 PM", kStart, jan15, 15 * kHour, FREQ_HOUR},
      {"1/15/90 12am", kStart, jan15, 0, FREQ_HOUR},
      {"1/15/90 12pm", kStart, jan15, 12 * kHour, FREQ_HOUR},
      {"1/15/90 10:30 aM", kStart, jan15, 10 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 13:30 am", kStart, kFail, 0, 0},
      {"1/15/90 24:00", kStart, kFail, 0, 0},
      {"1/15/90 10:60", kStart, kFail, 0, 0},
      {"1/15/90 1030", kStart, kFail, 0, 0},
      {"10:30:15", kStart, 0, 10 * kHour + 30 * kMinute + 15000, FREQ_SECOND},
      {"10:30:15.25", kStart, 0, 10 * kHour + 30 * kMinute + 15250, FREQ_MSEC},
      {"10:30:15pm", kStart, 0, 22 * kHour + 30 * kMinute + 15000, FREQ_SECOND},
      {"3:15pm ", kStart, 0, 15 * kHour + 15 * kMinute, FREQ_MINUTE},
      {"3pm ", kStart, 0, 15 * kHour, FREQ_HOUR},
      {"13pm ", kStart, kFail, 0, 0},
      {"1/15/90 10:30 EST", kStart, jan15, 15 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 23:30 EST", kStart, jan15 + 1, 4 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 10:30 +02:00", kStart, jan15, 8 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 10:30 -0130", kStart, jan15, 12 * kHour, FREQ_MINUTE},
      {"1/15/90 1:30 CEST", kStart, jan15 - 1, 23 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 EST", kStart, kFail, 0, 0},
      {"1990-01-15T10:30:00.5 EST", kStart, jan15, 15 * kHour + 30 * kMinute + 500, FREQ_MSEC},
      {"1990-01-15T10:30:00.05", kStart, jan15, 10 * kHour + 30 * kMinute + 50, FREQ_MSEC},
      {"Jan 15, 1990 3pm", kStart, jan15, 15 * kHour, FREQ_HOUR},
      {"10:30pm EST", kStart, 1, 3 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 10:30 UTC", kStart, jan15, 10 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 10:30 acdt", kStart, jan15, 0, FREQ_MINUTE},
      {"1/15/90 10:30 +05:30:", kStart, kFail, 0, 0},
      {"1/15/90 10:30 pm", kStart, jan15, 22 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"1/15/90 12:05 am", kStart, jan15, 5 * kMinute, FREQ_MINUTE},
      {"1/15/90T", kStart, jan15, 0, FREQ_DAILY},
      {"1/15/90T 7", kStart, jan15, 7 * kHour, FREQ_HOUR},
      {"1/1/0001 0:30 CET", kStart, kFail, 0, 0},  // before day 0
  };
  check_whole(cases, std::size(cases));
}

TEST(ParseDateText, RoomForAMarkerIsCountedOnTheSpan) {
  struct Room {
    const char* text;
    int length;
    int tics;  // -1: no date
    int frequency;
  } cases[] = {
      {"10:30pm", -1, 22 * kHour + 30 * kMinute, FREQ_MINUTE},
      {"10:30pm", 7, -1, 0},  // two bytes left behind "30"
      {"3pm", -1, 15 * kHour, FREQ_HOUR},
      {"3pm", 3, -1, 0},
      {"12am", -1, 0, FREQ_HOUR},
      {"3pm\0x", 5, 15 * kHour, FREQ_HOUR},  // the span reaches past the terminator
      {"3:15:30am", -1, 3 * kHour + 15 * kMinute + 30000, FREQ_SECOND},
      {"3p", -1, -1, 0},
  };
  for (const Room& c : cases) {
    SCOPED_TRACE(testing::Message() << "[" << c.text << "] length " << c.length);
    int day = 7, tics = 7, frequency = 7, step = 7;
    const bool ok = parse_date_text(day, tics, frequency, step, c.text, c.length, nullptr, 0, nullptr, kStart);
    EXPECT_EQ(ok, c.tics >= 0);
    EXPECT_EQ(day, c.tics >= 0 ? 0 : -1);
    EXPECT_EQ(tics, c.tics);
    EXPECT_EQ(frequency, c.frequency);
  }
}

TEST(ParseDateText, ConsumedMode) {
  struct Consumed {
    const char* text;
    char allowBlanks;
    int day, tics, frequency, used;
  } cases[] = {
      {"1990Q1 2000Q4", 1, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 6},
      {"  1990Q1 x", 1, ymd(1990, 1, 1), 0, FREQ_QUARTERLY, 8},
      {"1/15/90 10:30 EST rest", 1, ymd(1990, 1, 15), 15 * kHour + 30 * kMinute, FREQ_MINUTE, 17},
      // "+hhmm" is a zone only for a whole text; the blank behind the time
      // belongs to it.
      {"1/15/90 10:30 +0200", 1, ymd(1990, 1, 15), 10 * kHour + 30 * kMinute, FREQ_MINUTE, 14},
      {"1990-01-15 10:30 rest", 1, ymd(1990, 1, 15), 10 * kHour + 30 * kMinute, FREQ_MINUTE, 17},
      {"1990-01-15 10:30  pm", 1, ymd(1990, 1, 15), 22 * kHour + 30 * kMinute, FREQ_MINUTE, 20},
      {"1990-01-15 10:30:15.5 x", 1, ymd(1990, 1, 15), 37815500, FREQ_MSEC, 21},
      {"1990-01-15 10:30:15.5 x", 0, ymd(1990, 1, 15), 0, FREQ_DAILY, 10},
      {"1990-01-15T x", 1, ymd(1990, 1, 15), 0, FREQ_DAILY, 12},
      {"1990-01-15Tx", 1, ymd(1990, 1, 15), 0, FREQ_DAILY, 11},
      // The universal time of a time on day 0 falls before the calendar: no
      // date, but the bytes of the text stay counted.
      {"01:00:00 +02:00 x", 1, -1, -1, FREQ_SECOND, 15},
      {"1 2 3", 1, ymd(2003, 1, 2), 0, FREQ_DAILY, 5},
      {"1 2 3", 0, ymd(2001, 1, 1), 0, FREQ_ANNUAL, 1},
      {"1990-01-15 10 x", 1, ymd(1990, 1, 15), 0, FREQ_DAILY, 10},
      {"1990-01-15T10:300", 1, ymd(1990, 1, 15), 10 * kHour, FREQ_HOUR, 14},
      {"1990-", 1, ymd(1990, 1, 1), 0, FREQ_ANNUAL, 4},
      {"1990,x", 1, ymd(1990, 1, 1), 0, FREQ_ANNUAL, 4},
      {"@NOW rest", 1, -2, 0, FREQ_MSEC, 4},
      {"x+y", 1, -1, -1, 0, 0},
      {"Janx 1990", 1, -1, -1, 0, 0},
      {"  Janx", 1, -1, -1, 0, 2},  // no date, but the blanks before it count
  };
  for (const Consumed& c : cases) {
    SCOPED_TRACE(testing::Message() << "[" << c.text << "]");
    int day = 7, tics = 7, frequency = 7, step = 7, used = 77;
    parse_date_text(day, tics, frequency, step, c.text, -1, &used, c.allowBlanks, nullptr, kStart);
    EXPECT_EQ(used, c.used);
    EXPECT_EQ(frequency, c.frequency);
    if (c.day == -2) {
      EXPECT_GE(day, 0);  // the present moment
      continue;
    }
    EXPECT_EQ(day, c.day);
    EXPECT_EQ(tics, c.tics);
  }
}

TEST(ParseDateText, AtWords) {
  int day = 0, tics = 0, frequency = 0, step = 0;
  for (const char* text : {"@NOW", "@now", " @Now  "}) {
    SCOPED_TRACE(text);
    EXPECT_TRUE(parse_date_text(day, tics, frequency, step, text, -1, nullptr, 0, nullptr, kStart));
    EXPECT_GT(day, ymd(2020, 1, 1));
    EXPECT_EQ(frequency, FREQ_MSEC);
  }
  for (const char* text : {"@X", "@NOWX", "@NOW x", "@", "@NO"}) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(parse_date_text(day, tics, frequency, step, text, -1, nullptr, 0, nullptr, kStart));
    EXPECT_EQ(day, -1);
  }
}

TEST(ParseDateText, HostileInput) {
  int day = 0, tics = 0, frequency = 0, step = 0, used = 0;
  const auto whole = [&](const std::string& s, int length) {
    return parse_date_text(day, tics, frequency, step, s.data(), length, nullptr, 0, nullptr, kStart);
  };
  EXPECT_FALSE(whole("", -1));
  EXPECT_FALSE(whole(" \t\r\n\v\f", -1));
  EXPECT_FALSE(parse_date_text(day, tics, frequency, step, nullptr, -1, nullptr, 0, nullptr, kStart));
  EXPECT_FALSE(whole("1990", -5));
  EXPECT_FALSE(whole("1990", 0));
  EXPECT_TRUE(whole("1990Q3", 4));  // the span ends before the letter
  EXPECT_EQ(frequency, FREQ_ANNUAL);
  EXPECT_TRUE(whole(std::string("1990\0Q3", 7), 7));  // a zero byte ends the text
  EXPECT_EQ(frequency, FREQ_ANNUAL);
  EXPECT_FALSE(whole("99999999999", -1));
  EXPECT_FALSE(whole("1/15/4294967297", -1));
  EXPECT_FALSE(whole("1990Q4294967299", -1));
  EXPECT_FALSE(whole("1/15/90 99999999999:00", -1));
  EXPECT_FALSE(whole("\xff\xfe\x80", -1));
  EXPECT_FALSE(whole("1990\xa0", -1));
  EXPECT_TRUE(whole("1/15/90 10:30:15." + std::string(100000, '7'), -1));
  EXPECT_EQ(tics, 37815777);

  const std::string megaDigits(2 << 20, '9');
  EXPECT_FALSE(whole(megaDigits, -1));
  EXPECT_FALSE(whole(megaDigits, static_cast<int>(megaDigits.size())));
  EXPECT_TRUE(whole("1990" + std::string(2 << 20, ' '), -1));
  EXPECT_FALSE(whole("1990" + std::string(2 << 20, ' ') + "x", -1));
  std::string megaBlanksFirst = std::string(2 << 20, ' ') + "Jan 1990";
  EXPECT_TRUE(whole(megaBlanksFirst, -1));
  EXPECT_FALSE(parse_date_text(day, tics, frequency, step, megaDigits.c_str(), -1, &used, 1, nullptr, kStart));
  EXPECT_EQ(used, 0);
  // A buffer with no terminator, read by its length only (ASan watches the end).
  for (const char* form : {"1990", "1/15/90 10:30 EST", "Jan", "3pm", "1990-01-15T10:30:15.5", "+02:00"}) {
    SCOPED_TRACE(form);
    const std::size_t n = std::strlen(form);
    std::unique_ptr<char[]> exact(new char[n]);
    std::memcpy(exact.get(), form, n);
    for (std::size_t cut = 0; cut <= n; ++cut) {
      parse_date_text(day, tics, frequency, step, exact.get(), static_cast<int>(cut), &used, 1, nullptr, kStart);
      EXPECT_LE(used, static_cast<int>(cut));
      int zoneUsed = 0;
      zone_from_text(exact.get(), static_cast<int>(cut), &zoneUsed, 1);
      month_from_text(exact.get(), static_cast<int>(cut), &zoneUsed);
    }
  }
  std::string commas(1 << 20, ',');
  EXPECT_FALSE(whole("1990" + commas, -1));
}

TEST(ScanDateFields, FieldsSeparatorAndStop) {
  struct Scan {
    const char* text;
    int result, count;
    int v0, v1, v2;
    char separator, hasName;
  } cases[] = {
      {"1990Q3", 6, 2, 1990, 3, 0, 'Q', 0},
      {"1990.3", 6, 2, 1990, 3, 0, '.', 0},
      {"10:30:15", 8, 6, 1, 1, 1, ':', 0},
      {"15-jan-90 x", 9, 3, 15, 1, 90, '-', 1},
      {"Jan 15, 1990", 12, 3, 1, 15, 1990, 0, 1},
      {"1990 x", 4, 1, 1990, 0, 0, 0, 0},
      {"1990-Janx", 4, 1, 1990, -1, 0, '-', 0},
      {"1990:Jan", -1, 0, 0, 0, 0, 0, 0},
      {"Jan Feb", -1, 0, 0, 0, 0, 0, 0},
      {"(1990)", -1, 0, 0, 0, 0, 0, 0},
      {"1990-$", -1, 0, 0, 0, 0, 0, 0},
      {"3pm x", 3, 4, 1, 1, 1, 0, 0},
  };
  for (const Scan& c : cases) {
    SCOPED_TRACE(c.text);
    int values[kDateFieldSlots], widths[kDateFieldSlots], count = -5;
    char hasName = 5, separator = 5;
    EXPECT_EQ(scan_date_fields(count, values, widths, hasName, separator, c.text, -1, 1), c.result);
    if (c.result < 0) continue;
    EXPECT_EQ(count, c.count);
    EXPECT_EQ(values[0], c.v0);
    EXPECT_EQ(values[1], c.v1);
    if (c.count >= 3) {
      EXPECT_EQ(values[2], c.v2);
    }
    EXPECT_EQ(separator, c.separator);
    EXPECT_EQ(hasName, c.hasName);
  }
}

TEST(ScanDateFields, TimeSlotsAndWhereTheScanEnds) {
  struct Scan {
    const char* text;
    char allowBlanks;
    int result, count;
    int hours, minutes, seconds, msecs;
    int widthH, widthM, widthS;
  } cases[] = {
      {"1990-01-15T10:30:15.5", 1, 21, 7, 10, 30, 15, 500, 2, 2, 2},
      {"1990-01-15T10:30:15.0625", 1, 24, 7, 10, 30, 15, 62, 2, 2, 2},
      {"1/15/90 10 : 30 x", 1, 16, 5, 10, 30, 0, 0, 2, 2, 0},  // the blank behind 30 is read
      {"1/15/90 10:30 x", 0, 7, 3, 0, 0, 0, 0, 0, 0, 0},       // no blanks: no time
      {"1/15/90T9", 1, 9, 4, 9, 0, 0, 0, 1, 0, 0},
      {"1/15/90T9 am", 1, 12, 4, 9, 0, 0, 0, 1, 0, 0},
      {"1/15/90 9 x", 1, 7, 3, 0, 0, 0, 0, 0, 0, 0},            // a lone hour goes back
      {"1/15/90 13 am", 1, 11, 4, 13, 0, 0, 0, 2, 0, 0},       // ends in front of "am"
      {"1/15/90 10:123", 1, 7, 3, 0, 0, 0, 0, 0, 0, 0},        // wide minutes: a lone hour
      {"1/15/90T10:123", 1, 11, 4, 10, 0, 0, 0, 2, 0, 0},
      {"23:59:58.1234", 1, 13, 7, 23, 59, 58, 123, 2, 2, 2},
      {"11:05pm x", 1, 7, 5, 23, 5, 0, 0, 2, 2, 0},
  };
  for (const Scan& c : cases) {
    SCOPED_TRACE(testing::Message() << "[" << c.text << "] blanks " << int(c.allowBlanks));
    int values[kDateFieldSlots], widths[kDateFieldSlots], count = -5;
    char hasName = 5, separator = 5;
    EXPECT_EQ(scan_date_fields(count, values, widths, hasName, separator, c.text, -1, c.allowBlanks),
              c.result);
    EXPECT_EQ(count, c.count);
    if (c.count < 4) continue;
    EXPECT_EQ(values[3], c.hours);
    EXPECT_EQ(widths[3], c.widthH);
    if (c.count < 5) continue;
    EXPECT_EQ(values[4], c.minutes);
    EXPECT_EQ(widths[4], c.widthM);
    if (c.count < 6) continue;
    EXPECT_EQ(values[5], c.seconds);
    EXPECT_EQ(widths[5], c.widthS);
    if (c.count < 7) continue;
    EXPECT_EQ(values[6], c.msecs);
    EXPECT_EQ(widths[6], 3);
  }
}

TEST(MonthFromText, PrefixesOfThreeOrMore) {
  struct Month {
    const char* text;
    int length, month, used;
  } cases[] = {
      {"Jan", -1, 1, 3},  {"janu", -1, 1, 4}, {"JANUARY", -1, 1, 7}, {"Janx", -1, -1, 0},
      {"Ja", -1, -1, 0},  {"Januaryx", -1, -1, 0}, {"Januaryx", 7, 1, 7}, {"sept 1", -1, 9, 4},
      {"May1", -1, 5, 3}, {"Ma", -1, -1, 0},  {"1Jan", -1, -1, 0},   {"J\xe9n", -1, -1, 0},
      {"dec", 2, -1, 0},  {"DECEMBER", -1, 12, 8},
  };
  for (const Month& c : cases) {
    SCOPED_TRACE(c.text);
    int used = 99;
    EXPECT_EQ(month_from_text(c.text, c.length, &used), c.month);
    EXPECT_EQ(used, c.used);
  }
}

TEST(ZoneFromText, NamesAndOffsets) {
  struct Zone {
    const char* text;
    char strict;
    int minutes, used;
  } cases[] = {
      {"EST", 0, -300, 3},   {"est", 0, -300, 3},    {"ESTX", 0, -300, 3}, {"CEST", 0, 120, 4},
      {"CES", 0, kNoZone, 0}, {"AKST", 0, -540, 4},  {"HAST", 0, -600, 4}, {"ACST", 0, 570, 4},
      {"UTC", 0, 0, 3},      {"XYZ", 0, kNoZone, 0}, {"ES", 0, kNoZone, 0},
      {"+02:00", 0, 120, 6}, {"-05:30", 0, -330, 6}, {"+02:00:", 0, kNoZone, 0},
      {"+0200", 0, kNoZone, 0}, {"+0200", 1, 120, 5}, {"-0130x", 1, -90, 5}, {"+2:00", 1, kNoZone, 0},
  };
  for (const Zone& c : cases) {
    SCOPED_TRACE(c.text);
    int used = 99;
    EXPECT_EQ(zone_from_text(c.text, -1, &used, c.strict), c.minutes);
    EXPECT_EQ(used, c.used);
  }
}

TEST(MonthFromText, EveryPrefixOfEveryName) {
  const char* const names[] = {"january", "february", "march",     "april",   "may",      "june",
                               "july",    "august",   "september", "october", "november", "december"};
  for (int m = 0; m < 12; ++m) {
    const std::string name = names[m];
    for (std::size_t n = 3; n <= name.size(); ++n) {
      std::string prefix = name.substr(0, n);
      prefix[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(prefix[0])));
      SCOPED_TRACE(prefix);
      int used = 0;
      EXPECT_EQ(month_from_text((prefix + " 1990").c_str(), -1, &used), m + 1);
      EXPECT_EQ(used, static_cast<int>(n));
      EXPECT_EQ(month_from_text((prefix + "z").c_str(), -1, &used), -1);
    }
  }
}

TEST(ZoneFromText, EveryNamedZone) {
  struct Row {
    int minutes;
    const char* names;  // blank-separated
  } rows[] = {
      {0, "GMT UTC WET"},     {60, "BST IST CET WEST"}, {120, "EET CEST"},  {180, "MSK EEST"},
      {240, "MSD"},           {480, "AWST SGT"},        {540, "AWDT JST KST"}, {570, "ACST"},
      {600, "AEST"},          {630, "ACDT"},            {660, "AEDT"},      {-240, "EDT"},
      {-300, "EST CDT"},      {-360, "CST MDT"},        {-420, "MST PDT"},  {-480, "PST AKDT"},
      {-540, "AKST HADT"},    {-600, "HAST"},
  };
  int seen = 0;
  for (const Row& r : rows) {
    std::string names = r.names;
    for (std::size_t at = 0; at < names.size();) {
      const std::size_t end = std::min(names.find(' ', at), names.size());
      std::string name = names.substr(at, end - at);
      at = end + 1;
      ++seen;
      for (int lower = 0; lower < 2; ++lower) {
        if (lower) {
          for (char& ch : name) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        }
        SCOPED_TRACE(name);
        int used = 0;
        EXPECT_EQ(zone_from_text((name + "9").c_str(), -1, &used, 0), r.minutes);
        EXPECT_EQ(used, static_cast<int>(name.size()));
        // A four-letter name cut to three letters is no zone of its own.
        if (name.size() == 4) {
          EXPECT_EQ(zone_from_text(name.c_str(), 3, &used, 1), kNoZone);
        }
      }
    }
  }
  EXPECT_EQ(seen, 33);
}

TEST(FrequencyOfLetter, CodesAndHintBitsKeepTheirNumbers) {
  const int codes[] = {FREQ_ANNUAL,   FREQ_SEMIANNUAL, FREQ_QUARTERLY, FREQ_MONTHLY, FREQ_HALF_MONTH,
                       FREQ_TEN_DAY,  FREQ_FIVE_DAY,   FREQ_FORTNIGHT, FREQ_WEEKLY,  FREQ_BUSINESS_DAY,
                       FREQ_DAILY,    FREQ_HOUR,       FREQ_MINUTE,    FREQ_SECOND,  FREQ_MSEC,
                       FREQ_TICS,     FREQ_RAW};
  for (int i = 0; i < 17; ++i) EXPECT_EQ(codes[i], i + 1);
  const unsigned bits[] = {DH_MONTH_DAY_YEAR, DH_DAY_MONTH_YEAR, DH_YEAR_MONTH_DAY,
                           DH_MONTH_FIRST_LONG_YEAR, DH_SEMIANNUAL, DH_QUARTERLY, DH_MONTHLY,
                           DH_WEEKLY, DH_DAILY, DH_YEAR_SECOND, DH_DAY_NUMBER, DH_TIME_OF_DAY};
  const unsigned want[] = {0x2, 0x4, 0x8, 0x10, 0x40, 0x80, 0x100, 0x200, 0x400, 0x800, 0x4000000,
                           0x8000000};
  for (int i = 0; i < 12; ++i) EXPECT_EQ(bits[i], want[i]);
  // The record is nine 32-bit fields read in this order.
  static_assert(sizeof(RegularFreq) == 36);
  static_assert(offsetof(RegularFreq, baseDay) == 0 && offsetof(RegularFreq, baseTics) == 4 &&
                offsetof(RegularFreq, frequency) == 8 && offsetof(RegularFreq, multiple) == 12 &&
                offsetof(RegularFreq, firstIndex) == 16 && offsetof(RegularFreq, innerUsed) == 20 &&
                offsetof(RegularFreq, innerCycle) == 24 && offsetof(RegularFreq, outerUsed) == 28 &&
                offsetof(RegularFreq, outerCycle) == 32);
}

TEST(FrequencyOfLetter, EveryLetter) {
  const char* const letters = "AYSQMTFWB5D7HU";
  const int codes[] = {1, 1, 2, 3, 4, 6, 8, 9, 10, 10, 11, 11, 12, 17};
  for (int i = 0; letters[i] != 0; ++i) {
    EXPECT_EQ(frequency_of_letter(letters[i]), codes[i]) << letters[i];
    EXPECT_EQ(frequency_of_letter(static_cast<char>(std::tolower(letters[i]))), codes[i]);
  }
  for (const char c : {'C', 'x', '1', ' ', '\0', '\xff'}) EXPECT_EQ(frequency_of_letter(c), 0);
}

TEST(CommonDateHint, StartsAtDefaultAndIsRestored) {
  const unsigned before = txc::date_hint();
  EXPECT_EQ(before, 0x04000012u);
  SetCommonDateHint(DH_DAY_MONTH_YEAR);
  EXPECT_EQ(txc::date_hint(), static_cast<unsigned>(DH_DAY_MONTH_YEAR));
  int day = 0, tics = 0, frequency = 0, step = 0;
  EXPECT_TRUE(parse_date_text(day, tics, frequency, step, "31/1/90", -1, nullptr, 0, nullptr,
                              commonDateHint));
  SetCommonDateHint(before);
  EXPECT_EQ(day, ymd(1990, 1, 31));
}

}  // namespace
