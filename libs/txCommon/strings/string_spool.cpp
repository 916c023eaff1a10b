// StringSpool: growth, appends and hand-over.
#include <txCommon/StringSpool.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>
#include <common/convert64.h>

#include <cstdio>
#include <cstring>

namespace {
constexpr int kMinSize = 64;
constexpr int kLargeStep = 16000;  // growth cap for large spools
}  // namespace

StringSpool::StringSpool() : StringSpool(2048) {}

StringSpool::StringSpool(int requested) : used(0), buffer(nullptr), size(0), scratch{} {
  size = requested < kMinSize ? kMinSize : requested;
  buffer = static_cast<char*>(txc::host_allocate(size));
}

StringSpool::~StringSpool() {
  if (buffer != nullptr) {
    size = 0;
    txc::host_release(buffer);
    buffer = nullptr;
  }
}

int StringSpool::Size(int extra) {
  const long long needed = static_cast<long long>(used) + 1 + extra;
  if (needed < size && buffer != nullptr) return 1;
  const long long grown = needed + kLargeStep < needed * 2 ? needed + kLargeStep : needed * 2;
  const int newSize = convert64(grown);
  char* fresh = static_cast<char*>(txc::host_allocate(newSize));
  if (txc::error_pending()) {
    // The host signals its allocation failure here; the block it may have
    // handed out goes back the way it came.
    if (fresh != nullptr) txc::host_release(fresh);
    return 0;
  }
  // No block at all (an exhausted system, or a host that answers null
  // without raising its error): the append is dropped rather than written
  // through a null pointer.
  if (fresh == nullptr) return 0;
  if (used > 0 && buffer != nullptr) std::memcpy(fresh, buffer, static_cast<std::size_t>(used));
  if (buffer != nullptr) txc::host_release(buffer);
  buffer = fresh;
  size = newSize;
  return 1;
}

void StringSpool::clear() {
  used = 0;
  if (buffer != nullptr) buffer[0] = '\0';
}

char* StringSpool::optr() {
  if (buffer == nullptr) {
    // Only a host whose Allocate answered null leaves a spool without a
    // block; it reads as empty.
    thread_local char none[1];
    none[0] = '\0';
    return none;
  }
  buffer[used] = '\0';
  return buffer;
}

void StringSpool::assign(vstring& target) const {
  if (buffer == nullptr) {
    target.clear();
    return;
  }
  buffer[used] = '\0';
  target.put(buffer);
}

void StringSpool::trunc(int n) {
  // Kept inside the block, so that the terminator that optr() and assign()
  // write at index len() can never land outside it.
  if (n < 0) n = 0;
  if (n >= size) n = size > 0 ? size - 1 : 0;
  used = n;
}

void StringSpool::cat(const char* text) {
  if (text == nullptr) return;
  cat(text, convert64(std::strlen(text)));
}

void StringSpool::cat(const char* text, int n) {
  if (text == nullptr || n <= 0 || !Size(n)) return;
  std::memcpy(buffer + used, text, static_cast<std::size_t>(n));
  used += n;
}

void StringSpool::cat(char c) {
  if (!Size(1)) return;
  buffer[used++] = c;
}

void StringSpool::cat(const vstring& text) { cat(text.optr(), static_cast<int>(text.len())); }

void StringSpool::cat_scratch() {
  for (const char* p = scratch; *p != '\0'; ++p) buffer[used++] = *p;
}

void StringSpool::cat(int value) {
  if (!Size(20)) return;
  std::snprintf(scratch, sizeof scratch, "%d", value);
  cat_scratch();
}

void StringSpool::operator=(const char* text) { clear(); cat(text); }
void StringSpool::operator=(char c) { clear(); cat(c); }
void StringSpool::operator=(const vstring& text) { clear(); cat(text); }
void StringSpool::operator=(int value) { clear(); cat(value); }
void StringSpool::operator=(double value) { clear(); cat(value); }

// ---- the string side --------------------------------------------------------

vstring::vstring(const StringSpool& spool) : data(nullptr) { spool.assign(*this); }

vstring& vstring::operator=(const StringSpool& spool) {
  spool.assign(*this);
  return *this;
}
