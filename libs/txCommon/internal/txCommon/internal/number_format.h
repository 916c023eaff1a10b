// Internal: not part of the public interface. Formatting engines.
//
// The two compact codes behind vstring::iformat and vstring::format, turned
// into a NumFormat record for WriteNumber. Both write into the calling
// thread's 32-byte number text and return it, or return the constant "NA"
// for a missing value (and for infinities, which count as missing). A number
// that does not fit becomes a run of '#': precision + 1 of them, at most
// kMaxHashFill. The pointer is good until the next formatting call on the
// same thread.
//
//   FormatDigits(1234.5678, 2)     -> " 1234.57"
//   FormatDigits(1234.5678, -1003) -> " 1.235e+03"
//   FormatSpec(1234.5678, 8.2f, 0) -> " 1234.57"
//   FormatSpec(1234.5678, 0.03f, 0) -> " 1.235E+03"
//   FormatSpec(1234.5678, 0.0f, 0) -> "1234.5678"  ("%.12g", C locale)
#pragma once

#include <txCommon/export.h>

namespace txc {

// The field every formatting call hands to WriteNumber; numberText has two
// bytes more, so a text of exactly this length still gets its end.
inline constexpr int kFormatField = 30;

// The longest overflow text. A fill of precision + 1 '#' is cut to this, the
// length of the longest text the field can hold, so precisions above 29 all
// give 30 '#' and the fill never leaves numberText.
inline constexpr int kMaxHashFill = kFormatField;

// `count` '#' (cut to 1..kMaxHashFill) and an end in numberText.
char* hash_fill(long long count);

// The "%.12g" text of a finite value in the C locale, into numberText.
char* format_general12(double value);

}  // namespace txc

// digits >= 0: letter 'f' with `digits` decimals. -1..-999: letter 'c', a
// column of -digits bytes. Below -999: letter 'e' with -1000 - digits
// decimals. Always NF_BLANK, so a number that is not negative starts with a
// blank. Every int is accepted.
const char* FormatDigits(double value, int digits);

// spec 0.0 (or a NaN spec): the "%.12g" text, no leading blank, `flags`
// unused. spec < 0: FormatDigits(value, spec truncated). spec > 1: letter 'f',
// width the integer part, decimals the first decimal of the code (8.25 reads
// as 8.2; a code a hair below the next integer, as 8.99995, gives 10).
// 0 < spec <= 1: letter 'E' with spec * 100 decimals (0.03 -> 3).
// `flags` are NF_ bits for WriteNumber, NF_BLANK always added. Codes beyond
// the range of int are clamped to it.
const char* FormatSpec(double value, float spec, unsigned int flags);
