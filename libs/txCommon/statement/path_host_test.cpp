// File names under the fake host: the directories it gives through
// QuerySetting, its clean-up of `..`, report 415, and ErrorPending.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "fake_host.h"

#include <string>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }

constexpr const char* kDefPath = "pTarnixIni->DefPath()";
constexpr const char* kLinePath = "pExecutionHandler->GetCurrentLinePath().GetPath()";
constexpr const char* kAddins = "pTXProgReg->mAddinPath";

TEST(PathHost, DirectoriesFromTheHost) {
  struct Case {
    const char* name;
    const char* linePath;
    const char* want;
  };
  const Case cases[] = {
      {"x.txt", "", "c:\\work\\x.txt"},
      {".\\x", "c:\\p", "c:\\p\\x"},
      {"./x", "c:\\p\\", "c:\\p\\x"},
      {".\\x", "c:/p/", "c:/p/x"},
      {".\\x", "", "c:\\work\\x"},
      {"<addins>tool.prg", "", "c:\\add\\tool.prg"},
      {"<Add-Ins>tool.prg", "", "c:\\add\\tool.prg"},
      {"<ADDINSX", "", "c:\\work\\<ADDINSX"},
      {"\\x.txt", "", "c:\\x.txt"},
      {"\"my file.txt\"", "", "c:\\work\\my file.txt"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    fakeHost().reset();
    fakeHost().settings[kDefPath] = "c:\\work";
    fakeHost().settings[kLinePath] = c.linePath;
    fakeHost().settings[kAddins] = "c:\\add\\";
    vstring s(c.name);
    s.addPathIfNone(nullptr);
    EXPECT_EQ(bytes(s), c.want);
    EXPECT_TRUE(fakeHost().reports.empty());
  }
  fakeHost().reset();
}

TEST(PathHost, CanonicalizeAndReport415) {
  fakeHost().reset();
  fakeHost().settings[kDefPath] = "c:\\a\\b";
  fakeHost().canonicalizeResult = 1;
  fakeHost().canonicalizeText = "c:\\clean";
  vstring s("..\\x\\..\\y");
  s.addPathIfNone(nullptr);
  EXPECT_EQ(bytes(s), "c:\\clean");

  fakeHost().reset();
  fakeHost().settings[kDefPath] = "c:\\a";
  vstring far("..\\..\\x");
  far.replaceDotDot(nullptr);
  EXPECT_EQ(bytes(far), "..\\..\\x");
  ASSERT_EQ(fakeHost().reports.size(), 1u);
  EXPECT_EQ(fakeHost().reports[0], (FakeHost::Report{415, "", "..\\..\\x"}));

  fakeHost().reset();  // a host that declines the clean-up leaves the text
  vstring kept("..\\x");
  vstring base("c:\\a\\b");
  kept.addPathIfNone(&base);
  EXPECT_EQ(bytes(kept), "c:\\a\\x");
  fakeHost().reset();
}

TEST(PathHost, ErrorPendingAbandons) {
  fakeHost().reset();
  fakeHost().settings[kDefPath] = "c:\\work";
  fakeHost().errorPending = 1;
  vstring s("\"x.txt\"");
  s.addPathIfNone(nullptr);
  EXPECT_EQ(bytes(s), "\"x.txt\"");
  EXPECT_EQ(bytes(s.addPathAndExt("csv", nullptr)), "\"x.txt\"");
  EXPECT_EQ(bytes(s.GetExt()), "");
  EXPECT_EQ(bytes(s.GetPath(nullptr)), "");
  vstring t("c:\\d\\a.csv");
  EXPECT_EQ(bytes(t.stripPathAndExt(nullptr, 0)), "c:\\d\\a.csv");
  fakeHost().reset();
}

TEST(PathHost, CurlyQuotesUnderCodePage1252) {
  fakeHost().reset();
  vstring s("\x93" "c:\\d\\a.csv\x94");
  EXPECT_EQ(bytes(s.GetExt()), ".csv");
  fakeHost().codePage = 932;
  EXPECT_EQ(bytes(s.GetExt()), ".csv\x94");
  fakeHost().reset();
}

}  // namespace
