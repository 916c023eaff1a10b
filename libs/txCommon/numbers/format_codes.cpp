// FormatDigits, FormatSpec and strFormat: compact codes to NumFormat records,
// and the two plain C-style texts.
//
// The C-style texts ("%.12g", "%lf") come from std::to_chars, which is
// defined as printf in the "C" locale: the decimal character stays '.' even
// when the process runs under a locale with a decimal comma.
#include <txCommon/format.h>
#include <txCommon/host.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/number_format.h>
#include <txCommon/internal/number_io.h>

#include <charconv>
#include <climits>
#include <cstring>

namespace {

// The constant answer for a missing value; never written to.
constexpr char kMissingText[] = "NA";

// Ranges of FormatDigits' code: 0 up decimals, -1..-999 a column, below that
// an exponent form with -1000 - digits decimals.
constexpr int kColumnLimit = -999;
constexpr int kExponentBase = -1000;

// FormatSpec reads only the first decimal of width.decimals, with a small
// allowance for the float nearest to the code being just below it (8.2f is
// 8.19999981): (spec - width) * 10 is 1.9999981, and + 0.001 makes it 2.
constexpr double kDecimalAllowance = 0.001;
// 0.03f is 0.0299999993; times 100.001 it is 3.00002, which truncates to 3.
constexpr double kExponentScale = 100.001;

// "%lf" of the largest double has 309 integer digits, a sign, a point and six
// decimals: 317 bytes.
constexpr int kFixedTextMax = 320;
// strFormat keeps this many bytes of the text, and an end.
constexpr int kStrFormatKeep = 31;

// Runs WriteNumber into numberText and returns it, or the '#' fill when the
// number does not fit (or, on any other failure, cannot be written).
const char* write_into_number_text(double value, const NumFormat& format) {
  char* text = txc::number_text();
  int written = 0;
  const int status = WriteNumber(value, format, text, txc::kFormatField, nullptr, &written);
  if (status != NUM_OK && status != NUM_LOST) return txc::hash_fill(format.precision + 1LL);
  // A text of the full field carries no end from WriteNumber.
  if (written < 0 || written > txc::kFormatField) written = 0;
  text[written] = '\0';
  return text;
}

// The smallest code whose width is clamped to INT_MAX: 2^31.
constexpr float kClampedWidth = 2147483648.0f;

// A float code truncated toward zero and clamped to the range of int; a NaN
// gives 0. float(INT_MAX) rounds up to 2^31, hence the test on >=.
int truncate_code(float code) {
  if (!(code == code)) return 0;
  if (code >= static_cast<float>(INT_MAX)) return INT_MAX;
  if (code <= static_cast<float>(INT_MIN)) return INT_MIN;
  return static_cast<int>(code);
}

}  // namespace

namespace txc {

char* hash_fill(long long count) {
  if (count < 1) count = 1;
  if (count > kMaxHashFill) count = kMaxHashFill;
  char* text = number_text();
  std::memset(text, '#', static_cast<std::size_t>(count));
  text[count] = '\0';
  return text;
}

char* format_general12(double value) {
  char* text = number_text();
  // The longest "%.12g" text, "-1.23456789012e-308", is 19 bytes.
  const auto r = std::to_chars(text, text + kFormatField, value, std::chars_format::general, 12);
  *(r.ec == std::errc() ? r.ptr : text) = '\0';
  return text;
}

}  // namespace txc

const char* FormatDigits(double value, int digits) {
  if (ISNA(value)) return kMissingText;
  NumFormat format{};
  format.align = 0;
  format.flags = NF_BLANK;
  format.width = 0;
  if (digits >= 0) {
    format.letter = 'f';
    format.precision = digits;
  } else if (digits >= kColumnLimit) {
    format.letter = 'c';
    format.precision = -digits;
  } else {
    format.letter = 'e';
    format.precision = kExponentBase - digits;  // INT_MIN gives 2147482648: no overflow
  }
  return write_into_number_text(value, format);
}

const char* FormatSpec(double value, float spec, unsigned int flags) {
  if (ISNA(value)) return kMissingText;
  // A NaN code asks for nothing in particular: it takes the plain road.
  if (spec == 0.0f || !(spec == spec)) return txc::format_general12(value);
  if (spec < 0.0f) return FormatDigits(value, truncate_code(spec));

  NumFormat format{};
  format.align = 0;
  format.flags = flags | NF_BLANK;
  if (spec > 1.0f) {
    format.letter = 'f';
    format.width = truncate_code(spec);
    // In single precision on purpose: the code is a float, and its first
    // decimal must come out as the caller wrote it. A code just below the
    // next integer reads as 10 decimals: 8.99995f gives 9.9995 tenths, and
    // the allowance lifts that to 10.
    const float tenths = (spec - static_cast<float>(format.width)) * 10.0f;
    const double decimals = static_cast<double>(tenths) + kDecimalAllowance;
    // Beyond the range of int the width was clamped and the "fraction" is
    // meaningless (infinite for an infinite code): no decimals.
    format.precision = spec < kClampedWidth ? static_cast<int>(decimals) : 0;
  } else {
    format.letter = 'E';
    format.width = 0;
    format.precision = static_cast<int>(static_cast<double>(spec) * kExponentScale);
  }
  return write_into_number_text(value, format);
}

char* strFormat(double value) {
  char* text = txc::number_text();
  if (ISNA(value)) {
    std::memcpy(text, kMissingText, sizeof kMissingText);
    return text;
  }
  char full[kFixedTextMax];
  const auto r = std::to_chars(full, full + sizeof full, value, std::chars_format::fixed, 6);
  std::size_t n = r.ec == std::errc() ? static_cast<std::size_t>(r.ptr - full) : 0;
  if (n > kStrFormatKeep) n = kStrFormatKeep;
  std::memcpy(text, full, n);
  text[n] = '\0';
  return text;
}
