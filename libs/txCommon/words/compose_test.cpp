// Word-list composition with no host: WInterleave, WCross, WDelim and the
// C-word family, on ordinary and hostile text.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

TEST(ComposeInterleave, GroupsAndPadding) {
  struct Case {
    const char* mine;
    const char* theirs;
    int countThis, countOther;
    const char* expected;
  };
  const Case cases[] = {
      {"a b c", "x y", 2, 1, "a b x c \"\" y"},
      {"a", "x y z", 1, 1, "a x \"\" y \"\" z"},
      {"", "", 1, 1, ""},
      {"   \t\n", "", 3, 3, ""},
      {"", "", 0, 1, ""},
      {"a b", "x y", 0, 1, ""},
      {"a b", "x y", 1, -5, ""},
      {"a", "", 1, 3, "a \"\" \"\" \"\""},
      {"", "x", 2, 1, "\"\" \"\" x"},
      {"\"p q\" r", "x", 1, 1, "\"p q\" x r \"\""},
      {"  a\t b\n", "x", 1, 1, "a x b \"\""},
      {"(a b)c f(x) + y", "1 2 3 4", 1, 1, "(a b) 1 c 2 f(x) 3 + 4 y \"\""},
      {"a b c d", "x y", 2, 1, "a b x c d y"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.mine) + " | " + c.theirs);
    EXPECT_EQ(str(vstring(c.mine).WInterleave(vstring(c.theirs), c.countThis, c.countOther)),
              c.expected);
  }
}

TEST(ComposeCross, PatternsAndQuoting) {
  struct Case {
    const char* mine;
    const char* theirs;
    const char* pattern;
    const char* expected;
  };
  const Case cases[] = {
      {"a b", "x y", "?_?", "a_x a_y b_x b_y"},
      {"a b", "x", "", "ax bx"},
      {"a b", "x", "  \t ", "ax bx"},
      {"a", "x", "p? ?q", "\"pa xq\""},
      {"\"m n\"", "x", "?_?", "\"m n_x\""},
      {"a b", "x y", "??", "ax ay bx by"},
      {"a", "x", "?", ""},
      {"a", "x", "a?b?c?d", ""},
      {"a", "x", "no marks", ""},
      {"", "x y", "?_?", ""},
      {"a b", "", "?_?", ""},
      {"a", "x", "  ?_?\t", "a_x"},
      {"a", "x", " ? - ? ", "\"a - x\""},
      {"a", "x", "\"?\"?", "\"a\"x"},
      {"a", "x y", "say \"?\" ?", "\"say \"\"a\"\" x\" \"say \"\"a\"\" y\""},
      {"f(a b) c", "x", "?_?", "\"f(a b)_x\" c_x"},
      {"a)b", "x", "?.?", "a).x b.x"},
      {"\"\"", "x", "[?|?]", "[|x]"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.mine) + " | " + c.theirs + " | " + c.pattern);
    EXPECT_EQ(str(vstring(c.mine).WCross(vstring(c.theirs), vstring(c.pattern))), c.expected);
  }
}

TEST(ComposeDelim, DelimitersAndQuotes) {
  struct Case {
    const char* text;
    const char* from;
    const char* to;
    const char* expected;
  };
  const Case cases[] = {
      {"a, b c", "C", "S", "a \"b c\""},
      {"a, b c", "c", "s", "a \"b c\""},
      {"a \"b c\"", "S", ",", "a,b c"},
      {"a,,b", "C", "S", "a \"\" b"},
      {"a,,b", ",", ";", "a;;b"},
      {"a,b,", ",", ";", "a;b"},
      {",a", ",", ";", ";a"},
      {"", "C", "S", ""},
      {"a b", "S", "T", "a\tb"},
      {"\"a\tb\",c", "C", "t", "\"a\tb\"\tc"},
      {"a|b|c", "|", ",", "a,b,c"},
      {"\"a \",b", ",", ";", "\"a \";b"},
      {"a;b", ",", ";", "\"a;b\""},
      {"f(a,b),c", ",", "S", "f(a,b) c"},
      {"x @ y", "S", "C", "x,@,y"},
      {"a,@", ",", ";", "a;@"},
      {"a),b", ",", ";", "a;);b"},
      // Refused: the text comes back as it stands.
      {"a,b", "x", ";", "a,b"},
      {"a,b", "ab", ";", "a,b"},
      {"a,b", "", ";", "a,b"},
      {"a,b", ",", "\"", "a,b"},
      {"a,b", "1", ";", "a,b"},
      {"a,b", ",", "z", "a,b"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " | " + c.from + " -> " + c.to);
    EXPECT_EQ(str(vstring(c.text).WDelim(vstring(c.from), vstring(c.to))), c.expected);
  }
  // Without a host 0x93 is a plain byte and may name a delimiter, but the
  // scanner never ends an item at a byte of 0x80 or up: one item.
  EXPECT_EQ(str(vstring("a\x93" "b").WDelim(vstring("\x93"), vstring(";"))), "a\x93" "b");
  // A zero byte can never stand in a zero-ended text.
  EXPECT_EQ(str(vstring("a,b").WDelim(text_of(std::string(1, '\0')), vstring(";"))), "a,b");
}

TEST(ComposeCWord, FindAndHas) {
  struct Case {
    const char* text;
    int found;
  };
  const Case cases[] = {
      {"ABC", -1}, {"A C", 2},          {"C", 0},         {"C X", 0},
      {"XC", -1},  {"CX", -1},          {"", -1},         {"\tC\n", 1},
      {"CC C", 3}, {"\"C\"", -1},       {"\" C \"", 2},   {"A\xE9" "C\xE9", 2},
      {"A\x7f" "C", -1}, {"c", -1},     {"A (C)", -1},    {"x\x80" "C", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s(c.text);
    EXPECT_EQ(s.findC(), c.found);
    EXPECT_EQ(s.hasC(), c.found >= 0 ? 1 : 0);
  }
}

TEST(ComposeCWord, RemoveAndAdjust) {
  struct Case {
    const char* text;
    int position;  // 0 and below: removeC is checked as well
    const char* adjusted;
  };
  const Case cases[] = {
      {"X C Y", 1, "C X Y "},   {"X C Y", 2, "X C Y "},   {"X C Y", 3, "X Y C "},
      {"X C Y", 9, "X Y C "},   {"X C Y", 0, "X Y "},     {"X C Y", -4, "X Y "},
      {"", 1, "C "},            {"", 0, ""},              {"C C", 1, "C "},
      {"  X\t\tY  ", 2, "X C Y "}, {"\"C\" X", 1, "C \"C\" X "}, {"(C D) C", 2, "(C D) C "},
      {"C", INT_MAX, "C "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " @ " + std::to_string(c.position));
    vstring s(c.text);
    s.adjustCPosition(c.position);
    EXPECT_EQ(str(s), c.adjusted);
  }
  struct Removal {
    const char* text;
    const char* expected;
  };
  const Removal removals[] = {
      {"X C Y", "X Y "}, {"", ""}, {"C", ""}, {"C C", ""}, {"  X   Y  ", "X Y "},
      {"\"C\" X", "\"C\" X "}, {"(C D) C", "(C D) "}, {"XC CX c", "XC CX c "},
  };
  for (const Removal& r : removals) {
    SCOPED_TRACE(r.text);
    vstring s(r.text);
    vstring& back = s.removeC();
    EXPECT_EQ(&back, &s) << "the object itself, not a temporary";
    EXPECT_EQ(str(s), r.expected);
  }
}

// Hostile text: unbalanced quotes and parentheses run to the end as one word,
// high bytes are word bytes, and megabytes go through whole.
TEST(ComposeHostile, UnbalancedAndHighBytes) {
  EXPECT_EQ(str(vstring("\"a b").WInterleave(vstring("(x y"), 1, 1)), "\"a b (x y");
  EXPECT_EQ(str(vstring("(a b").WCross(vstring("x"), vstring("?_?"))), "\"(a b_x\"");
  EXPECT_EQ(str(vstring("(a,b").WDelim(vstring(","), vstring(";"))), "(a,b");
  vstring unbalanced("a) C (b");
  unbalanced.removeC();
  EXPECT_EQ(str(unbalanced), "a) (b ");

  std::string high;
  for (int b = 0x80; b <= 0xFF; ++b) high += static_cast<char>(b);
  const vstring h = text_of(high + " " + high);
  EXPECT_EQ(str(h.WInterleave(h, 1, 1)), high + " " + high + " " + high + " " + high);
  EXPECT_EQ(str(h.WCross(vstring("x"), vstring("?_?"))), high + "_x " + high + "_x");
  EXPECT_EQ(str(h.WDelim(vstring("S"), vstring("C"))), high + "," + high);
  vstring c = h;
  EXPECT_EQ(c.hasC(), 0);
  c.adjustCPosition(2);
  EXPECT_EQ(str(c), high + " C " + high + " ");
}

TEST(ComposeHostile, Megabytes) {
  std::string list;
  for (int i = 0; i < 200000; ++i) {
    const char word[] = {'w', static_cast<char>('0' + i % 10), ' '};
    list.append(word, sizeof word);
  }
  const vstring big = text_of(list);  // 600,000 bytes
  const vstring mixed(big.WInterleave(big, 1, 1));
  EXPECT_EQ(mixed.WCount(), 400000);
  EXPECT_EQ(str(mixed.WLeft(4)), "w0 w0 w1 w1");

  const vstring wide(big.WDelim(vstring("S"), vstring(",")));
  EXPECT_EQ(wide.len(), list.size() - 1);
  EXPECT_EQ(str(wide.left(9)), "w0,w1,w2,");

  vstring some(big.WLeft(300));
  const vstring crossed(some.WCross(some, vstring("?.?")));
  EXPECT_EQ(crossed.WCount(), 90000);
  EXPECT_EQ(str(crossed.WRight(1)), "w9.w9");

  // One word of two megabytes is longer than the scratch buffer: the scanner
  // cuts it into pieces, and no byte is lost.
  vstring one = text_of(std::string(2000000, 'q') + " C");
  one.removeC();
  EXPECT_EQ(one.len(), 2000000u + one.WCount());

  vstring many(big);
  many.adjustCPosition(100000);
  EXPECT_EQ(many.WCount(), 200001);
  EXPECT_EQ(str(many.WMid(100000, 1)), "C");
}

// A count of two billion with short lists, or the cross of two long lists,
// would build gigabytes; the padding and the cross stop at 4,000,000 bytes.
TEST(ComposeHostile, HugeCountsAndCrossesStopAtTheResultLimit) {
  const vstring padded(vstring("a").WInterleave(vstring("b"), INT_MAX, 1));
  EXPECT_LE(padded.len(), 4000000u + 4);
  EXPECT_GT(padded.len(), 3999990u);
  EXPECT_EQ(str(padded.left(7)), "a \"\" \"\"");

  std::string list;
  for (int i = 0; i < 3000; ++i) list += "ab ";
  const vstring wide = text_of(list);  // 9,000,000 items of 5 bytes and a blank
  const vstring crossed(wide.WCross(wide, vstring("?_?")));
  EXPECT_LE(crossed.len(), 4000000u);
  EXPECT_GT(crossed.len(), 3999990u);
  EXPECT_EQ(str(crossed.right(6)), " ab_ab");
}

}  // namespace
