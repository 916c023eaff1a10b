// The host road: registration, temporaries, reports and the quote-byte test
// with the fake host registered for the whole process.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

class HostBridge : public testing::Test {
protected:
  void SetUp() override { fakeHost().reset(); }
};

class OtherHost : public FakeHost {};

TEST_F(HostBridge, FirstRegistrationStands) {
  EXPECT_EQ(pCommonCallback, &fakeHost());
  OtherHost other;
  txcommon_initialize(&other);
  EXPECT_EQ(pCommonCallback, &fakeHost());
  txcommon_initialize(nullptr);
  EXPECT_EQ(pCommonCallback, &fakeHost());
  std::uint64_t bits;
  std::memcpy(&bits, &dNA, sizeof bits);
  EXPECT_EQ(bits, 0xFFF8000000000000u);
  EXPECT_EQ(NaMask, 0x7FF00000u);
}

TEST_F(HostBridge, TemporariesComeFromTheHost) {
  vstring s("abcdef");
  vstring& r = s.mid(2, 2);
  EXPECT_EQ(fakeHost().nextTempCalls, 1);
  EXPECT_STREQ(r.optr(), "bc");
  s.left(2);
  s.right(2);
  (void)(s + "x");
  EXPECT_EQ(fakeHost().nextTempCalls, 4);
}

TEST_F(HostBridge, ScratchBufferIsTheHosts) {
  EXPECT_EQ(_psTempBuf2(), fakeHost().TempBuf());
  fakeHost().setTempBufLen(500);
  EXPECT_EQ(_psTempBufLen2(), 500);
  fakeHost().ensureAnswer = 0;
  EXPECT_EQ(txc::ensure_temp_buf_bounded(10), 0);
  txc::ensure_temp_buf(77);
  ASSERT_EQ(fakeHost().ensureCalls.size(), 2u);
  EXPECT_EQ(fakeHost().ensureCalls[1], std::make_pair(77, 8192));
}

TEST_F(HostBridge, ReportsReachTheHost) {
  txc::report_error(119);
  txc::report_error_args(415, vstring("..\\x"));
  txc::assert_failed("dates.cpp", 42);
  ASSERT_EQ(fakeHost().reports.size(), 2u);
  EXPECT_EQ(fakeHost().reports[0], (FakeHost::Report{119, "", ""}));
  EXPECT_EQ(fakeHost().reports[1], (FakeHost::Report{415, "", "..\\x"}));
  ASSERT_EQ(fakeHost().asserts.size(), 1u);
  EXPECT_EQ(fakeHost().asserts[0].second, 42);
}

TEST_F(HostBridge, QuoteByteAsksCodePageOnlyForCurlyQuotes) {
  struct Case {
    char byte;
    int codePage;
    bool quote;
    int calls;
  } cases[] = {
      {'"', 1252, true, 0},     {'a', 1252, false, 0},    {'\x93', 1252, true, 1},
      {'\x94', 1252, true, 1},  {'\x93', 1251, false, 1}, {'\x94', 65001, false, 1},
      {'\x92', 1252, false, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(static_cast<unsigned char>(c.byte)));
    fakeHost().reset();
    fakeHost().codePage = c.codePage;
    EXPECT_EQ(isQuoteByte(c.byte), c.quote);
    EXPECT_EQ(fakeHost().codePageCalls, c.calls);
  }
}

TEST_F(HostBridge, HugeStringIsReportedAndMade) {
  constexpr unsigned kBig = 64000000;
  vstring s;
  s.alloc(kBig - 1);
  EXPECT_TRUE(fakeHost().reports.empty());
  s.alloc(kBig);  // one byte more than the block holds: a new block
  EXPECT_EQ(s.len(), kBig);
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});
  s.alloc(kBig);  // block kept: no new report
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});

  fakeHost().reset();
  std::string text(kBig, 'z');
  vstring counted(text.data(), static_cast<txlong>(text.size()));
  EXPECT_EQ(counted.len(), kBig);
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});

  fakeHost().reset();
  vstring joined(text.c_str());  // put(const char*) goes through alloc
  joined.cat("more");            // cat never reports
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});
}

TEST_F(HostBridge, SpoolUsesHostAllocation) {
  {
    StringSpool sp(64);
    EXPECT_EQ(fakeHost().allocateCalls, 1);
    for (int i = 0; i < 100; ++i) sp += 'x';
    EXPECT_EQ(sp.len(), 100);
    EXPECT_EQ(fakeHost().allocateCalls, 2);  // 64 -> 128
    EXPECT_EQ(fakeHost().releaseCalls, 1);
  }
  EXPECT_EQ(fakeHost().releaseCalls, 2);
}

TEST_F(HostBridge, SpoolGrowthSizes) {
  StringSpool sp(64);
  for (int i = 0; i < 63; ++i) sp += 'a';  // the 63rd needs 64: 128
  std::string rest(100000 - 63, 'b');
  sp.cat(rest.c_str());                     // needed 100001 -> 116001
  sp += 'c';                                // fits
  EXPECT_EQ(fakeHost().allocateSizes, (std::vector<int>{64, 128, 116001}));
  std::string more(116001 - 100002, 'd');
  sp.cat(more.c_str());                     // needed 116001: grows again
  EXPECT_EQ(fakeHost().allocateSizes.back(), 132001);
  StringSpool big(100002);
  for (int i = 0; i < 100000; ++i) big += 'x';
  big += 'y';  // from used 100,000 by one byte: 116,002, not double
  EXPECT_EQ(fakeHost().allocateSizes.back(), 116002);
}

TEST_F(HostBridge, SpoolDropsAppendWhenHostFails) {
  StringSpool sp(64);
  for (int i = 0; i < 62; ++i) sp += 'a';
  fakeHost().failAllocateAfter = 0;  // the next Allocate sets ErrorPending
  sp += 'b';
  EXPECT_EQ(sp.len(), 62);
  EXPECT_EQ(sp.last(), 'a');
  sp.cat("many more bytes");
  EXPECT_EQ(sp.len(), 62);
  fakeHost().errorPending = 0;
  sp += 'c';
  EXPECT_EQ(sp.len(), 63);
  EXPECT_EQ(sp.last(), 'c');
}

}  // namespace
