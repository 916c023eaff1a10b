// Internal: byte classes of the statement scanner.
//
// Bytes are compared as signed values, so 0x80 and up are never blanks: they
// are word bytes, as accented letters of the host's code page must be.
#pragma once

#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <cstring>

namespace txc::scan {

inline bool is_blank(char c) {
  const auto s = static_cast<signed char>(c);
  return s >= 1 && s <= 32;
}

// After a `)` that closes the outermost parenthesis a word goes on only when
// one of these follows: `f(x)+y` and `f(x),g` are one word, `f(x)y` two.
inline bool continues_after_paren(char c) {
  return c != '\0' && std::strchr("+*,-./<=>]^", c) != nullptr;
}

// The same after a `]` at parenthesis depth 0: `)` lets the word go on, `]`
// does not.
inline bool continues_after_bracket(char c) {
  return c != '\0' && std::strchr("+)*,-./<=>^", c) != nullptr;
}

// Skips blanks from `pos` and returns the first position that is not one.
inline unsigned skip_blanks(const char* text, unsigned pos) {
  while (is_blank(text[pos])) ++pos;
  return pos;
}

// n bytes into the next temporary; n of 0 gives a temporary with no text.
inline vstring& temp_word(const char* bytes, unsigned n) {
  return next_temp().putch(bytes, static_cast<txlong>(n));
}

// The scratch buffer in which words are assembled.
struct Scratch {
  char* buf = temp_buf();
  unsigned size = static_cast<unsigned>(temp_buf_len() > 0 ? temp_buf_len() : 0);
};

}  // namespace txc::scan
