// Wildcard patterns with no host: the matcher against fnmatch, the
// compatibility test, the translation, rewrites, and the three list
// operations, with hostile patterns and texts.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <fnmatch.h>

#include <cstring>
#include <random>
#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

bool match(const std::string& text, const std::string& pattern) {
  return wildcardMatch(text.data(), static_cast<int>(text.size()), pattern.data(),
                       static_cast<int>(pattern.size()));
}

bool compatible(const std::string& a, const std::string& b) {
  return wildcardsCompatible(a.data(), static_cast<int>(a.size()), b.data(),
                             static_cast<int>(b.size()));
}

// The rewrite into a roomy buffer; "<fail>" when it gives false.
std::string rewrite(const std::string& text, const std::string& source,
                    const std::string& destination, bool ignoreCase = false,
                    bool checkPatterns = true, bool firstOnly = false) {
  std::string out(4096, '\x7f');
  int n = -5;
  if (!wildcardReplace(out.data(), &n, text.data(), static_cast<int>(text.size()), source.data(),
                       static_cast<int>(source.size()), destination.data(),
                       static_cast<int>(destination.size()), ignoreCase, checkPatterns, firstOnly,
                       static_cast<int>(out.size()))) {
    return "<fail>";
  }
  EXPECT_EQ(out[static_cast<std::size_t>(n)], '\0');
  return out.substr(0, static_cast<std::size_t>(n));
}

TEST(Wildcard, HasWildCard) {
  struct Case {
    const char* text;
    int also;
    int want;
  } const cases[] = {
      {"a?b", 0, 0}, {"a?b", 1, 1}, {"a*", 0, 1}, {"", 0, 0}, {"", 1, 0},
      {"\"*\"", 0, 1}, {"abc", 1, 0}, {"?", 7, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " also " + std::to_string(c.also));
    EXPECT_EQ(vstring(c.text).hasWildCard(c.also), c.want);
  }
  EXPECT_EQ(vstring().hasWildCard(1), 0);
}

TEST(Wildcard, MatchTable) {
  struct Case {
    const char* text;
    const char* pattern;
    bool want;
  } const cases[] = {
      {"abc", "a*c", true},   {"abc", "*", true},     {"abc", "***", true},
      {"abc", "a?c", true},   {"abc", "abc*", true},  {"abc", "*abc", true},
      {"abc", "ab", false},   {"abc", "a?", false},   {"abc", "ABC", false},
      {"abc", "?", false},    {"", "*", true},        {"", "", true},
      {"", "?", false},       {"aXbXc", "a*b*c", true}, {"abab", "*ab", true},
      {"ab", "*ab*ab", false}, {"aab", "*a*b", true}, {"abc", "abcd", false},
      {"a", "a*", true},      {"ba", "*a*a", false},  {"aa", "*a*a", true},
      {"\xe9t\xe9", "?t?", true}, {"a*b", "a*b", true}, {"a?b", "a*", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " ~ " + c.pattern);
    EXPECT_EQ(match(c.text, c.pattern), c.want);
  }
}

TEST(Wildcard, MatchReadsOnlyTheGivenLengths) {
  // No terminator is needed, and bytes past the length are never read.
  const char text[] = {'a', 'b', 'X'};
  const char pattern[] = {'a', '*', 'Y'};
  EXPECT_TRUE(wildcardMatch(text, 2, pattern, 2));
  EXPECT_FALSE(wildcardMatch(text, 3, pattern, 3));
  EXPECT_TRUE(wildcardMatch(nullptr, 0, "*", 1));
  EXPECT_TRUE(wildcardMatch("abc", -4, "", 0));
  EXPECT_FALSE(wildcardMatch(nullptr, 0, "?", 1));
}

// fnmatch with FNM_NOESCAPE and no other flag follows the same rule on
// patterns of literals, `*` and `?`: an independent oracle.
TEST(Wildcard, MatchAgreesWithFnmatch) {
  std::mt19937 gen(20261123);
  const char textBytes[] = "ab\xe9";
  const char patternBytes[] = "ab\xe9*?";
  for (int i = 0; i < 200000; ++i) {
    std::string text, pattern;
    for (int k = std::uniform_int_distribution<int>(0, 8)(gen); k > 0; --k)
      text += textBytes[std::uniform_int_distribution<int>(0, 2)(gen)];
    for (int k = std::uniform_int_distribution<int>(0, 7)(gen); k > 0; --k)
      pattern += patternBytes[std::uniform_int_distribution<int>(0, 4)(gen)];
    const bool oracle = fnmatch(pattern.c_str(), text.c_str(), FNM_NOESCAPE) == 0;
    if (match(text, pattern) != oracle) {
      ADD_FAILURE() << "text [" << text << "] pattern [" << pattern << "] fnmatch " << oracle;
      break;
    }
  }
}

TEST(Wildcard, MatchHostile) {
  const std::string big(4 << 20, 'a');
  EXPECT_TRUE(match(big, "*"));
  EXPECT_TRUE(match(big, "a*a"));
  EXPECT_FALSE(match(big, "*b"));
  EXPECT_FALSE(match(big, "*b*a"));
  // Many stars against a long text stay linear per segment: no blow-up.
  std::string stars;
  for (int i = 0; i < 1000; ++i) stars += "*a";
  EXPECT_TRUE(match(big, stars));
  EXPECT_FALSE(match(big, stars + "b"));
  EXPECT_TRUE(match(big, std::string(1 << 20, '*')));
  EXPECT_FALSE(match("[a", "[a]"));
  EXPECT_TRUE(match("[a", "[?"));
}

TEST(Wildcard, Compatible) {
  struct Case {
    const char* first;
    const char* second;
    bool want;
  } const cases[] = {
      {"a*", "b*", true},     {"a*", "b", false},    {"**", "**", false},
      {"*?*", "*?*", false},  {"*a*", "*b*", true},  {"?b", "?c", true},
      {"*", "x*", true},      {"*", "*x*", false},   {"*", "x?", false},
      {"*", "?*", false},     {"a*b?", "*x?", true}, {"a?b*", "*x?", false},
      {"", "", true},         {"", "a", true},       {"", "*", false},
      {"abc", "xyz", true},   {"*", "", false},      {"?", "*", false},
      {"*a*", "**", true},    {"a", "a?", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.first) + " / " + c.second);
    EXPECT_EQ(compatible(c.first, c.second), c.want);
  }
}

TEST(Wildcard, TranslationTable) {
  struct Case {
    const char* pattern;
    bool forTemplate;
    bool keepLeading;
    bool keepTrailing;
    const char* want;
  } const cases[] = {
      {"*", false, false, false, "^(.*)$"},
      {"*", true, false, false, "$01"},
      {"*", false, true, true, "^(.*)$"},
      {"a*b", false, true, true, "^a(.*?)b$"},
      {"a*b", true, true, true, "a$01b"},
      {"*a", false, false, false, "a$"},
      {"*a", false, true, false, "^(.*?)a$"},
      {"a*", false, true, false, "^a"},
      {"a*", false, true, true, "^a(.*?)$"},
      {"*a*", false, false, false, "a"},
      {"?b", false, false, false, "^(.)b$"},
      {"?b", true, false, false, "$01b"},
      {"a*c*", false, true, false, "^a(.*?)c"},
      {"x*y*", true, true, false, "x$01y"},
      {"", false, false, false, "$"},
      {"", false, true, false, "^$"},
      {"", true, true, true, ""},
      {"**", false, false, false, ""},
      {"**", true, true, true, "$01$02"},
      {"$()+.[\\]^{|}", false, false, false, "^\\$\\(\\)\\+\\.\\[\\\\\\]\\^\\{\\|\\}$"},
      {"a$b-/&", true, false, false, "a$$b-/&"},
      {"\xe9?", false, false, false, "^\xe9(.)$"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.pattern) + (c.forTemplate ? " template" : " regex"));
    EXPECT_EQ(str(wildcardToRegex(vstring(c.pattern), c.forTemplate, c.keepLeading, c.keepTrailing)),
              c.want);
  }
}

TEST(Wildcard, TemplateStopsAtTheHundredthWildcard) {
  std::string pattern;
  for (int i = 0; i < 99; ++i) pattern += "?x";
  const std::string ok = str(wildcardToRegex(text_of(pattern), true, true, true));
  EXPECT_EQ(ok.substr(ok.size() - 4), "$99x");
  EXPECT_EQ(str(wildcardToRegex(text_of(pattern + "?"), true, true, true)), "");
  // A regular expression has no such bound.
  EXPECT_EQ(str(wildcardToRegex(text_of(pattern + "?"), false, true, true)).size(),
            1 + 100 * 3 + 99 + 1);
}

TEST(Wildcard, WorkedRewrites) {
  struct Case {
    const char* source;
    const char* destination;
    const char* text;
    const char* want;
  } const cases[] = {
      {"*", "x*", "abc", "xabc"},   {"*", "*x", "abc", "abcx"},   {"a*", "b*", "abc", "bbc"},
      {"*a", "*b", "xa", "xb"},     {"*a*", "*b*", "xaya", "xbyb"}, {"a*b", "x*y", "a12b", "x12y"},
      {"*a", "b*", "xa", "bx"},     {"a*", "*b", "a1", "1b"},     {"?b", "?c", "ab", "ac"},
      {"a*c*", "x*y*", "a1c2", "x1y2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.source) + " -> " + c.destination + " on " + c.text);
    EXPECT_EQ(rewrite(c.text, c.source, c.destination), c.want);
  }
}

TEST(Wildcard, RewriteOptions) {
  EXPECT_EQ(rewrite("xaya", "*a*", "*b*", false, true, true), "xbya");
  EXPECT_EQ(rewrite("XAYA", "*a*", "*b*", true), "XbYb");
  EXPECT_EQ(rewrite("XAYA", "*a*", "*b*", false), "XAYA");  // no match: copied
  // Literal dollars: one in the destination comes out as one, one in the
  // source matches a dollar.
  EXPECT_EQ(rewrite("a$1", "a$*", "$b*", false), "$b1");
  EXPECT_EQ(rewrite("a1", "a*", "b*$01", false), "b1$01");
  // A digit behind a wildcard never joins the group number.
  EXPECT_EQ(rewrite("ab", "?b", "?1", false), "a1");
  // Refused patterns, and the text that is the source itself.
  EXPECT_EQ(rewrite("a1", "a*", "b"), "<fail>");
  // Unchecked, the whole anchored match goes to the wildcard-free template.
  EXPECT_EQ(rewrite("a1", "a*", "b", false, false), "b");
  EXPECT_EQ(rewrite("a*", "a*", "x?"), "<fail>");
  EXPECT_EQ(rewrite("a?", "a?", "x*"), "xa?");
  EXPECT_EQ(rewrite("x", "*", "*x*"), "<fail>");
  EXPECT_EQ(rewrite("x", "*", "?x"), "<fail>");
  // Regex metacharacters in words and patterns are plain bytes.
  EXPECT_EQ(rewrite("a.(b)[c]", "a.(*)[c]", "*{x}", false), "b{x}");
  EXPECT_EQ(rewrite("a+b", "*+*", "*|*"), "a|b");
  EXPECT_EQ(rewrite("\xe9t\xe9", "?t?", "?-?"), "\xe9-\xe9");
}

TEST(Wildcard, RewriteKeepsInsideItsBuffer) {
  // A replacement of every match may outgrow the text by far.
  const std::string text(100, 'a');
  char out[64];
  std::memset(out, 0x55, sizeof out);
  int n = -1;
  EXPECT_FALSE(wildcardReplace(out, &n, text.data(), 100, "*a*", 3, "*bb*", 4, false, true, false,
                               50));
  EXPECT_EQ(n, 0);
  EXPECT_EQ(out[0], '\0');
  EXPECT_EQ(static_cast<unsigned char>(out[50]), 0x55);
  EXPECT_TRUE(wildcardReplace(out, &n, "ab", 2, "a*", 2, "x*", 2, false, true, false, 3));
  EXPECT_EQ(std::string(out, 3), std::string("xb\0", 3));
  EXPECT_FALSE(wildcardReplace(out, &n, "ab", 2, "a*", 2, "xy*", 3, false, true, false, 3));
  EXPECT_FALSE(wildcardReplace(nullptr, &n, "ab", 2, "a*", 2, "x*", 2, false, true, false, 3));
}

TEST(Wildcard, RewriteHostile) {
  // Texts and patterns beyond the facility's safe size fail cleanly.
  const std::string big(3 << 20, 'a');
  EXPECT_EQ(rewrite(big, "*", "x*"), "<fail>");
  EXPECT_EQ(rewrite("a", std::string(1 << 20, '?'), std::string(1 << 20, '?')), "<fail>");
  const std::string limit(txc::kWildcardRegexLimit, 'a');
  EXPECT_EQ(rewrite(limit, "a*", "*", false, true, true).size(), limit.size() - 1);
  // A search that would backtrack for minutes is refused; the same rewrite
  // on a short name goes through.
  std::string slow = "aab" + std::string(2045, 'a');
  EXPECT_EQ(rewrite(slow, "*a*a*b*", "*x*x*y*"), "<fail>");
  EXPECT_EQ(rewrite("aabaaa", "*a*a*b*", "*x*x*y*"), "xxyaaa");
  std::string name = "a_b_c_d_e_f_" + std::string(19, 'g');
  EXPECT_EQ(rewrite(name, "*_*_*_*_*_*", "*.*.*.*.*.*"), "a.b.c.d.e.f_" + std::string(19, 'g'));
  // Many wildcards: the regex takes them, the template stops at 99 and its
  // matches are replaced by nothing.
  std::string many;
  for (int i = 0; i < 150; ++i) many += "?";
  EXPECT_EQ(rewrite(std::string(150, 'q'), many, many), "");
  // Empty everything, and unbalanced regex syntax as plain bytes.
  EXPECT_EQ(rewrite("", "", ""), "");
  EXPECT_EQ(rewrite("", "*", "*"), "");
  EXPECT_EQ(rewrite("((", "((*", "*))"), "))");
  EXPECT_EQ(rewrite("a\nb", "*", "x*"), "a\nb");  // `.` stops at a line end
  EXPECT_EQ(rewrite("a\nb", "a*", "x*"), "x\nb");  // open at the end: no `.`
  std::string zeros("a\0b", 3);
  EXPECT_EQ(rewrite(zeros, "a*", "x*"), std::string("x\0b", 3));
}

TEST(WildcardLists, KeepAndDrop) {
  struct Case {
    const char* list;
    const char* patterns;
    const char* keep;
    const char* drop;
  } const cases[] = {
      {"x1 y1 x2", "x*", "x1 x2", "y1"},
      {"x1 y1 x2", "x* y1", "x1 y1 x2", ""},
      {"a a", "a *", "a a", ""},
      {"\"a b\" c", "a*", "\"a b\"", "c"},
      {"  a\t b\n", "", "", "a b"},
      {"", "*", "", ""},
      {"\"abc", "*", "\"\"abc\"", ""},
      {"\"\" x", "\"\"", "\"\"", "x"},
      {"f(a b) g", "f(*", "f(a b)", "g"},
      {"ABC abc", "a*", "abc", "ABC"},
      {"\x93" "a b\x94 c", "*b*", "b\x94", "\x93" "a c"},  // no host: plain bytes
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.list) + " | " + c.patterns);
    EXPECT_EQ(str(vstring(c.list).WKeep(vstring(c.patterns))), c.keep);
    EXPECT_EQ(str(vstring(c.list).WDrop(vstring(c.patterns))), c.drop);
  }
}

TEST(WildcardLists, Replace) {
  struct Case {
    const char* list;
    const char* source;
    const char* destination;
    bool firstOnly;
    const char* want;
  } const cases[] = {
      {"a1 c1", "a*", "b*", false, "b1 c1"},
      {"xaya", "*a*", "*b*", false, "xbyb"},
      {"xaya", "*a*", "*b*", true, "xbya"},
      {"a1 b", "a*", "x y*", false, "\"x y1\" b"},
      {" a1  b ", "a*", "b", false, " a1  b "},
      {"a1 b", "**", "**", false, "a1 b"},
      {"\"a1\" \"b c\"", "a*", "z*", false, "\"z1\" \"b c\""},
      {"\"a 1\" \"ab\"", "a *", "z *", false, "\"z 1\" ab"},  // quotes only where a blank is
      {"\"ab\" \"a1\"", "a?", "z?", false, "\"zb\" \"z1\""},
      {"\"a\tb\" x", "a*", "z*", false, "\"z\tb\" x"},
      {"A1 a1", "a*", "b*", false, "A1 b1"},
      {"a$ b", "a$", "c$", false, "c$ b"},
      {"", "a*", "b*", false, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.list) + " | " + c.source + " -> " + c.destination);
    EXPECT_EQ(str(vstring(c.list).WReplace(vstring(c.source), vstring(c.destination), c.firstOnly)),
              c.want);
  }
}

TEST(WildcardLists, ReplaceSizeTestWithoutHost) {
  // Word plus destination reaching 8192 bytes: the word stays.
  std::string list(8190, 'x');
  list[0] = 'a';
  list.append(" a1");
  std::string want = list;
  want.back() = '1';
  want[want.size() - 2] = 'b';
  EXPECT_EQ(str(text_of(list).WReplace(vstring("a*"), vstring("b*"), false)), want);
  // A word that passes the size test but is too long for the regular
  // expression facility fails the rewrite: the text comes back whole.
  std::string mid(3001, 'x');
  mid[0] = 'a';
  mid.append("  a1");
  EXPECT_EQ(str(text_of(mid).WReplace(vstring("a*"), vstring("b*"), false)), mid);
}

TEST(WildcardLists, Hostile) {
  std::string big;
  for (int i = 0; i < 200000; ++i) big += (i % 3 == 0) ? "x1 " : "y\xe9 ";
  const vstring list = text_of(big);
  EXPECT_EQ(vstring(list.WKeep(vstring("x*"))).WCount(), 66667);
  EXPECT_EQ(vstring(list.WDrop(vstring("x*"))).WCount(), 133333);
  EXPECT_EQ(vstring(list.WReplace(vstring("x*"), vstring("z*"), false)).WCount(), 200000);
  const char* odd[] = {"\"", "((", "))", "\"a b", "(a \"b", "\xff\xfe *", "[a-z] {x}"};
  for (const char* t : odd) {
    SCOPED_TRACE(t);
    EXPECT_EQ(str(vstring(t).WKeep(vstring("*"))).empty(), false);
    vstring(t).WDrop(vstring(t));
    vstring(t).WReplace(vstring("*"), vstring("[*"), false);
    vstring(t).WReplace(vstring(t), vstring(t), true);
  }
}

}  // namespace
