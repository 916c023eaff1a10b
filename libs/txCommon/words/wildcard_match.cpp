// Wildcard matching and the compatibility test of two patterns.
//
// The matcher walks the literal head of the pattern, then takes the segments
// between runs of `*` one by one: an inner segment at its first fit, the last
// one anchored at the end of the text. For patterns of `*` and `?` alone the
// first fit is never worse than a later one, so nothing is revisited and
// nothing is allocated.
//
//   wildcardMatch("aXbXc", 5, "a*b*c", 5);   // true
//   wildcardMatch("abab", 4, "*ab", 3);      // true: last segment at the end
//   wildcardsCompatible("a*b?", 4, "*x?", 3);  // true: `*` then `?` in both
#include <txCommon/internal/wildcard.h>
#include <txCommon/vstring.h>

#include <cstring>

namespace {

// A view of a pattern or text that never reads past its length.
struct Bytes {
  const char* p;
  int n;
};

Bytes bytes(const char* p, int n) { return Bytes{p, (p == nullptr || n < 0) ? 0 : n}; }

// `segment` against the `segment.n` bytes at `at`, `?` taking any byte.
bool segment_fits(const char* at, Bytes segment) {
  for (int i = 0; i < segment.n; ++i) {
    if (segment.p[i] != '?' && segment.p[i] != at[i]) return false;
  }
  return true;
}

// Offset of the first `*` of the pattern at or behind `from`, or its length.
int next_star(Bytes pattern, int from) {
  while (from < pattern.n && pattern.p[from] != '*') ++from;
  return from;
}

}  // namespace

bool wildcardMatch(const char* textBytes, int textLength, const char* patternBytes,
                   int patternLength) {
  const Bytes text = bytes(textBytes, textLength);
  const Bytes pattern = bytes(patternBytes, patternLength);
  int t = 0;
  int p = 0;
  // The literal head, up to the first `*`.
  for (; p < pattern.n && pattern.p[p] != '*'; ++p, ++t) {
    if (t >= text.n) return false;
    if (pattern.p[p] != '?' && pattern.p[p] != text.p[t]) return false;
  }
  if (p == pattern.n) return t == text.n;
  for (;;) {
    while (p < pattern.n && pattern.p[p] == '*') ++p;
    if (p == pattern.n) return true;
    const int end = next_star(pattern, p);
    const Bytes segment{pattern.p + p, end - p};
    if (end == pattern.n) {
      // The last segment must close the text.
      if (text.n - t < segment.n) return false;
      return segment_fits(text.p + text.n - segment.n, segment);
    }
    int at = t;
    while (at + segment.n <= text.n && !segment_fits(text.p + at, segment)) ++at;
    if (at + segment.n > text.n) return false;
    t = at + segment.n;
    p = end;
  }
}

bool wildcardsCompatible(const char* firstBytes, int firstLength, const char* secondBytes,
                         int secondLength) {
  const Bytes first = bytes(firstBytes, firstLength);
  const Bytes second = bytes(secondBytes, secondLength);
  bool starOpen = false;
  int cursor = 0;
  for (int i = 0; i < first.n; ++i) {
    const char c = first.p[i];
    if (c != '*' && c != '?') {
      starOpen = false;
      continue;
    }
    // `?` does not close a `*`: `*?*` has no literal byte between its stars.
    if (c == '*') {
      if (starOpen) return false;
      starOpen = true;
    }
    const char other = c == '*' ? '?' : '*';
    while (cursor < second.n && second.p[cursor] != c) {
      if (second.p[cursor] == other) return false;
      ++cursor;
    }
    if (cursor == second.n) return false;
    ++cursor;
  }
  for (; cursor < second.n; ++cursor) {
    if (second.p[cursor] == '*' || second.p[cursor] == '?') return false;
  }
  return true;
}

int vstring::hasWildCard(int alsoQuestionMark) const {
  // The text ends at its first zero byte, as everywhere in the word lists.
  const char* p = optr();
  if (std::strchr(p, '*') != nullptr) return 1;
  return (alsoQuestionMark != 0 && std::strchr(p, '?') != nullptr) ? 1 : 0;
}
