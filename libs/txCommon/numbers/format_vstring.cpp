// vstring::format and vstring::iformat: the formatted number copied into the
// string itself (these change the string, so they return *this, not a
// temporary).
#include <txCommon/internal/number_format.h>
#include <txCommon/vstring.h>

#include <climits>
#include <cstring>

vstring& vstring::format(double value, float spec, unsigned int flags) {
  return put(FormatSpec(value, spec, flags));
}

vstring& vstring::iformat(double value, int digits) { return put(FormatDigits(value, digits)); }

// Blanks of 0 or below add nothing. The total is kept within the 32-bit
// length of a string: padding beyond INT_MAX bytes in all is cut, the blanks
// behind first.
vstring& vstring::format(double value, float spec, int before, int after) {
  const char* text = FormatSpec(value, spec, 0);
  const long long body = static_cast<long long>(std::strlen(text));
  long long lead = before > 0 ? before : 0;
  long long trail = after > 0 ? after : 0;
  if (body + lead + trail > INT_MAX) trail = INT_MAX - body - lead;
  if (trail < 0) {
    lead += trail;
    trail = 0;
  }
  const long long total = lead + body + trail;
  if (total == 0) return clear();
  // The text lives in numberText, which alloc does not touch.
  char* out = alloc(static_cast<unsigned int>(total));
  std::memset(out, ' ', static_cast<std::size_t>(lead));
  std::memcpy(out + lead, text, static_cast<std::size_t>(body));
  std::memset(out + lead + body, ' ', static_cast<std::size_t>(trail));
  out[total] = '\0';
  return *this;
}
