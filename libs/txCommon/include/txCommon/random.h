// Random generators: uniform doubles from Knuth's lagged Fibonacci generator.
//
// RndGen is the abstract face of a source of uniform doubles in [0, 1);
// RndGenKnuth02 is its one implementation, the floating-point generator that
// Knuth published in 2002 with The Art of Computer Programming, vol. 2, 3.6
// (ranf_start / ranf_array: lags 100 and 37, sums modulo 1.0). The same seed
// gives the same stream on every platform, bit for bit.
//
//   RndGenKnuth02 gen;
//   gen.Seed(12345);
//   double u = gen.NextUniform();     // 0 <= u < 1
//   RndGen* copy = gen.Clone();       // continues exactly where gen stands
//   delete copy;
//
// The library makes one generator at load, unseeded, behind pRandomGenerator
// (and pDefaultRandomGenerator, the same object); a first draw from an
// unseeded generator seeds it with 314159.
//
// Neither class is exported from the shared library: they are reached through
// the static library, by the library's own code and by tools built with it.
// A generator has no lock: one object serves one thread at a time.
//
// Random text (vstring::GetRandomAlphaNumericString) does not use these
// classes; it runs on a per-thread rand()-style recurrence of its own.
#pragma once

#include <txCommon/export.h>

// The order of the virtual operations is fixed: slot 0 Clone, slot 1 the
// destructor, 2 GeneratorId, 3 Reserved, 4 Seed, 5 NextUniform.
class RndGen {
public:
  // A new generator on the heap that continues exactly as this one would.
  virtual RndGen* Clone() const = 0;
  virtual ~RndGen() {}
  // Identifies the kind of generator to a host-side caller.
  virtual int GeneratorId() const = 0;
  // Kept for the layout of the slots; does nothing.
  virtual void Reserved() {}
  // Restarts the stream; any 32-bit value is a valid seed (bits above the
  // 30th are ignored by the Knuth generator).
  virtual void Seed(unsigned int seed) = 0;
  // The next double in [0, 1).
  virtual double NextUniform() = 0;

protected:
  RndGen() = default;
  RndGen(const RndGen&) = default;
  RndGen& operator=(const RndGen&) = default;
};

class RndGenKnuth02 : public RndGen {
public:
  // Long lag, short lag, block length and seeding rounds of the published
  // routine. Only the first kLongLag values of each block are handed out;
  // the rest are thrown away, which is what makes the stream good.
  static constexpr int kLongLag = 100;       // KK
  static constexpr int kShortLag = 37;       // LL
  static constexpr int kQuality = 1009;      // QUALITY
  static constexpr int kSeedRounds = 70;     // TT
  static constexpr unsigned int kDefaultSeed = 314159;
  static constexpr int kGeneratorId = 3;

  // Zeroed state, unseeded.
  RndGenKnuth02();
  // Copies carry the whole state; `next` is rebased onto the copy's block.
  RndGenKnuth02(const RndGenKnuth02& other);
  RndGenKnuth02& operator=(const RndGenKnuth02& other);
  ~RndGenKnuth02() override {}

  RndGen* Clone() const override;
  int GeneratorId() const override { return kGeneratorId; }
  void Reserved() override {}
  // ranf_start(seed), one block filled (its first value is not handed out),
  // then 252 draws discarded.
  void Seed(unsigned int seed) override;
  double NextUniform() override;

  // The published routines, exactly: ranf_start sets ranU from the seed
  // (masked to 30 bits) and leaves `next` on the seeded sentinel; ranf_array
  // writes n >= 100 values to out and advances ranU.
  void ranf_start(txlong seed);
  void ranf_array(double* out, int n);

  // True when no seed has been given yet (the next draw seeds with 314159).
  bool unseeded() const { return next == &noSeedYet; }
  // Where the next draw is read: 0..kQuality-1 in `block`, or -1 on a sentinel.
  int position() const;

  double ranU[kLongLag];   // the generator state (ran_u)
  double block[kQuality];  // the block last produced (ranf_arr_buf)
  const double* next;      // into block, or on one of the two sentinels

  // Both hold -1.0; a draw recognises them by address.
  static const double noSeedYet;  // where a new object starts
  static const double seedDone;   // where ranf_start leaves `next`
};

// The library's generator, made at load and deleted at unload. Both pointers
// name the same object; the library itself never draws from it.
extern RndGen* pRandomGenerator;
extern RndGen* pDefaultRandomGenerator;
