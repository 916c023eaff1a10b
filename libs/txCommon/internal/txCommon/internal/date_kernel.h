// Internal: not part of the public interface. The date kernel.
//
// The complete converter between the 46 kinds of DateFormatMin and the pair
// (day, tics), used by the date text parser and the frequency calendar. The
// public CDateMin::make_date / split_date cover a part of the kinds; this is
// the full set, with the same meanings.
//
//   int day = -1, tics = -1;
//   date_make(day, tics, DF_ISO_YEAR_WEEK_DAY, 2021, 1, 1, false);  // 4 Jan 2021
//   int y, w, wd;
//   date_split(day, tics, DF_YEAR_WEEK_DAY, &y, &w, &wd);           // 2021, 1, 1
//
// Nothing here reports or throws: every failure is the invalid form (-1, -1)
// with false, except the time kinds that keep the day. The integer
// operations hand the kinds that need floating point to their double twins.
// Also here: the calendar operations that only the library itself uses.
#pragma once

#include <txCommon/CDateMin.h>

// ---- the kernel

// From integers. `day` and `tics` are inputs too: a date kind keeps the time
// and a time kind the day; tics -1 becomes 0 first. A kind outside 0 to 45
// only has the day range-tested. `addCentury` applies the two-digit year rule
// (CDateMin::add_century) to years below 100.
bool date_make(int& day, int& tics, int kind, int a, int b, int c, bool addCentury);
// From doubles. A value that is not finite or not within 32 bits gives the
// invalid form and false; the seconds kinds take 0 to 315537897599 seconds.
bool date_make_double(int& day, int& tics, int kind, double a, double b, double c);
// To integers. An output the kind doesn't name stays untouched (and may be
// null); the ones it names must not be null. The invalid form writes 0 to
// every non-null output.
void date_split(int day, int tics, int kind, int* a, int* b, int* c);
// To one double: dNA's bit pattern for a negative day unless the kind is
// DF_RAW_COUNT.
void date_split_double(int day, int tics, int kind, double* out);

// ---- calendar operations of the library's own

// Days of `month` (1 to 12) in `year`; 0 for another month.
int month_days(int year, int month);
// The day of occurrence `week` of `weekday` (1 Monday .. 7 Sunday) in `year`:
// week 1 holds the first of each weekday, starting on 1 January. `week` and
// `weekday` are not range-checked: a day past the end of the year, a day
// before day 0, or a year outside 1 to 9999 gives -1 and false, while a day
// before 1 January that is still on the day line (week 0) is given as it
// falls.
bool yearweek_to_gregday(int& day, int year, int week, int weekday);
// Monday of ISO 8601 week `isoWeek` of `isoYear`; a week the year doesn't
// have, or a year outside 1 to 9999, gives -1 and false.
bool isoweek_to_gregday(int& day, int isoYear, int isoWeek);
// ISO 8601 year and week of a day number (0 to 3652058).
void gregday_to_isoweek(int day, int& isoYear, int& isoWeek);

namespace txc {

// Day offsets of the epochs: day number = count + offset.
inline constexpr int kJulianDayOffset = -1721426;  // Julian day 1721426 (noon) is day 0
inline constexpr int kMjdOffset = 678575;          // 17 November 1858
inline constexpr int kDays1900Offset = 693595;     // 1 January 1900
inline constexpr int kDays1960Offset = 715509;     // 1 January 1960
inline constexpr int kDays2001Offset = 730485;     // 1 January 2001
inline constexpr int kSerial1900Offset = 693594;   // serial 1 is 1 January 1900
inline constexpr int kComDateOffset = 693593;      // 30 December 1899
inline constexpr double kSeconds1960 = 61819977600.0;  // 715509 * 86400
inline constexpr double kSeconds1970 = 62135596800.0;  // 719162 * 86400

// Day number of 1 January of `year`, for 1 to 9999 (other years give a value
// on the same formula, without overflow, that nobody should use).
int days_before_year(int year);
// Weekday of a day number, 1 Monday to 7 Sunday (day 0 is a Monday); also for
// negative days.
int weekday_of(int day);
// gregday_to_yddd without the range report, for callers that have checked.
void gregday_to_yddd_unchecked(int day, int& year, int& yddd);
// The year's month table (CDateMin::month_starts or month_starts_in_leap).
const int* month_table(int year);
// Truncation of a double to int as the x86 conversion does it: NaN and
// values beyond 32 bits give INT32_MIN.
int truncate_to_int(double x);

}  // namespace txc
