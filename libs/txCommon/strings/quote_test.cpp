// Quoting with no host: 0x93/0x94 are ordinary bytes here. The documented
// cases, the strict StripQuotesEx with its restore rule, and round trips over
// seeded random texts.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <random>
#include <string>

using edit_test::bytes;
using edit_test::make;

namespace {

TEST(Quote, PuttingOn) {
  struct Case {
    std::string text, surround, quoted;
  };
  const Case cases[] = {
      {"", "\"\"", "\"\""},
      {"a\"b", "\"a\"b\"", "\"a\"\"b\""},
      {"\"a\"", "\"\"a\"\"", "\"\"\"a\"\"\""},
      {"a b", "\"a b\"", "\"a b\""},
      {"\x93x\x94", "\"\x93x\x94\"", "\"\x93x\x94\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s = make(c.text), q = make(c.text), e = make(c.text);
    EXPECT_EQ(bytes(s.SurroundWithQuotes()), c.surround);
    EXPECT_EQ(bytes(q.MakeQuoted()), c.quoted);
    EXPECT_EQ(bytes(e.AddQuotesEx()), c.quoted);
  }
}

TEST(Quote, AddQuotesIfNecessary) {
  struct Case {
    const char* label;
    std::string text;
    bool ignoreQuoted;
    std::string want;
  };
  const Case cases[] = {
      {"no white space", "ab", false, "ab"},
      {"blank", "a b", false, "\"a b\""},
      {"quoted blank, not ignored", "\"a b\"", false, "\"\"\"a b\"\"\""},
      {"quoted blank, ignored", "\"a b\"", true, "\"a b\""},
      {"blank outside quotes", "\"a b\" c", true, "\"\"\"a b\"\" c\""},
      {"tab", "a\tb", true, "\"a\tb\""},
      {"vertical tab and form feed", "a\v\fb", false, "\"a\v\fb\""},
      {"empty", "", false, ""},
      {"0x93 opens nothing without a host", "\x93" "a b\x94", true, "\"\x93" "a b\x94\""},
      {"high byte is no white space", "a\xA0" "b", false, "a\xA0" "b"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s = make(c.text);
    EXPECT_EQ(bytes(s.AddQuotesIfNecessary(c.ignoreQuoted)), c.want);
  }
}

TEST(Quote, StripQuotes) {
  struct Case {
    std::string text, want;
  };
  const Case cases[] = {
      {"\"\"", ""},     {"\"", "\""},         {"\"a", "\"a"},   {"\"a\" ", "\"a\" "},
      {"\"a\"", "a"},   {"\"a\"b\"", "a\"b"}, {"\"\"\"\"", "\"\""}, {"a", "a"},
      {"", ""},         {"\x93" "a\x94", "\x93" "a\x94"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s = make(c.text);
    EXPECT_EQ(bytes(s.StripQuotes()), c.want);
  }
  vstring two("\"\"");
  EXPECT_EQ(two.StripQuotes().blen(), 0u);
}

TEST(Quote, StripQuotesEx) {
  struct Case {
    const char* label;
    std::string text, want;
  };
  const Case cases[] = {
      {"plain", "\"a\"", "a"},
      {"doubled inside", "\"a\"\"b\"", "a\"b"},
      {"two pieces stay", "\"a\" \"b\"", "\"a\" \"b\""},
      {"one lone quote", "\"a\"b\"", "a\"b"},
      {"trailing blanks", "\"a\"   ", "a"},
      {"empty pair", "\"\"", ""},
      {"lone quote", "\"", "\""},
      {"four quotes", "\"\"\"\"", "\""},
      {"enclosed result stands", "\"\" \"\"", "\" \""},
      {"three pieces stay", "\"a\" \"b\" \"c\"", "\"a\" \"b\" \"c\""},
      {"blank in front", " \"a\"", " \"a\""},
      {"tab behind is no blank", "\"a\"\t", "\"a\"\t"},
      {"no quotes", "abc", "abc"},
      {"only blanks", "   ", "   "},
      {"quote and blanks", "\"  ", "\"  "},
      {"doubled pair at the end", "\"a\"\"\"", "a\""},
      {"0x93 is no quote without a host", "\x93" "a\x94", "\x93" "a\x94"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s = make(c.text);
    EXPECT_EQ(bytes(s.StripQuotesEx()), c.want);
  }
  vstring empty("\"\"  ");
  EXPECT_EQ(empty.StripQuotesEx().blen(), 0u);
}

TEST(Quote, DoubleAndUndouble) {
  struct Case {
    std::string text, doubled, undoubled;
  };
  const Case cases[] = {
      {"a\"b", "a\"\"b", "a\"b"},
      {"\"\"\"\"", "\"\"\"\"\"\"\"\"", "\"\""},
      {"\"\"\"", "\"\"\"\"\"\"", "\"\""},
      {"", "", ""},
      {"\x93", "\x93", "\x93"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring d = make(c.text), u = make(c.text);
    EXPECT_EQ(bytes(d.ConvertToDblQuotes()), c.doubled);
    EXPECT_EQ(bytes(u.ConvertFromDblQuotes()), c.undoubled);
  }
}

// Random texts over bytes that matter to quoting: the quoted form comes back,
// and doubled quotes undouble to the text.
TEST(Quote, RoundTrips) {
  std::mt19937 gen(7);
  const std::string alphabet = "\"\" a\t\x93\xE9";
  std::uniform_int_distribution<int> len(0, 24), pick(0, static_cast<int>(alphabet.size()) - 1);
  for (int round = 0; round < 5000; ++round) {
    std::string text(static_cast<std::size_t>(len(gen)), ' ');
    for (char& c : text) c = alphabet[static_cast<std::size_t>(pick(gen))];
    SCOPED_TRACE(text);
    vstring q = make(text);
    q.MakeQuoted().StripQuotesEx();
    EXPECT_EQ(bytes(q), text);
    vstring d = make(text);
    d.ConvertToDblQuotes().ConvertFromDblQuotes();
    EXPECT_EQ(bytes(d), text);
  }
}

}  // namespace
