// Equation tokens and date words under the fake host: reports 14, 23 and
// 102, and ErrorPending.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "fake_host.h"

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Codes = std::vector<int>;

TEST(EqHost, Reports) {
  struct Case {
    const char* label;
    const char* text;
    int (*op)(command&);  // returns a length or a count
    int want;
    Codes codes;
  };
  const Case cases[] = {
      {"eqword open string", "\"abc", [](command& c) { return int(c.eqword().len()); }, 0, {102}},
      {"eqword too long", "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"
                          "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"
                          "nnnnnnnnnnnnnnnnnnnnnnnnnnnnnn",
       [](command& c) { return int(c.eqword().len()); }, 0, {14}},
      {"eqCountArgs open paren", "(a", [](command& c) { return c.eqCountArgs(); }, 1, {23}},
      {"eqCountArgs open string", "(\"a", [](command& c) { return c.eqCountArgs(); }, 0, {102}},
      {"eqCountArgs closed", "(a)", [](command& c) { return c.eqCountArgs(); }, 1, {}},
      {"get_between_parens open", "(a b", [](command& c) { return int(c.get_between_parens().len()); },
       3, {14}},
      {"get_between_parens at end", "(", [](command& c) { return int(c.get_between_parens().len()); },
       1, {14}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    command k(c.text);
    EXPECT_EQ(c.op(k), c.want);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
}

TEST(EqHost, ErrorPendingGivesNothing) {
  fakeHost().reset();
  fakeHost().errorPending = 1;
  command k("(a) b");
  vstring target("old");
  k.eqword(target);
  EXPECT_TRUE(target.isNull());
  EXPECT_EQ(bytes(k.get_between_parens()), "");
  EXPECT_EQ(k.GetOffset(), 0);
  fakeHost().reset();
}

TEST(EqHost, CurlyQuotesInGroups) {
  fakeHost().reset();
  command k("(\x93" "a b\x94 c)");
  EXPECT_EQ(bytes(k.get_between_parens()), "(\x93" "a b\x94" "c)");
  fakeHost().codePage = 932;
  command other("(\x93" "a b\x94 c)");
  EXPECT_EQ(bytes(other.get_between_parens()), "(\x93" "ab\x94" "c)");
  fakeHost().reset();
}

TEST(DateWordsHost, PlainWordReportsOfTheScanner) {
  fakeHost().reset();
  command k("(x 10:30");
  EXPECT_EQ(bytes(k.word_date_full(0, nullptr)), "(x 10:30");
  EXPECT_EQ(fakeHost().codes(), Codes({23}));
  fakeHost().reset();
}

}  // namespace
