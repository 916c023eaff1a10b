// vstringArray under a host: report 119, and what a pending error stops.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class VstringArrayHost : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
  void TearDown() override { fakeHost().errorPending = 0; }
};

std::vector<std::string> texts(const vstringArray& a) {
  std::vector<std::string> out;
  for (int i = 0; i < a.len(); ++i) out.emplace_back(a[i].optr());
  return out;
}

TEST_F(VstringArrayHost, ChangeOutsideTheArrayReports119) {
  vstringArray a;
  a.add(vstring("a"));
  a.add(vstring("b"));
  for (int i : {-1, 2, 1000, -2147483647 - 1}) {
    SCOPED_TRACE(i);
    fakeHost().reports.clear();
    a.Change(vstring("x"), i);
    EXPECT_EQ(fakeHost().codes(), std::vector<int>{119});
  }
  fakeHost().reports.clear();
  a.Change(vstring("B"), 1);
  EXPECT_TRUE(fakeHost().reports.empty());
  EXPECT_EQ(texts(a), (std::vector<std::string>{"a", "B"}));
}

TEST_F(VstringArrayHost, PendingErrorLeavesConstructedArraysEmpty) {
  const std::int32_t blocks = trackedBlocks.load();
  fakeHost().errorPending = 1;
  {
    vstringArray plain;
    vstringArray sized(5);
    EXPECT_EQ(trackedBlocks.load(), blocks) << "nothing allocated";
    // The null representation reads as empty and refuses every change.
    EXPECT_EQ(sized.len(), 0);
    fakeHost().errorPending = 0;
    EXPECT_EQ(sized.add(vstring("x")), -1);
    sized.resize(3);
    sized.remove(0);
    sized.clear();
    sized.Change(vstring("x"), 0);
    EXPECT_EQ(sized.Map(vstring("x")), 0);
    EXPECT_EQ(sized.FindString(vstring("x"), -1, -1, nullptr), -1);
    EXPECT_TRUE(sized[0].IsEmpty());
    EXPECT_EQ(plain.len(), 0);
    fakeHost().errorPending = 1;
  }
  EXPECT_EQ(trackedBlocks.load(), blocks);
}

TEST_F(VstringArrayHost, PendingErrorStopsAddRemoveAndChange) {
  vstringArray a;
  a.add(vstring("a"));
  a.add(vstring("b"));
  fakeHost().errorPending = 1;
  EXPECT_EQ(a.add(vstring("c")), -1);
  a.remove(0);
  a.Change(vstring("z"), 0);
  a.Change(vstring("z"), 7);
  EXPECT_TRUE(fakeHost().reports.empty()) << "a pending error stops Change before its check";
  EXPECT_EQ(texts(a), (std::vector<std::string>{"a", "b"}));

  // resize, clear and the lookups do not ask.
  EXPECT_EQ(a.Map(vstring("q")), 2);
  EXPECT_EQ(a.FindString(vstring("b"), -1, -1, nullptr), 1);
  a.resize(3);
  EXPECT_EQ(a.len(), 3);
  a.clear();
  EXPECT_EQ(a.len(), 0);
  fakeHost().errorPending = 0;
  EXPECT_EQ(a.add(vstring("again")), 0);
}

}  // namespace
