// vstring: case conversion that leaves quoted text alone (the "nq" family).
//
// Names in statements are compared in upper case, but text in quotes must
// survive as typed:
//
//   vstring s("ab \"cd\" ef");
//   s.mbuprnq();             // AB "cd" EF
//   vstring t("ab \"cd");
//   t.mbuprnq();             // AB "cd   (an open quote runs to the end)
//
// One quote flag, toggled by '"' and, under a host whose code page is 1252,
// by the curly quotes 0x93/0x94, all three being one family. The flag toggles
// before its character is dealt with. Characters are stepped and converted by
// the multibyte routines of the platform layer, never by the host's case
// slots: the host's code page plays no part here.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/mbcs.h>
#include <txCommon/vstring.h>

#include <cstddef>
#include <cstring>
#include <memory>

namespace {

namespace mb = txc::platform;

using Convert = int (*)(unsigned char*, std::size_t);

// A character of up to two bytes and the terminator the conversion needs.
constexpr std::size_t kCharArea = 3;

// Builds the converted text of `text` (at most `length` bytes, ending early at
// a zero byte) in a zeroed buffer of twice the length, which leaves room for
// any growth a multibyte conversion could bring, and returns it.
std::unique_ptr<char[]> convert_outside_quotes(const char* text, std::size_t length,
                                               Convert convert) {
  const std::size_t room = 2 * length + 1;
  auto work = std::make_unique<char[]>(room);  // zero-filled
  std::size_t used = 0;
  bool quoted = false;
  const auto* p = reinterpret_cast<const unsigned char*>(text);
  const auto* const end = p + length;
  while (p < end && *p != 0) {
    if (isQuoteByte(static_cast<char>(*p))) quoted = !quoted;
    unsigned char area[kCharArea] = {0, 0, 0};
    int copied = 0;
    mb::_mbccpy_s(area, kCharArea - 1, &copied, p);
    if (!quoted) convert(area, kCharArea);
    const std::size_t n = std::strlen(reinterpret_cast<char*>(area));
    if (used + n >= room) break;  // cannot happen for single-byte text
    std::memcpy(work.get() + used, area, n);
    used += n;
    p = mb::_mbsinc(p);
  }
  return work;
}

// Shared by the upper- and lower-case members: the work buffer's text
// replaces the string, an empty result releases the block.
void convert_nq(vstring& s, Convert convert) {
  const unsigned length = s.len();
  if (length == 0) return;
  std::unique_ptr<char[]> work = convert_outside_quotes(s.optr(), length, convert);
  const std::size_t n = std::strlen(work.get());
  if (n == 0) {
    s.clear();
    return;
  }
  char* text = s.alloc(static_cast<unsigned>(n));
  std::memcpy(text, work.get(), n + 1);
}

}  // namespace

vstring& vstring::mbuprnq() {
  convert_nq(*this, txc::platform::_mbsupr_s);
  return *this;
}

vstring& vstring::uprnq() { return mbuprnq(); }
vstring& vstring::outCase() { return mbuprnq(); }

vstring& vstring::mblwrnq() {
  convert_nq(*this, txc::platform::_mbslwr_s);
  return *this;
}

vstring& vstring::lwrnq() { return mblwrnq(); }

vstring& vstring::putUprnq(const char* text) {
  put(text);
  return mbuprnq();
}

// Goes through a temporary of this thread, so the string is left alone.
// `target` must hold len() + 1 bytes; a null target gives null.
char* vstring::cpylwrnq(char* target) const {
  if (target == nullptr) return nullptr;
  vstring& temp = txc::next_temp();
  temp.put(*this);
  temp.mblwrnq();
  return temp.cpy(target);
}
