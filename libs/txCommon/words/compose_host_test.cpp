// Word-list composition under a host: the codes 110, 2112 and 2115, the
// scanner's own reports passed on, the pending error, the spools' blocks
// through Allocate and Release, curly quotes, and a tiny scratch buffer.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

class ComposeHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().reset(); }
};

using Codes = std::vector<int>;

TEST_F(ComposeHost, InterleaveReports110ForACountBelowOne) {
  struct Case {
    const char* mine;
    int countThis, countOther;
    Codes codes;
  };
  const Case cases[] = {
      {"", 0, 1, {110}}, {"a b", 1, 0, {110}}, {"a b", -1, -1, {110}}, {"", 1, 1, {}}, {"a", 1, 1, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.mine) + " " + std::to_string(c.countThis));
    fakeHost().reset();
    vstring(c.mine).WInterleave(vstring(""), c.countThis, c.countOther);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
  fakeHost().reset();
  EXPECT_EQ(str(vstring("a").WInterleave(vstring("x y"), 1, 1)), "a x \"\" y");
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{2048});
  EXPECT_EQ(fakeHost().releaseCalls, 1);
}

TEST_F(ComposeHost, InterleaveStopsOnAPendingError) {
  fakeHost().errorPending = 1;
  EXPECT_EQ(str(vstring("a b").WInterleave(vstring("x y"), 1, 1)), "");
  EXPECT_TRUE(fakeHost().codes().empty());

  // Growth refused: the host raises its error, the words that do not fit
  // are dropped, and no further group is started; what is there is a head
  // of the whole result.
  fakeHost().reset();
  std::string list;
  for (int i = 0; i < 2000; ++i) {
    const char word[] = {'w', static_cast<char>('0' + i % 7), ' '};
    list.append(word, sizeof word);
  }
  const vstring text(list.c_str());
  const std::string whole = str(text.WInterleave(text, 1, 1));
  fakeHost().reset();
  fakeHost().failAllocateAfter = 1;
  const std::string cut = str(text.WInterleave(text, 1, 1));
  EXPECT_GT(cut.size(), 2000u);
  EXPECT_LT(cut.size(), 2048u);
  EXPECT_EQ(whole.compare(0, cut.size(), cut), 0);
  EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
}

TEST_F(ComposeHost, CrossReports2115ForABadPattern) {
  struct Case {
    const char* pattern;
    Codes codes;
    const char* expected;
  };
  const Case cases[] = {
      {"?", {2115}, ""}, {"a?b?c?d", {2115}, ""}, {"x", {2115}, ""},
      {"??", {}, "ax"},  {"", {}, "ax"},          {" \t", {}, "ax"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.pattern);
    fakeHost().reset();
    EXPECT_EQ(str(vstring("a").WCross(vstring("x"), vstring(c.pattern))), c.expected);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
  // The reads are word(0): no report for what they find unbalanced.
  fakeHost().reset();
  // An open quote is no pair for StripQuotesEx, and stays.
  EXPECT_EQ(str(vstring("a) (b").WCross(vstring("\"x"), vstring("?_?"))), "a)_\"x (b_\"x");
  EXPECT_TRUE(fakeHost().codes().empty());
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{2048});
}

TEST_F(ComposeHost, DelimReports2112AndReturnsTheText) {
  struct Case {
    const char* from;
    const char* to;
    int codePage;
    Codes codes;
    const char* expected;
  };
  const Case cases[] = {
      {"x", ";", 1252, {2112}, "a,b"},
      {"ab", "x", 1252, {2112}, "a,b"},  // `from` first, one report
      {",", "\x93", 1252, {2112}, "a,b"},
      {"\x94", ";", 1252, {2112}, "a,b"},
      {",", "\x93", 932, {}, "a\x93" "b"},
      {"C", ";", 1252, {}, "a;b"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.from) + " -> " + c.to);
    fakeHost().reset();
    fakeHost().codePage = c.codePage;
    EXPECT_EQ(str(vstring("a,b").WDelim(vstring(c.from), vstring(c.to))), c.expected);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
}

TEST_F(ComposeHost, DelimPassesOnTheScannersReports) {
  struct Case {
    const char* text;
    Codes codes;
    const char* expected;
  };
  const Case cases[] = {
      {"(a,b", {23}, "(a,b"},
      {"\"a,b", {102}, "\"a,b"},
      {"a),b", {23, 23}, "a;);b"},
      {"f(a,b),c", {}, "f(a,b);c"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    fakeHost().reset();
    EXPECT_EQ(str(vstring(c.text).WDelim(vstring(","), vstring(";"))), c.expected);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
  // The spool holds the text and 100 bytes more.
  fakeHost().reset();
  vstring("a,b").WDelim(vstring(","), vstring(";"));
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{103});
  EXPECT_EQ(fakeHost().releaseCalls, 1);
}

TEST_F(ComposeHost, CurlyQuotesHoldAnItemUnderCodePage1252) {
  const vstring text("\x93" "a b\x94" " c");
  EXPECT_EQ(str(text.WDelim(vstring("S"), vstring(","))), "a b,c");
  EXPECT_EQ(str(text.WCross(vstring("x"), vstring("?_?"))), "\"a b_x\" c_x");
  fakeHost().codePage = 932;
  EXPECT_EQ(str(text.WDelim(vstring("S"), vstring(","))), "\x93" "a,b\x94" ",c");
}

TEST_F(ComposeHost, TinyScratchBufferStillEnds) {
  fakeHost().setTempBufLen(4);
  EXPECT_EQ(str(vstring("abcdefgh,x").WDelim(vstring(","), vstring(";"))), "abcd;efgh;x");
  // The second piece ends at the comma before it reaches the limit.
  EXPECT_EQ(fakeHost().codes(), Codes{2146});
  fakeHost().reset();
  fakeHost().setTempBufLen(0);
  const vstring oneByOne(vstring("ab,c").WDelim(vstring(","), vstring(";")));
  EXPECT_EQ(str(oneByOne), "a;b;c");
  EXPECT_EQ(str(vstring("ab c").WCross(vstring("x"), vstring(""))), "");
}

TEST_F(ComposeHost, CWordSpoolsAndReports) {
  vstring s("X C Y");
  s.removeC();
  EXPECT_EQ(str(s), "X Y ");
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{64});
  EXPECT_EQ(fakeHost().releaseCalls, 1);
  EXPECT_TRUE(fakeHost().codes().empty());

  fakeHost().reset();
  vstring longer(std::string(100, 'x').c_str());
  longer.adjustCPosition(1);
  EXPECT_EQ(str(longer), "C " + std::string(100, 'x') + " ");
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{110});

  // The words are the scanner's word(1), whose reports reach the host.
  fakeHost().reset();
  vstring open("a C (b");
  open.removeC();
  EXPECT_EQ(str(open), "a (b ");
  EXPECT_EQ(fakeHost().codes(), Codes{23});
  // Signed bytes: a curly quote borders C like a blank, even as a quote.
  EXPECT_EQ(vstring("A \x93" "C\x94").findC(), 3);
}

}  // namespace
