// Word lists by position under a host: the spool's blocks through Allocate
// and Release, dropped words when the host refuses growth, WRight's pending
// error, the host's scratch buffer in GetElement, and curly quotes.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

class WordPositionHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().reset(); }
};

TEST_F(WordPositionHost, ResultsAreBuiltInA2048ByteSpoolFromTheHost) {
  const vstring s("a  b   c");
  EXPECT_EQ(str(s.WMid(2, 2)), "b c");
  EXPECT_EQ(fakeHost().allocateSizes, std::vector<int>{2048});
  EXPECT_EQ(fakeHost().releaseCalls, 1) << "given back before the call returns";
  EXPECT_GE(fakeHost().nextTempCalls, 1) << "the result is the host's temporary";

  // 2048 is no limit: the spool grows, and every block goes back.
  fakeHost().reset();
  std::string big;
  for (int i = 0; i < 3000; ++i) big += "word  ";
  const std::string all = str(text_of(big).WMid(1, 100000));
  EXPECT_EQ(all.size(), 3000u * 5 - 1);
  EXPECT_GT(fakeHost().allocateCalls, 1);
  EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
}

TEST_F(WordPositionHost, CountingAndArgumentChecksAllocateNothing) {
  const vstring s("a b c");
  EXPECT_EQ(s.WCount(), 3);
  EXPECT_EQ(str(s.WMid(0, 1)), "");
  EXPECT_EQ(str(s.WLeft(-1)), "");
  EXPECT_EQ(str(s.WRight(0)), "");
  EXPECT_EQ(str(vstring().WRight(1)), "");
  EXPECT_EQ(vstring(s).GetLastWordBreak(-1), 3);
  EXPECT_EQ(fakeHost().allocateCalls, 0);
}

// Words of 100 bytes fill the 2048-byte spool after 20 of them; with growth
// refused, a word that does not fit is dropped whole and a later one that
// fits still goes in.
TEST_F(WordPositionHost, RefusedGrowthDropsTheWordsThatDoNotFit) {
  const std::string w100(100, 'w');
  std::string text;
  for (int i = 0; i < 19; ++i) text += w100 + " ";
  text += std::string(200, 'L') + " z " + std::string(200, 'T');
  fakeHost().failAllocateAfter = 1;  // the spool's own block, then no more
  const std::string got = str(text_of(text).WMid(1, 1000));
  std::string want = w100;
  for (int i = 1; i < 19; ++i) want.append(" ").append(w100);
  want += " z";
  EXPECT_EQ(got, want);
  EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
}

TEST_F(WordPositionHost, WRightOnAPendingErrorIsEmpty) {
  const vstring s(" a  b ");
  fakeHost().errorPending = 1;
  EXPECT_EQ(str(s.WRight(1)), "");
  EXPECT_EQ(str(s.WRight(5)), "") << "asked before the whole-text copy too";
  EXPECT_EQ(fakeHost().allocateCalls, 0);
  // Other positional results do not ask.
  EXPECT_EQ(str(s.WMid(1, 2)), "a b");
  fakeHost().errorPending = 0;
  EXPECT_EQ(str(s.WRight(5)), " a  b ");
  EXPECT_EQ(str(s.WRight(1)), "b");
}

TEST_F(WordPositionHost, GetElementUsesTheHostsScratchBuffer) {
  fakeHost().setTempBufLen(8);
  vstring s("abcdefghijkl x");
  EXPECT_EQ(str(s.GetElement(0)), "abcdefgh") << "cut to the buffer the host reports";
  EXPECT_EQ(str(s.GetElement(1)), "x");
  fakeHost().setTempBufLen(0);
  EXPECT_EQ(str(s.GetElement(0)), "");
}

TEST_F(WordPositionHost, CurlyQuotesProtectBlanksOnlyUnder1252) {
  const vstring s("\x93" "a b\x94 c");
  EXPECT_EQ(s.WCount(), 2);
  EXPECT_EQ(str(s.WordQ(1)), "\x93" "a b\x94");
  EXPECT_EQ(str(s.Word(1)), "a b");
  EXPECT_EQ(str(s.WRight(1)), "c");
  fakeHost().codePage = 932;
  EXPECT_EQ(s.WCount(), 3);
  EXPECT_EQ(str(s.Word(1)), "\x93" "a");
  // GetElement knows no quotes at all, under any code page.
  vstring e("\"a b\"");
  EXPECT_EQ(str(e.GetElement(0)), "\"a");
}

}  // namespace
