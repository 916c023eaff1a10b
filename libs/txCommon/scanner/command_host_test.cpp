// The statement scanner under the fake host: reports 23, 102 and 2146, curly
// quotes under code page 1252, and the scratch buffer the host hands out.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "fake_host.h"

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Codes = std::vector<int>;

TEST(CommandHost, ReportsOfWord) {
  struct Case {
    const char* text;
    int report;
    const char* word;
    Codes codes;
  };
  const Case cases[] = {
      {"a)b", 1, "a)", {23}},
      {"a)b", 0, "a)", {}},
      {"(a b", 1, "(a b", {23}},
      {"\"a b", 1, "\"a b", {102}},
      {"(\"a b", 1, "(\"a b", {23, 102}},
      {"f(a) b", 1, "f(a)", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    fakeHost().reset();
    command k(c.text);
    EXPECT_EQ(bytes(k.word(c.report)), c.word);
    EXPECT_EQ(fakeHost().codes(), c.codes);
  }
}

TEST(CommandHost, ReportsOfOtherReaders) {
  fakeHost().reset();
  command sep("a)b");
  EXPECT_EQ(bytes(sep.word(' ', 0, 1)), "a");
  EXPECT_EQ(fakeHost().codes(), Codes({23}));

  fakeHost().reset();
  command open("(a, b");
  EXPECT_EQ(bytes(open.word(',', 0, 1)), "(a, b");
  EXPECT_EQ(fakeHost().codes(), Codes({23}));

  fakeHost().reset();
  command bracket("a] (b");
  EXPECT_EQ(bytes(bracket.wordwithbracket()), "a");
  EXPECT_EQ(bracket.GetOffset(), 1);
  EXPECT_EQ(bytes(bracket.wordwithbracket()), "");
  bracket.SetOffset(3);
  EXPECT_EQ(bytes(bracket.wordwithbracket()), "(b");
  EXPECT_EQ(fakeHost().codes(), Codes({23, 23, 23}));

  fakeHost().reset();
  command openBracket("[a b");
  EXPECT_EQ(bytes(openBracket.wordwithbracket()), "[a b");
  EXPECT_TRUE(fakeHost().codes().empty());  // an open [ is not reported

  fakeHost().reset();
  EXPECT_EQ(vstring("a)").isWord(), 1);
  EXPECT_EQ(fakeHost().codes(), Codes({23}));

  fakeHost().reset();
  command count("a) \"b");
  EXPECT_EQ(count.num_words(), 2);
  EXPECT_EQ(fakeHost().codes(), Codes({23, 102}));
}

TEST(CommandHost, LongWordReports2146) {
  fakeHost().reset();
  fakeHost().setTempBufLen(8);
  command k("abcdefghijkl mn");
  EXPECT_EQ(bytes(k.word(' ', 0, 0)), "abcdefgh");
  EXPECT_EQ(fakeHost().codes(), Codes({2146}));
  EXPECT_EQ(bytes(k.word(' ', 0, 0)), "ijkl");
  command quiet("abcdefghijkl mn");
  EXPECT_EQ(bytes(quiet.word(1)), "abcdefg");  // word(int) cuts silently, one byte less
  EXPECT_EQ(fakeHost().codes(), Codes({2146}));
  fakeHost().reset();
}

TEST(CommandHost, CurlyQuotesUnderCodePage1252) {
  fakeHost().reset();
  command k("\x93" "a b\x94 c");
  EXPECT_EQ(bytes(k.word(1)), "\x93" "a b\x94");
  EXPECT_EQ(bytes(k.word(1)), "c");
  command mixed("\x93" "a b\" c");  // one family: a plain quote closes a curly one
  EXPECT_EQ(bytes(mixed.word(1)), "\x93" "a b\"");

  fakeHost().codePage = 932;
  command other("\x93" "a b\x94 c");
  EXPECT_EQ(bytes(other.word(1)), "\x93" "a");
  fakeHost().reset();
}

TEST(CommandHost, WordToSeperatorAsksForRoom) {
  fakeHost().reset();
  command k("abc + d");
  k.WordToSeperator();
  ASSERT_EQ(fakeHost().ensureCalls.size(), 1u);
  EXPECT_EQ(fakeHost().ensureCalls[0], std::make_pair(7, 8192));
}

}  // namespace
