// Ordering and equality with no host, against strcmp and strcasecmp where the
// library's collation and theirs agree.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <strings.h>

namespace {

int sign(int v) { return (v > 0) - (v < 0); }

vstring make(const std::string& s) { return vstring(s.data(), static_cast<txlong>(s.size())); }

TEST(Compare, OrderingRule) {
  struct Case {
    const char* a;
    const char* b;
    int want;  // sign
  } cases[] = {
      {"A_", "AB", -1},  // '_' below every letter
      {"A_", "Ab", -1},
      {"AB", "A_", 1},
      {"Ab", "AB", 1},  // small letters above capitals
      {"abc", "abc", 0},
      {"", "", 0},
      {"ab", "abc", -1},
      {"abc", "ab", 1},
      {"[", "a", -1},
      {"`", "A", -1},
      {"z", "`", 1},
      {"\xE9", "A", -1},  // high bytes are negative
      {"\xE9", "", -1},   // even below the terminator
      {"a", "\xE9", 1},
      {"_", "_", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " / " + c.b);
    vstring a(c.a);
    vstring b(c.b);
    EXPECT_EQ(sign(a.compare(b)), c.want);
    EXPECT_EQ(sign(a.cmp(b, 0xFFFFFFFFu)), c.want);
    EXPECT_EQ(sign(a.cmp(c.b, 1000)), c.want);
    EXPECT_EQ(sign(a.fcmp(c.b, 1000)), c.want);
    EXPECT_EQ(a < b, c.want < 0 ? 1 : 0);
    EXPECT_EQ(a > b, c.want > 0 ? 1 : 0);
    EXPECT_EQ(a <= b, c.want <= 0 ? 1 : 0);
    EXPECT_EQ(a >= b, c.want >= 0 ? 1 : 0);
  }
}

TEST(Compare, ExactValuesOfTheRule) {
  // a - tolower(b), tolower(a) - b, or a - b, on signed bytes.
  EXPECT_EQ(vstring("_").compare(vstring("B")), 0x5F - 0x62);
  EXPECT_EQ(vstring("B").compare(vstring("_")), 0x62 - 0x5F);
  EXPECT_EQ(vstring("b").compare(vstring("A")), 0x62 - 0x41);
  EXPECT_EQ(vstring("\x80").compare(vstring("a")), -128 - 0x61);
  EXPECT_EQ(vstring("_").compare(vstring("\xFF")), 0x5F - (-1));
}

TEST(Compare, AgreesWithStrcmpOutsideThePunctuationGap) {
  std::mt19937 rng(7);
  std::uniform_int_distribution<int> pick(0, 61);
  const char* alphabet = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  for (int round = 0; round < 5000; ++round) {
    std::string a, b;
    for (int i = pick(rng) % 5; i > 0; --i) a += alphabet[pick(rng)];
    b = a.substr(0, static_cast<size_t>(pick(rng)) % (a.size() + 1));
    for (int i = pick(rng) % 3; i > 0; --i) b += alphabet[pick(rng)];
    SCOPED_TRACE(a + " / " + b);
    vstring va(a.c_str()), vb(b.c_str());
    ASSERT_EQ(sign(va.compare(vb)), sign(std::strcmp(a.c_str(), b.c_str())));
    const int folded = sign(strcasecmp(a.c_str(), b.c_str()));
    ASSERT_EQ(va.caselessEqual(vb), folded == 0 ? 1 : 0);
    ASSERT_EQ(va.caselessEqual(b.c_str()), folded == 0 ? 1 : 0);
    // compareX: caseless first, exact order only to break the tie.
    const int x = sign(va.compareX(vb));
    if (folded != 0) {
      ASSERT_EQ(x, folded);
    } else {
      ASSERT_EQ(x, sign(std::strcmp(a.c_str(), b.c_str())));
    }
    ASSERT_EQ(sign(va.CompareNoCase(vb)), x);
    ASSERT_EQ(sign(va.CompareNoCase(b.c_str())), x);
  }
}

// The rule written out plainly, byte by byte, as the reference for the word-
// at-a-time scan: texts share long prefixes and hold gap, high and zero bytes.
int plain_rule(const std::string& a, const std::string& b, size_t bound) {
  auto lower = [](int c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; };
  size_t i = 0;
  while (i + 1 < bound && a.c_str()[i] != 0 && a.c_str()[i] == b.c_str()[i]) ++i;
  const int x = static_cast<signed char>(a.c_str()[i]);
  const int y = static_cast<signed char>(b.c_str()[i]);
  if (x >= 0x5B && x <= 0x60) return x - lower(y);
  if (y >= 0x5B && y <= 0x60) return lower(x) - y;
  return x - y;
}

TEST(Compare, WordScanMatchesPlainRule) {
  std::mt19937 rng(99);
  const char pool[] = {'A', 'a', 'Z', '_', '[', '`', '\x80', '\xFF', '0', '\0'};
  std::uniform_int_distribution<int> pick(0, 9);
  std::uniform_int_distribution<int> size(0, 40);
  for (int round = 0; round < 20000; ++round) {
    std::string a;
    for (int i = size(rng); i > 0; --i) a += (pick(rng) < 8 ? 'm' : pool[pick(rng)]);
    std::string b = a.substr(0, static_cast<size_t>(size(rng)) % (a.size() + 1));
    for (int i = size(rng) % 4; i > 0; --i) b += pool[pick(rng)];
    const unsigned n = static_cast<unsigned>(size(rng));
    vstring va = make(a), vb = make(b);
    ASSERT_EQ(va.compare(vb), plain_rule(a, b, SIZE_MAX)) << round;
    ASSERT_EQ(va.cmp(vb, n), plain_rule(a, b, n)) << round;
    ASSERT_EQ(va < vb, plain_rule(a, b, 131040) < 0 ? 1 : 0) << round;
    const int folded = strcasecmp(a.c_str(), b.c_str());
    ASSERT_EQ(sign(va.compareX(vb)), folded != 0 ? sign(folded) : sign(plain_rule(a, b, SIZE_MAX)))
        << round;
  }
}

TEST(Compare, CaselessForms) {
  vstring abc("abc"), ABC("ABC");
  EXPECT_GT(abc.compareX(ABC), 0) << "differing in case only is not equal";
  EXPECT_LT(ABC.compareX(abc), 0);
  EXPECT_EQ(abc.caselessEqual(ABC), 1);
  EXPECT_EQ(abc.caselessEqual("AbC"), 1);
  EXPECT_EQ(abc.caselessEqual("ab"), 0);
  EXPECT_EQ(vstring().caselessEqual(static_cast<const char*>(nullptr)), 1);
  EXPECT_EQ(abc.CompareNoCase(static_cast<const char*>(nullptr)), abc.compareX(vstring()));
  EXPECT_EQ(vstring().CompareNoCase(""), 0);
  // _stricmp folds to lower case: '_' sorts below the letters either way.
  EXPECT_LT(vstring("_").compareX(vstring("A")), 0);
  // High bytes compare unsigned in the caseless step.
  EXPECT_GT(vstring("\xE9").compareX(vstring("z")), 0);
}

TEST(Compare, BoundedScan) {
  vstring a("abcX"), b("abcY");
  struct Case {
    unsigned n;
    int want;
  } cases[] = {{0, 0}, {1, 0}, {3, 0}, {4, -1}, {5, -1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.n);
    EXPECT_EQ(sign(a.cmp(b, c.n)), c.want);
    EXPECT_EQ(sign(a.cmp("abcY", c.n)), c.want);
  }
  // Bound 0 or 1 still decides on the first pair.
  EXPECT_LT(vstring("a").cmp("b", 0), 0);
  EXPECT_EQ(vstring("abc").cmp(static_cast<const char*>(nullptr), 5), 'a');
}

TEST(Compare, OperatorsSeeAtMostTempBufLenBytes) {
  const int bound = _psTempBufLen2();
  ASSERT_EQ(bound, 131040);
  std::string base(static_cast<size_t>(bound) + 10, 'm');
  struct Case {
    const char* label;
    size_t differAt;  // 0-based index of the differing byte
    bool seen;
  } cases[] = {
      {"last byte within the bound", static_cast<size_t>(bound) - 1, true},
      {"first byte past the bound", static_cast<size_t>(bound), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    std::string lo = base, hi = base;
    lo[c.differAt] = 'a';
    hi[c.differAt] = 'z';
    vstring l(lo.c_str()), h(hi.c_str());
    EXPECT_EQ(l < h, c.seen ? 1 : 0);
    EXPECT_EQ(l <= h, 1);
    EXPECT_EQ(l >= h, c.seen ? 0 : 1);
    EXPECT_EQ(l.caselessEqual(h), c.seen ? 0 : 1);
    EXPECT_LT(l.compare(h), 0) << "compare has no bound";
    EXPECT_EQ(l == h, 0) << "equality has no bound";
  }
}

TEST(Compare, Equality) {
  vstring none;
  vstring zeroLength;
  zeroLength.calloc(8);
  zeroLength.alloc(0);
  EXPECT_EQ(none == zeroLength, 1);
  EXPECT_EQ(none != zeroLength, 0);
  EXPECT_EQ(none == "", 1);
  EXPECT_EQ(zeroLength == static_cast<const char*>(nullptr), 1);
  vstring abc("abc");
  EXPECT_EQ(abc == "abc", 1);
  EXPECT_EQ(abc != "abd", 1);
  EXPECT_EQ(abc == vstring("abcd"), 0);
  EXPECT_EQ(abc == 'a', 0);
  EXPECT_EQ(vstring("a") == 'a', 1);
  EXPECT_EQ(none == 'a', 0);
  // Equality stops at the terminator, not at the length.
  EXPECT_EQ(make(std::string("ab\0x", 4)) == "ab", 1);
}

}  // namespace
