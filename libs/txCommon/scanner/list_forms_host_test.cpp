// List forms and wildcard expansion under a host: report 828, the checks of
// ErrorPending, upper case through the host, and scanner reports on the way.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

class ListFormsHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().reset(); }
};

std::string expand(const char* list, const char* pattern) {
  command c(list);
  vstring p(pattern);
  return str(c.ExpandListWithWildcards(p));
}

TEST_F(ListFormsHost, RefusedPatternsReport828) {
  struct Case {
    const char* list;
    const char* pattern;
    std::vector<int> codes;
  } const cases[] = {
      {"a b", "*x*", {828}},  {"a b", "x?", {828}}, {"a b", "?", {828}},
      {"*", "*?", {828}},     {"a b", "x*", {}},    {"", "*x*", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.list) + " | " + c.pattern);
    fakeHost().reset();
    const std::string got = expand(c.list, c.pattern);
    EXPECT_EQ(fakeHost().codes(), c.codes);
    if (!c.codes.empty()) {
      EXPECT_EQ(got, "");
    }
  }
}

TEST_F(ListFormsHost, ErrorPendingGivesEmpty) {
  fakeHost().errorPending = 1;
  command c("a b");
  c.word(1);
  vstring p("abc");
  EXPECT_EQ(str(c.ExpandListWithWildcards(p)), "");
  EXPECT_EQ(c.GetOffset(), 2);  // the cursors are not touched
  EXPECT_EQ(fakeHost().upperCalls, 0);
}

TEST_F(ListFormsHost, AnAllocationFailureOnTheWayGivesEmpty) {
  // The spool's first block is granted, its growth raises the host's error.
  fakeHost().failAllocateAfter = 1;
  std::string list;
  for (int i = 0; i < 200; ++i) list += "abcdefgh ";
  EXPECT_EQ(expand(list.c_str(), "prefix_*"), "");
}

TEST_F(ListFormsHost, UpperCaseGoesThroughTheHost) {
  EXPECT_EQ(expand("a b", "x*"), "XA XB");
  EXPECT_EQ(fakeHost().upperCalls, 1);
  fakeHost().reset();
  EXPECT_EQ(expand("a", "abc"), "ABC");
  EXPECT_EQ(fakeHost().upperCalls, 1);
  EXPECT_TRUE(fakeHost().codes().empty());
}

TEST_F(ListFormsHost, ScannerReportsOnTheWay) {
  EXPECT_EQ(expand("(a b", "x*"), "X(A");
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{23});
  fakeHost().reset();
  command c("\"a b");
  c.TranslateIntoListForm();
  EXPECT_EQ(str(c), "{\"a b}");
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{102});
}

TEST_F(ListFormsHost, CurlyQuotesHoldAWordUnder1252) {
  command c("\x93" "a b\x94 c");
  c.TranslateIntoListForm();
  EXPECT_EQ(str(c), "{\x93" "a b\x94, c}");
  fakeHost().codePage = 932;
  command d("\x93" "a b\x94 c");
  d.TranslateIntoListForm();
  EXPECT_EQ(str(d), "{\x93" "a, b\x94, c}");
}

}  // namespace
