// vstring::hash: the 32-bit hash of the word table.
//
// A Bernstein multiply-by-33 pass over the bytes from a fixed seed, followed
// by a fixed scramble of the result. Every value and step is part of the
// contract: hashes are compared with ones computed elsewhere, so none of the
// constants may change.
//
//   vstring().hash() == vstring("").hash()   // the seed, scrambled
#include <txCommon/vstring.h>

#include <cstdint>

namespace {

constexpr std::uint32_t kSeed = 0xFE51983Bu;
constexpr std::uint32_t kStep = 33;
// The scramble: x = h * kSpread, then x * kMix - (x / kDivisor) * kFold, all
// modulo 2^32 with unsigned division.
constexpr std::uint32_t kSpread = 4256657u;
constexpr std::uint32_t kMix = 8513314u;
constexpr std::uint32_t kDivisor = 1021u;
constexpr std::uint32_t kFold = 51079501u;

// Four steps at once, h * 33^4 + (b0 * 33^3 + b1 * 33^2 + b2 * 33 + b3), give
// the same value modulo 2^32 with a shorter chain of dependent multiplies.
constexpr std::uint32_t kStep2 = kStep * kStep;
constexpr std::uint32_t kStep3 = kStep2 * kStep;
constexpr std::uint32_t kStep4 = kStep3 * kStep;

std::uint32_t byte_at(const char* p, unsigned i) { return static_cast<unsigned char>(p[i]); }

}  // namespace

// Hashes the len() bytes, zero bytes inside the length included.
unsigned int vstring::hash() const {
  std::uint32_t h = kSeed;
  const unsigned n = len();
  unsigned i = 0;
  for (; i + 4 <= n; i += 4) {
    h = h * kStep4 + (byte_at(data, i) * kStep3 + byte_at(data, i + 1) * kStep2 +
                      byte_at(data, i + 2) * kStep + byte_at(data, i + 3));
  }
  for (; i < n; ++i) h = h * kStep + byte_at(data, i);
  const std::uint32_t x = h * kSpread;
  return x * kMix - (x / kDivisor) * kFold;
}
