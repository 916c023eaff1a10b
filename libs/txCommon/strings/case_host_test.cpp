// Case conversion under the fake host: its code page decides whether the
// curly quotes protect text, its settings pick dlgCase/sheetCase, and its
// case slots serve the plain family and titleCase.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

TEST(CaseHost, CurlyQuotesCountOnlyUnder1252) {
  struct Case {
    const char* label;
    int codePage;
    const char* text;
    const char* upper;
  } cases[] = {
      {"1252: curly pair protects", 1252, "a\x93" "bc\x94" "d", "A\x93" "bc\x94" "D"},
      {"850: curly pair is converted", 850, "a\x93" "bc\x94" "d", "A\x93" "BC\x94" "D"},
      {"1252: one family, '\"' closes 0x93", 1252, "\x93" "ab\"cd", "\x93" "ab\"CD"},
      {"1252: 0x94 may open", 1252, "x\x94" "y", "X\x94" "y"},
      {"1250: no protection", 1250, "x\x94" "y", "X\x94" "Y"},
      {"1252: straight quotes as ever", 1252, "a\"b\"c", "A\"b\"C"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    fakeHost().codePage = c.codePage;
    vstring s(c.text);
    EXPECT_EQ(str(s.mbuprnq()), c.upper);
    EXPECT_EQ(fakeHost().upperCalls, 0) << "the nq family never uses the host's slots";
  }
}

TEST(CaseHost, CodePageAskedOnlyOnCurlyBytes) {
  fakeHost().reset();
  vstring s("ab \"cd\" ef");
  s.mbuprnq();
  EXPECT_EQ(fakeHost().codePageCalls, 0);
  vstring t("\x93" "a\x94" "\x93");
  t.mblwrnq();
  EXPECT_EQ(fakeHost().codePageCalls, 3);
}

TEST(CaseHost, PlainFamilyUsesHostSlots) {
  fakeHost().reset();
  vstring s("ab \"cd\"");
  s.upr();
  EXPECT_EQ(str(s), "AB \"CD\"");
  EXPECT_EQ(fakeHost().upperCalls, 1);
  s.lwr();
  EXPECT_EQ(fakeHost().lowerCalls, 1);
  vstring empty;
  empty.upr().lwr();
  EXPECT_EQ(fakeHost().upperCalls, 1) << "an empty text calls nothing";
  EXPECT_EQ(fakeHost().lowerCalls, 1);
  EXPECT_EQ(vstring("Ab").isMixedCase(), 1);
  EXPECT_EQ(fakeHost().upperCalls, 2);
  EXPECT_EQ(fakeHost().lowerCalls, 2);
}

struct SettingCase {
  const char* label;
  bool present;
  const char* answer;
  bool lower;
};

const SettingCase kSettingCases[] = {
    {"answer 1", true, "1", true},
    {"answer 0", true, "0", false},
    {"empty answer", true, "", false},
    {"no answer", false, "", false},
    {"1 with a blank behind", true, "1 ", false},
    {"blank before 1", true, " 1", false},
    {"11", true, "11", false},
    {"yes", true, "yes", false},
};

TEST(CaseHost, DlgCaseFollowsQuerySetting) {
  for (const SettingCase& c : kSettingCases) {
    SCOPED_TRACE(c.label);
    for (int arg : {0, 1}) {
      fakeHost().reset();
      if (c.present) fakeHost().settings["pTarnixIni->DlgLowerCase"] = c.answer;
      vstring s("Ab \"Cd\" Ef");
      s.dlgCase(arg);
      EXPECT_EQ(str(s), c.lower ? "ab \"Cd\" ef" : "AB \"Cd\" EF");
      ASSERT_EQ(fakeHost().queried.size(), 1u);
      EXPECT_EQ(fakeHost().queried[0], "pTarnixIni->DlgLowerCase");
    }
    char target[32];
    vstring t("Ab \"Cd\"");
    t.cpyDlgCase(target, 7);
    EXPECT_STREQ(target, c.lower ? "ab \"Cd\"" : "AB \"Cd\"");
    EXPECT_EQ(str(t), "Ab \"Cd\"");
  }
}

TEST(CaseHost, SheetCaseFollowsQuerySetting) {
  for (const SettingCase& c : kSettingCases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    if (c.present) fakeHost().settings["pTarnixIni->SheetLowerCase"] = c.answer;
    vstring s("Ab \"Cd\"");
    s.sheetCase();
    EXPECT_EQ(str(s), c.lower ? "ab \"cd\"" : "AB \"CD\"");
    ASSERT_EQ(fakeHost().queried.size(), 1u);
    EXPECT_EQ(fakeHost().queried[0], "pTarnixIni->SheetLowerCase");
    EXPECT_EQ(c.lower ? fakeHost().lowerCalls : fakeHost().upperCalls, 1);
  }
}

TEST(CaseHost, SettingComparedOverTempBufLen) {
  fakeHost().reset();
  fakeHost().setTempBufLen(1);
  fakeHost().settings["pTarnixIni->SheetLowerCase"] = "12";
  vstring s("AbC");
  EXPECT_EQ(str(s.sheetCase()), "abc") << "only the first byte is compared";
  fakeHost().reset();
}

TEST(CaseHost, SettingWithZeroOrNegativeTempBufLen) {
  struct Case {
    int tempLen;
    const char* answer;
    const char* want;
  } cases[] = {
      {0, "0", "abc"},   // nothing compared: equal
      {0, "", "abc"},
      {-1, "1", "abc"},  // read unsigned: no bound
      {-1, "12", "ABC"},
      {-1, "", "ABC"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.tempLen << " [" << c.answer << "]");
    fakeHost().reset();
    fakeHost().tempLen = c.tempLen;
    fakeHost().settings["pTarnixIni->SheetLowerCase"] = c.answer;
    vstring s("AbC");
    EXPECT_EQ(str(s.sheetCase()), c.want);
  }
  fakeHost().reset();
}

TEST(CaseHost, TitleCaseSendsHighBytesThroughTheHost) {
  fakeHost().reset();
  vstring s("\xE9T\xC9 ab");
  s.titleCase(0, 1);
  EXPECT_EQ(str(s), "\xC9t\xE9 Ab");
  EXPECT_EQ(fakeHost().upperCalls, 1);
  EXPECT_EQ(fakeHost().lowerCalls, 1);
}

TEST(CaseHost, HostileText) {
  fakeHost().reset();
  std::string text(140000, 'a');
  text[5] = '\x93';
  text[139000] = '\x94';
  for (int b = 1; b < 256; ++b) text[1000 + static_cast<size_t>(b)] = static_cast<char>(b);
  vstring s(text.c_str());
  s.mbuprnq();
  ASSERT_EQ(s.len(), text.size());
  // Toggles: 0x93 at 5 opens; in the byte run '"' closes, 0x93 opens, 0x94
  // closes; 0x94 at 139000 opens again up to the end.
  EXPECT_EQ(s[4], 'A');
  EXPECT_EQ(s[6], 'a');
  EXPECT_EQ(s[1000 + 'a'], 'A');
  EXPECT_EQ(s[2000], 'A');
  EXPECT_EQ(s[139001], 'a');
  EXPECT_EQ(s[139999], 'a');
  vstring empty;
  EXPECT_EQ(str(empty.mbuprnq().titleCase(1, 1).capitalize().dlgCase(0)), "");
}

}  // namespace
