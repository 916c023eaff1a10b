// Word lists as sets with no host: order of results, case and quotes, empty
// operands, WFind, and lists large enough to fill the table.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

struct Case {
  const char* label;
  const char* mine;
  const char* other;
  const char* want;
};

TEST(WordSets, Unique) {
  const Case cases[] = {
      {"repeats", "a b a  c b", "", "a b c"},
      {"case and quotes differ", "abc ABC \"abc\" abc", "", "abc ABC \"abc\""},
      {"inner spacing is part of the word", "(a  b) (a b) (a  b)", "", "(a  b) (a b)"},
      {"separators become one blank", "x\ty\nx\r\nz", "", "x y z"},
      {"empty", "", "", ""},
      {"blanks", " \t ", "", ""},
      {"unclosed quote", "a \"b c a", "", "a \"b c a"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(str(vstring(c.mine).WUnique()), c.want);
  }
}

TEST(WordSets, Union) {
  const Case cases[] = {
      {"order of first appearance", "b a", "c a b", "b a c"},
      {"empty this", "", "c a c", "c a"},
      {"empty other", "b b a", "", "b a"},
      {"both empty", "", "", ""},
      {"repeats in other", "a", "b b a c c", "a b c"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(str(vstring(c.mine).WUnion(vstring(c.other))), c.want);
  }
}

TEST(WordSets, Intersect) {
  const Case cases[] = {
      {"this longer", "a b c d", "d b", "b d"},
      {"other longer decides", "d b", "a b c d", "b d"},
      {"equal lengths: this list's order", "a b", "b a", "a b"},
      {"once", "a a b", "a", "a"},
      {"once, walked side repeats", "a", "a a b", "a"},
      {"text length decides, not words", "b a c d e", "abcdefghijkl a b", "a b"},
      {"case", "ABC", "abc", ""},
      {"quotes", "\"a\"", "a", ""},
      {"empty this", "", "a b", ""},
      {"empty other", "a b", "", ""},
      {"nothing shared", "a b", "c d", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(str(vstring(c.mine).WIntersect(vstring(c.other))), c.want);
  }
  EXPECT_EQ(str(vstring().WIntersect(vstring("a"))), "");
  EXPECT_EQ(str(vstring("a").WIntersect(vstring())), "");
}

TEST(WordSets, NotIn) {
  const Case cases[] = {
      {"plain", "a b a c", "b", "a c"},
      {"empty other deduplicates", "a b a", "", "a b"},
      {"empty this", "", "a b", ""},
      {"all removed", "a b", "b a c", ""},
      {"case and quotes count", "a A \"a\"", "a", "A \"a\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(str(vstring(c.mine).WNotIn(vstring(c.other))), c.want);
  }
  EXPECT_EQ(str(vstring("x x").WNotIn(vstring())), "x");
  EXPECT_EQ(str(vstring().WUnion(vstring("y y"))), "y");
}

TEST(WordSets, OperandsStayAsTheyAre) {
  const vstring a("a  b\ta");
  const vstring b(" b c ");
  a.WUnion(b);
  a.WIntersect(b);
  a.WNotIn(b);
  a.WUnique();
  EXPECT_EQ(str(a), "a  b\ta");
  EXPECT_EQ(str(b), " b c ");
}

TEST(WordSets, Find) {
  struct FindCase {
    const char* label;
    const char* list;
    const char* word;
    int ignoreCase;
    int findLast;
    int want;
    int position;
  } const cases[] = {
      {"first", "a b a", "a", 0, 0, 1, 0},
      {"last", "a b a", "a", 0, 1, 3, 4},
      {"case counts", "x", "X", 0, 0, 0, -1},
      {"case-blind", "x", "X", 1, 0, 1, 0},
      {"case-blind last", "Ab aB AB", "ab", 1, 1, 3, 6},
      {"high bytes are not folded", "\xC9", "\xE9", 1, 0, 0, -1},
      {"empty word never matches", "a b", "", 0, 0, 0, -1},
      {"empty list", "", "a", 0, 0, 0, -1},
      {"quotes must match quotes", "\"a\" a", "a", 0, 0, 2, 4},
      {"quoted word with its quotes", "x \"a b\"", "\"a b\"", 0, 0, 2, 2},
      {"a blank cannot match a plain word", "a b", "a b", 0, 0, 0, -1},
      {"offset counts leading blanks", "  \tq", "q", 0, 0, 1, 3},
      {"prefix is no match", "abc ab", "ab", 0, 0, 2, 4},
      {"parentheses words", "f(a b) g", "f(a b)", 0, 0, 1, 0},
  };
  for (const FindCase& c : cases) {
    SCOPED_TRACE(c.label);
    vstring list(c.list);
    int position = 12345;
    EXPECT_EQ(list.WFind(vstring(c.word), c.ignoreCase, &position, c.findLast), c.want);
    EXPECT_EQ(position, c.position);
    EXPECT_EQ(list.WFind(vstring(c.word), c.ignoreCase, nullptr, c.findLast), c.want);
  }
}

// Many distinct words: the table grows past its largest bucket count and
// the results still agree with the standard containers.
TEST(WordSets, ListsBeyondTheLargestTable) {
  std::string mine;
  std::string other;
  for (int i = 0; i < 150000; ++i) {
    const std::string word = std::string("w").append(std::to_string(i));
    mine.append(word).append(" ");
    if (i % 3 == 0) other.append(word).append(" ");
  }
  other += "extra";
  const vstring a(text_of(mine));
  const vstring b(text_of(other));
  EXPECT_EQ(a.WUnique().len(), mine.size() - 1);
  // The longer text (this list) is walked: its order, every third word.
  std::string shared;
  for (int i = 0; i < 150000; i += 3) shared.append(shared.empty() ? "w" : " w").append(std::to_string(i));
  EXPECT_EQ(str(a.WIntersect(b)), shared);
  EXPECT_EQ(str(b.WNotIn(a)), "extra");
  // Every word of `mine` once, plus "extra" and its blank.
  EXPECT_EQ(b.WUnion(a).len(), mine.size() + 5);
}

// Random lists from a small vocabulary against std::set / std::unordered_set.
TEST(WordSets, AgreeWithStandardContainers) {
  const char* const vocabulary[] = {"a", "b", "A", "\"a\"", "(a b)", "c+d", "x\xE9", "e", "ff"};
  std::mt19937 gen(7);
  std::uniform_int_distribution<int> pick(0, 8);
  std::uniform_int_distribution<int> size(0, 12);
  const auto make = [&](std::vector<std::string>& words) {
    std::string text;
    for (int n = size(gen); n > 0; --n) {
      words.emplace_back(vocabulary[pick(gen)]);
      text.append(n % 2 ? "  " : "\t").append(words.back());
    }
    return text;
  };
  const auto join = [](const std::vector<std::string>& w) {
    std::string out;
    for (const std::string& s : w) out.append(out.empty() ? "" : " ").append(s);
    return out;
  };
  for (int round = 0; round < 3000; ++round) {
    std::vector<std::string> mw;
    std::vector<std::string> ow;
    const std::string mt = make(mw);
    const std::string ot = make(ow);
    SCOPED_TRACE(mt + " | " + ot);
    const vstring m(text_of(mt));
    const vstring o(text_of(ot));
    const std::set<std::string> inOther(ow.begin(), ow.end());
    const std::set<std::string> inMine(mw.begin(), mw.end());
    std::vector<std::string> unique, uni, notIn, inter;
    std::unordered_set<std::string> seen;
    for (const auto& w : mw) if (seen.insert(w).second) unique.push_back(w);
    seen.clear();
    for (const auto* list : {&mw, &ow}) {
      for (const auto& w : *list) if (seen.insert(w).second) uni.push_back(w);
    }
    seen.clear();
    for (const auto& w : mw) if (!inOther.count(w) && seen.insert(w).second) notIn.push_back(w);
    seen.clear();
    const bool walkMine = !(mt.size() < ot.size());
    const auto& walked = walkMine ? mw : ow;
    const auto& stored = walkMine ? inOther : inMine;
    for (const auto& w : walked) if (stored.count(w) && seen.insert(w).second) inter.push_back(w);
    ASSERT_EQ(str(m.WUnique()), join(unique));
    ASSERT_EQ(str(m.WUnion(o)), join(uni));
    ASSERT_EQ(str(m.WNotIn(o)), join(notIn));
    ASSERT_EQ(str(m.WIntersect(o)), join(inter));
  }
}

TEST(WordSets, HostileTexts) {
  const std::size_t mb = 1 << 20;
  // Unclosed quote: the whole rest is one word.
  const vstring open(text_of(std::string("a \"").append(mb, ' ').append("b a")));
  EXPECT_EQ(open.WUnique().len(), open.len());
  EXPECT_EQ(str(open.WIntersect(vstring("a"))), "a");
  // A megabyte of one repeated word, and of high bytes.
  std::string same;
  while (same.size() < mb) same += "\xE9\xFF ";
  EXPECT_EQ(str(text_of(same).WUnique()), "\xE9\xFF");
  EXPECT_EQ(str(text_of(same).WNotIn(vstring("\xE9\xFF"))), "");
  vstring list(text_of(same));
  int position = 0;
  EXPECT_EQ(list.WFind(vstring("\xE9\xFF"), 1, &position, 1), static_cast<int>(mb / 3 + 1));
  EXPECT_EQ(position, static_cast<int>(same.size()) - 3);
  EXPECT_EQ(str(text_of(std::string(mb, ')')).WUnion(vstring(")"))), std::string(mb, ')') + " )");
}

}  // namespace
