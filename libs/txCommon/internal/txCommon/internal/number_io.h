// Internal: not part of the public interface. The number reader and writer.
//
// ReadNumber turns one number of text into a double, steered by a NumFormat
// record, and says by its status whether the text had the form the record
// announces. WriteNumber is its mirror: it lays a double out in a field of a
// caller's buffer and says by its status whether digits were lost or the field
// overflowed. Neither allocates, throws, calls the host or depends on the
// process locale; both work in one fixed-size stack frame.
//
//   NumFormat f{'f', 0, NF_GROUP, 0, 2};
//   char buf[32];
//   int written = 0;
//   WriteNumber(1234567.891, f, buf, sizeof buf, nullptr, &written);
//   // buf holds "1,234,567.89", written is 12, status NUM_OK
//   double v;
//   int used;
//   ReadNumber(f, "1,234.5 kg", 10, &used, &v, nullptr);
//   // v is 1234.5, used is 7, status NUM_OK
//
// The digit budget. WriteNumber scales a value to D decimal digits before it
// cuts digits. D is chosen per call from the call's own precision: 17 when
// `precision` is 17 or more (999, "no stated precision", included), 15
// otherwise. Fifteen digits survive the one scaling product exactly, so
// ordinary precisions get clean digits; requests for 17 keep two digits more,
// the last of them good to a unit or two only (the scaled value of
// -1.7976931348623157e308 ends in ...156, not ...157). A result depends on its own arguments alone, never on which
// call a process happened to make first. Example: 1.1 in `g` precision 17
// gives "1.1" (D 17), and in `g` precision 16 "1.1" as well (D 15, the noise
// of the scaling lies beyond the 16th digit and rounds away).
#pragma once

#include <txCommon/export.h>

#include <cstdint>

// The record that steers the reader and the writer. Field order is fixed.
struct NumFormat {
  char letter;          // form letter; case selects the exponent letter's case
  char align;           // '<', '=' or anything else (writing only)
  std::uint32_t flags;  // NF_ bits below
  std::int32_t width;   // field width (writing only)
  std::int32_t precision;  // decimals / significant digits; 999 = none stated
};

// Flag bits. The caller's bits lie below 0x40000; the letter adds the others.
enum : std::uint32_t {
  NF_PLUS = 0x1,           // write: '+' before a number that is not negative
  NF_BLANK = 0x2,          // write: ' ' in the sign's place (unless NF_PLUS)
  NF_PAREN = 0x4,          // negatives in parentheses (read and write)
  NF_CURRENCY = 0x8,       // '$' after the sign (read and write)
  NF_ZEROFILL = 0x10,      // write: pad with '0' behind sign and '$'
  NF_COMMA = 0x20,         // decimal ',' and group '.' (read and write)
  NF_POINT = 0x40,         // write: keep a bare decimal character if it fits
  NF_BLANKZERO = 0x100,    // read: a blank among the digits is a '0'
  NF_FIXEDDEN = 0x200,     // write 'r': the largest denominator itself
  NF_REDUCE = 0x400,       // write 'r' with NF_FIXEDDEN: reduce the fraction
  NF_BLANKGROUP = 0x800,   // write: the group character is a blank
  NF_PERCENT = 0x1000,     // '%' behind the number (read and write)
  NF_LEFT = 0x2000,        // write: pad on the right
  NF_ZEROS = 0x4000,       // write: keep trailing zeros up to W digits
  NF_GROUP = 0x8000,       // thousands groups (read and write)
  NF_TRUNCATE = 0x10000,   // write: drop the rest instead of rounding
  NF_ROUNDUP = 0x20000,    // write: round up any rest above 0
  NF_EXP = 0x100000,       // set by the letter or the fit: exponent form
  NF_INTEGER = 0x200000,   // set by the letter: integer in a base
  NF_RATIONAL = 0x400000,  // set by the letter: whole number and fraction
  NF_AUTO = 0x800000,      // set by the letter: fixed or exponent by the fit
};

// Statuses of ReadNumber and WriteNumber.
enum : int {
  NUM_OK = 0,         // read / written as the record announces
  NUM_NOTE = 1,       // read: value good, form differs from the record
  NUM_BADLETTER = 3,  // the letter is unknown
  NUM_SYNTAX = 4,     // read: not a number of this form
  NUM_OVERFLOW = 5,   // write: the field is filled with '#'
  NUM_LOST = 8,       // write: fewer digits than asked for
  NUM_NONFINITE = 9,  // write: infinity or NaN, the field is blanks
};

// ---- tables

// Entry n is the double nearest to 10^n, n = 0..308.
extern const double Pow10Table[309];
// 1e308, made once at load as pow(10.0, 308.0); the step of ScaleByPow10.
extern const double Pow10Step;
// Indexed by base (2..36; entries 0 and 1 are 0): the largest k with
// base^k <= 2^32, the digits a 32-bit accumulator can always take.
extern const int Digit32Floor[37];
// 1e16, 1e32, 1e64, 1e128, 1e256: the binary steps of Pow10Exact.
extern const double Pow10Binary[5];
// Digits of bases up to 36, upper case.
extern const char DigitChars[37];

// ---- reading

// Reads one number from `text`, at most `length` bytes (a zero byte ends the
// text earlier). With `consumed` the byte count read is stored there and
// trailing text is allowed; without it, trailing text other than white space
// is a syntax failure. Returns NUM_OK, NUM_NOTE, NUM_BADLETTER or NUM_SYNTAX;
// after the last two `value` holds the pattern 0xFFF8000000000000, `consumed`
// 0 and `failed` 1. A decimal whose stated exponent overflows gives an
// infinity and errno ERANGE (a negative one at exactly 10^308 and above gets
// its infinity from the scaling alone, without ERANGE).
int ReadNumber(const NumFormat& format, const char* text, int length,
               int* consumed, double* value, int* failed);

// Forms "w", "n/d", "w n/d" and anything with a point. Returns the bytes
// consumed, 0 for nothing; `value` is dNA's pattern for nothing or n/0.
int ReadRational(double* value, const char* text, int length);

// White space, an optional sign and digits of `base` (2..36), of any length.
// Returns the bytes consumed (white space and sign included); 0.0 when no
// digit was read.
int ReadBaseNumber(double* value, const char* text, int length, int base);

// White space, zeros and at most Digit32Floor[base] digits within `limit`
// bytes into a 32-bit accumulator. Returns the bytes consumed.
int ReadBaseChunk(unsigned* value, const char* text, int limit, int base);

// x * 10^n, negative powers by division by exact table entries.
double ScaleByPow10(double x, int n);

// 1 when the zero-ended `text` (first 999 bytes) is a finite number in the
// full reader grammar with no flags, or "NA" in any case; 0 otherwise.
int IsNumberText(const char* text);

// ---- writing

// Lays `value` out in `buffer` of `size` bytes by `format`. Returns NUM_OK,
// NUM_LOST, NUM_BADLETTER, NUM_OVERFLOW or NUM_NONFINITE and stores the
// outcome (0; 1 bad letter; 5/6 overflow of a positive/negative number; 7/8/9
// plus infinity, minus infinity, NaN) and the text length. The text is
// zero-ended only when it is shorter than `size`; nothing is ever written at
// or beyond `buffer + size`.
int WriteNumber(double value, const NumFormat& format, char* buffer, int size,
                int* outcome, int* written);

// Scales |x| to an integer-valued double of `digits` digits (0..17) and the
// decimal point position. Returns 1 for infinities and NaNs (mantissa x,
// exponent 1); zeros and denormals give a signed zero and exponent 0.
int SplitDecimal(double* mantissa, int* exponent, double x, int digits);

// 10^n by Pow10Table and Pow10Binary, the reciprocal for negative n;
// infinity for any |n| >= 512.
double Pow10Exact(int n);

// The digits of `value` in `base`, left-padded with zeros to
// min(size, minDigits). Returns the bytes written; 0 and `size` '#' bytes when
// they do not fit. Never zero-ends.
int WriteChunk(char* out, int size, unsigned value, int base, int minDigits);

// The integer x (>= 0) in `base`, right-aligned to `minWidth` with blanks or,
// under NF_ZEROFILL, zeros. Returns the bytes written, 0 when the digits do
// not fit in `size`. Never zero-ends.
int WriteBaseInteger(char* out, int size, double x, int base, int minWidth,
                     unsigned flags);

// Splits x (>= 0) into a whole part and a fraction numerator/denominator with
// denominator <= maxDenominator (continued fractions, or fixed under
// NF_FIXEDDEN). Returns the error: fraction of x less numerator/denominator.
double ApproxFraction(double* whole, double* numerator, double* denominator,
                      double x, double maxDenominator, unsigned flags);

// Writes x (>= 0) as "w", "n/d" or "w n/d", falling back to `g` precision 16.
// Stores the text length in `written`; returns the status of the fallback or 0.
int WriteRational(char* out, int size, int* written, double x,
                  double maxDenominator, unsigned flags);
