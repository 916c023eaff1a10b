// RndGenKnuth02: Knuth's lagged Fibonacci generator on doubles (2002).
//
// The recurrence is X[n] = (X[n-100] + X[n-37]) mod 1.0 on doubles that are
// all multiples of 2^-52, so every sum is exact and the stream is the same on
// any IEEE-754 machine. The seeding and block logic follow the published
// ranf_start / ranf_array / ranf_arr_cycle step for step; the check value
// (seed 310952, 2009 blocks of 1009: ranU[0] = 0.36410514377569680455) is in
// the tests.
#include <txCommon/random.h>

#include <cstring>

namespace {

constexpr int KK = RndGenKnuth02::kLongLag;
constexpr int LL = RndGenKnuth02::kShortLag;
constexpr int kWork = KK + KK - 1;  // 199: the seeding work array

// Unit in the last place of the state values: 2^-52.
constexpr double kUlp = (1.0 / (1L << 30)) / (1L << 22);

// Seeds are reduced to 30 bits by the published routine.
constexpr txlong kSeedMask = 0x3FFFFFFF;

// Entries of the seeding work array thrown away ten times over to warm up.
constexpr int kWarmUpRounds = 10;

// Draws discarded by Seed() after the first block.
constexpr int kSeedDiscards = 252;

// (x + y) mod 1.0 for x, y in [0, 1): the sum is below 2, so dropping its
// integer part is one subtraction of 0 or 1.
inline double mod_sum(double x, double y) {
  const double s = x + y;
  return s - static_cast<int>(s);
}

}  // namespace

const double RndGenKnuth02::noSeedYet = -1.0;
const double RndGenKnuth02::seedDone = -1.0;

RndGenKnuth02::RndGenKnuth02() : ranU{}, block{}, next(&noSeedYet) {}

RndGenKnuth02::RndGenKnuth02(const RndGenKnuth02& other) : RndGen(other), next(&noSeedYet) {
  *this = other;
}

RndGenKnuth02& RndGenKnuth02::operator=(const RndGenKnuth02& other) {
  if (this == &other) return *this;
  std::memcpy(ranU, other.ranU, sizeof ranU);
  std::memcpy(block, other.block, sizeof block);
  const int at = other.position();
  next = at >= 0 ? block + at : other.next;  // a sentinel is shared by address
  return *this;
}

int RndGenKnuth02::position() const {
  if (next == &noSeedYet || next == &seedDone) return -1;
  return static_cast<int>(next - block);
}

RndGen* RndGenKnuth02::Clone() const { return new RndGenKnuth02(*this); }

void RndGenKnuth02::ranf_array(double* out, int n) {
  int i = 0;
  int j = 0;
  for (j = 0; j < KK; ++j) out[j] = ranU[j];
  for (; j < n; ++j) out[j] = mod_sum(out[j - KK], out[j - LL]);
  for (i = 0; i < LL; ++i, ++j) ranU[i] = mod_sum(out[j - KK], out[j - LL]);
  for (; i < KK; ++i, ++j) ranU[i] = mod_sum(out[j - KK], ranU[i - LL]);
}

void RndGenKnuth02::ranf_start(txlong seed) {
  double u[kWork];
  // Spread the seed over KK values by doubling modulo 1 - 2 ulp; the +2
  // keeps seed 0 from starting at zero.
  double ss = 2.0 * kUlp * static_cast<double>((seed & kSeedMask) + 2);
  for (int j = 0; j < KK; ++j) {
    u[j] = ss;
    ss += ss;
    if (ss >= 1.0) ss -= 1.0 - 2 * kUlp;
  }
  u[1] += kUlp;  // makes u[1] (and only u[1]) an odd multiple of ulp
  // Raise the generator's polynomial to a power chosen by the seed: square
  // for every bit, multiply by x for each set bit, lowest bit first, then
  // kSeedRounds - 1 further squarings once the bits are used up.
  txlong s = seed & kSeedMask;
  for (int t = kSeedRounds - 1; t != 0;) {
    for (int j = KK - 1; j > 0; --j) {
      u[j + j] = u[j];
      u[j + j - 1] = 0.0;
    }
    for (int j = KK + KK - 2; j >= KK; --j) {
      u[j - (KK - LL)] = mod_sum(u[j - (KK - LL)], u[j]);
      u[j - KK] = mod_sum(u[j - KK], u[j]);
    }
    if ((s & 1) != 0) {
      for (int j = KK; j > 0; --j) u[j] = u[j - 1];
      u[0] = u[KK];
      u[LL] = mod_sum(u[LL], u[KK]);
    }
    if (s != 0) {
      s >>= 1;
    } else {
      --t;
    }
  }
  int j = 0;
  for (; j < LL; ++j) ranU[j + KK - LL] = u[j];
  for (; j < KK; ++j) ranU[j - LL] = u[j];
  for (int r = 0; r < kWarmUpRounds; ++r) ranf_array(u, kWork);
  next = &seedDone;
}

double RndGenKnuth02::NextUniform() {
  if (*next >= 0) return *next++;
  // The block is used up (or there is none yet): ranf_arr_cycle.
  if (next == &noSeedYet) ranf_start(static_cast<txlong>(kDefaultSeed));
  ranf_array(block, kQuality);
  block[KK] = -1.0;  // stops the reader after the first KK values
  next = block + 1;
  return block[0];
}

void RndGenKnuth02::Seed(unsigned int seed) {
  // The mask of ranf_start only keeps 30 bits, so the conversion loses none
  // that matter.
  ranf_start(static_cast<txlong>(seed & static_cast<unsigned>(kSeedMask)));
  ranf_array(block, kQuality);
  block[KK] = -1.0;
  next = block + 1;
  for (int k = 0; k < kSeedDiscards; ++k) NextUniform();
}
