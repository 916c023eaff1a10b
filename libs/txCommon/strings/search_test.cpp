// Finding bytes and texts, with no host: text and byte forms, forward and
// backward, against strstr where it applies, and on hostile input.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

vstring make(const std::string& s) { return vstring(s.data(), static_cast<txlong>(s.size())); }

struct TextCase {
  const char* label;
  const char* hay;
  const char* needle;
  unsigned occurrence;
  unsigned start;
  int want;
};

TEST(Search, InstrTextForms) {
  const TextCase cases[] = {
      {"empty hay", "", "a", 1, 0, 0},
      {"empty hay, empty needle", "", "", 1, 0, 0},
      {"second match", "abcabc", "bc", 2, 0, 5},
      {"start equal to length", "abcabc", "c", 1, 6, 6},
      {"start past length", "abcabc", "c", 1, 7, 0},
      {"overlapping", "aaa", "aa", 2, 0, 2},
      {"overlapping third", "aaa", "aa", 3, 0, 0},
      {"occurrence 0 gives start - 1", "abcabc", "zz", 0, 4, 3},
      {"occurrence 0, start 0", "abc", "b", 0, 0, 0},
      {"start 1 same as 0", "abc", "a", 1, 1, 1},
      {"start skips earlier match", "abcabc", "a", 1, 2, 4},
      {"empty needle matches at start", "abc", "", 1, 2, 2},
      {"empty needle steps one byte", "abc", "", 3, 0, 3},
      {"empty needle reaches terminator", "abc", "", 4, 0, 4},
      {"empty needle stops behind terminator", "abc", "", 5, 0, 0},
      {"not found", "abc", "abd", 1, 0, 0},
      {"needle longer than hay", "ab", "abc", 1, 0, 0},
      {"high bytes", "x\xE9\x93y\xE9\x93", "\xE9\x93", 2, 0, 5},
      {"huge occurrence", "abab", "ab", 0xFFFFFFFFu, 0, 0},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.label);
    vstring hay(c.hay);
    vstring needle(c.needle);
    EXPECT_EQ(hay.instr(c.needle, c.occurrence, c.start), c.want);
    EXPECT_EQ(hay.instr(needle, c.occurrence, c.start), c.want);
    EXPECT_EQ(hay.instrsub(const_cast<char*>(c.needle), c.occurrence, c.start), c.want);
  }
}

TEST(Search, InstrStopsAtZeroByteInsideLength) {
  vstring s = make(std::string("ab\0cd", 5));
  EXPECT_EQ(s.instr("cd", 1, 0), 0);
  EXPECT_EQ(s.instr("cd", 1, 4), 4) << "a start behind the zero byte reads on from there";
  EXPECT_EQ(s.instr('c', 1, 0), 0);
}

TEST(Search, InstrNullNeedleFindsNothing) {
  vstring s("abc");
  EXPECT_EQ(s.instr(static_cast<const char*>(nullptr), 1, 0), 0);
  EXPECT_EQ(s.rinstr(static_cast<const char*>(nullptr), 1, 0), 0);
}

TEST(Search, InstrMatchesStrstrOnRandomText) {
  std::mt19937 rng(20240611);
  std::uniform_int_distribution<int> byte('a', 'c');
  std::uniform_int_distribution<int> size(0, 12);
  for (int round = 0; round < 3000; ++round) {
    std::string hay, needle;
    for (int i = size(rng); i > 0; --i) hay += static_cast<char>(byte(rng));
    for (int i = size(rng) / 4 + 1; i > 0; --i) needle += static_cast<char>(byte(rng));
    SCOPED_TRACE(hay + " / " + needle);
    vstring s(hay.c_str());
    // Oracle: every match by strstr, each further search one byte behind.
    std::vector<int> matches;
    for (const char* p = std::strstr(hay.c_str(), needle.c_str()); p != nullptr;
         p = std::strstr(p + 1, needle.c_str())) {
      matches.push_back(static_cast<int>(p - hay.c_str()) + 1);
    }
    // A limit keeps only the matches that start at or before it.
    const unsigned limit = static_cast<unsigned>(size(rng));
    std::vector<int> upTo;
    for (int m : matches) {
      if (limit == 0 ? m <= static_cast<int>(hay.size()) : m <= static_cast<int>(limit)) upTo.push_back(m);
    }
    for (unsigned k = 1; k <= upTo.size() + 1; ++k) {
      const int want = k <= upTo.size() ? upTo[upTo.size() - k] : 0;
      ASSERT_EQ(s.rinstr(needle.c_str(), k, limit), want) << "limit " << limit << " occurrence " << k;
    }
    // Occurrence 0 names forward match number count + 1: the next one behind the limit.
    const int behind = upTo.size() < matches.size() ? matches[upTo.size()] : 0;
    ASSERT_EQ(s.rinstr(needle.c_str(), 0, limit), behind) << "limit " << limit << " occurrence 0";
    for (unsigned k = 1; k <= matches.size() + 1; ++k) {
      const int want = k <= matches.size() ? matches[k - 1] : 0;
      ASSERT_EQ(s.instr(needle.c_str(), k, 0), want) << "occurrence " << k;
      const int back = k <= matches.size() ? matches[matches.size() - k] : 0;
      ASSERT_EQ(s.rinstr(needle.c_str(), k, 0), back) << "occurrence " << k;
    }
  }
}

struct ByteCase {
  const char* label;
  const char* hay;
  char c;
  unsigned occurrence;
  unsigned start;
  int want;
};

TEST(Search, InstrByteForm) {
  const ByteCase cases[] = {
      {"start equal to length gives 0", "abcabc", 'c', 1, 6, 0},
      {"start below length", "abcabc", 'c', 1, 5, 6},
      {"start 0 is whole text", "abcabc", 'a', 1, 0, 1},
      {"start 1", "abcabc", 'a', 1, 1, 1},
      {"start counts inclusive", "abcabc", 'b', 1, 2, 2},
      {"second occurrence", "abcabc", 'b', 2, 0, 5},
      {"occurrence past last", "abcabc", 'b', 3, 0, 0},
      {"occurrence 0", "abcabc", 'b', 0, 3, 2},
      {"one-byte text, start 0", "c", 'c', 1, 0, 1},
      {"empty", "", 'a', 1, 0, 0},
      {"zero byte never found", "abc", '\0', 1, 0, 0},
      {"high byte", "a\x93" "b\x93", '\x93', 2, 0, 4},
  };
  for (const ByteCase& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(vstring(c.hay).instr(c.c, c.occurrence, c.start), c.want);
  }
}

TEST(Search, RinstrTextForms) {
  const TextCase cases[] = {
      {"second match behind limit", "abab", "ab", 1, 2, 1},
      {"last match", "abab", "ab", 1, 0, 3},
      {"counted from the back", "abab", "ab", 2, 0, 1},
      {"too many", "abab", "ab", 3, 0, 0},
      {"limit equal to match start", "abab", "ab", 1, 3, 3},
      {"limit beyond length", "abab", "ab", 1, 99, 3},
      {"occurrence 0: no match behind the length", "abab", "ab", 0, 0, 0},
      {"occurrence 0: the first match behind limit", "abab", "ab", 0, 2, 3},
      {"occurrence 0: none behind limit", "abab", "ab", 0, 3, 0},
      {"occurrence 0: none up to limit either", "xxab", "ab", 0, 1, 3},
      {"occurrence 0, empty needle: the terminator", "abc", "", 0, 0, 4},
      {"occurrence 0, limit far beyond", "abab", "ab", 0, 99, 0},
      {"overlapping", "aaaa", "aa", 1, 0, 3},
      {"empty hay", "", "", 1, 0, 0},
      {"empty needle: last position within limit", "abc", "", 1, 0, 3},
      {"empty needle past length", "abc", "", 1, 9, 4},
      {"not found", "abc", "x", 1, 0, 0},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.label);
    vstring hay(c.hay);
    vstring needle(c.needle);
    EXPECT_EQ(hay.rinstr(c.needle, c.occurrence, c.start), c.want);
    EXPECT_EQ(hay.rinstr(needle, c.occurrence, c.start), c.want);
    EXPECT_EQ(hay.rinstrsub(const_cast<char*>(c.needle), c.occurrence, c.start), c.want);
  }
}

TEST(Search, RinstrByteForms) {
  const ByteCase cases[] = {
      {"position 1 is seen with a count", "abc", 'a', 1, 0, 1},
      {"from the last byte", "abcabc", 'a', 1, 0, 4},
      {"second from the back", "abcabc", 'a', 2, 0, 1},
      {"limit inclusive", "abcabc", 'b', 1, 5, 5},
      {"limit below", "abcabc", 'b', 1, 4, 2},
      {"limit at length", "abcabc", 'c', 1, 6, 6},
      {"limit past length", "abcabc", 'c', 1, 60, 6},
      {"occurrence 0: start + 1", "abcabc", 'c', 0, 3, 4},
      {"occurrence 0, limit 0", "abc", 'c', 0, 0, 4},
      {"too many", "abc", 'c', 2, 0, 0},
      {"empty", "", 'a', 1, 0, 0},
  };
  for (const ByteCase& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(vstring(c.hay).rinstr(c.c, c.occurrence, c.start), c.want);
  }
  // The counted form reads the length, zero bytes included.
  EXPECT_EQ(make(std::string("a\0b", 3)).rinstr('a', 1, 0), 1);
  EXPECT_EQ(make(std::string("a\0b", 3)).rinstr('\0', 1, 0), 2);
}

TEST(Search, FirstAndLastByte) {
  struct Case {
    const char* hay;
    char c;
    int first;
    int last;
  } cases[] = {
      {"abc", 'a', 1, 0},  // a byte at position 1 is not seen from the back
      {"abca", 'a', 1, 4},
      {"abcb", 'b', 2, 4},
      {"abc", 'x', 0, 0},
      {"", 'a', 0, 0},
      {"abc", '\0', 0, 0},
      {"\xFF" "a\xFF", '\xFF', 1, 3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.hay);
    vstring s(c.hay);
    EXPECT_EQ(s.instr(c.c), c.first);
    EXPECT_EQ(s.inchar(static_cast<unsigned char>(c.c)), c.first);
    EXPECT_EQ(s.rinstr(c.c), c.last);
    EXPECT_EQ(s.rinchar(static_cast<unsigned char>(c.c)), c.last);
  }
}

TEST(Search, IncharnqWithoutHost) {
  struct Case {
    const char* hay;
    int c;
    int want;
  } cases[] = {
      {"\"a=b\"=c", '=', 6},
      {"\"a=b\"=c", '"', 1},  // compared before the toggle
      {"a=\"b", '=', 2},
      {"\"a=b", '=', 0},  // an open quote runs to the end
      {"\"\"=", '=', 3},
      // Without a host the curly quotes are ordinary bytes.
      {"\x93" "a=b\x94", '=', 3},
      {"", '=', 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.hay);
    EXPECT_EQ(vstring(c.hay).incharnq(c.c), c.want);
  }
}

TEST(Search, CharCountAndMatchingStartChars) {
  vstring s("a,b,,c");
  EXPECT_EQ(s.CharCount(','), 3);
  EXPECT_EQ(s.CharCount('x'), 0);
  EXPECT_EQ(vstring().CharCount('a'), 0);
  struct Case {
    const char* a;
    const char* b;
    int want;
  } cases[] = {
      {"abc", "abd", 2}, {"abc", "abc", 4}, {"abc", "abcd", 3}, {"abcd", "abc", 3},
      {"", "abc", 0},    {"abc", "", 0},    {"x", "y", 0},      {"\xE9", "\xE9", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.a) + " / " + c.b);
    vstring a(c.a);
    EXPECT_EQ(a.MatchingStartChars(vstring(c.b)), c.want);
  }
  // Zero bytes inside the length never lead the scan past the other block.
  vstring inner = make(std::string("ab\0cd", 5));
  EXPECT_EQ(inner.MatchingStartChars(vstring("ab")), 3);
}

TEST(Search, HugeText) {
  // Far beyond the scratch buffer: the searches have no size limit of their own.
  std::string big(300000, 'a');
  big += "needle";
  vstring s(big.c_str());
  EXPECT_EQ(s.instr("needle", 1, 0), 300001);
  EXPECT_EQ(s.rinstr("needle", 1, 0), 300001);
  EXPECT_EQ(s.instr('n', 1, 0), 300001);
  EXPECT_EQ(s.rinstr('a'), 300000);
  EXPECT_EQ(s.incharnq('e'), 300002);
  EXPECT_EQ(s.instr("aa", 2, 299999), 0);
  EXPECT_EQ(s.MatchingStartChars(vstring(big.c_str())), 300007);
}

}  // namespace
