// StringSpool on the built-in road: sizes, the growth step and hand-over.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// The size field is private; growth shows in whether optr() moved.
TEST(StringSpool, MinimumAndDefaultSizes) {
  StringSpool small(10);
  for (int i = 0; i < 62; ++i) small += 'a';
  const char* before = small.optr();
  small += 'b';  // needed = 62 + 1 + 1 = 64, not below 64: grows
  EXPECT_NE(small.optr(), before);
  StringSpool dflt;
  for (int i = 0; i < 2046; ++i) dflt += 'a';
  before = dflt.optr();
  dflt += 'b';
  EXPECT_NE(dflt.optr(), before);
}

TEST(StringSpool, SixtyTwoBytesFitInSixtyFour) {
  StringSpool sp(64);
  const char* start = sp.optr();
  for (int i = 0; i < 62; ++i) sp += 'x';
  EXPECT_EQ(sp.optr(), start);
  EXPECT_EQ(sp.len(), 62);
}

TEST(StringSpool, LargeSpoolsGrowByFixedStep) {
  StringSpool sp(64);
  std::string chunk(1000, 'k');
  for (int i = 0; i < 100; ++i) sp.cat(chunk.c_str());
  EXPECT_EQ(sp.len(), 100000);
  std::string all(sp.optr());
  EXPECT_EQ(all, std::string(100000, 'k'));
}

TEST(StringSpool, AppendsTable) {
  StringSpool sp(64);
  sp.cat("ab");
  sp.cat(static_cast<const char*>(nullptr));
  sp.cat("cdef", 2);
  sp.cat('!');
  sp.cat(vstring("<v>"));
  sp.cat(-5);
  sp += 0;
  sp += 2147483647;
  sp += static_cast<int>(-2147483647 - 1);
  EXPECT_STREQ(sp.optr(), "abcd!<v>-502147483647-2147483648");
  sp = "x";
  EXPECT_STREQ(sp.optr(), "x");
  sp = 'y';
  EXPECT_STREQ(sp.optr(), "y");
  sp = vstring("z");
  EXPECT_STREQ(sp.optr(), "z");
  sp = 42;
  EXPECT_STREQ(sp.optr(), "42");
}

TEST(StringSpool, CountedAppendKeepsZeroBytes) {
  StringSpool sp(64);
  sp.cat("a\0b", 3);
  EXPECT_EQ(sp.len(), 3);
  EXPECT_EQ(sp[1], '\0');
  EXPECT_EQ(sp.last(), 'b');
}

TEST(StringSpool, LastTruncAndClear) {
  StringSpool sp;
  EXPECT_EQ(sp.last(), '\0');
  sp.cat("abcdef");
  EXPECT_EQ(sp.last(), 'f');
  sp.trunc(3);
  EXPECT_STREQ(sp.optr(), "abc");
  sp.clear();
  EXPECT_EQ(sp.len(), 0);
  EXPECT_STREQ(sp.optr(), "");
}

TEST(StringSpool, HandOverToStrings) {
  StringSpool sp;
  sp.cat("text");
  vstring a(sp);
  EXPECT_STREQ(a.optr(), "text");
  vstring b("old");
  b = sp;
  EXPECT_STREQ(b.optr(), "text");
  StringSpool empty;
  vstring c("something");
  empty.assign(c);
  EXPECT_EQ(c.blen(), 0u) << "an empty spool releases the target's block";
}

TEST(StringSpool, MegabytesOfText) {
  StringSpool sp(64);
  for (int i = 0; i < 3 * 1024 * 1024; ++i) sp += static_cast<char>('a' + i % 26);
  vstring v(sp);
  EXPECT_EQ(v.len(), 3u * 1024 * 1024);
  EXPECT_EQ(v.optr()[27], 'b');
}

TEST(StringSpool, HostileArgumentsStayInsideTheBlock) {
  StringSpool sp(64);
  sp.cat(nullptr, 5);
  sp.cat(static_cast<const char*>(nullptr));
  sp.cat("xyz", -3);
  EXPECT_EQ(sp.len(), 0);
  struct Case {
    int n;
    int len;
  } cases[] = {{-5, 0}, {0, 0}, {10, 10}, {63, 63}, {64, 63}, {1 << 30, 63}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.n);
    sp.trunc(c.n);
    EXPECT_EQ(sp.len(), c.len);
    EXPECT_EQ(sp.optr()[c.len], '\0');
  }
  sp.trunc(-1);
  sp += 'a';
  EXPECT_STREQ(sp.optr(), "a");
  std::string high(5000, '\xFF');
  sp = high.c_str();
  EXPECT_EQ(sp.len(), 5000);
  EXPECT_EQ(vstring(sp).len(), 5000u);
}

}  // namespace
