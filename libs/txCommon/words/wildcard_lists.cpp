// Word lists by wildcard pattern: WKeep, WDrop and WReplace.
//
//   vstring("x1 y1 x2").WKeep("x* y1");          // "x1 y1 x2": the list's order
//   vstring("x1 y1 x2").WDrop("x*");             // "y1"
//   vstring("a1 c1").WReplace("a*", "b*", false);   // "b1 c1"
//   vstring("a1 b").WReplace("a*", "x y*", false);  // "\"x y1\" b"
//
// Words are compared without their outer quotes, and a quoted word comes out
// between two plain `"` (so a curly pair under a 1252 host turns straight).
// Selection never touches std::regex; WReplace compiles one regular
// expression per word that matched, in the scratch buffer of the thread or
// the host, and copies each rewritten word out before the next.
#include <txCommon/StringSpool.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/wildcard.h>
#include <txCommon/internal/word_scan.h>
#include <txCommon/vstring.h>

#include <cctype>
#include <climits>

namespace {

constexpr int kMinSpool = 64;
// WReplace reports this when the two patterns do not carry the same
// wildcards in the same order.
constexpr int kPatternsDiffer = 828;

int spool_capacity(long long bytes) {
  if (bytes < kMinSpool) return kMinSpool;
  return bytes > INT_MAX - 1 ? INT_MAX - 1 : static_cast<int>(bytes);
}

// A blank in front of every word but the first (a word rewritten to nothing
// still counts), the word between two `"` when it gets quotes. An append the
// spool could not grow for is taken back whole, so that the result never
// holds half a word.
void append_word(StringSpool& out, bool first, const char* word, int length, bool quotes) {
  const int before = out.len();
  const int expected = before + (first ? 0 : 1) + length + (quotes ? 2 : 0);
  if (!first) out.cat(' ');
  if (quotes) out.cat('"');
  out.cat(word, length);
  if (quotes) out.cat('"');
  if (out.len() != expected) out.trunc(before);
}

vstring& spool_result(const StringSpool& out) {
  vstring& result = txc::next_temp();
  out.assign(result);
  return result;
}

vstring& copy_of(const vstring& text) { return txc::next_temp().put(text); }

bool matches_any(const char* word, int length, const vstring& patterns) {
  const char* cursor = patterns.optr();
  const char* start = nullptr;
  int patternLength = 0;
  while (nextWord(cursor, start, patternLength, true)) {
    if (wildcardMatch(word, length, start, patternLength)) return true;
  }
  return false;
}

// WKeep and WDrop differ in the one test `keep`.
vstring& select_words(const vstring& list, const vstring& patterns, bool keep) {
  StringSpool out(spool_capacity(list.len()));
  const char* cursor = list.optr();
  const char* start = nullptr;
  int length = 0;
  bool quoted = false;
  bool first = true;
  while (nextWord(cursor, start, length, true, &quoted)) {
    if (matches_any(start, length, patterns) != keep) continue;
    append_word(out, first, start, length, quoted);
    first = false;
  }
  return spool_result(out);
}

bool holds_space(const vstring& text) {
  const char* p = text.optr();
  for (; *p != '\0'; ++p) {
    if (std::isspace(static_cast<unsigned char>(*p))) return true;
  }
  return false;
}

bool holds_low_byte(const char* word, int length) {
  for (int i = 0; i < length; ++i) {
    const auto u = static_cast<unsigned char>(word[i]);
    if (u >= 0x01 && u <= 0x20) return true;
  }
  return false;
}

}  // namespace

vstring& vstring::WKeep(const vstring& patterns) const { return select_words(*this, patterns, true); }

vstring& vstring::WDrop(const vstring& patterns) const {
  return select_words(*this, patterns, false);
}

vstring& vstring::WReplace(const vstring& source, const vstring& destination,
                           bool firstOnly) const {
  StringSpool out(spool_capacity(static_cast<long long>(len()) * 5 / 4));
  const char* src = source.optr();
  const int srcLength = static_cast<int>(source.len());
  const char* dst = destination.optr();
  const int dstLength = static_cast<int>(destination.len());
  if (!wildcardsCompatible(src, srcLength, dst, dstLength)) {
    txc::report_error(kPatternsDiffer);
    return copy_of(*this);
  }
  const bool spaceInDestination = holds_space(destination);
  const bool spaceInSource = holds_space(source);

  const char* cursor = optr();
  const char* start = nullptr;
  int length = 0;
  bool quoted = false;
  bool first = true;
  while (nextWord(cursor, start, length, true, &quoted)) {
    const char* word = start;
    int wordLength = length;
    if (wildcardMatch(start, length, src, srcLength) &&
        txc::ensure_temp_buf_bounded(length + dstLength) != 0) {
      char* scratch = txc::temp_buf();
      int rewritten = 0;
      if (!wildcardReplace(scratch, &rewritten, start, length, src, srcLength, dst, dstLength,
                           false, false, firstOnly, txc::temp_buf_len())) {
        return copy_of(*this);
      }
      word = scratch;
      wordLength = rewritten;
    }
    bool quotes = false;
    if (quoted && !spaceInSource) {
      quotes = true;
    } else if (!quoted && !spaceInDestination) {
      quotes = false;
    } else {
      quotes = holds_low_byte(word, wordLength);
    }
    append_word(out, first, word, wordLength, quotes);
    first = false;
  }
  return spool_result(out);
}
