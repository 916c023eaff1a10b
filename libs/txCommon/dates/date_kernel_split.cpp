// The date kernel, from the pair (day, tics) to numbers: date_split to
// integers and date_split_double to one double.
//
// The pair may be anything a caller holds, a raw count or garbage included.
// Packed forms are therefore built in 64 bits and wrapped to 32 (the answer
// for a day off the calendar means nothing, but it must not overflow).
#include <txCommon/internal/date_kernel.h>

#include <txCommon/CDateMin.h>
#include <txCommon/internal/platform_clock.h>

#include <cstdint>
#include <cstring>

namespace {

using Wide = std::int64_t;

// Modular narrowing, well defined since C++20.
int wrap(Wide value) { return static_cast<int>(value); }

// dNA's bit pattern, written without reading dNA, which is 0.0 until the
// library is initialised.
double na_pattern() {
  const std::uint64_t bits = 0xFFF8000000000000ULL;
  double out;
  std::memcpy(&out, &bits, sizeof out);
  return out;
}

struct CalendarFields {
  int year, yddd, month, day;
};

CalendarFields calendar_of(int day) {
  CalendarFields f{};
  txc::gregday_to_yddd_unchecked(day, f.year, f.yddd);
  CDateMin::yddd_to_ymd(f.year, f.yddd, f.month, f.day);
  return f;
}

struct ClockFields {
  int hours, minutes, seconds;
};

// Time of day for the local stamp; all 0 unless tics is 1 to 86399999.
ClockFields clock_of(int tics) {
  ClockFields c{};
  CDateMin::tics_to_hms(tics, c.hours, c.minutes, c.seconds);
  return c;
}

// Time of day by plain division, for the time kinds: unlike clock_of it
// doesn't zero a tics of a whole day (86400000, which assignment from a
// double can store) but shows it as 24:00:00.
ClockFields divide_tics(int tics) {
  ClockFields c{};
  c.hours = tics / CDateMin::TICS_PER_HOUR;
  c.minutes = tics / CDateMin::TICS_PER_MIN % 60;
  c.seconds = tics / CDateMin::TICS_PER_SEC % 60;
  return c;
}

// Splits of the calendar kinds; false for a kind that isn't one.
bool split_calendar(int day, int kind, int* a, int* b, int* c) {
  switch (kind) {
    case DF_YEAR_YDDD: {
      const CalendarFields f = calendar_of(day);
      *a = f.year;
      *b = f.yddd;
      return true;
    }
    case DF_YYYYDDD: {
      const CalendarFields f = calendar_of(day);
      *a = wrap(Wide{f.year} * 1000 + f.yddd);
      return true;
    }
    case DF_YMD: {
      const CalendarFields f = calendar_of(day);
      *a = f.year;
      *b = f.month;
      *c = f.day;
      return true;
    }
    case DF_YYYYMMDD: {
      const CalendarFields f = calendar_of(day);
      *a = wrap((Wide{f.year} * 100 + f.month) * 100 + f.day);
      return true;
    }
    case DF_DDMMYYYY:
    case DF_MMDDYYYY: {
      const CalendarFields f = calendar_of(day);
      const Wide front = kind == DF_DDMMYYYY ? Wide{f.day} * 100 + f.month : Wide{f.month} * 100 + f.day;
      *a = wrap(front * 10000 + f.year);
      return true;
    }
    case DF_YEAR_WEEK_DAY:
    case DF_YYYYWWD: {
      const CalendarFields f = calendar_of(day);
      const int week = (f.yddd - 1) / 7 + 1;
      const int weekday = txc::weekday_of(day);
      if (kind == DF_YEAR_WEEK_DAY) {
        *a = f.year;
        *b = week;
        *c = weekday;
      } else {
        *a = wrap(Wide{f.year} * 1000 + Wide{week} * 10 + weekday);
      }
      return true;
    }
    case DF_ISO_YEAR_WEEK_DAY:
    case DF_ISO_YYYYWWD: {
      int isoYear, isoWeek;
      gregday_to_isoweek(day, isoYear, isoWeek);
      const int weekday = txc::weekday_of(day);
      if (kind == DF_ISO_YEAR_WEEK_DAY) {
        *a = isoYear;
        *b = isoWeek;
        *c = weekday;
      } else {
        *a = wrap(Wide{isoYear} * 1000 + Wide{isoWeek} * 10 + weekday);
      }
      return true;
    }
    default: return false;
  }
}

// Splits of the time kinds, the raw count and the seconds kinds.
void split_time(int day, int tics, int kind, int* a, int* b, int* c) {
  switch (kind) {
    case DF_SECONDS_0001:
    case DF_SECONDS_1960:
    case DF_SECONDS_1970:
    case DF_SECONDS_LOCAL: {
      double x;
      date_split_double(day, tics, kind, &x);
      *a = txc::truncate_to_int(x);
      return;
    }
    case DF_SECOND_OF_DAY: *a = tics / CDateMin::TICS_PER_SEC; return;
    case DF_HMS: {
      const ClockFields t = divide_tics(tics);
      *a = t.hours;
      *b = t.minutes;
      *c = t.seconds;
      return;
    }
    case DF_HHMM_S: {
      const ClockFields t = divide_tics(tics);
      *a = t.hours * 100 + t.minutes;
      *b = t.seconds;
      return;
    }
    case DF_HHMMSS: {
      const ClockFields t = divide_tics(tics);
      *a = (t.hours * 100 + t.minutes) * 100 + t.seconds;
      return;
    }
    case DF_TICS_OF_DAY: *a = tics; return;
    case DF_MSEC: *a = tics % 1000; return;
    case DF_RAW_COUNT:
      // ~day days of 86400000 plus tics, in 32-bit arithmetic as the count's
      // definition says; counts past 2^31 come out negative.
      *a = day < 0 ? static_cast<int>(static_cast<std::uint32_t>(~day) * 86400000u +
                                      static_cast<std::uint32_t>(tics))
                   : 0;
      return;
    default: return;  // kinds with one way in only, and values above 41
  }
}

// The COM DATE of a pair: day 0 keeps a pure time of day.
double com_date_of(int day, int tics) {
  const double f = tics / static_cast<double>(CDateMin::TICS_PER_DAY);
  return (day >= 1 ? static_cast<double>(day) - txc::kComDateOffset : static_cast<double>(day)) + f;
}

// The local time stamp of a pair, or -1.0 when the moment has none.
double local_stamp_of(int day, int tics) {
  const CalendarFields f = calendar_of(day);
  const ClockFields t = clock_of(tics);
  txc::platform::LocalTime local{};
  local.yearSince1900 = f.year - 1900;
  local.month0 = f.month - 1;
  local.dayOfMonth = f.day;
  local.dayOfYear0 = f.yddd - 1;
  local.hour = t.hours;
  local.minute = t.minutes;
  local.second = t.seconds;
  std::uint32_t stamp;
  if (!txc::platform::local_to_stamp(local, stamp)) return -1.0;
  return static_cast<double>(stamp);
}

}  // namespace

void date_split(int day, int tics, int kind, int* a, int* b, int* c) {
  if (day == -1 && tics == -1) {
    if (a != nullptr) *a = 0;
    if (b != nullptr) *b = 0;
    if (c != nullptr) *c = 0;
    return;
  }
  switch (kind) {
    case DF_GREGDAY: *a = day; return;
    case DF_JULIAN_DAY:
      *a = wrap(Wide{day} - txc::kJulianDayOffset - (tics < CDateMin::TICS_PER_DAY / 2 ? 1 : 0));
      return;
    case DF_MJD: *a = wrap(Wide{day} - txc::kMjdOffset); return;
    case DF_DAYS_1900: *a = wrap(Wide{day} - txc::kDays1900Offset); return;
    case DF_DAYS_1960: *a = wrap(Wide{day} - txc::kDays1960Offset); return;
    case DF_DAYS_2001: *a = wrap(Wide{day} - txc::kDays2001Offset); return;
    case DF_COM_DATE: *a = wrap(Wide{day} - txc::kComDateOffset); return;
    case DF_SERIAL_1900: {
      const Wide n = Wide{day} - txc::kSerial1900Offset;
      *a = wrap(n < 60 ? n : n + 1);  // serial 60 is the missing 29 February 1900
      return;
    }
    default:
      if (!split_calendar(day, kind, a, b, c)) split_time(day, tics, kind, a, b, c);
      return;
  }
}

void date_split_double(int day, int tics, int kind, double* out) {
  if (day < 0 && kind != DF_RAW_COUNT) {
    *out = na_pattern();
    return;
  }
  const double f = tics / static_cast<double>(CDateMin::TICS_PER_DAY);
  const double s = (tics / CDateMin::TICS_PER_SEC) + day * 86400.0;
  int whole = 0;
  switch (kind) {
    case DF_GREGDAY:
    case DF_DAYS_1900:
    case DF_DAYS_1960:
    case DF_DAYS_2001:
      date_split(day, tics, kind, &whole, nullptr, nullptr);
      *out = f + whole;
      return;
    case DF_JULIAN_DAY: *out = day + f + 1721425.5; return;  // Julian days begin at noon
    case DF_MJD: *out = day + f - static_cast<double>(txc::kMjdOffset); return;
    case DF_SERIAL_1900:
      if (day == 0) {
        *out = f;  // a pure time of day stays on day 0
        return;
      }
      date_split(day, tics, kind, &whole, nullptr, nullptr);
      *out = whole < 0 ? na_pattern() : f + whole;
      return;
    case DF_COM_DATE: *out = com_date_of(day, tics); return;
    case DF_SECONDS_0001: *out = s; return;
    case DF_SECONDS_1960: *out = s - txc::kSeconds1960; return;
    case DF_SECONDS_1970: *out = s - txc::kSeconds1970; return;
    case DF_SECONDS_LOCAL: *out = local_stamp_of(day, tics); return;
    default: {
      int b = 0, c = 0;
      date_split(day, tics, kind, &whole, &b, &c);
      *out = whole;
      return;
    }
  }
}

