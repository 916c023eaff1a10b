// The format-directed decimal reader: ReadNumber and the text judge built on
// it, IsNumberText.
//
// A number is read in one pass. At most 17 significant digits are kept in a
// 64-bit accumulator (10^17 - 1 < 2^63, so it cannot overflow); further
// integer digits only move the decimal exponent and further fraction digits
// are passed over. The accumulator is rounded to a double once and then
// scaled by exact powers of ten, so the result may sit an ulp or two away
// from a correctly rounded conversion; the tests measure how far.
#include <txCommon/internal/number_io.h>

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// The quiet NaN with the sign bit set that marks a failed read; written as a
// bit pattern because dNA itself is 0.0 until the library is initialised.
double failure_pattern() {
  const std::uint64_t bits = 0xFFF8000000000000ULL;
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

char lower_ascii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

// Exponents and digit counts are clamped here before they meet ScaleByPow10:
// any |p| beyond 100000 already gives 0 or infinity for a 17-digit mantissa,
// and the clamp keeps megabyte-long texts from overflowing an int.
constexpr long long kScaleClamp = 100000;

int clamp_scale(long long p) {
  if (p > kScaleClamp) return static_cast<int>(kScaleClamp);
  if (p < -kScaleClamp) return static_cast<int>(-kScaleClamp);
  return static_cast<int>(p);
}

// A bounded view of the text: a byte past `length` reads as the end, and so
// does a zero byte, so no step ever looks beyond either.
struct Cursor {
  const char* text;
  int length;
  int pos = 0;
  char peek(int at) const { return at < length ? text[at] : '\0'; }
  char peek() const { return peek(pos); }
  bool more() const { return peek() != '\0'; }
  void skip_white() { while (is_white(peek())) ++pos; }
};

// What the letter of the record selects.
struct LetterForm {
  bool known = true;
  std::uint32_t flags = 0;
  int base = 0;  // integer letters only
};

LetterForm form_of(char letter) {
  LetterForm form;
  switch (lower_ascii(letter)) {
    case 'c': case 'f': case 'g': case 's': break;
    case 'e': form.flags = NF_EXP; break;
    case 'p': form.flags = NF_PERCENT; break;
    case 'b': form.flags = NF_INTEGER; form.base = 2; break;
    case 'o': form.flags = NF_INTEGER; form.base = 8; break;
    case 'i': form.flags = NF_INTEGER; form.base = 10; break;
    case 'h': form.flags = NF_INTEGER; form.base = 16; break;
    case 'r': form.flags = NF_RATIONAL; break;
    default: form.known = false; break;
  }
  return form;
}

// The state of one read that lives through all its steps.
struct Reading {
  Cursor in;
  std::uint32_t flags;
  int status = NUM_OK;
  char sign = '+';
  bool zero_seen = false;
  // The digit scan: kept digits, their value, dropped integer digits, digits
  // before the point, zeros straight after a bare point, group characters.
  int kept = 0;
  std::uint64_t acc = 0;
  long long dropped = 0;
  int before_point = 0;
  long long point_zeros = 0;
  int groups = 0;
  int group_start = 0;
  bool point = false;
  long long exponent = 0;
  bool exponent_seen = false;

  void note() { if (status == NUM_OK) status = NUM_NOTE; }
  void fail() { status = NUM_SYNTAX; }
};

void read_sign_and_currency(Reading& r) {
  const char c = r.in.peek();
  if (c == '+') {
    ++r.in.pos;
  } else if (c == '-') {
    r.sign = '-';
    if (r.flags & NF_PAREN) r.note();
    ++r.in.pos;
  } else if (c == '(') {
    r.sign = '(';
    if (!(r.flags & NF_PAREN)) r.note();
    ++r.in.pos;
  }
  if (r.in.peek() == '$') {
    ++r.in.pos;
    if (!(r.flags & NF_CURRENCY)) r.note();
  }
}

// Leading zeros go, but one is given back when it is the whole mantissa
// ("0", "0e5") so that the digit scan still sees a digit.
void skip_leading_zeros(Reading& r) {
  if (r.in.peek() != '0') return;
  r.zero_seen = true;
  while (r.in.peek() == '0') ++r.in.pos;
  if (!r.in.more() || lower_ascii(r.in.peek()) == 'e') --r.in.pos;
}

// One group character under NF_GROUP: the first group may hold 1 to 3 digits,
// each later one exactly 3. A bad group marks the status and the scan goes on.
void take_group(Reading& r) {
  const int len = r.in.pos - r.group_start;
  if (len > 3 || (len < 3 && r.groups >= 1)) r.fail();
  ++r.in.pos;
  ++r.groups;
  r.group_start = r.in.pos;
}

// Returns false when the decimal character ends the scan (a second point).
bool take_point(Reading& r) {
  if (r.point) return false;
  if ((r.flags & NF_GROUP) && r.groups >= 1 && r.in.pos - r.group_start != 3) r.fail();
  ++r.in.pos;
  r.before_point = r.kept;
  r.point = true;
  if (r.kept == 0) {
    while (r.in.peek() == '0') { ++r.in.pos; ++r.point_zeros; }
  }
  return true;
}

void scan_digits(Reading& r, char decimal, char group) {
  r.group_start = r.in.pos;
  for (;;) {
    char c = r.in.peek();
    if (c == ' ' && (r.flags & NF_BLANKZERO)) c = '0';
    if (is_digit(c)) {
      ++r.in.pos;
      if (r.kept < 17) {
        r.acc = r.acc * 10 + static_cast<unsigned>(c - '0');
        ++r.kept;
      } else if (!r.point) {
        ++r.dropped;
      }
    } else if (c == decimal && c != '\0') {
      if (!take_point(r)) return;
    } else if (c == group && (r.flags & NF_GROUP) && c != '\0') {
      if (r.point) return;
      take_group(r);
    } else {
      return;
    }
  }
}

void check_groups(Reading& r) {
  if (!r.point) r.before_point = r.kept;
  if (!(r.flags & NF_GROUP)) return;
  if (!r.point && r.groups >= 1 && r.in.pos - r.group_start != 3) r.fail();
  if (r.before_point > 0 && r.groups != (r.before_point - 1) / 3) {
    if (r.groups == 0) r.note(); else r.fail();
  }
}

bool exponent_letter(char c) { return c == 'd' || c == 'D' || c == 'e' || c == 'E'; }

// An exponent letter belongs to the number only when a digit follows it,
// after an optional sign. Four or more significant digits read as 1000,
// which is out of range in any case and keeps the arithmetic small.
void read_exponent(Reading& r) {
  if (!exponent_letter(r.in.peek())) {
    if (r.flags & NF_EXP) r.fail();
    return;
  }
  int at = r.in.pos + 1;
  bool negative = false;
  if (r.in.peek(at) == '+' || r.in.peek(at) == '-') {
    negative = r.in.peek(at) == '-';
    ++at;
  }
  if (!is_digit(r.in.peek(at))) return;
  r.in.pos = at;
  r.exponent_seen = true;
  while (r.in.peek() == '0') ++r.in.pos;
  long long magnitude = 0;
  int count = 0;
  for (;;) {
    char c = r.in.peek();
    if (c == ' ' && (r.flags & NF_BLANKZERO)) c = '0';
    if (!is_digit(c)) break;
    if (count < 3) magnitude = magnitude * 10 + (c - '0');
    ++count;
    ++r.in.pos;
  }
  if (count > 3) magnitude = 1000;
  r.exponent = negative ? -magnitude : magnitude;
}

void read_percent_and_implied(Reading& r, const NumFormat& format) {
  if (r.in.peek() == '%') {
    ++r.in.pos;
    r.exponent -= 2;
    r.exponent_seen = true;
    // An unexpected '%' overrides even a syntax status of the steps before
    // (a missing exponent under letter `e`, a bad group): the value is read.
    if (!(r.flags & NF_PERCENT)) r.status = NUM_NOTE;
  }
  if (format.letter == 's' && !r.point && !r.exponent_seen) {
    r.exponent -= format.precision;
  }
}

// Decimal scaling of the signed mantissa m. Only a stated exponent is tested
// for overflow; L is the decimal exponent of the first kept digit. The test
// looks at the exponent alone, so "0e999" overflows to infinity as well. At L
// of 308 the leading digits are compared with the signed m, so a negative
// mantissa never trips that test: "-1.8e308" runs into minus infinity by the
// arithmetic of the scaling, without ERANGE.
double scale_decimal(Reading& r, double m) {
  if (r.exponent != 0) {
    const long long lead = r.dropped + r.exponent - r.point_zeros + r.before_point - 1;
    const double top = r.kept > 0 ? m / Pow10Table[r.kept - 1] : 0.0;
    if (lead > 308 || (lead == 308 && top > 1.7976931348623157)) {
      errno = ERANGE;
      return r.sign == '+' ? HUGE_VAL : -HUGE_VAL;
    }
    return ScaleByPow10(m, clamp_scale(lead - r.kept + 1));
  }
  if (r.dropped == 0 && r.point_zeros == 0) return m / Pow10Table[r.kept - r.before_point];
  return ScaleByPow10(m, clamp_scale(r.before_point - r.point_zeros - r.kept + r.dropped));
}

// Steps 7 to 14 of a read: the body by form, the sign's close, the scaling.
// Leaves the value in `out` unless the status is NUM_SYNTAX.
void read_body(Reading& r, const NumFormat& format, const LetterForm& form, double& out) {
  double m = 0.0;
  const bool decimal = !(form.flags & (NF_INTEGER | NF_RATIONAL));
  if (form.flags & NF_INTEGER) {
    r.in.pos += ReadBaseNumber(&m, r.in.text + r.in.pos, r.in.length - r.in.pos, form.base);
  } else if (form.flags & NF_RATIONAL) {
    const int n = ReadRational(&m, r.in.text + r.in.pos, r.in.length - r.in.pos);
    if (n == 0) r.fail();
    r.in.pos += n;
  } else {
    const char point = (r.flags & NF_COMMA) ? ',' : '.';
    const char group = (r.flags & NF_COMMA) ? '.' : ',';
    scan_digits(r, point, group);
    check_groups(r);
    if (!r.zero_seen && r.kept == 0 && r.point_zeros == 0) { r.fail(); return; }
    m = static_cast<double>(r.acc);
    read_exponent(r);
    read_percent_and_implied(r, format);
  }
  if (r.status == NUM_SYNTAX) return;
  if (r.sign == '(') {
    if (r.in.peek() == ')') ++r.in.pos; else r.fail();
  }
  if (r.sign != '+') m = -m;
  out = decimal ? scale_decimal(r, m) : m;
}

}  // namespace

int ReadNumber(const NumFormat& format, const char* text, int length,
               int* consumed, double* value, int* failed) {
  if (failed != nullptr) *failed = 0;
  const LetterForm form = form_of(format.letter);
  if (!form.known) {
    if (value != nullptr) *value = failure_pattern();
    if (failed != nullptr) *failed = 1;
    if (consumed != nullptr) *consumed = 0;
    return NUM_BADLETTER;
  }
  Reading r{Cursor{text != nullptr ? text : "", text != nullptr && length > 0 ? length : 0},
            (format.flags & 0x3FFFFu) | form.flags};
  r.in.skip_white();
  read_sign_and_currency(r);
  skip_leading_zeros(r);
  double result = 0.0;
  read_body(r, format, form, result);
  if (consumed != nullptr) {
    *consumed = r.in.pos;
  } else {
    r.in.skip_white();
    if (r.in.more()) r.fail();
  }
  if (r.status == NUM_SYNTAX) {
    result = failure_pattern();
    if (failed != nullptr) *failed = 1;
    if (consumed != nullptr) *consumed = 0;
  }
  if (value != nullptr) *value = result;
  return r.status;
}

// "NA" in any case, alone but for white space, is the missing value's text;
// "NAN" and "name" are not. Texts are judged on their first 999 bytes.
int IsNumberText(const char* text) {
  if (text == nullptr) return 0;
  const char* p = text;
  while (is_white(*p)) ++p;
  if (*p == '\0') return 0;
  if ((p[0] == 'N' || p[0] == 'n') && (p[1] == 'A' || p[1] == 'a')) {
    p += 2;
    while (is_white(*p)) ++p;
    return *p == '\0' ? 1 : 0;
  }
  const NumFormat judge{'c', 0, 0, 0, 999};
  double value = 0.0;
  ReadNumber(judge, text, 999, nullptr, &value, nullptr);
  return std::isfinite(value) ? 1 : 0;
}
