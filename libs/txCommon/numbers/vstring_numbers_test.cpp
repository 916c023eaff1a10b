// The vstring number conversions on the built-in road, with the C library's
// atol/atof in the "C" locale as the oracle.
#include <txCommon/txCommon.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

bool is_dna(double v) {
  std::uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  return bits == 0xFFF8000000000000ULL;
}

// Both sides as bits, so that NaNs and signed zeros compare too.
bool same(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b)); }

const char* const kAtofTexts[] = {
    "", "12", "  -12.5e3xyz", "+.5", "-.e5", "1e", "1e+", "0x1p3", "0X1.8P1", "0x", "0xg", "inf", "-Infinity",
    "nan", "nan(12)", "1,5", "1.5", "  \t\n42", "--5", "+-5", "1e400", "-1e400", "1e-400", "1e-320",
    "123456789012345678901234567890", "\2005", "5\x80", ".", "e5", "NA", " NA", "na", "0.1e-2",
};

TEST(VstringNumbers, DvalIsAtofInTheCLocale) {
  for (const char* t : kAtofTexts) {
    SCOPED_TRACE(t);
    const double want = std::strcmp(t, "NA") == 0 ? dNA : std::atof(t);
    EXPECT_TRUE(same(vstring(t).dval(), want)) << vstring(t).dval() << " vs " << want;
  }
  EXPECT_TRUE(is_dna(vstring("NA").dval()));
  EXPECT_EQ(vstring().dval(), 0.0);
}

TEST(VstringNumbers, IvalIsAtolSaturatingAt32Bits) {
  const char* const texts[] = {"", "42", "  -42xyz", "+7", "- 7", "2147483647", "2147483648", "-2147483648",
                               "-2147483649", "99999999999999999999999", "\t\n 12", "0x10", "1e5", "\2405"};
  for (const char* t : texts) {
    SCOPED_TRACE(t);
    long long want = std::atoll(t);
    if (want > 2147483647LL) want = 2147483647LL;
    if (want < -2147483648LL) want = -2147483648LL;
    EXPECT_EQ(vstring(t).ival(), want);
    EXPECT_EQ(vstring(t).lval(), want);
  }
  EXPECT_EQ(vstring().ival(), 0);
}

TEST(VstringNumbers, NumberCleansUp) {
  struct Row { const char* text; double want; };  // NAN: dNA
  const Row rows[] = {
      {"12abc", 12}, {"1,2 3", 12}, {"1,000e3", 1000000}, {"1.2.3", 1.2}, {"$1,234.50", 1234.5},
      {"-$5", NAN}, {"$-5", -5}, {"abc", NAN}, {"", NAN}, {"+.", NAN}, {"NA", NAN}, {" $ - 5", -5},
      {".5", 0.5}, {"1.5,7", 1.5}, {"0x10", 0}, {"\001\0027", 7},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.text);
    const double got = vstring(r.text).number();
    if (std::isnan(r.want)) {
      EXPECT_TRUE(is_dna(got)) << got;
    } else {
      EXPECT_EQ(got, r.want);
    }
  }
  // Longer than the scratch buffer: cut there, never written past it.
  const std::string huge = std::string("1").append(200000, '0');
  EXPECT_EQ(vstring(huge.c_str()).number(), HUGE_VAL);
}

TEST(VstringNumbers, IsNumber) {
  struct Row { const char* text; int want; };
  const Row rows[] = {{"12", 1}, {"-$5", 1}, {"$-5", 0}, {"NA", 1}, {"nA", 1}, {"1e999", 0}, {"", 0}, {" 1 ", 1},
                      {"1 2", 0}, {"(3)", 1}};
  for (const Row& r : rows) {
    SCOPED_TRACE(r.text);
    EXPECT_EQ(vstring(r.text).isNumber(), r.want);
    EXPECT_EQ(vstring(r.text).IsNumberStrict(), r.want);
  }
  EXPECT_EQ(vstring().isNumber(), 0);
}

TEST(VstringNumbers, GetBaseStr) {
  struct Row { const char* text; const char* head; double number; };
  const Row rows[] = {
      {"abc  ", "abc", 0}, {"a1 2", "a", 0}, {"abc12", "abc", 12}, {"abc 12 ", "abc", 12}, {"123", "", 123},
      {"", "", 0}, {"x\2657", "x\xB5", 7}, {"series_2020", "series_", 2020}, {"a-5", "a-", 5},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.text);
    double n = -1;
    const vstring& head = vstring(r.text).GetBaseStr(n);
    EXPECT_STREQ(head.optr(), r.head);
    EXPECT_EQ(n, r.number);
  }
  double n = -1;
  EXPECT_STREQ(vstring().GetBaseStr(n).optr(), "");
  EXPECT_EQ(n, 0.0);
}

// Megabyte texts and every byte value in front of, inside and behind a
// number: each conversion answers without reading past the text.
TEST(VstringNumbers, HostileTexts) {
  const std::string digits(2000000, '9');
  const vstring big(digits.c_str());
  EXPECT_EQ(big.ival(), 2147483647);
  EXPECT_EQ(big.dval(), HUGE_VAL);
  EXPECT_EQ(big.number(), HUGE_VAL);
  EXPECT_EQ(big.isNumber(), 0);  // its first 999 bytes overflow
  double n = -1;
  EXPECT_STREQ(big.GetBaseStr(n).optr(), "");
  EXPECT_EQ(n, 0.0);
  const std::string paren = std::string(1000000, '(').append("5");
  EXPECT_EQ(vstring(paren.c_str()).isNumber(), 0);
  EXPECT_TRUE(is_dna(vstring(paren.c_str()).number()));
  for (int b = 1; b < 256; ++b) {
    const char c = static_cast<char>(b);
    const char around[4][4] = {{c, 0}, {c, '1', '2', 0}, {'1', '2', c, 0}, {'1', c, '2', 0}};
    for (const char* t : around) {
      SCOPED_TRACE(b);
      const vstring v(t);
      EXPECT_EQ(v.ival(), std::atoi(t));
      EXPECT_TRUE(same(v.dval(), std::atof(t)));
      const double num = v.number();
      EXPECT_TRUE(is_dna(num) || std::isfinite(num));
      EXPECT_TRUE(v.isNumber() == 0 || v.isNumber() == 1);
      n = -1;
      const vstring& head = v.GetBaseStr(n);
      EXPECT_LE(head.len(), v.len());
      EXPECT_TRUE(std::isfinite(n) && n >= 0.0) << n;
    }
  }
}

// The conversions keep the "C" locale's point whatever locale the process
// runs in. Skipped where no locale with a decimal comma is installed.
TEST(VstringNumbers, IndependentOfTheProcessLocale) {
  const char* const candidates[] = {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German"};
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const char* chosen = nullptr;
  for (const char* name : candidates) {
    if (std::setlocale(LC_ALL, name) != nullptr && std::strcmp(std::localeconv()->decimal_point, ",") == 0) {
      chosen = name;
      break;
    }
  }
  if (chosen == nullptr) {
    std::setlocale(LC_ALL, before.c_str());
    GTEST_SKIP() << "no locale with a decimal comma is installed";
  }
  const double dval = vstring("1.5").dval();
  const double number = vstring("$1,234.5").number();
  const double comma = vstring("1,5").dval();
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_EQ(dval, 1.5) << chosen;
  EXPECT_EQ(number, 1234.5) << chosen;
  EXPECT_EQ(comma, 1.0) << chosen;
}

}  // namespace
