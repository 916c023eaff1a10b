// The date kernel, from numbers to the pair (day, tics): date_make for
// integer arguments and date_make_double for doubles.
//
// Day arithmetic on caller's integers is done in 64 bits and range-tested
// there: the epoch offsets are far smaller than 2^32 minus the calendar, so
// this gives the same verdicts as 32-bit arithmetic without its overflow.
#include <txCommon/internal/date_kernel.h>

#include <txCommon/CDateMin.h>
#include <txCommon/internal/platform_clock.h>

#include <cmath>
#include <cstdint>

namespace {

using Wide = std::int64_t;

constexpr int kTicsPerDay = CDateMin::TICS_PER_DAY;

void set_invalid(int& day, int& tics) {
  day = -1;
  tics = -1;
}

// The final test of date_make: a day in the calendar, or the invalid form.
bool accept_day(int& day, int& tics) {
  if (static_cast<unsigned>(day) <= static_cast<unsigned>(CDateMin::GREGDAY_MAX)) return true;
  set_invalid(day, tics);
  return false;
}

// Stores a 64-bit day candidate; outside the calendar it is the invalid form.
bool store_day(int& day, int& tics, Wide candidate) {
  if (candidate < 0 || candidate > CDateMin::GREGDAY_MAX) {
    set_invalid(day, tics);
    return false;
  }
  day = static_cast<int>(candidate);
  return true;
}

int year_rule(int year, bool addCentury) {
  return addCentury && year < 100 ? CDateMin::add_century(year) : year;
}

// A 64-bit month number (6 * b - 5 and the like) as an int; one beyond 32
// bits is simply no month.
int as_month(Wide month) { return month >= 1 && month <= 12 ? static_cast<int>(month) : 0; }

// A calendar date where a day past the month's end is a failure too.
bool make_ymd(int& day, int& tics, int year, int month, int dayOfMonth) {
  if (!CDateMin::ymd_to_gregday(day, year, month, dayOfMonth, false)) {
    set_invalid(day, tics);
    return false;
  }
  return true;
}

bool make_yddd(int& day, int& tics, int year, int yddd) {
  if (!CDateMin::yddd_to_gregday(day, year, yddd)) {
    set_invalid(day, tics);
    return false;
  }
  return true;
}

bool make_yearweek(int& day, int& tics, int year, int week, int weekday) {
  if (!yearweek_to_gregday(day, year, week, weekday)) {
    set_invalid(day, tics);
    return false;
  }
  return true;
}

bool make_isoweek(int& day, int& tics, int year, int week, int weekday) {
  if (!isoweek_to_gregday(day, year, week) || weekday < 1 || weekday > 7) {
    set_invalid(day, tics);
    return false;
  }
  day += weekday - 1;
  return true;
}

// DF_DDMMYYYY and DF_MMDDYYYY: six digits carry a two-digit year, which
// always takes the century rule; eight digits carry the year as written.
bool make_packed_dmy(int& day, int& tics, int a, bool monthFirst) {
  int first, second, year;
  if (a < 1000000) {
    first = a / 10000;
    second = a % 10000 / 100;
    year = CDateMin::add_century(a % 100);
  } else {
    first = a / 1000000;
    second = a % 1000000 / 10000;
    year = a % 10000;
  }
  return monthFirst ? make_ymd(day, tics, year, first, second)
                    : make_ymd(day, tics, year, second, first);
}

// DF_HMS and the packed time kinds: a bad part sets tics 0 and keeps the day.
bool make_hms(int& day, int& tics, int hours, int minutes, int seconds) {
  int t;
  if (!CDateMin::hms_to_tics(t, hours, minutes, seconds, 0)) {
    tics = 0;
    return false;
  }
  tics = t;
  if (day == -1) day = 0;
  return accept_day(day, tics);
}

// DF_NOW, DF_NOW_AGAIN and DF_TODAY.
bool make_now(int& day, int& tics, bool dateOnly) {
  const double stamp = static_cast<double>(txc::platform::clock_now());
  if (!date_make_double(day, tics, DF_SECONDS_LOCAL, stamp, 1.0, 1.0)) return false;
  if (dateOnly) tics = 0;
  return true;
}

// The date kinds: everything that sets the day from a, b, c. Returns false
// with the invalid form on failure; true leaves the range test to the caller.
bool make_day_kind(int& day, int& tics, int kind, int a, int b, int c, bool addCentury) {
  switch (kind) {
    case DF_GREGDAY: day = a; return true;
    case DF_JULIAN_DAY:
      tics = kTicsPerDay / 2;
      return store_day(day, tics, static_cast<Wide>(a) + txc::kJulianDayOffset);
    case DF_MJD: return store_day(day, tics, static_cast<Wide>(a) + txc::kMjdOffset);
    case DF_DAYS_1900: return store_day(day, tics, static_cast<Wide>(a) + txc::kDays1900Offset);
    case DF_DAYS_1960: return store_day(day, tics, static_cast<Wide>(a) + txc::kDays1960Offset);
    case DF_DAYS_2001: return store_day(day, tics, static_cast<Wide>(a) + txc::kDays2001Offset);
    case DF_COM_DATE: return store_day(day, tics, static_cast<Wide>(a) + txc::kComDateOffset);
    case DF_SERIAL_1900:
      // Serial 60 is 29 February 1900, which never was: 59 and 60 meet.
      return store_day(day, tics, static_cast<Wide>(a) + txc::kSerial1900Offset - (a >= 60 ? 1 : 0));
    case DF_DAYS_OF_YEAR:
      if (b < 1 || b > 9999) {
        set_invalid(day, tics);
        return false;
      }
      return store_day(day, tics, static_cast<Wide>(txc::days_before_year(b)) + a);
    case DF_YEAR_YDDD: return make_yddd(day, tics, year_rule(a, addCentury), b);
    case DF_YYYYDDD: return make_yddd(day, tics, year_rule(a / 1000, addCentury), a % 1000);
    case DF_YMD: return make_ymd(day, tics, year_rule(a, addCentury), b, c);
    case DF_YYYYMM_D: return make_ymd(day, tics, year_rule(a / 100, addCentury), a % 100, b);
    case DF_YYYYMMDD:
      return make_ymd(day, tics, year_rule(a / 10000, addCentury), a % 10000 / 100, a % 100);
    case DF_DDMMYYYY: return make_packed_dmy(day, tics, a, false);
    case DF_MMDDYYYY: return make_packed_dmy(day, tics, a, true);
    case DF_YEAR_WEEK_DAY: return make_yearweek(day, tics, year_rule(a, addCentury), b, c);
    case DF_YYYYWW_D: return make_yearweek(day, tics, year_rule(a / 100, addCentury), a % 100, b);
    case DF_YYYYWWD:
      return make_yearweek(day, tics, year_rule(a / 1000, addCentury), a % 1000 / 10, a % 10);
    case DF_ISO_YEAR_WEEK_DAY: return make_isoweek(day, tics, year_rule(a, addCentury), b, c);
    case DF_ISO_YYYYWW_D: return make_isoweek(day, tics, year_rule(a / 100, addCentury), a % 100, b);
    case DF_ISO_YYYYWWD:
      return make_isoweek(day, tics, year_rule(a / 1000, addCentury), a % 1000 / 10, a % 10);
    case DF_YEAR_SEMESTER_DAY:
      return make_ymd(day, tics, year_rule(a, addCentury), as_month(6 * static_cast<Wide>(b) - 5), c);
    case DF_YYYYS: return make_ymd(day, tics, year_rule(a / 10, addCentury), as_month(6 * (a % 10) - 5), 1);
    case DF_YEAR_QUARTER_DAY:
      return make_ymd(day, tics, year_rule(a, addCentury), as_month(3 * static_cast<Wide>(b) - 2), c);
    case DF_YYYYQ: return make_ymd(day, tics, year_rule(a / 10, addCentury), as_month(3 * (a % 10) - 2), 1);
    default: return true;  // DF_FRACTION_DDD: a fraction can't come as an integer
  }
}

}  // namespace

bool date_make(int& day, int& tics, int kind, int a, int b, int c, bool addCentury) {
  if (tics == -1) tics = 0;
  switch (kind) {
    case DF_FRACTION_MM:
    case DF_FRACTION_Q:
    case DF_FRACTION_S:
      a = year_rule(a, addCentury);
      [[fallthrough]];
    case DF_SECONDS_0001:
    case DF_SECONDS_1960:
    case DF_SECONDS_1970:
    case DF_SECONDS_LOCAL:
    case DF_SECONDS_OF_YEAR:
      if (!date_make_double(day, tics, kind, a, b, c)) return false;
      break;
    case DF_SECOND_OF_DAY:
      if (static_cast<unsigned>(a) >= static_cast<unsigned>(CDateMin::SECS_PER_DAY)) {
        tics = 0;
        return false;
      }
      tics = a * CDateMin::TICS_PER_SEC;
      break;
    case DF_HMS: return make_hms(day, tics, a, b, c);
    case DF_HHMM_S: return make_hms(day, tics, a / 100, a % 100, b);
    case DF_HHMMSS: return make_hms(day, tics, a / 10000, a / 100 % 100, a % 100);
    case DF_TICS_OF_DAY:
      if (static_cast<unsigned>(a) >= static_cast<unsigned>(kTicsPerDay)) {
        tics = 0;
        return false;
      }
      tics = a;
      break;
    case DF_MSEC:
      if (static_cast<unsigned>(a) > 999u) return false;
      // The time in the pair may be anything a caller holds: 64 bits, then
      // wrapped, so that a garbage one can't overflow.
      tics = static_cast<int>(static_cast<Wide>(tics) / 1000 * 1000 + a);
      break;
    case DF_RAW_COUNT:
      if (static_cast<unsigned>(a) >= static_cast<unsigned>(kTicsPerDay)) return false;
      day = -1;
      tics = a;
      return true;
    case DF_NOW:
    case DF_NOW_AGAIN: return make_now(day, tics, false);
    case DF_TODAY: return make_now(day, tics, true);
    case DF_INVALID: set_invalid(day, tics); return false;
    default:
      if (kind >= DF_GREGDAY && kind <= DF_FRACTION_DDD &&
          !make_day_kind(day, tics, kind, a, b, c, addCentury)) {
        return false;
      }
      break;
  }
  return accept_day(day, tics);
}

// ---- from doubles

namespace {

// Finite and within 32 bits; NaN fails every comparison.
bool in_range(double x) { return x >= -2147483648.0 && x <= 2147483647.0; }

// The floor of an in-range value, as int.
int floor_int(double x) { return static_cast<int>(std::floor(x)); }

// Rounded milliseconds of the fraction of a day. No carry: a fraction that
// rounds up gives 86400000.
int fraction_tics(double x, double whole) {
  return static_cast<int>(std::floor((x - whole) * static_cast<double>(kTicsPerDay) + 0.5));
}

// A fraction's second field (month, quarter, half year), rounded to the
// nearest unit of `scale` (100.0, 10.0).
int fraction_field(double a, double year, double scale) {
  const double v = std::floor((a - year) * scale + 0.5);  // 0..scale
  return static_cast<int>(v);
}

// Seconds since day 0 to the pair. Truncated to the millisecond, not rounded.
bool make_from_seconds(int& day, int& tics, double x) {
  if (!(x >= 0.0 && x <= CDateMin::GREGSEC_MAX)) {
    set_invalid(day, tics);
    return false;
  }
  double whole = std::floor(x / 86400.0);
  double rest = x - whole * 86400.0;
  // x / 86400 may round up to the next integer just below a midnight.
  if (rest < 0.0) {
    whole -= 1.0;
    rest += 86400.0;
  }
  int t = static_cast<int>(std::floor(rest * 1000.0));
  if (t > kTicsPerDay - 1) t = kTicsPerDay - 1;
  day = static_cast<int>(whole);
  tics = t;
  return true;
}

bool make_from_local_stamp(int& day, int& tics, double a) {
  if (!(a >= 0.0 && a <= 4294967295.0)) {
    set_invalid(day, tics);
    return false;
  }
  txc::platform::LocalTime local{};
  if (!txc::platform::stamp_to_local(static_cast<std::uint32_t>(a), local)) {
    set_invalid(day, tics);
    return false;
  }
  const int year = local.yearSince1900 + 1900;
  if (!CDateMin::yddd_to_gregday(day, year, local.dayOfYear0 + 1)) {
    set_invalid(day, tics);
    return false;
  }
  if (!CDateMin::hms_to_tics(tics, local.hour, local.minute, local.second, 0)) tics = 0;
  return true;
}

bool make_fraction(int& day, int& tics, int kind, double a, double b) {
  if (!in_range(a) || (kind == DF_FRACTION_MM && !in_range(b))) {
    set_invalid(day, tics);
    return false;
  }
  const double year = std::floor(a);
  int month = 1, dayOfMonth = 1;
  switch (kind) {
    case DF_FRACTION_MM:
      month = fraction_field(a, year, 100.0);
      dayOfMonth = floor_int(b);
      break;
    case DF_FRACTION_Q: month = 3 * fraction_field(a, year, 10.0) - 2; break;
    default: month = 6 * fraction_field(a, year, 10.0) - 5; break;  // DF_FRACTION_S
  }
  return date_make(day, tics, DF_YMD, static_cast<int>(year), month, dayOfMonth, true);
}

// The day-count kinds: the floor is the day, the fraction the time.
bool make_day_with_fraction(int& day, int& tics, int kind, double a) {
  if (!in_range(a)) {
    set_invalid(day, tics);
    return false;
  }
  const double whole = std::floor(a);
  const int n = static_cast<int>(whole);
  if (kind == DF_SERIAL_1900 || kind == DF_COM_DATE) {
    Wide candidate = static_cast<Wide>(n) +
                     (kind == DF_COM_DATE ? txc::kComDateOffset : txc::kSerial1900Offset);
    if (kind == DF_SERIAL_1900 && n >= 60) --candidate;
    if (!store_day(day, tics, candidate)) return false;
  } else if (!date_make(day, tics, kind, n, 1, 1, true)) {
    return false;
  }
  tics = fraction_tics(a, whole);
  return true;
}

bool make_fraction_ddd(int& day, int& tics, double a) {
  if (!in_range(a)) {
    set_invalid(day, tics);
    return false;
  }
  const double year = std::floor(a);
  const int yddd = static_cast<int>(std::floor((a - year) * 1000.0 + 0.5));
  return date_make(day, tics, DF_YEAR_YDDD, static_cast<int>(year), yddd, 1, true);
}

bool make_seconds_of_year(int& day, int& tics, double a, double b) {
  if (!in_range(b)) {
    set_invalid(day, tics);
    return false;
  }
  const int year = static_cast<int>(b);  // truncation, by design
  if (year < 1 || year > 9999) {
    set_invalid(day, tics);
    return false;
  }
  return make_from_seconds(day, tics, txc::days_before_year(year) * 86400.0 + a);
}

}  // namespace

bool date_make_double(int& day, int& tics, int kind, double a, double b, double c) {
  switch (kind) {
    case DF_GREGDAY:
    case DF_DAYS_1900:
    case DF_DAYS_1960:
    case DF_DAYS_2001:
    case DF_SERIAL_1900:
    case DF_COM_DATE: return make_day_with_fraction(day, tics, kind, a);
    case DF_FRACTION_DDD: return make_fraction_ddd(day, tics, a);
    case DF_FRACTION_MM:
    case DF_FRACTION_Q:
    case DF_FRACTION_S: return make_fraction(day, tics, kind, a, b);
    case DF_SECONDS_0001: return make_from_seconds(day, tics, a);
    case DF_SECONDS_1960: return make_from_seconds(day, tics, a + txc::kSeconds1960);
    case DF_SECONDS_1970: return make_from_seconds(day, tics, a + txc::kSeconds1970);
    case DF_SECONDS_LOCAL: return make_from_local_stamp(day, tics, a);
    case DF_SECONDS_OF_YEAR: return make_seconds_of_year(day, tics, a, b);
    default:
      if (!in_range(a) || !in_range(b) || !in_range(c)) {
        set_invalid(day, tics);
        return false;
      }
      return date_make(day, tics, kind, floor_int(a), floor_int(b), floor_int(c), true);
  }
}
