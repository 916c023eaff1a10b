// vstring: putting double quotes around a text and taking them off.
//
// Text with blanks travels through word lists in double quotes, a quote
// inside written twice:  a "b" c  travels as  "a ""b"" c".  MakeQuoted makes
// that form and looks at '"' alone; the scans that decide whether quotes are
// needed or present also know 0x93/0x94 under a host with code page 1252.
//
// The quoting results are laid out in the scratch buffer, by the rule of
// edit_scratch.h: the closing quote is reserved first, the text goes in while
// it fits (a doubled quote as one unit), so a text too long for the buffer
// comes out as a well-formed quoted head of itself.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "edit_scratch.h"

#include <cctype>

namespace {

// Room asked of the host beyond the text: the two quotes and a little spare.
constexpr unsigned kSurroundSlack = 4;
// The two quotes around a MakeQuoted text.
constexpr unsigned kOuterQuotes = 2;

unsigned count_plain_quotes(const char* p, unsigned n) {
  unsigned count = 0;
  for (unsigned i = 0; i < n; ++i) count += p[i] == '"' ? 1 : 0;
  return count;
}

}  // namespace

// '"' + text + '"'; quotes inside stay as they are. "" for an empty text.
vstring& vstring::SurroundWithQuotes() {
  const unsigned n = len();
  txc::ensure_temp_buf(txc::scratch_need(n, kSurroundSlack));
  txc::ScratchWriter out(1);
  out.put('"');
  const char* p = optr();
  if (!out.put(p, n)) {
    for (unsigned i = 0; i < n && out.put(p[i]); ++i) {
    }
  }
  out.close('"');
  return out.assign_to(*this);
}

// '"' + text with each '"' doubled + '"'. 0x93 and 0x94 are not doubled, and
// a quoted text gets a second layer: "a" becomes """a""".
vstring& vstring::MakeQuoted() {
  const char* p = optr();
  const unsigned n = len();
  const unsigned quotes = count_plain_quotes(p, n);
  txc::ensure_temp_buf(txc::scratch_need(n, quotes + kOuterQuotes));
  static const char kDoubled[2] = {'"', '"'};
  txc::ScratchWriter out(1);
  out.put('"');
  for (unsigned i = 0; i < n; ++i) {
    const bool fitted = p[i] == '"' ? out.put(kDoubled, 2) : out.put(p[i]);
    if (!fitted) break;
  }
  out.close('"');
  return out.assign_to(*this);
}

vstring& vstring::AddQuotesEx() { return MakeQuoted(); }

// MakeQuoted when the text holds white space (isspace: blank, \t \n \v \f
// \r). With ignoreQuoted, white space inside quote bytes does not count, so
// `"a b"` stays while `"a b" c` becomes `"""a b"" c"`. An empty text stays.
vstring& vstring::AddQuotesIfNecessary(bool ignoreQuoted) {
  const char* p = optr();
  const unsigned n = len();
  bool quoted = false;
  unsigned quotes = 0;
  for (unsigned i = 0; i < n; ++i) {
    if (std::isspace(static_cast<unsigned char>(p[i])) && (!ignoreQuoted || !quoted)) {
      txc::ensure_temp_buf(txc::scratch_need(n, quotes + kOuterQuotes));
      return MakeQuoted();
    }
    if (isQuoteByte(p[i])) {
      quoted = !quoted;
      ++quotes;
    }
  }
  return *this;
}

// Takes off the first and the last byte when both are quote bytes, of either
// kind, and nothing else. `"` alone, `"a` and `"a" ` stay; `""` becomes empty
// and releases its block.
vstring& vstring::StripQuotes() {
  const unsigned n = len();
  if (n < 2 || !isQuoteByte(data[0]) || !isQuoteByte(data[n - 1])) return *this;
  if (n == 2) return clear();
  return put(mid(2, static_cast<int>(n) - 2));
}
