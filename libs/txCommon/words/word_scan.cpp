// The word step: see word_scan.h for the rule.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/word_scan.h>

#include <cstring>

namespace {

bool is_separator(char c) {
  const auto u = static_cast<unsigned char>(c);
  return u >= 0x01 && u <= 0x20;
}

// End of the word that starts at `p`: a separator at depth 0 outside quotes,
// the end of the text, or the byte right behind a closing outer parenthesis.
// The next scan begins there too.
const char* word_end(const char* p) {
  bool inQuotes = false;
  int depth = 0;
  for (; *p != '\0'; ++p) {
    const char c = *p;
    if (is_separator(c)) {
      if (depth == 0 && !inQuotes) return p;
      continue;
    }
    if (isQuoteByte(c)) {
      inQuotes = !inQuotes;
      continue;
    }
    if (inQuotes) continue;
    if (c == '(') {
      ++depth;
    } else if (c == ')' && depth > 0) {
      if (--depth == 0 && !isWordContinuation(p[1])) return p + 1;
    }
  }
  return p;
}

}  // namespace

bool isWordContinuation(char c) {
  return c != '\0' && std::strchr("*+-./<=>^", c) != nullptr;
}

int nextWord(const char*& cursor, const char*& start, int& length, bool strip, bool* quoted) {
  static const char kEmpty[] = "";
  const char* p = cursor ? cursor : kEmpty;
  while (is_separator(*p)) ++p;
  start = p;
  if (*p == '\0') {
    cursor = p;
    length = 0;
    if (quoted) *quoted = false;
    return 0;
  }
  const char* end = word_end(p);
  cursor = end;
  length = static_cast<int>(end - p);
  // The first byte is tested again only when someone asks: a curly quote
  // costs the host a GetCodePage call at every test.
  if (!strip && quoted == nullptr) return 1;
  const bool isQuoted = isQuoteByte(*p);
  if (quoted) *quoted = isQuoted;
  if (strip && isQuoted && length >= 2 && isQuoteByte(end[-1])) {
    ++start;
    length -= 2;
  }
  return 1;
}
