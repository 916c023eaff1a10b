// GetElement and truncateList: the two positional operations that read bytes
// as signed values instead of following the word rule.
//
// Both treat every byte from 0x80 up like a blank, so a word with an accented
// letter splits where nextWord keeps it whole:
//
//   vstring("  a b").GetElement(1);       // "b"   (elements count from 0)
//   vstring("x\xE9y").GetElement(1);      // "y"
//   vstring("ab cd").truncateList(3);     // "ab"
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

// Bytes 0x21 to 0x7F make up an element; as a signed value every other byte
// (0x01-0x20, and 0x80-0xFF which are negative) is at or below the blank.
bool is_element_byte(char c) { return static_cast<signed char>(c) > ' '; }

// The start of element `n` (from 0) and its length; null when there are not
// that many elements.
const char* find_element(const char* p, int n, int* length) {
  for (int index = 0;; ++index) {
    while (*p != '\0' && !is_element_byte(*p)) ++p;
    if (*p == '\0') return nullptr;
    const char* start = p;
    while (is_element_byte(*p)) ++p;
    if (index == n) {
      *length = static_cast<int>(p - start);
      return start;
    }
  }
}

}  // namespace

vstring& vstring::GetElement(int n) {
  int length = 0;
  const char* element = n < 0 ? nullptr : find_element(optr(), n, &length);
  if (element == nullptr) return txc::next_temp().clear();
  // The element is built in the scratch buffer, which holds TempBufLen()
  // bytes and its terminator. A longer element is cut to TempBufLen() bytes,
  // the most that any operation working through that buffer ever sees of a
  // text; nothing is written past the buffer, whatever the host reports.
  const int room = txc::temp_buf_len();
  if (length > room) length = room > 0 ? room : 0;
  char* buffer = txc::temp_buf();
  for (int i = 0; i < length; ++i) buffer[i] = element[i];
  buffer[length] = '\0';
  return txc::next_temp().putch(txc::temp_buf(), length);
}

vstring& vstring::truncateList(int n) {
  const long long have = len();
  if (have <= n) return *this;
  // A negative limit keeps nothing: the walk below starts where no byte is.
  int k = n < 0 ? 0 : n;
  while (k > 0 && is_element_byte(data[k])) --k;
  return txc::next_temp().putch(optr(), k);
}
