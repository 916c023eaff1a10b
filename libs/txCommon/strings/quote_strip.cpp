// vstring: the strict removal of outer quotes (StripQuotesEx).
//
// Word() hands this method a word as it stood in a list, perhaps with blanks
// behind it. The outer quotes come off and doubled quotes inside are
// undoubled, but only when the outer pair really pairs:
//
//   "a"        ->  a            "a""b"   ->  a"b
//   "a"b"      ->  a"b          """"     ->  "
//   "a" "b"    stays: two quoted pieces, not one
//
// Walking the inner bytes with a flag that starts inside the quotes, each
// lone quote toggles it. Ending inside after some lone quotes means an even
// number of them stood between the ends, as in "a" "b": then the outer
// quotes may not belong together, and the result stands only when it is
// itself enclosed in quotes ("" "" gives " "). Otherwise the text stays as
// it was.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

struct InnerScan {
  unsigned kept = 0;       // bytes left after undoubling
  bool inside = true;      // still inside the outer quotes at the end
  bool allDoubled = true;  // no lone quote met
};

// Walks inner[0..n): a quote followed by a quote keeps one of them; a lone
// quote toggles `inside`. With `out`, the kept bytes are written there
// (which may be `inner` itself, shifted down).
InnerScan scan_inner(const char* inner, unsigned n, char* out) {
  InnerScan r;
  for (unsigned i = 0; i < n; ++i) {
    const char c = inner[i];
    if (out != nullptr) out[r.kept] = c;
    ++r.kept;
    if (!isQuoteByte(c)) continue;
    if (i + 1 < n && isQuoteByte(inner[i + 1])) {
      ++i;  // the second of a doubled pair goes
    } else {
      r.inside = !r.inside;
      r.allDoubled = false;
    }
  }
  return r;
}

}  // namespace

vstring& vstring::StripQuotesEx() {
  const unsigned n = len();
  if (n == 0) return *this;
  // Only blanks (0x20) may follow the closing quote.
  unsigned e = n - 1;
  while (e > 0 && data[e] == ' ') --e;
  if (e < 1 || !isQuoteByte(data[0]) || !isQuoteByte(data[e])) return *this;

  const char* inner = data + 1;
  const unsigned innerLen = e - 1;
  // Decide first, on the unchanged text, so that a refusal needs no copy.
  const InnerScan dry = scan_inner(inner, innerLen, nullptr);
  if (dry.inside && !dry.allDoubled) {
    // Where the result's first and last bytes come from: the first inner
    // byte, and the last one (a doubled pair at the end leaves its first).
    const bool enclosed = dry.kept >= 2 && isQuoteByte(inner[0]) && isQuoteByte(inner[innerLen - 1]);
    if (!enclosed) return *this;
  }
  if (dry.kept == 0) return clear();
  scan_inner(inner, innerLen, data);
  // The result is at least 2 bytes shorter; trunc fits the storage (more
  // than 24 bytes too many moves the text to a block of its size).
  return trunc(static_cast<int>(dry.kept));
}
