// vstring: comments in statement text.
//
// A comment runs from the first apostrophe outside double quotes to the end
// of the line. Quotes follow the one toggle of the library ('"', and
// 0x93/0x94 under a 1252 host), so `"it's" 'c` has its comment at 8. A line
// opening with '@' and a blank is a command comment as a whole when the
// caller says the text stands at a command.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

// 1-based position of the first ' outside quotes; 0 when there is none. The
// scan ends at the terminator; a quote left open hides the rest of the text.
int vstring::findCommentChar() {
  const char* p = optr();
  bool quoted = false;
  for (int i = 0; p[i] != '\0'; ++i) {
    if (isQuoteByte(p[i])) {
      quoted = !quoted;
    } else if (p[i] == '\'' && !quoted) {
      return i + 1;
    }
  }
  return 0;
}

// Cuts the text in front of its comment. With atCommand, "@" followed by a
// byte 0x00-0x20 empties the string first. A comment at the first byte
// releases the block; otherwise the cut follows trunc (a block more than 24
// bytes too large is replaced by a fitting one).
vstring& vstring::StripComments(int atCommand) {
  const char* p = optr();
  if (atCommand != 0 && p[0] == '@' && static_cast<unsigned char>(p[1]) <= 0x20) clear();
  const int at = findCommentChar();
  if (at == 0) return *this;
  if (at - 1 < 1) return clear();
  return trunc(at - 1);
}
