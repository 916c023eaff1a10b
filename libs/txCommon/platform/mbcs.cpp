// Single-byte stand-ins for the multibyte run-time routines: one byte is one
// character, and case goes by the current C locale.
#include <txCommon/internal/mbcs.h>

#include <cctype>

namespace txc::platform {

namespace {

// The standard library's functions may not have their address taken.
int upper_byte(int c) { return std::toupper(c); }
int lower_byte(int c) { return std::tolower(c); }

// Both conversions share their checks; only the byte map differs.
template <int (*Map)(int)>
int convert_bounded(unsigned char* text, std::size_t size) {
  if (text == nullptr) return kMbInvalid;
  for (std::size_t i = 0; i < size; ++i) {
    if (text[i] == 0) return kMbOk;
    text[i] = static_cast<unsigned char>(Map(text[i]));
  }
  // No terminator inside the buffer: undo nothing, but leave an empty text so
  // that no caller reads on past the buffer.
  if (size > 0) text[0] = 0;
  return kMbRange;
}

}  // namespace

const unsigned char* _mbsinc(const unsigned char* p) {
  return p == nullptr ? nullptr : p + 1;
}

int _mbccpy_s(unsigned char* dest, std::size_t destSize, int* copied, const unsigned char* src) {
  if (copied != nullptr) *copied = 0;
  if (dest == nullptr || src == nullptr || destSize == 0) return kMbInvalid;
  dest[0] = src[0];
  if (copied != nullptr) *copied = 1;
  return kMbOk;
}

int _mbsupr_s(unsigned char* text, std::size_t size) {
  return convert_bounded<upper_byte>(text, size);
}

int _mbslwr_s(unsigned char* text, std::size_t size) {
  return convert_bounded<lower_byte>(text, size);
}

int mbtowc(wchar_t* pwc, const char* s, std::size_t n) {
  if (s == nullptr) return 0;
  if (n == 0) return -1;
  const unsigned char byte = static_cast<unsigned char>(*s);
  if (pwc != nullptr) *pwc = static_cast<wchar_t>(byte);
  return byte == 0 ? 0 : 1;
}

}  // namespace txc::platform
