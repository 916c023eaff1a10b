// The vstring number conversions with a host: number builds its copy in the
// host's scratch buffer and keeps within the size the host states; nothing is
// ever reported.
#include "fake_host.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

TEST(VstringNumbersHost, NumberKeepsWithinTheHostsScratchBuffer) {
  fakeHost().reset();
  fakeHost().setTempBufLen(8);  // the buffer is exactly 8 + 8 bytes
  // Seven bytes of the copy fit: "1234567" and the terminator.
  EXPECT_EQ(vstring("123456789012").number(), 1234567.0);
  EXPECT_EQ(vstring("-1,234,567.25").number(), -123456.0);  // the sign is one of the seven
  const std::string huge(100000, '7');
  EXPECT_EQ(vstring(huge.c_str()).number(), 7777777.0);
  fakeHost().setTempBufLen(131040);
  EXPECT_EQ(vstring("$1,234.50").number(), 1234.5);
  EXPECT_TRUE(ISNA(vstring("abc").number()));
  EXPECT_TRUE(fakeHost().reports.empty());
  EXPECT_EQ(fakeHost().allocateCalls, 0);
}

TEST(VstringNumbersHost, GetBaseStrReturnsAHostTemporary) {
  fakeHost().reset();
  double n = 0;
  const vstring& head = vstring("GDP 2020").GetBaseStr(n);
  EXPECT_STREQ(head.optr(), "GDP");
  EXPECT_EQ(n, 2020.0);
  EXPECT_EQ(fakeHost().nextTempCalls, 1);
  EXPECT_TRUE(fakeHost().reports.empty());
}

TEST(VstringNumbersHost, JudgesIgnoreTheHost) {
  fakeHost().reset();
  fakeHost().errorPending = 1;
  EXPECT_EQ(vstring("12").isNumber(), 1);
  EXPECT_EQ(vstring("12").dval(), 12.0);
  EXPECT_EQ(vstring("12").ival(), 12);
  EXPECT_EQ(fakeHost().codePageCalls, 0);
  EXPECT_TRUE(fakeHost().reports.empty());
}

}  // namespace
