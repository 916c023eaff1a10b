// command::dropWord: removing words by number while the rest of the text,
// spacing included, stays where it was.
#include <txCommon/command.h>

#include <string>

#include "scan_chars.h"

namespace {

unsigned leading_blanks(const char* text, unsigned length) {
  unsigned n = 0;
  while (n < length && txc::scan::is_blank(text[n])) ++n;
  return n;
}

// Bytes at the end with a signed value of at most 32 (high bytes count here),
// never counting byte 0 of the text.
unsigned trailing_blanks(const char* text, unsigned length) {
  unsigned n = 0;
  while (n + 1 < length && static_cast<signed char>(text[length - 1 - n]) <= 32) ++n;
  return n;
}

}  // namespace

void command::dropWord(int* indices, int count) {
  if (count < 1 || indices == nullptr) return;
  reset();
  command copy(static_cast<const vstring&>(*this));
  const char* source = copy.optr();
  const unsigned length = copy.len();
  const unsigned lead = leading_blanks(source, length);
  const unsigned trail = lead < length ? trailing_blanks(source, length) : 0;

  std::string out;
  int next = 0;
  unsigned last = 0;
  for (int number = 0; copy.word(1).len() != 0; ++number) {
    if (next >= count || number != indices[next]) continue;
    if (number == 0) {
      out.assign(lead, ' ');
    } else {
      const unsigned from = static_cast<unsigned>(copy.prevOffset);
      if (from > last) out.append(source + last, from - last);
    }
    last = static_cast<unsigned>(copy.offset);
    ++next;
  }
  if (last < length) out.append(source + last, length - last);
  if (trail > 1) out.append(trail - 1, ' ');
  putch(out.data(), static_cast<txlong>(out.size()));
}
