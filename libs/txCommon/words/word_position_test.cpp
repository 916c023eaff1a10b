// Word lists by position with no host: counting, the positional cuts and
// their joins, GetElement's signed bytes, truncateList and word breaks.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cctype>
#include <climits>
#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

TEST(WordPosition, Count) {
  struct Case {
    const char* text;
    int want;
  } const cases[] = {
      {"", 0},          {" \t\n ", 0},      {"a", 1},         {"a,b c", 2},
      {"\"a b", 1},     {"(a b", 1},        {"a) b", 2},      {"  a   b  ", 2},
      {"(a b)c", 2},    {"x\xE9y", 1},      {"a\nb\tc", 3},   {"f(a b),c", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(vstring(c.text).WCount(), c.want);
  }
  EXPECT_EQ(vstring().WCount(), 0);
}

TEST(WordPosition, MidLeftRight) {
  const vstring spaced("  a   b  ");
  struct Case {
    const char* label;
    std::string got;
    const char* want;
  } const cases[] = {
      {"mid 1 2", str(spaced.WMid(1, 2)), "a b"},
      {"left 5", str(spaced.WLeft(5)), "a b"},
      {"right 2: the text as it stands", str(spaced.WRight(2)), "  a   b  "},
      {"right 5", str(spaced.WRight(5)), "  a   b  "},
      {"right 1", str(spaced.WRight(1)), "b"},
      {"right 3 of 4", str(vstring(" a  b c\t d ").WRight(3)), "b c d"},
      {"line feed and tab become blanks", str(vstring("a\nb\tc\r\nd").WMid(1, 4)), "a b c d"},
      {"inner spacing stays", str(vstring("(a  b)c  \"x  y\"").WMid(1, 3)), "(a  b) c \"x  y\""},
      {"from the middle", str(vstring("a b c d e").WMid(2, 3)), "b c d"},
      {"count past the end", str(vstring("a b c").WMid(2, INT_MAX)), "b c"},
      {"first past the end", str(vstring("a b c").WMid(4, 1)), ""},
      {"far past the end", str(vstring("a b c").WMid(INT_MAX, INT_MAX)), ""},
      {"first 0", str(vstring("a b").WMid(0, 1)), ""},
      {"count 0", str(vstring("a b").WMid(1, 0)), ""},
      {"negative", str(vstring("a b").WMid(-1, 5)), ""},
      {"left 0", str(vstring("a b").WLeft(0)), ""},
      {"left -3", str(vstring("a b").WLeft(-3)), ""},
      {"right 0", str(vstring("a b").WRight(0)), ""},
      {"right -1", str(vstring("a b").WRight(-1)), ""},
      {"empty mid", str(vstring("").WMid(1, 1)), ""},
      {"blank mid", str(vstring(" \t ").WMid(1, 1)), ""},
      {"empty right", str(vstring("").WRight(1)), ""},
      {"blank right: no words, no text", str(vstring(" \t ").WRight(1)), ""},
      {"null right", str(vstring().WRight(1)), ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(c.got, c.want);
  }
}

TEST(WordPosition, WordAndWordQ) {
  const vstring doubled("\"a \"\"b\"\" c\"");
  EXPECT_EQ(str(doubled.Word(1)), "a \"b\" c");
  EXPECT_EQ(str(doubled.WordQ(1)), str(doubled));
  const vstring list("x \"a b\" (c d)e");
  EXPECT_EQ(str(list.Word(2)), "a b");
  EXPECT_EQ(str(list.WordQ(2)), "\"a b\"");
  EXPECT_EQ(str(list.Word(3)), "(c d)");
  EXPECT_EQ(str(list.Word(4)), "e");
  EXPECT_EQ(str(list.Word(5)), "");
  EXPECT_EQ(str(list.Word(0)), "");
  // Two quoted pieces in one word keep their quotes.
  EXPECT_EQ(str(vstring("\"a\"\"b").Word(1)), "\"a\"\"b");
}

TEST(WordPosition, ResultsAreTemporariesAndLeaveTheTextAlone) {
  const vstring s("a  b");
  vstring& first = s.WMid(1, 1);
  vstring& second = s.WMid(2, 1);
  EXPECT_NE(&first, &second);
  EXPECT_NE(&first, &s);
  EXPECT_EQ(str(first), "a");
  EXPECT_EQ(str(s), "a  b");
}

TEST(WordPosition, GetElement) {
  struct Case {
    const char* text;
    int n;
    const char* want;
  } const cases[] = {
      {"  a b", 0, "a"},          {"  a b", 1, "b"},         {"  a b", 2, ""},
      {"  a b", -1, ""},          {"\"a b\"", 0, "\"a"},     {"\"a b\"", 1, "b\""},
      {"(a b)", 0, "(a"},         {"x\xE9y", 0, "x"},        {"x\xE9y", 1, "y"},
      {"\x80\xFF", 0, ""},        {"a\x7F" "b c", 0, "a\x7F" "b"},
      {"", 0, ""},                {"a\tb\nc", 2, "c"},       {"a b", INT_MAX, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " " + std::to_string(c.n));
    vstring s(c.text);
    EXPECT_EQ(str(s.GetElement(c.n)), c.want);
    EXPECT_EQ(str(s), c.text);
  }
  // The word rule keeps what GetElement cuts.
  EXPECT_EQ(vstring("x\xE9y").WCount(), 1);
}

TEST(WordPosition, GetElementLongerThanTheScratchBufferIsCut) {
  const int room = _psTempBufLen2();
  std::string long_first(static_cast<std::size_t>(room) + 5000, 'e');
  long_first.front() = ' ';
  long_first.append(" f");
  vstring s(text_of(long_first));
  const vstring& e = s.GetElement(0);
  EXPECT_EQ(static_cast<int>(e.len()), room) << "cut to what the buffer holds";
  EXPECT_EQ(str(s.GetElement(1)), "f");
  vstring exact(text_of(std::string(static_cast<std::size_t>(room), 'x')));
  EXPECT_EQ(static_cast<int>(exact.GetElement(0).len()), room);
}

TEST(WordPosition, TruncateList) {
  struct Case {
    const char* text;
    int n;
    const char* want;
    bool self;
  } const cases[] = {
      {"ab cd", 3, "ab", false},
      {"abcdefg", 4, "", false},
      {"ab", 0, "", false},
      {"ab", 9, "ab", true},
      {"ab", 2, "ab", true},          // not above n
      {"", 0, "", true},
      {"a  b", 3, "a ", false},       // blanks before the cut stay
      {"ab cd", 2, "ab", false},      // the byte at offset n is a blank
      {"a b\xE9" "cd", 5, "a b", false},  // high bytes stop the walk too
      {"a\tbc", 3, "a", false},
      {"ab", -1, "", false},          // a negative limit keeps nothing
      {"", -5, "", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " " + std::to_string(c.n));
    vstring s(c.text);
    vstring& r = s.truncateList(c.n);
    EXPECT_EQ(&r == &s, c.self);
    EXPECT_EQ(str(r), c.want);
    EXPECT_EQ(str(s), c.text);
  }
}

TEST(WordPosition, LastWordBreak) {
  struct Case {
    const char* text;
    int limit;
    int want;
  } const cases[] = {
      {"ab cd", -1, 2},  {"ab cd", 2, -1},  {"ab cd", 3, 2},   {"ab cd", 0, -1},
      {"ab cd", -2, -1}, {"ab cd", 99, 2},  {"", -1, -1},      {"", 5, -1},
      {"ab\tcd", -1, 2}, {"ab,cd", -1, -1}, {"a b c", -1, 3},  {"a b c", 4, 3},
      {"a.b!c", -1, -1}, {"a\x01" "b", -1, 1}, {"a\x7F" "b", -1, 1}, {"a b ", -1, 3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " " + std::to_string(c.limit));
    EXPECT_EQ(vstring(c.text).GetLastWordBreak(c.limit), c.want);
  }
}

// For the ASCII bytes every locale agrees with the C classes: a byte breaks
// exactly when it is the blank or a control byte.
TEST(WordPosition, LastWordBreakMatchesTheCClassesOnAscii) {
  for (int b = 1; b < 0x80; ++b) {
    SCOPED_TRACE(b);
    const char text[] = {'x', static_cast<char>(b), 'y', '\0'};
    const int want = (b == ' ' || std::iscntrl(b)) ? 1 : -1;
    EXPECT_EQ(vstring(text).GetLastWordBreak(-1), want);
  }
}

TEST(WordPosition, HostileTexts) {
  const std::size_t mb = 1 << 20;
  std::string big;
  for (std::size_t i = 0; big.size() < mb; ++i) big += (i % 3 == 0) ? "w\xE9 " : "(a b)+c\t";
  const vstring list(text_of(big));
  const int count = list.WCount();
  EXPECT_GT(count, 100000);
  // Cut the list in two and join it again: the whole, normalised.
  const std::string all = str(list.WMid(1, INT_MAX));
  const std::string head = str(list.WLeft(count / 2));
  const std::string tail = str(list.WRight(count - count / 2));
  EXPECT_EQ(head + " " + tail, all);
  EXPECT_EQ(str(list.WRight(count)), big);
  const std::string last = str(list.WMid(count, 5));
  EXPECT_TRUE(last == "w\xE9" || last == "(a b)+c") << last;

  // Unbalanced text is one word whichever way it is cut.
  const vstring open(text_of("x (" + std::string(mb, ' ') + "y"));
  EXPECT_EQ(open.WCount(), 2);
  EXPECT_EQ(open.WMid(2, 1).len(), mb + 2);
  EXPECT_EQ(str(open.WRight(1)), str(open.WMid(2, 1)));
  const vstring quotes(text_of(std::string(mb, '"') + "\" a"));
  EXPECT_EQ(quotes.WCount(), 1);

  vstring highs(text_of(std::string(mb, '\xE9')));
  EXPECT_EQ(highs.WCount(), 1);
  EXPECT_EQ(str(highs.GetElement(0)), "");
  // The byte at the limit is itself a high byte: the cut falls right there.
  EXPECT_EQ(highs.truncateList(1000).len(), 1000u);
  vstring words(text_of(big));
  EXPECT_LE(words.truncateList(static_cast<int>(mb / 2)).len(), mb / 2);
  EXPECT_EQ(words.GetLastWordBreak(-1), static_cast<int>(big.size()) - 1);
}

}  // namespace
