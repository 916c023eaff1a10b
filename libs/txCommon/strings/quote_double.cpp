// vstring: doubling and undoubling quote bytes.
//
// Inside a quoted word a quote is written twice. These two convert a text to
// and from that form without adding or removing the outer quotes. Every
// quote byte counts ('"', and 0x93/0x94 under a host with code page 1252),
// but the byte added is always a plain '"': 0x93 becomes 0x93 '"'.
// ConvertFromDblQuotes knows no quoted state, so """" becomes "" and not ".
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

namespace {

// Room asked of the host beyond the text. It does not grow with the number
// of quotes; the scratch rule (edit_scratch.h) bounds what does not fit.
constexpr unsigned kDoublingSlack = 128;

}  // namespace

// Behind each quote byte one '"' is written. A text that outgrows the scratch
// buffer is cut in front of the first byte whose output does not fit, so a
// quote never loses its double.
vstring& vstring::ConvertToDblQuotes() {
  const char* p = optr();
  const unsigned n = len();
  txc::ensure_temp_buf(txc::scratch_need(n, kDoublingSlack));
  txc::ScratchWriter out;
  for (unsigned i = 0; i < n; ++i) {
    const char pair[2] = {p[i], '"'};
    if (!out.put(pair, isQuoteByte(p[i]) ? 2 : 1)) break;
  }
  return out.assign_to(*this);
}

// In place, left to right: a quote byte followed by a quote byte keeps the
// first, drops the second, and the scan goes on behind both. The storage is
// then fitted as trunc does.
vstring& vstring::ConvertFromDblQuotes() {
  const unsigned n = len();
  unsigned w = 0;
  for (unsigned i = 0; i < n; ++i) {
    data[w++] = data[i];
    if (isQuoteByte(data[i]) && i + 1 < n && isQuoteByte(data[i + 1])) ++i;
  }
  if (w == n) return *this;
  return trunc(static_cast<int>(w));
}
