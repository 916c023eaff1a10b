// CDateMin: the date-time value and the calendar underneath it.
//
// Every date of the library is a point on one line of days: day 0 is Monday
// 1 January of the year 1, day 3652058 is 31 December 9999, on the proleptic
// Gregorian calendar (no Julian stretch, no year zero). A CDateMin pairs such
// a day number with the time of day in milliseconds ("tics"). It is eight
// bytes, copied by value, and converts to a double whose integer part is the
// day number, so that dates can be stored in numeric series.
//
//   CDateMin d(DF_YMD, 1999, 12, 31);          // 31 December 1999, 00:00
//   d.set(DF_HMS, 12, 30, 0);                  // same day, 12:30:00
//   double stored = d;                         // 730119.5208333...
//   int y, m, dd;
//   d.split(DF_YMD, &y, &m, &dd);              // 1999, 12, 31
//
//   int day;
//   CDateMin::ymd_to_gregday(day, 2001, 2, 30, false);  // false, day: 28 Feb 2001
//
// The calendar operations are static members, so the calendar can be used
// without making a value. Nothing here throws or reports by code: a failure
// is a false result and the invalid form (-1, -1), and a few impossible
// arguments report AssertFailed to a registered host.
#pragma once

#include <txCommon/export.h>

// The ways of writing a date as numbers. The numbers are the interface: a
// host passes them. a, b, c name the arguments of make_date and, in that
// order, the outputs of split_date. A year is 1 to 9999; packed forms use
// decimal digits.
enum DateFormatMin : int {
  DF_GREGDAY = 0,             // a: day number
  DF_JULIAN_DAY = 1,          // a: Julian day number; the date is at noon
  DF_MJD = 2,                 // a: modified Julian day (0 is 17 November 1858)
  DF_DAYS_1900 = 3,           // a: days since 1 January 1900
  DF_DAYS_1960 = 4,           // a: days since 1 January 1960
  DF_DAYS_2001 = 5,           // a: days since 1 January 2001
  DF_SERIAL_1900 = 6,         // a: 1 is 1 January 1900; 60 is the missing 29 February 1900
  DF_DAYS_OF_YEAR = 7,        // a: days after 1 January; b: year
  DF_COM_DATE = 8,            // a: days since 30 December 1899 (COM DATE)
  DF_YEAR_YDDD = 9,           // a: year; b: day of year
  DF_YYYYDDD = 10,            // a: 1999365
  DF_YMD = 11,                // a: year; b: month; c: day
  DF_YYYYMM_D = 12,           // a: 199912; b: day
  DF_YYYYMMDD = 13,           // a: 19991231
  DF_DDMMYYYY = 14,           // a: 31121999, or 311299 with a two-digit year
  DF_MMDDYYYY = 15,           // a: 12311999, or 123199 with a two-digit year
  DF_YEAR_WEEK_DAY = 16,      // a: year; b: occurrence week; c: weekday
  DF_YYYYWW_D = 17,           // a: 199952; b: weekday
  DF_YYYYWWD = 18,            // a: 1999525
  DF_ISO_YEAR_WEEK_DAY = 19,  // a: ISO year; b: ISO week; c: weekday 1 to 7
  DF_ISO_YYYYWW_D = 20,       // a: ISO year * 100 + ISO week; b: weekday
  DF_ISO_YYYYWWD = 21,        // a: ISO year, week and weekday packed
  DF_YEAR_SEMESTER_DAY = 22,  // a: year; b: half year 1 or 2; c: day of its first month
  DF_YYYYS = 23,              // a: 19992
  DF_YEAR_QUARTER_DAY = 24,   // a: year; b: quarter 1 to 4; c: day of its first month
  DF_YYYYQ = 25,              // a: 19994
  DF_FRACTION_DDD = 26,       // a: 1999.365 (double only)
  DF_FRACTION_MM = 27,        // a: 1999.12; b: day (double only)
  DF_FRACTION_Q = 28,         // a: 1999.4 (double only)
  DF_FRACTION_S = 29,         // a: 1999.2 (double only)
  DF_SECONDS_0001 = 30,       // a: seconds since day 0
  DF_SECONDS_1960 = 31,       // a: seconds since 1 January 1960
  DF_SECONDS_1970 = 32,       // a: seconds since 1 January 1970, no zone conversion
  DF_SECONDS_LOCAL = 33,      // a: 32-bit time stamp, through the local time zone
  DF_SECONDS_OF_YEAR = 34,    // a: seconds since the start of year b
  DF_SECOND_OF_DAY = 35,      // a: seconds since midnight; the day stays
  DF_HMS = 36,                // a: hours; b: minutes; c: seconds
  DF_HHMM_S = 37,             // a: 2359; b: seconds
  DF_HHMMSS = 38,             // a: 235959
  DF_TICS_OF_DAY = 39,        // a: milliseconds since midnight; the day stays
  DF_MSEC = 40,               // a: milliseconds 0 to 999 within the second
  DF_RAW_COUNT = 41,          // a: a raw count, no date at all
  DF_NOW = 42,                // the clock's present date and time
  DF_INVALID = 43,            // the invalid form
  DF_TODAY = 44,              // the clock's present date at time 0
  DF_NOW_AGAIN = 45,          // the same as DF_NOW
};

// A day number and a time of day, in one of three forms:
//
//   date       gregday 0 to 3652058   tics 0 to 86399999   valid
//   raw count  gregday -1 to -49      tics 0 to 86399999   valid, raw
//   invalid    gregday -1             tics -1
//
// A raw count N (a plain unsigned number, frequency 17) is held as
// tics = N mod 86400000 and gregday = ~(N / 86400000); -49 is the last day
// value whose 86400000 counts all fit 32 bits.
//
// As a double: gregday + tics / 86400000.0; the invalid form is dNA's bit
// pattern (0xFFF8000000000000).
class TXC_API CDateMin {
public:
  int gregday;  // day number, or negative as above
  int tics;     // milliseconds of the day, or -1 in the invalid form

  // ---- calendar constants
  static constexpr int GREGDAY_1900 = 693595;   // 1 January 1900
  static constexpr int GREGDAY_1970 = 719162;   // 1 January 1970
  static constexpr int GREGDAY_MAX = 3652058;   // 31 December 9999
  static constexpr double GREGSEC_1970 = 62135596800.0;   // 719162 * 86400
  static constexpr double GREGSEC_MAX = 315537897599.0;   // last second of 9999
  static constexpr int DAYS_PER_YEAR = 365;
  static constexpr int DAYS_PER_FOUR_YEARS = 1461;           // 4 * 365 + 1
  static constexpr int DAYS_PER_HUNDRED_YEARS = 36524;       // 25 * 1461 - 1
  static constexpr int DAYS_PER_FOUR_HUNDRED_YEARS = 146097; // 4 * 36524 + 1
  static constexpr int HOURS_PER_DAY = 24;
  static constexpr int MINS_PER_DAY = 1440;
  static constexpr int SECS_PER_DAY = 86400;
  static constexpr int MSECS_PER_DAY = 86400000;
  static constexpr int TICS_PER_MSEC = 1;
  static constexpr int TICS_PER_SEC = 1000;
  static constexpr int TICS_PER_MIN = 60000;
  static constexpr int TICS_PER_HOUR = 3600000;
  static constexpr int TICS_PER_DAY = 86400000;
  static constexpr int TICS_PER_WEEK = 604800000;

  // Day of the year (from 1) on which month index 0..11 starts; index 12 is
  // one past the last day of the year.
  static const int month_starts[13];          // 1, 32, 60, ... 335, 366
  static const int month_starts_in_leap[13];  // 1, 32, 61, ... 336, 367

  // ---- calendar operations (no state, no allocation, no floating point)

  // Divisible by 4, and not by 100 unless by 400 (truncated remainders, so
  // negative years follow the same rule).
  static bool is_leap_year(int year);
  // `year` if 100 or more; below 30 plus 2000; otherwise plus 1900.
  // 29 -> 2029, 30 -> 1930, 99 -> 1999, -1 -> 1999.
  static int add_century(int year);
  // Day number of day `yddd` (from 1) of `year` (1 to 9999). 366 needs a leap
  // year. On failure `day` is -1 and the result false.
  static bool yddd_to_gregday(int& day, int year, int yddd);
  // Day of year of a calendar date. A year outside 1 to 9999, a month outside
  // 1 to 12 or a day outside 1 to 31 leave -1 and false. A day past the end of
  // its month (30 February) leaves the last day of that month and false.
  static bool ymd_to_yddd(int& yddd, int year, int month, int day);
  // Day number of a calendar date; `addCentury` applies add_century to a year
  // below 100. When ymd_to_yddd left -1, `gregday` is untouched; a day past
  // the end of the month leaves the month's last day in `gregday` and false.
  static bool ymd_to_gregday(int& gregday, int year, int month, int day, bool addCentury);
  // Year and day of year of a day number. A day outside 0 to 3652058 reports
  // AssertFailed; the outputs are then meaningless but defined.
  static void gregday_to_yddd(int day, int& year, int& yddd);
  // Calendar date of a day number; range as gregday_to_yddd.
  static void gregday_to_ymd(int day, int& year, int& month, int& dayOfMonth);
  // Month and day of day `yddd` of `year`. No checks: a `yddd` outside the
  // year gives month 1 or 12 with a day outside the month.
  static void yddd_to_ymd(int year, int yddd, int& month, int& day);
  // Hours, minutes and whole seconds of `tics` (milliseconds dropped). Outside
  // 1 to 86399999 all three are 0 and the result is true only for 0.
  static bool tics_to_hms(int tics, int& hours, int& minutes, int& seconds);
  // Time of day from its parts: hours below 24, minutes and seconds below 60,
  // as unsigned values (a negative part fails); `msecs` is added unchecked.
  // On failure `tics` is 0 and the result false.
  static bool hms_to_tics(int& tics, int hours, int minutes, int seconds, int msecs);

  // ---- the value

  CDateMin() : gregday(-1), tics(-1) {}
  // As assignment from a double.
  CDateMin(double x);  // NOLINT: a double is a date by design
  // Starts invalid, then make_date with the double arguments.
  CDateMin(DateFormatMin kind, double a, double b = 0.0, double c = 0.0);
  // A kind alone would silently convert to the double 42.0 and so on.
  CDateMin(DateFormatMin kind) = delete;
  CDateMin(const CDateMin&) = default;
  CDateMin(CDateMin&&) = default;
  CDateMin& operator=(const CDateMin&) = default;
  CDateMin& operator=(CDateMin&&) = default;  // the source is left as it was

  // Not finite, below -50.0 or at least 3652059.0: invalid. Otherwise gregday
  // is the floor of x and tics the rounded fraction in milliseconds, with no
  // carry: a fraction that rounds up to a whole day stores tics 86400000.
  const CDateMin& operator=(double x);
  // gregday + tics / 86400000.0, or dNA's bit pattern for the invalid form.
  operator double() const;

  // make_date with the double arguments on the present members.
  bool set(DateFormatMin kind, double a, double b = 0.0, double c = 0.0);
  void split(DateFormatMin kind, int* a, int* b, int* c) const;
  void split(DateFormatMin kind, double* out) const;

  // False only for a negative gregday together with tics -1.
  bool is_valid() const { return !(gregday < 0 && tics == -1); }
  // gregday in -49 to -1 and tics not -1.
  bool is_rawint() const { return gregday >= -49 && gregday <= -1 && tics != -1; }
  void set_invalid() {
    gregday = -1;
    tics = -1;
  }

  // ---- conversions between the pair and DateFormatMin

  // From integers. Both out-parameters are inputs too: a time kind keeps the
  // day and a date kind the time (tics -1 becomes 0 first). On failure the
  // invalid form and false, except the time kinds that keep the day. Kinds
  // this road has no row for report AssertFailed and leave the pair as it is
  // (true) if it holds a calendar day, else make it invalid (false).
  static bool make_date(int& gregday, int& tics, DateFormatMin kind, int a, int b, int c,
                        bool addCentury);
  // From doubles. An argument that is not finite or beyond 32 bits gives the
  // invalid form and false. Day counts take the fraction as the time, rounded
  // to the millisecond (a COM DATE or 1900 serial from 0 to below 1 is a
  // time on day 0: 0.5 is noon); the seconds kinds truncate. Kinds
  // with no double meaning go through the integer form with the floors and
  // the century rule on.
  static bool make_date(int& gregday, int& tics, DateFormatMin kind, double a, double b,
                        double c);
  // To integers, writing only the outputs that `kind` names (those must not
  // be null). The invalid form writes 0 to every non-null output.
  static void split_date(int gregday, int tics, DateFormatMin kind, int* a, int* b, int* c);
  // To one double; dNA's bit pattern for a negative day (raw counts apart).
  static void split_date(int gregday, int tics, DateFormatMin kind, double* out);
};

static_assert(sizeof(int) == 4, "the day line and tics are 32-bit values");
static_assert(sizeof(CDateMin) == 8, "a CDateMin is two 32-bit members");
