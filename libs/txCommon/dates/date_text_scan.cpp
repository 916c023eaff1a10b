// scan_date_fields: cuts date text into up to three date fields and four time
// fields, without deciding yet which date field is the year.
//
// The walk, on "15th Jan, 1990T10:30:15.25pm":
//   date fields  15 (suffix "th" skipped), Jan (month 1, width -1), 1990
//   'T'          consumed, so that a lone hour would still count
//   time fields  10 : 30 : 15, then ".25" as 250 milliseconds
//   marker       "pm" turns 10 into 22
#include <txCommon/internal.h>

#include "date_text_chars.h"

#include <climits>
#include <cstdint>

namespace {

using txc::dt::is_blank;
using txc::dt::is_digit;
using txc::dt::is_letter;
using txc::dt::upper;

// Slots of the field arrays.
constexpr int kHourSlot = 3;
constexpr int kMsecSlot = 6;

// The date fields of a text that turned out to be a time alone: 1 January of
// the year 1, which is day 0. The width 4 makes the first field read as a year.
constexpr int kTimeOnlyYearWidth = 4;

// Separator classes: 0 for date separators ('/', '-', '\\' or none), 1 for
// ':' '.' and period letters, which also forbid a month name behind them.
constexpr int kNoClass = -1;
constexpr int kDateClass = 0;
constexpr int kPeriodClass = 1;

struct Cursor {
  const char* text;
  int span;
  int pos;

  // The span ends at its limit or at a zero byte. at(i) may only be asked
  // for i up to one past a byte known not to be zero.
  bool at_end() const { return pos >= span || text[pos] == '\0'; }
  char at(int i) const { return i < span ? text[i] : '\0'; }
  void skip_blanks() {
    while (pos < span && is_blank(text[pos])) ++pos;
  }
};

// Reads a run of digits at c.pos. The value saturates at INT_MAX; the result
// says whether it had to.
bool read_number(Cursor& c, int& value, int& width) {
  std::int64_t v = 0;
  bool overflow = false;
  const int start = c.pos;
  while (!c.at_end() && is_digit(c.text[c.pos])) {
    if (!overflow) {
      v = v * 10 + (c.text[c.pos] - '0');
      if (v > INT_MAX) overflow = true;
    }
    ++c.pos;
  }
  value = overflow ? INT_MAX : static_cast<int>(v);
  width = c.pos - start;
  return overflow;
}

// The English ordinal suffix of v: "th" for 10 to 19 and last digits 0, 4-9.
const char* ordinal_suffix(int v) {
  if (v % 100 >= 10 && v % 100 <= 19) return "TH";
  switch (v % 10) {
    case 1: return "ST";
    case 2: return "ND";
    case 3: return "RD";
    default: return "TH";
  }
}

void skip_ordinal_suffix(Cursor& c, int value) {
  const char* s = ordinal_suffix(value);
  if (c.pos + 2 <= c.span && upper(c.text[c.pos]) == s[0] &&
      upper(c.text[c.pos + 1]) == s[1]) {
    c.pos += 2;
  }
}

// 'a' for an "am" marker, 'p' for "pm", 0 for none. `anyCase` admits "aM" and
// "pM" as well as "am", "Am", "AM".
char marker_at(const Cursor& c, int at, bool anyCase) {
  const char first = c.at(at);
  if (first == '\0') return 0;
  const char second = c.at(at + 1);
  // Without anyCase: "am", "Am", "AM" (and the same for pm), never "aM".
  const bool m = anyCase ? upper(second) == 'M'
                         : (second == 'm' || (second == 'M' && (first == 'A' || first == 'P')));
  if (!m) return 0;
  if (first == 'a' || first == 'A') return 'a';
  if (first == 'p' || first == 'P') return 'p';
  return 0;
}

// The three date fields of a pure time: 1, 1, 1 as year, month, day.
void make_time_only(int* values, int* widths) {
  for (int i = 0; i < 3; ++i) {
    values[i] = 1;
    widths[i] = 1;
  }
  widths[0] = kTimeOnlyYearWidth;
}

struct Fields {
  int& count;
  int* values;
  int* widths;
  char& hasName;
  char& separator;
};

enum class ReadResult { kField, kUnknownName, kFail };

// One date field at the cursor: a number (with its ordinal suffix) or a
// month name.
ReadResult read_date_field(Cursor& c, Fields& f, int cls) {
  const char b = c.at(c.pos);
  const int slot = f.count;
  if (is_digit(b)) {
    int value = 0, width = 0;
    if (read_number(c, value, width)) return ReadResult::kFail;
    if (width <= 2) skip_ordinal_suffix(c, value);
    f.values[slot] = value;
    f.widths[slot] = width;
    return ReadResult::kField;
  }
  if (!is_letter(b) || f.hasName || cls == kPeriodClass) return ReadResult::kFail;
  int used = 0;
  const int month = month_from_text(c.text + c.pos, c.span - c.pos, &used);
  f.values[slot] = month;
  f.widths[slot] = -1;
  if (month < 0) return ReadResult::kUnknownName;
  f.hasName = 1;
  c.pos += used;
  return ReadResult::kField;
}

// The byte between two date fields. Returns false when the date fields end
// here.
bool read_separator(Cursor& c, Fields& f, int& cls) {
  const char b = c.text[c.pos];
  if (cls == kNoClass) {
    if (is_digit(b) || (is_letter(b) && is_letter(c.at(c.pos + 1)))) {
      cls = kDateClass;
      return true;
    }
    if (b == '/' || b == '-' || b == '\\') {
      cls = kDateClass;
      f.separator = b;
      ++c.pos;
      return true;
    }
    if (b == ':' || b == '.' || (is_letter(b) && frequency_of_letter(b) != 0)) {
      cls = kPeriodClass;
      f.separator = upper(b);
      ++c.pos;
      return true;
    }
    return false;
  }
  if (cls == kPeriodClass) {
    const bool narrow = f.widths[0] >= 0 && f.widths[0] <= 2 && f.widths[1] >= 0 && f.widths[1] <= 2;
    if (b != ':' || f.hasName || !narrow) return false;
    f.separator = ':';
    ++c.pos;
    return true;
  }
  if (f.separator != 0) {
    if (b != f.separator) return false;
    ++c.pos;
    return true;
  }
  return is_digit(b) || is_letter(b);
}

// Step of the time fields behind three date fields. Returns the number read
// (0 to 3), or -1 when a number wider than two digits ended them; c.pos is
// then in front of that number. Blanks around the fields (when allowed)
// belong to the time: the cursor moves over them, also behind the last field,
// so that a zone or a marker behind the time is read from where they end.
int read_time_fields(Cursor& c, Fields& f, bool allowBlanks) {
  int n = 0;
  while (n < 3) {
    if (allowBlanks) c.skip_blanks();
    if (!is_digit(c.at(c.pos))) break;
    const int start = c.pos;
    int value = 0, width = 0;
    read_number(c, value, width);
    f.values[kHourSlot + n] = value;
    f.widths[kHourSlot + n] = width;
    if (width > 2) {
      c.pos = start;
      return -1;
    }
    ++n;
    if (allowBlanks) c.skip_blanks();
    if (c.at(c.pos) != ':') break;
    ++c.pos;
  }
  return n;
}

// ".d", ".dd", ".ddd..." as milliseconds: the first three digits, padded
// with zeros.
bool read_milliseconds(Cursor& c, int* values, int* widths) {
  if (c.at(c.pos) != '.' || !is_digit(c.at(c.pos + 1))) return false;
  ++c.pos;
  int ms = 0, digits = 0;
  while (!c.at_end() && is_digit(c.text[c.pos])) {
    if (digits < 3) ms = ms * 10 + (c.text[c.pos] - '0');
    ++digits;
    ++c.pos;
  }
  for (; digits < 3; ++digits) ms *= 10;
  values[kMsecSlot] = ms;
  widths[kMsecSlot] = 3;
  return true;
}

}  // namespace

int scan_date_fields(int& count, int* values, int* widths, char& hasName, char& separator,
                     const char* text, int length, char allowBlanks) {
  count = 0;
  hasName = 0;
  separator = 0;
  if (values == nullptr || widths == nullptr) return -1;
  for (int i = 0; i < kDateFieldSlots; ++i) values[i] = widths[i] = 0;
  Cursor c{text, txc::date_text_limit(text, length), 0};
  if (c.at_end()) return -1;
  Fields f{count, values, widths, hasName, separator};
  const bool blanks = allowBlanks != 0;

  int cls = kNoClass;
  int fieldEnd = 0;
  for (;;) {
    const ReadResult r = read_date_field(c, f, cls);
    if (r == ReadResult::kFail) return -1;
    if (r == ReadResult::kUnknownName) break;
    fieldEnd = c.pos;
    if (++count == 3) break;
    if (blanks) {
      c.skip_blanks();
      if (c.at(c.pos) == ',') ++c.pos;
      c.skip_blanks();
    }
    if (c.at_end() || !read_separator(c, f, cls)) break;
    if (blanks) c.skip_blanks();
    if (c.at_end()) break;
  }
  c.pos = fieldEnd;

  // A number or an hh:mm[:ss] right before "am" or "pm" is a time of day.
  // The room asked for is counted on the span, not on the text: a text read
  // to its terminator (length -1) has all the room it wants, so "10:30pm"
  // is a time there, while a span cut right behind "pm" is too short.
  const bool threeLeft = c.span - c.pos >= 3;
  if (threeLeft && (count == 1 || separator == ':') && count > 0 &&
      values[0] <= 12) {
    if (const char m = marker_at(c, c.pos, false)) {
      int hour = values[0];
      if (m == 'p') hour = hour == 12 ? 12 : hour + 12;
      if (m == 'a' && hour == 12) hour = 0;
      for (int i = count - 1; i >= 0; --i) {
        values[kHourSlot + i] = values[i];
        widths[kHourSlot + i] = widths[i];
      }
      values[kHourSlot] = hour;
      make_time_only(values, widths);
      count += 3;
      return c.pos + 2;
    }
  }
  if (count < 3) return c.pos;

  bool sawT = false;
  if (separator == ':') {
    for (int i = 0; i < 3; ++i) {
      values[kHourSlot + i] = values[i];
      widths[kHourSlot + i] = widths[i];
    }
    make_time_only(values, widths);
    count = 6;
  } else {
    if (c.at(c.pos) == 'T') {
      ++c.pos;
      sawT = true;
    }
    const int n = read_time_fields(c, f, blanks);
    if (n == 0) {
      if (!sawT) c.pos = fieldEnd;
      count = 3;
      return c.pos;
    }
    count = n < 0 ? 4 : 3 + n;  // a wide number leaves the hour alone
  }
  if (count == 6 && read_milliseconds(c, values, widths)) count = 7;

  // An "am" or "pm" behind the time, in any case, after blanks if allowed.
  Cursor probe = c;
  if (blanks) probe.skip_blanks();
  const char m = marker_at(probe, probe.pos, true);
  int& hour = values[kHourSlot];
  if (m == 'a' && hour >= 13) {
    count = 4;
    return c.pos;
  }
  if (m == 'p' && hour < 12) hour += 12;
  if (m == 'a' && hour == 12) hour = 0;
  if (m != 0) c.pos = probe.pos + 2;
  if (count == 4 && m == 0 && !sawT) {
    count = 3;
    c.pos = fieldEnd;
  }
  return c.pos;
}
