// Editing and quoting under the fake host: what is asked of EnsureTempBuf,
// the insert refusal, quote bytes 0x93/0x94 under code page 1252 and not
// under others, a host with a small scratch buffer, and report 2121.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"
#include "fake_host.h"

#include <string>
#include <utility>
#include <vector>

using edit_test::bytes;
using edit_test::cycle;
using edit_test::make;

namespace {

using Calls = std::vector<std::pair<int, int>>;

TEST(EditHost, EnsureTempBufSizes) {
  struct Case {
    const char* label;
    std::string text;
    void (*op)(vstring&);
    Calls want;
  };
  const Case cases[] = {
      {"SurroundWithQuotes", "abc", [](vstring& s) { s.SurroundWithQuotes(); }, {{7, 8192}}},
      {"MakeQuoted: length + quotes + 2", "a\"b\"", [](vstring& s) { s.MakeQuoted(); }, {{8, 8192}}},
      {"MakeQuoted ignores 0x93", "a\x93", [](vstring& s) { s.MakeQuoted(); }, {{4, 8192}}},
      {"ConvertToDblQuotes", "a\"", [](vstring& s) { s.ConvertToDblQuotes(); }, {{130, 8192}}},
      {"replace_mult", "abcd", [](vstring& s) { s.replace_mult(vstring("a"), vstring("b"), 1, 0); },
       {{1004, 8192}}},
      {"removeWhiteSpace", "a b", [](vstring& s) { s.removeWhiteSpace(); }, {{3, 8192}}},
      {"removeWhiteSpacenq", "a b", [](vstring& s) { s.removeWhiteSpacenq(); }, {{3, 8192}}},
      {"MakeAlphaNumeric", "-ab", [](vstring& s) { s.MakeAlphaNumeric(nullptr, 0); }, {{3, 8192}}},
      {"CR_LF_to_LF", "a\r\n", [](vstring& s) { s.CR_LF_to_LF(); }, {{3, 8192}}},
      {"removeCharacter asks nothing", "a,b", [](vstring& s) { s.removeCharacter(','); }, {}},
      {"removeWhiteSpace of an empty text asks too", "", [](vstring& s) { s.removeWhiteSpace(); },
       {{0, 8192}}},
      {"removeWhiteSpacenq of an empty text", "", [](vstring& s) { s.removeWhiteSpacenq(); }, {{0, 8192}}},
      {"MakeAlphaNumeric of an empty text", "", [](vstring& s) { s.MakeAlphaNumeric(nullptr, 0); },
       {{0, 8192}}},
      {"SurroundWithQuotes of an empty text", "", [](vstring& s) { s.SurroundWithQuotes(); }, {{4, 8192}}},
      {"MakeQuoted of an empty text", "", [](vstring& s) { s.MakeQuoted(); }, {{2, 8192}}},
      {"ConvertToDblQuotes counts no quotes", "\"\"\"", [](vstring& s) { s.ConvertToDblQuotes(); },
       {{131, 8192}}},
      {"replace_mult of an empty text", "", [](vstring& s) { s.replace_mult(vstring("a"), vstring("b"), 1, 0); },
       {{1000, 8192}}},
      {"insert of an empty part asks nothing", "abc", [](vstring& s) { vstring p; s.insert(p, 1); }, {}},
      {"insert at position 0 asks nothing", "abc", [](vstring& s) { vstring p("x"); s.insert(p, 0); }, {}},
      {"AddQuotesIfNecessary asks with the count so far", "\"a\" b\"",
       [](vstring& s) { s.AddQuotesIfNecessary(false); }, {{10, 8192}, {11, 8192}}},
      {"AddQuotesIfNecessary without white space", "ab", [](vstring& s) { s.AddQuotesIfNecessary(false); },
       {}},
      {"insert: the sum, then length + 1000", "abc",
       [](vstring& s) { vstring p("xy"); s.insert(p, 1); }, {{5, 8192}, {1003, 8192}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    vstring s = make(c.text);
    c.op(s);
    EXPECT_EQ(fakeHost().ensureCalls, c.want);
  }
}

TEST(EditHost, InsertRefusedOnZero) {
  fakeHost().reset();
  fakeHost().ensureAnswer = 0;
  vstring s("abc"), part("x");
  s.insert(part, 1);
  EXPECT_EQ(bytes(s), "abc");
  EXPECT_EQ(fakeHost().ensureCalls, (Calls{{4, 8192}}));
  // With a host the 8192 bound of the built-in road plays no part.
  fakeHost().reset();
  vstring big = make(std::string(9000, 'a'));
  big.insert(part, 1);
  EXPECT_EQ(big.len(), 9001u);
  // A host that says yes but has too small a buffer: refused, nothing written.
  fakeHost().reset();
  fakeHost().setTempBufLen(16);
  vstring tight = make(std::string(16, 'a'));
  tight.insert(part, 1);
  EXPECT_EQ(tight.len(), 16u);
  fakeHost().reset();
}

TEST(EditHost, QuoteBytesUnderCodePage1252) {
  struct Case {
    const char* label;
    std::string text;
    std::string (*op)(vstring&);
    std::string with1252, withOther;
  };
  const Case cases[] = {
      {"removeWhiteSpacenq", "a \x93" "b c\x94 d", [](vstring& s) { return bytes(s.removeWhiteSpacenq()); },
       "a\x93" "b c\x94" "d", "abcd"},
      {"findCommentChar", "\x93it's\x94 'c", [](vstring& s) { return std::to_string(s.findCommentChar()); },
       "8", "4"},
      {"StripQuotes", "\x93" "a\x94", [](vstring& s) { return bytes(s.StripQuotes()); }, "a",
       "\x93" "a\x94"},
      {"StripQuotes, mixed kinds", "\"a\x94", [](vstring& s) { return bytes(s.StripQuotes()); }, "a",
       "\"a\x94"},
      {"StripQuotesEx", "\x93" "a\"\"b\x94  ", [](vstring& s) { return bytes(s.StripQuotesEx()); },
       "a\"b", "\x93" "a\"\"b\x94  "},
      {"ConvertToDblQuotes adds a plain quote", "\x93x", [](vstring& s) { return bytes(s.ConvertToDblQuotes()); },
       "\x93\"x", "\x93x"},
      {"ConvertFromDblQuotes", "\x93\"x", [](vstring& s) { return bytes(s.ConvertFromDblQuotes()); },
       "\x93x", "\x93\"x"},
      {"MakeQuoted never doubles 0x93", "\x93", [](vstring& s) { return bytes(s.MakeQuoted()); },
       "\"\x93\"", "\"\x93\""},
      {"AddQuotesIfNecessary(true)", "\x93" "a b\x94", [](vstring& s) { return bytes(s.AddQuotesIfNecessary(true)); },
       "\x93" "a b\x94", "\"\x93" "a b\x94\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    fakeHost().reset();
    vstring a = make(c.text);
    EXPECT_EQ(c.op(a), c.with1252);
    fakeHost().reset();
    fakeHost().codePage = 1250;
    vstring b = make(c.text);
    EXPECT_EQ(c.op(b), c.withOther);
  }
  // The code page is asked only when such a byte is met.
  fakeHost().reset();
  vstring plain("\"a b\" c");
  plain.removeWhiteSpacenq();
  plain.StripQuotesEx();
  EXPECT_EQ(fakeHost().codePageCalls, 0);
}

// A host with a small scratch buffer: every scratch result stays inside
// TempBufLen() + 8 bytes (the fake host's buffer is exactly that large, so
// ASan sees any byte beyond it).
TEST(EditHost, SmallScratchBuffer) {
  for (int room : {0, 1, 2, 3, 7, 64}) {
    SCOPED_TRACE(room);
    fakeHost().reset();
    fakeHost().setTempBufLen(room);
    const std::string text = cycle("a\" ,\r\n", 500);
    const unsigned most = static_cast<unsigned>(room < 2 ? 2 : room);
    vstring s = make(text);
    EXPECT_LE(s.SurroundWithQuotes().len(), most);
    EXPECT_EQ(s.optr()[0], '"');
    EXPECT_EQ(s.optr()[s.len() - 1], '"');
    vstring q = make(text);
    EXPECT_LE(q.MakeQuoted().len(), most);
    vstring a = make(text);
    EXPECT_LE(a.AddQuotesIfNecessary(false).len(), most);
    vstring d = make(text);
    EXPECT_LE(d.ConvertToDblQuotes().len(), static_cast<unsigned>(room));
    vstring r = make(text);
    EXPECT_LE(r.removeCharacter(',').len(), static_cast<unsigned>(room));
    vstring w = make(text);
    EXPECT_LE(w.removeWhiteSpace().len(), static_cast<unsigned>(room));
    vstring wn = make(text);
    EXPECT_LE(wn.removeWhiteSpacenq().len(), static_cast<unsigned>(room));
    vstring m = make(text);
    EXPECT_LE(m.MakeAlphaNumeric(nullptr, 0).len(), static_cast<unsigned>(room));
    EXPECT_LE(make(text).CR_LF_to_LF().len(), static_cast<unsigned>(room));
    vstring rm = make(text);
    rm.replace_mult(vstring("a"), vstring("xyz"), 9999999, 0);
    EXPECT_LE(rm.len(), static_cast<unsigned>(room));
    vstring rn = make("X" + text);
    rn.replaceName(vstring("X"), vstring("Y"));
    EXPECT_LE(rn.len(), 1u + static_cast<unsigned>(room));
  }
  fakeHost().reset();
}

TEST(EditHost, ReplaceArraysUpperCasesThroughTheHost) {
  fakeHost().reset();
  vstringArray from, to;
  from.add(vstring("abc"));
  to.add(vstring("x"));
  vstring s("Genr ABC");
  s.replace_mult(from, to, 1);
  EXPECT_EQ(bytes(s), "Genr x");
  EXPECT_GE(fakeHost().upperCalls, 2);
}

#if TXCOMMON_EXHAUSTIVE
// 32,000,000 bytes give a hex text of 64,000,000: reported, and made.
TEST(EditHost, Bin2hexReportsAHugeResult) {
  fakeHost().reset();
  vstring s = make(std::string(32000000, '\x5A'));
  s.bin2hex(32000000);
  EXPECT_EQ(s.len(), 64000000u);
  EXPECT_EQ(fakeHost().codes(), std::vector<int>{2121});
  EXPECT_EQ(std::string(s.optr() + 63999998, 2), "5A");
  fakeHost().reset();
  vstring below = make(std::string(1000, 'a'));
  below.bin2hex(1000);
  EXPECT_TRUE(fakeHost().codes().empty());
}
#endif

}  // namespace
