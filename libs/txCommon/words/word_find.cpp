// WFind: the number of the word in a list that equals a given word.
//
//   int at = 0;
//   vstring("a b a").WFind("a", 0, &at, 0);   // 1, at == 0
//   vstring("a b a").WFind("a", 0, &at, 1);   // 3, at == 4 (the last one)
//   vstring("x").WFind("X", 1, &at, 0);       // 1: case-blind
//
// The word sought is taken as it stands, never scanned itself: quotes must
// match quotes, and a blank in it can only match a word that holds one.
#include <txCommon/internal/word_scan.h>
#include <txCommon/vstring.h>

#include <cstring>

namespace {

// ASCII folding, as the C locale's _strnicmp does; high bytes compare as
// they are.
int fold_lower(unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c; }

bool equal_ignoring_case(const char* a, const char* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (fold_lower(static_cast<unsigned char>(a[i])) !=
        fold_lower(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

}  // namespace

int vstring::WFind(const vstring& word, int ignoreCase, int* position, int findLast) {
  if (position != nullptr) *position = -1;
  const char* sought = word.optr();
  const auto soughtLength = static_cast<long long>(word.len());
  const char* text = optr();
  const char* cursor = text;
  const char* start = nullptr;
  int length = 0;
  int found = 0;
  for (int number = 1; nextWord(cursor, start, length); ++number) {
    if (length != soughtLength) continue;
    const bool same = ignoreCase == 0
                          ? std::memcmp(start, sought, static_cast<std::size_t>(length)) == 0
                          : equal_ignoring_case(start, sought, length);
    if (!same) continue;
    found = number;
    if (position != nullptr) *position = static_cast<int>(start - text);
    if (findLast == 0) return found;
  }
  return found;
}
