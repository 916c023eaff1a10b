// Case conversion with no host: the plain family through the 1252 stand-ins,
// the nq family through the C locale, and the forms built on them.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

struct Conversion {
  const char* label;
  const char* text;
  const char* want;
};

TEST(Case, PlainFamilyIgnoresQuotes) {
  const Conversion upper[] = {
      {"quotes do not protect", "ab \"cd\"", "AB \"CD\""},
      {"1252 letters", "\xE9\xFF\x9A", "\xC9\x9F\x8A"},
      {"signs stay", "1+\xF7\xDF", "1+\xF7\xDF"},
      {"empty", "", ""},
  };
  for (const Conversion& c : upper) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(str(s.upr()), c.want);
    vstring t(c.text);
    EXPECT_EQ(str(t.MakeUpper()), c.want);
  }
  vstring s("AB \"CD\" \xC9");
  EXPECT_EQ(str(s.lwr()), "ab \"cd\" \xE9");
}

TEST(Case, NqFamilyLeavesQuotedTextAlone) {
  const Conversion upper[] = {
      {"closed quote", "ab \"cd\" ef", "AB \"cd\" EF"},
      {"open quote runs to the end", "ab \"cd", "AB \"cd"},
      {"two quoted parts", "a\"b\"c\"d\"e", "A\"b\"C\"d\"E"},
      {"curly quotes are ordinary without a host", "a\x93" "b\x94" "c", "A\x93" "B\x94" "C"},
      {"high bytes stay in the C locale", "\xE9t\xE9", "\xE9T\xE9"},
      {"empty", "", ""},
  };
  for (const Conversion& c : upper) {
    SCOPED_TRACE(c.label);
    vstring a(c.text), b(c.text), d(c.text);
    EXPECT_EQ(str(a.mbuprnq()), c.want);
    EXPECT_EQ(str(b.uprnq()), c.want);
    EXPECT_EQ(str(d.outCase()), c.want);
  }
  vstring s("AB \"CD\" EF");
  EXPECT_EQ(str(s.mblwrnq()), "ab \"CD\" ef");
  vstring t("X\"Y");
  EXPECT_EQ(str(t.lwrnq()), "x\"Y");
}

TEST(Case, NqFamilyMatchesToupperOnEveryByte) {
  // Oracle: toupper/tolower of the C locale outside quotes, bytes as they are
  // inside.
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  std::string up, low;
  bool quoted = false;
  for (char ch : all) {
    if (ch == '"') quoted = !quoted;
    const unsigned char u = static_cast<unsigned char>(ch);
    up += quoted ? ch : static_cast<char>(std::toupper(u));
    low += quoted ? ch : static_cast<char>(std::tolower(u));
  }
  vstring a(all.c_str()), b(all.c_str());
  EXPECT_EQ(str(a.mbuprnq()), up);
  EXPECT_EQ(str(b.mblwrnq()), low);
}

TEST(Case, NqFamilyStopsAtZeroByteInsideLength) {
  std::string text("ab\0cd", 5);
  vstring s(text.data(), 5);
  s.mbuprnq();
  EXPECT_EQ(str(s), "AB");
  vstring leadingZero(std::string("\0x", 2).data(), 2);
  leadingZero.mbuprnq();
  EXPECT_EQ(leadingZero.blen(), 0u) << "an empty result releases the block";
}

TEST(Case, HugeTextKeepsQuotes) {
  std::string text(200000, 'a');
  text[100] = '"';
  text[150000] = '"';
  vstring s(text.c_str());
  s.mbuprnq();
  ASSERT_EQ(s.len(), text.size());
  EXPECT_EQ(s[99], 'A');
  EXPECT_EQ(s[101], 'a');
  EXPECT_EQ(s[149999], 'a');
  EXPECT_EQ(s[150001], 'A');
  EXPECT_EQ(s[199999], 'A');
  vstring t(text.c_str());
  t.upr();
  EXPECT_EQ(t[101], 'A');
}

TEST(Case, SettingsWithoutHostMeanUpperCase) {
  vstring a("ab \"cd\"");
  EXPECT_EQ(str(a.dlgCase(0)), "AB \"cd\"");
  vstring b("ab \"cd\"");
  EXPECT_EQ(str(b.dlgCase(1)), "AB \"cd\"");
  vstring c("ab \"cd\"");
  EXPECT_EQ(str(c.sheetCase()), "AB \"CD\"");
  char target[16];
  vstring d("x \"y\"");
  EXPECT_EQ(d.cpyDlgCase(target, 0), target);
  EXPECT_STREQ(target, "X \"y\"");
  EXPECT_EQ(str(d), "x \"y\"") << "the string itself is left alone";
}

TEST(Case, Capitalize) {
  const Conversion cases[] = {
      {"words", "hELLO wORLD", "Hello world"},
      {"one byte", "a", "A"},
      {"digit first", "1ABC", "1abc"},
      {"high first byte stays in the C locale", "\xC9T\xC9", "\xE9t\xE9"},
      {"empty", "", ""},
  };
  for (const Conversion& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(str(s.capitalize()), c.want);
  }
}

TEST(Case, TitleCase) {
  struct Case {
    const char* text;
    int firstWordOnly;
    int lowerRest;
    const char* want;
  } cases[] = {
      {"aBC dEF", 0, 0, "ABC DEF"},
      {"aBC dEF", 0, 1, "Abc Def"},
      {"aBC dEF", 1, 1, "Abc dEF"},
      {"aBC dEF", 1, 0, "ABC dEF"},
      {"  aBC dEF", 1, 1, "  Abc dEF"},  // leading blanks do not end the first word
      {"x-yZ 1a.B", 0, 1, "X-yz 1a.b"},  // hyphen, digit and dot belong to the word
      {"a\tb\nc\x01" "d", 0, 0, "A\tB\nC\x01" "D"},
      {"\xE9T\xC9 \xFFX", 0, 1, "\xC9t\xE9 \x9Fx"},  // 1252 through CharUpperA/CharLowerA
      {"\xE9T\xC9", 0, 0, "\xC9T\xC9"},
      {"", 0, 1, ""},
      {"   ", 1, 1, "   "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.text << " " << c.firstWordOnly << c.lowerRest);
    vstring s(c.text);
    EXPECT_EQ(str(s.titleCase(c.firstWordOnly, c.lowerRest)), c.want);
  }
  // Zero bytes inside the length separate words like blanks.
  std::string inner("ab\0cd", 5);
  vstring z(inner.data(), 5);
  z.titleCase(0, 0);
  EXPECT_EQ(str(z), std::string("Ab\0Cd", 5));
}

TEST(Case, IsMixedCase) {
  struct Case {
    const char* text;
    int want;
  } cases[] = {{"ABC", 0}, {"abc", 0}, {"123", 0}, {"", 0}, {"Abc", 1},
               {"a1B", 1}, {"\xE9\xC9", 1}, {"\xDF", 0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s(c.text);
    EXPECT_EQ(s.isMixedCase(), c.want);
    EXPECT_EQ(str(s), c.text) << "the string itself is left alone";
  }
}

TEST(Case, PutAndCopyForms) {
  vstring s("old");
  EXPECT_EQ(s.putUpr(nullptr).blen(), 0u);
  s = "old";
  EXPECT_EQ(s.putUpr("").blen(), 0u);
  EXPECT_EQ(str(s.putUpr("ab \"c\"")), "AB \"C\"");
  EXPECT_EQ(str(s.putUprnq("ab \"c\"")), "AB \"c\"");
  EXPECT_EQ(s.putUprnq(nullptr).blen(), 0u);

  vstring src("Ab \"Cd\"");
  char target[32];
  EXPECT_EQ(src.cpyupr(target), target);
  EXPECT_STREQ(target, "AB \"CD\"");
  EXPECT_EQ(src.cpylwr(target), target);
  EXPECT_STREQ(target, "ab \"cd\"");
  EXPECT_EQ(src.cpylwrnq(target), target);
  EXPECT_STREQ(target, "ab \"Cd\"");
  EXPECT_EQ(str(src), "Ab \"Cd\"");
  EXPECT_EQ(src.cpyupr(nullptr), nullptr);
  EXPECT_EQ(vstring().cpylwrnq(target), target);
  EXPECT_STREQ(target, "");
}

}  // namespace
