// vstring: taking off and putting on enclosing brackets.
//
// remove_parens and remove_brackets take off a pair only when it encloses
// the whole text: the depth of the bytes between may never drop below 0, so
// `(a)+(b)` stays as it is, while `((a)` loses its outer pair (a depth above 0
// at the end is accepted). Quotes are not looked at. StripBraces looks only
// at the two ends.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

// True when `text` (n >= 2 bytes) opens with `open`, closes with `close`, and
// no closer between them goes below the depth it started at.
bool encloses(const char* text, unsigned n, char open, char close) {
  if (text[0] != open || text[n - 1] != close) return false;
  int depth = 0;
  for (unsigned i = 1; i + 1 < n; ++i) {
    if (text[i] == open) {
      ++depth;
    } else if (text[i] == close && --depth < 0) {
      return false;
    }
  }
  return true;
}

// Replaces the text by its bytes between the first and the last.
vstring& drop_ends(vstring& s) {
  return s.put(s.mid(2, static_cast<int>(s.len()) - 2));
}

}  // namespace

vstring& vstring::remove_parens() {
  if (len() < 2 || !encloses(optr(), len(), '(', ')')) return *this;
  return drop_ends(*this);
}

vstring& vstring::StripParens() { return remove_parens(); }

vstring& vstring::remove_brackets() {
  if (len() < 2 || !encloses(optr(), len(), '[', ']')) return *this;
  return drop_ends(*this);
}

// `{a}{b}` gives `a}{b`: nothing between the ends is looked at.
vstring& vstring::StripBraces() {
  const unsigned n = len();
  if (n < 2 || data[0] != '{' || data[n - 1] != '}') return *this;
  return drop_ends(*this);
}

// A temporary "{" + text + "}"; this string is left as it is.
vstring& vstring::SurroundWithBraces() {
  return ('{' + *this) + '}';
}
