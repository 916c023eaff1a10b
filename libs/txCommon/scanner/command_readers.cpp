// command: readers built on word(), and the two statement-head readers.
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>

#include <cstring>

#include "scan_chars.h"

using txc::scan::is_blank;

vstring& command::forWord() { return word(1).StripQuotesEx(); }

vstring& command::wordCommaSpace() {
  vstring& first = word(1);
  if (std::memchr(first.optr(), ',', first.len()) == nullptr) return first;
  offset = prevOffset;
  return word(',', 0, 1);
}

vstring& command::wordStripDB() {
  vstring& w = word(1);
  const char* found = std::strstr(w.optr(), "::");
  if (found == nullptr) return w;
  const char* tail = found + 2;
  const unsigned size = static_cast<unsigned>(txc::temp_buf_len() > 0 ? txc::temp_buf_len() : 0);
  const unsigned n = static_cast<unsigned>(std::strlen(tail));
  return txc::scan::temp_word(tail, n < size ? n : size);
}

vstring& command::FirstWordToSeperator(char& sep, int& paren) {
  paren = 0;
  const unsigned length = len();
  if (length == 0) return txc::next_temp().clear();
  prevOffset = offset;
  const char* text = optr();
  const unsigned n = static_cast<unsigned>(std::strcspn(text, " '(.="));
  sep = text[n];
  unsigned pos = n;
  if (n < length && text[n] == '(') {
    paren = 1;
    int depth = 0;
    for (; text[pos] != '\0'; ++pos) {  // quotes are not looked at here
      if (text[pos] == '(') ++depth;
      if (text[pos] == ')' && --depth == 0) {
        ++pos;
        break;
      }
    }
  }
  while (text[pos] == ' ') ++pos;
  if (pos < length && text[pos] == '=') sep = '=';
  offset = static_cast<txlong>(pos);
  return txc::scan::temp_word(text, n);
}

namespace {

// Bytes that end a word of WordToSeperator and stand as words of their own.
// Carriage return and `.` are word bytes here.
bool operator_stop(char c) {
  return c == '\0' || std::strchr("\t\n ()*+,-/<=>^", c) != nullptr;
}

}  // namespace

vstring& command::WordToSeperator() {
  txc::ensure_temp_buf(static_cast<int>(len() < 0x7FFFFFFFu ? len() : 0x7FFFFFFFu));
  const txc::scan::Scratch scratch;
  const unsigned limit = scratch.size > 0 ? scratch.size - 1 : 0;
  prevOffset = offset;
  const char* text = optr();
  unsigned pos = txc::scan::skip_blanks(text, cursor());
  if (text[pos] == '\0') {  // nothing left: the cursor stays on the terminator
    offset = static_cast<txlong>(pos);
    return txc::next_temp().clear();
  }
  if (operator_stop(text[pos])) {
    offset = static_cast<txlong>(pos + 1);
    return txc::scan::temp_word(text + pos, 1);
  }
  unsigned n = 0;
  if (limit > 0) scratch.buf[n++] = text[pos++];
  while (!operator_stop(text[pos]) && n < limit) scratch.buf[n++] = text[pos++];
  offset = static_cast<txlong>(txc::scan::skip_blanks(text, pos));
  return txc::scan::temp_word(scratch.buf, n);
}
