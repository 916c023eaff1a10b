// vstring: blocks, construction, assignment, appending, cutting, reading.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/vstring_block.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include <cstdlib>
#include <cstring>

namespace txc::block {

char* make(unsigned n) {
  char* base = static_cast<char*>(std::malloc(static_cast<std::size_t>(n) + kOverhead));
  char* text = base + kHeader;
  capacity_word(text) = n + kOverhead;
  length(text) = n;
  return text;
}

void release(char* text) { std::free(text - kHeader); }

}  // namespace txc::block

namespace {

namespace blk = txc::block;

// The one shared empty text. Never written by the library.
char g_emptyText[1] = {0};

// Slack under which a block is kept: fewer than 24 spare bytes, or fewer than
// a sixteenth of the new length.
bool keeps_block(std::uint32_t capacityWord, unsigned n) {
  const std::int32_t slack = static_cast<std::int32_t>(capacityWord - n - blk::kOverhead);
  return slack >= 0 && (slack < 24 || static_cast<unsigned>(slack) < (n >> 4));
}

void report_if_huge(unsigned n) {
  if (n >= txc::kHugeLength) txc::report_error(2121);
}

}  // namespace

// ---- construction ---------------------------------------------------------

vstring::vstring(const char* text) : data(nullptr) { put(text); }

vstring::vstring(const vstring& other) : data(nullptr) { put(other); }

vstring::vstring(const char* text, txlong n) : data(nullptr) {
  if (text == nullptr || n == 0) return;
  const unsigned count = static_cast<unsigned>(n);
  data = blk::make(count);
  report_if_huge(count);
  std::memcpy(data, text, count);
  data[count] = '\0';
}

vstring::~vstring() {
  if (data != nullptr) blk::release(data);
}

// ---- allocation -----------------------------------------------------------

char* vstring::alloc(unsigned int n) {
  if (data != nullptr) {
    if (keeps_block(blk::capacity_word(data), n)) {
      blk::length(data) = n;
      data[0] = '\0';
      return data;
    }
    blk::release(data);
    data = nullptr;
  }
  if (n == 0) return g_emptyText;
  char* text = blk::make(n);
  text[0] = '\0';
  report_if_huge(n);
  data = text;
  return data;
}

char* vstring::calloc(unsigned int n) {
  data = blk::make(n);
  return data;
}

char* vstring::my_calloc(unsigned int n) { return calloc(n); }

// ---- assignment -----------------------------------------------------------

vstring& vstring::put(const vstring& other) {
  if (this == &other) return *this;
  if (other.isNull()) return clear();
  const unsigned n = other.len();
  std::memcpy(alloc(n), other.data, static_cast<std::size_t>(n) + 1);
  return *this;
}

vstring& vstring::put(const char* text) {
  if (text == nullptr || *text == '\0') return clear();
  const unsigned n = static_cast<unsigned>(convert64(std::strlen(text)));
  std::memcpy(alloc(n), text, static_cast<std::size_t>(n) + 1);
  return *this;
}

vstring& vstring::put(char c) {
  if (c == '\0') return clear();
  // A kept block may be at most 24 bytes (capacity - 1 below 24, unsigned).
  if (data == nullptr || blk::capacity_word(data) - blk::kOverhead - 1 >= 24) {
    clear();
    data = blk::make(1);
  }
  blk::length(data) = 1;
  data[0] = c;
  data[1] = '\0';
  return *this;
}

vstring& vstring::operator=(const vstring& other) { return put(other); }
vstring& vstring::operator=(const char* text) { return put(text); }
vstring& vstring::operator=(char c) { return put(c); }

vstring& vstring::putch(const char* text, txlong n) {
  unsigned count = 0;
  if (text != nullptr) {
    while (static_cast<txlong>(count) < n && text[count] != '\0') ++count;
  }
  if (count == 0) return clear();
  char* p = alloc(count);
  std::memcpy(p, text, count);
  p[count] = '\0';
  return *this;
}

vstring& vstring::cpytext(const vstring& source, unsigned int start, unsigned int n) {
  if (n == 0) return clear();
  const char* from = source.optr() + start;
  char* p = alloc(n);
  std::memmove(p, from, n);
  p[n] = '\0';
  return *this;
}

vstring& vstring::move(vstring& other) {
  if (this == &other) return *this;
  if (data != nullptr) blk::release(data);
  data = other.data;
  other.data = nullptr;
  return *this;
}

vstring& vstring::Swap(vstring& other) {
  swap(other);
  return *this;
}

void vstring::swap(vstring& other) noexcept {
  char* t = data;
  data = other.data;
  other.data = t;
}

vstring& vstring::clear() {
  if (data != nullptr) blk::release(data);
  data = nullptr;
  return *this;
}

void vstring::del() { clear(); }
void vstring::Empty() { clear(); }

// ---- appending ------------------------------------------------------------

namespace {

// Appends `n` bytes at `bytes` to the string whose text is `data`. With room
// the bytes go in place; otherwise into a new exact-size block that replaces
// the old one only after the copy, so the operand may be the string itself.
char* append_bytes(char* data, const char* bytes, unsigned n) {
  const unsigned old = data != nullptr ? blk::length(data) : 0;
  const unsigned total = old + n;
  if (data != nullptr &&
      static_cast<std::int32_t>(total) <=
          static_cast<std::int32_t>(blk::capacity_word(data) - blk::kOverhead)) {
    std::memmove(data + old, bytes, n);
    data[total] = '\0';
    blk::length(data) = total;
    return data;
  }
  char* fresh = blk::make(total);
  if (old != 0) std::memcpy(fresh, data, old);
  std::memcpy(fresh + old, bytes, n);
  fresh[total] = '\0';
  if (data != nullptr) blk::release(data);
  return fresh;
}

}  // namespace

vstring& vstring::cat(const vstring& other) {
  const unsigned n = other.len();
  if (len() + n == 0) return *this;
  data = append_bytes(data, other.optr(), n);
  return *this;
}

vstring& vstring::cat(const char* text) {
  const unsigned n = static_cast<unsigned>(convert64(std::strlen(text)));
  if (len() + n == 0) return *this;
  data = append_bytes(data, text, n);
  return *this;
}

vstring& vstring::cat(char c) {
  data = append_bytes(data, &c, 1);
  return *this;
}

void vstring::operator+=(const vstring& other) { cat(other); }
void vstring::operator+=(char c) { cat(c); }

vstring& vstring::catwithcomma(const vstring& other) {
  if (isNull()) return cat(other);
  cat(", ");
  return cat(other);
}

vstring& vstring::catwithlinebreak(const vstring& other) {
  if (!isNull() && !other.isNull()) cat('\n');
  return cat(other);
}

// ---- new strings out of old -----------------------------------------------

namespace {

// Fills a temporary with the bytes a (na long) followed by b (nb long).
vstring& temp_of(const char* a, unsigned na, const char* b, unsigned nb) {
  vstring& t = txc::next_temp();
  const unsigned n = na + nb;
  if (n == 0) return t.clear();
  char* p = t.alloc(n);
  if (na) std::memcpy(p, a, na);
  if (nb) std::memcpy(p + na, b, nb);
  p[n] = '\0';
  return t;
}

unsigned text_length(const char* text) {
  return static_cast<unsigned>(convert64(std::strlen(text)));
}

}  // namespace

vstring& vstring::operator+(const vstring& b) const {
  return temp_of(optr(), len(), b.optr(), b.len());
}

vstring& vstring::operator+(const char* b) const {
  return temp_of(optr(), len(), b, text_length(b));
}

vstring& vstring::operator+(char c) const {
  // The one-byte operand lives on this call's stack, private to the thread.
  const char one[2] = {c, '\0'};
  return temp_of(optr(), len(), one, c != '\0' ? 1 : 0);
}

vstring& operator+(const char* a, const vstring& b) {
  return temp_of(a, text_length(a), b.optr(), b.len());
}

vstring& operator+(char c, const vstring& b) {
  const char one[2] = {c, '\0'};
  return temp_of(one, 1, b.optr(), b.len());
}

vstring& vstring::left(int n) const {
  if (n < 1) return txc::next_temp().clear();
  const unsigned have = len();
  const unsigned take = static_cast<unsigned>(n) < have ? static_cast<unsigned>(n) : have;
  return temp_of(optr(), take, nullptr, 0);
}

vstring& vstring::Left(int n) const { return left(n); }

vstring& vstring::right(int n) const {
  if (n < 1) return txc::next_temp().clear();
  const unsigned have = len();
  if (static_cast<unsigned>(n) >= have) return temp_of(optr(), have, nullptr, 0);
  return temp_of(optr() + (have - static_cast<unsigned>(n)), static_cast<unsigned>(n), nullptr, 0);
}

vstring& vstring::mid(int start, int n) const {
  const unsigned have = len();
  if (start < 1) start = 1;
  const unsigned from = static_cast<unsigned>(start) - 1;
  if (n < 1 || from >= have) return txc::next_temp().clear();
  const unsigned rest = have - from;
  const unsigned take = static_cast<unsigned>(n) < rest ? static_cast<unsigned>(n) : rest;
  return temp_of(optr() + from, take, nullptr, 0);
}

vstring& vstring::trunc(int n) {
  if (n <= 0) return clear();
  const unsigned have = len();
  if (static_cast<unsigned>(n) >= have) return *this;
  if (have - static_cast<unsigned>(n) > 24) {
    // Move the kept text into a block of its own size.
    vstring& t = temp_of(data, static_cast<unsigned>(n), nullptr, 0);
    swap(t);
    return *this;
  }
  data[n] = '\0';
  blk::length(data) = static_cast<unsigned>(n);
  return *this;
}

// ---- reading --------------------------------------------------------------

unsigned int vstring::len() const { return data != nullptr ? blk::length(data) : 0; }
int vstring::GetLength() const { return static_cast<int>(len()); }
unsigned int vstring::blen() const {
  return data != nullptr ? blk::capacity_word(data) - blk::kOverhead : 0;
}
void vstring::putLen(unsigned int n) {
  if (data != nullptr) blk::length(data) = n;
}
bool vstring::IsEmpty() const { return len() == 0; }
int vstring::isNull() const { return len() == 0 ? 1 : 0; }

const char* vstring::optr() const { return data != nullptr ? data : g_emptyText; }
char* vstring::optr() { return data != nullptr ? data : g_emptyText; }
const char* vstring::ioptr() const { return optr(); }
char* vstring::ioptr() { return optr(); }
const char* vstring::GetString() const { return optr(); }
vstring::operator const char*() const { return optr(); }
char* vstring::GetBuffer() { return optr(); }
char* vstring::GetBuffer(int) { return optr(); }
char& vstring::operator[](int i) { return optr()[i]; }
const char& vstring::operator[](int i) const { return optr()[i]; }

// The terminator, not the length field, ends the copy.
char* vstring::cpy(char* target) const {
  std::strcpy(target, optr());
  return target;
}

char* vstring::cpy(char* target, int noTerminator) const {
  const char* from = optr();
  const std::size_t n = std::strlen(from);
  std::memcpy(target, from, n);
  if (noTerminator == 0) target[n] = '\0';
  return target;
}

// ---- exported names that do nothing ----------------------------------------

char vstring::GetAt(int) const { return 0; }
int vstring::Find(char*, int) const { return 0; }
int vstring::Replace(char*, char*) { return 0; }
char* vstring::GetBufferSetLength(int) { return nullptr; }
void vstring::SetAt(int, char) {}
void vstring::ReleaseBuffer() {}
void vstring::ReleaseBufferSetLength(int) {}
void vstring::print() const {}
void vstring::Format(char*, ...) {}
void vstring::AppendFormat(const char*, ...) {}
void vstring::FormatMessage(char*, ...) {}
void vstring::FormatMessage(unsigned int) {}
void vstring::FormatMessageA(char*) {}
void vstring::FormatMessageA(unsigned int) {}
