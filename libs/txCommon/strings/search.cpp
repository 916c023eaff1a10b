// vstring: where a byte or a text stands.
//
// Two families with deliberately different position rules, because callers
// throughout the library depend on both:
//  - text forms (instr/rinstr with a needle) accept a `start` equal to the
//    length and search the last byte from there;
//  - byte forms (instr/rinstr with a char) give 0 for a `start` equal to the
//    length, and rinstr(char) never reports a byte at position 1.
// Positions are 1-based throughout; 0 is "not found". Text scans end at the
// first zero byte; the counted backward byte scan reads the len() bytes.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

int position_of(const char* text, const char* at) {
  return static_cast<int>(at - text) + 1;
}

// The shared forward text search behind every instr/instrsub form.
int forward_text(const char* data, unsigned length, const char* needle,
                 unsigned occurrence, unsigned start) {
  if (data == nullptr || needle == nullptr) return 0;
  if (start == 0) start = 1;
  if (start > length) return 0;
  if (occurrence == 0) return static_cast<int>(start - 1);
  const char* from = data + (start - 1);
  const char* match = nullptr;
  for (unsigned found = 0; found < occurrence; ++found) {
    if (match != nullptr) {
      // An empty needle matches even at the terminator; nothing lies behind it.
      if (*match == '\0') return 0;
      from = match + 1;
    }
    match = std::strstr(from, needle);
    if (match == nullptr) return 0;
  }
  return position_of(data, match);
}

// The shared reverse text search. Each forward search starts one byte behind
// the previous match, so the forward matches are exactly the places where
// `needle` occurs; the `occurrence`-th of them counted from the back among
// those starting at or before `limit` is therefore found by checking those
// places from the back, with no repeated forward passes. As with strstr, the
// text ends at its first zero byte, and an empty needle also matches at the
// terminator.
//
// The answer is forward match number (count up to `limit`) - occurrence + 1,
// so occurrence 0 names the match after the last one counted: the first
// match that starts behind `limit`.
int reverse_text(const char* data, unsigned length, const char* needle,
                 unsigned occurrence, unsigned limit) {
  if (data == nullptr || needle == nullptr || length == 0) return 0;
  if (limit == 0) limit = length;
  const std::size_t textLen = std::strlen(data);
  if (occurrence == 0) {
    if (limit > textLen) return 0;
    const char* next = std::strstr(data + limit, needle);
    return next == nullptr ? 0 : position_of(data, next);
  }
  const std::size_t needleLen = std::strlen(needle);
  if (needleLen > textLen) return 0;
  // 0-based offset of the latest place a match may start.
  std::size_t at = std::min<std::size_t>(limit - 1, textLen - needleLen);
  unsigned count = 0;
  for (;;) {
    if (std::memcmp(data + at, needle, needleLen) == 0 && ++count == occurrence) {
      return static_cast<int>(at) + 1;
    }
    if (at == 0) return 0;
    --at;
  }
}

}  // namespace

// ---- forward ----------------------------------------------------------------

int vstring::instr(vstring& needle, unsigned int occurrence, unsigned int start) const {
  return forward_text(data, len(), needle.optr(), occurrence, start);
}

int vstring::instr(const char* needle, unsigned int occurrence, unsigned int start) const {
  return forward_text(data, len(), needle, occurrence, start);
}

int vstring::instrsub(char* const needle, unsigned int occurrence, unsigned int start) const {
  return forward_text(data, len(), needle, occurrence, start);
}

int vstring::instr(char c, unsigned int occurrence, unsigned int start) const {
  const unsigned length = len();
  if (data == nullptr) return 0;
  // Unlike the text forms, a start at the last byte is already out of range.
  if (start != 0 && start >= length) return 0;
  if (start == 0) start = 1;
  if (occurrence == 0) return static_cast<int>(start - 1);
  unsigned count = 0;
  for (const char* p = data + (start - 1); *p != '\0'; ++p) {
    if (*p == c && ++count == occurrence) return position_of(data, p);
  }
  return 0;
}

int vstring::instr(char c) const {
  if (data == nullptr || c == '\0') return 0;
  const char* p = std::strchr(data, c);
  return p == nullptr ? 0 : position_of(data, p);
}

int vstring::inchar(int c) const { return instr(static_cast<char>(c)); }

int vstring::incharnq(int c) const {
  if (data == nullptr) return 0;
  const char wanted = static_cast<char>(c);
  bool quoted = false;
  for (const char* p = data; *p != '\0'; ++p) {
    // Compared before the toggle, so an opening quote can itself be found.
    if (!quoted && *p == wanted) return position_of(data, p);
    if (isQuoteByte(*p)) quoted = !quoted;
  }
  return 0;
}

// ---- backward ---------------------------------------------------------------

int vstring::rinstr(vstring& needle, unsigned int occurrence, unsigned int limit) const {
  return reverse_text(data, len(), needle.optr(), occurrence, limit);
}

int vstring::rinstr(const char* needle, unsigned int occurrence, unsigned int limit) const {
  return reverse_text(data, len(), needle, occurrence, limit);
}

int vstring::rinstrsub(char* const needle, unsigned int occurrence, unsigned int limit) const {
  return reverse_text(data, len(), needle, occurrence, limit);
}

int vstring::rinstr(char c, unsigned int occurrence, unsigned int limit) const {
  const unsigned length = len();
  if (data == nullptr || length == 0) return 0;
  const unsigned from = (limit == 0 || limit >= length) ? length : limit;
  if (occurrence == 0) return static_cast<int>(from + 1);
  unsigned count = 0;
  for (unsigned pos = from; pos >= 1; --pos) {
    if (data[pos - 1] == c && ++count == occurrence) return static_cast<int>(pos);
  }
  return 0;
}

int vstring::rinstr(char c) const {
  if (data == nullptr || c == '\0') return 0;
  const char* p = std::strrchr(data, c);
  // A byte at position 1 is not reported: callers read 0 as "no separator
  // inside the text".
  if (p == nullptr || p == data) return 0;
  return position_of(data, p);
}

int vstring::rinchar(int c) const { return rinstr(static_cast<char>(c)); }

// ---- counting -----------------------------------------------------------------

txlong vstring::CharCount(char c) {
  if (data == nullptr || c == '\0') return 0;
  txlong count = 0;
  for (const char* p = data; *p != '\0'; ++p) {
    if (*p == c) ++count;
  }
  return count;
}

int vstring::MatchingStartChars(const vstring& other) {
  const unsigned mine = len();
  const unsigned theirs = other.len();
  if (mine == 0 || theirs == 0) return 0;
  const char* a = data;
  const char* b = other.optr();
  // Terminators are compared too, so equal texts share length + 1 bytes. The
  // second bound matters only for texts with zero bytes inside their length.
  unsigned i = 0;
  while (i <= mine && i <= theirs && a[i] == b[i]) ++i;
  return static_cast<int>(i);
}
