// The date hint and the small word readers of date text: period letters,
// month names and time zones.
#include <txCommon/internal.h>

#include "date_text_chars.h"

#include <cstring>

std::atomic<unsigned> commonDateHint{kDefaultDateHint};

void SetCommonDateHint(unsigned int hint) {
  commonDateHint.store(hint, std::memory_order_relaxed);
}

namespace txc {

int date_text_limit(const char* text, int length) {
  if (text == nullptr) return 0;
  if (length == -1) return INT_MAX;
  return length < 0 ? 0 : length;
}

}  // namespace txc

int frequency_of_letter(char letter) {
  switch (txc::dt::upper(letter)) {
    case 'A': case 'Y': return FREQ_ANNUAL;
    case 'S': return FREQ_SEMIANNUAL;
    case 'Q': return FREQ_QUARTERLY;
    case 'M': return FREQ_MONTHLY;
    case 'T': return FREQ_TEN_DAY;
    case 'F': return FREQ_FORTNIGHT;
    case 'W': return FREQ_WEEKLY;
    case 'B': case '5': return FREQ_BUSINESS_DAY;
    case 'D': case '7': return FREQ_DAILY;
    case 'H': return FREQ_HOUR;
    case 'U': return FREQ_RAW;
    default: return 0;
  }
}

namespace {

constexpr const char* kMonthNames[12] = {"JANUARY", "FEBRUARY", "MARCH",     "APRIL",
                                         "MAY",     "JUNE",     "JULY",      "AUGUST",
                                         "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};

// A prefix of at least three letters decides the month: no two names share
// their first three letters.
constexpr int kMonthPrefixMin = 3;

struct Zone {
  const char* name;
  int minutes;  // east of universal time
};

constexpr Zone kZones[] = {
    {"GMT", 0},     {"UTC", 0},     {"WET", 0},     {"BST", 60},    {"IST", 60},
    {"CET", 60},    {"WEST", 60},   {"EET", 120},   {"CEST", 120},  {"MSK", 180},
    {"EEST", 180},  {"MSD", 240},   {"AWST", 480},  {"SGT", 480},   {"AWDT", 540},
    {"JST", 540},   {"KST", 540},   {"ACST", 570},  {"AEST", 600},  {"ACDT", 630},
    {"AEDT", 660},  {"EDT", -240},  {"EST", -300},  {"CDT", -300},  {"CST", -360},
    {"MDT", -360},  {"MST", -420},  {"PDT", -420},  {"PST", -480},  {"AKDT", -480},
    {"AKST", -540}, {"HADT", -540}, {"HAST", -600},
};

// Upper-case letters of `text` equal `name` over the name's whole length.
bool same_letters(const char* text, const char* name, int n) {
  for (int i = 0; i < n; ++i) {
    if (txc::dt::upper(text[i]) != name[i]) return false;
  }
  return true;
}

int named_zone(const char* text, int span, int* used) {
  // Four-letter names first: none of them begins with a three-letter name,
  // but "ESTX" must still be EST with three bytes.
  for (const int n : {4, 3}) {
    if (span < n) continue;
    for (const Zone& z : kZones) {
      if (static_cast<int>(std::strlen(z.name)) == n && same_letters(text, z.name, n)) {
        if (used != nullptr) *used = n;
        return z.minutes;
      }
    }
  }
  return kNoZone;
}

// "+hh:mm" (6 bytes, no ':' as a seventh) or, strict, "+hhmm" (5 bytes).
int numeric_zone(const char* text, int span, int* used, char strict) {
  using txc::dt::is_digit;
  const int sign = text[0] == '-' ? -1 : 1;
  const auto two = [&](int at) { return (text[at] - '0') * 10 + (text[at + 1] - '0'); };
  if (span >= 6 && is_digit(text[1]) && is_digit(text[2]) && text[3] == ':' &&
      is_digit(text[4]) && is_digit(text[5]) && (span == 6 || text[6] != ':')) {
    if (used != nullptr) *used = 6;
    return sign * (two(1) * 60 + two(4));
  }
  if (strict && span >= 5 && is_digit(text[1]) && is_digit(text[2]) && is_digit(text[3]) &&
      is_digit(text[4])) {
    if (used != nullptr) *used = 5;
    return sign * (two(1) * 60 + two(3));
  }
  return kNoZone;
}

}  // namespace

int month_from_text(const char* text, int length, int* used) {
  if (used != nullptr) *used = 0;
  // Bytes are read one after the other, each only behind a non-zero one.
  const int span = txc::date_text_limit(text, length);
  if (span < kMonthPrefixMin || text[0] == '\0' || !txc::dt::is_letter(text[1]) ||
      !txc::dt::is_letter(text[2])) {
    return -1;
  }
  int letters = 0;
  while (letters < span && txc::dt::is_letter(text[letters])) ++letters;
  if (letters < kMonthPrefixMin) return -1;
  for (int m = 0; m < 12; ++m) {
    const int nameLength = static_cast<int>(std::strlen(kMonthNames[m]));
    if (letters <= nameLength && same_letters(text, kMonthNames[m], letters)) {
      if (used != nullptr) *used = letters;
      return m + 1;
    }
  }
  return -1;
}

int zone_from_text(const char* text, int length, int* used, char strict) {
  if (used != nullptr) *used = 0;
  int span = txc::date_text_limit(text, length);
  // The zone readers look at most 7 bytes ahead; cut the span at a zero byte
  // among them, reading only up to it.
  for (int i = 0; i < span && i < 7; ++i) {
    if (text[i] == '\0') span = i;
  }
  if (span < 3) return kNoZone;
  if (text[0] == '+' || text[0] == '-') return numeric_zone(text, span, used, strict);
  return named_zone(text, span, used);
}
