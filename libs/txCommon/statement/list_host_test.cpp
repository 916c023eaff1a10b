// Option lists under the fake host: report 216, the room asked of
// EnsureTempBuf, and curly quotes under code page 1252.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "fake_host.h"

#include <string>
#include <utility>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Calls = std::vector<std::pair<int, int>>;

TEST(OptionsHost, TooManyOptions) {
  fakeHost().reset();
  vstring text("x(a,b,c)");
  vstring* opts = text.split_options(2);
  EXPECT_EQ(bytes(opts[0]), "a");
  EXPECT_EQ(bytes(opts[1]), "b");
  EXPECT_EQ(bytes(text), "x");
  ASSERT_EQ(fakeHost().reports.size(), 1u);
  EXPECT_EQ(fakeHost().reports[0], (FakeHost::Report{216, "", "in x(a,b,c)"}));
  EXPECT_EQ(fakeHost().ensureCalls, Calls({{8, 8192}}));

  fakeHost().reset();
  vstring exact("x(a,b,)");
  exact.split_options(2);
  EXPECT_TRUE(fakeHost().reports.empty());
}

TEST(OptionsHost, EnsureTempBufSizes) {
  fakeHost().reset();
  vstring list("a;b");
  vstring out[2];
  list.parse_delimitedlist(out, 2, ';');
  list.parse_delimitedlist(out, 2, ';', 1);
  list.parse_delimitedlist(out, 2, "::", 2, 1);
  vstring opt("o");
  vstring text("abc");
  text.add_options(&opt, 1);
  text.add_options(&opt, 0);
  EXPECT_EQ(fakeHost().ensureCalls, Calls({{3, 8192}, {3, 8192}, {3, 8192}, {131, 8192}, {134, 8192}}));
  EXPECT_EQ(bytes(text), "abc(O)");
}

TEST(OptionsHost, CurlyQuotes) {
  fakeHost().reset();
  vstring text("x(\x93" "a,b\x94,c)");
  vstring out[4];
  text.split_options(out, 4, 0);
  // A leading high byte is dropped like a blank, but it still opens the quote.
  EXPECT_EQ(bytes(out[0]), "a,b\x94");
  EXPECT_EQ(bytes(out[1]), "c");
  vstring opt("\x93" "a\x94" "b");
  vstring t("x");
  t.add_options(&opt, 1);
  EXPECT_EQ(bytes(t), "x(\x93" "a\x94" "B)");
  fakeHost().codePage = 932;
  vstring other("x(\x93" "a,b\x94,c)");
  other.split_options(out, 4, 0);
  EXPECT_EQ(bytes(out[0]), "a");  // no quote: the comma cuts
  EXPECT_EQ(bytes(out[1]), "b\x94");
  fakeHost().reset();
}

}  // namespace
