// The braced list form of a word list, and back.
//
//   a "b c" f(x, y)   <->   {a, "b c", f(x, y)}
//
// Into the form, words are read by word(1), so quotes and parentheses hold
// them together as everywhere in the scanner. Out of the form is a plain byte
// edit that knows no quotes: every blank goes, and each comma becomes the
// blank between two words, so `{a, b, c}` gives `a b c` and `{ a b }` `ab`.
#include <txCommon/StringSpool.h>
#include <txCommon/command.h>

namespace {
constexpr int kMinSpool = 64;
}  // namespace

void command::TranslateIntoListForm() {
  offset = 0;
  prevOffset = 0;
  const int length = static_cast<int>(len());
  StringSpool spool(length > kMinSpool ? length : kMinSpool);
  spool.cat('{');
  for (;;) {
    const vstring& w = word(1);
    if (w.len() == 0) break;
    // The brace alone in the spool means this is the first word.
    if (spool.len() > 1) spool.cat(", ");
    spool.cat(w);
  }
  spool.cat('}');
  spool.assign(*this);
  offset = 0;
  prevOffset = 0;
}

void command::TranslateFromListForm() {
  vstring copy(*this);
  copy.removeWhiteSpace();
  char* p = copy.optr();
  const int n = static_cast<int>(copy.len());
  for (int i = 0; i < n; ++i) {
    if (p[i] == ',') p[i] = ' ';
  }
  if (n >= 2 && p[0] == '{' && p[n - 1] == '}') copy = vstring(p + 1, n - 2);
  offset = 0;
  prevOffset = 0;
  vstring::operator=(copy);
}
