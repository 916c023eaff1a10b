// vstring::titleCase: capitals at the start of each word, in place.
//
//   vstring s("aBC dEF");
//   s.titleCase(0, 0);       // ABC DEF   (word starts only)
//   s = "aBC dEF";
//   s.titleCase(0, 1);       // Abc Def   (and the rest lowered)
//   s = "aBC dEF";
//   s.titleCase(1, 1);       // Abc dEF   (first word only)
//
// Words are separated only by bytes 0x00-0x20: a digit, hyphen or dot belongs
// to the word. ASCII letters are converted by hand; bytes from 0x80 on go
// through the one-byte form of the host's case slots (or of the 1252
// stand-ins without a host), so that accented letters follow the host's code
// page.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/platform.h>
#include <txCommon/vstring.h>

namespace {

namespace pf = txc::platform;

constexpr unsigned char kAsciiCaseGap = 'a' - 'A';  // 32
constexpr unsigned char kFirstHighByte = 0x80;
constexpr unsigned char kLastSeparator = 0x20;

// One byte through UpperBuffer/CharUpperA in their by-value form: the byte
// travels in the pointer argument and comes back in the low byte of the result.
unsigned char upper_high_byte(unsigned char c) {
  char* result = nullptr;
  if (ITXCommonCallback* h = txc::host()) {
    result = h->UpperBuffer(pf::byte_as_pointer(c));
  } else {
    result = pf::CharUpperA(pf::byte_as_pointer(c));
  }
  return pf::pointer_as_byte(result);
}

unsigned char lower_high_byte(unsigned char c) {
  char* result = nullptr;
  if (ITXCommonCallback* h = txc::host()) {
    result = h->LowerBuffer(pf::byte_as_pointer(c));
  } else {
    result = pf::CharLowerA(pf::byte_as_pointer(c));
  }
  return pf::pointer_as_byte(result);
}

unsigned char word_start_form(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - kAsciiCaseGap);
  if (c >= kFirstHighByte) return upper_high_byte(c);
  return c;
}

unsigned char word_rest_form(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + kAsciiCaseGap);
  if (c >= kFirstHighByte) return lower_high_byte(c);
  return c;
}

}  // namespace

// Walks the len() bytes; zero bytes inside the length separate words like
// blanks do. Blanks before the first word do not end it.
vstring& vstring::titleCase(int firstWordOnly, int lowerRest) {
  const unsigned n = len();
  bool atWordStart = true;
  bool nothingSeen = true;
  for (unsigned i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(data[i]);
    if (c <= kLastSeparator) {
      atWordStart = true;
      if (!nothingSeen && firstWordOnly != 0) break;
      continue;
    }
    if (atWordStart) {
      data[i] = static_cast<char>(word_start_form(c));
    } else if (lowerRest != 0) {
      data[i] = static_cast<char>(word_rest_form(c));
    }
    atWordStart = false;
    nothingSeen = false;
  }
  return *this;
}
