// vstring: line ends, tabs and byte dumps.
//
// CR_LF_to_LF folds the line ends of every platform to one LF: a CR, a
// CR LF pair and an LF CR pair each give one LF, so "a\r\nb\n\rc\rd" becomes
// "a\nb\nc\nd" (two LFs in a row stay two line ends). Its result goes through
// the scratch buffer (rule in edit_scratch.h). bin2hex writes the bytes as
// capital hex pairs, "%02X" each.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

// In place, every tab (0x09) becomes a blank.
vstring& vstring::TabToSpace() {
  const unsigned n = len();
  for (unsigned i = 0; i < n; ++i) {
    if (data[i] == '\t') data[i] = ' ';
  }
  return *this;
}

// A temporary with each CR, CR LF and LF CR turned into one LF.
vstring& vstring::CR_LF_to_LF() const {
  const char* p = optr();
  const unsigned n = len();
  txc::ensure_temp_buf(txc::scratch_need(n, 0));
  txc::ScratchWriter out;
  for (unsigned i = 0; i < n; ++i) {
    const char c = p[i];
    if (c == '\r' || c == '\n') {
      const char partner = c == '\r' ? '\n' : '\r';
      if (i + 1 < n && p[i + 1] == partner) ++i;
      if (!out.put('\n')) break;
    } else if (!out.put(c)) {
      break;
    }
  }
  return out.assign_to(txc::next_temp());
}

namespace {

// One byte is two digits of "%02X".
constexpr unsigned kHexPerByte = 2;
constexpr char kHexDigits[] = "0123456789ABCDEF";

}  // namespace

// The first n bytes become 2n capital hex digits and replace the whole text.
// n of 0 empties the string; an n beyond the length counts as the length. A
// result of 64,000,000 bytes or more is reported (2121) and made all the same.
vstring& vstring::bin2hex(unsigned int n) {
  if (n > len()) n = len();
  if (n == 0) return clear();
  vstring hex;
  // The length field is 32 bits: a text of more than 2 GB has no hex form.
  const unsigned long long wanted = static_cast<unsigned long long>(n) * kHexPerByte;
  if (wanted > 0x7FFFFFFFULL) n = 0x7FFFFFFFU / kHexPerByte;
  char* out = hex.alloc(n * kHexPerByte);
  for (unsigned i = 0; i < n; ++i) {
    const unsigned char b = static_cast<unsigned char>(data[i]);
    out[kHexPerByte * i] = kHexDigits[b >> 4];
    out[kHexPerByte * i + 1] = kHexDigits[b & 0x0F];
  }
  out[n * kHexPerByte] = '\0';
  swap(hex);
  return *this;
}
