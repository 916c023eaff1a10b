// Start-up and the built-in road: constants, temporaries, scratch buffers.
#include "preinit.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <set>
#include <thread>
#include <vector>

namespace {

std::uint64_t bits_of(double d) {
  std::uint64_t b;
  std::memcpy(&b, &d, sizeof b);
  return b;
}

TEST(Startup, BeforeInitialiseEveryValueIsMissing) {
  EXPECT_EQ(g_preinit.isnaZero, 1);
  EXPECT_EQ(g_preinit.isnaOne, 1);
  EXPECT_EQ(g_preinit.dnaBits, 0u);
  EXPECT_EQ(g_preinit.naMask, 0u);
}

TEST(Startup, ConstantsAfterInitialise) {
  EXPECT_EQ(bits_of(dNA), 0xFFF8000000000000u);
  EXPECT_EQ(NaMask, 0x7FF00000u);
  EXPECT_EQ(pCommonCallback, nullptr);
}

TEST(Startup, IsnaTable) {
  const double inf = std::numeric_limits<double>::infinity();
  struct Case {
    double value;
    int want;
  } cases[] = {
      {dNA, 1},
      {inf, 1},
      {-inf, 1},
      {std::numeric_limits<double>::quiet_NaN(), 1},
      {std::numeric_limits<double>::signaling_NaN(), 1},
      {0.0, 0},
      {-0.0, 0},
      {1.0, 0},
      {std::numeric_limits<double>::max(), 0},
      {std::numeric_limits<double>::denorm_min(), 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(bits_of(c.value));
    EXPECT_EQ(ISNA(c.value), c.want);
  }
}

TEST(Startup, SecondInitialiseChangesNothingButConstants) {
  txcommon_initialize(nullptr);
  EXPECT_EQ(bits_of(dNA), 0xFFF8000000000000u);
  EXPECT_EQ(NaMask, 0x7FF00000u);
  EXPECT_EQ(pCommonCallback, nullptr);
}

TEST(Temporaries, RingOrderAndDepth) {
  // Find where this thread's ring stands, then walk it once round.
  vstring* first = &txc::next_temp();
  std::vector<vstring*> seen{first};
  for (int i = 1; i < 96; ++i) seen.push_back(&txc::next_temp());
  EXPECT_EQ(std::set<vstring*>(seen.begin(), seen.end()).size(), 96u);
  EXPECT_EQ(&txc::next_temp(), first) << "the 97th request is the first again";
  // Consecutive entries are consecutive array elements, wrapping after 95.
  int wraps = 0;
  for (int i = 1; i < 96; ++i) {
    if (seen[i] != seen[i - 1] + 1) {
      ++wraps;
      EXPECT_EQ(seen[i - 1] - seen[i], 95);
    }
  }
  EXPECT_LE(wraps, 1);
}

TEST(Temporaries, FreshThreadStartsAtEntryOne) {
  std::vector<vstring*> got;
  std::thread t([&] {
    for (int i = 0; i < 97; ++i) got.push_back(&txc::next_temp());
  });
  t.join();
  ASSERT_EQ(got.size(), 97u);
  vstring* entry0 = got[94];  // the 95th request gets entry 95, the 96th entry 0
  EXPECT_EQ(got[95], got[0] - 1);
  EXPECT_EQ(got[94], got[0] + 94);
  EXPECT_EQ(got[96], got[0]);
  (void)entry0;
}

TEST(Temporaries, ResultSurvives95FurtherTemporaries) {
  vstring s("abcdef");
  vstring& r = s.mid(2, 3);
  for (int i = 0; i < 95; ++i) s.left(1);
  EXPECT_STREQ(r.optr(), "bcd");
  s.left(1);
  EXPECT_STREQ(r.optr(), "a") << "the 96th temporary reuses the entry";
}

TEST(Temporaries, SteadyStateReusesBlocks) {
  vstring s("the quick brown fox jumps over the lazy dog");
  for (int i = 0; i < 96; ++i) s.mid(5, 10);
  std::vector<const char*> blocks;
  for (int i = 0; i < 96; ++i) blocks.push_back(s.mid(5, 10).optr());
  for (int i = 0; i < 96; ++i) EXPECT_EQ(s.mid(5, 10).optr(), blocks[i]);
}

TEST(ScratchBuffer, PerThreadAndStable) {
  EXPECT_EQ(_psTempBufLen2(), 131040);
  char* a = _psTempBuf2();
  EXPECT_EQ(_psTempBuf2(), a);
  a[131040 + 7] = 'x';  // the whole reported size plus 8 is usable
  char* other = nullptr;
  std::thread t([&] { other = _psTempBuf2(); });
  t.join();
  EXPECT_NE(other, a);
  EXPECT_EQ(txc::ensure_temp_buf_bounded(8191), 1);
  EXPECT_EQ(txc::ensure_temp_buf_bounded(8192), 0);
}

TEST(ScratchBuffer, ThreadsWorkIndependently) {
  constexpr int kThreads = 4;
  std::vector<std::thread> threads;
  std::vector<int> failures(kThreads, 0);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &failures] {
      const char tag = static_cast<char>('a' + t);
      char* buf = _psTempBuf2();
      vstring mine(std::string(50, tag).c_str());
      for (int round = 0; round < 2000; ++round) {
        std::memset(buf, tag, 100);
        vstring& piece = mine.mid(round % 40 + 1, 10);
        std::this_thread::yield();
        if (buf[round % 100] != tag) ++failures[t];
        if (piece.len() != 10 || piece.optr()[0] != tag) ++failures[t];
      }
    });
  }
  for (auto& th : threads) th.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(failures[t], 0) << "thread " << t;
}

TEST(QuoteByte, NoHostMeansPlainBytes) {
  EXPECT_TRUE(isQuoteByte('"'));
  EXPECT_FALSE(isQuoteByte('\x93'));
  EXPECT_FALSE(isQuoteByte('\x94'));
  EXPECT_FALSE(isQuoteByte('\''));
}

TEST(NoHost, ReportsAndAssertsAreSilent) {
  txc::report_error(2121);
  txc::report_error_args(216, vstring("in x"));
  txc::assert_failed("file", 1);
  EXPECT_EQ(txc::error_pending(), 0);
  void* p = txc::host_allocate(10);
  ASSERT_NE(p, nullptr);
  txc::host_release(p);
}

}  // namespace
