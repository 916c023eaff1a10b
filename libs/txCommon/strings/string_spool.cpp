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
  if (needed < size) return 1;
  const long long grown = needed + kLargeStep < needed * 2 ? needed + kLargeStep : needed * 2;
  const int newSize = convert64(grown);
  char* fresh = static_cast<char*>(txc::host_allocate(newSize));
  if (txc::error_pending()) {
    // The host signals its allocation failure here; the block it may have
    // handed out goes back the way it came.
    if (fresh != nullptr) txc::host_release(fresh);
    return 0;
  }
  if (used > 0) std::memcpy(fresh, buffer, static_cast<std::size_t>(used));
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
  buffer[used] = '\0';
  return buffer;
}

void StringSpool::assign(vstring& target) const {
  buffer[used] = '\0';
  target.put(buffer);
}

void StringSpool::cat(const char* text) {
  if (text == nullptr) return;
  cat(text, convert64(std::strlen(text)));
}

void StringSpool::cat(const char* text, int n) {
  if (n <= 0 || !Size(n)) return;
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
