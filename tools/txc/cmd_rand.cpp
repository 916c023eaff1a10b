// txc rand: draws from the Knuth generator, and random alphanumeric text.
//
//   txc rand [--seed N] [--count K]       K uniform doubles (default 10)
//   txc rand string MIN MAX [--keep-seed]  MIN..MAX characters of [0-9a-z]
#include "command.h"

#include <txCommon/internal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using txc_tool::Args;

// The largest count one call prints; more is a typing slip, not a request.
constexpr long long kMaxCount = 10000000;

// Whole decimal number within [lo, hi]; false on anything else.
bool parse_integer(const std::string& text, long long lo, long long hi, long long* out) {
  if (text.empty()) return false;
  errno = 0;
  char* end = nullptr;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (errno != 0 || end == text.c_str() || *end != '\0' || v < lo || v > hi) return false;
  *out = v;
  return true;
}

int usage_error(const char* what) {
  std::fprintf(stderr, "txc rand: %s (try 'txc help rand')\n", what);
  return 2;
}

int run_string(const Args& args) {
  long long values[2] = {0, 0};
  int positional = 0;
  bool keepSeed = false;
  for (const std::string& a : args) {
    if (a == "--keep-seed") {
      keepSeed = true;
    } else if (positional < 2 && parse_integer(a, -2147483648LL, 2147483647LL, &values[positional])) {
      ++positional;
    } else {
      return usage_error(("unexpected argument '" + a + "'").c_str());
    }
  }
  if (positional != 2) return usage_error("'rand string' needs MIN and MAX");
  if (values[0] > 1000000 || values[1] > 1000000) return usage_error("lengths above 1000000");
  const vstring s = vstring::GetRandomAlphaNumericString(static_cast<int>(values[0]),
                                                         static_cast<int>(values[1]), keepSeed);
  std::printf("%s\n", txc_tool::visible(s.optr(), s.len()).c_str());
  return 0;
}

int run(const Args& args) {
  if (!args.empty() && args[0] == "string") return run_string(Args(args.begin() + 1, args.end()));
  long long seed = -1;
  long long count = 10;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const bool hasValue = i + 1 < args.size();
    if (args[i] == "--seed" && hasValue) {
      if (!parse_integer(args[++i], 0, 4294967295LL, &seed)) return usage_error("bad --seed");
    } else if (args[i] == "--count" && hasValue) {
      if (!parse_integer(args[++i], 0, kMaxCount, &count)) return usage_error("bad --count");
    } else {
      return usage_error(("unexpected argument '" + args[i] + "'").c_str());
    }
  }
  auto gen = std::make_unique<RndGenKnuth02>();
  if (seed >= 0) gen->Seed(static_cast<unsigned>(seed));
  for (long long k = 0; k < count; ++k) std::printf("%.17g\n", gen->NextUniform());
  return 0;
}

void tour() {
  auto gen = std::make_unique<RndGenKnuth02>();
  gen->Seed(12345);
  std::printf("Seed(12345), three draws:");
  for (int k = 0; k < 3; ++k) std::printf(" %.16f", gen->NextUniform());
  gen->ranf_start(310952);
  std::printf("\nranf_start(310952): ranU[0] = %.16f\n", gen->ranU[0]);
  txc::crt_srand(1);
  const vstring s = vstring::GetRandomAlphaNumericString(8, 12, true);
  std::printf("srand(1), GetRandomAlphaNumericString(8, 12): %s\n",
              txc_tool::visible(s.optr(), s.len()).c_str());
}

const txc_tool::Registration registration{txc_tool::Command{
    "rand", nullptr, "uniform draws, or random alphanumeric text",
    "txc rand [--seed N] [--count K]\n"
    "  K draws (default 10) from the Knuth lagged Fibonacci generator, one per\n"
    "  line with 17 significant digits. Without --seed the generator seeds\n"
    "  itself with 314159 on the first draw.\n"
    "txc rand string MIN MAX [--keep-seed]\n"
    "  MIN..MAX characters of 0-9 and a-z, between brackets. The rand() state\n"
    "  is reseeded from the clock (whole seconds) unless --keep-seed is given;\n"
    "  each run of txc starts from the state of seed 1.",
    run, tour}};

}  // namespace
