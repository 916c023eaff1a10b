// Internal: not part of the public interface.
//
// The two roads of every host service. Each helper tests the registered host
// afresh at the point of use (never cached) and either calls its slot or takes
// the built-in road of the calling thread.
#pragma once

#include <txCommon/host.h>

class vstring;

// The registered host, or null. Written only by txcommon_initialize.
extern ITXCommonCallback* pCommonCallback;

namespace txc {

// Size of the built-in scratch buffer as reported; the block has 8 more bytes.
inline constexpr int kTempBufLen = 131040;  // 0x1FFE0
// Entries of the built-in ring of temporaries.
inline constexpr int kTempRingSize = 96;
// The bound the library passes as `limit` to EnsureTempBuf, and the bound of
// insert and WReplace on the built-in road.
inline constexpr int kEnsureLimit = 8192;
// Lengths at or above this are reported with code 2121 when a block is made.
inline constexpr unsigned kHugeLength = 64000000;

inline ITXCommonCallback* host() { return pCommonCallback; }

// Report nothing without a host.
void report_error(int code);
void report_error_args(int code, const vstring& detail);
// 0 without a host.
int error_pending();
// Nothing without a host; the caller goes on either way.
void assert_failed(const char* sourceFile, int line);

// The next temporary: the host's NextTempString() or this thread's ring.
vstring& next_temp();
// Scratch buffer of the host or of this thread (allocated on first use).
char* temp_buf();
int temp_buf_len();
// With a host, EnsureTempBuf(size, 8192) and its answer; without one, whether
// `size` is below 8192 (the built-in buffer never grows).
int ensure_temp_buf_bounded(int size);
// With a host, EnsureTempBuf(size, 8192), answer ignored; nothing without one.
void ensure_temp_buf(int size);

// Allocation road of StringSpool and word-list buffers.
void* host_allocate(int size);
void host_release(void* block);

// The per-thread 32-byte buffer for short formatted numbers.
char* number_text();

// Double quote, or 0x93/0x94 under a host whose code page is 1252. The byte is
// tested first, then the host, and only then is GetCodePage called.
inline bool isQuoteByte(char c) {
  if (c == '"') return true;
  const unsigned char u = static_cast<unsigned char>(c);
  if (u != 0x93 && u != 0x94) return false;
  ITXCommonCallback* h = pCommonCallback;
  return h != nullptr && h->GetCodePage() == 1252;
}

}  // namespace txc

using txc::isQuoteByte;

// Internal checks of the date and variant code: reported to the host, which
// may log them; execution goes on.
#define TXC_ASSERT(cond) \
  do { if (!(cond)) ::txc::assert_failed(__FILE__, __LINE__); } while (0)
