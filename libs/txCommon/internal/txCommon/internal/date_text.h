// Internal: not part of the public interface. Date text parsing.
//
// Hand-written dates in statement text: "1990", "90", "1990Q3", "1990:3",
// "Jan 1990", "15 Jan 1990", "1/15/90", "1990-01-15T10:30:00.5 EST", "10:30pm",
// "@NOW". One scanner cuts the text into at most seven numeric fields; the
// interpreter decides by their count, widths, the separator and the date hint
// which field is what, and says how fine the text was as a frequency code.
//
//   int day, tics, freq, step, used;
//   parse_date_text(day, tics, freq, step, "1990Q3 rest", -1, &used, 1, nullptr,
//                   commonDateHint);
//   // day: 1 July 1990, tics 0, freq FREQ_QUARTERLY, step 1, used 6
//
// Lengths: -1 reads up to the terminating zero; any other length is a span,
// which also ends at a zero byte inside it. A negative length other than -1
// is an empty span. Digits and letters are ASCII; a blank is one of space,
// tab, line feed, vertical tab, form feed and carriage return. Nothing is
// reported to the host.
#pragma once

#include <txCommon/export.h>
#include <txCommon/frequency.h>

#include <atomic>
#include <climits>

// The process-wide date hint, kDefaultDateHint until SetCommonDateHint.
// Atomic only so that a write on one thread and reads on others are not a
// data race; there is no ordering between them, and none is needed.
extern std::atomic<unsigned> commonDateHint;

// What zone_from_text answers when it finds no zone.
inline constexpr int kNoZone = INT_MIN;

// Number of field slots: three date fields, then hours, minutes, seconds and
// milliseconds.
inline constexpr int kDateFieldSlots = 7;

// Frequency code of a period letter, without regard to case: A and Y 1, S 2,
// Q 3, M 4, T 6, F 8, W 9, B and 5 10, D and 7 11, H 12, U 17; 0 for others.
int frequency_of_letter(char letter);

// Month 1 to 12 of an English month name or a prefix of it of at least three
// letters, any case ("jan", "Janu", "JANUARY"). The letters that begin the span
// must all belong to the name: "Janx" and "Januaryx" are -1, as is any span
// shorter than three bytes. `used` (may be null) gets the name's length, or 0.
int month_from_text(const char* text, int length, int* used);

// Time zone at the start of the span, as minutes east of universal time:
// a name of three or four letters ("EST" -300, "CEST" 120, any case; nothing
// behind the name is looked at, so "ESTX" is EST), or "+hh:mm" / "-hh:mm"
// unless a ':' follows, or with `strict` also "+hhmm". kNoZone for none, with
// `used` (may be null) 0; otherwise `used` gets the zone's length.
int zone_from_text(const char* text, int length, int* used, char strict);

// Cuts date text into fields. `values` and `widths` must hold kDateFieldSlots
// entries: slots 0 to 2 take the date fields (width: the digit count, or -1
// for a month name, whose value is the month), slots 3 to 6 hours, minutes,
// seconds and milliseconds. `count` gets the number of slots that hold
// fields (3 plus the time fields when there is a time), `hasName` whether a
// month name was read, and `separator` the byte between the date fields: 0
// for none or blanks, '/', '-', '\\', or ':', '.' or an upper-case period
// letter. With `allowBlanks`, blanks (and one comma behind a field) may stand
// between fields. Returns the number of bytes that belong to the date (from
// the start of the span), or -1 when the text can't be a date at all: a first
// byte that is neither a digit nor a letter, a second name, or a date field
// whose digits exceed 2147483647. Slots past `count` hold no meaning.
int scan_date_fields(int& count, int* values, int* widths, char& hasName, char& separator,
                     const char* text, int length, char allowBlanks);

// Parses date text to the pair (day, tics) and says how fine it was:
// `frequency` gets the code (FREQ_ANNUAL for "1990", FREQ_MINUTE for a time
// with minutes...), `step` the record's multiple where the record decided, else
// 1. With `consumed` null the whole text (leading and trailing blanks apart)
// must be one date, and blanks may always stand between fields; otherwise the
// date may end anywhere, `consumed` gets the bytes used (leading blanks
// included), and `allowBlanks` says whether blanks may stand between fields.
// `freq` (may be null) gives the record for "1990:3" and for raw counts.
// `hint` is the date hint to read the text with, usually commonDateHint.
// On failure the invalid form (-1, -1), `consumed` 0, and false; the result
// is true for a valid date, time or raw count. Two texts are read but give
// no date, with `consumed` kept: an unknown word where the first field should
// be, and a date whose zone moves it off the calendar (its frequency stays).
bool parse_date_text(int& day, int& tics, int& frequency, int& step, const char* text,
                     int length, int* consumed, char allowBlanks, const RegularFreq* freq,
                     unsigned hint);

namespace txc {

// The hint in force: commonDateHint, read once.
inline unsigned date_hint() { return commonDateHint.load(std::memory_order_relaxed); }

// The limit of a span as the date text functions read it: INT_MAX for -1,
// 0 for a null text or another negative length. The text also ends at a zero
// byte before the limit; the readers find it as they go, one byte after the
// other, so a date at the start of a long text costs no more than the date.
int date_text_limit(const char* text, int length);

}  // namespace txc
