// Random alphanumeric text on a per-thread rand()/srand() pair.
//
// The pair is the run-time's classic recurrence written out (see
// random_engine.h), so a given seed yields the same text on every platform.
#include <txCommon/internal/random_engine.h>
#include <txCommon/internal/platform_clock.h>
#include <txCommon/vstring.h>


namespace txc {
namespace {

// A thread that never seeds behaves as if seeded with 1, as the C run-time does.
thread_local std::uint32_t randState = 1;

// Ten digits and 26 lower-case letters.
constexpr int kAlphabetSize = 36;

}  // namespace

void crt_srand(std::uint32_t seed) { randState = seed; }

int crt_rand() { return crt_rand_step(randState); }

}  // namespace txc

// Seeds from the clock before looking at the lengths, so even an empty answer
// restarts the sequence. Whole seconds: two calls in the same second give the
// same text. minLength below 1 gives the empty string; maxLength at or below
// minLength gives exactly minLength characters and draws nothing for the
// length.
vstring vstring::GetRandomAlphaNumericString(int minLength, int maxLength, bool keepSeed) {
  vstring result;
  if (!keepSeed) {
    // The seconds of the platform clock, as the C run-time's time() gives
    // them; only the low 32 bits count.
    txc::crt_srand(txc::platform::clock_now());
  }
  if (minLength < 1) return result;
  // Span in 64 bits: maxLength - minLength + 1 overflows int near INT_MAX.
  long long n = minLength;
  if (maxLength > minLength) {
    const long long span = static_cast<long long>(maxLength) - minLength + 1;
    n += txc::crt_rand() % span;
  }
  char* out = result.alloc(static_cast<unsigned int>(n));
  if (out == nullptr) return result;
  for (long long i = 0; i < n; ++i) {
    const int r = txc::crt_rand() % txc::kAlphabetSize;
    out[i] = static_cast<char>(r < 10 ? '0' + r : 'a' + r - 10);
  }
  out[n] = '\0';
  return result;
}
