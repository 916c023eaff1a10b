// WCross: every pair of a word of this list and a word of another, formed
// through a pattern with two `?`.
//
//   vstring("a b").WCross("x y", "?_?");   // a_x a_y b_x b_y
//   vstring("a b").WCross("x", "");        // ax bx
//   vstring("a").WCross("x", "p? ?q");     // "pa xq"
//
// Words are read by the statement scanner (command::word(0)) and lose their
// outer quotes; an item that holds a blank is quoted anew, so that the result
// is again a list of exactly one word per pair.
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "compose_out.h"

#include <cstring>

namespace {

// Code reported for a pattern that is not empty and has other than two `?`.
constexpr int kBadPattern = 2115;
constexpr int kSpoolCapacity = 2048;

struct PatternParts {
  vstring prefix;
  vstring middle;
  vstring suffix;
};

bool is_separator(char c) { return c >= 0x01 && c <= 0x20; }

// Cuts the pattern, trimmed of bytes 0x01-0x20 at both ends, at its two `?`.
// An empty pattern gives three empty parts. The parts are kept in strings of
// their own, not in the scratch buffer, because every word read below writes
// there; so a pattern of any length fits.
bool split_pattern(const vstring& pattern, PatternParts& parts) {
  const char* p = pattern.optr();
  std::size_t end = std::strlen(p);
  std::size_t start = 0;
  while (start < end && is_separator(p[start])) ++start;
  while (end > start && is_separator(p[end - 1])) --end;
  if (start == end) return true;

  const char* first = static_cast<const char*>(std::memchr(p + start, '?', end - start));
  if (first == nullptr) return false;
  const char* second = static_cast<const char*>(std::memchr(first + 1, '?', p + end - first - 1));
  if (second == nullptr || std::memchr(second + 1, '?', p + end - second - 1) != nullptr) {
    return false;
  }
  // Blanks next to a `?` belong to the pattern; only the outer ends go.
  parts.prefix = vstring(p + start, static_cast<txlong>(first - (p + start))).ltrim();
  parts.middle = vstring(first + 1, static_cast<txlong>(second - first - 1));
  parts.suffix = vstring(second + 1, static_cast<txlong>(p + end - second - 1)).rtrim();
  return true;
}

// prefix + left + middle + right + suffix, quoted when it holds a blank.
bool append_item(txc::ComposeOut& out, const PatternParts& parts, const vstring& left,
                 const vstring& right) {
  vstring item(parts.prefix);
  item.cat(left).cat(parts.middle).cat(right).cat(parts.suffix);
  if (std::memchr(item.optr(), ' ', item.len()) != nullptr) item.MakeQuoted();
  return out.piece(" ", 1, item.optr(), static_cast<int>(item.len()));
}

}  // namespace

vstring& vstring::WCross(const vstring& other, const vstring& pattern) const {
  PatternParts parts;
  if (!split_pattern(pattern, parts)) {
    txc::report_error(kBadPattern);
    return txc::next_temp().clear();
  }
  txc::ComposeOut out(kSpoolCapacity, txc::ComposeOut::kResultLimit);
  command mine(*this);
  command theirs(other);
  while (!out.full()) {
    // Copied out of the ring: the inner loop takes many temporaries.
    vstring left(mine.word(0));
    if (left.len() == 0) break;
    left.StripQuotesEx();
    theirs.reset();
    while (!out.full()) {
      vstring& right = theirs.word(0);
      if (right.len() == 0) break;
      append_item(out, parts, left, right.StripQuotesEx());
    }
  }
  return out.finish();
}
