// Integers in bases 2 to 36 and mixed fractions: the readers behind the
// integer letters and the letter `r` of ReadNumber.
//
// An integer of any length is read in 32-bit chunks of Digit32Floor[base]
// digits, each folded into a double accumulator with one multiply-add, so a
// long text costs one pass and saturates at infinity instead of wrapping.
#include <txCommon/internal/number_io.h>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// The digit value of c in bases up to 36, or 99 for a byte that is no digit.
// Bytes from 0x80 up are no digits in any base.
int digit_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'z') return c - 'a' + 10;
  if (c >= 'A' && c <= 'Z') return c - 'A' + 10;
  return 99;
}

bool valid_base(int base) { return base >= 2 && base <= 36; }

double failure_pattern() {
  const std::uint64_t bits = 0xFFF8000000000000ULL;
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

// The byte at `at`, or 0 at and beyond `length`.
char byte_at(const char* text, int length, int at) { return at < length ? text[at] : '\0'; }

int skip_white(const char* text, int length, int at) {
  while (is_white(byte_at(text, length, at))) ++at;
  return at;
}

}  // namespace

int ReadBaseChunk(unsigned* value, const char* text, int limit, int base) {
  unsigned acc = 0;
  int pos = 0;
  if (text != nullptr && valid_base(base)) {
    pos = skip_white(text, limit, pos);
    while (byte_at(text, limit, pos) == '0') ++pos;
    for (;;) {
      const int d = digit_value(byte_at(text, limit, pos));
      if (d >= base) break;
      // Unsigned arithmetic: a caller's limit above Digit32Floor[base] wraps
      // instead of invoking undefined behaviour.
      acc = acc * static_cast<unsigned>(base) + static_cast<unsigned>(d);
      ++pos;
    }
  }
  if (value != nullptr) *value = acc;
  return pos;
}

int ReadBaseNumber(double* value, const char* text, int length, int base) {
  double acc = 0.0;
  int pos = 0;
  bool negative = false;
  if (text != nullptr && length > 0 && valid_base(base)) {
    pos = skip_white(text, length, 0);
    const char sign = byte_at(text, length, pos);
    if (sign == '+' || sign == '-') {
      negative = sign == '-';
      ++pos;
    }
    while (digit_value(byte_at(text, length, pos)) < base) {
      const int room = length - pos;
      const int limit = room < Digit32Floor[base] ? room : Digit32Floor[base];
      unsigned chunk = 0;
      const int n = ReadBaseChunk(&chunk, text + pos, limit, base);
      if (n <= 0) break;
      acc = acc * std::pow(static_cast<double>(base), n) + chunk;
      pos += n;
    }
  }
  if (value != nullptr) *value = negative ? -acc : acc;
  return pos;
}

namespace {

// A base-10 integer at `at` (a digit stands there); its end goes to `at`.
double read_decimal_at(const char* text, int length, int& at) {
  double v = 0.0;
  at += ReadBaseNumber(&v, text + at, length - at, 10);
  return v;
}

// The numerator and denominator behind a whole part (steps after "w"):
// `q` stands on the '/'. Returns the count consumed; the value goes to *value.
int read_fraction_tail(double* value, const char* text, int length, int q,
                       double whole, double numerator, int whole_count) {
  q = skip_white(text, length, q + 1);
  if (!is_digit(byte_at(text, length, q))) {
    *value = whole;
    return whole_count;
  }
  const double denominator = read_decimal_at(text, length, q);
  if (denominator == 0.0) {
    *value = failure_pattern();
    return q;
  }
  const double f = numerator / denominator;
  *value = std::signbit(whole) ? whole - f : whole + f;
  return q;
}

}  // namespace

// Forms "w", "n/d", "w n/d"; a point anywhere after w hands the whole text to
// the decimal reader. The whole part keeps its sign; the fraction follows it,
// so "-3 1/4" is -3.25.
int ReadRational(double* value, const char* text, int length) {
  double scratch = 0.0;
  if (value == nullptr) value = &scratch;
  *value = failure_pattern();
  if (text == nullptr || length <= 0) return 0;
  double w = 0.0;
  const int c = ReadBaseNumber(&w, text, length, 10);
  if (c == 0) return 0;
  if (byte_at(text, length, c) == '.') {
    const NumFormat plain{'g', 0, 0, 0, 999};
    int used = 0;
    double v = 0.0;
    const int status = ReadNumber(plain, text, length, &used, &v, nullptr);
    if (status == NUM_SYNTAX || status == NUM_BADLETTER) return 0;
    *value = v;
    return used;
  }
  int q = skip_white(text, length, c);
  if (byte_at(text, length, q) == '/') {
    return read_fraction_tail(value, text, length, q, 0.0, w, c);
  }
  if (!is_digit(byte_at(text, length, q))) {
    *value = w;
    return c;
  }
  const double numerator = read_decimal_at(text, length, q);
  q = skip_white(text, length, q);
  if (byte_at(text, length, q) != '/') {
    *value = w;
    return c;
  }
  return read_fraction_tail(value, text, length, q, w, numerator, c);
}
