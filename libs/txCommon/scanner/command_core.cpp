// command: construction, whole-text operations and the cursor.
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>

#include "scan_chars.h"

command::command() = default;
command::command(const vstring& text) : vstring(text) {}
command::command(vstring& text) : vstring(static_cast<const vstring&>(text)) {}
command::command(command& other) : vstring(static_cast<const vstring&>(other)) {}
command::command(const char* text) : vstring(text) {}
command::~command() = default;

command& command::operator=(const command& other) {
  reset();
  vstring::operator=(static_cast<const vstring&>(other));
  return *this;
}

command& command::operator=(const vstring& other) {
  reset();
  vstring::operator=(other);
  return *this;
}

command& command::operator=(const char* text) {
  reset();
  if (text == nullptr || *text == '\0') {
    clear();
  } else {
    vstring::operator=(text);
  }
  return *this;
}

command& command::putUpr(const char* text) {
  vstring::putUpr(text);
  reset();
  return *this;
}

vstring& command::cat(vstring& other) { return cat(static_cast<const vstring&>(other)); }
vstring& command::cat(char* text) { return cat(static_cast<const char*>(text)); }

vstring& command::cat(const vstring& other) {
  reset();
  return vstring::cat(other);
}

vstring& command::cat(const char* text) {
  reset();
  return vstring::cat(text);
}

vstring& command::cat(char c) {
  reset();
  return vstring::cat(c);
}

command& command::reset() {
  offset = 0;
  prevOffset = 0;
  return *this;
}

void command::backup() { offset = prevOffset; }
int command::GetOffset() { return offset; }
void command::SetOffset(int position) { offset = position; }
int command::AtEnd() { return static_cast<unsigned>(offset) == len() && offset >= 0 ? 1 : 0; }

// Reads never trust the cursor: one set beyond the text (SetOffset, or a text
// cut below it) reads as the end, a negative one as the start.
unsigned command::cursor() const {
  if (offset <= 0) return 0;
  const unsigned n = len();
  return static_cast<unsigned>(offset) < n ? static_cast<unsigned>(offset) : n;
}

vstring& command::Remainder() const {
  return mid(static_cast<int>(cursor()) + 1, txc::temp_buf_len()).ltrim();
}

command& command::trunc(int n) {
  vstring::trunc(n);
  return *this;
}

int command::num_words() {
  reset();
  int count = 0;
  while (true) {
    const unsigned before = cursor();
    if (word(1).len() == 0) break;
    ++count;
    if (cursor() == before) break;  // a scratch buffer too small to take a byte
  }
  reset();
  return count;
}

int command::wordcount() { return num_words(); }

int vstring::isWord() const {
  command probe(*this);
  const vstring& first = probe.word(1);
  const unsigned n = len();
  return first.len() == n && (n == 0 || std::memcmp(first.optr(), optr(), n) == 0) ? 1 : 0;
}
