// The digit makers under WriteNumber: the decimal split of a double, and
// integers in bases 2 to 36 written in 32-bit chunks.
#include <txCommon/internal/number_io.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// The unbiased binary exponent of a normal double.
int binary_exponent(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return static_cast<int>((bits >> 52) & 0x7FF) - 1023;
}

// 30103 / 100000 stands for log10(2) = 0.30102999566...; over the binary
// exponents of normal doubles (-1022..1023) the truncated product never
// overshoots floor(log10 |x|), so the estimate is low by one at most and one
// correction step suffices.
int decimal_estimate(double magnitude) {
  const int b = binary_exponent(magnitude);
  const int t = b * 30103 / 100000;
  return magnitude < 1.0 ? t - 1 : t;
}

}  // namespace

int SplitDecimal(double* mantissa, int* exponent, double x, int digits) {
  if (!std::isfinite(x)) {
    *mantissa = x;
    *exponent = 1;
    return 1;
  }
  const double magnitude = std::fabs(x);
  if (magnitude < DBL_MIN) {  // zeros and denormals
    *mantissa = std::copysign(0.0, x);
    *exponent = 0;
    return 0;
  }
  if (digits < 0) digits = 0;
  if (digits > 308) digits = 308;
  int e = decimal_estimate(magnitude);
  double y = ScaleByPow10(magnitude, digits - e - 1);
  if (y >= Pow10Table[digits]) {
    ++e;
    y = ScaleByPow10(magnitude, digits - e - 1);
  }
  // The scaling product can land a hair below 10^(digits-1) for a value just
  // at a power of ten; that would put a leading zero among the digits. Such a
  // y is that power itself, to within the one rounding.
  if (digits >= 1 && y < Pow10Table[digits - 1]) y = Pow10Table[digits - 1];
  *mantissa = std::copysign(y, x);
  *exponent = e + 1;
  return 0;
}

int WriteChunk(char* out, int size, unsigned value, int base, int minDigits) {
  if (out == nullptr || size <= 0) return 0;
  if (base < 2 || base > 36) base = 10;
  char text[33];  // 32 binary digits at most for a 32-bit value
  int count = 0;
  do {
    text[count++] = DigitChars[value % static_cast<unsigned>(base)];
    value /= static_cast<unsigned>(base);
  } while (value != 0);
  const int w = size < minDigits ? size : minDigits;
  const int l = w > count ? w : count;
  if (l > size) {
    std::memset(out, '#', static_cast<std::size_t>(size));
    return 0;
  }
  int pos = 0;
  for (; pos < w - count; ++pos) out[pos] = '0';
  while (count > 0) out[pos++] = text[--count];
  return l;
}

namespace {

int integer_digit_count(double x, int base) {
  int n = 0;
  if (base == 10) {
    double m = 0.0;
    SplitDecimal(&m, &n, x, 0);
  } else {
    int e = 0;
    std::frexp(x, &e);
    n = base == 16 ? (e + 3) / 4 : base == 8 ? (e + 2) / 3 : base == 2 ? e : 0;
    if (base != 16 && base != 8 && base != 2) {
      // Other bases have no letter; count by logarithm, corrected both ways.
      n = x >= 1.0 ? static_cast<int>(std::floor(std::log(x) / std::log(base))) + 1 : 1;
      while (n > 1 && std::pow(base, n - 1) > x) --n;
      while (std::pow(base, n) <= x) ++n;
    }
  }
  return n < 1 ? 1 : n;
}

// floor(v) held within one chunk's range, so the conversion to unsigned is
// defined even when the subtraction of earlier chunks left a rounding residue.
unsigned chunk_value(double v, int base, int digits) {
  const double top = std::pow(static_cast<double>(base), digits) - 1.0;
  v = std::floor(v);
  if (!(v > 0.0)) return 0;
  return static_cast<unsigned>(v < top ? v : top);
}

}  // namespace

// x is cut from the left in chunks of Digit32Floor[base] digits, each the
// floor of x over a power of the base; the last chunk is what remains.
int WriteBaseInteger(char* out, int size, double x, int base, int minWidth,
                     unsigned flags) {
  if (out == nullptr || size <= 0 || base < 2 || base > 36 || !std::isfinite(x) || x < 0.0) return 0;
  const int n = integer_digit_count(x, base);
  if (n > size) return 0;
  const int target = size < minWidth ? size : minWidth;
  int pos = 0;
  if (n < target) {
    std::memset(out, (flags & NF_ZEROFILL) ? '0' : ' ', static_cast<std::size_t>(target - n));
    pos = target - n;
  }
  const int c = Digit32Floor[base];
  int done = 0;
  while (done < n - c) {
    const double u = std::pow(static_cast<double>(base), n - done - c);
    const unsigned v = chunk_value(x / u, base, c);
    x -= v * u;
    pos += WriteChunk(out + pos, c, v, base, c);
    done += c;
  }
  const int rest = n - done;
  pos += WriteChunk(out + pos, rest, chunk_value(x, base, rest), base, rest);
  return pos;
}
