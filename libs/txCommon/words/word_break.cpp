// GetLastWordBreak: where a line of words may be broken, by the characters of
// the current locale.
//
// A break is a character that is neither letter, digit, punctuation nor
// blank in the locale's wide classes, or the blank 0x20 itself:
//
//   vstring("ab cd").GetLastWordBreak(-1);   // 2
//   vstring("ab\tcd").GetLastWordBreak(-1);  // 2: a tab is a control byte
//   vstring("ab,cd").GetLastWordBreak(-1);   // -1: a comma is punctuation
//
// The library never sets a locale; whatever the program has set decides.
#include <txCommon/internal/mbcs.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include <cwctype>

namespace {

// Bytes that mbtowc may look at for one character.
constexpr int kLookAhead = 4;

// The "blank" class that a break leaves out is the space class of the
// Windows run-time, which holds the blank but not the tab; the C library's
// iswblank also holds the tab, so the tab is taken out here.
bool in_blank_class(wint_t c) { return c != L'\t' && std::iswblank(c) != 0; }

bool is_break(wchar_t wide) {
  const auto c = static_cast<wint_t>(wide);
  if (c == L' ') return true;
  return std::iswalpha(c) == 0 && std::iswdigit(c) == 0 && std::iswpunct(c) == 0 &&
         !in_blank_class(c);
}

// Bytes of the character at `p`, with `left` bytes of text from there: 2 for
// a lead byte that has its second byte, else 1. The platform's multibyte
// stepping knows the lead bytes of the code page in force.
int character_bytes(const char* p, int left) {
  const auto* u = reinterpret_cast<const unsigned char*>(p);
  const auto step = static_cast<int>(txc::platform::_mbsinc(u) - u);
  return step >= 2 && left >= 2 ? 2 : 1;
}

}  // namespace

int vstring::GetLastWordBreak(int limit) {
  const int length = convert64(len());
  if (length == 0) return -1;
  if (limit == -1) limit = length;
  const char* text = optr();
  int lastBreak = -1;
  for (int offset = 0; offset < limit && offset < length;) {
    const int left = length - offset;
    // A byte the code page cannot decode keeps the value 0, which is in no
    // class: it counts as a break.
    wchar_t wide = 0;
    txc::platform::mbtowc(&wide, text + offset,
                          static_cast<std::size_t>(left < kLookAhead ? left : kLookAhead));
    if (is_break(wide)) lastBreak = offset;
    offset += character_bytes(text + offset, left);
  }
  return lastBreak;
}
