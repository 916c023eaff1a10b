// parse_date_text: the interpreter of scanned date fields.
//
// The scanner has found up to three date fields and a time; what they mean
// depends on how many there are, their widths, the separator and the hint:
//
//   one number     "1990" a year, "123190" a packed date, "19902" a period
//                  under a period bit, "7" an hour under DH_TIME_OF_DAY
//   two fields     "Jan 1990" a month, "1990Q3" a period of the letter,
//                  "1990:3" a period of the record or of the hint
//   three fields   a calendar date, in the order the widths and hint give
#include <txCommon/internal.h>

#include "date_text_chars.h"
#include "frequency_calendar.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace {

using txc::dt::is_blank;
using txc::dt::is_digit;
using txc::dt::is_letter;
using txc::dt::upper;

constexpr int kTicsPerHour = 3600000;
constexpr int kTicsPerMinute = 60000;
constexpr int kTicsPerSecond = 1000;

// The value of one parse being built.
struct Result {
  int day = -1;
  int tics = -1;
  int frequency = 0;
  int step = 1;
};

struct Fields {
  int count = 0;
  int values[kDateFieldSlots] = {};
  int widths[kDateFieldSlots] = {};
  char hasName = 0;
  char separator = 0;
};

// A period bit of the hint and how a bare number or pair is read under it.
struct PeriodRule {
  unsigned bit;
  int kind;       // DateFormatMin of (year, period, 1)
  int divisor;    // splits one number into year and period
  int frequency;  // the frequency reported (the weekly and daily ones report 2)
};

// In order of precedence.
constexpr PeriodRule kPeriodRules[] = {
    {DH_QUARTERLY, DF_YEAR_QUARTER_DAY, 10, FREQ_QUARTERLY},
    {DH_MONTHLY, DF_YMD, 100, FREQ_MONTHLY},
    {DH_SEMIANNUAL, DF_YEAR_SEMESTER_DAY, 10, FREQ_SEMIANNUAL},
    {DH_WEEKLY, DF_YEAR_WEEK_DAY, 100, FREQ_SEMIANNUAL},
    {DH_DAILY, DF_YEAR_YDDD, 1000, FREQ_SEMIANNUAL},
};

const PeriodRule* period_rule(unsigned hint) {
  for (const PeriodRule& r : kPeriodRules) {
    if ((hint & r.bit) != 0) return &r;
  }
  return nullptr;
}

bool by_period_rule(Result& out, const PeriodRule& rule, int year, int period) {
  out.day = -1;
  out.tics = -1;
  if (!date_make(out.day, out.tics, rule.kind, year, period, 1, true)) return false;
  out.frequency = rule.frequency;
  return true;
}

// A calendar date that must exist, at time 0.
bool by_ymd(Result& out, int year, int month, int day, int frequency) {
  int d = -1;
  if (!CDateMin::ymd_to_gregday(d, year, month, day, false)) return false;
  out.day = d;
  out.tics = 0;
  out.frequency = frequency;
  return true;
}

void put_raw(Result& out, int count) {
  out.day = ~(count / txc::cal::kTicsPerDay);
  out.tics = count % txc::cal::kTicsPerDay;
  out.frequency = FREQ_RAW;
}

bool one_number(Result& out, const Fields& f, const RegularFreq* freq, unsigned hint) {
  if (f.hasName) return false;
  const int v = f.values[0];
  const int w = f.widths[0];
  if (freq != nullptr && freq->frequency == FREQ_RAW) return put_raw(out, v), true;
  if (const PeriodRule* rule = period_rule(hint)) {
    return by_period_rule(out, *rule, v / rule->divisor, v % rule->divisor);
  }
  if ((hint & DH_TIME_OF_DAY) != 0 && w <= 2 && v >= 1 && v <= 24) {
    if (v == 24) return false;
    out.day = 0;
    out.tics = v * kTicsPerHour;
    out.frequency = FREQ_HOUR;
    return true;
  }
  if (w == 5 || w == 6) {
    const int p1 = v / 10000, p2 = v % 10000 / 100, p3 = v % 100;
    int y = 0, m = 0, d = 0;
    if ((hint & DH_MONTH_DAY_YEAR) != 0) {
      m = p1, d = p2, y = p3;
    } else if ((hint & DH_DAY_MONTH_YEAR) != 0) {
      d = p1, m = p2, y = p3;
    } else if ((hint & DH_YEAR_MONTH_DAY) != 0) {
      y = p1, m = p2, d = p3;
    }
    if (m >= 1 && m <= 12 && d >= 1 && d <= 31) {
      return by_ymd(out, CDateMin::add_century(y), m, d, FREQ_DAILY);
    }
    if ((hint & DH_DAY_NUMBER) == 0) return false;
    out.day = v;  // below 1000000, inside the calendar
    out.tics = 0;
    out.frequency = FREQ_DAILY;
    return true;
  }
  if (w == 7 || w == 8) {
    const int hi = v / 1000000, mid = v / 10000 % 100, year = v % 10000;
    if ((hint & DH_MONTH_DAY_YEAR) != 0) return by_ymd(out, year, hi, mid, FREQ_DAILY);
    if ((hint & DH_DAY_MONTH_YEAR) != 0) return by_ymd(out, year, mid, hi, FREQ_DAILY);
    return by_ymd(out, v / 10000, v / 100 % 100, v % 100, FREQ_DAILY);
  }
  if (w > 8) return false;
  const int year = w <= 2 ? CDateMin::add_century(v) : v;
  return by_ymd(out, year, 1, 1, FREQ_ANNUAL);
}

bool time_of_day(Result& out, const Fields& f);

bool two_fields(Result& out, Fields& f, const RegularFreq* freq, unsigned hint) {
  if (f.hasName) {
    const int name = f.widths[0] < 0 ? 0 : 1;
    const int other = 1 - name;
    const int year = f.widths[other] <= 2 ? CDateMin::add_century(f.values[other])
                                          : f.values[other];
    return by_ymd(out, year, f.values[name], 1, FREQ_MONTHLY);
  }
  if ((hint & DH_TIME_OF_DAY) != 0 && f.separator == ':') {
    f.values[3] = f.values[0];
    f.values[4] = f.values[1];
    f.count = 5;
    out.day = 0;
    return time_of_day(out, f);
  }
  int y = f.values[0], n = f.values[1], w = f.widths[0];
  if ((hint & DH_YEAR_SECOND) != 0) {
    y = f.values[1], n = f.values[0], w = f.widths[1];
  }
  if (w <= 2) y = CDateMin::add_century(y);
  const char sep = f.separator;
  if (sep == 0 || sep == ':' || sep == '.' || sep == '/' || sep == '-' || sep == '\\') {
    if (const PeriodRule* rule = period_rule(hint)) return by_period_rule(out, *rule, y, n);
    if (freq == nullptr || freq->frequency == FREQ_RAW) return false;
    if (!freq_period_of_year(*freq, out.day, out.tics, y, n, false)) return false;
    out.frequency = freq->frequency;
    out.step = freq->multiple;
    return true;
  }
  const int letterFrequency = frequency_of_letter(sep);
  if (!period_of_year(out.day, out.tics, letterFrequency, y, n)) return false;
  out.frequency = letterFrequency;
  return true;
}

bool three_fields(Result& out, Fields& f, unsigned hint) {
  int* v = f.values;
  int* w = f.widths;
  int year = 0, month = 0, day = 0;
  if (!f.hasName) {
    const bool mdy = (hint & DH_MONTH_DAY_YEAR) != 0;
    const bool dmy = (hint & DH_DAY_MONTH_YEAR) != 0;
    if (w[0] > 2) {
      year = v[0], month = v[1], day = v[2];
    } else if (w[2] <= 2) {
      if (mdy) {
        month = v[0], day = v[1], year = v[2];
      } else if (dmy) {
        day = v[0], month = v[1], year = v[2];
      } else {
        year = v[0], month = v[1], day = v[2];
      }
      year = CDateMin::add_century(year);
    } else if (mdy || (hint & DH_MONTH_FIRST_LONG_YEAR) != 0) {
      month = v[0], day = v[1], year = v[2];
    } else {
      day = v[0], month = v[1], year = v[2];
    }
  } else {
    // The name goes to the middle; the field that stood there takes its place.
    const int at = w[0] < 0 ? 0 : (w[1] < 0 ? 1 : 2);
    if (at != 1) {
      std::swap(v[at], v[1]);
      std::swap(w[at], w[1]);
    }
    if ((w[0] > 2 && w[2] <= 2) || (at == 1 && (hint & DH_YEAR_MONTH_DAY) != 0)) {
      std::swap(v[0], v[2]);
      std::swap(w[0], w[2]);
    }
    day = v[0], month = v[1], year = v[2];
    if (w[2] <= 2) year = CDateMin::add_century(year);
  }
  return by_ymd(out, year, month, day, FREQ_DAILY);
}

// The time slots of a count above 3 onto the day already found.
bool time_of_day(Result& out, const Fields& f) {
  const int hours = f.values[3];
  const int minutes = f.count >= 5 ? f.values[4] : 0;
  const int seconds = f.count >= 6 ? f.values[5] : 0;
  const int msecs = f.count >= 7 ? f.values[6] : 0;
  if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 || seconds > 59) {
    return false;
  }
  out.tics = hours * kTicsPerHour + minutes * kTicsPerMinute + seconds * kTicsPerSecond + msecs;
  out.frequency = FREQ_HOUR + (f.count - 4);
  return true;
}

bool interpret(Result& out, Fields& f, const RegularFreq* freq, unsigned hint) {
  switch (f.count) {
    case 1: return one_number(out, f, freq, hint);
    case 2: return two_fields(out, f, freq, hint);
    default:
      if (!three_fields(out, f, hint)) return false;
      return f.count == 3 || time_of_day(out, f);
  }
}

// Universal time from a local time `zone` minutes east.
bool apply_zone(Result& out, int zone) {
  const std::int64_t t = static_cast<std::int64_t>(out.day) * txc::cal::kTicsPerDay + out.tics -
                         static_cast<std::int64_t>(zone) * kTicsPerMinute;
  const std::int64_t day = txc::cal::floor_div(t, txc::cal::kTicsPerDay);
  if (day < 0 || day > txc::cal::kLastDay) return false;
  out.day = static_cast<int>(day);
  out.tics = static_cast<int>(txc::cal::floor_mod(t, txc::cal::kTicsPerDay));
  return true;
}

// "@NOW" in any case, as a word of its own. Returns the bytes of the word
// from `at`, or 0.
int now_word(const char* text, int span, int at) {
  if (span - at < 4 || upper(text[at + 1]) != 'N' || upper(text[at + 2]) != 'O' ||
      upper(text[at + 3]) != 'W') {
    return 0;
  }
  if (at + 4 < span && (is_letter(text[at + 4]) || is_digit(text[at + 4]))) return 0;
  return 4;
}

int skip_blanks(const char* text, int span, int at) {
  while (at < span && is_blank(text[at])) ++at;
  return at;
}

bool at_end(const char* text, int span, int at) { return at >= span || text[at] == '\0'; }

}  // namespace

bool parse_date_text(int& day, int& tics, int& frequency, int& step, const char* text,
                     int length, int* consumed, char allowBlanks, const RegularFreq* freq,
                     unsigned hint) {
  frequency = 0;
  step = 1;
  const auto fail = [&] {
    day = -1;
    tics = -1;
    frequency = 0;
    step = 1;
    if (consumed != nullptr) *consumed = 0;
    return false;
  };
  const int span = txc::date_text_limit(text, length);
  int pos = skip_blanks(text, span, 0);
  if (at_end(text, span, pos)) return fail();
  const bool whole = consumed == nullptr;
  const bool blanks = whole || allowBlanks != 0;

  if (text[pos] == '@') {
    const int word = now_word(text, span, pos);
    if (word == 0) return fail();
    pos += word;
    if (whole && !at_end(text, span, skip_blanks(text, span, pos))) return fail();
    if (!whole) *consumed = pos;
    day = 0;
    tics = 0;
    if (!date_make(day, tics, DF_NOW, 0, 0, 0, false)) return fail();
    frequency = FREQ_MSEC;
    return true;
  }

  if (freq != nullptr && freq->frequency == FREQ_RAW && text[pos] == 'U') ++pos;
  Fields f;
  const int used = scan_date_fields(f.count, f.values, f.widths, f.hasName, f.separator,
                                    text + pos, span - pos, blanks ? 1 : 0);
  if (used < 0) return fail();
  pos += used;

  int zone = kNoZone;
  if (f.count > 3 && !at_end(text, span, pos)) {
    const int at = blanks ? skip_blanks(text, span, pos) : pos;
    if (!at_end(text, span, at) && (is_letter(text[at]) || text[at] == '+' || text[at] == '-')) {
      int zoneBytes = 0;
      zone = zone_from_text(text + at, span - at, &zoneBytes, whole ? 1 : 0);
      if (zone != kNoZone) pos = at + zoneBytes;
    }
  }
  if (whole && !at_end(text, span, skip_blanks(text, span, pos))) return fail();
  if (!whole) *consumed = pos;
  if (f.count == 0) {
    // A lone unknown word: no date, but the bytes before it stay counted.
    day = -1;
    tics = -1;
    return false;
  }

  Result out;
  if (!interpret(out, f, freq, hint)) return fail();
  if (zone != kNoZone && out.day >= 0 && !apply_zone(out, zone)) {
    // The text was a date; only its universal time is off the calendar. The
    // bytes stay consumed, so that a caller steps over the whole date.
    out.day = -1;
    out.tics = -1;
  }
  day = out.day;
  tics = out.tics;
  frequency = out.frequency;
  step = out.step;
  return day != -1 || tics != -1;
}
