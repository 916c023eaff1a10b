// vstring: replacing a text by another.
//
// One left-to-right pass with an input and an output position. A match is
// replaced and reading goes on behind it, so replacements never overlap and
// are never rescanned: replacing "a" by "aa" terminates. The result is laid
// out in the scratch buffer and stops where the buffer does (see
// edit_scratch.h for the rule the editing operations share).
//
//   vstring s("aXa");
//   s.replace_mult("a", "bb", 9999999, 0);   // "bbXbb"
//   s.replace_mult("B", "c", 1, 1);          // "cbXbb": first one, case-blind
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

#include <cctype>
#include <cstring>

namespace {

// What "every replacement" means to replace(): more than any text of the
// statement language holds.
constexpr int kAllMatches = 9999999;

// Extra room asked of the host beyond the text itself, for the growth of a
// typical replacement.
constexpr unsigned kReplaceSlack = 1000;

bool same_upper(char a, char b) {
  return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
}

// Does `from` (m >= 1 bytes) stand at `at`, with `left` bytes of text there?
bool matches_at(const char* at, unsigned left, const char* from, unsigned m, bool caseBlind) {
  if (m > left) return false;
  if (!caseBlind) return at[0] == from[0] && std::memcmp(at, from, m) == 0;
  for (unsigned i = 0; i < m; ++i) {
    if (!same_upper(at[i], from[i])) return false;
  }
  return true;
}

}  // namespace

// Replaces up to maxCount matches of `from` by `to`. An empty `from` matches
// in front of the first byte, maxCount times, consuming nothing: `to` is put
// in front that often. A maxCount below 1 replaces nothing.
//
// The pass stops once the output has reached TempBufLen() minus the length
// of `to`, so that one more replacement always fits: the result is at most
// TempBufLen() - 1 bytes, and a `to` longer than the buffer leaves an empty
// text. What is left of the source then is dropped without a report.
vstring& vstring::replace_mult(vstring from, vstring to, int maxCount, int caseBlind) {
  const unsigned n = len();
  txc::ensure_temp_buf(txc::scratch_need(n, kReplaceSlack));
  const char* src = optr();
  const char* f = from.optr();
  const unsigned m = from.len();
  const char* t = to.optr();
  const unsigned tl = to.len();
  const bool blind = caseBlind != 0;

  char* out = txc::temp_buf();
  const long long bound = static_cast<long long>(txc::temp_buf_len()) - tl;
  long long o = 0;  // output position; stays below bound + tl <= TempBufLen()
  int count = 0;
  unsigned in = 0;
  if (m == 0 && tl == 0) count = maxCount;  // empty for empty: nothing to insert, however often
  while (in < n && o < bound) {
    if (count < maxCount && (m == 0 || matches_at(src + in, n - in, f, m, blind))) {
      std::memcpy(out + o, t, tl);
      o += tl;
      in += m;
      ++count;
      continue;
    }
    // Bytes that cannot start a match go over in one run: up to the next
    // copy of from's first byte, or all the rest once matching is over.
    unsigned run = 1;
    if (count >= maxCount) {
      run = n - in;
    } else if (!blind) {
      const void* next = std::memchr(src + in + 1, f[0], n - in - 1);
      run = next != nullptr ? static_cast<unsigned>(static_cast<const char*>(next) - (src + in)) : n - in;
    }
    if (static_cast<long long>(run) > bound - o) run = static_cast<unsigned>(bound - o);
    std::memcpy(out + o, src + in, run);
    o += run;
    in += run;
  }
  const unsigned size = o > 0 ? static_cast<unsigned>(o) : 0;
  out[size] = '\0';
  return txc::assign_bytes(*this, out, size);
}

void vstring::replace(vstring from, vstring to, int firstOnly, int caseBlind) {
  replace_mult(from, to, firstOnly != 0 ? 1 : kAllMatches, caseBlind);
}

void vstring::caselessReplace(vstring from, vstring to, int firstOnly) {
  replace_mult(from, to, firstOnly != 0 ? 1 : kAllMatches, 1);
}
