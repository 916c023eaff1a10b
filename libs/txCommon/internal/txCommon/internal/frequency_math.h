// Internal: not part of the public interface. Frequency arithmetic.
//
// Stepping a date by periods of a frequency, counting the periods between two
// dates, the n-th period of a year, and the map between dates and observation
// numbers of a RegularFreq record. All of it is closed-form integer
// arithmetic on the pair (day number, tics): the cost does not depend on n.
//
//   int day = <1 January 1990>, tics = 0;
//   date_add(day, tics, FREQ_QUARTERLY, 2);   // 1 July 1990
//   int k;
//   date_diff(k, day, tics, <1 January 1990>, 0, FREQ_MONTHLY, 0, nullptr);  // 6
//
// Nothing here reports to the host; a false result and the invalid form
// (-1, -1) carry every failure.
#pragma once

#include <txCommon/export.h>
#include <txCommon/frequency.h>

// Steps (day, tics) by n periods of `frequency`. A raw count (day -1 to -49)
// steps only by FREQ_TICS or FREQ_RAW. Month-based frequencies keep the day of
// the month; when that day doesn't exist in the month reached the result is
// false with `day` on the last day of that month. FREQ_BUSINESS_DAY first moves
// a weekend date to the Monday after, also for n of 0. A result outside the
// calendar, or frequency 0, leaves the invalid form and false. A raw count
// that would fall below 0 or beyond the largest raw count (49 days of tics)
// becomes the invalid form with the result true. A code above FREQ_TICS with
// n not 0 is false without a change; a negative code changes nothing.
bool date_add(int& day, int& tics, int frequency, int n);

// day1 minus day2 as months, days and tics, all with one sign as far as the
// month lengths allow. Both dates must be in the calendar (0 to 3652058);
// otherwise all three are 0.
void date_span(int day1, int tics1, int day2, int tics2, int& months, int& days,
               int& restTics);

// Number of periods from the second date to the first, positive when the first
// is later. `rounding`: 1 away from zero, 2 down, 3 up, other values truncate.
// `onWeekend` (may be null) is set to 1 only by FREQ_BUSINESS_DAY when the
// first date is a Saturday or Sunday. Two raw counts differ by FREQ_RAW only.
// Frequency 0, FREQ_TICS and FREQ_RAW on dates, a negative day beside a date,
// or a day beyond the calendar give 0 and false. Counts beyond 32 bits are
// held at the end of the range.
bool date_diff(int& result, int day1, int tics1, int day2, int tics2, int frequency,
               int rounding, char* onWeekend);

// Period n (from 1) of `year` at `frequency`: 1 January stepped by n - 1
// periods. False when the date reached is not in the year, with that date left
// in place, and the invalid form for a year outside 1 to 9999. With FREQ_RAW,
// n itself is the raw count.
bool period_of_year(int& day, int& tics, int frequency, int year, int n);

// Observation number of a date in the series of `freq`, rounded down or, with
// `roundUp`, up to the next observation. An empty record gives INT32_MIN. A
// date that the record's frequency can't count (a raw count against a
// calendar series, say) counts as 0 periods from the origin, as date_diff
// answers it.
int freq_index(const RegularFreq& freq, int day, int tics, bool roundUp);

// Date of observation `index`, the inverse of freq_index. An empty record or a
// date off the calendar gives the invalid form.
void freq_date(const RegularFreq& freq, int index, int& day, int& tics);

// Observation n (from 1) of `year`, counted from the first observation on or
// after 1 January. With `addCentury`, a year below 100 takes the century rule
// (29 is 2029, 30 is 1930). False when the observation falls in a later year
// or there is none; the invalid form for an empty record or a bad year.
bool freq_period_of_year(const RegularFreq& freq, int& day, int& tics, int year, int n,
                         bool addCentury);

namespace txc {

// Period count of FREQ_HOUR to FREQ_MSEC in one day and tics per period, for
// codes 12 to 15; 0 otherwise.
int periods_per_day(int frequency);
int tics_per_period(int frequency);

}  // namespace txc
