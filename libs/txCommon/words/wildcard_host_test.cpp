// Wildcard patterns under a host: reports 828 and 500, the spool and the
// scratch buffer on the host's road, curly quotes of code page 1252.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

class WildcardHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().reset(); }
};

TEST_F(WildcardHost, ReplaceRefusesPatternsThatDiffer) {
  struct Case {
    const char* source;
    const char* destination;
  } const cases[] = {{"a*", "b"}, {"**", "**"}, {"*?*", "*?*"}, {"a?", "b*"}, {"a", "b*"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " -> " + c.destination);
    fakeHost().reset();
    EXPECT_EQ(str(vstring("  a1 \t a2 ").WReplace(vstring(c.source), vstring(c.destination), false)),
              "  a1 \t a2 ");
    EXPECT_EQ(fakeHost().codes(), std::vector<int>{828});
  }
}

TEST_F(WildcardHost, ReplaceUsesTheHostsBuffers) {
  const std::string list(100, 'a');
  EXPECT_EQ(str(vstring((list + " b").c_str()).WReplace(vstring("a*"), vstring("x*"), false)),
            "x" + list.substr(1) + " b");
  // The spool: 5/4 of the list's length, by integer arithmetic.
  ASSERT_FALSE(fakeHost().allocateSizes.empty());
  EXPECT_EQ(fakeHost().allocateSizes.front(), 102 * 5 / 4);
  EXPECT_EQ(fakeHost().allocateCalls, fakeHost().releaseCalls);
  // One size test, for the one word that matched: its length plus the
  // destination's.
  EXPECT_EQ(fakeHost().ensureCalls, (std::vector<std::pair<int, int>>{{102, 8192}}));
  EXPECT_TRUE(fakeHost().codes().empty());

  fakeHost().reset();
  vstring("a b").WKeep(vstring("*"));
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{64});
  fakeHost().reset();
  vstring(list.c_str()).WDrop(vstring("*"));
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{100});
}

TEST_F(WildcardHost, ReplaceLeavesAWordTheHostCannotHold) {
  fakeHost().ensureAnswer = 0;
  EXPECT_EQ(str(vstring("a1 \"a2\"").WReplace(vstring("a*"), vstring("b*"), false)), "a1 \"a2\"");
  EXPECT_EQ(fakeHost().ensureCalls.size(), 2u);
  EXPECT_TRUE(fakeHost().codes().empty());
}

TEST_F(WildcardHost, ReplaceThatOutgrowsTheScratchBufferGivesTheText) {
  // Every `a` of the word doubles; the host's buffer holds 32 bytes.
  fakeHost().setTempBufLen(32);
  const char* text = "x aaaaaaaaaaaaaaaaaaaa";
  EXPECT_EQ(str(vstring(text).WReplace(vstring("*a*"), vstring("*bb*"), false)), text);
  EXPECT_TRUE(fakeHost().codes().empty());  // a failed rewrite reports nothing
  EXPECT_EQ(str(vstring("x aaaa").WReplace(vstring("*a*"), vstring("*bb*"), false)), "x bbbbbbbb");
}

TEST_F(WildcardHost, CurlyQuotesUnder1252) {
  const char* list = "\x93" "a b\x94 c";
  EXPECT_EQ(str(vstring(list).WKeep(vstring("a*"))), "\"a b\"");
  EXPECT_EQ(str(vstring(list).WDrop(vstring("a*"))), "c");
  EXPECT_EQ(str(vstring(list).WReplace(vstring("a*"), vstring("z*"), false)), "\"z b\" c");
  fakeHost().codePage = 932;
  EXPECT_EQ(str(vstring(list).WKeep(vstring("b*"))), "b\x94");
}

TEST_F(WildcardHost, TemplateOfAHundredWildcardsReports500) {
  const std::string many(100, '?');
  EXPECT_EQ(str(wildcardToRegex(vstring(many.c_str()), true, true, true)), "");
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{500});
  fakeHost().reset();
  // In a rewrite each match is then replaced by nothing, and the rewrite holds.
  const std::string word(100, 'q');
  EXPECT_EQ(str(vstring((word + " z").c_str()).WReplace(vstring(many.c_str()),
                                                          vstring(many.c_str()), false)),
            " z");
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{500});
}

}  // namespace
