// Working arrays: sharing and un-sharing, exact resizing, splicing against
// std::vector, and the db_exception a failed request throws.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

WorkingArrayRef int_array(const std::vector<std::int32_t>& values) {
  WorkingArrayRef h = txc::make_array(4, static_cast<int>(values.size()));
  if (!values.empty()) std::memcpy(h.rep->items, values.data(), values.size() * 4);
  return h;
}

std::vector<std::int32_t> contents(const WorkingArray& rep) {
  std::vector<std::int32_t> out(static_cast<std::size_t>(rep.count));
  if (rep.count > 0) std::memcpy(out.data(), rep.items, out.size() * 4);
  return out;
}

// Runs `f`, which must throw db_exception; returns its code and message.
template <class F>
std::string db_failure(F f) {
  try {
    f();
  } catch (const db_exception& e) {
    return std::to_string(e.code) + " " + db_error_text(e).optr();
  }
  return "no exception";
}

TEST(WorkingArray, TextHoldsItsTerminator) {
  WorkingArrayRef h = MakeArrayText("abc");
  ASSERT_NE(h.rep, nullptr);
  EXPECT_EQ(h.rep->elementSize, 1);
  EXPECT_EQ(h.rep->count, 4);
  EXPECT_EQ(h.rep->refCount, 1);
  EXPECT_EQ(std::memcmp(h.rep->items, "abc", 4), 0);

  WorkingArrayRef empty = MakeArrayText(nullptr);
  EXPECT_EQ(empty.rep->count, 1);
  EXPECT_EQ(empty.rep->items[0], 0);
}

TEST(WorkingArray, CopyingAHolderSharesAndReadingUnshares) {
  WorkingArrayRef a = MakeArrayText("abc");
  WorkingArrayRef b = a;
  EXPECT_EQ(a.rep, b.rep);
  EXPECT_EQ(a.rep->refCount, 2);

  auto* p = static_cast<char*>(ElementAt(b, 1));
  EXPECT_NE(a.rep, b.rep) << "the reader got a representation of its own";
  EXPECT_EQ(a.rep->refCount, 1);
  EXPECT_EQ(b.rep->refCount, 1);
  *p = 'X';
  EXPECT_STREQ(reinterpret_cast<char*>(a.rep->items), "abc");
  EXPECT_STREQ(reinterpret_cast<char*>(b.rep->items), "aXc");

  // Now sole holder: no further copy.
  WorkingArray* own = b.rep;
  ElementAt(b, 0);
  EXPECT_EQ(b.rep, own);
}

TEST(WorkingArray, AssignmentAndReleaseKeepTheCountsStraight) {
  const std::int32_t blocks = trackedBlocks.load();
  const std::int32_t bytes = trackedBytes.load();
  {
    WorkingArrayRef a = MakeArrayText("left");
    WorkingArrayRef b = MakeArrayText("right");
    b = a;  // b's own text goes back
    EXPECT_EQ(a.rep->refCount, 2);
    WorkingArrayRef& alias = a;
    a = alias;  // self-assignment through another name
    b = alias;
    EXPECT_EQ(a.rep->refCount, 2);
    WorkingArrayRef c = std::move(b);
    EXPECT_EQ(b.rep, nullptr);
    EXPECT_EQ(c.rep->refCount, 2);
    ReleaseRef(c);
    EXPECT_EQ(c.rep, nullptr);
    EXPECT_EQ(a.rep->refCount, 1);
    ResizeShared(a, 100);
    ResizeShared(a, 0);
  }
  EXPECT_EQ(trackedBlocks.load(), blocks);
  EXPECT_EQ(trackedBytes.load(), bytes);
}

TEST(WorkingArray, ResizeIsExactAndZeroReleasesTheBlock) {
  WorkingArrayRef h = int_array({1, 2, 3});
  const std::int32_t bytes = trackedBytes.load();
  ASSERT_TRUE(ResizeArray(*h.rep, 5));
  EXPECT_EQ(h.rep->count, 5);
  EXPECT_EQ(trackedBytes.load() - bytes, 8) << "two more elements of 4 bytes, nothing spare";
  EXPECT_EQ(contents(*h.rep)[2], 3);
  ASSERT_TRUE(ResizeArray(*h.rep, 0));
  EXPECT_EQ(h.rep->items, nullptr);
  EXPECT_EQ(h.rep->count, 0);
  EXPECT_EQ(trackedBytes.load() - bytes, -12);
  ASSERT_TRUE(ResizeArray(*h.rep, 2));
  EXPECT_NE(h.rep->items, nullptr);
  EXPECT_EQ(h.rep->count, 2);
}

TEST(WorkingArray, SpliceCases) {
  struct Case {
    const char* label;
    int position, removeCount;
    std::vector<std::int32_t> insert;
    std::vector<std::int32_t> expected;
  } cases[] = {
      {"remove last, nothing moves", 4, 1, {}, {0, 1, 2, 3}},
      {"remove first", 0, 1, {}, {1, 2, 3, 4}},
      {"remove middle two", 1, 2, {}, {0, 3, 4}},
      {"remove all", 0, 5, {}, {}},
      {"insert at front", 0, 0, {7, 8}, {7, 8, 0, 1, 2, 3, 4}},
      {"append", 5, 0, {9}, {0, 1, 2, 3, 4, 9}},
      {"replace one by three", 2, 1, {7, 8, 9}, {0, 1, 7, 8, 9, 3, 4}},
      {"replace three by one", 1, 3, {7}, {0, 7, 4}},
      {"same size", 3, 2, {7, 8}, {0, 1, 2, 7, 8}},
      {"remove beyond the end is clipped", 3, 10, {}, {0, 1, 2}},
      {"position beyond the end appends", 9, 1, {7}, {0, 1, 2, 3, 4, 7}},
      {"negative position and count", -3, -1, {7}, {7, 0, 1, 2, 3, 4}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    WorkingArrayRef h = int_array({0, 1, 2, 3, 4});
    ASSERT_TRUE(SpliceArray(*h.rep, c.position, c.removeCount,
                            c.insert.empty() ? nullptr : c.insert.data(),
                            static_cast<int>(c.insert.size())));
    EXPECT_EQ(contents(*h.rep), c.expected);
  }
}

TEST(WorkingArray, SpliceWithoutSourceLeavesTheRestInPlace) {
  WorkingArrayRef h = int_array({0, 1, 2});
  ASSERT_TRUE(SpliceArray(*h.rep, 1, 0, nullptr, 2));
  const auto v = contents(*h.rep);
  ASSERT_EQ(v.size(), 5u);
  EXPECT_EQ(v[0], 0);
  EXPECT_EQ(v[3], 1);
  EXPECT_EQ(v[4], 2);
}

TEST(WorkingArray, SpliceFromItsOwnElementsIsOverlapSafe) {
  // A source inside the array gives its elements as they stood at the call,
  // though the tail moves over them and the block may move when it shrinks
  // or grows.
  struct Case {
    const char* label;
    int position, removeCount, sourceIndex, insertCount;
    std::vector<std::int32_t> expected;
  } cases[] = {
      {"overlaps its destination", 2, 3, 1, 2, {0, 1, 1, 2, 5, 6, 7}},
      {"overwritten by the tail", 1, 4, 2, 3, {0, 2, 3, 4, 5, 6, 7}},
      {"grows from its own tail", 1, 0, 5, 3, {0, 5, 6, 7, 1, 2, 3, 4, 5, 6, 7}},
      {"whole array doubled", 8, 0, 0, 8, {0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    WorkingArrayRef h = int_array({0, 1, 2, 3, 4, 5, 6, 7});
    ASSERT_TRUE(SpliceArray(*h.rep, c.position, c.removeCount, h.rep->items + 4 * c.sourceIndex,
                            c.insertCount));
    EXPECT_EQ(contents(*h.rep), c.expected);
  }
}

TEST(WorkingArray, RandomSplicesMatchVector) {
  std::mt19937 rng(20240611);
  WorkingArrayRef h = txc::make_array(4, 0);
  std::vector<std::int32_t> oracle;
  std::int32_t next = 0;
  for (int step = 0; step < 3000; ++step) {
    const int size = static_cast<int>(oracle.size());
    const int position = static_cast<int>(rng() % static_cast<unsigned>(size + 1));
    const int removeCount = static_cast<int>(rng() % static_cast<unsigned>(size - position + 1)) % 6;
    std::vector<std::int32_t> insert(rng() % 6);
    for (auto& v : insert) v = next++;
    SCOPED_TRACE(testing::Message() << "step " << step);
    ASSERT_TRUE(SpliceArray(*h.rep, position, removeCount, insert.data(),
                            static_cast<int>(insert.size())));
    oracle.erase(oracle.begin() + position, oracle.begin() + position + removeCount);
    oracle.insert(oracle.begin() + position, insert.begin(), insert.end());
    ASSERT_EQ(contents(*h.rep), oracle);
  }
}

TEST(WorkingArray, FailedRequestsThrow1929OnlyFromEmpty) {
  const std::string expected = "1929 unable to allocate memory for working array";
  testing::internal::CaptureStderr();
  EXPECT_EQ(db_failure([] { txc::make_array(1, 0x40000001); }), expected);
  EXPECT_EQ(db_failure([] {
              WorkingArrayRef h = txc::make_array(8, 0);
              ResizeArray(*h.rep, 0x08000001);  // 0x40000008 bytes
            }),
            expected);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "malloc failed (cannot allocate 1073741825 bytes)\n"
            "malloc failed (cannot allocate 1073741832 bytes)\n");

  // A non-empty array writes the line and stays whole: no exception.
  WorkingArrayRef h = int_array({5, 6});
  testing::internal::CaptureStderr();
  EXPECT_FALSE(ResizeArray(*h.rep, 0x10000001));
  EXPECT_FALSE(ResizeArray(*h.rep, -1));
  EXPECT_FALSE(SpliceArray(*h.rep, 0, 0, nullptr, 0x10000000));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "malloc failed (cannot allocate 1073741828 bytes)\n"
            "malloc failed (cannot allocate -4 bytes)\n"
            "malloc failed (cannot allocate 1073741832 bytes)\n");
  EXPECT_EQ(contents(*h.rep), (std::vector<std::int32_t>{5, 6}));
}

TEST(WorkingArray, EmptyHolderIsHarmless) {
  WorkingArrayRef h;
  EXPECT_EQ(ElementAt(h, 3), nullptr);
  EXPECT_FALSE(ResizeShared(h, 4));
  ReleaseRef(h);
  WorkingArrayRef copy = h;
  EXPECT_EQ(copy.rep, nullptr);
}

}  // namespace
