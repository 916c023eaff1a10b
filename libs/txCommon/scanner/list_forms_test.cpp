// List forms and wildcard expansion with no host: round trips, the byte
// rules of the way back, expansion patterns, cuts to 128 bytes, hostile text.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }
vstring text_of(const std::string& t) { return vstring(t.data(), static_cast<txlong>(t.size())); }

std::string into(const std::string& text) {
  command c(text_of(text));
  c.SetOffset(3);
  c.TranslateIntoListForm();
  EXPECT_EQ(c.GetOffset(), 0);
  return str(c);
}

std::string from(const std::string& text) {
  command c(text_of(text));
  c.SetOffset(2);
  c.TranslateFromListForm();
  EXPECT_EQ(c.GetOffset(), 0);
  return str(c);
}

std::string expand(const std::string& list, const std::string& pattern) {
  command c(text_of(list));
  vstring p = text_of(pattern);
  return str(c.ExpandListWithWildcards(p));
}

TEST(ListForms, IntoListForm) {
  struct Case {
    const char* text;
    const char* want;
  } const cases[] = {
      {"a b c", "{a, b, c}"},
      {"a \"b c\" f(x, y)", "{a, \"b c\", f(x, y)}"},
      {"", "{}"},
      {" \t\n ", "{}"},
      {"a", "{a}"},
      {"f(x)y", "{f(x), y}"},
      {"(a b", "{(a b}"},
      {"a,b", "{a,b}"},
      {"\xe9t\xe9 x", "{\xe9t\xe9, x}"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(into(c.text), c.want);
  }
}

TEST(ListForms, FromListForm) {
  struct Case {
    const char* text;
    const char* want;
  } const cases[] = {
      {"{a, b, c}", "a b c"}, {"a,b", "a b"},  {"{ a b }", "ab"}, {"{a}", "a"},
      {"{a}b}", "a}b"},       {"{", "{"},      {"}", "}"},        {"{}", ""},
      {"", ""},               {"{,}", " "},    {"\"a, b\"", "\"a b\""},
      {"{\xe9,\x01\xff}", "\xe9 \xff"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(from(c.text), c.want);
  }
}

TEST(ListForms, RoundTrip) {
  for (const char* text : {"a", "a b c", "x1 y_2 z.3"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(from(into(text)), text);
  }
}

TEST(ListForms, Expand) {
  struct Case {
    const char* list;
    const char* pattern;
    const char* want;
  } const cases[] = {
      {"a b", "x*", "XA XB"},
      {"a b", "*_y", "A_Y B_Y"},
      {"a b", "abc", "ABC"},
      {"a b", "", ""},
      {"", "abc", ""},
      {"", "x*", ""},
      {"a b", "*x*", ""},
      {"a b", "x?", ""},
      {"a b", "**", ""},
      {"a\t\tb  c", "p*q", "PAQ PBQ PCQ"},
      {"a", "x* y", "XA"},             // the pattern counts up to its blank
      {"\"a b\" c", "x*", "X\"A XC"},  // and so does the word
      {"a$b", "$*$", "$A$B$"},
      {"\xe9t\xe9", "*-x", "\xc9T\xc9-X"},
      {"*", "x*", "X*"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.list) + " | " + c.pattern);
    EXPECT_EQ(expand(c.list, c.pattern), c.want);
  }
}

TEST(ListForms, ExpandCutsWordsAndPatternTo128Bytes) {
  const std::string word(300, 'w');
  const std::string pattern = std::string(200, 'p').replace(0, 1, "*");
  const std::string got = expand(word + " v", pattern);
  const std::string want =
      std::string(128, 'W') + std::string(127, 'P') + " V" + std::string(127, 'P');
  EXPECT_EQ(got, want);
}

TEST(ListForms, ExpandLeavesTheTextAndResetsTheCursors) {
  command c("a b");
  c.word(1);
  vstring p("x*");
  EXPECT_EQ(str(c.ExpandListWithWildcards(p)), "XA XB");
  EXPECT_EQ(str(c), "a b");
  EXPECT_EQ(c.GetOffset(), 0);
  // Without a wildcard the cursors stay.
  c.word(1);
  vstring plain("q");
  EXPECT_EQ(str(c.ExpandListWithWildcards(plain)), "Q");
  EXPECT_EQ(c.GetOffset(), 2);
  // Many words: more than the ring of temporaries holds.
  std::string many;
  for (int i = 0; i < 500; ++i) {
    many += 'n';
    many += std::to_string(i);
    many += ' ';
  }
  command m(text_of(many));
  const std::string out = str(m.ExpandListWithWildcards(p));
  EXPECT_EQ(out.substr(0, 12), "XN0 XN1 XN2 ");
  EXPECT_EQ(vstring(out.c_str()).WCount(), 500);
}

TEST(ListForms, Hostile) {
  std::string big;
  for (int i = 0; i < 100000; ++i) big += "ab\xe9 ";
  const std::string list = into(big);
  EXPECT_EQ(list.size(), 2 + 100000 * 3 + 99999 * 2);
  // The way back removes blanks through the scratch buffer, which holds
  // 131040 bytes: a longer list keeps its head and so its `{`.
  const std::string back = from(list);
  EXPECT_EQ(back.size(), 131040u);
  EXPECT_EQ(back.substr(0, 8), "{ab\xe9 ab\xe9");
  const std::string small = into("a b c d");
  EXPECT_EQ(from(small), "a b c d");
  vstring p("*_x");
  command c(text_of(big));
  EXPECT_EQ(str(c.ExpandListWithWildcards(p)).size(), 100000 * 6 - 1);
  for (const char* t : {"\"", "((", "))", "{{", "}}", ",,,", "\"a, b", "(a, (b"}) {
    SCOPED_TRACE(t);
    from(into(t));
    EXPECT_FALSE(expand(t, "x*").empty());
    EXPECT_EQ(expand(t, "x?*"), "");
  }
  EXPECT_EQ(expand("a", std::string(1 << 20, '*')), "");
}

}  // namespace
