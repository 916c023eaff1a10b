// Delimited lists and option lists with no host.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Items = std::vector<std::string>;

Items first(const vstring* items, int n) {
  Items out;
  for (int i = 0; i < n; ++i) out.push_back(bytes(items[i]));
  return out;
}

TEST(ParseCommalist, Items) {
  struct Case {
    const char* text;
    Items want;  // then one empty element
  };
  const Case cases[] = {
      {"", {""}},
      {",,a,b", {"a", "b"}},
      {"a,,b", {"a", "", "b"}},
      {"a,", {"a", ""}},
      {" a , b ", {" a ", " b "}},
      {"\"a,b\",c", {"\"a", "b\"", "c"}},
      {"f(a,b)", {"f(a", "b)"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring* items = vstring(c.text).parse_commalist();
    const int n = static_cast<int>(c.want.size());
    EXPECT_EQ(first(items, n), c.want);
    EXPECT_TRUE(items[n].isNull());
  }
  std::string sixty;
  for (int i = 0; i < 60; ++i) sixty += std::to_string(i) + ",";
  vstring* items = vstring(sixty.c_str()).parse_commalist();
  EXPECT_EQ(bytes(items[48]), "48");
  EXPECT_TRUE(items[49].isNull());
  EXPECT_EQ(vstring("x").parse_commalist(), items);  // one array for the library
}

TEST(ParseDelimitedList, Forms) {
  struct Case {
    const char* label;
    const char* text;
    int form;  // 0: char; 1: char, honour; 2: several bytes
    const char* delimiter;
    int honour;
    int maxItems;
    Items want;  // the elements written; the rest keep "old"
  };
  const Case cases[] = {
      {"two of three", "a;b;c", 0, ";", 0, 2, {"a", "b"}},
      {"quotes honoured", "a \"b;c\" d;e", 1, ";", 1, 5, {"a \"b;c\" d", "e"}},
      {"quotes ignored", "a \"b;c\" d;e", 1, ";", 0, 5, {"a \"b", "c\" d", "e"}},
      {"char form ignores quotes", "a \"b;c\" d;e", 0, ";", 0, 5, {"a \"b", "c\" d", "e"}},
      {"escaped quote", "\"a\\\";b\";c", 1, ";", 1, 5, {"\"a\\\";b\"", "c"}},
      {"several bytes", "a::b:c", 2, "::", 0, 5, {"a", "b:c"}},
      {"char: leading skipped", ";;a;;b;", 0, ";", 0, 9, {"a", "", "b", ""}},
      {"char: empty text", "", 0, ";", 0, 5, {""}},
      {"char: all delimiters", ";;;", 0, ";", 0, 5, {""}},
      {"honour: leading not stored", ";;a;;b", 1, ";", 1, 9, {"a", "", "b"}},
      {"honour: empty text", "", 1, ";", 1, 5, {}},
      {"several: all delimiters", "::::", 2, "::", 1, 5, {}},
      {"several: partial at end", "a:", 2, "::", 1, 5, {"a:"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    std::vector<vstring> out(10, vstring("old"));
    vstring text(c.text);
    if (c.form == 0) text.parse_delimitedlist(out.data(), c.maxItems, c.delimiter[0]);
    if (c.form == 1) text.parse_delimitedlist(out.data(), c.maxItems, c.delimiter[0], c.honour);
    if (c.form == 2) {
      text.parse_delimitedlist(out.data(), c.maxItems, c.delimiter,
                               static_cast<int>(std::string(c.delimiter).size()), c.honour);
    }
    const int n = static_cast<int>(c.want.size());
    EXPECT_EQ(first(out.data(), n), c.want);
    EXPECT_EQ(bytes(out[n]), "old");
    EXPECT_EQ(bytes(text), c.text);
  }
  vstring text("a;b");
  text.parse_delimitedlist(nullptr, 5, ';');
  vstring one("old");
  text.parse_delimitedlist(&one, 0, ';');
  text.parse_delimitedlist(&one, 1, "", 0, 1);
  EXPECT_EQ(bytes(one), "old");
}

TEST(SplitOptions, Groups) {
  struct Case {
    const char* text;
    const char* rest;
    Items options;
  };
  const Case cases[] = {
      {"PRINT(a,b=\"x,y\",c(1,2)) ", "PRINT", {"a", "b=\"x,y\"", "c(1,2)"}},
      {"x(a, b)", "x", {"a", "b"}},
      {"x (a)", "x ", {"a"}},
      {"x(a) y", "x(a) y", {}},
      {"x(a", "x(a", {}},
      {"x(\"a)", "x(\"a)", {}},
      {"x()", "x", {}},
      {"(a)", "", {"a"}},
      {"x(", "x(", {}},
      {"x(a,,b)", "x", {"a", "", "b"}},
      {"x( a ,\tb\t)", "x", {"a", "b"}},
      {"\"(q)\"(a)", "\"(q)\"", {"a"}},
      {"x(a) \xE9", "x", {"a)"}},  // the last byte is taken for the closing one
      {"  plain  ", "plain", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring text(c.text);
    std::vector<vstring> out(8, vstring("old"));
    EXPECT_EQ(text.split_options(out.data(), 8, 0), out.data());
    EXPECT_EQ(bytes(text), c.rest);
    Items want = c.options;
    want.resize(8);
    EXPECT_EQ(first(out.data(), 8), want);
  }
}

TEST(SplitOptions, LibraryArrayAndLimits) {
  vstring text("x(a,b,c)");
  vstring* opts = text.split_options(2);
  EXPECT_EQ(first(opts, 3), Items({"a", "b", ""}));
  EXPECT_EQ(bytes(text), "x");

  vstring many("x(");
  for (int i = 0; i < 60; ++i) many.cat(i ? ",o" : "o");
  many.cat(")");
  opts = many.split_options(nullptr, 0, 0);  // limit 50
  EXPECT_EQ(bytes(opts[49]), "o");
  EXPECT_EQ(bytes(many), "x");
  vstring again("y(p)");
  EXPECT_EQ(again.split_options(0), opts);
  EXPECT_EQ(bytes(opts[0]), "p");
  EXPECT_TRUE(opts[1].isNull());
}

TEST(AddOptions, Groups) {
  struct Case {
    Items options;
    const char* want;
  };
  const Case cases[] = {
      {{"a", "", "\"b c\""}, "x(A,,\"b c\")"},
      {{"a", "", ""}, "x(A)"},
      {{"", ""}, "x"},
      {{"", "b"}, "x(,B)"},
      {{"f(x)=\"Lower\" y"}, "x(F(X)=\"Lower\" Y)"},
      {{}, "x"},
  };
  for (const Case& c : cases) {
    std::vector<vstring> opts;
    for (const std::string& o : c.options) opts.emplace_back(o.c_str());
    vstring text("x");
    text.add_options(opts.data(), static_cast<int>(opts.size()));
    EXPECT_EQ(bytes(text), c.want);
  }
  vstring text("x");
  vstring opt("a");
  text.add_options(&opt, 1);
  EXPECT_EQ(bytes(opt), "a");  // the options are not changed
}

TEST(StripOptions, Cuts) {
  struct Case {
    const char* text;
    const char* want;
  };
  const Case cases[] = {{"x(a(b))", "x"}, {"x(a", "x(a"},   {"x)", "x)"},     {"(a)", ""},
                        {" x (a) ", "x "}, {"x(\")\")", "x(\")\")"}, {"", ""}};
  for (const Case& c : cases) {
    vstring text(c.text);
    text.strip_options();
    EXPECT_EQ(bytes(text), c.want) << c.text;
  }
}

TEST(ListsHostile, HugeText) {
  std::string huge(400000, 'a');
  vstring text((huge + ";b").c_str());
  vstring out[3];
  text.parse_delimitedlist(out, 3, ';');
  EXPECT_EQ(out[0].len(), 131040u);  // an item keeps what fits the scratch buffer
  EXPECT_EQ(bytes(out[1]), "b");
  vstring opts((std::string("x(") + huge + ")").c_str());
  vstring got[2];
  opts.split_options(got, 2, 0);
  EXPECT_EQ(got[0].len(), 131040u);
  EXPECT_EQ(bytes(opts), "x");
  std::vector<vstring> big(3, vstring(huge.c_str()));
  vstring t("x");
  t.add_options(big.data(), 3);
  EXPECT_EQ(bytes(t), "x()");  // no option fits: only the parentheses
  std::string parens(100000, '(');
  vstring p(parens.c_str());
  p.strip_options();
  p.split_options(nullptr, 0, 0);
  EXPECT_EQ(p.len(), 100000u);
}

}  // namespace
