// vstring: blocks, construction, assignment, appending, cutting, reading.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/vstring_block.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace txc::block {

char* make(unsigned n) {
  // A length beyond int's range is never valid: the check ends the process.
  convert64(n);
  char* base = static_cast<char*>(std::malloc(static_cast<std::size_t>(n) + kOverhead));
  // Writing the header through a null block would be the worst answer to an
  // exhausted system; the allocation operator's answer is the library's.
  if (base == nullptr) throw std::bad_alloc();
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

unsigned capacity_of(const char* data) { return blk::capacity_word(data) - blk::kOverhead; }

// The bytes of a text that lie inside its block: the length, unless putLen
// has set it beyond the capacity, which no copy may read past.
unsigned stored_len(const char* data) {
  if (data == nullptr) return 0;
  const unsigned length = blk::length(data);
  const unsigned capacity = capacity_of(data);
  return length < capacity ? length : capacity;
}

// Whether `p` points into the block of `data` (header, text or tail).
bool points_into(const char* data, const char* p) {
  if (data == nullptr || p == nullptr) return false;
  const auto first = reinterpret_cast<std::uintptr_t>(data) - blk::kHeader;
  const auto end = reinterpret_cast<std::uintptr_t>(data) + capacity_of(data) + 5;
  const auto at = reinterpret_cast<std::uintptr_t>(p);
  return at >= first && at < end;
}

}  // namespace

// ---- construction ---------------------------------------------------------

vstring::vstring(const char* text) : data(nullptr) { put(text); }

vstring::vstring(const vstring& other) : data(nullptr) { put(other); }

vstring::vstring(const char* text, txlong n) : data(nullptr) {
  // A negative count would read gigabytes: it makes an empty string as 0 does.
  if (text == nullptr || n <= 0) return;
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
  const unsigned n = stored_len(other.data);
  if (n == 0) return clear();
  char* p = alloc(n);
  std::memcpy(p, other.data, n);
  // Written, not copied: a length set short by putLen has no zero behind it.
  p[n] = '\0';
  return *this;
}

vstring& vstring::put(const char* text) {
  if (text == nullptr || *text == '\0') return clear();
  if (points_into(data, text)) {
    // alloc may free or overwrite the block the text lies in: copy it first.
    const std::string kept(text);
    return put(kept.c_str());
  }
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
  if (points_into(data, text)) {
    const std::string kept(text, count);
    return putch(kept.c_str(), n);
  }
  char* p = alloc(count);
  std::memcpy(p, text, count);
  p[count] = '\0';
  return *this;
}

vstring& vstring::cpytext(const vstring& source, unsigned int start, unsigned int n) {
  if (n == 0) return clear();
  // Only the text and terminator of `source` are read; bytes asked for beyond
  // them come out as zeros rather than as whatever lies past its block.
  const unsigned have = stored_len(source.data) + (source.data != nullptr ? 1 : 0);
  const unsigned avail = start < have ? have - start : 0;
  const unsigned take = n < avail ? n : avail;
  const char* from = take != 0 ? source.data + start : nullptr;
  std::string kept;
  if (take != 0 && &source == this) {
    // alloc may free or overwrite the very bytes to be copied.
    kept.assign(from, take);
    from = kept.data();
  }
  char* p = alloc(n);
  if (take != 0) std::memmove(p, from, take);
  if (take < n) std::memset(p + take, 0, n - take);
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
  const unsigned old = stored_len(data);
  // A sum past int's range would pass the signed room test below: fatal.
  const unsigned total = static_cast<unsigned>(convert64(std::uint64_t{old} + n));
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
  const unsigned n = stored_len(other.data);
  if (stored_len(data) + n == 0) return *this;
  data = append_bytes(data, other.optr(), n);
  return *this;
}

vstring& vstring::cat(const char* text) {
  if (text == nullptr) return *this;  // read as the empty text
  const unsigned n = static_cast<unsigned>(convert64(std::strlen(text)));
  if (stored_len(data) + n == 0) return *this;
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
  std::string kept;
  const char* own = t.blen() != 0 ? t.optr() : nullptr;  // never the shared empty text
  if (points_into(own, a) || points_into(own, b)) {
    // The temporary handed out is an operand itself (a ring gone round):
    // alloc would pull the text from under the copy.
    if (na != 0) kept.append(a, na);
    if (nb != 0) kept.append(b, nb);
    a = kept.data();
    b = kept.data() + na;
  }
  char* p = t.alloc(n);
  if (na) std::memcpy(p, a, na);
  if (nb) std::memcpy(p + na, b, nb);
  p[n] = '\0';
  return t;
}

// The length of `s` as far as its block holds it (see stored_len).
unsigned readable(const vstring& s) { return s.len() < s.blen() ? s.len() : s.blen(); }

unsigned text_length(const char* text) {
  return text != nullptr ? static_cast<unsigned>(convert64(std::strlen(text))) : 0;
}

}  // namespace

vstring& vstring::operator+(const vstring& b) const {
  return temp_of(optr(), readable(*this), b.optr(), readable(b));
}

vstring& vstring::operator+(const char* b) const {
  return temp_of(optr(), readable(*this), b, text_length(b));
}

vstring& vstring::operator+(char c) const {
  // The one-byte operand lives on this call's stack, private to the thread.
  const char one[2] = {c, '\0'};
  return temp_of(optr(), readable(*this), one, c != '\0' ? 1 : 0);
}

vstring& operator+(const char* a, const vstring& b) {
  return temp_of(a, text_length(a), b.optr(), readable(b));
}

vstring& operator+(char c, const vstring& b) {
  const char one[2] = {c, '\0'};
  return temp_of(one, 1, b.optr(), readable(b));
}

vstring& vstring::left(int n) const {
  if (n < 1) return txc::next_temp().clear();
  const unsigned have = readable(*this);
  const unsigned take = static_cast<unsigned>(n) < have ? static_cast<unsigned>(n) : have;
  return temp_of(optr(), take, nullptr, 0);
}

vstring& vstring::Left(int n) const { return left(n); }

vstring& vstring::right(int n) const {
  if (n < 1) return txc::next_temp().clear();
  const unsigned have = readable(*this);
  if (static_cast<unsigned>(n) >= have) return temp_of(optr(), have, nullptr, 0);
  return temp_of(optr() + (have - static_cast<unsigned>(n)), static_cast<unsigned>(n), nullptr, 0);
}

vstring& vstring::mid(int start, int n) const {
  const unsigned have = readable(*this);
  if (start < 1) start = 1;
  const unsigned from = static_cast<unsigned>(start) - 1;
  if (n < 1 || from >= have) return txc::next_temp().clear();
  const unsigned rest = have - from;
  const unsigned take = static_cast<unsigned>(n) < rest ? static_cast<unsigned>(n) : rest;
  return temp_of(optr() + from, take, nullptr, 0);
}

vstring& vstring::trunc(int n) {
  if (n <= 0) return clear();
  const unsigned have = readable(*this);
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
