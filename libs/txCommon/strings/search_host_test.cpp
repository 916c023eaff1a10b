// Search and comparison under the fake host: quote bytes by code page, the
// TempBufLen bound of the operators, and the copy of CompareNoCase.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(SearchHost, IncharnqCurlyQuotesByCodePage) {
  struct Case {
    const char* label;
    int codePage;
    const char* text;
    int c;
    int want;
  } cases[] = {
      {"1252 protects", 1252, "\x93" "a=b\x94" "=c", '=', 6},
      {"850 does not", 850, "\x93" "a=b\x94" "=c", '=', 3},
      {"one family", 1252, "\x93" "a=\"=", '=', 5},
      {"curly quote found before toggle", 1252, "a\x93" "b", 0x93, 2},
      {"found inside quotes never", 1252, "\"\x93\"=", 0x93, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    fakeHost().codePage = c.codePage;
    EXPECT_EQ(vstring(c.text).incharnq(c.c), c.want);
  }
  fakeHost().reset();
  EXPECT_EQ(vstring("\"a=b\"=c").incharnq('='), 6);
  EXPECT_EQ(fakeHost().codePageCalls, 0);
}

TEST(SearchHost, OperatorsBoundedByHostTempBufLen) {
  fakeHost().reset();
  fakeHost().setTempBufLen(8);
  struct Case {
    const char* a;
    const char* b;
    int less;
    int equalCaseless;
  } cases[] = {
      {"abcdefgX", "abcdefgY", 1, 0},    // differs at the 8th byte: seen
      {"abcdefghX", "abcdefghY", 0, 1},  // differs at the 9th: beyond the bound
      {"ABCDEFGHx", "abcdefghy", 1, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.a);
    vstring a(c.a), b(c.b);
    EXPECT_EQ(a < b, c.less);
    EXPECT_EQ(a.caselessEqual(b), c.equalCaseless);
    EXPECT_EQ(a.caselessEqual(c.b), c.equalCaseless);
    EXPECT_LT(a.compare(b), 0) << "compare is not bounded";
  }
  fakeHost().reset();
}

// The bound is a count: 0 decides on the first pair, and a negative answer,
// read unsigned, bounds nothing.
TEST(SearchHost, OperatorsWithZeroOrNegativeTempBufLen) {
  struct Case {
    int tempLen;
    int less;
    int equalCaseless;
  } cases[] = {{0, 0, 1}, {1, 0, 1}, {-1, 1, 0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tempLen);
    fakeHost().reset();
    fakeHost().tempLen = c.tempLen;  // the buffer itself is not touched here
    vstring a("abcdefghX"), b("abcdefghY");
    EXPECT_EQ(a < b, c.less);
    EXPECT_EQ(a >= b, 1 - c.less);
    EXPECT_EQ(a.caselessEqual(b), c.equalCaseless);
    EXPECT_EQ(a.caselessEqual("ABCDEFGHY"), c.equalCaseless);
  }
  fakeHost().reset();
}

TEST(SearchHost, CompareNoCaseCopyReportsHugeArgument) {
  fakeHost().reset();
  std::string huge(64000000, 'q');
  vstring s("Q");
  EXPECT_LT(s.CompareNoCase(huge.c_str()), 0);
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});
  fakeHost().reset();
  huge[63999999] = '\0';  // one byte shorter
  EXPECT_LT(s.CompareNoCase(huge.c_str()), 0);
  EXPECT_TRUE(fakeHost().reports.empty()) << "just below the limit";
}

}  // namespace
