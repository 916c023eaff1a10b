// vstring: replacing several texts in one pass (replace_mult by arrays).
//
// The pairs from[k] -> to[k] are applied in array order while the text is
// read once from left to right: each search starts behind the previous
// match, so the entries of `from` are expected in the order in which they
// stand in the text. This is how a statement with several named arguments is
// rewritten in one go:
//
//   from = {"%1", "%2"},  to = {"GDP", "CPI"}
//   "genr %1 = log(%2)"  ->  "genr GDP = log(CPI)"
//
// With caseBlind the search runs on an upper-cased copy (the host's
// UpperBuffer), and the entries of `from` are upper-cased in the array
// itself; outside the replaced pieces the text keeps its own case.
//
// An entry that is not found behind the search point counts as found at
// position 0: to[k] is appended all the same, and the search point falls back
// to the length of from[k], so text in front of the next match may be copied
// a second time. Callers rely on the entries standing in order; the pass
// keeps this long-standing behaviour rather than guess at a better one:
//
//   "a c", from = {"a", "zz", "c"}, to = {"1", "2", "3"}  ->  "12 3"
//
// Empty entries of `from` are skipped; a `to` shorter than `from` gives
// empty texts for the rest.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>
#include <txCommon/vstringArray.h>
#include <common/convert64.h>

#include "edit_scratch.h"

#include <string>

void vstring::replace_mult(vstringArray& from, vstringArray& to, int caseBlind) {
  vstring hay(*this);
  if (caseBlind != 0) hay.upr();
  const char* src = optr();
  const unsigned long long n = len();

  std::string out;
  unsigned long long pos = 1;  // 1-based search point; may lie behind the end
  for (int k = 0; k < from.len(); ++k) {
    vstring& f = from[k];
    if (f.isNull()) continue;
    if (caseBlind != 0) f.upr();
    const int found = pos <= n ? hay.instr(f, 1, static_cast<unsigned>(pos)) : 0;
    const unsigned long long p = found > 0 ? static_cast<unsigned long long>(found) : 0;
    // Bytes from pos up to p: none when the entry was not found (p is 0).
    if (p > pos) out.append(src + (pos - 1), static_cast<std::size_t>(p - pos));
    const vstring& t = to[k];
    out.append(t.optr(), t.len());
    pos = p + f.len();
  }
  // right(length - pos + 1): the rest behind the search point, if any.
  if (pos <= n) out.append(src + (pos - 1), static_cast<std::size_t>(n - pos + 1));
  txc::assign_bytes(*this, out.data(), static_cast<unsigned>(convert64(static_cast<long long>(out.size()))));
}
