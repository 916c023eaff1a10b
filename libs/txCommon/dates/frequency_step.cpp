// Stepping a date by periods of a frequency: date_add and period_of_year.
//
// Every step is closed form. Intermediates are 64-bit so that no n, however
// large, can overflow before the final range test: a day count of
// |n| * 14 < 2^35 and a month count of |n| * 12 < 2^35 both fit with room.
#include <txCommon/internal.h>

#include "frequency_calendar.h"

#include <climits>
#include <cstdint>

namespace {

using txc::cal::floor_div;
using txc::cal::floor_mod;
using txc::cal::kTicsPerDay;

static_assert(sizeof(int) == 4, "day numbers and tics are 32-bit");

// Months in one period of codes 1 to 4, and the number of periods a month
// holds for codes 5 to 7 (with the days between them).
constexpr int kMonthsPerPeriod[8] = {0, 12, 6, 3, 1, 0, 0, 0};
constexpr int kPeriodsPerMonth[8] = {0, 0, 0, 0, 0, 2, 3, 6};
constexpr int kDaysBetweenPeriods[8] = {0, 0, 0, 0, 0, 15, 10, 5};

// Largest raw count: 49 whole days of tics (day -1 to -49), the most that an
// unsigned 32-bit count holds.
constexpr std::int64_t kRawCountEnd = 49LL * kTicsPerDay;

bool set_invalid(int& day, int& tics) {
  day = -1;
  tics = -1;
  return false;
}

// Writes a raw count 0 <= count < kRawCountEnd in the raw form.
void put_raw(int& day, int& tics, std::int64_t count) {
  day = ~static_cast<int>(count / kTicsPerDay);
  tics = static_cast<int>(count % kTicsPerDay);
}

// Raw counts step by FREQ_TICS or FREQ_RAW only. A sum below 0, or beyond
// the largest raw count, leaves the invalid form; the result stays true all
// the same: the step itself was one a raw count can take, and callers tell
// the outcome by the form.
bool add_to_raw(int& day, int& tics, int frequency, int n) {
  if (tics == -1 || (frequency != FREQ_TICS && frequency != FREQ_RAW)) return false;
  const std::int64_t folded = static_cast<std::int64_t>(~static_cast<std::int64_t>(day)) *
                                  kTicsPerDay + tics;
  const std::int64_t sum = folded + n;
  if (sum < 0 || sum >= kRawCountEnd) {
    set_invalid(day, tics);
    return true;
  }
  if (sum >= kTicsPerDay) {
    put_raw(day, tics, sum);
  } else {
    day = -1;
    tics = static_cast<int>(sum);
  }
  return true;
}

// How a month step ended.
enum class MonthStep { kDone, kMonthEnd, kOffCalendar };

// Months are carried into the year; the day of the month is kept. On
// kMonthEnd `day` is the last day of the month reached; on kOffCalendar it is
// unchanged. `months` is below 2^36 in size, far inside 64 bits.
MonthStep add_months(int& day, std::int64_t months) {
  int y, m, d;
  txc::cal::ymd_of(day, y, m, d);
  const std::int64_t total = static_cast<std::int64_t>(y) * 12 + (m - 1) + months;
  const std::int64_t year = floor_div(total, 12);
  if (year < 1 || year > 9999) return MonthStep::kOffCalendar;
  const int newYear = static_cast<int>(year);
  const int newMonth = static_cast<int>(floor_mod(total, 12)) + 1;
  const int length = txc::cal::month_length(newYear, newMonth);
  if (d > length) {
    day = txc::cal::day_of(newYear, newMonth, length);
    return MonthStep::kMonthEnd;
  }
  day = txc::cal::day_of(newYear, newMonth, d);
  return MonthStep::kDone;
}

// The week of five business days: Saturday and Sunday step to the Monday
// after, then every 5 business days are 7 calendar days, with one more
// weekend crossed when the rest of n runs over the end of the week.
std::int64_t business_days(int day, int n) {
  int weekday = day % 7 + 1;  // Monday 1 .. Sunday 7; day 0 is a Monday
  std::int64_t d = day;
  if (weekday >= 6) {
    d += 8 - weekday;
    weekday = 1;
  }
  int weeks = n / 5;
  const int rest = n - 5 * weeks;
  if (rest + weekday > 5) ++weeks;
  if (rest + weekday < 1) --weeks;
  return d + 2LL * weeks + n;
}

// FREQ_HOUR to FREQ_MSEC: whole days and a rest below one day, then one
// borrow or carry.
void add_clock_units(std::int64_t& d, std::int64_t& t, int frequency, int n) {
  const std::int64_t perDay = txc::periods_per_day(frequency);
  const std::int64_t magnitude = n < 0 ? -static_cast<std::int64_t>(n) : n;
  const std::int64_t days = magnitude / perDay;
  const std::int64_t rest = (magnitude % perDay) * txc::tics_per_period(frequency);
  if (n < 0) {
    t -= rest;
    if (t < 0) t += kTicsPerDay, --d;
    d -= days;
  } else {
    t += rest;
    if (t >= kTicsPerDay) t -= kTicsPerDay, ++d;
    d += days;
  }
}

}  // namespace

namespace txc {

int periods_per_day(int frequency) {
  switch (frequency) {
    case FREQ_HOUR: return 24;
    case FREQ_MINUTE: return 24 * 60;
    case FREQ_SECOND: return 24 * 60 * 60;
    case FREQ_MSEC: return kTicsPerDay;
    default: return 0;
  }
}

int tics_per_period(int frequency) {
  const int perDay = periods_per_day(frequency);
  return perDay == 0 ? 0 : kTicsPerDay / perDay;
}

}  // namespace txc

bool date_add(int& day, int& tics, int frequency, int n) {
  if (frequency == 0) return set_invalid(day, tics);
  if (day < 0) return add_to_raw(day, tics, frequency, n);
  if (n == 0 && frequency != FREQ_BUSINESS_DAY) return true;
  if (frequency > FREQ_TICS) return false;
  // A negative code names no period: the date stays as it is.
  if (frequency < 0) return day <= txc::cal::kLastDay || set_invalid(day, tics);
  if (day > txc::cal::kLastDay) return set_invalid(day, tics);

  std::int64_t d = day;
  std::int64_t t = tics;
  switch (frequency) {
    case FREQ_ANNUAL:
    case FREQ_SEMIANNUAL:
    case FREQ_QUARTERLY:
    case FREQ_MONTHLY:
    case FREQ_HALF_MONTH:
    case FREQ_TEN_DAY:
    case FREQ_FIVE_DAY: {
      // Codes 5 to 7: whole months by floor division, then the periods left
      // over (0 to per - 1) as days.
      const bool inMonth = frequency >= FREQ_HALF_MONTH;
      const int per = inMonth ? kPeriodsPerMonth[frequency] : 1;
      const std::int64_t months = inMonth
          ? floor_div(n, per)
          : static_cast<std::int64_t>(n) * kMonthsPerPeriod[frequency];
      int moved = day;
      switch (add_months(moved, months)) {
        case MonthStep::kOffCalendar: return set_invalid(day, tics);
        case MonthStep::kMonthEnd: day = moved; return false;
        case MonthStep::kDone: break;
      }
      d = moved;
      if (inMonth) d += (n - months * per) * kDaysBetweenPeriods[frequency];
      break;
    }
    case FREQ_FORTNIGHT: d += 14LL * n; break;
    case FREQ_WEEKLY: d += 7LL * n; break;
    case FREQ_DAILY: d += n; break;
    case FREQ_BUSINESS_DAY: d = business_days(day, n); break;
    case FREQ_TICS:
      t += n;
      d += floor_div(t, kTicsPerDay);
      t = floor_mod(t, kTicsPerDay);
      break;
    default: add_clock_units(d, t, frequency, n); break;
  }
  if (d < 0 || d > txc::cal::kLastDay) return set_invalid(day, tics);
  day = static_cast<int>(d);
  tics = static_cast<int>(t);
  return true;
}

bool period_of_year(int& day, int& tics, int frequency, int year, int n) {
  if (frequency == FREQ_RAW) {
    if (n < 0) return set_invalid(day, tics);
    put_raw(day, tics, n);
    return true;
  }
  if (year < 1 || year > 9999) return set_invalid(day, tics);
  day = txc::cal::day_of(year, 1, 1);
  tics = 0;
  const int steps = n == INT_MIN ? INT_MIN : n - 1;
  // Only the date reached counts: a step that date_add refuses leaves
  // 1 January in place, which is still in the year.
  date_add(day, tics, frequency, steps);
  return day >= 0 && txc::cal::year_of(day) == year;
}
