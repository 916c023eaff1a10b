// Trimming with no host: the three blank tests against a plain oracle over
// every byte value, the early exits of trim(), and itrim's kept block.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <string>

using edit_test::bytes;
using edit_test::make;

namespace {

struct TrimCase {
  const char* label;
  std::string text;
  std::string ltrim, rtrim, rtrim1, trim0, trim1;
};

TEST(Trim, Table) {
  const TrimCase cases[] = {
      {"empty", "", "", "", "", "", ""},
      {"all blanks", " \t\n ", "", "", " \t\n", "", ""},
      {"plain", "  a b  ", "a b  ", "  a b", "  a b", "a b", "a b"},
      {"tab then blank at end", "x\t ", "x\t ", "x", "x\t", "x", "x"},
      {"high first keeps trailing blanks", "\xE9x  ", "\xE9x  ", "\xE9x", "\xE9x", "\xE9x  ", "\xE9x  "},
      {"high last: only trim(1) takes it", "  x\xE9", "x\xE9", "  x\xE9", "  x\xE9", "x\xE9", "x"},
      {"high bytes behind blanks", "  x \xA0\xFF", "x \xA0\xFF", "  x \xA0\xFF", "  x \xA0\xFF",
       "x \xA0\xFF", "x"},
      {"both ends text", "a  b", "a  b", "a  b", "a  b", "a  b", "a  b"},
      {"control bytes are low blanks", "\x01\x1F" "a\x7F\x02", "a\x7F\x02", "\x01\x1F" "a\x7F",
       "\x01\x1F" "a\x7F\x02", "a\x7F", "a\x7F"},
      {"single blank", " ", "", "", "", "", ""},
      {"only high bytes", "\x80\xFF", "\x80\xFF", "\x80\xFF", "\x80\xFF", "\x80\xFF", "\x80\xFF"},
      {"blank then only high bytes", " \x80\xFF", "\x80\xFF", " \x80\xFF", " \x80\xFF", "\x80\xFF", ""},
  };
  for (const TrimCase& c : cases) {
    SCOPED_TRACE(c.label);
    const vstring s = make(c.text);
    EXPECT_EQ(bytes(s.ltrim()), c.ltrim);
    EXPECT_EQ(bytes(s.rtrim()), c.rtrim);
    EXPECT_EQ(bytes(s.rtrim1()), c.rtrim1);
    EXPECT_EQ(bytes(s.trim(0)), c.trim0);
    EXPECT_EQ(bytes(s.trim(1)), c.trim1);
    EXPECT_EQ(bytes(s), c.text) << "const operations leave the string alone";
  }
}

// Every byte value at either end, against the definition of the two tests.
TEST(Trim, EveryByteAtTheEnds) {
  for (int b = 1; b < 256; ++b) {
    SCOPED_TRACE(b);
    const char c = static_cast<char>(b);
    const bool low = b <= 0x20;
    const bool signedBlank = low || b >= 0x80;
    const vstring tail = make(std::string("m") + c);
    EXPECT_EQ(bytes(tail.rtrim()), low ? "m" : std::string("m") + c);
    EXPECT_EQ(bytes(tail.trim(0)), low ? "m" : std::string("m") + c);
    // First and last byte above 0x20: trim() copies without looking further.
    EXPECT_EQ(bytes(tail.trim(1)), low ? "m" : std::string("m") + c);
    const vstring blankFirst = make(std::string(" m") + c);
    EXPECT_EQ(bytes(blankFirst.trim(0)), low ? "m" : std::string("m") + c);
    EXPECT_EQ(bytes(blankFirst.trim(1)), signedBlank ? "m" : std::string("m") + c);
    const vstring head = make(std::string(1, c) + "m");
    EXPECT_EQ(bytes(head.ltrim()), low ? "m" : std::string(1, c) + "m");
    EXPECT_EQ(bytes(head.trim(1)), low ? "m" : std::string(1, c) + "m");
  }
}

TEST(Trim, ItrimKeepsTheBlock) {
  vstring s("   ");
  const unsigned cap = s.blen();
  s.itrim();
  EXPECT_EQ(s.len(), 0u);
  EXPECT_TRUE(s.isNull());
  EXPECT_EQ(s.blen(), cap);
  EXPECT_EQ(s.optr()[0], '\0');

  vstring t("\t a b \n");
  const char* before = t.optr();
  t.itrim();
  EXPECT_EQ(bytes(t), "a b");
  EXPECT_EQ(t.optr(), before) << "moved down in its own block";

  vstring high("\xE9 ");
  high.itrim();
  EXPECT_EQ(bytes(high), "\xE9");
  vstring none;
  none.itrim();
  EXPECT_EQ(none.blen(), 0u);
  vstring inner("a  b");
  inner.itrim();
  EXPECT_EQ(bytes(inner), "a  b");
}

TEST(Trim, TrimRightAssigns) {
  vstring s("ab \t");
  s.TrimRight();
  EXPECT_EQ(bytes(s), "ab");
  vstring blanks("  ");
  blanks.TrimRight();
  EXPECT_EQ(blanks.blen(), 0u) << "an empty result releases the block";
}

TEST(Trim, HugeText) {
  std::string big(300000, ' ');
  big[150000] = 'x';
  const vstring s = make(big);
  EXPECT_EQ(bytes(s.trim(0)), "x");
  EXPECT_EQ(s.ltrim().len(), 150000u);
  EXPECT_EQ(s.rtrim().len(), 150001u);
}

}  // namespace
