// Formatting and random text under a host: they never call it (no reports,
// no temporaries, no scratch buffer), and the spool's number side follows the
// host's allocation answer.
#include <txCommon/internal.h>

#include "fake_host.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

TEST(FormatHost, FormattingLeavesTheHostAlone) {
  fakeHost().reset();
  vstring s;
  s.format(1234.5678, 8.2f, 0u);
  EXPECT_STREQ(s.optr(), " 1234.57");
  s.format(1234.5678, 0.0f, 2, 1);
  EXPECT_STREQ(s.optr(), "  1234.5678 ");
  s.iformat(1e40, 3);
  EXPECT_STREQ(s.optr(), "####");
  s.iformat(dNA, 3);
  EXPECT_STREQ(s.optr(), "NA");
  EXPECT_STREQ(strFormat(0.5), "0.500000");
  const vstring r = vstring::GetRandomAlphaNumericString(4, 9, false);
  EXPECT_GE(r.len(), 4u);
  EXPECT_LE(r.len(), 9u);
  EXPECT_TRUE(fakeHost().reports.empty());
  EXPECT_EQ(fakeHost().nextTempCalls, 0);
  EXPECT_EQ(fakeHost().allocateCalls, 0);
  EXPECT_TRUE(fakeHost().ensureCalls.empty());
}

TEST(FormatHost, SpoolNumberFollowsHostAllocation) {
  fakeHost().reset();
  {
    StringSpool sp(64);
    sp += "v=";
    sp += 0.5;
    EXPECT_STREQ(sp.optr(), "v=0.5");
    // 33 bytes used of 64: a number needs 33 + 1 + 30, so the block must
    // grow, and the host refuses.
    std::string filler(28, 'f');
    sp += filler.c_str();
    const int before = sp.len();
    fakeHost().failAllocateAfter = 0;
    sp += 123.25;
    EXPECT_EQ(sp.len(), before);  // nothing appended, nothing half-written
    fakeHost().failAllocateAfter = -1;
    fakeHost().errorPending = 0;
    sp += 123.25;
    EXPECT_EQ(std::string(sp.optr()).substr(static_cast<std::size_t>(before)), "123.25");
  }
  EXPECT_GT(fakeHost().allocateCalls, 0);
  // Every block went back, the one refused included.
  EXPECT_EQ(fakeHost().allocateCalls, fakeHost().releaseCalls);
}

}  // namespace
