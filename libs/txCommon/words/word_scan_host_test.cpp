// The word step under a host: the curly quotes of code page 1252 are quotes
// only when the host says 1252, and the host is asked only when one is met.
#include "fake_host.h"

#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;

Words scan(const char* text, bool strip = false, std::vector<bool>* quoted = nullptr) {
  Words out;
  const char* cursor = text;
  const char* start = nullptr;
  int length = 0;
  bool q = false;
  while (nextWord(cursor, start, length, strip, &q)) {
    out.emplace_back(start, static_cast<std::size_t>(length));
    if (quoted != nullptr) quoted->push_back(q);
  }
  return out;
}

TEST(WordScanHost, CurlyQuotesByCodePage) {
  struct Case {
    int codePage;
    const char* text;
    Words want;
  } const cases[] = {
      {1252, "\x93" "a b\x94 c", {"\x93" "a b\x94", "c"}},
      {1252, "\x94" "a b\x93 c", {"\x94" "a b\x93", "c"}},    // either opens
      {1252, "\x93" "a b\" c", {"\x93" "a b\"", "c"}},        // one family
      {1252, "\"a b\x94 c", {"\"a b\x94", "c"}},
      {1252, "\x93" "a b\x93 c", {"\x93" "a b\x93", "c"}},    // 0x93 closes 0x93
      {1252, "(\x93)\x94 x) y", {"(\x93)\x94 x)", "y"}},      // parens inside are bytes
      {1252, "\x93" "a b", {"\x93" "a b"}},                   // unclosed
      {932, "\x93" "a b\x94 c", {"\x93" "a", "b\x94", "c"}},
      {850, "\x93" "a b\x94", {"\x93" "a", "b\x94"}},
      {932, "\"a b\" c", {"\"a b\"", "c"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.codePage) + " " + c.text);
    fakeHost().reset();
    fakeHost().codePage = c.codePage;
    EXPECT_EQ(scan(c.text), c.want);
  }
}

TEST(WordScanHost, StrippingCurlyQuotes) {
  fakeHost().reset();
  std::vector<bool> quoted;
  EXPECT_EQ(scan("\x93" "a b\x94 \x93\x94 \x94" "x\"", true, &quoted),
            (Words{"a b", "", "x"}));
  EXPECT_EQ(quoted, (std::vector<bool>{true, true, true}));

  fakeHost().reset();
  fakeHost().codePage = 932;
  quoted.clear();
  EXPECT_EQ(scan("\x93" "ab\x94", true, &quoted), Words{"\x93" "ab\x94"});
  EXPECT_EQ(quoted, std::vector<bool>{false});
}

TEST(WordScanHost, CodePageAskedOnlyAtCurlyQuoteBytes) {
  fakeHost().reset();
  scan("plain \"quoted text\" (with parens) and\ttabs \xE9\xFF");
  EXPECT_EQ(fakeHost().codePageCalls, 0);
  // Asked afresh at each such byte, never remembered: two in the first word,
  // one in the second.
  fakeHost().reset();
  EXPECT_EQ(vstring("\x93" "a\x94 \x94").WCount(), 2);
  EXPECT_EQ(fakeHost().codePageCalls, 3);
  EXPECT_EQ(fakeHost().allocateCalls, 0) << "counting allocates nothing";
  // The quote report tests each word's first byte once more.
  fakeHost().reset();
  scan("\x93" "a\x94 \x94");
  EXPECT_EQ(fakeHost().codePageCalls, 5);
}

}  // namespace
