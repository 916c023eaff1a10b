// Equation text with no host.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }

TEST(InstrAssign, Positions) {
  struct Case {
    const char* text;
    int want;
  };
  const Case cases[] = {
      {"x = 1", 3},           {"x=y=1", 2},          {"x == 1", 3},          {"x <= 1", 0},
      {"x >= 1", 0},          {"x != 1", 0},         {"=1", 0},              {"f(a=1)", 0},
      {"[a=1]", 0},           {"a b = 1", 0},        {"x = 1 y", 0},         {"x(1) = 2", 6},
      {"\"a b\" = 1", 7},     {"x.y = 1", 5},        {"x AND y = 2", 9},     {"x and y = 2", 0},
      {"x ANDY = 1", 0},      {"NOT x = 1", 7},      {"x OR NOT y = 1", 12}, {"x = \"a\" \"b\"", 3},
      {"", 0},                {"x <> 1", 0},         {"x!=1", 3},            {"x\t=\t1", 3},
      {"x AND   NOT y = 1", 15}, {"x AND(y) = 1", 10}, {"x OR", 0},          {"\"open = 1", 0},
      {"caf\xE9 = 1", 6},     {"x = NOT y", 3},      {"a(b = 1", 0},         {"a) = 1", 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(vstring(c.text).instrAssign(), c.want) << c.text;
  }
}

struct Pieces {
  std::string left, right, group, tail;
  bool operator==(const Pieces&) const = default;
};

Pieces split(const char* text) {
  vstring l("L"), r("R"), g("G"), t("T");
  vstring(text).SplitEquation(l, r, g, t);
  return {bytes(l), bytes(r), bytes(g), bytes(t)};
}

TEST(SplitEquation, Pieces) {
  struct Case {
    const char* text;
    Pieces want;
  };
  const Case cases[] = {
      {"y = a + [k(1)=.5] @ s", {"y", "a", "k(1)=.5", "s"}},
      {"y = a(1) + x + [k(1)=.5] @ t", {"y", "a(1) + x", "k(1)=.5", "t"}},
      {"a + b", {"", "a + b", "", ""}},
      {"y = a [b]", {"y", "a [b]", "b", ""}},
      {"y = a + b]", {"y", "a + b]", "", ""}},
      {"y = a + []", {"y", "a + []", "", ""}},
      {"[b]", {"", "", "b", ""}},
      {"+[b]", {"", "", "b", ""}},
      {"y = [a[1]] + [b]", {"y", "[a[1]]", "b", ""}},
      {"y=x@ z", {"y", "x", "", "z"}},
      {"y = x @z", {"", "y = x @z", "", ""}},  // `@` is a second operand
      {"", {"", "", "", ""}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(split(c.text), c.want) << c.text;
  }
}

TEST(CompoundEquality, WrittenOut) {
  struct Case {
    const char* text;
    const char* want;
  };
  const Case cases[] = {
      {"a=b=c=1,d=2", "a=1,b=1,c=1,d=2"}, {"a=1", "a=1"}, {"a", "a"},     {"=a=1", "=a=1"},
      {"a=b=1,", "a=1,b=1,"},            {",,", ",,"},    {"a==1", "a=1,=1"}, {"(a=b)=1", "(a=1,b)=1"},
      {"", ""},
  };
  for (const Case& c : cases) {
    vstring s(c.text);
    EXPECT_EQ(bytes(s.ConvertFromCompoundEquality()), c.want) << c.text;
    EXPECT_EQ(bytes(s), c.text);
  }
  vstring same("a=b=1");
  EXPECT_EQ(bytes(same.ExpandOptionRangeNames()), "a=b=1");
}

TEST(EquationText, SidesAndParens) {
  vstring s(" a = b=c ");
  EXPECT_EQ(bytes(s.left_of_equal()), "a");
  EXPECT_EQ(bytes(s.right_of_equal()), "b=c");
  vstring none("abc");
  EXPECT_EQ(bytes(none.left_of_equal()), "");
  EXPECT_EQ(bytes(none.right_of_equal()), "");
  EXPECT_EQ(bytes(vstring("=").right_of_equal()), "");

  vstring x("x");
  EXPECT_EQ(&x.paren_int(3), &x);
  EXPECT_EQ(bytes(x), "x(3)");
  vstring y("x");
  EXPECT_EQ(bytes(y.paren_int(-1, 2)), "x(-1,2)");
  vstring z;
  EXPECT_EQ(bytes(z.paren_int(-2147483647 - 1)), "(-2147483648)");

  struct Case {
    const char* text;
    int only;
    const char* mult;
  };
  const Case cases[] = {
      {"(a)", 1, "(a)"},         {"  (a) ", 1, "  (a) "},       {"(a)(b)", 0, "(a)(b)"},
      {"(a)+b", 0, "((a)+b)"},   {"a", 0, "a"},                 {"(a", 0, "(a"},
      {"()", 1, "()"},           {"", 0, ""},                   {"(", 0, "("},
      {"(a) \xE9", 0, "(a) \xE9"}, {"a AND b", 0, "(a AND b)"}, {"ab", 0, "ab"},
      {"f(a+b)", 0, "f(a+b)"},   {"x*y", 0, "x*y"},             {"(a+b)", 1, "(a+b)"},
      {"(a)+(b)", 0, "((a)+(b))"}, {"-x", 0, "-x"},             {"a or b", 0, "a or b"},
      {"x OR y", 0, "(x OR y)"}, {"a<b", 0, "(a<b)"},
  };
  for (const Case& c : cases) {
    vstring t(c.text);
    EXPECT_EQ(t.OnlyParenExpression(), c.only) << c.text;
    EXPECT_EQ(bytes(t.surroundForMult()), c.mult) << c.text;
  }
}

TEST(EquationText, EvaluateWithNoHost) {
  struct Case {
    const char* text;
    int want;
  };
  const Case cases[] = {{"12", 12},           {"+7", 7},          {"-", 0},
                        {"  -42", -42},       {"1+1", 0},         {"12 ", 0},
                        {"99999999999", 2147483647}, {"-99999999999", -2147483647 - 1},
                        {"", 0},              {"007", 7}};
  for (const Case& c : cases) {
    int status = 5;
    EXPECT_EQ(vstring(c.text).evaluateToInt(&status), c.want) << c.text;
    EXPECT_EQ(status, 0);
  }
  int status = 5;
  EXPECT_EQ(vstring("1+1").evaluate(&status), 0.0);
  EXPECT_EQ(status, 5);
  EXPECT_EQ(vstring("3").evaluateToInt(nullptr), 3);
}

TEST(EquationHostile, HugeText) {
  std::string huge(500000, 'a');
  vstring s((huge + " = " + huge).c_str());
  EXPECT_EQ(s.instrAssign(), 500002);
  vstring l, r, g, t;
  s.SplitEquation(l, r, g, t);
  EXPECT_EQ(l.len(), 500000u);
  EXPECT_EQ(r.len(), 131039u);  // TempBufLen bytes behind the sign, then trimmed
  std::string brackets(200000, ']');
  vstring b(brackets.c_str());
  b.SplitEquation(l, r, g, t);
  EXPECT_EQ(r.len(), 200000u);
  std::string eqs(200000, '=');
  // Every cut keeps TempBufLen bytes of the rest: the result is bounded.
  EXPECT_LT(vstring(eqs.c_str()).ConvertFromCompoundEquality().len(), 400000u);
  std::string parens(300000, '(');
  EXPECT_EQ(vstring(parens.c_str()).OnlyParenExpression(), 0);
}

}  // namespace
