// CDateMin: the value, its double encoding, and the public make_date /
// split_date, which expose a part of the kernel's kinds.
//
// The public road differs from the kernel in three ways: kinds outside its
// part report AssertFailed; a COM DATE or 1900 serial whose whole part is 0
// stays on day 0, so that a pure time of day survives a round trip; and the
// double split of a day-count kind gives whole days.
//
// DF_SECONDS_1960 takes its 1960 epoch in both directions here, as in the
// kernel, so that it round-trips.
#include <txCommon/CDateMin.h>

#include <txCommon/internal/date_kernel.h>
#include <txCommon/internal/host_bridge.h>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr double kTicsPerDay = 86400000.0;

double na_pattern() {
  const std::uint64_t bits = 0xFFF8000000000000ULL;
  double out;
  std::memcpy(&out, &bits, sizeof out);
  return out;
}

bool in_range(double x) { return x >= -2147483648.0 && x <= 2147483647.0; }

bool is_seconds_kind(int kind) { return kind >= DF_SECONDS_0001 && kind <= DF_SECONDS_OF_YEAR; }

// The kinds make_date takes as integers.
bool make_supports(int kind) {
  switch (kind) {
    case DF_GREGDAY:
    case DF_JULIAN_DAY:
    case DF_MJD:
    case DF_DAYS_1900:
    case DF_COM_DATE:
    case DF_YMD:
    case DF_SECOND_OF_DAY:
    case DF_HMS:
    case DF_MSEC:
    case DF_NOW:
    case DF_NOW_AGAIN:
    case DF_TODAY:
    case DF_INVALID: return true;
    default: return is_seconds_kind(kind);
  }
}

// The kinds split_date gives as integers.
bool split_supports(int kind) {
  switch (kind) {
    case DF_GREGDAY:
    case DF_DAYS_1900:
    case DF_COM_DATE:
    case DF_YEAR_YDDD:
    case DF_YYYYDDD:
    case DF_YMD:
    case DF_SECONDS_0001:
    case DF_SECONDS_1960:
    case DF_SECONDS_1970:
    case DF_SECONDS_LOCAL:
    case DF_HMS:
    case DF_MSEC:
    case DF_RAW_COUNT: return true;
    default: return false;
  }
}

}  // namespace

// ---- the value

CDateMin::CDateMin(double x) : gregday(-1), tics(-1) { *this = x; }

CDateMin::CDateMin(DateFormatMin kind, double a, double b, double c) : gregday(-1), tics(-1) {
  make_date(gregday, tics, kind, a, b, c);
}

const CDateMin& CDateMin::operator=(double x) {
  // -50.0 is the last whole value a raw count's day could take; the upper end
  // is the day after 31 December 9999. NaN fails both comparisons.
  if (!(x >= -50.0 && x < 3652059.0)) {
    set_invalid();
    return *this;
  }
  const double whole = std::floor(x);
  gregday = static_cast<int>(whole);
  tics = static_cast<int>(std::floor((x - whole) * kTicsPerDay + 0.5));  // may be 86400000
  return *this;
}

CDateMin::operator double() const {
  if (!is_valid()) return na_pattern();
  return gregday + tics / kTicsPerDay;
}

bool CDateMin::set(DateFormatMin kind, double a, double b, double c) {
  return make_date(gregday, tics, kind, a, b, c);
}

void CDateMin::split(DateFormatMin kind, int* a, int* b, int* c) const {
  split_date(gregday, tics, kind, a, b, c);
}

void CDateMin::split(DateFormatMin kind, double* out) const { split_date(gregday, tics, kind, out); }

// ---- conversions

bool CDateMin::make_date(int& gregday, int& tics, DateFormatMin kind, int a, int b, int c,
                         bool addCentury) {
  if (!make_supports(kind)) {
    // The kind is refused, but the pair still ends in one of the three forms:
    // a missing time becomes 0 and the day is range-tested as for any kind,
    // so an invalid pair stays invalid instead of turning into a raw count.
    if (tics == -1) tics = 0;
    txc::assert_failed(__FILE__, __LINE__);
    if (static_cast<unsigned>(gregday) <= static_cast<unsigned>(GREGDAY_MAX)) return true;
    gregday = -1;
    tics = -1;
    return false;
  }
  return date_make(gregday, tics, kind, a, b, c, addCentury);
}

bool CDateMin::make_date(int& gregday, int& tics, DateFormatMin kind, double a, double b,
                         double c) {
  switch (kind) {
    case DF_SERIAL_1900:
    case DF_COM_DATE:
      if (in_range(a) && std::floor(a) == 0.0) {
        gregday = 0;
        tics = static_cast<int>(std::floor(a * kTicsPerDay + 0.5));
        return true;
      }
      return date_make_double(gregday, tics, kind, a, b, c);
    case DF_GREGDAY:
    case DF_DAYS_1900:
    case DF_FRACTION_MM:
    case DF_FRACTION_Q:
    case DF_FRACTION_S: return date_make_double(gregday, tics, kind, a, b, c);
    default:
      if (is_seconds_kind(kind)) return date_make_double(gregday, tics, kind, a, b, c);
      if (!in_range(a) || !in_range(b) || !in_range(c)) {
        gregday = -1;
        tics = -1;
        return false;
      }
      return make_date(gregday, tics, kind, static_cast<int>(std::floor(a)),
                       static_cast<int>(std::floor(b)), static_cast<int>(std::floor(c)), true);
  }
}

void CDateMin::split_date(int gregday, int tics, DateFormatMin kind, int* a, int* b, int* c) {
  if (gregday == -1 && tics == -1) {
    date_split(gregday, tics, kind, a, b, c);  // zeroes every output given
    return;
  }
  if (!split_supports(kind)) {
    txc::assert_failed(__FILE__, __LINE__);
    return;
  }
  if (kind == DF_YEAR_YDDD || kind == DF_YYYYDDD || kind == DF_YMD) {
    TXC_ASSERT(gregday >= 0 && gregday <= GREGDAY_MAX);
  }
  date_split(gregday, tics, kind, a, b, c);
}

void CDateMin::split_date(int gregday, int tics, DateFormatMin kind, double* out) {
  if (gregday < 0 && kind != DF_RAW_COUNT) {
    *out = na_pattern();
    return;
  }
  if (kind == DF_COM_DATE || (is_seconds_kind(kind) && kind != DF_SECONDS_OF_YEAR)) {
    date_split_double(gregday, tics, kind, out);
    return;
  }
  int whole = 0, b = 0, c = 0;
  split_date(gregday, tics, kind, &whole, &b, &c);
  *out = whole;
}
