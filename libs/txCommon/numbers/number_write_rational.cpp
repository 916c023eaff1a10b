// Mixed fractions for the letter `r`: "3 1/4", "1/2", "2".
//
// The fraction is found by continued fractions with the denominators bounded
// by 10^precision - 1 (3.14159 at precision 3 gives "3 16/113"), or under
// NF_FIXEDDEN taken as that bound itself (0.5 at precision 2 gives "50/99").
// A value no fraction can show (whole part beyond 2^53) falls back to the
// `g` form with 16 digits.
#include <txCommon/internal/number_io.h>

#include <cmath>

namespace {

// Every integer up to 2^53 is a double; beyond it a whole part has no units
// digit worth writing as such.
constexpr double kTwo53 = 9007199254740992.0;
constexpr double kEpsilon = 2.220446049250313e-16;
// Continued fractions of a double end within about 40 terms; the cap only
// stops a NaN that compares false everywhere from looping.
constexpr int kMaxTerms = 80;

double gcd_floor(double a, double b) {
  for (int i = 0; i < 4096 && b != 0.0; ++i) {
    const double r = a - std::floor(a / b) * b;
    a = b;
    b = r;
  }
  return a;
}

struct Fraction {
  double numerator = 0.0;
  double denominator = 1.0;
  double error = 0.0;
};

Fraction fixed_denominator(double f, double largest, double rounded, unsigned flags, bool* carry) {
  Fraction r;
  r.denominator = largest;
  r.numerator = std::floor(rounded);
  if (r.numerator == largest) {  // rounded up to a whole unit
    r.numerator = 0.0;
    *carry = true;
  }
  if ((flags & NF_REDUCE) && r.numerator != 0.0) {
    const double g = gcd_floor(r.numerator, r.denominator);
    if (g > 0.0) {
      r.numerator /= g;
      r.denominator /= g;
    }
  }
  r.error = f - r.numerator / r.denominator;
  return r;
}

// The last convergent p/d of f with d <= largest, stopping once the error is
// within `tol` (the double's own resolution at x).
Fraction convergent(double f, double largest, double tol, double maxDenominator, double rounded) {
  double rest = f, p1 = 0.0, p2 = 0.0, lim = tol;
  double saved_d = maxDenominator, saved_err = 0.0;
  double n = 0.0, d = 0.0, err = 0.0;
  for (int term = 0; term < kMaxTerms; ++term) {
    const double v = 1.0 / rest;
    const double a = std::floor(v);
    rest = v - a;
    n = p1 == 0.0 ? 1.0 : a * p1 + p2;
    d = std::floor(n / f + 0.5);
    err = f - n / d;
    if (d > largest) break;
    if (tol >= std::fabs(err) || lim > rest) break;
    saved_d = d;
    saved_err = err;
    p2 = p1;
    p1 = n;
    lim = tol / err;
  }
  Fraction r{n, d, err};
  if (d > largest) {
    if (p1 != 0.0) {
      r = Fraction{p1, saved_d, saved_err};
    } else {
      r = Fraction{std::floor(rounded), largest, f - std::floor(rounded) / largest};
    }
  }
  return r;
}

}  // namespace

double ApproxFraction(double* whole, double* numerator, double* denominator,
                      double x, double maxDenominator, unsigned flags) {
  const double largest = maxDenominator < kTwo53 ? maxDenominator : kTwo53;
  double w = std::floor(x);
  const double f = x - w;
  const double tol = x * kEpsilon;
  const double rounded = f * largest + 0.5;
  Fraction r;
  if (flags & NF_FIXEDDEN) {
    bool carry = false;
    r = fixed_denominator(f, largest, rounded, flags, &carry);
    if (carry) w += 1.0;
  } else if (tol >= f) {
    r = Fraction{0.0, 1.0, f};
  } else {
    r = convergent(f, largest, tol, maxDenominator, rounded);
    if (r.numerator == r.denominator) {
      w += 1.0;
      r.numerator = 0.0;
    }
    if (r.numerator == 0.0) r.denominator = 1.0;
  }
  if (whole != nullptr) *whole = w;
  if (numerator != nullptr) *numerator = r.numerator;
  if (denominator != nullptr) *denominator = r.denominator;
  return r.error;
}

namespace {

int fall_back(char* out, int size, int* written, double x) {
  const NumFormat g16{'g', 0, 0, 0, 16};
  int n = 0;
  const int status = WriteNumber(x, g16, out, size, nullptr, &n);
  if (written != nullptr) *written = n;
  return status;
}

int finish(char* out, int size, int* written, int len) {
  if (len < size) out[len] = '\0';
  if (written != nullptr) *written = len;
  return NUM_OK;
}

}  // namespace

int WriteRational(char* out, int size, int* written, double x,
                  double maxDenominator, unsigned flags) {
  if (written != nullptr) *written = 0;
  if (out == nullptr || size <= 0) return fall_back(out, 0, written, x);
  double w = 0.0, n = 0.0, d = 1.0;
  const double error = ApproxFraction(&w, &n, &d, x, maxDenominator, flags);
  if (!std::isfinite(error) || w > kTwo53) return fall_back(out, size, written, x);
  int len = 0;
  if (w != 0.0 || n == 0.0) {
    len = WriteBaseInteger(out, size, w, 10, 0, 0);
    if (len == 0) return fall_back(out, size, written, x);
    if (n == 0.0) return finish(out, size, written, len);
  }
  if (w != 0.0) {
    if (len + 2 > size) return fall_back(out, size, written, x);
    out[len++] = ' ';
  }
  const int top = WriteBaseInteger(out + len, size - len, n, 10, 0, 0);
  if (top == 0 || len + top + 1 > size) return fall_back(out, size, written, x);
  len += top;
  out[len++] = '/';
  const int bottom = WriteBaseInteger(out + len, size - len, d, 10, 0, 0);
  if (bottom == 0) return fall_back(out, size, written, x);
  return finish(out, size, written, len + bottom);
}
