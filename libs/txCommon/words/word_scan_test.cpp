// The word step with no host: what a word is, where the next scan starts,
// the quote report and stripping, and hostile text.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

struct Scanned {
  std::vector<std::string> words;
  std::vector<bool> quoted;
};

// Every word of `text` by nextWord, checking on the way that the cursor
// stands right behind each word and never moves backwards.
Scanned scan(const char* text, bool strip = false) {
  Scanned out;
  const char* cursor = text;
  const char* start = nullptr;
  int length = -1;
  bool quoted = false;
  while (nextWord(cursor, start, length, strip, &quoted)) {
    EXPECT_GE(length, 0);
    if (!strip) {
      EXPECT_EQ(cursor, start + length);
    }
    out.words.emplace_back(start, static_cast<std::size_t>(length));
    out.quoted.push_back(quoted);
  }
  EXPECT_EQ(length, 0) << "the end is a word of length 0";
  EXPECT_EQ(*cursor, '\0');
  return out;
}

using Words = std::vector<std::string>;

TEST(WordScan, WhatAWordIs) {
  struct Case {
    const char* text;
    Words want;
  } const cases[] = {
      {"", {}},
      {" \t\n\r \x01\x1f ", {}},
      {"a", {"a"}},
      {"  a   b  ", {"a", "b"}},
      {"a\tb\nc\rd\x01" "e", {"a", "b", "c", "d", "e"}},
      {"a,b c", {"a,b", "c"}},
      {"[a b]", {"[a", "b]"}},
      {"{a 'b}", {"{a", "'b}"}},
      {"(a b)", {"(a b)"}},
      {"(a b)c", {"(a b)", "c"}},
      {"(a b)+(c d)", {"(a b)+(c d)"}},
      {"(a b)(c d)", {"(a b)", "(c d)"}},
      {"f(a b)", {"f(a b)"}},
      {"f(a b),c", {"f(a b)", ",c"}},
      {"\"a b\"c", {"\"a b\"c"}},
      {"a\"b c\"d", {"a\"b c\"d"}},
      {")a b", {")a", "b"}},
      {"a) b", {"a)", "b"}},
      {"(a b))c d", {"(a b)", ")c", "d"}},
      {"((a b) c) d", {"((a b) c)", "d"}},
      {"((a b)c) d", {"((a b)c)", "d"}},
      {"(a \"b) c\" d) e", {"(a \"b) c\" d)", "e"}},
      {"\"(\" x", {"\"(\"", "x"}},
      {"(a) b", {"(a)", "b"}},
      {"(a)\"b c\"", {"(a)", "\"b c\""}},
      {"x\xE9y \x80\xFF", {"x\xE9y", "\x80\xFF"}},
      // Without a host the curly quotes are word bytes.
      {"\x93" "a b\x94", {"\x93" "a", "b\x94"}},
      // Unclosed: the rest of the text, blanks included, is the word.
      {"\"a b", {"\"a b"}},
      {"(a b", {"(a b"}},
      {"x (a b  ", {"x", "(a b  "}},
      {"x \"a\" \"b  ", {"x", "\"a\"", "\"b  "}},
      {"((a b) c d", {"((a b) c d"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(scan(c.text).words, c.want);
  }
}

TEST(WordScan, EveryContinuationByteCarriesTheWordOn) {
  for (char c : std::string("*+-./<=>^")) {
    SCOPED_TRACE(c);
    const std::string text = std::string("(a b)") + c + "x y";
    EXPECT_EQ(scan(text.c_str()).words, (Words{std::string("(a b)") + c + "x", "y"}));
  }
  // Any other byte, an open parenthesis or a quote included, ends the word.
  for (char c : std::string(",;:!?'[]{}&|%$#@~`(\"a0\xE9")) {
    SCOPED_TRACE(static_cast<int>(static_cast<unsigned char>(c)));
    const std::string text = std::string("(a)") + c;
    const Scanned s = scan(text.c_str());
    ASSERT_GE(s.words.size(), 1u);
    EXPECT_EQ(s.words[0], "(a)");
  }
}

TEST(WordScan, QuoteReportAndStripping) {
  struct Case {
    const char* text;
    const char* stripped;  // the one word, stripped
    bool quoted;
  } const cases[] = {
      {"\"a b\"", "a b", true},
      {"\"\"", "", true},                  // found, and empty after stripping
      {"\"", "\"", true},                  // one byte: nothing to strip
      {"\"a\"\"b\"", "a\"\"b", true},      // one pair only, doubled stay
      {"\"ab", "\"ab", true},              // unclosed: last byte is no quote
      {"\"a\"x", "\"a\"x", true},
      {"a\"", "a\"", false},               // not quoted: nothing stripped
      {"(\"a\")", "(\"a\")", false},
      {"\x93" "a\x94", "\x93" "a\x94", false},  // no host: ordinary bytes
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const Scanned s = scan(c.text, true);
    ASSERT_EQ(s.words.size(), 1u);
    EXPECT_EQ(s.words[0], c.stripped);
    EXPECT_EQ(s.quoted[0], c.quoted);
    // Asking for the report alone never strips.
    const Scanned plain = scan(c.text, false);
    EXPECT_EQ(plain.words[0], c.text);
    EXPECT_EQ(plain.quoted[0], c.quoted);
  }
  // Stripping moves the reported start but not the cursor.
  const char* text = "\"a b\" c";
  const char* cursor = text;
  const char* start = nullptr;
  int length = 0;
  ASSERT_EQ(nextWord(cursor, start, length, true), 1);
  EXPECT_EQ(start, text + 1);
  EXPECT_EQ(length, 3);
  EXPECT_EQ(cursor, text + 5);
}

TEST(WordScan, NullCursorReadsAsEmpty) {
  const char* cursor = nullptr;
  const char* start = nullptr;
  int length = 7;
  bool quoted = true;
  EXPECT_EQ(nextWord(cursor, start, length, true, &quoted), 0);
  EXPECT_EQ(length, 0);
  EXPECT_FALSE(quoted);
  ASSERT_NE(cursor, nullptr);
  EXPECT_EQ(*cursor, '\0');
}

// A second statement of the rule, written as an index walk over the whole
// text at once, for a differential check on random texts.
Words reference_split(const std::string& t) {
  Words out;
  std::size_t i = 0;
  const auto sep = [](unsigned char c) { return c >= 1 && c <= 32; };
  while (true) {
    while (i < t.size() && sep(static_cast<unsigned char>(t[i]))) ++i;
    if (i >= t.size()) return out;
    const std::size_t from = i;
    bool q = false;
    int depth = 0;
    for (; i < t.size(); ++i) {
      const char c = t[i];
      if (sep(static_cast<unsigned char>(c)) && depth == 0 && !q) break;
      if (c == '"') q = !q;
      else if (!q && c == '(') ++depth;
      else if (!q && c == ')' && depth > 1) --depth;
      else if (!q && c == ')' && depth == 1) {
        depth = 0;
        const char next = i + 1 < t.size() ? t[i + 1] : '\0';
        if (next == '\0' || std::string("*+-./<=>^").find(next) == std::string::npos) {
          ++i;
          break;
        }
      }
    }
    out.push_back(t.substr(from, i - from));
  }
}

TEST(WordScan, AgreesWithAnIndependentWalkOnRandomTexts) {
  const std::string alphabet = std::string("ab (())\"\"+,\t\n\x93\xE9.");
  std::mt19937 gen(20261123);
  std::uniform_int_distribution<std::size_t> pick(0, alphabet.size() - 1);
  std::uniform_int_distribution<int> size(0, 40);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (int n = size(gen); n > 0; --n) text += alphabet[pick(gen)];
    SCOPED_TRACE(text);
    ASSERT_EQ(scan(text.c_str()).words, reference_split(text));
  }
}

TEST(WordScan, HostileTexts) {
  const std::size_t mb = 1 << 20;
  // Unclosed parentheses and quotes swallow a megabyte, blanks and all.
  for (char open : {'(', '"'}) {
    std::string text(1, open);
    text += std::string(mb, ' ');
    text += std::string(mb, 'x');
    const Scanned s = scan(text.c_str());
    ASSERT_EQ(s.words.size(), 1u);
    EXPECT_EQ(s.words[0].size(), text.size());
  }
  // A megabyte of closing parentheses is one word; of blanks, none.
  EXPECT_EQ(scan(std::string(mb, ')').c_str()).words.size(), 1u);
  EXPECT_TRUE(scan(std::string(mb, '\t').c_str()).words.empty());
  // Deep nesting closes back to depth 0 and then ends at the blank.
  const std::string deep = std::string(mb, '(') + std::string(mb, ')') + " z";
  EXPECT_EQ(scan(deep.c_str()).words, (Words{deep.substr(0, 2 * mb), "z"}));
  // Every high byte is a word byte.
  std::string high;
  for (int b = 0x80; b <= 0xFF; ++b) high += static_cast<char>(b);
  EXPECT_EQ(scan(high.c_str()).words, Words{high});
}

}  // namespace
