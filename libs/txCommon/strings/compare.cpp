// vstring: ordering and equality.
//
// The library's collation is bytewise on signed bytes with one twist: the six
// punctuation bytes between the capitals and the small letters (0x5B-0x60:
// [ \ ] ^ _ `) are weighed against the lower-case form of the other byte, so
// they order below every letter of either case:
//
//   "A_" < "AB"   ('_' 0x5F against 'b' 0x62)
//   "AB" < "Ab"   (letters keep byte order: capitals first)
//   "\xE9" < "A"  (bytes from 0x80 on are negative)
//
// Scans read to the terminator of this string; the operators and cmp() stop
// earlier at a bound (TempBufLen() for the operators), so no ordering ever
// looks at more than that many bytes.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

// ASCII folding, which is what the C locale's tolower does; done by hand so
// that negative (high) bytes are never handed to <cctype>.
int fold_lower(int c) { return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c; }

bool is_punctuation_gap(int c) { return c >= 0x5B && c <= 0x60; }

// The collation of one pair of bytes, read as signed 8-bit values.
int order_pair(char x, char y) {
  const int a = static_cast<signed char>(x);
  const int b = static_cast<signed char>(y);
  if (is_punctuation_gap(a)) return a - fold_lower(b);
  if (is_punctuation_gap(b)) return fold_lower(a) - b;
  return a - b;
}

// The length of a run of equal, non-zero bytes at the start of both texts,
// a multiple of the word size and at most `span`; the caller goes on byte by
// byte from there.
std::size_t equal_word_prefix(const char* a, const char* b, std::size_t span) {
  using Word = std::uint64_t;
  constexpr Word kLowBits = 0x0101010101010101u;
  constexpr Word kHighBits = 0x8080808080808080u;
  std::size_t i = 0;
  for (; i + sizeof(Word) <= span; i += sizeof(Word)) {
    Word x, y;
    std::memcpy(&x, a + i, sizeof x);
    std::memcpy(&y, b + i, sizeof y);
    // (x - 0x01..) & ~x & 0x80.. is non-zero exactly when x holds a zero byte.
    if (x != y || ((x - kLowBits) & ~x & kHighBits) != 0) break;
  }
  return i;
}

// Steps over at most `bound` - 1 equal bytes, stopping early at this string's
// terminator, and lets the collation decide on the pair where it stands. A
// bound of 0 or 1 decides on the first pair; SIZE_MAX means no bound.
// `known` is a count of bytes that both texts are known to hold (0 when not
// known): within it whole words are compared at a time, which never reads
// outside either text.
int bounded_order(const char* a, const char* b, std::size_t bound, std::size_t known = 0) {
  std::size_t i = equal_word_prefix(a, b, std::min(known, bound > 0 ? bound - 1 : 0));
  while (i + 1 < bound && a[i] != '\0' && a[i] == b[i]) ++i;
  return order_pair(a[i], b[i]);
}

// The bound of the operators and caselessEqual: the scratch buffer's size,
// which is also the longest text those operations are meant to see. The
// count is unsigned where it is used, so a host that answers a negative size
// sets no bound at all rather than the smallest one.
std::size_t temp_bound() {
  return static_cast<unsigned int>(txc::temp_buf_len());
}

// _strnicmp: both bytes folded to lower case, compared unsigned, over at most
// `count` bytes.
int caseless_order(const char* a, const char* b, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const int x = fold_lower(static_cast<unsigned char>(a[i]));
    const int y = fold_lower(static_cast<unsigned char>(b[i]));
    if (x != y) return x - y;
    if (x == 0) return 0;
  }
  return 0;
}

const char* or_empty(const char* text) { return text != nullptr ? text : ""; }

// ---- ordering -----------------------------------------------------------------

// Both lengths are known here, so the scan may go a word at a time.
std::size_t common_length(const vstring& a, const vstring& b) {
  return std::min(a.len(), b.len());
}

int order_within_temp_bound(const vstring& a, const vstring& b) {
  return bounded_order(a.optr(), b.optr(), temp_bound(), common_length(a, b));
}

}  // namespace

int vstring::compare(const vstring& other) const {
  return bounded_order(optr(), other.optr(), SIZE_MAX, common_length(*this, other));
}

int vstring::compareX(const vstring& other) const {
  // Exactly equal bytes are also equal without regard to case.
  const std::size_t same = equal_word_prefix(optr(), other.optr(), common_length(*this, other));
  const int caseless = caseless_order(optr() + same, other.optr() + same, SIZE_MAX);
  return caseless != 0 ? caseless : compare(other);
}

int vstring::CompareNoCase(vstring& other) const { return compareX(other); }

int vstring::CompareNoCase(const char* other) const {
  // A copy by the ordinary rules: a huge argument is reported as any huge
  // string is, and the comparison goes on.
  const vstring copy(other);
  return compareX(copy);
}

int vstring::cmp(vstring& other, unsigned int n) {
  return bounded_order(optr(), other.optr(), n, common_length(*this, other));
}

int vstring::cmp(const char* other, unsigned int n) {
  return bounded_order(optr(), or_empty(other), n);
}

int vstring::fcmp(const char* other, unsigned int n) { return cmp(other, n); }

int vstring::caselessEqual(const vstring& other) const {
  return caseless_order(optr(), other.optr(), temp_bound()) == 0 ? 1 : 0;
}

int vstring::caselessEqual(const char* other) const {
  return caseless_order(optr(), or_empty(other), temp_bound()) == 0 ? 1 : 0;
}

// ---- equality -----------------------------------------------------------------

int vstring::operator==(const vstring& other) const {
  return std::strcmp(optr(), other.optr()) == 0 ? 1 : 0;
}

int vstring::operator!=(const vstring& other) const { return *this == other ? 0 : 1; }

int vstring::operator==(const char* other) const {
  return std::strcmp(optr(), or_empty(other)) == 0 ? 1 : 0;
}

int vstring::operator!=(const char* other) const { return *this == other ? 0 : 1; }

int vstring::operator==(char c) const { return (len() == 1 && data[0] == c) ? 1 : 0; }

// ---- relational operators -------------------------------------------------------

int vstring::operator<(const vstring& other) const {
  return order_within_temp_bound(*this, other) < 0 ? 1 : 0;
}

int vstring::operator>(const vstring& other) const {
  return order_within_temp_bound(*this, other) > 0 ? 1 : 0;
}

int vstring::operator<=(const vstring& other) const {
  return order_within_temp_bound(*this, other) <= 0 ? 1 : 0;
}

int vstring::operator>=(const vstring& other) const {
  return order_within_temp_bound(*this, other) >= 0 ? 1 : 0;
}
