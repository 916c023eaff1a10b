// Word sets under a host: spool sizes from the operands through Allocate,
// blocks given back, the word table off the host's road, and curly quotes
// compared as bytes.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

class WordSetsHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().reset(); }
};

TEST_F(WordSetsHost, SpoolIsSizedFromTheOperands) {
  const std::string long100(100, 'x');
  const vstring big(long100.c_str());
  const vstring small("a b");
  struct Case {
    const char* label;
    vstring& (*run)(const vstring&, const vstring&);
    const vstring& mine;
    const vstring& other;
    int size;
  } const cases[] = {
      {"unique: this list", [](const vstring& a, const vstring&) -> vstring& { return a.WUnique(); }, big, small, 100},
      {"unique: at least 64", [](const vstring& a, const vstring&) -> vstring& { return a.WUnique(); }, small, big, 64},
      {"not in: this list", [](const vstring& a, const vstring& b) -> vstring& { return a.WNotIn(b); }, big, small, 100},
      {"not in: at least 64", [](const vstring& a, const vstring& b) -> vstring& { return a.WNotIn(b); }, small, big, 64},
      {"intersect: the smaller", [](const vstring& a, const vstring& b) -> vstring& { return a.WIntersect(b); }, big, big, 100},
      {"intersect: at least 64", [](const vstring& a, const vstring& b) -> vstring& { return a.WIntersect(b); }, big, small, 64},
      {"union: the sum", [](const vstring& a, const vstring& b) -> vstring& { return a.WUnion(b); }, big, big, 200},
      {"union: at least 64", [](const vstring& a, const vstring& b) -> vstring& { return a.WUnion(b); }, small, small, 64},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    c.run(c.mine, c.other);
    ASSERT_FALSE(fakeHost().allocateSizes.empty());
    EXPECT_EQ(fakeHost().allocateSizes.front(), c.size);
    EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
  }
}

TEST_F(WordSetsHost, TableUsesTrackedMemoryNotTheHost) {
  std::string list;
  for (int i = 0; i < 5000; ++i) list += std::to_string(i) + " ";
  const vstring a(list.c_str());
  const std::int32_t blocks = trackedBlocks.load();
  const std::int32_t bytes = trackedBytes.load();
  EXPECT_EQ(a.WUnique().len(), list.size() - 1);
  EXPECT_EQ(trackedBlocks.load(), blocks);
  EXPECT_EQ(trackedBytes.load(), bytes);
  // One spool block, sized in advance, and its growth for the last word.
  EXPECT_LE(fakeHost().allocateCalls, 2);
  EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
}

TEST_F(WordSetsHost, RefusedGrowthDropsWhatDoesNotFit) {
  // A spool of exactly the list's length has no room for its last word and
  // the terminator; with growth refused that word is left out.
  const std::string text = std::string(40, 'a') + " " + std::string(40, 'b');
  fakeHost().failAllocateAfter = 1;
  EXPECT_EQ(str(vstring(text.c_str()).WUnique()), std::string(40, 'a'));
  EXPECT_EQ(fakeHost().releaseCalls, fakeHost().allocateCalls);
}

TEST_F(WordSetsHost, CurlyQuotesAreWordsOfTheirOwn) {
  const vstring curly("\x93" "a b\x94 c");
  const vstring straight("\"a b\" c");
  EXPECT_EQ(str(curly.WIntersect(straight)), "c");
  EXPECT_EQ(str(curly.WUnique()), "\x93" "a b\x94 c");
  vstring list("x \x93" "a b\x94");
  int position = 0;
  EXPECT_EQ(list.WFind(vstring("\x93" "a b\x94"), 0, &position, 0), 2);
  EXPECT_EQ(position, 2);
  fakeHost().codePage = 932;
  EXPECT_EQ(str(curly.WUnique()), "\x93" "a b\x94 c");
  EXPECT_EQ(curly.WUnique().len(), curly.len());
  EXPECT_EQ(list.WFind(vstring("\x93" "a b\x94"), 0, &position, 0), 0);
  EXPECT_EQ(position, -1);
}

}  // namespace
