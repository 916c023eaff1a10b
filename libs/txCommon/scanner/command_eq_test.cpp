// Equation tokens with no host: eqword, eqCountArgs, eqRemoveWhiteSpace and
// get_between_parens.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Words = std::vector<std::string>;

Words tokens(const char* text) {
  command c(text);
  Words out;
  for (int guard = 0; guard < 100; ++guard) {
    const std::string w = bytes(c.eqword());
    if (w.empty()) break;
    out.push_back(w);
  }
  return out;
}

TEST(EqWord, Tokens) {
  struct Case {
    const char* text;
    Words want;
  };
  const Case cases[] = {
      {"y=2*x+1", {"y", "=", "2", "*", "x", "+", "1"}},
      {"a >= b", {"a", ">", "=", "b"}},
      {"1.5E+3", {"1.5E+3"}},
      {"1.5E +3", {"1.5E+3"}},
      {"1.5 E+3", {"1.5E+3"}},
      {"1.5 E + 3", {"1.5E+3"}},
      {"1e-5", {"1E-5"}},
      {"1D+3", {"1E+3"}},
      {"1d+3", {"1d", "+", "3"}},
      {"1D5", {"1D5"}},
      {"2 e5", {"2", "e5"}},
      {"x1e-5", {"x1e", "-", "5"}},
      {"1 E x", {"1E", "x"}},
      {".5e-2*x", {".5E-2", "*", "x"}},
      {"a.b c", {"a.b", "c"}},
      {"db::\"a b\"+1", {"db::\"a b\"", "+", "1"}},
      {"\"a \"\"b\"\" c\"+x", {"\"a \"\"b\"\" c\"", "+", "x"}},
      {"x ' note", {"x"}},
      {"x@", {"x@"}},
      {"x@ y", {"x", "y"}},
      {"f(a[1], b)", {"f", "(", "a", "[", "1", "]", ",", "b", ")"}},
      {"caf\xE9:x!", {"caf\xE9:x!"}},
      {"", {}},
      {"   ", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(tokens(c.text), c.want);
  }
}

TEST(EqWord, Cursor) {
  command quote("x ' note");
  quote.eqword();
  EXPECT_EQ(bytes(quote.eqword()), "");
  EXPECT_EQ(quote.GetOffset(), 2);  // on the '
  EXPECT_EQ(bytes(quote.eqword()), "");
  EXPECT_EQ(quote.GetOffset(), 2);

  command at("@  y");
  EXPECT_EQ(bytes(at.eqword()), "");
  EXPECT_EQ(at.GetOffset(), 3);  // behind the @ and its blanks

  command open("\"abc");
  EXPECT_EQ(bytes(open.eqword()), "");
  EXPECT_EQ(open.GetOffset(), 0);

  command lone("\"");
  EXPECT_EQ(bytes(lone.eqword()), "");

  std::string longName(201, 'n');
  command big(longName.c_str());
  vstring target("old");
  big.eqword(target);
  EXPECT_TRUE(target.isNull());
  EXPECT_EQ(big.GetOffset(), 0);
  std::string fits(200, 'n');
  command ok(fits.c_str());
  EXPECT_EQ(ok.eqword().len(), 200u);

  command back("ab + c");
  back.eqword();
  back.eqword();
  back.backup();
  EXPECT_EQ(bytes(back.eqword()), "+");
}

TEST(EqCountArgs, Counts) {
  struct Case {
    const char* text;
    int want;
  };
  const Case cases[] = {
      {"(a, b)", 2}, {"()", 0},      {"( )", 0},           {"(a,,b)", 2},      {"(f(x,y),z)", 2},
      {"(\"a,b\",c)", 2}, {"x", 0},  {"(a", 1},            {"(\"a", 0},        {"  (a) b", 1},
      {"(\"\")", 1}, {"(,)", 0},     {"(\xE9)", 0},
  };
  for (const Case& c : cases) {
    command k(c.text);
    EXPECT_EQ(k.eqCountArgs(), c.want) << c.text;
    EXPECT_EQ(k.GetOffset(), 0);
  }
}

TEST(EqRemoveWhiteSpace, Squeezes) {
  struct Case {
    const char* text;
    const char* want;
  };
  const Case cases[] = {
      {"x = 1 + 2", "x=1+2"},
      {"a AND b", "a AND b"},
      {"NOT a", " NOT a"},
      {"a AND NOT b", "a AND  NOT b"},
      {"x = 1 ' note", "x=1"},
      {"IF x", " IF x"},
      {"IF(x)", "IF(x)"},
      {"a and b", "aandb"},
      {"y = 1.5 E + 3", "y=1.5E+3"},
      {"x = \"abc", "x="},
      {"", ""},
  };
  for (const Case& c : cases) {
    command k(c.text);
    k.eqRemoveWhiteSpace();
    EXPECT_EQ(bytes(k), c.want) << c.text;
    EXPECT_EQ(k.GetOffset(), 0);
  }
  command fromCursor("GENR y = a + b");
  fromCursor.word(1);
  fromCursor.eqRemoveWhiteSpace();
  EXPECT_EQ(bytes(fromCursor), "y=a+b");

  std::string huge;
  for (int i = 0; i < 100000; ++i) huge += "a + ";
  command k(huge.c_str());
  k.eqRemoveWhiteSpace();
  EXPECT_LE(k.len(), 131040u - 1024u);
  EXPECT_GT(k.len(), 120000u);
}

TEST(GetBetweenParens, Groups) {
  struct Case {
    const char* text;
    const char* want;
    int offset;
  };
  const Case cases[] = {
      {"( a + b )", "(a+b)", 9},
      {"(a AND b OR c)", "(a AND b OR c)", 14},
      {"(a and b)", "(aandb)", 9},
      {"(\"a b\") c", "(\"a b\")", 7},
      {"x", "", 0},
      {"  (f(a) ) z", "(f(a))", 9},
      {"(", "(", 1},
      {"(a b", "(ab", 4},
      {"(\"(\" b)", "(\"(\"b)", 7},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    command k(c.text);
    EXPECT_EQ(bytes(k.get_between_parens()), c.want);
    EXPECT_EQ(k.GetOffset(), c.offset);
  }
}

}  // namespace
