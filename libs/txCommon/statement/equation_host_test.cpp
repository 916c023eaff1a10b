// Equations under the fake host: the evaluator, reports 65, 701 and 702, and
// ErrorPending.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "fake_host.h"

#include <limits>
#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Codes = std::vector<int>;

TEST(EquationHost, EvaluateToInt) {
  struct Case {
    const char* text;
    double value;  // what the host's evaluator answers
    int want;
    Codes codes;
    bool evaluated;
  };
  const double inf = std::numeric_limits<double>::infinity();
  const Case cases[] = {
      {"12", 99.0, 12, {}, false},
      {"1+1", 2.0, 2, {}, true},
      {"x", 2.9, 2, {}, true},
      {"x", -2.1, -3, {}, true},
      {"x", 3000000000.0, 0, {65}, true},
      {"x", -2147483648.0, -2147483647 - 1, {}, true},
      {"x", 2147483647.0, 2147483647, {}, true},
      {"x", 2147483647.5, 0, {65}, true},
      {"x", -2147483648.5, 0, {65}, true},
      {"x", dNA, 0, {}, true},
      {"x", inf, 0, {}, true},
      {"x", -inf, 0, {}, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " = " + std::to_string(c.value));
    fakeHost().reset();
    fakeHost().evaluateResult = c.value;
    int status = 5;
    EXPECT_EQ(vstring(c.text).evaluateToInt(&status), c.want);
    EXPECT_EQ(fakeHost().codes(), c.codes);
    EXPECT_EQ(fakeHost().evaluated.size(), c.evaluated ? 1u : 0u);
  }
  fakeHost().reset();
  fakeHost().evaluateResult = 4.5;
  int status = 0;
  EXPECT_EQ(vstring("a*b").evaluate(&status), 4.5);
  ASSERT_EQ(fakeHost().evaluated.size(), 1u);
  EXPECT_EQ(fakeHost().evaluated[0], "a*b");
  fakeHost().errorPending = 1;
  EXPECT_EQ(vstring("12").evaluateToInt(&status), 0);
  fakeHost().reset();
}

TEST(EquationHost, BracketReports) {
  struct Case {
    const char* text;
    int code;
    const char* shown;
  };
  const Case cases[] = {
      {"y = a [b]", 702, "in \"Y = A [B]\""},
      {"y = a + b]", 701, "in \"Y = A + B]\""},
      {"y = a + []", 702, "in \"Y = A + []\""},
      {"y = \"lower\" [b]", 702, "in \"Y = \"lower\" [B]\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    fakeHost().reset();
    vstring l, r, g, t;
    vstring(c.text).SplitEquation(l, r, g, t);
    ASSERT_EQ(fakeHost().reports.size(), 1u);
    EXPECT_EQ(fakeHost().reports[0], (FakeHost::Report{c.code, "", c.shown}));
  }
  fakeHost().reset();
  fakeHost().errorPending = 1;
  vstring l("L"), r("R"), g("G"), t("T");
  vstring("y = x").SplitEquation(l, r, g, t);
  EXPECT_EQ(bytes(l) + bytes(r) + bytes(g) + bytes(t), "LRGT");
  fakeHost().reset();
}

TEST(EquationHost, ParenIntAsksForRoom) {
  fakeHost().reset();
  vstring x("abc");
  x.paren_int(1);
  x.paren_int(1, 2);
  EXPECT_EQ(fakeHost().ensureCalls, (std::vector<std::pair<int, int>>{{35, 8192}, {38, 8192}}));
  EXPECT_EQ(bytes(x), "abc(1)(1,2)");
  fakeHost().reset();
}

}  // namespace
