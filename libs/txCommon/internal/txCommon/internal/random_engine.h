// Internal: not part of the public interface. Generator engines.
//
// The rand()/srand() pair behind random text. It is the classic linear
// congruential recurrence of the Windows C run-time,
//
//   state = state * 214013 + 2531011   (mod 2^32),  result = bits 16..30,
//
// kept per thread and written out here so that a seed gives the same text on
// every platform, whatever the local C library does. A thread that never
// seeds starts as if seeded with 1: 41, 18467, 6334, 26500, 19169, ...
#pragma once

#include <txCommon/export.h>

#include <cstdint>

namespace txc {

// Largest value crt_rand returns: 15 bits.
inline constexpr int kCrtRandMax = 0x7FFF;

// Sets the calling thread's state.
void crt_srand(std::uint32_t seed);
// Steps the calling thread's state; 0..kCrtRandMax.
int crt_rand();

// One step of the recurrence, for tests and tools that keep their own state.
inline int crt_rand_step(std::uint32_t& state) {
  state = state * 214013u + 2531011u;
  return static_cast<int>((state >> 16) & 0x7FFFu);
}

}  // namespace txc
