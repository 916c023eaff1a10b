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
// An entry that is not found behind the previous match is skipped: nothing
// is appended for it and the search point stays, so a missing entry costs
// nothing and the entries behind it still apply. (Reading "not found" as
// position 0, as the plain algorithm would, inserts to[k] at a wrong place
// and moves the search point back to the front.) Empty entries of `from` are
// skipped too; a `to` shorter than `from` gives empty texts for the rest.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>
#include <txCommon/vstringArray.h>
#include <common/convert64.h>

#include "edit_scratch.h"

#include <cstring>
#include <vector>

namespace {

struct Hit {
  unsigned at;   // 0-based offset of the match in the text
  unsigned len;  // bytes of from[k] replaced
  int k;         // the pair
};

}  // namespace

void vstring::replace_mult(vstringArray& from, vstringArray& to, int caseBlind) {
  vstring hay(*this);
  if (caseBlind != 0) hay.upr();
  const unsigned n = len();

  std::vector<Hit> hits;
  unsigned pos = 1;  // 1-based search point
  unsigned long long total = n;
  for (int k = 0; k < from.len(); ++k) {
    vstring& f = from[k];
    if (f.isNull()) continue;
    if (caseBlind != 0) f.upr();
    const int p = pos <= n ? hay.instr(f, 1, pos) : 0;
    if (p <= 0) continue;
    hits.push_back({static_cast<unsigned>(p) - 1, f.len(), k});
    pos = static_cast<unsigned>(p) + f.len();
    total = total - f.len() + to[k].len();
  }
  if (hits.empty()) return;
  if (total == 0) {
    clear();
    return;
  }

  vstring out;
  char* w = out.alloc(static_cast<unsigned>(convert64(static_cast<long long>(total))));
  const char* src = optr();
  unsigned from0 = 0;  // first byte of the text not yet copied
  for (const Hit& h : hits) {
    std::memcpy(w, src + from0, h.at - from0);
    w += h.at - from0;
    const vstring& t = to[h.k];
    std::memcpy(w, t.optr(), t.len());
    w += t.len();
    from0 = h.at + h.len;
  }
  std::memcpy(w, src + from0, n - from0);
  w[n - from0] = '\0';
  swap(out);
}
