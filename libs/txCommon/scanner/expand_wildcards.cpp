// A new list of names from a wildcard pattern and the words of a command.
//
//   command("a b").ExpandListWithWildcards(pattern)
//     pattern x*    ->  XA XB      each word stands in for the `*`
//     pattern *_y   ->  A_Y B_Y
//     pattern abc   ->  ABC        no wildcard: the pattern is the list
//
// Each word is rewritten from the source `*` to the pattern, case-blind and
// first-only, so a pattern must carry exactly one `*` and no `?`; any other
// is reported (828) and gives the empty result. The rewrites land in one
// buffer for the whole process, which is why two threads must not expand at
// once; a word and a pattern are each cut to 128 bytes before the rewrite,
// so one rewrite needs at most 128 + 127 bytes of it.
#include <txCommon/StringSpool.h>
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/wildcard.h>

#include <cstring>

namespace {

// Bytes of the rewrite buffer shared by the whole process (no lock).
constexpr int kExpandBufferSize = 32768;
char expandBuffer[kExpandBufferSize];

// A word and the pattern count up to this many bytes in a rewrite.
constexpr int kPieceLimit = 128;
constexpr int kPatternsDiffer = 828;

// The length of the piece of `text` up to its first byte below 33 (read
// unsigned, so bytes of 0x80 and up stay), at most kPieceLimit.
int piece_length(const char* text) {
  int n = 0;
  while (n < kPieceLimit && static_cast<unsigned char>(text[n]) >= 33) ++n;
  return n;
}

bool has_wildcard(const vstring& text) {
  const char* p = text.optr();
  return std::strchr(p, '*') != nullptr || std::strchr(p, '?') != nullptr;
}

vstring& empty_result() { return txc::next_temp().clear(); }

}  // namespace

vstring& command::ExpandListWithWildcards(vstring& pattern) {
  if (txc::error_pending() != 0 || len() == 0) return empty_result();
  vstring list;
  if (!has_wildcard(pattern)) {
    list = pattern;
  } else {
    offset = 0;
    prevOffset = 0;
    const char* destination = pattern.optr();
    const int destinationLength = piece_length(destination);
    command words(static_cast<const vstring&>(*this));
    StringSpool spool(static_cast<int>(len()));
    for (bool first = true;; first = false) {
      const vstring& w = words.word(1);
      if (w.len() == 0) break;
      int rewritten = 0;
      if (!wildcardReplace(expandBuffer, &rewritten, w.optr(), piece_length(w.optr()), "*", 1,
                           destination, destinationLength, true, true, true, kExpandBufferSize)) {
        txc::report_error(kPatternsDiffer);
        return empty_result();
      }
      if (txc::error_pending() != 0) return empty_result();
      if (!first) spool.cat(' ');
      spool.cat(expandBuffer, rewritten);
    }
    spool.assign(list);
  }
  if (txc::error_pending() != 0 || list.len() == 0) return empty_result();
  vstring& result = txc::next_temp();
  result.put(list);
  return result.upr();
}
