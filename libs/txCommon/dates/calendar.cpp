// The day line and the proleptic Gregorian calendar over the years 1 to 9999.
//
// Day 0 is Monday 1 January 1; day 3652058 is 31 December 9999. Every
// conversion is closed-form: cycles of 400, 100, 4 and 1 years, then one
// search through a 13-entry month table. Intermediates stay in 32 bits for
// arguments in range; arguments out of range are either refused or computed
// in 64 bits, so that no input overflows.
#include <txCommon/CDateMin.h>
#include <txCommon/internal/date_kernel.h>
#include <txCommon/internal/host_bridge.h>

#include <cstdint>
#include <limits>

const int CDateMin::month_starts[13] = {1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366};
const int CDateMin::month_starts_in_leap[13] = {1,   32,  61,  92,  122, 153, 183,
                                                214, 245, 275, 306, 336, 367};

namespace {

constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;

bool year_in_calendar(int year) { return year >= kFirstYear && year <= kLastYear; }

// Weekday of 1 January of `year` (1 to 9999), 1 Monday .. 7 Sunday.
int weekday_of_jan1(int year) { return txc::weekday_of(txc::days_before_year(year)); }

// A year whose 1 January is a Thursday, or a Wednesday in a leap year, has 53
// ISO weeks.
bool has_53_iso_weeks(int year) {
  const int d1 = weekday_of_jan1(year);
  return d1 == 4 || (d1 == 3 && CDateMin::is_leap_year(year));
}

// Monday of ISO week 1: the week that holds 4 January.
int iso_week1_monday(int year) {
  const int jan1 = txc::days_before_year(year);
  const int d1 = txc::weekday_of(jan1);
  if (d1 == 1) return jan1;
  if (d1 <= 4) return jan1 + 1 - d1;
  return jan1 + 8 - d1;
}

}  // namespace

// ---- helpers of the library's own

int txc::days_before_year(int year) {
  // n = year - 1 in 0..9998 keeps every term below 3652059, in plain int.
  if (year_in_calendar(year)) {
    const int n = year - 1;
    const int r = n % 100;
    return n / 400 * CDateMin::DAYS_PER_FOUR_HUNDRED_YEARS +
           n % 400 / 100 * CDateMin::DAYS_PER_HUNDRED_YEARS + r * CDateMin::DAYS_PER_YEAR + r / 4;
  }
  // Other years in 64 bits, held within int.
  const std::int64_t n = static_cast<std::int64_t>(year) - 1;
  const std::int64_t r = n % 100;
  const std::int64_t days = (n / 400) * CDateMin::DAYS_PER_FOUR_HUNDRED_YEARS +
                            ((n % 400) / 100) * CDateMin::DAYS_PER_HUNDRED_YEARS +
                            r * CDateMin::DAYS_PER_YEAR + r / 4;
  if (days > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  if (days < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  return static_cast<int>(days);
}

int txc::weekday_of(int day) {
  const int r = day % 7;  // -6..6
  return (r < 0 ? r + 7 : r) + 1;
}

const int* txc::month_table(int year) {
  return CDateMin::is_leap_year(year) ? CDateMin::month_starts_in_leap : CDateMin::month_starts;
}

void txc::gregday_to_yddd_unchecked(int day, int& year, int& yddd) {
  // Each quotient below is taken by truncation, so a negative day gives a
  // meaningless but harmless answer; all terms stay far from overflow since
  // |day / 146097| <= 14700.
  const int cycles400 = day / CDateMin::DAYS_PER_FOUR_HUNDRED_YEARS;
  int rest = day % CDateMin::DAYS_PER_FOUR_HUNDRED_YEARS;
  int cycles100 = rest / CDateMin::DAYS_PER_HUNDRED_YEARS;
  if (cycles100 == 4) cycles100 = 3;  // 31 December of a year divisible by 400
  rest -= cycles100 * CDateMin::DAYS_PER_HUNDRED_YEARS;
  const int cycles4 = rest / CDateMin::DAYS_PER_FOUR_YEARS;
  rest %= CDateMin::DAYS_PER_FOUR_YEARS;
  int years = rest / CDateMin::DAYS_PER_YEAR;
  if (years == 4) years = 3;  // 31 December of a leap year
  rest -= years * CDateMin::DAYS_PER_YEAR;
  year = 400 * cycles400 + 100 * cycles100 + 4 * cycles4 + years + 1;
  yddd = rest + 1;
}

int txc::truncate_to_int(double x) {
  // The range test is written so that NaN fails it.
  if (x > -2147483649.0 && x < 2147483648.0) return static_cast<int>(x);
  return std::numeric_limits<int>::min();
}

// ---- exported calendar

bool CDateMin::is_leap_year(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int CDateMin::add_century(int year) {
  if (year >= 100) return year;
  return year < 30 ? year + 2000 : year + 1900;  // no overflow: year < 100
}

bool CDateMin::yddd_to_gregday(int& day, int year, int yddd) {
  const int daysInYear = is_leap_year(year) ? 366 : 365;
  if (!year_in_calendar(year) || yddd < 1 || yddd > daysInYear) {
    day = -1;
    return false;
  }
  day = txc::days_before_year(year) + yddd - 1;
  return true;
}

bool CDateMin::ymd_to_yddd(int& yddd, int year, int month, int day) {
  if (!year_in_calendar(year) || month < 1 || month > 12 || day < 1 || day > 31) {
    yddd = -1;
    return false;
  }
  const int* table = txc::month_table(year);
  yddd = table[month - 1] - 1 + day;
  if (yddd < table[month]) return true;
  yddd = table[month] - 1;  // clamped to the month's last day
  return false;
}

bool CDateMin::ymd_to_gregday(int& gregday, int year, int month, int day, bool addCentury) {
  if (addCentury && year < 100) year = add_century(year);
  int yddd;
  const bool exact = ymd_to_yddd(yddd, year, month, day);
  if (yddd == -1) return false;
  yddd_to_gregday(gregday, year, yddd);
  return exact;
}

void CDateMin::gregday_to_yddd(int day, int& year, int& yddd) {
  TXC_ASSERT(day >= 0 && day <= GREGDAY_MAX);
  txc::gregday_to_yddd_unchecked(day, year, yddd);
}

void CDateMin::gregday_to_ymd(int day, int& year, int& month, int& dayOfMonth) {
  TXC_ASSERT(day >= 0 && day <= GREGDAY_MAX);
  int yddd;
  txc::gregday_to_yddd_unchecked(day, year, yddd);
  yddd_to_ymd(year, yddd, month, dayOfMonth);
}

void CDateMin::yddd_to_ymd(int year, int yddd, int& month, int& day) {
  const int* table = txc::month_table(year);
  int index = 11;
  while (index > 0 && table[index] > yddd) --index;
  month = index + 1;
  // 64 bits: yddd may be anything, and the difference must not overflow.
  day = static_cast<int>(static_cast<std::int64_t>(yddd) - table[index] + 1);
}

bool CDateMin::tics_to_hms(int tics, int& hours, int& minutes, int& seconds) {
  if (tics < 1 || tics > TICS_PER_DAY - 1) {
    hours = minutes = seconds = 0;
    return tics == 0;
  }
  hours = tics / TICS_PER_HOUR;
  minutes = tics % TICS_PER_HOUR / TICS_PER_MIN;
  seconds = tics % TICS_PER_MIN / TICS_PER_SEC;
  return true;
}

bool CDateMin::hms_to_tics(int& tics, int hours, int minutes, int seconds, int msecs) {
  if (static_cast<unsigned>(hours) >= 24 || static_cast<unsigned>(minutes) >= 60 ||
      static_cast<unsigned>(seconds) >= 60) {
    tics = 0;
    return false;
  }
  // msecs is unchecked: add in unsigned arithmetic so that a huge one wraps
  // instead of overflowing.
  const unsigned whole = ((static_cast<unsigned>(hours) * 60u + static_cast<unsigned>(minutes)) * 60u +
                          static_cast<unsigned>(seconds)) * 1000u;
  tics = static_cast<int>(whole + static_cast<unsigned>(msecs));
  return true;
}

// ---- week systems

int month_days(int year, int month) {
  if (month < 1 || month > 12) return 0;
  const int* table = txc::month_table(year);
  return table[month] - table[month - 1];
}

bool yearweek_to_gregday(int& day, int year, int week, int weekday) {
  if (!year_in_calendar(year)) {
    day = -1;
    return false;
  }
  const int jan1 = txc::days_before_year(year);
  const int d1 = txc::weekday_of(jan1);
  // week and weekday are unchecked: 64 bits keep every sum exact.
  std::int64_t result = static_cast<std::int64_t>(jan1) - d1 + weekday;
  if (weekday < d1) result += 7;
  result += 7 * (static_cast<std::int64_t>(week) - 1);
  const int daysInYear = CDateMin::is_leap_year(year) ? 366 : 365;
  // Days before 1 January are accepted as the arithmetic gives them (week 0
  // reaches back into the year before), but never below day 0.
  if (result - jan1 >= daysInYear || result < 0) {
    day = -1;
    return false;
  }
  day = static_cast<int>(result);
  return true;
}

bool isoweek_to_gregday(int& day, int isoYear, int isoWeek) {
  if (!year_in_calendar(isoYear) || isoWeek < 1 || isoWeek > (has_53_iso_weeks(isoYear) ? 53 : 52)) {
    day = -1;
    return false;
  }
  day = iso_week1_monday(isoYear) + 7 * (isoWeek - 1);
  return true;
}

void gregday_to_isoweek(int day, int& isoYear, int& isoWeek) {
  int year, yddd;
  txc::gregday_to_yddd_unchecked(day, year, yddd);
  const int monday = iso_week1_monday(year);
  if (day < monday) {
    isoYear = year - 1;
    isoWeek = has_53_iso_weeks(year - 1) ? 53 : 52;
    return;
  }
  const int elapsed = day - monday;
  if (elapsed < 364 || has_53_iso_weeks(year)) {
    isoYear = year;
    isoWeek = elapsed / 7 + 1;
    return;
  }
  isoYear = year + 1;
  isoWeek = 1;
}
