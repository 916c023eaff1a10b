// The number conversions of vstring: ival, lval, dval, number, isNumber,
// IsNumberStrict and GetBaseStr.
//
// ival/lval/dval/number promise the C library's atol/atof read in the "C"
// locale. The C functions themselves follow the process locale (a German
// locale reads "1,5" as 1.5 and stops "1.5" at the point), so the text is
// read here by the locale-free std::from_chars after the atof prelude (white
// space, sign, "0x") has been taken off by hand.
#include <txCommon/vstring.h>
#include <txCommon/internal.h>
#include <txCommon/internal/number_io.h>

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// The "C" locale's isspace.
bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// atol in the "C" locale, saturating at the 32-bit limits.
txlong c_atol(const char* s) {
  while (is_white(*s)) ++s;
  bool negative = false;
  if (*s == '+' || *s == '-') negative = *s++ == '-';
  std::int64_t v = 0;
  const std::int64_t limit = negative ? 2147483648LL : 2147483647LL;
  for (; is_digit(*s); ++s) {
    v = v * 10 + (*s - '0');
    if (v > limit) v = limit;  // further digits cannot bring it back
  }
  return static_cast<txlong>(negative ? -v : v);
}

// A result beyond the double range: from_chars leaves the value alone, atof
// gives +-HUGE_VAL for overflow and 0 for underflow. The library's own reader
// tells the two apart on the same text.
double out_of_range(const char* text, const char* end) {
  errno = ERANGE;
  const NumFormat plain{'g', 0, 0, 0, 999};
  double v = 0.0;
  int used = 0;
  const int length = end - text < 0x7FFFFFFF ? static_cast<int>(end - text) : 0x7FFFFFFF;
  ReadNumber(plain, text, length, &used, &v, nullptr);
  return std::isinf(v) ? HUGE_VAL : 0.0;
}

// The same for hexadecimal text, which the decimal reader cannot judge: a
// binary exponent with a '-' underflows, any other overflows.
double hex_out_of_range(const char* text, const char* stop) {
  errno = ERANGE;
  for (const char* p = stop; p > text; --p) {
    if (p[-1] == 'p' || p[-1] == 'P') return *p == '-' ? 0.0 : HUGE_VAL;
  }
  return HUGE_VAL;
}

// atof in the "C" locale: decimal and (with `hex`) hexadecimal floating
// text, "inf", "infinity", "nan", "nan(...)"; +0.0 when no number starts the
// text, whatever sign stood before it.
double c_atof(const char* s, bool allow_hex) {
  while (is_white(*s)) ++s;
  bool negative = false;
  if (*s == '+' || *s == '-') negative = *s++ == '-';
  if (*s == '+' || *s == '-') return 0.0;  // from_chars would take a second sign
  const char* end = s + std::strlen(s);
  double v = 0.0;
  const bool hex = allow_hex && s[0] == '0' && (s[1] == 'x' || s[1] == 'X');
  const auto r = hex ? std::from_chars(s + 2, end, v, std::chars_format::hex)
                     : std::from_chars(s, end, v, std::chars_format::general);
  if (r.ec == std::errc::invalid_argument) {
    if (!hex) return 0.0;
    v = 0.0;  // "0x" followed by no hex digit reads as the "0"
  } else if (r.ec == std::errc::result_out_of_range) {
    v = hex ? hex_out_of_range(s + 2, r.ptr) : out_of_range(s, end);
  }
  return negative ? -v : v;
}

bool is_blank_byte(char c) {
  const unsigned char u = static_cast<unsigned char>(c);
  return u >= 0x01 && u <= 0x20;
}

// The cleaned copy of `number`, built in the scratch buffer within `room`
// bytes (terminator included). Returns false when no digit starts the number.
bool clean_number_text(const char* s, char* out, int room) {
  int n = 0;
  auto put = [&](char c) { if (n < room - 1) out[n++] = c; };
  while (is_blank_byte(*s)) ++s;
  if (*s == '$') ++s;
  while (is_blank_byte(*s)) ++s;
  if (*s == '+' || *s == '-') put(*s++);
  while (is_blank_byte(*s)) ++s;
  bool point = false;
  if (*s == '.') {
    put(*s++);
    point = true;
  }
  if (!is_digit(*s)) return false;
  for (; *s != '\0'; ++s) {
    if (*s == '.') {
      point = true;
    } else if (*s == ',') {
      if (point) break;
      continue;
    }
    put(*s);
  }
  out[n] = '\0';
  return true;
}

}  // namespace

int vstring::ival() const { return c_atol(optr()); }

txlong vstring::lval() const { return c_atol(optr()); }

double vstring::dval() const {
  const char* s = optr();
  if (s[0] == 'N' && s[1] == 'A' && s[2] == '\0') return dNA;
  return c_atof(s, true);
}

// The cleaned text is what atof reads, without its hexadecimal road: "0x10"
// reads as 0. "NA" never reaches it since a digit (or a point and a digit)
// must start the number.
double vstring::number() const {
  char* scratch = txc::temp_buf();
  const int room = txc::temp_buf_len();
  if (scratch == nullptr || room < 2) return dNA;
  if (!clean_number_text(optr(), scratch, room)) return dNA;
  return c_atof(scratch, false);
}

int vstring::isNumber() const { return IsNumberText(optr()); }

int vstring::IsNumberStrict() const { return IsNumberText(optr()); }

// The tail is digits and blanks read backwards from the end; the head keeps
// everything before it, even when the tail turns out to be no number.
vstring& vstring::GetBaseStr(double& number) const {
  number = 0.0;
  const char* s = optr();
  const int n = static_cast<int>(len());
  if (n <= 0) return txc::next_temp().clear();
  int k = n;
  while (k > 0 && (is_digit(s[k - 1]) || s[k - 1] == ' ')) --k;
  if (k < n && IsNumberText(s + k)) number = c_atof(s + k, true);
  vstring& head = txc::next_temp();
  if (k == 0) return head.clear();
  return head.putch(s, k);
}
