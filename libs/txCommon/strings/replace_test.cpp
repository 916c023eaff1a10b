// Replacing with no host: the documented cases, a std::string oracle over
// seeded random texts, whole-name matching, and replacing by arrays.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <cctype>
#include <random>
#include <string>

using edit_test::bytes;
using edit_test::make;

namespace {

TEST(Replace, Table) {
  struct Case {
    const char* label;
    const char* text;
    const char* from;
    const char* to;
    int maxCount;
    int caseBlind;
    const char* want;
  };
  const Case cases[] = {
      {"all", "aXa", "a", "bb", 9999999, 0, "bbXbb"},
      {"first only", "aXa", "a", "bb", 1, 0, "bbXa"},
      {"case-blind", "aA", "A", "x", 9999999, 1, "xx"},
      {"case matters", "aA", "A", "x", 9999999, 0, "ax"},
      {"never rescanned", "aaa", "a", "aa", 9999999, 0, "aaaaaa"},
      {"no overlap", "aaaa", "aa", "b", 9999999, 0, "bb"},
      {"no overlap, odd", "aaa", "aa", "b", 9999999, 0, "ba"},
      {"delete", "a-b-c", "-", "", 9999999, 0, "abc"},
      {"delete everything", "---", "-", "", 9999999, 0, ""},
      {"maxCount 2", "xxxx", "x", "y", 2, 0, "yyxx"},
      {"maxCount 0", "xxxx", "x", "y", 0, 0, "xxxx"},
      {"negative maxCount", "xxxx", "x", "y", -5, 0, "xxxx"},
      {"from longer than text", "ab", "abc", "z", 9999999, 0, "ab"},
      {"partial match at end", "xab", "abc", "z", 9999999, 0, "xab"},
      {"empty from inserts maxCount times in front", "ab", "", "-", 3, 0, "---ab"},
      {"empty from and to", "ab", "", "", 9999999, 0, "ab"},
      {"empty text", "", "a", "b", 9999999, 0, ""},
      {"empty text, empty from", "", "", "b", 9999999, 0, ""},
      {"high bytes", "\xE9x\xE9", "\xE9", "e", 9999999, 0, "exe"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(bytes(s.replace_mult(vstring(c.from), vstring(c.to), c.maxCount, c.caseBlind)), c.want);
  }
  vstring r("aXa");
  r.replace(vstring("a"), vstring("bb"), 0, 0);
  EXPECT_EQ(bytes(r), "bbXbb");
  r = "aXa";
  r.replace(vstring("a"), vstring("bb"), 1, 0);
  EXPECT_EQ(bytes(r), "bbXa");
  r = "Ab aB";
  r.caselessReplace(vstring("AB"), vstring("x"), 0);
  EXPECT_EQ(bytes(r), "x x");
  r = "Ab aB";
  r.caselessReplace(vstring("ab"), vstring("x"), 1);
  EXPECT_EQ(bytes(r), "x aB");
}

// The plain find-and-replace of std::string, left to right, no rescanning.
std::string oracle_replace(std::string s, const std::string& from, const std::string& to,
                           int maxCount, bool blind) {
  if (blind) {
    std::string up = s, f = from;
    for (char& c : up) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    for (char& c : f) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::string out;
    std::size_t at = 0;
    int count = 0;
    while (count < maxCount) {
      const std::size_t p = up.find(f, at);
      if (p == std::string::npos) break;
      out += s.substr(at, p - at) + to;
      at = p + f.size();
      ++count;
    }
    return out + s.substr(at);
  }
  std::size_t at = 0;
  for (int count = 0; count < maxCount; ++count) {
    const std::size_t p = s.find(from, at);
    if (p == std::string::npos) break;
    s.replace(p, from.size(), to);
    at = p + to.size();
  }
  return s;
}

TEST(Replace, RandomAgainstStdString) {
  std::mt19937 gen(20240611);
  const std::string alphabet = "aAbB \"\xE9";
  auto random_text = [&](int maxLen) {
    std::uniform_int_distribution<int> len(0, maxLen), pick(0, static_cast<int>(alphabet.size()) - 1);
    std::string s(static_cast<std::size_t>(len(gen)), ' ');
    for (char& c : s) c = alphabet[static_cast<std::size_t>(pick(gen))];
    return s;
  };
  for (int round = 0; round < 3000; ++round) {
    const std::string text = random_text(30), from = random_text(3), to = random_text(4);
    if (from.empty()) continue;
    const int maxCount = round % 3 == 0 ? 1 : 9999999;
    const bool blind = round % 2 == 0;
    SCOPED_TRACE(text + " | " + from + " | " + to);
    vstring s = make(text);
    s.replace_mult(make(from), make(to), maxCount, blind ? 1 : 0);
    EXPECT_EQ(bytes(s), oracle_replace(text, from, to, maxCount, blind));
  }
}

TEST(ReplaceName, Table) {
  struct Case {
    const char* label;
    const char* text;
    const char* from;
    const char* to;
    int result;
    const char* want;
  };
  const Case cases[] = {
      {"name byte in front", "AX X", "X", "Y", 1, "AX Y"},
      {"name byte behind", "X1", "X", "Y", 0, "X1"},
      {"follower fails, neighbour not a start", "XX X", "X", "Y", 1, "XX Y"},
      {"whole text", "GDP", "GDP", "LOG(GDP)", 1, "LOG(GDP)"},
      {"in an expression", "Y=X+X2*X", "X", "Z", 1, "Y=Z+X2*X"},
      {"only the first", "X+X", "X", "Z", 1, "Z+X"},
      {"small letters are no name bytes", "aX", "X", "Y", 1, "aY"},
      {"dollar and underscore are", "$X _X X_", "X", "Y", 0, "$X _X X_"},
      {"a broken match is not retried", "AAB", "AB", "Z", 0, "AAB"},
      {"case-sensitive", "x", "X", "Y", 0, "x"},
      {"empty from", "X", "", "Y", 0, "X"},
      {"empty text", "", "X", "Y", 0, ""},
      {"replace by nothing", "A+B", "B", "", 1, "A+"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(s.replaceName(vstring(c.from), vstring(c.to)), c.result);
    EXPECT_EQ(bytes(s), c.want);
  }
}

vstringArray& fill(vstringArray& a, std::initializer_list<const char*> items) {
  for (const char* t : items) a.add(vstring(t));
  return a;
}

TEST(ReplaceArrays, InOrderOfOccurrence) {
  struct Case {
    const char* label;
    const char* text;
    std::initializer_list<const char*> from, to;
    int caseBlind;
    const char* want;
  };
  const Case cases[] = {
      {"two in order", "genr %1 = log(%2)", {"%1", "%2"}, {"GDP", "CPI"}, 0, "genr GDP = log(CPI)"},
      {"same text twice", "a+a+a", {"a", "a"}, {"x", "y"}, 0, "x+y+a"},
      // Not found counts as position 0: to[k] still goes out, and the search
      // point falls back to len(from[k]), so text may be copied again.
      {"out of order: the second is searched behind the first", "b a", {"a", "b"}, {"1", "2"}, 0,
       "b 12b a"},
      {"missing entry: appended, search point falls back", "a c", {"a", "zz", "c"}, {"1", "2", "3"},
       0, "12 3"},
      {"missing entry longer than the text", "ab", {"xyz"}, {"1"}, 0, "1"},
      {"missing first entry", "abc", {"q", "c"}, {"1", "2"}, 0, "1ab2"},
      {"none of them in an empty text", "", {"a", "b"}, {"1", "2"}, 0, "12"},
      {"empty arrays leave the text", "abc", {}, {}, 0, "abc"},
      {"match at the very end", "abc", {"c"}, {"ZZ"}, 0, "abZZ"},
      {"empty entry is skipped", "ab", {"", "b"}, {"x", "2"}, 0, "a2"},
      {"case-blind keeps the rest's case", "Genr Abc", {"abc"}, {"x"}, 1, "Genr x"},
      {"case matters without the flag: not found", "Abc", {"abc"}, {"x"}, 0, "xc"},
      {"to shorter than from", "ab", {"a", "b"}, {"1"}, 0, "1"},
      {"everything replaced by nothing", "ab", {"ab"}, {""}, 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstringArray from, to;
    fill(from, c.from);
    fill(to, c.to);
    vstring s(c.text);
    s.replace_mult(from, to, c.caseBlind);
    EXPECT_EQ(bytes(s), c.want);
  }
  vstringArray from, to;
  fill(from, {"ab"});
  fill(to, {"x"});
  vstring s("AB");
  s.replace_mult(from, to, 1);
  EXPECT_EQ(bytes(from[0]), "AB") << "the entries are upper-cased in the array";
}

}  // namespace
