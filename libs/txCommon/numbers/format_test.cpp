// Formatting: iformat / format codes, the '#' fills, "NA", the C-style texts
// against snprintf, and the number side of StringSpool.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <thread>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

struct DigitsCase {
  double value;
  int digits;
  const char* expected;
};

TEST(FormatDigits, CodesAndOverflow) {
  const DigitsCase cases[] = {
      {1234.5678, 2, " 1234.57"},
      {1234.5678, 0, " 1235"},
      {1234.5678, -8, " 1234.57"},
      {1234.5678, -1003, " 1.235e+03"},
      {-1234.5678, -1003, "-1.235e+03"},
      {1234.5678, -1000, " 1e+03"},
      {0.0, 2, " 0.00"},
      {-0.5, 0, "-1"},
      {0.5, -5, " 0.50"},
      {-0.0, 1, " 0.0"},
      {123.456, -999, " 123.45600000000000"},
      // Overflow: precision + 1 '#', whatever the field was.
      {1234.5678, -4, "#####"},
      {1234.5678, -3, "####"},
      {1e30, 0, "#"},
      {1e40, 3, "####"},
      {-1e40, 3, "####"},
      // Fills longer than the field are cut to 30: precisions above 29.
      {1e40, 28, "#############################"},
      {1e40, 29, "##############################"},
      {1e40, 30, "##############################"},
      {1e40, INT_MAX, "##############################"},
      {1e40, 999, "##############################"},
  };
  for (const DigitsCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.value) + " digits " + std::to_string(c.digits));
    EXPECT_STREQ(FormatDigits(c.value, c.digits), c.expected);
    vstring s("old text");
    EXPECT_EQ(&s.iformat(c.value, c.digits), &s);
    EXPECT_STREQ(s.optr(), c.expected);
    EXPECT_EQ(s.len(), std::strlen(c.expected));
  }
}

TEST(FormatDigits, MissingValuesReadNA) {
  const double values[] = {dNA, kInf, -kInf, kNaN};
  const int codes[] = {2, 0, -8, -1003, 40};
  for (const double v : values) {
    for (const int d : codes) {
      SCOPED_TRACE(std::to_string(v) + " " + std::to_string(d));
      const char* t = FormatDigits(v, d);
      EXPECT_STREQ(t, "NA");
      EXPECT_NE(t, txc::number_text());  // the constant, not the buffer
      EXPECT_STREQ(FormatSpec(v, 12.2f, NF_LEFT), "NA");  // no padding either
      EXPECT_STREQ(FormatSpec(v, 0.0f, 0), "NA");
      vstring s;
      EXPECT_STREQ(s.format(v, 8.2f, 2, 1).optr(), "  NA ");
    }
  }
}

struct SpecCase {
  double value;
  float spec;
  unsigned flags;
  const char* expected;
};

TEST(FormatSpec, WidthDecimalsAndExponentCodes) {
  const SpecCase cases[] = {
      {1234.5678, 0.0f, 0, "1234.5678"},
      {1e-05, 0.0f, 0, "1e-05"},
      {123456789012345.0, 0.0f, 0, "1.23456789012e+14"},
      {0.0, 0.0f, 0, "0"},
      {-2.5, 0.0f, NF_PLUS, "-2.5"},  // flags play no part
      {1234.5678, 8.2f, 0, " 1234.57"},
      {1234.5678, 8.25f, 0, " 1234.57"},  // one decimal of the code counts
      {1234.5678, 12.3f, 0, "    1234.568"},
      {1234.5678, 5.2f, 0, " 1234.57"},  // the field grows
      {1234.5678, 5.0f, 0, " 1235"},
      {1234.5678, 1.5f, 0, " 1234.56780"},
      {1.5, 20.9f, 0, "         1.500000000"},
      // Just below the next integer the tenths come to 9.999.., and the
      // allowance makes them 10 decimals.
      {1.5, 8.99995f, 0, " 1.5000000000"},
      {-1.5, 1.99999f, 0, "-1.5000000000"},
      {1.5, 8.9999f, 0, " 1.500000000"},
      {1e30, 8.99995f, 0, "###########"},
      {1e30, 20.9f, 0, "##########"},
      {1234.5678, 99.99f, 0, "                1234.567800000"},  // width capped at 30
      {1234.5678, 1.0000001f, 0, " 1235"},
      {1234.5678, 0.9999999f, 0, " 1.2345678000000000E+03"},
      {1234.5678, 0.29f, 0, " 1.2345678000000000E+03"},
      {1234.5678, 0.07f, 0, " 1.2345678E+03"},
      {1234.5678, -0.5f, 0, " 1235"},     // truncates to iformat 0
      {1234.5678, -1000.9f, 0, " 1e+03"},  // iformat -1000
      {-0.0, 8.2f, 0, "    0.00"},
      {-0.0, 0.0f, 0, "-0"},  // as printf has it
      {1234.5678, 0.03f, 0, " 1.235E+03"},
      {1234.5678, 0.01f, 0, " 1.2E+03"},
      {1234.5678, 0.001f, 0, " 1E+03"},
      {1234.5678, 0.12f, 0, " 1.234567800000E+03"},
      {1234.5678, 1.0f, 0, " 1.2345678000000000E+03"},
      {1234.5678, -8.0f, 0, " 1234.57"},
      {1234.5678, -8.9f, 0, " 1234.57"},  // truncated toward zero
      {1234.5678, -2.0f, 0, "###"},
      {1234.5678, -2.7f, 0, "###"},
      {1234.5678, 12.2f, NF_LEFT, " 1234.57    "},
      {1234.5678, 12.2f, NF_ZEROFILL, " 00001234.57"},
      {-1234.5678, 12.2f, NF_PAREN, "   (1234.57)"},
      {1234.5678, 8.2f, NF_GROUP, " 1,234.57"},
      {1234.5678, 8.2f, NF_GROUP | NF_COMMA, " 1.234,57"},
      {1234.5678, 8.2f, NF_PLUS, "+1234.57"},
      {1e30, 8.2f, 0, "###"},
      {1e30, 0.5f, 0, " 1.0000000000000000E+30"},  // 50 decimals: cut to 17 digits
  };
  for (const SpecCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.value) + " spec " + std::to_string(c.spec));
    EXPECT_STREQ(FormatSpec(c.value, c.spec, c.flags), c.expected);
    vstring s("previous");
    EXPECT_EQ(&s.format(c.value, c.spec, c.flags), &s);
    EXPECT_STREQ(s.optr(), c.expected);
  }
}

TEST(FormatSpec, FullFieldTextIsTerminated) {
  // Width 30 and beyond: the text fills the whole field, which WriteNumber
  // leaves without an end.
  struct Case {
    float spec;
    const char* tail;
  };
  // A width beyond int is clamped, and its fraction means nothing: no decimals.
  const Case cases[] = {{30.2f, "1.00"}, {31.2f, "1.00"}, {99.2f, "1.00"}, {3.0e9f, "   1"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.spec);
    std::memset(txc::number_text(), 'x', 32);
    const char* t = FormatSpec(1.0, c.spec, 0);
    EXPECT_EQ(std::strlen(t), 30u);
    EXPECT_STREQ(t + 26, c.tail);
  }
  std::memset(txc::number_text(), 'x', 32);
  EXPECT_EQ(std::strlen(FormatSpec(1.0, 30.2f, NF_LEFT)), 30u);
}

TEST(FormatSpec, SecondFormPadsAroundTheText) {
  struct Case {
    int before;
    int after;
    const char* expected;
  };
  const Case cases[] = {{2, 1, "   1234.57 "}, {0, 0, " 1234.57"}, {-5, -1, " 1234.57"},
                        {0, 3, " 1234.57   "}, {1, INT_MIN, "  1234.57"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.before) + "/" + std::to_string(c.after));
    vstring s("x");
    EXPECT_EQ(&s.format(1234.5678, 8.2f, c.before, c.after), &s);
    EXPECT_STREQ(s.optr(), c.expected);
    EXPECT_EQ(s.len(), std::strlen(c.expected));
  }
}

// Hostile codes: none may crash, and every text stays inside numberText.
TEST(FormatSpec, HostileCodesStayInTheBuffer) {
  const float specs[] = {std::numeric_limits<float>::quiet_NaN(),
                         std::numeric_limits<float>::infinity(),
                         -std::numeric_limits<float>::infinity(),
                         FLT_MAX, -FLT_MAX, FLT_MIN, -FLT_MIN, 1e-45f, 1.0000001f, 0.9999999f,
                         2147483648.0f, -2147483648.0f, -1e20f, 1e20f, -999.0f, -1000.0f,
                         -1000.5f, -1029.0f, -1030.0f, 29.9f, 30.9f};
  const double values[] = {0.0, -0.0, 1.0, -1.0, 1234.5678, DBL_MAX, -DBL_MAX, DBL_MIN,
                           4.9e-324, 1e-300, 1e300, 0.5, 9.999999999999999e22};
  const unsigned flagWords[] = {0u, NF_LEFT | NF_ZEROFILL | NF_PAREN | NF_CURRENCY | NF_PERCENT,
                                0x3FFFFu, 0xFFFFFFFFu};
  for (const float spec : specs) {
    for (const double v : values) {
      for (const unsigned f : flagWords) {
        SCOPED_TRACE(std::to_string(spec) + " " + std::to_string(v) + " " + std::to_string(f));
        const char* t = FormatSpec(v, spec, f);
        ASSERT_LE(std::strlen(t), 30u);
        vstring s;
        s.format(v, spec, f);
        ASSERT_EQ(s.len(), std::strlen(t));
      }
    }
  }
  const int digitCodes[] = {INT_MIN, INT_MIN + 1, -2000, -1030, -1029, -1000, -999, -998, -31,
                            -30, -29, -2, -1, 0, 1, 17, 29, 30, 31, 999, INT_MAX};
  for (const int d : digitCodes) {
    for (const double v : values) {
      SCOPED_TRACE(std::to_string(d) + " " + std::to_string(v));
      ASSERT_LE(std::strlen(FormatDigits(v, d)), 30u);
    }
  }
  // A NaN code takes the plain "%.12g" road.
  EXPECT_STREQ(FormatSpec(2.5, std::numeric_limits<float>::quiet_NaN(), 0), "2.5");
}

// "%.12g" and "%lf" agree with the C library (this process runs in the C
// locale), on a seeded spread of magnitudes.
TEST(CStyleTexts, AgreeWithSnprintf) {
  RndGenKnuth02 gen;
  gen.Seed(2024);
  for (int i = 0; i < 20000; ++i) {
    const double mantissa = gen.NextUniform() * 2 - 1;
    const int exponent = static_cast<int>(gen.NextUniform() * 80) - 40;
    const double v = std::ldexp(mantissa, exponent * 3);
    char want[400];
    std::snprintf(want, sizeof want, "%.12g", v);
    ASSERT_STREQ(FormatSpec(v, 0.0f, 0), want) << v;
    std::snprintf(want, sizeof want, "%lf", v);
    want[31] = '\0';
    ASSERT_STREQ(strFormat(v), want) << v;
  }
}

// Every finite double is fair game: random bit patterns cover subnormals and
// the ends of the range, where the cut to 31 bytes and the exponent's third
// digit show.
TEST(CStyleTexts, AgreeWithSnprintfOnAnyBitPattern) {
  RndGenKnuth02 gen;
  gen.Seed(77);
  const double ends[] = {DBL_MAX, -DBL_MAX, DBL_MIN, 4.9e-324, -4.9e-324, 0.1, 5e-7, 1e16,
                         999999999999.5, 0.5, -0.0, 1e22, 1e23, 123456789012345678.0};
  for (int i = 0; i < 40000; ++i) {
    double v = 0;
    if (i < static_cast<int>(sizeof ends / sizeof ends[0])) {
      v = ends[i];
    } else {
      const auto hi = static_cast<std::uint64_t>(gen.NextUniform() * 4294967296.0);
      const auto lo = static_cast<std::uint64_t>(gen.NextUniform() * 4294967296.0);
      const std::uint64_t bits = hi << 32 | lo;
      std::memcpy(&v, &bits, sizeof v);
      if (!std::isfinite(v)) continue;
    }
    char want[400];
    std::snprintf(want, sizeof want, "%.12g", v);
    ASSERT_STREQ(FormatSpec(v, 0.0f, 0), want) << i;
    std::snprintf(want, sizeof want, "%lf", v);
    want[31] = '\0';
    ASSERT_STREQ(strFormat(v), want) << i;
  }
}

TEST(CStyleTexts, StrFormatCasesAndCut) {
  struct Case {
    double value;
    const char* expected;
  };
  const Case cases[] = {
      {1234.5678, "1234.567800"},
      {0.0, "0.000000"},
      {-0.0, "-0.000000"},
      {1e22, "10000000000000000000000.000000"},
      {1e25, "10000000000000000905969664.0000"},  // cut to 31 bytes
      {-DBL_MAX, "-179769313486231570814527423731"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.expected);
    char* t = strFormat(c.value);
    EXPECT_EQ(t, txc::number_text());
    EXPECT_STREQ(t, c.expected);
  }
  EXPECT_STREQ(strFormat(dNA), "NA");
  EXPECT_STREQ(strFormat(kInf), "NA");
  EXPECT_EQ(strFormat(dNA), txc::number_text());
}

// The plain roads keep '.' when the process runs under a decimal-comma
// locale. Where none is installed another locale stands in; one can be made without
// root: localedef -i de_DE -f UTF-8 DIR/de_DE.UTF-8, then run with LOCPATH=DIR.
TEST(CStyleTexts, IgnoreTheProcessLocale) {
  const char* names[] = {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252"};
  const std::string saved = std::setlocale(LC_NUMERIC, nullptr);
  bool found = false;
  for (const char* n : names) {
    if (std::setlocale(LC_NUMERIC, n) != nullptr) {
      found = true;
      break;
    }
  }
  // Without one, any other locale still shows that nothing reads it.
  if (!found && std::setlocale(LC_ALL, "C.UTF-8") == nullptr &&
      std::setlocale(LC_ALL, "") == nullptr) {
    GTEST_SKIP() << "no locale other than C";
  }
  char probe[16];
  std::snprintf(probe, sizeof probe, "%.1f", 2.5);  // the C library does follow it
  const std::string g = FormatSpec(1234.5678, 0.0f, 0);
  const std::string lf = strFormat(2.25);
  const std::string fixed = FormatSpec(2.25, 8.2f, 0);
  const std::string digits = FormatDigits(-2.25, -1001);
  StringSpool sp;
  sp += 0.25;
  const std::string spooled = sp.optr();
  std::setlocale(LC_ALL, "C");
  std::setlocale(LC_NUMERIC, saved.c_str());
  if (found) {
    EXPECT_STREQ(probe, "2,5");
  }
  EXPECT_EQ(digits, "-2.3e+00");
  EXPECT_EQ(spooled, "0.25");
  EXPECT_EQ(g, "1234.5678");
  EXPECT_EQ(lf, "2.250000");
  EXPECT_EQ(fixed, "    2.25");
}

// Each thread formats into its own number text: a pointer another thread got
// keeps its text.
TEST(CStyleTexts, NumberTextBelongsToTheThread) {
  const char* mine = strFormat(1.5);
  const char* theirs = nullptr;
  std::string theirText;
  std::thread t([&] {
    theirs = strFormat(-2.0);
    theirText = FormatDigits(7.0, 1);
  });
  t.join();
  EXPECT_NE(mine, theirs);
  EXPECT_STREQ(mine, "1.500000");
  EXPECT_EQ(theirText, " 7.0");
}

TEST(SpoolNumber, GFormWithSeventeenDigits) {
  struct Case {
    double value;
    const char* expected;
  };
  const Case cases[] = {
      {0.5, "0.5"},
      {-2.0, "-2"},
      {0.0, "0"},
      {1e20, "1e+20"},
      {0.1, "0.1"},  // scaled to 17 digits, the binary noise rounds away
      {123456.789, "123456.789"},
      {1.0 / 3, "0.33333333333333332"},
      {kInf, ""},
      {kNaN, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.expected);
    StringSpool sp;
    sp += "x=";
    sp += c.value;
    EXPECT_EQ(std::string(sp.optr()), std::string("x=") + c.expected);
  }
  // The longest text: 24 bytes, so a 30-byte field never overflows. Digits
  // beyond the 16th are approximate (one scaling, no big arithmetic).
  StringSpool big;
  big += -1.7976931348623157e308;
  EXPECT_EQ(big.len(), 24);
  EXPECT_EQ(std::string(big.optr()).substr(0, 17), "-1.79769313486231");
  EXPECT_EQ(std::string(big.optr()).substr(19), "e+308");

  StringSpool sp;
  sp.cat(dNA);
  EXPECT_EQ(sp.len(), 0);
  sp = "abc";
  sp = 2.5;  // empties first
  EXPECT_STREQ(sp.optr(), "2.5");
  sp += ';';
  sp.cat(-0.25);
  EXPECT_STREQ(sp.optr(), "2.5;-0.25");
}

}  // namespace
