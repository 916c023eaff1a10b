// vstringArray with no host: filling, removing, resizing, Map and the sorted
// FindString.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::vector<std::string> texts(const vstringArray& a) {
  std::vector<std::string> out;
  for (int i = 0; i < a.len(); ++i) out.emplace_back(a[i].optr(), a[i].len());
  return out;
}

void fill(vstringArray& a, const std::vector<std::string>& values) {
  for (const auto& v : values) a.add(vstring(v.c_str()));
}

using Strings = std::vector<std::string>;

TEST(VstringArray, AddReturnsSuccessiveIndices) {
  vstringArray a;
  EXPECT_EQ(a.len(), 0);
  EXPECT_EQ(a.add(vstring("a")), 0);
  EXPECT_EQ(a.add(vstring("b")), 1);
  EXPECT_EQ(a.add(vstring()), 2);
  EXPECT_EQ(a.Size(), 3);
  EXPECT_EQ(texts(a), (Strings{"a", "b", ""}));
}

TEST(VstringArray, AddOfItsOwnElementCopiesBeforeTheBlockMoves) {
  vstringArray a;
  a.add(vstring(std::string(5000, 'q').c_str()));
  for (int i = 0; i < 200; ++i) EXPECT_EQ(a.add(a[i]), i + 1);
  EXPECT_EQ(a[200].len(), 5000u);
  EXPECT_NE(a[200].optr(), a[0].optr());
}

TEST(VstringArray, SizedConstructorMakesDistinctEmptyStrings) {
  vstringArray a(3);
  EXPECT_EQ(a.len(), 3);
  EXPECT_NE(&a[0], &a[1]);
  EXPECT_NE(&a[1], &a[2]);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(a[i].IsEmpty());
  a[1] = "middle";
  EXPECT_EQ(texts(a), (Strings{"", "middle", ""}));
  vstringArray none(0);
  EXPECT_EQ(none.len(), 0);
  vstringArray negative(-4);
  EXPECT_EQ(negative.len(), 0);
}

TEST(VstringArray, RemoveClosesTheGap) {
  struct Case {
    int index;
    Strings expected;
  } cases[] = {
      {0, {"b", "c"}}, {1, {"a", "c"}}, {2, {"a", "b"}},
      {3, {"a", "b", "c"}}, {-1, {"a", "b", "c"}}, {1 << 30, {"a", "b", "c"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.index);
    vstringArray a;
    fill(a, {"a", "b", "c"});
    a.remove(c.index);
    EXPECT_EQ(texts(a), c.expected);
  }
}

TEST(VstringArray, ChangeAssignsInsideOnly) {
  vstringArray a;
  fill(a, {"a", "b"});
  a.Change(vstring("B"), 1);
  a.Change(a[1], 1);  // onto itself
  a.Change(vstring("x"), 2);
  a.Change(vstring("x"), -1);
  EXPECT_EQ(texts(a), (Strings{"a", "B"}));
  a.Change(vstring(), 0);
  EXPECT_EQ(texts(a), (Strings{"", "B"}));
}

TEST(VstringArray, ResizeClearAndReuse) {
  vstringArray a;
  fill(a, {"a", "b", "c", "d"});
  a.resize(2);
  EXPECT_EQ(texts(a), (Strings{"a", "b"}));
  a.resize(4);
  EXPECT_EQ(texts(a), (Strings{"a", "b", "", ""}));
  a.resize(-1);
  EXPECT_EQ(a.len(), 0);
  a.clear();
  a.clear();
  EXPECT_EQ(a.len(), 0);
  EXPECT_EQ(a.add(vstring("again")), 0);
  a.clear();
  a.resize(3);
  EXPECT_EQ(texts(a), (Strings{"", "", ""}));
}

TEST(VstringArray, IndexOutsideGivesAScratchString) {
  vstringArray a;
  fill(a, {"a"});
  vstring& stray = a[5];
  EXPECT_TRUE(stray.IsEmpty());
  stray = "written nowhere";
  EXPECT_TRUE(a[-1].IsEmpty());
  const vstringArray& c = a;
  EXPECT_TRUE(c[1].IsEmpty());
  EXPECT_EQ(texts(a), (Strings{"a"}));
}

TEST(VstringArray, NothingLeaksIntoTheTrackedCounters) {
  const std::int32_t blocks = trackedBlocks.load();
  const std::int32_t bytes = trackedBytes.load();
  {
    vstringArray a(10);
    fill(a, {"x", "y"});
    a.remove(3);
    a.resize(50);
    a.clear();
    a.add(vstring("z"));
  }
  EXPECT_EQ(trackedBlocks.load(), blocks);
  EXPECT_EQ(trackedBytes.load(), bytes);
}

TEST(VstringArray, MapFindsTheNameBeforeTheFirstColon) {
  struct Case {
    Strings entries;
    const char* key;
    int expected;
  } cases[] = {
      {{"a:1", "x:2"}, "x", 1},
      {{"a:1", "x:2"}, "y", 2},            // not found: the length
      {{}, "x", 0},
      {{"x", "x:2"}, "x", 1},              // no colon: empty name
      {{"x", ":v", "q:"}, "", 0},          // empty key: first empty name
      {{"ab:c:d", "ab:c"}, "ab:c", 2},     // only the first colon counts
      {{"X:1", "x:2"}, "x", 1},            // case matters
      {{"x :1", "x:2"}, "x", 1},
      {{"\xE9t\xE9:1"}, "\xE9t\xE9", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.key);
    vstringArray a;
    fill(a, c.entries);
    EXPECT_EQ(a.Map(vstring(c.key)), c.expected);
  }
}

TEST(VstringArray, FindStringOnTheThreeEntries) {
  vstringArray a;
  fill(a, {"ABC", "ABD", "XYZ"});
  struct Case {
    const char* key;
    int low, high;
    int expected, nearest;
  } cases[] = {
      {"AB", -1, -1, 0, -1},     // prefix of the lower of the last two
      {"ABE", -1, -1, -1, 1},    // ends on ABD/XYZ; ABD shares more
      {"ABD", -1, -1, 1, -1},
      {"XY", -1, -1, 2, -1},     // prefix of the upper
      {"Z", -1, -1, -1, 1},      // ends on ABD/XYZ, neither shares a byte: the lower
      {"", -1, -1, -1, -1},
      {"A", -1, -1, 0, -1},
      {"AAA", -1, -1, -1, 0},
      {"XYZ", 2, 2, 2, -1},      // a range of one
      {"ABC", 1, 2, -1, 1},      // outside the range
      {"ABC", -7, 99, 0, -1},    // bounds clipped to the array
      {"ABC", 2, 1, -1, -1},     // empty range
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.key << " " << c.low << ".." << c.high);
    int nearest = 1234;
    EXPECT_EQ(a.FindString(vstring(c.key), c.low, c.high, &nearest), c.expected);
    EXPECT_EQ(nearest, c.nearest);
    EXPECT_EQ(a.FindString(vstring(c.key), c.low, c.high, nullptr), c.expected);
  }
  vstringArray empty;
  int nearest = 7;
  EXPECT_EQ(empty.FindString(vstring("A"), -1, -1, &nearest), -1);
  EXPECT_EQ(nearest, -1);
}

TEST(VstringArray, FindStringFindsEveryElementOfASortedArray) {
  // Sorted by the library's own ordering, in which [ \ ] ^ _ ` stand below
  // the letters.
  std::vector<vstring> words;
  for (const char* w : {"ALPHA", "A_B", "A[", "BETA", "B^", "b", "gamma", "Z", "Z1", "Z2",
                        "_x", "`y", "0", "9", "~", "\xC0", "\xFF", "delta", "EPS", "eps"}) {
    words.emplace_back(w);
  }
  std::sort(words.begin(), words.end(),
            [](const vstring& x, const vstring& y) { return x < y; });
  for (int size = 1; size <= static_cast<int>(words.size()); ++size) {
    vstringArray a;
    for (int i = 0; i < size; ++i) a.add(words[static_cast<std::size_t>(i)]);
    for (int i = 0; i < size; ++i) {
      SCOPED_TRACE(testing::Message() << "size " << size << " " << words[static_cast<std::size_t>(i)].optr());
      int nearest = 0;
      EXPECT_EQ(a.FindString(words[static_cast<std::size_t>(i)], -1, -1, &nearest), i);
      EXPECT_EQ(nearest, -1);
    }
  }
}

TEST(VstringArray, FindStringOnHostileKeys) {
  vstringArray a;
  fill(a, {"A", "B", "C"});
  std::string huge(200000, 'B');
  int nearest = 0;
  EXPECT_EQ(a.FindString(vstring(huge.c_str()), -1, -1, &nearest), -1);
  EXPECT_EQ(nearest, 1);
  EXPECT_EQ(a.FindString(vstring("\x01"), -1, -1, &nearest), -1);
  EXPECT_EQ(nearest, 0);
  // High bytes order below the letters: the search ends on the first two.
  EXPECT_EQ(a.FindString(vstring("\xFF\xFF"), -1, -1, &nearest), -1);
  EXPECT_EQ(nearest, 0);
}

}  // namespace
