// vstring: taking blanks off the ends of a text.
//
// Two blank tests meet here. The low blank (0x00-0x20, unsigned) treats bytes
// of 0x80 and up as text, so a trailing accented letter survives; the signed
// blank (<= 0x20 as a signed byte) treats them as blank, which trim(1) uses to
// take stray high bytes off the end of a line. trim() also refuses to touch a
// text whose first byte is 0x80 or up: such text comes from outside the
// statement language and is passed through as it stands.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

namespace {

bool low_blank(char c) { return static_cast<unsigned char>(c) <= 0x20; }
bool signed_blank(char c) { return static_cast<signed char>(c) <= 0x20; }
bool high_byte(char c) { return static_cast<unsigned char>(c) >= 0x80; }

// Bytes [from, to) of `text` into the next temporary.
vstring& temp_piece(const char* text, unsigned from, unsigned to) {
  return txc::assign_bytes(txc::next_temp(), text + from, to - from);
}

}  // namespace

// Leading low blanks go; the scan stops at the first byte above 0x20,
// high bytes included. An all-blank text gives an empty temporary.
vstring& vstring::ltrim() const {
  const char* p = optr();
  const unsigned n = len();
  unsigned start = 0;
  while (start < n && low_blank(p[start])) ++start;
  return temp_piece(p, start, n);
}

// Trailing low blanks go; a high byte at the end stops the scan.
vstring& vstring::rtrim() const {
  const char* p = optr();
  unsigned end = len();
  while (end > 0 && low_blank(p[end - 1])) --end;
  return temp_piece(p, 0, end);
}

// Trailing spaces (0x20) only: a tab in front of them stays.
vstring& vstring::rtrim1() const {
  const char* p = optr();
  unsigned end = len();
  while (end > 0 && p[end - 1] == ' ') --end;
  return temp_piece(p, 0, end);
}

// Both ends. The end goes first, by the signed test when highToo is set; the
// start is always cut by the low test.
vstring& vstring::trim(int highToo) const {
  const char* p = optr();
  const unsigned n = len();
  if (n == 0) return txc::next_temp().clear();
  const bool firstIsText = !low_blank(p[0]);
  if ((firstIsText && !low_blank(p[n - 1])) || high_byte(p[0])) return temp_piece(p, 0, n);
  unsigned end = n;
  if (highToo != 0) {
    while (end > 0 && signed_blank(p[end - 1])) --end;
  } else {
    while (end > 0 && low_blank(p[end - 1])) --end;
  }
  unsigned start = 0;
  while (start < end && low_blank(p[start])) ++start;
  return temp_piece(p, start, end);
}

// In place, low blanks at both ends. The block is never changed, so a text of
// blanks ends as a block of length 0 (isNull() true, blen() unchanged).
vstring& vstring::itrim() {
  const unsigned n = len();
  if (n == 0 || (!low_blank(data[0]) && !low_blank(data[n - 1]))) return *this;
  unsigned start = 0;
  while (start < n && low_blank(data[start])) ++start;
  unsigned end = n;
  while (end > start && low_blank(data[end - 1])) --end;
  const unsigned kept = end - start;
  if (start > 0) std::memmove(data, data + start, kept);
  data[kept] = '\0';
  putLen(kept);
  return *this;
}

void vstring::TrimRight() { put(rtrim()); }
