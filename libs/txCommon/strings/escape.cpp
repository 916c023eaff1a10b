// vstring: line breaks and backslashes as escape sequences.
//
// The two names say the opposite of what the methods do, and stay so because
// callers know them by these names:
//   ConvertEscSequencesToAscii   writes the escaped form: every line end
//                                (CR LF, LF CR, lone CR or LF) as `\n`, and
//                                `\` as `\\`;
//   ConvertAsciiToEscSequences   reads it back: `\\` to `\`, `\n` and `\r` to
//                                CR LF; `\t`, `\"` and the like stay.
// Going there and back gives the text with every line end as CR LF, except
// that a line end directly in front of a backslash comes back as `\n`: the
// reader takes `\n\` + byte as text it does not know.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include "edit_scratch.h"

#include <memory>

namespace {

// The escaped form is at most twice as long: every byte gives two at most.
constexpr unsigned kWorstGrowth = 2;

}  // namespace

void vstring::ConvertEscSequencesToAscii() {
  const unsigned n = len();
  if (n == 0) return;
  // A working buffer of our own: the escaped text may be twice the scratch
  // buffer's size.
  std::unique_ptr<char[]> work(new char[static_cast<std::size_t>(n) * kWorstGrowth + 1]);
  std::size_t w = 0;
  for (unsigned i = 0; i < n; ++i) {
    const char c = data[i];
    if (c == '\r' || c == '\n') {
      const char partner = c == '\r' ? '\n' : '\r';
      if (i + 1 < n && data[i + 1] == partner) ++i;
      work[w++] = '\\';
      work[w++] = 'n';
    } else if (c == '\\') {
      work[w++] = '\\';
      work[w++] = '\\';
    } else {
      work[w++] = c;
    }
  }
  txc::assign_bytes(*this, work.get(), static_cast<unsigned>(convert64(w)));
}

namespace {

bool line_letter(char c) { return c == 'n' || c == 'r'; }

}  // namespace

// In place; the text never grows. At each backslash with a byte behind it:
//   \\              one backslash
//   \n or \r        CR LF, unless a backslash follows:
//     \r\n, \n\r    CR LF          \n\n, \r\r    CR LF CR LF
//     \n\ + other   stays as it is (the \ is looked at on its own next)
//   \ + other       stays
// A backslash as the last byte stays.
void vstring::ConvertAsciiToEscSequences() {
  const unsigned n = len();
  unsigned r = 0;
  unsigned w = 0;
  while (r < n) {
    const char c = data[r];
    if (c != '\\' || r + 1 >= n) {
      data[w++] = data[r++];
      continue;
    }
    const char c1 = data[r + 1];
    if (c1 == '\\') {
      data[w++] = '\\';
      r += 2;
    } else if (!line_letter(c1)) {
      data[w++] = data[r++];  // the byte behind is looked at on its own
    } else if (r + 2 >= n || data[r + 2] != '\\') {
      data[w++] = '\r';
      data[w++] = '\n';
      r += 2;
    } else if (r + 3 < n && line_letter(data[r + 3])) {
      // \r\n and \n\r are one line end; \n\n and \r\r are two.
      const bool two = data[r + 3] == c1;
      data[w++] = '\r';
      data[w++] = '\n';
      if (two) {
        data[w++] = '\r';
        data[w++] = '\n';
      }
      r += 4;
    } else {
      data[w++] = data[r++];
    }
  }
  if (w == n) return;
  data[w] = '\0';
  putLen(w);
}
