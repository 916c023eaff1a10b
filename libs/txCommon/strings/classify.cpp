// vstring: questions about the shape of a text. None allocates or reports.
//
//   vstring("  -12").isInteger()   // 1: leading blanks, a sign, digits
//   vstring("12 ").isInteger()     // 0: nothing may follow the digits
//   vstring("a+b").hasSeperator()  // 1: '+' separates expressions
#include <txCommon/vstring.h>

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_ascii_alnum(char c) {
  return is_digit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// The leading run that isInteger skips: control bytes and the blank, taken
// unsigned so that bytes from 0x80 on are not blanks here.
bool is_leading_blank(char c) {
  const unsigned char u = static_cast<unsigned char>(c);
  return u >= 0x01 && u <= 0x20;
}

// isspace() of the C locale: blank, tab, LF, VT, FF, CR.
bool is_c_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The bytes that end an operand in an expression. Dot and colon are missing
// on purpose: they belong to numbers, dates and object names.
bool is_separator(char c) {
  switch (c) {
    case '\0': case '\t': case '\n': case ' ':
    case '(': case ')': case '*': case '+': case ',': case '-':
    case '/': case '<': case '=': case '>': case '^':
      return true;
    default:
      return false;
  }
}

}  // namespace

int vstring::isInteger() const {
  const char* p = optr();
  while (is_leading_blank(*p)) ++p;
  if (*p == '+' || *p == '-') ++p;
  if (!is_digit(*p)) return 0;
  while (is_digit(*p)) ++p;
  return *p == '\0' ? 1 : 0;
}

int vstring::IsAlphaNumeric() {
  for (const char* p = optr(); *p != '\0'; ++p) {
    if (!is_ascii_alnum(*p)) return 0;
  }
  return 1;
}

int vstring::hasWhiteSpace() const {
  for (const char* p = optr(); *p != '\0'; ++p) {
    if (is_c_space(*p)) return 1;
  }
  return 0;
}

// Reads the len() bytes, not up to the terminator: a zero byte inside the
// length is itself a separator.
int vstring::hasSeperator() const {
  const unsigned n = len();
  for (unsigned i = 0; i < n; ++i) {
    if (is_separator(data[i])) return 1;
  }
  return 0;
}
