// vstring: inserting and overwriting a piece of text.
//
// insert() lays the new text out in the scratch buffer, and so it first asks
// whether the two lengths together fit: with a host through EnsureTempBuf,
// without one by the fixed bound of 8192 bytes (not the size of the built-in
// buffer, which is far larger). A refusal changes nothing and is not
// reported. insertPart() overwrites in place and never changes the length.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

#include <cstring>

namespace {

// Extra room asked of a host once the insertion is accepted.
constexpr unsigned kInsertSlack = 1000;

}  // namespace

// `part` goes behind the first `position` bytes. Nothing happens for an empty
// `part`, a `position` below 1 (text cannot go in front with this method),
// a refusal by the size test, or a result longer than the host's TempBufLen().
// A `position` beyond the length appends.
vstring& vstring::insert(vstring& part, int position) {
  const unsigned add = part.len();
  if (add == 0 || position <= 0) return *this;
  const unsigned n = len();
  if (txc::ensure_temp_buf_bounded(txc::scratch_need(n, add)) == 0) return *this;
  txc::ensure_temp_buf(txc::scratch_need(n, kInsertSlack));

  const unsigned cut = static_cast<unsigned>(position) < n ? static_cast<unsigned>(position) : n;
  txc::ScratchWriter out;
  // A host may answer yes and still hand out less room than that.
  if (!out.fits(static_cast<unsigned>(txc::scratch_need(n, add)))) return *this;
  out.put(optr(), cut);
  out.put(part.optr(), add);
  out.put(optr() + cut, n - cut);
  return out.assign_to(*this);
}

// Overwrites bytes from the 0-based `offset` on with the bytes of `part`, as
// many as fit in front of the end. The length stays and no terminator is
// written; an `offset` outside the text changes nothing.
void vstring::insertPart(vstring& part, int offset) {
  const unsigned n = len();
  if (offset < 0 || static_cast<unsigned>(offset) >= n) return;
  const unsigned room = n - static_cast<unsigned>(offset);
  const unsigned take = part.len() < room ? part.len() : room;
  if (take > 0 && part.optr() != data + offset) std::memmove(data + offset, part.optr(), take);
}
