// vstring: splitting comma- and delimiter-separated lists into arrays.
//
// Each splitter has its own small view of quotes: parse_commalist knows
// commas only; parse_delimitedlist knows quotes when asked (a backslash in
// front keeps a quote from closing), never parentheses. Items are not trimmed.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <cstring>
#include <string>

#include "list_arrays.h"

namespace {

// Items longer than the scratch buffer keep its size of bytes; the rest of
// such an item is dropped, and splitting goes on behind its delimiter.
class ItemBuilder {
public:
  ItemBuilder() : room_(txc::temp_buf_len() > 0 ? static_cast<std::size_t>(txc::temp_buf_len()) : 0) {}
  void add(char c) {
    if (item_.size() < room_) item_.push_back(c);
  }
  bool empty() const { return item_.empty(); }
  void store(vstring& target) {
    target.putch(item_.data(), static_cast<txlong>(item_.size()));
    item_.clear();
  }

private:
  std::size_t room_;
  std::string item_;
};

// Where the delimiter matches at `p` (never across the terminator).
bool delimiter_at(const char* p, const char* delimiter, int length) {
  for (int k = 0; k < length; ++k) {
    if (p[k] == '\0' || p[k] != delimiter[k]) return false;
  }
  return true;
}

// The quote-aware splitter of both later forms.
void split_honouring(const vstring& s, vstring* out, int maxItems, const char* delimiter,
                     int delimiterLength, int honourQuotes) {
  txc::ensure_temp_buf(static_cast<int>(s.len()));
  const char* text = s.optr();
  ItemBuilder item;
  int stored = 0;
  bool quoted = false;
  std::size_t pos = 0;
  while (stored < maxItems) {
    const char c = text[pos];
    const bool atEnd = c == '\0';
    if (atEnd || (!quoted && delimiter_at(text + pos, delimiter, delimiterLength))) {
      if (!item.empty() || stored > 0) {
        item.store(out[stored++]);
      }
      if (atEnd) break;
      pos += static_cast<std::size_t>(delimiterLength);
      continue;
    }
    if (honourQuotes != 0 && isQuoteByte(c) && !(quoted && pos > 0 && text[pos - 1] == '\\')) {
      quoted = !quoted;
    }
    item.add(c);
    ++pos;
  }
}

}  // namespace

vstring* vstring::parse_commalist() {
  vstring* out = txc::commalist_array();
  const char* text = optr();
  while (*text == ',') ++text;
  ItemBuilder item;
  int count = 0;
  for (;; ++text) {
    if (*text != ',' && *text != '\0') {
      item.add(*text);
      continue;
    }
    if (count == txc::kListArraySize - 1) break;  // 49 items at most; the rest is dropped
    item.store(out[count++]);
    if (*text == '\0') break;
  }
  out[count].clear();
  return out;
}

void vstring::parse_delimitedlist(vstring* out, int maxItems, char delimiter) {
  if (out == nullptr || maxItems < 1) return;
  txc::ensure_temp_buf(static_cast<int>(len()));
  const char* text = optr();
  while (*text != '\0' && *text == delimiter) ++text;
  ItemBuilder item;
  int stored = 0;
  for (; stored < maxItems; ++text) {
    if (*text != delimiter && *text != '\0') {
      item.add(*text);
      continue;
    }
    item.store(out[stored++]);
    if (*text == '\0') break;
  }
}

void vstring::parse_delimitedlist(vstring* out, int maxItems, char delimiter, int honourQuotes) {
  if (out == nullptr || maxItems < 1) return;
  split_honouring(*this, out, maxItems, &delimiter, 1, honourQuotes);
}

void vstring::parse_delimitedlist(vstring* out, int maxItems, const char* delimiter,
                                  int delimiterLength, int honourQuotes) {
  if (out == nullptr || maxItems < 1 || delimiter == nullptr || delimiterLength < 1) return;
  split_honouring(*this, out, maxItems, delimiter, delimiterLength, honourQuotes);
}
