// Counting periods between two dates: date_span and date_diff.
//
// date_diff counts whole periods from the second date to the first and lets
// the part of a period left over decide the rounding. The month frequencies
// go through date_span, the calendar difference in months, days and tics; the
// others work on the plain difference in days and tics.
#include <txCommon/internal.h>

#include "frequency_calendar.h"

#include <climits>
#include <cstdint>

namespace {

using txc::cal::kTicsPerDay;

constexpr int kRoundAway = 1;
constexpr int kRoundDown = 2;
constexpr int kRoundUp = 3;

bool in_calendar(int day) { return day >= 0 && day <= txc::cal::kLastDay; }

// Length of the month before the one that holds `day`.
int length_of_month_before(int day) {
  int y, m, d;
  txc::cal::ymd_of(day, y, m, d);
  if (m == 1) return 31;  // December of the year before
  return txc::cal::month_length(y, m - 1);
}

int length_of_month(int day) {
  int y, m, d;
  txc::cal::ymd_of(day, y, m, d);
  return txc::cal::month_length(y, m);
}

// The rounding step: the left-over parts (any mix of signs) move the
// truncated count by at most one.
std::int64_t round_count(std::int64_t count, int rounding, std::int64_t a, std::int64_t b,
                         std::int64_t c) {
  const bool above = a > 0 || b > 0 || c > 0;
  const bool below = a < 0 || b < 0 || c < 0;
  switch (rounding) {
    case kRoundAway: return above ? count + 1 : (below ? count - 1 : count);
    case kRoundDown: return below ? count - 1 : count;
    case kRoundUp: return above ? count + 1 : count;
    default: return count;
  }
}

int clamp32(std::int64_t v) {
  if (v > INT_MAX) return INT_MAX;
  if (v < INT_MIN) return INT_MIN;
  return static_cast<int>(v);
}

// Codes 5 to 7: `per` periods a month, `gap` days apart. The whole months give
// per periods each; the days add one period per gap. A negative day count is
// measured against L, the length of the month before the first date's month:
// the first k (1 to per - 1) with days <= gap * k - L takes per - k periods
// off.
std::int64_t split_month_periods(int months, int& days, int per, int gap, int firstDay) {
  std::int64_t result = static_cast<std::int64_t>(per) * months;
  if (days > 0) {
    for (int k = per - 1; k >= 1; --k) {
      if (days >= gap * k) {
        result += k;
        days -= gap * k;
        break;
      }
    }
  } else if (days < 0) {
    const int previous = length_of_month_before(firstDay);
    for (int k = 1; k <= per - 1; ++k) {
      if (days <= gap * k - previous) {
        result -= per - k;
        days = days - gap * k + previous;
        break;
      }
    }
  }
  return result;
}

// Codes 1 to 7 through the calendar difference.
std::int64_t month_based(int day1, int tics1, int day2, int tics2, int frequency,
                         int rounding) {
  int months = 0, days = 0, rest = 0;
  date_span(day1, tics1, day2, tics2, months, days, rest);
  constexpr int kMonthsPerPeriod[5] = {0, 12, 6, 3, 1};
  if (frequency <= FREQ_MONTHLY) {
    const int per = kMonthsPerPeriod[frequency];
    return round_count(months / per, rounding, months % per, days, rest);
  }
  // Periods per month and days between them, by code 5, 6, 7.
  constexpr int kPer[3] = {2, 3, 6};
  constexpr int kGap[3] = {15, 10, 5};
  const int i = frequency - FREQ_HALF_MONTH;
  const std::int64_t count = split_month_periods(months, days, kPer[i], kGap[i], day1);
  return round_count(count, rounding, 0, days, rest);
}

// Brings the day and tics differences to one sign; tics stay within a day.
void align_signs(std::int64_t& d, std::int64_t& t) {
  if (d < 0 && t > 0) {
    ++d;
    t -= kTicsPerDay;
  } else if (d > 0 && t < 0) {
    --d;
    t += kTicsPerDay;
  }
}

// Weeks of five days: Saturday and Sunday count as the end of the Friday,
// and their times as 0.
std::int64_t business_count(int day1, int tics1, int day2, int tics2, int rounding,
                            char& weekend) {
  const int dow1 = day1 % 7;  // 0 Monday .. 6 Sunday
  const int dow2 = day2 % 7;
  const int capped1 = dow1 < 5 ? dow1 : 5;
  const int capped2 = dow2 < 5 ? dow2 : 5;
  std::int64_t result = (static_cast<std::int64_t>(day1 / 7) - day2 / 7) * 5 + capped1 - capped2;
  std::int64_t t = static_cast<std::int64_t>(dow1 >= 5 ? 0 : tics1) - (dow2 >= 5 ? 0 : tics2);
  weekend = dow1 >= 5 ? 1 : 0;
  if (result < 0 && t >= 1) {
    ++result;
    t -= kTicsPerDay;
  } else if (result > 0 && t < 0) {
    --result;
    t += kTicsPerDay;
  }
  return round_count(result, rounding, 0, 0, t);
}

}  // namespace

void date_span(int day1, int tics1, int day2, int tics2, int& months, int& days,
               int& restTics) {
  months = days = restTics = 0;
  if (day1 == day2 && tics1 == tics2) return;
  if (!in_calendar(day1) || !in_calendar(day2)) return;
  int y1, m1, d1, y2, m2, d2;
  txc::cal::ymd_of(day1, y1, m1, d1);
  txc::cal::ymd_of(day2, y2, m2, d2);
  months = (y1 - y2) * 12 + (m1 - m2);
  days = d1 - d2;
  // Tics of a real date are below one day; wider values only must not wrap.
  const std::int64_t rest = static_cast<std::int64_t>(tics1) - tics2;
  restTics = static_cast<int>(rest > INT_MAX ? INT_MAX : (rest < INT_MIN ? INT_MIN : rest));

  if (months > 0 || (months == 0 && days > 0)) {
    if (restTics < 0) {
      --days;
      restTics += kTicsPerDay;
    }
    if (months > 0 && days < 0) {
      --months;
      days += length_of_month_before(day1);
    }
  } else if (months != 0 || days != 0) {
    if (restTics > 0) {
      ++days;
      restTics -= kTicsPerDay;
    }
    if (months < 0 && days >= 1) {
      ++months;
      days -= length_of_month(day1);
    }
  }
}

bool date_diff(int& result, int day1, int tics1, int day2, int tics2, int frequency,
               int rounding, char* onWeekend) {
  char weekend = 0;
  result = 0;
  if (onWeekend != nullptr) *onWeekend = 0;
  if (frequency == 0) return false;
  if (day1 < 0 || day2 < 0) {
    const bool bothRaw = day1 < 0 && day2 < 0 && tics1 != -1 && tics2 != -1;
    if (!bothRaw || frequency != FREQ_RAW) return false;
    const auto count = [](int day, int tics) {
      return static_cast<std::int64_t>(~static_cast<std::int64_t>(day)) * kTicsPerDay + tics;
    };
    result = clamp32(count(day1, tics1) - count(day2, tics2));
    return true;
  }
  if (frequency < 0 || frequency > FREQ_MSEC) return false;
  if (!in_calendar(day1) || !in_calendar(day2)) return false;

  std::int64_t count = 0;
  std::int64_t d = static_cast<std::int64_t>(day1) - day2;
  std::int64_t t = static_cast<std::int64_t>(tics1) - tics2;
  switch (frequency) {
    case FREQ_FORTNIGHT:
    case FREQ_WEEKLY:
    case FREQ_DAILY: {
      const int span = frequency == FREQ_FORTNIGHT ? 14 : (frequency == FREQ_WEEKLY ? 7 : 1);
      align_signs(d, t);
      count = round_count(d / span, rounding, d % span, t, 0);
      break;
    }
    case FREQ_BUSINESS_DAY:
      count = business_count(day1, tics1, day2, tics2, rounding, weekend);
      break;
    case FREQ_HOUR:
    case FREQ_MINUTE:
    case FREQ_SECOND:
    case FREQ_MSEC: {
      const int unit = txc::tics_per_period(frequency);
      align_signs(d, t);
      count = d * txc::periods_per_day(frequency) + t / unit;
      count = round_count(count, rounding, t % unit, 0, 0);
      break;
    }
    default:
      count = month_based(day1, tics1, day2, tics2, frequency, rounding);
      break;
  }
  result = clamp32(count);
  if (onWeekend != nullptr) *onWeekend = weekend;
  return true;
}
