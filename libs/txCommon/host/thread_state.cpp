// The built-in road's per-thread state: the ring of temporaries, the scratch
// buffer and the short number text. All of it is zero-initialised thread
// storage, so a new thread sees the start values before any library code has
// run; ring and buffer are made on first use and live to the end of the
// process (nothing runs at thread detach).
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace txc {
namespace {

struct ThreadBlock {
  unsigned tempPos;     // index of the temporary most recently handed out
  vstring* tempRing;    // kTempRingSize entries, made on the first request
  char numberText[32];  // short formatted numbers: at most 31 bytes and an end
  char* tempBuf;        // kTempBufLen + 8 bytes, made on first use
};

thread_local ThreadBlock tls{};

}  // namespace

vstring& next_temp() {
  if (ITXCommonCallback* h = host()) return *h->NextTempString();
  if (tls.tempRing == nullptr) tls.tempRing = new vstring[kTempRingSize];
  if (++tls.tempPos > kTempRingSize - 1) tls.tempPos = 0;
  return tls.tempRing[tls.tempPos];
}

char* temp_buf() {
  if (ITXCommonCallback* h = host()) return h->TempBuf();
  if (tls.tempBuf == nullptr) tls.tempBuf = new char[kTempBufLen + 8];
  return tls.tempBuf;
}

int temp_buf_len() {
  if (ITXCommonCallback* h = host()) return h->TempBufLen();
  return kTempBufLen;
}

int ensure_temp_buf_bounded(int size) {
  if (ITXCommonCallback* h = host()) return h->EnsureTempBuf(size, kEnsureLimit);
  return size < kEnsureLimit ? 1 : 0;
}

void ensure_temp_buf(int size) {
  if (ITXCommonCallback* h = host()) h->EnsureTempBuf(size, kEnsureLimit);
}

char* number_text() { return tls.numberText; }

}  // namespace txc

char* _psTempBuf2(void) { return txc::temp_buf(); }
txlong _psTempBufLen2(void) { return txc::temp_buf_len(); }
