// txc date parse | add | diff: the date text parser and frequency arithmetic
// on text from the command line.
#include "command.h"

#include <txCommon/internal.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using txc_tool::Args;

const char* const kFrequencyNames[18] = {
    "none",   "annual", "semiannual", "quarterly", "monthly", "half-month",
    "ten-day", "five-day", "fortnight", "weekly",   "business-day", "daily",
    "hour",   "minute", "second",     "msec",      "tics",         "raw"};

const char* frequency_name(int code) {
  return code >= 0 && code <= FREQ_RAW ? kFrequencyNames[code] : "?";
}

std::string show_date(int day, int tics) {
  char text[64];
  if (day < 0 && tics == -1) return "invalid";
  if (day < 0) {
    const long long count = static_cast<long long>(~static_cast<long long>(day)) * 86400000LL + tics;
    std::snprintf(text, sizeof text, "raw count %lld", count);
    return text;
  }
  if (day > CDateMin::GREGDAY_MAX || tics < 0 || tics >= CDateMin::TICS_PER_DAY) {
    std::snprintf(text, sizeof text, "day %d, tics %d (off the calendar)", day, tics);
    return text;
  }
  int y, m, d;
  CDateMin::gregday_to_ymd(day, y, m, d);
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d (day %d, tics %d)", y, m, d,
                tics / 3600000, tics / 60000 % 60, tics / 1000 % 60, tics % 1000, day, tics);
  return text;
}

struct HintName {
  const char* name;
  unsigned bits;
};

constexpr HintName kHintNames[] = {
    {"default", kDefaultDateHint}, {"mdy", DH_MONTH_DAY_YEAR},     {"dmy", DH_DAY_MONTH_YEAR},
    {"ymd", DH_YEAR_MONTH_DAY},    {"longyear", DH_MONTH_FIRST_LONG_YEAR},
    {"semiannual", DH_SEMIANNUAL}, {"quarterly", DH_QUARTERLY},    {"monthly", DH_MONTHLY},
    {"weekly", DH_WEEKLY},         {"daily", DH_DAILY},            {"yearsecond", DH_YEAR_SECOND},
    {"daynumber", DH_DAY_NUMBER},  {"time", DH_TIME_OF_DAY},
};

// "0x04000012", "18", or names joined by '+' or ',': "dmy+daynumber".
bool parse_hint(const std::string& text, unsigned& hint) {
  char* end = nullptr;
  errno = 0;
  const unsigned long v = std::strtoul(text.c_str(), &end, 0);
  if (!text.empty() && *end == '\0' && errno == 0) {
    hint = static_cast<unsigned>(v);
    return true;
  }
  hint = 0;
  std::size_t at = 0;
  while (at <= text.size()) {
    const std::size_t stop = text.find_first_of("+,", at);
    const std::string word = text.substr(at, stop == std::string::npos ? std::string::npos : stop - at);
    bool known = false;
    for (const HintName& h : kHintNames) {
      if (word == h.name) hint |= h.bits, known = true;
    }
    if (!known) return false;
    if (stop == std::string::npos) break;
    at = stop + 1;
  }
  return true;
}

// A code 0 to 17, a name of kFrequencyNames, or a period letter.
bool parse_frequency(const std::string& text, int& code) {
  char* end = nullptr;
  const long v = std::strtol(text.c_str(), &end, 10);
  if (!text.empty() && *end == '\0') {
    code = static_cast<int>(v);
    return v >= 0 && v <= FREQ_RAW;
  }
  for (int i = 0; i <= FREQ_RAW; ++i) {
    if (text == kFrequencyNames[i]) return code = i, true;
  }
  if (text.size() == 1 && frequency_of_letter(text[0]) != 0) {
    code = frequency_of_letter(text[0]);
    return true;
  }
  return false;
}

bool parse_int(const std::string& text, int& value) {
  char* end = nullptr;
  errno = 0;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno != 0 || v < INT32_MIN || v > INT32_MAX) return false;
  value = static_cast<int>(v);
  return true;
}

// A DATE argument in whole-text mode with the start hint, or a raw count
// written "U123".
bool read_date(const std::string& text, int& day, int& tics) {
  static const RegularFreq raw{-1, 0, FREQ_RAW, 1, 0, 0, 0, 0, 0};
  int frequency = 0, step = 0;
  const RegularFreq* freq = (!text.empty() && text[0] == 'U') ? &raw : nullptr;
  if (parse_date_text(day, tics, frequency, step, text.c_str(), -1, nullptr, 0, freq,
                      kDefaultDateHint)) {
    return true;
  }
  std::fprintf(stderr, "txc date: %s is no date\n", txc_tool::visible(text.c_str()).c_str());
  return false;
}

void print_parse(const char* text, unsigned hint, const RegularFreq* freq, bool prefix) {
  int day = 0, tics = 0, frequency = 0, step = 0, used = 0;
  const bool ok = parse_date_text(day, tics, frequency, step, text, -1, prefix ? &used : nullptr,
                                  1, freq, hint);
  std::printf("%s\n  date      %s%s\n  frequency %d (%s), step %d\n", txc_tool::visible(text).c_str(),
              show_date(day, tics).c_str(), ok ? "" : " [not a date]", frequency,
              frequency_name(frequency), step);
  if (prefix) {
    std::printf("  consumed  %d byte(s): %s\n", used, txc_tool::visible(text, static_cast<std::size_t>(used)).c_str());
  }
}

int run_parse(const Args& args) {
  unsigned hint = kDefaultDateHint;
  RegularFreq record{0, 0, 0, 1, 0, 0, 0, 0, 0};
  const RegularFreq* freq = nullptr;
  bool prefix = false;
  const char* text = nullptr;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--prefix") {
      prefix = true;
    } else if (a == "--hint" && i + 1 < args.size()) {
      if (!parse_hint(args[++i], hint)) return std::fprintf(stderr, "txc date parse: bad hint\n"), 2;
    } else if (a == "--freq" && i + 1 < args.size()) {
      if (!parse_frequency(args[++i], record.frequency)) {
        return std::fprintf(stderr, "txc date parse: bad frequency\n"), 2;
      }
      if (record.frequency == FREQ_RAW) record.baseDay = -1;
      freq = &record;
    } else if (text == nullptr) {
      text = a.c_str();
    } else {
      return std::fprintf(stderr, "txc date parse: one TEXT only (quote it)\n"), 2;
    }
  }
  if (text == nullptr) return std::fprintf(stderr, "usage: txc date parse TEXT [options]\n"), 2;
  print_parse(text, hint, freq, prefix);
  return 0;
}

int run_add(const Args& args) {
  int day = 0, tics = 0, frequency = 0, n = 0;
  if (args.size() != 3) return std::fprintf(stderr, "usage: txc date add DATE FREQ N\n"), 2;
  if (!read_date(args[0], day, tics)) return 1;
  if (!parse_frequency(args[1], frequency) || !parse_int(args[2], n)) {
    return std::fprintf(stderr, "txc date add: bad FREQ or N\n"), 2;
  }
  const bool ok = date_add(day, tics, frequency, n);
  std::printf("%s%s\n", show_date(day, tics).c_str(), ok ? "" : "  [false]");
  return ok ? 0 : 1;
}

int run_diff(const Args& args) {
  int day1 = 0, tics1 = 0, day2 = 0, tics2 = 0, frequency = 0, rounding = 0;
  if (args.size() != 3 && args.size() != 5) {
    return std::fprintf(stderr, "usage: txc date diff DATE1 DATE2 FREQ [--round up|down|away]\n"), 2;
  }
  if (!read_date(args[0], day1, tics1) || !read_date(args[1], day2, tics2)) return 1;
  if (!parse_frequency(args[2], frequency)) return std::fprintf(stderr, "txc date diff: bad FREQ\n"), 2;
  if (args.size() == 5) {
    if (args[3] != "--round") return std::fprintf(stderr, "txc date diff: unknown option\n"), 2;
    rounding = args[4] == "away" ? 1 : args[4] == "down" ? 2 : args[4] == "up" ? 3 : -1;
    if (rounding < 0) return std::fprintf(stderr, "txc date diff: --round up|down|away\n"), 2;
  }
  int result = 0;
  char onWeekend = 0;
  const bool ok = date_diff(result, day1, tics1, day2, tics2, frequency, rounding, &onWeekend);
  std::printf("%d %s period(s)%s%s\n", result, frequency_name(frequency),
              onWeekend ? "  [first date on a weekend]" : "", ok ? "" : "  [false]");
  return ok ? 0 : 1;
}

void tour() {
  const char* samples[] = {"1990Q3", "15th January 1990", "1/15/90 10:30:15.5 EST", "3:15pm today"};
  for (const char* s : samples) print_parse(s, kDefaultDateHint, nullptr, true);
  int day = -1, tics = -1;
  read_date("1/31/2001", day, tics);
  const bool ok = date_add(day, tics, FREQ_MONTHLY, 1);
  std::printf("1/31/2001 + 1 month: %s%s\n", show_date(day, tics).c_str(), ok ? "" : " [false: month end]");
}

const txc_tool::Registration parseCommand({
    "date", "parse", "parse date text: day, time, frequency, bytes consumed",
    "txc date parse TEXT [--hint BITS|NAMES] [--freq CODE] [--prefix]\n\n"
    "Parses TEXT as a date and prints the date, time, frequency, step and, with\n"
    "--prefix, the bytes a date at the start of TEXT takes (blanks between fields\n"
    "allowed). Without --prefix the whole TEXT must be one date.\n"
    "  --hint   a number (0x04000012 is the start value) or names joined by '+':\n"
    "           default mdy dmy ymd longyear semiannual quarterly monthly weekly\n"
    "           daily yearsecond daynumber time\n"
    "  --freq   a series frequency (code, name or letter) for \"1990:3\" and raw counts",
    run_parse, tour});

const txc_tool::Registration addCommand({
    "date", "add", "step a date by N periods of a frequency",
    "txc date add DATE FREQ N\n\n"
    "DATE is date text (\"U25\" for a raw count), FREQ a code 1 to 17, a name\n"
    "(annual, quarterly, monthly, business-day, hour, ...) or a period letter.",
    run_add, nullptr});

const txc_tool::Registration diffCommand({
    "date", "diff", "periods of a frequency between two dates",
    "txc date diff DATE1 DATE2 FREQ [--round up|down|away]\n\n"
    "Counts the periods from DATE2 to DATE1 (positive when DATE1 is later);\n"
    "without --round the count is truncated.",
    run_diff, nullptr});

}  // namespace
