// vstring: replacing a whole name.
//
// Names of the statement language are made of `$`, digits, capitals and `_`;
// they are compared in upper-cased text, so small letters are not name bytes.
// A match counts only when no name byte stands on either side of it: in
// `AX X`, replacing X touches the second X alone.
//
// The scan is one pass with a count of the bytes of `from` matched so far.
// Two of its habits are part of the contract: a byte that breaks a partial
// match is not tried again as a start (so "AB" is not found in "AAB"), and a
// byte that follows a name byte never starts a match.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

bool name_byte(char c) {
  return c == '$' || c == '_' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
}

// 0-based offset of the first whole-name match of `from` (m >= 1 bytes) in
// the zero-ended `text`, or -1.
long long find_name(const char* text, const char* from, unsigned m) {
  unsigned matched = 0;
  for (unsigned long long i = 0; text[i] != '\0'; ++i) {
    if (text[i] != from[matched]) {
      matched = 0;
      continue;
    }
    if (matched == 0 && i > 0 && name_byte(text[i - 1])) continue;
    if (++matched < m) continue;
    if (!name_byte(text[i + 1])) return static_cast<long long>(i + 1 - m);
    matched = 0;
  }
  return -1;
}

}  // namespace

// Replaces the first whole-name match of `from` by `to`, case-sensitive.
// 1 when it did, 0 (and no change) otherwise; an empty `from` never matches.
// The text behind the match is taken as mid(..., TempBufLen()).
int vstring::replaceName(vstring from, vstring to) {
  const unsigned m = from.len();
  if (m == 0) return 0;
  const long long at = find_name(optr(), from.optr(), m);
  if (at < 0) return 0;
  const int front = static_cast<int>(at);
  vstring& head = left(front) + to;
  put(head + mid(front + static_cast<int>(m) + 1, txc::temp_buf_len()));
  return 1;
}
