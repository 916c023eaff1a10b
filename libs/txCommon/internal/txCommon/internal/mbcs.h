// Internal: not part of the public interface.
//
// Single-byte stand-ins for the C run-time's multibyte routines (_mbsinc,
// _mbccpy_s, _mbsupr_s, _mbslwr_s, mbtowc). The quote-respecting case
// conversions walk text one multibyte character at a time; in a single-byte
// code page a character is one byte, which is all this platform offers, so
// every routine here treats one byte as one character. Case goes by the
// current C locale's toupper/tolower, which for single-byte text is what the
// multibyte routines give.
//
//   unsigned char area[3];
//   int copied = 0;
//   txc::platform::_mbccpy_s(area, sizeof area, &copied, p);  // copied == 1
//   area[copied] = 0;
//   txc::platform::_mbsupr_s(area, sizeof area);
//   p = txc::platform::_mbsinc(p);
#pragma once

#include <cstddef>

namespace txc::platform {

// Error results in the manner of errno_t: 0 for success.
inline constexpr int kMbOk = 0;
inline constexpr int kMbInvalid = 22;  // EINVAL
inline constexpr int kMbRange = 34;    // ERANGE

// The character behind the one at `p`. A null `p` gives null; at a zero byte
// the step still advances by one, as the run-time routine does, so callers
// stop at the terminator themselves.
const unsigned char* _mbsinc(const unsigned char* p);

// Copies the one character at `src` into `dest` (no terminator) and stores
// its byte count in `*copied` (when `copied` is not null). Null pointers or a
// `destSize` of 0 give kMbInvalid and copy nothing; `*copied` is then 0.
int _mbccpy_s(unsigned char* dest, std::size_t destSize, int* copied, const unsigned char* src);

// Converts the zero-ended text in place, reading at most `size` bytes. A null
// text gives kMbInvalid; a text with no terminator within `size` bytes is
// emptied (its first byte set to 0, when size > 0) and gives kMbRange,
// the run-time routine's behaviour for an unterminated buffer.
int _mbsupr_s(unsigned char* text, std::size_t size);
int _mbslwr_s(unsigned char* text, std::size_t size);

// The wide value of the character at `s`, read from at most `n` bytes: 0 for
// the terminator, 1 for any other byte, -1 when `n` is 0. A null `s` asks
// whether the encoding keeps state: 0. `pwc` may be null.
int mbtowc(wchar_t* pwc, const char* s, std::size_t n);

}  // namespace txc::platform
