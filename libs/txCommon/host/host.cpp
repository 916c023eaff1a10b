// txcommon_initialize, the missing-value constants, and the report, assert
// and allocation roads of the host bridge.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <cstdlib>
#include <cstring>

ITXCommonCallback* pCommonCallback = nullptr;
double dNA = 0.0;
std::uint32_t NaMask = 0;

void txcommon_initialize(ITXCommonCallback* host) {
  const bool registered = pCommonCallback != nullptr;
  dNA = 0.0;
  NaMask = 0;
  // Top 16 bits of dNA become 0xFFF8 (a negative quiet NaN) and of NaMask
  // 0x7FF0: the exponent field that every NaN and infinity fills.
  const std::uint64_t naBits = std::uint64_t{0xFFF8} << 48;
  std::memcpy(&dNA, &naBits, sizeof dNA);
  NaMask = std::uint32_t{0x7FF0} << 16;
  if (!registered) pCommonCallback = host;
}

int ISNA(const double& value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  const std::uint32_t high = static_cast<std::uint32_t>(bits >> 32);
  return (high & NaMask) == NaMask ? 1 : 0;
}

namespace txc {

void report_error(int code) {
  if (ITXCommonCallback* h = host()) h->ReportError(code);
}

void report_error_args(int code, const vstring& detail) {
  if (ITXCommonCallback* h = host()) {
    const vstring first;
    h->ReportErrorArgs(code, first, detail);
  }
}

int error_pending() {
  ITXCommonCallback* h = host();
  return h != nullptr ? h->ErrorPending() : 0;
}

void assert_failed(const char* sourceFile, int line) {
  if (ITXCommonCallback* h = host()) h->AssertFailed(sourceFile, line);
}

void* host_allocate(int size) {
  if (ITXCommonCallback* h = host()) return h->Allocate(size);
  return std::malloc(static_cast<std::size_t>(size));
}

void host_release(void* block) {
  if (ITXCommonCallback* h = host()) {
    h->Release(block);
  } else {
    std::free(block);
  }
}

}  // namespace txc
