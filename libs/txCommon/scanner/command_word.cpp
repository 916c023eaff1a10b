// command: the three word readers that follow quotes and parentheses.
//
// A word is assembled in the scratch buffer and copied to a temporary, so a
// read allocates nothing but the temporary's text.
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>

#include "scan_chars.h"

using txc::scan::is_blank;

namespace {

// The word a reader found: bytes in the scratch buffer, where the reading
// stopped, and what was left open.
struct Found {
  unsigned length = 0;
  unsigned end = 0;  // position of the first byte not taken
  int depth = 0;
  bool inQuotes = false;
};

// `@` followed by the end or a blank stands alone: it is a word of the
// statement language of its own and is never glued to the word before it.
bool lone_at(const char* text, unsigned pos) {
  return text[pos] == '@' && (text[pos + 1] == '\0' || is_blank(text[pos + 1]));
}

void report_open(const Found& f, bool parenthesis) {
  if (parenthesis) txc::report_error(23);
  if (f.inQuotes) txc::report_error(102);
}

}  // namespace

namespace {

// The scan of word(int): stores at most `limit` bytes in `buf` (none when buf
// is null), and reads on past the limit only when there is no buffer.
Found scan_plain(const char* text, unsigned pos, char* buf, unsigned limit) {
  Found f;
  for (char c; (c = text[pos]) != '\0'; ++pos) {
    if (is_blank(c) && f.depth == 0 && !f.inQuotes) break;
    if (buf != nullptr) {
      if (f.length >= limit) break;
      buf[f.length++] = c;
    }
    if (txc::isQuoteByte(c)) {
      f.inQuotes = !f.inQuotes;
    } else if (f.inQuotes) {
      continue;
    } else if (c == '(') {
      ++f.depth;
    } else if (c == ')') {
      if (f.depth == 0) {  // unmatched: the word ends with it
        f.depth = -1;
        ++pos;
        break;
      }
      if (--f.depth == 0 && !txc::scan::continues_after_paren(text[pos + 1])) {
        ++pos;
        break;
      }
    }
  }
  f.end = pos;
  return f;
}

}  // namespace

vstring& command::word(int report) {
  const txc::scan::Scratch scratch;
  const unsigned limit = scratch.size > 0 ? scratch.size - 1 : 0;
  const char* text = optr();
  const unsigned start = txc::scan::skip_blanks(text, cursor());
  const Found f = scan_plain(text, start, scratch.buf, limit);
  if (report != 0) report_open(f, f.depth != 0);
  prevOffset = offset;
  offset = static_cast<txlong>(txc::scan::skip_blanks(text, f.end));
  return txc::scan::temp_word(scratch.buf, f.length);
}

void command::skip_word() {
  const char* text = optr();
  const unsigned start = txc::scan::skip_blanks(text, cursor());
  const Found f = scan_plain(text, start, nullptr, 0);
  prevOffset = offset;
  offset = static_cast<txlong>(txc::scan::skip_blanks(text, f.end));
}

vstring& command::word(char sep, int raw, int report) {
  const txc::scan::Scratch scratch;
  const char* text = optr();
  const bool blankEnds = sep == ' ';
  const bool sepEnds = static_cast<signed char>(sep) >= 0 && sep != '\0';
  unsigned pos = txc::scan::skip_blanks(text, cursor());
  Found f;
  for (char c; (c = text[pos]) != '\0'; ++pos) {
    const bool top = f.depth == 0 && !f.inQuotes;
    if (top && ((blankEnds && is_blank(c)) || (sepEnds && c == sep))) break;
    if (raw == 0 && top && lone_at(text, pos)) break;
    if (raw == 0 && top && c == ')' && report != 0) {  // unmatched: left unread
      txc::report_error(23);
      break;
    }
    if (f.length >= scratch.size) {
      txc::report_error(2146);
      break;
    }
    scratch.buf[f.length++] = c;
    if (raw != 0) continue;
    if (txc::isQuoteByte(c)) {
      f.inQuotes = !f.inQuotes;
    } else if (f.inQuotes) {
      continue;
    } else if (c == '(') {
      ++f.depth;
    } else if (c == ')' && f.depth > 0) {
      if (--f.depth == 0 && blankEnds && !txc::scan::continues_after_paren(text[pos + 1])) {
        ++pos;
        break;
      }
    }
  }
  pos = txc::scan::skip_blanks(text, pos);
  if (sepEnds && text[pos] == sep) {
    ++pos;
    while (f.length > 0 && is_blank(scratch.buf[f.length - 1])) --f.length;
  }
  if (report != 0) report_open(f, f.depth > 0);
  prevOffset = offset;
  offset = static_cast<txlong>(pos);
  return txc::scan::temp_word(scratch.buf, f.length);
}

vstring& command::wordwithbracket() {
  const txc::scan::Scratch scratch;
  const unsigned limit = scratch.size > 0 ? scratch.size - 1 : 0;
  const char* text = optr();
  unsigned pos = txc::scan::skip_blanks(text, cursor());
  Found f;
  int brackets = 0;
  for (char c; (c = text[pos]) != '\0'; ++pos) {
    const bool top = f.depth == 0 && brackets == 0 && !f.inQuotes;
    if (top && (is_blank(c) || lone_at(text, pos))) break;
    if (!f.inQuotes && ((c == ')' && f.depth == 0) || (c == ']' && brackets == 0))) {
      txc::report_error(23);  // unmatched: left unread
      break;
    }
    if (f.length >= limit) break;
    scratch.buf[f.length++] = c;
    if (txc::isQuoteByte(c)) {
      f.inQuotes = !f.inQuotes;
    } else if (f.inQuotes) {
      continue;
    } else if (c == '(') {
      ++f.depth;
    } else if (c == '[') {
      ++brackets;
    } else if (c == ')') {
      if (--f.depth == 0 && !txc::scan::continues_after_paren(text[pos + 1])) {
        ++pos;
        break;
      }
    } else if (c == ']') {
      --brackets;
      if (f.depth == 0 && !txc::scan::continues_after_bracket(text[pos + 1])) {
        ++pos;
        break;
      }
    }
  }
  const unsigned end = txc::scan::skip_blanks(text, pos);
  report_open(f, f.depth > 0);
  prevOffset = offset;
  offset = static_cast<txlong>(end);
  return txc::scan::temp_word(scratch.buf, f.length);
}
