// command: tokens of equations and expressions, where blanks mean little and
// every operator is a word of one byte (`>=` is `>` and `=`).
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>

#include <cstring>
#include <string>

#include "scan_chars.h"

using txc::scan::is_blank;

namespace {

constexpr std::size_t kMaxToken = 200;

// Bytes that end a name or number. `.`, `:`, `@` and high bytes are not
// among them.
bool is_eq_stop(char c) {
  return c == '\0' || is_blank(c) || std::strchr("\"'()*+,-/<=>[]^", c) != nullptr;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Where a "string" that opens at `pos` ends (behind its closing quote), with
// doubled quotes kept inside; 0 when the text ends first.
unsigned string_end(const char* text, unsigned pos) {
  for (++pos; text[pos] != '\0'; ++pos) {
    if (text[pos] != '"') continue;
    if (text[pos + 1] != '"') return pos + 1;
    ++pos;
  }
  return 0;
}

// Behind a name or number: whether an exponent glues the next pieces on.
// `word` holds the token so far (not empty), `pos` stands on the stop byte;
// returns true when reading must go on from `pos` with the sign or digit
// already appended.
bool glue_exponent(std::string& word, const char* text, unsigned& pos) {
  const char last = word.back();
  if (last == '@') word.pop_back();  // `x@ y` is `x`
  const char first = word.empty() ? '\0' : word[0];
  if (static_cast<signed char>(first) <= '9') pos = txc::scan::skip_blanks(text, pos);
  if (text[pos] == 'E' && (last == '.' || is_digit(last))) {
    word += 'E';
    pos = txc::scan::skip_blanks(text, pos + 1);
  } else if (last != 'D' && last != 'E' && last != 'e') {
    return false;
  }
  const char next = text[pos];
  const bool number = !word.empty() && (is_digit(word[0]) || (word[0] == '.' && is_digit(word[1])));
  if (!(next == '-' || next == '+' || is_digit(next)) || !number) return false;
  word.back() = 'E';
  word += next;
  pos = txc::scan::skip_blanks(text, pos + 1);
  return true;
}

}  // namespace

void command::eqword(vstring& target) {
  if (txc::error_pending() != 0) {
    target.clear();
    return;
  }
  prevOffset = offset;
  const char* text = optr();
  unsigned pos = cursor();
  std::string word;
  while (true) {
    while (!is_eq_stop(text[pos])) word += text[pos++];
    if (text[pos] == '"' && pos >= 2 && text[pos - 2] == ':' && text[pos - 1] == ':') {
      const unsigned end = string_end(text, pos);  // db::"quoted name"
      const unsigned stop = end != 0 ? end : pos + static_cast<unsigned>(std::strlen(text + pos));
      word.append(text + pos, stop - pos);
      pos = stop;
    }
    if (word.size() > kMaxToken) {
      txc::report_error(14);
      target.clear();
      return;
    }
    const char stop = text[pos];
    if (stop == '\0' || stop == '\'') break;
    if (word.empty()) {
      if (is_blank(stop)) {
        ++pos;
        continue;
      }
      if (stop == '"') {
        const unsigned end = string_end(text, pos);
        if (end == 0) {
          txc::report_error(102);
          target.clear();
          return;
        }
        word.assign(text + pos, end - pos);
        pos = end;
      } else {
        word = stop;
        ++pos;
      }
      break;
    }
    if (!glue_exponent(word, text, pos)) break;
  }
  offset = static_cast<txlong>(pos);
  target.putch(word.data(), static_cast<txlong>(word.size()));
}

vstring& command::eqword() {
  vstring& t = txc::next_temp();
  eqword(t);
  return t;
}

int command::eqCountArgs() {
  const char* text = optr();
  unsigned pos = txc::scan::skip_blanks(text, cursor());
  if (text[pos] != '(') return 0;
  int depth = 0;
  int count = 0;
  bool inQuotes = false;
  bool counted = false;
  bool closed = false;
  for (++pos; text[pos] != '\0' && !closed; ++pos) {
    const char c = text[pos];
    if (c == '"') {
      inQuotes = !inQuotes;
      if (!inQuotes && !counted) {
        ++count;
        counted = true;
      }
    } else if (inQuotes) {
      continue;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      closed = --depth < 0;
    } else if (c == ',' && depth == 0) {
      counted = false;
    } else if (static_cast<signed char>(c) >= 33 && !counted) {
      ++count;
      counted = true;
    }
  }
  if (inQuotes) {
    txc::report_error(102);
  } else if (!closed) {
    txc::report_error(23);
  }
  return count;
}

void command::eqRemoveWhiteSpace() {
  // The output stands where the scratch buffer has room for it, 1024 bytes
  // in: what would go past its end is dropped, whole tokens at a time.
  const int size = txc::temp_buf_len();
  const std::size_t room = size > 1024 ? static_cast<std::size_t>(size - 1024) : 0;
  std::string out;
  vstring token;
  while (true) {
    eqword(token);
    if (token.len() == 0) break;
    const char* w = token.optr();
    const bool keyword = std::strcmp(w, "AND") == 0 || std::strcmp(w, "NOT") == 0 ||
                         std::strcmp(w, "OR") == 0 ||
                         (std::strcmp(w, "IF") == 0 && optr()[cursor()] == ' ');
    const std::size_t need = token.len() + (keyword ? 2 : 0);
    if (out.size() + need > room) break;
    if (keyword) out += ' ';
    out.append(w, token.len());
    if (keyword) out += ' ';
  }
  reset();
  putch(out.data(), static_cast<txlong>(out.size()));
}

vstring& command::get_between_parens() {
  const char* text = optr();
  unsigned pos = cursor();
  while (text[pos] == ' ') ++pos;
  if (txc::error_pending() != 0 || text[pos] != '(') return txc::next_temp().clear();
  prevOffset = offset;
  std::string out(1, '(');
  ++pos;
  if (text[pos] == '\0') {
    txc::report_error(14);
    offset = static_cast<txlong>(pos);
    return txc::scan::temp_word(out.data(), 1);
  }
  int depth = 1;
  bool inQuotes = false;
  while (depth > 0 && text[pos] != '\0') {
    const char c = text[pos];
    if (!inQuotes && is_blank(c)) {
      const char* keep = std::strncmp(text + pos, " OR ", 4) == 0    ? " OR "
                         : std::strncmp(text + pos, " AND ", 5) == 0 ? " AND "
                                                                     : nullptr;
      if (keep != nullptr) {
        out += keep;
        pos += static_cast<unsigned>(std::strlen(keep));
      } else {
        ++pos;
      }
      continue;
    }
    out += c;
    ++pos;
    if (!inQuotes && c == '(') ++depth;
    if (!inQuotes && c == ')') --depth;
    if (txc::isQuoteByte(c)) inQuotes = !inQuotes;
  }
  if (depth > 0) txc::report_error(14);
  offset = static_cast<txlong>(pos);
  return txc::scan::temp_word(out.data(), static_cast<unsigned>(out.size()));
}
