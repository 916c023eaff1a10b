// vstring: the option list that ends a statement word, `PRINT(a,b="x,y",c(1,2))`:
// taking it off into an array, putting one back, and stripping it.
//
// The group opens at the first `(` outside quotes and must close at the very
// end (only blanks and high bytes may follow); commas split it at depth 0
// outside quotes, so `b="x,y"` and `c(1,2)` stay whole.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <cctype>
#include <string>

#include "list_arrays.h"

namespace {

bool is_printable_ascii(char c) { return c >= 0x21 && c <= 0x7E; }
bool at_most_blank_unsigned(char c) { return static_cast<unsigned char>(c) <= 0x20; }

// Whether the group opening behind `open` closes with nothing but blanks and
// high bytes behind it, quotes and parentheses balanced.
bool is_trailing_group(const char* text, std::size_t open) {
  int depth = 1;
  bool quoted = false;
  for (std::size_t i = open + 1; text[i] != '\0'; ++i) {
    const char c = text[i];
    if (depth == 0) {
      if (is_printable_ascii(c) || c == 0x7F) return false;
      continue;
    }
    if (isQuoteByte(c)) {
      quoted = !quoted;
    } else if (!quoted && c == '(') {
      ++depth;
    } else if (!quoted && c == ')') {
      --depth;
    }
  }
  return depth == 0 && !quoted;
}

// Cuts the options between `open` and the last byte into out[0..limit).
void cut_options(const vstring& s, std::size_t open, vstring* out, int limit) {
  const char* text = s.optr();
  const std::size_t end = s.len() - 1;  // the closing `)`
  const std::size_t room = txc::temp_buf_len() > 0 ? static_cast<std::size_t>(txc::temp_buf_len()) : 0;
  std::size_t pos = open + 1;
  int depth = 0;
  bool quoted = false;
  for (int count = 0; pos < end; ++count) {
    if (count >= limit) {
      txc::report_error_args(216, vstring("in ") + s);
      return;
    }
    std::string item;
    for (; pos < end; ++pos) {
      const char c = text[pos];
      if (c == ',' && depth == 0 && !quoted) {
        ++pos;
        break;
      }
      if (isQuoteByte(c)) {
        quoted = !quoted;
      } else if (!quoted && c == '(') {
        ++depth;
      } else if (!quoted && c == ')') {
        --depth;
      }
      const bool leadingBlank = item.empty() && static_cast<signed char>(c) <= 0x20;
      if (!leadingBlank && item.size() < room) item.push_back(c);
    }
    while (!item.empty() && at_most_blank_unsigned(item.back())) item.pop_back();
    if (!item.empty()) out[count].putch(item.data(), static_cast<txlong>(item.size()));
  }
}

}  // namespace

vstring* vstring::split_options(vstring* out, int maxItems, int /*reserved*/) {
  itrim();
  int limit = maxItems;
  if (out == nullptr) {
    out = txc::options_array();
    limit = maxItems < 0 ? -maxItems : txc::kListArraySize;
    if (limit > txc::kListArraySize) limit = txc::kListArraySize;
  }
  if (limit < 0) limit = 0;
  const int open = incharnq('(');  // 1-based, 0 for none
  for (int i = 0; i < limit; ++i) out[i].clear();
  if (open == 0 || static_cast<unsigned>(open) == len()) return out;
  const std::size_t at = static_cast<std::size_t>(open - 1);
  if (!is_trailing_group(optr(), at)) return out;
  txc::ensure_temp_buf(static_cast<int>(len()));
  cut_options(*this, at, out, limit);
  trunc(open - 1);
  return out;
}

vstring* vstring::split_options(int maxItems) { return split_options(nullptr, -maxItems, 1); }

void vstring::add_options(vstring* options, int count) {
  const unsigned long long need = static_cast<unsigned long long>(len()) + 128;
  txc::ensure_temp_buf(need > 0x7FFFFFFF ? 0x7FFFFFFF : static_cast<int>(need));
  if (options == nullptr || count <= 0) return;
  int last = count - 1;
  while (last >= 0 && options[last].len() == 0) --last;
  if (last < 0) return;
  // The group is laid out backwards from the end of the scratch buffer, so
  // what does not fit in it is lost at the front, whole options first.
  const std::size_t room = txc::temp_buf_len() > 1 ? static_cast<std::size_t>(txc::temp_buf_len()) - 1 : 0;
  std::string group(")");
  for (int i = last; i >= 0; --i) {
    std::string option;
    bool quoted = false;
    for (const char* p = options[i].optr(); *p != '\0'; ++p) {
      if (isQuoteByte(*p)) quoted = !quoted;
      option.push_back(quoted || isQuoteByte(*p) ? *p
                                                  : static_cast<char>(std::toupper(static_cast<unsigned char>(*p))));
    }
    if (i > 0) option.insert(option.begin(), ',');
    if (group.size() + option.size() > room) break;
    group.insert(0, option);
  }
  group.insert(group.begin(), '(');
  cat(group.c_str());
}

void vstring::strip_options() {
  itrim();
  const unsigned n = len();
  const char* text = optr();
  if (n == 0 || text[n - 1] != ')') return;
  int depth = 1;
  int i = static_cast<int>(n) - 2;
  for (; i >= 0; --i) {
    if (text[i] == ')') ++depth;
    if (text[i] == '(' && --depth == 0) break;
  }
  if (i >= 0) trunc(i);
}
