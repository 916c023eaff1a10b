// vstring: taking classes of bytes out of a text.
//
// All but dropchars change the string and lay the result out in the scratch
// buffer first, so the result obeys the scratch rule of edit_scratch.h: at
// most TempBufLen() bytes, the tail of a longer text dropped. Since none of
// them makes a text longer, only texts beyond TempBufLen() bytes are cut.
// dropchars counts its result first and writes it straight into one block of
// the temporary, so it has no bound but the class's own.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

#include <cctype>
#include <cstring>

namespace {

// Copies the bytes of `text` for which keep(byte) holds through the scratch
// buffer into `target`. `keep` sees each byte once, in order.
template <class Keep>
vstring& filter_through_scratch(vstring& target, Keep keep) {
  const char* p = target.optr();
  const unsigned n = target.len();
  txc::ScratchWriter out;
  for (unsigned i = 0; i < n; ++i) {
    if (keep(p[i]) && !out.put(p[i])) break;
  }
  return out.assign_to(target);
}

}  // namespace

// Every byte equal to `c` goes. No EnsureTempBuf: the result is never longer
// than the text. Like every scratch result, an empty one releases the block.
vstring& vstring::removeCharacter(char c) {
  return filter_through_scratch(*this, [c](char b) { return b != c; });
}

// Bytes 0x00-0x20 go; bytes of 0x80 and up are text here and stay.
vstring& vstring::removeWhiteSpace() {
  txc::ensure_temp_buf(txc::scratch_need(len(), 0));
  return filter_through_scratch(*this, [](char b) {
    const signed char s = static_cast<signed char>(b);
    return !(s >= 0 && s <= 0x20);
  });
}

// Outside quotes every signed blank goes, bytes of 0x80 and up included;
// inside quotes everything stays. The quote bytes themselves are kept, and
// one family toggles: '"', and 0x93/0x94 under a 1252 host.
vstring& vstring::removeWhiteSpacenq() {
  txc::ensure_temp_buf(txc::scratch_need(len(), 0));
  bool quoted = false;
  return filter_through_scratch(*this, [&quoted](char b) {
    if (isQuoteByte(b)) {
      quoted = !quoted;
      return true;
    }
    return quoted || static_cast<signed char>(b) > 0x20;
  });
}

namespace {

// The byte classes of dropchars, tested in this order: a digit is never a
// letter, and white space is whatever isspace says of the rest.
enum ByteClass : unsigned { kLetter = 1, kDigit = 2, kSpace = 4, kOther = 8 };

unsigned class_of(char c) {
  const int u = static_cast<unsigned char>(c);
  if (std::isdigit(u)) return kDigit;
  if (std::isalpha(u)) return kLetter;
  if (std::isspace(u)) return kSpace;
  return kOther;
}

unsigned classes_named(const vstring& kinds) {
  unsigned set = 0;
  const char* k = kinds.optr();
  for (unsigned i = 0; i < kinds.len(); ++i) {
    switch (std::tolower(static_cast<unsigned char>(k[i]))) {
      case 'a': set |= kLetter; break;
      case 'd': set |= kDigit; break;
      case 'w': set |= kSpace; break;
      case 'p': set |= kOther; break;
      default: break;  // other letters name no class
    }
  }
  return set;
}

}  // namespace

// A temporary holding the bytes whose class `kinds` does not name. The
// length is counted first and one block made for it (2121 applies).
vstring& vstring::dropchars(const vstring& kinds) const {
  const unsigned drop = classes_named(kinds);
  const char* p = optr();
  const unsigned n = len();
  unsigned kept = 0;
  for (unsigned i = 0; i < n; ++i) {
    if ((class_of(p[i]) & drop) == 0) ++kept;
  }
  vstring& t = txc::next_temp();
  if (kept == 0) return t.clear();
  char* out = t.alloc(kept);
  unsigned w = 0;
  for (unsigned i = 0; i < n; ++i) {
    if ((class_of(p[i]) & drop) == 0) out[w++] = p[i];
  }
  out[w] = '\0';
  return t;
}

// Junk in front goes: bytes are dropped until the first ASCII letter or
// digit, or the first byte found among extra[0..extraCount). From there on
// everything stays. A null `extra` or a count below 1 accepts no extra byte.
vstring& vstring::MakeAlphaNumeric(char* extra, int extraCount) {
  txc::ensure_temp_buf(txc::scratch_need(len(), 0));
  const std::size_t extraLen = (extra != nullptr && extraCount > 0)
                                   ? static_cast<std::size_t>(extraCount) : 0;
  bool accepting = false;
  return filter_through_scratch(*this, [&](char b) {
    if (accepting) return true;
    const unsigned char u = static_cast<unsigned char>(b);
    const bool alnum = (u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z');
    accepting = alnum || (extraLen > 0 && std::memchr(extra, b, extraLen) != nullptr);
    return accepting;
  });
}
