// txc date make / txc date split: the date kernel from the command line.
//
//   txc date make KIND A [B C] [--century]   numbers of KIND to a date
//   txc date split KIND DAY [TICS]           a date to the numbers of KIND
//
// KIND is a DateFormatMin name (DF_YMD, or just YMD) or its number. A, B, C
// are integers, or doubles when one of them has a '.', 'e' or is nan/inf
// (then the double road is taken). Results show the day number, the calendar
// date, the time of day and the double encoding.
#include "command.h"

#include <txCommon/internal.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using txc_tool::Args;

const char* const kKindNames[] = {
    "DF_GREGDAY",          "DF_JULIAN_DAY",       "DF_MJD",           "DF_DAYS_1900",
    "DF_DAYS_1960",        "DF_DAYS_2001",        "DF_SERIAL_1900",   "DF_DAYS_OF_YEAR",
    "DF_COM_DATE",         "DF_YEAR_YDDD",        "DF_YYYYDDD",       "DF_YMD",
    "DF_YYYYMM_D",         "DF_YYYYMMDD",         "DF_DDMMYYYY",      "DF_MMDDYYYY",
    "DF_YEAR_WEEK_DAY",    "DF_YYYYWW_D",         "DF_YYYYWWD",       "DF_ISO_YEAR_WEEK_DAY",
    "DF_ISO_YYYYWW_D",     "DF_ISO_YYYYWWD",      "DF_YEAR_SEMESTER_DAY", "DF_YYYYS",
    "DF_YEAR_QUARTER_DAY", "DF_YYYYQ",            "DF_FRACTION_DDD",  "DF_FRACTION_MM",
    "DF_FRACTION_Q",       "DF_FRACTION_S",       "DF_SECONDS_0001",  "DF_SECONDS_1960",
    "DF_SECONDS_1970",     "DF_SECONDS_LOCAL",    "DF_SECONDS_OF_YEAR", "DF_SECOND_OF_DAY",
    "DF_HMS",              "DF_HHMM_S",           "DF_HHMMSS",        "DF_TICS_OF_DAY",
    "DF_MSEC",             "DF_RAW_COUNT",        "DF_NOW",           "DF_INVALID",
    "DF_TODAY",            "DF_NOW_AGAIN",
};
constexpr int kKindCount = static_cast<int>(sizeof kKindNames / sizeof kKindNames[0]);
static_assert(kKindCount == DF_NOW_AGAIN + 1, "one name per DateFormatMin member");

const char* kind_name(int kind) { return kind >= 0 && kind < kKindCount ? kKindNames[kind] : "(no kind)"; }

bool same_ignoring_case(const std::string& a, const char* b) {
  if (a.size() != std::strlen(b)) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 'a' + 'A');
    if (x != y) return false;
  }
  return true;
}

bool parse_int(const std::string& text, long long lo, long long hi, long long* out) {
  if (text.empty()) return false;
  errno = 0;
  char* end = nullptr;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (errno != 0 || end == text.c_str() || *end != '\0' || v < lo || v > hi) return false;
  *out = v;
  return true;
}

// A name with or without DF_, any case, or a number (any int: the kernel
// decides what an unknown kind does).
bool parse_kind(const std::string& text, int* kind) {
  for (int k = 0; k < kKindCount; ++k) {
    if (same_ignoring_case(text, kKindNames[k]) || same_ignoring_case(text, kKindNames[k] + 3)) {
      *kind = k;
      return true;
    }
  }
  long long v;
  if (!parse_int(text, -2147483648LL, 2147483647LL, &v)) return false;
  *kind = static_cast<int>(v);
  return true;
}

bool looks_like_double(const std::string& text) {
  return text.find_first_of(".eEnNiI") != std::string::npos;
}

bool parse_double(const std::string& text, double* out) {
  if (text.empty()) return false;
  char* end = nullptr;
  *out = std::strtod(text.c_str(), &end);
  return end != text.c_str() && *end == '\0';
}

int usage_error(const char* verb, const std::string& what) {
  std::fprintf(stderr, "txc date %s: %s (try 'txc help date %s')\n", verb, what.c_str(), verb);
  return 2;
}

// One line per date: day number, calendar date, time of day, double.
void show_pair(int day, int tics) {
  std::printf("  day    %d\n  tics   %d\n", day, tics);
  if (day >= 0 && day <= CDateMin::GREGDAY_MAX) {
    int y, m, d, h, mi, s;
    CDateMin::gregday_to_ymd(day, y, m, d);
    CDateMin::tics_to_hms(tics, h, mi, s);
    std::printf("  date   %04d-%02d-%02d (weekday %d, 1 is Monday)\n", y, m, d, txc::weekday_of(day));
    std::printf("  time   %02d:%02d:%02d.%03d\n", h, mi, s, tics >= 0 ? tics % 1000 : 0);
  } else if (day == -1 && tics == -1) {
    std::printf("  form   invalid\n");
  } else if (day <= -1 && day >= -49 && tics != -1) {
    int count = 0;
    date_split(day, tics, DF_RAW_COUNT, &count, nullptr, nullptr);
    std::printf("  form   raw count %u\n", static_cast<unsigned>(count));
  }
  CDateMin value;
  value.gregday = day;
  value.tics = tics;
  const double x = value;
  if (std::isnan(x)) {
    std::printf("  double NA\n");
  } else {
    std::printf("  double %.17g\n", x);
  }
}

int run_make(const Args& args) {
  Args rest;
  bool century = false;
  for (const std::string& a : args) {
    if (a == "--century") {
      century = true;
    } else {
      rest.push_back(a);
    }
  }
  if (rest.size() < 2 || rest.size() > 4) return usage_error("make", "needs KIND and 1 to 3 numbers");
  int kind;
  if (!parse_kind(rest[0], &kind)) return usage_error("make", "unknown kind '" + rest[0] + "'");
  bool asDouble = false;
  for (std::size_t i = 1; i < rest.size(); ++i) asDouble = asDouble || looks_like_double(rest[i]);
  int day = -1, tics = -1;
  bool ok;
  if (asDouble) {
    double v[3] = {0.0, 0.0, 0.0};
    for (std::size_t i = 1; i < rest.size(); ++i) {
      if (!parse_double(rest[i], &v[i - 1])) return usage_error("make", "bad number '" + rest[i] + "'");
    }
    ok = date_make_double(day, tics, kind, v[0], v[1], v[2]);
  } else {
    long long v[3] = {0, 0, 0};
    for (std::size_t i = 1; i < rest.size(); ++i) {
      if (!parse_int(rest[i], -2147483648LL, 2147483647LL, &v[i - 1]))
        return usage_error("make", "bad 32-bit integer '" + rest[i] + "'");
    }
    ok = date_make(day, tics, kind, static_cast<int>(v[0]), static_cast<int>(v[1]),
                   static_cast<int>(v[2]), century);
  }
  std::printf("%s %s: %s\n", kind_name(kind), asDouble ? "(double)" : "(integer)", ok ? "true" : "false");
  show_pair(day, tics);
  return ok ? 0 : 1;
}

int run_split(const Args& args) {
  if (args.size() < 2 || args.size() > 3) return usage_error("split", "needs KIND, DAY and maybe TICS");
  int kind;
  if (!parse_kind(args[0], &kind)) return usage_error("split", "unknown kind '" + args[0] + "'");
  long long day = 0, tics = 0;
  if (!parse_int(args[1], -2147483648LL, 2147483647LL, &day)) return usage_error("split", "bad DAY");
  if (args.size() == 3 && !parse_int(args[2], -2147483648LL, 2147483647LL, &tics))
    return usage_error("split", "bad TICS");
  constexpr int kUnset = INT32_MIN;
  int a = kUnset, b = kUnset, c = kUnset;
  date_split(static_cast<int>(day), static_cast<int>(tics), kind, &a, &b, &c);
  double x;
  date_split_double(static_cast<int>(day), static_cast<int>(tics), kind, &x);
  std::printf("%s\n", kind_name(kind));
  show_pair(static_cast<int>(day), static_cast<int>(tics));
  std::printf("  split ");
  for (int v : {a, b, c}) {
    if (v == kUnset) {
      std::printf(" -");
    } else {
      std::printf(" %d", v);
    }
  }
  if (std::isnan(x)) {
    std::printf("\n  as double NA\n");
  } else {
    std::printf("\n  as double %.17g\n", x);
  }
  return 0;
}

void tour() {
  struct Sample { const char* what; int kind, a, b, c; };
  const Sample samples[] = {
      {"Julian day 2451545 (J2000)", DF_JULIAN_DAY, 2451545, 0, 0},
      {"MJD 0", DF_MJD, 0, 0, 0},
      {"COM DATE 36526", DF_COM_DATE, 36526, 0, 0},
      {"ISO 2021-W01-1", DF_ISO_YEAR_WEEK_DAY, 2021, 1, 1},
      {"31 April 2001", DF_YMD, 2001, 4, 31},
  };
  std::printf("date make / date split: the 46 kinds of DateFormatMin\n");
  for (const Sample& s : samples) {
    int day = -1, tics = -1;
    const bool ok = date_make(day, tics, s.kind, s.a, s.b, s.c, false);
    int y = 0, m = 0, d = 0;
    if (ok) CDateMin::gregday_to_ymd(day, y, m, d);
    std::printf("  %-28s -> %s day %d", s.what, ok ? "true " : "false", day);
    if (ok) std::printf(" = %04d-%02d-%02d", y, m, d);
    std::printf("\n");
  }
}

const char kMakeUsage[] =
    "txc date make KIND A [B C] [--century]\n"
    "  Makes a date from the numbers of KIND (a DateFormatMin name such as DF_YMD\n"
    "  or YMD, or its number 0..45). Integers take the integer road; a number with\n"
    "  '.', an exponent, nan or inf takes the double road. --century applies the\n"
    "  two-digit year rule on the integer road.\n"
    "  Example: txc date make YMD 1999 12 31\n"
    "           txc date make DF_FRACTION_Q 1990.3\n"
    "  Exit status 0 when the kernel answers true, 1 when false.";

const char kSplitUsage[] =
    "txc date split KIND DAY [TICS]\n"
    "  Splits day number DAY (0 is 0001-01-01) and TICS (milliseconds, default 0)\n"
    "  into the numbers of KIND, as integers ('-' marks an output the kind leaves\n"
    "  alone) and as one double.\n"
    "  Example: txc date split ISO_YEAR_WEEK_DAY 737790";

const txc_tool::Registration kMake{txc_tool::Command{
    "date", "make", "a date from the numbers of a DateFormatMin kind", kMakeUsage, run_make, tour}};
const txc_tool::Registration kSplit{txc_tool::Command{
    "date", "split", "a date to the numbers of a DateFormatMin kind", kSplitUsage, run_split, nullptr}};

}  // namespace
