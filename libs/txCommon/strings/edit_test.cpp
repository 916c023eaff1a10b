// Removing, comments, brackets, inserting and byte conversions, with no host:
// tables of the documented cases, oracles from <cctype> and snprintf over
// every byte value, and hostile input.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <cctype>
#include <cstdio>
#include <string>

using edit_test::bytes;
using edit_test::make;

namespace {

TEST(Remove, WhiteSpaceFamilies) {
  struct Case {
    const char* label;
    std::string text, white, whiteNq;
  };
  const Case cases[] = {
      {"empty", "", "", ""},
      {"blanks and controls", " a\tb\nc\x01", "abc", "abc"},
      {"high byte: kept, dropped outside quotes", "a \xE9 b", "a\xE9" "b", "ab"},
      {"inside quotes everything stays", "x \"a \xE9 b\" y", "x\"a\xE9" "b\"y", "x\"a \xE9 b\"y"},
      {"open quote runs to the end", "a \"b c", "a\"bc", "a\"b c"},
      {"0x93 without host is a high byte", "\x93 a b\x94", "\x93" "ab\x94", "ab"},
      {"only blanks", "   ", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring a = make(c.text);
    EXPECT_EQ(bytes(a.removeWhiteSpace()), c.white);
    vstring b = make(c.text);
    EXPECT_EQ(bytes(b.removeWhiteSpacenq()), c.whiteNq);
  }
  vstring blanks("   ");
  blanks.removeWhiteSpace();
  EXPECT_EQ(blanks.blen(), 0u) << "an empty result releases the block";
}

// A text emptied in place (itrim keeps its block) goes through the scratch
// buffer like any other: the empty result releases the block.
TEST(Remove, EmptyResultReleasesTheKeptBlock) {
  using Op = void (*)(vstring&);
  const Op ops[] = {
      [](vstring& s) { s.removeCharacter('x'); },
      [](vstring& s) { s.removeWhiteSpace(); },
      [](vstring& s) { s.removeWhiteSpacenq(); },
      [](vstring& s) { s.MakeAlphaNumeric(nullptr, 0); },
      [](vstring& s) { s.replace_mult(vstring("a"), vstring("b"), 1, 0); },
  };
  int k = 0;
  for (Op op : ops) {
    SCOPED_TRACE(k++);
    vstring s("    ");
    s.itrim();
    ASSERT_NE(s.blen(), 0u);
    op(s);
    EXPECT_EQ(s.len(), 0u);
    EXPECT_EQ(s.blen(), 0u);
  }
}

TEST(Remove, RemoveCharacter) {
  vstring s("a,b,,c,");
  EXPECT_EQ(bytes(s.removeCharacter(',')), "abc");
  vstring all(",,,");
  EXPECT_EQ(all.removeCharacter(',').blen(), 0u);
  vstring none("abc");
  EXPECT_EQ(bytes(none.removeCharacter('\0')), "abc");
  vstring high("\xE9x\xE9");
  EXPECT_EQ(bytes(high.removeCharacter('\xE9')), "x");
}

// dropchars against the <cctype> classification of every byte value.
TEST(Remove, DropcharsEveryByteAgainstCctype) {
  std::string all;
  for (int b = 1; b < 256; ++b) all += static_cast<char>(b);
  const vstring text = make(all);
  const char* kinds[] = {"a", "d", "w", "p", "ad", "AW", "pwda", "xyz", ""};
  for (const char* k : kinds) {
    SCOPED_TRACE(k);
    const std::string ks = k;
    const auto named = [&](char c) { return ks.find(c) != std::string::npos || ks.find(static_cast<char>(std::toupper(c))) != std::string::npos; };
    std::string want;
    for (char c : all) {
      const int u = static_cast<unsigned char>(c);
      const char cls = std::isdigit(u) ? 'd' : std::isalpha(u) ? 'a' : std::isspace(u) ? 'w' : 'p';
      if (!named(cls)) want += c;
    }
    EXPECT_EQ(bytes(text.dropchars(vstring(k))), want);
  }
}

TEST(Remove, DropcharsCases) {
  EXPECT_EQ(bytes(vstring("a1 b2").dropchars(vstring("d"))), "a b");
  EXPECT_EQ(bytes(vstring("a1,b").dropchars(vstring("ap"))), "1");
  vstring& gone = vstring("abc").dropchars(vstring("a"));
  EXPECT_TRUE(gone.isNull());
  EXPECT_EQ(gone.blen(), 0u);
  EXPECT_EQ(bytes(vstring().dropchars(vstring("a"))), "");
}

TEST(Remove, MakeAlphaNumeric) {
  struct Case {
    const char* label;
    const char* text;
    const char* extra;
    int extraCount;
    const char* want;
  };
  char dollar[] = "$_";
  const Case cases[] = {
      {"junk in front", "--ab-c", nullptr, 0, "ab-c"},
      {"extra byte accepted", "--$ab", dollar, 2, "$ab"},
      {"extra count limits", "--_ab", dollar, 1, "ab"},
      {"null extra with a count", "-$a", nullptr, 5, "a"},
      {"negative count", "-$a", dollar, -1, "a"},
      {"all junk", "-- !", nullptr, 0, ""},
      {"high bytes are junk", "\xE9\xC0x\xE9", nullptr, 0, "x\xE9"},
      {"digit first", "9 -", nullptr, 0, "9 -"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(bytes(s.MakeAlphaNumeric(const_cast<char*>(c.extra), c.extraCount)), c.want);
  }
}

TEST(Comments, FindAndStrip) {
  struct Case {
    const char* label;
    const char* text;
    int atCommand;
    int at;
    const char* stripped;
  };
  const Case cases[] = {
      {"quoted apostrophe", "\"it's\" 'c", 0, 8, "\"it's\" "},
      {"none", "genr x = 1", 0, 0, "genr x = 1"},
      {"at the front", "'all comment", 0, 1, ""},
      {"second byte", "x'c", 0, 2, "x"},
      {"open quote hides it", "a \"b 'c", 0, 0, "a \"b 'c"},
      {"@ and blank", "@ note", 1, 0, ""},
      {"@ alone", "@", 1, 0, ""},
      {"@ glued", "@note", 1, 0, "@note"},
      {"@ ignored without atCommand", "@ note", 0, 0, "@ note"},
      {"@ with a comment", "@note 'x", 1, 7, "@note "},
      {"0x93 is no quote without host", "\x93it's\x94", 0, 4, "\x93it"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    EXPECT_EQ(s.findCommentChar(), c.at);
    s.StripComments(c.atCommand);
    EXPECT_EQ(bytes(s), c.stripped);
  }
  vstring front("'x");
  front.StripComments(0);
  EXPECT_EQ(front.blen(), 0u);
  // A long cut moves the text into another block, as trunc does (a ring
  // entry's block, kept by the reuse rule when it is near the size).
  vstring longCut(("ab'" + std::string(40, 'c')).c_str());
  longCut.StripComments(0);
  EXPECT_EQ(bytes(longCut), "ab");
  EXPECT_LT(longCut.blen(), 2u + 24u);
}

TEST(Brackets, Table) {
  struct Case {
    const char* text;
    const char* parens;
    const char* brackets;
    const char* braces;
  };
  const Case cases[] = {
      {"(a)+(b)", "(a)+(b)", "(a)+(b)", "(a)+(b)"},
      {"((a))", "(a)", "((a))", "((a))"},
      {"()", "", "()", "()"},
      {"((a)", "(a", "((a)", "((a)"},
      {"(", "(", "(", "("},
      {"", "", "", ""},
      {"[x[1]]", "[x[1]]", "x[1]", "[x[1]]"},
      {"[a]+[b]", "[a]+[b]", "[a]+[b]", "[a]+[b]"},
      {"{a}{b}", "{a}{b}", "{a}{b}", "a}{b"},
      {"{}", "{}", "{}", ""},
      {"(\")\")", "(\")\")", "(\")\")", "(\")\")"},
      {" (a)", " (a)", " (a)", " (a)"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring p(c.text), q(c.text), b(c.text), s(c.text);
    EXPECT_EQ(bytes(p.remove_parens()), c.parens);
    EXPECT_EQ(bytes(q.StripParens()), c.parens);
    EXPECT_EQ(bytes(b.remove_brackets()), c.brackets);
    EXPECT_EQ(bytes(s.StripBraces()), c.braces);
  }
  vstring t("a b");
  vstring& braced = t.SurroundWithBraces();
  EXPECT_EQ(bytes(braced), "{a b}");
  EXPECT_NE(&braced, &t);
  EXPECT_EQ(bytes(t), "a b");
  EXPECT_EQ(bytes(vstring().SurroundWithBraces()), "{}");
}

TEST(Insert, PositionsAndTheBound) {
  struct Case {
    const char* label;
    const char* text;
    const char* part;
    int position;
    const char* want;
  };
  const Case cases[] = {
      {"middle", "abef", "cd", 2, "abcdef"},
      {"behind the last byte", "ab", "c", 2, "abc"},
      {"position 0 does nothing", "ab", "x", 0, "ab"},
      {"negative does nothing", "ab", "x", -3, "ab"},
      {"empty part does nothing", "ab", "", 1, "ab"},
      {"past the end appends", "ab", "x", 99, "abx"},
      {"into an empty string", "", "x", 1, "x"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text), part(c.part);
    EXPECT_EQ(bytes(s.insert(part, c.position)), c.want);
  }
  // Without a host the two lengths together must stay below 8192.
  const std::string base(8000, 'a');
  for (int partLen : {191, 192}) {
    SCOPED_TRACE(partLen);
    vstring s = make(base);
    vstring part = make(std::string(static_cast<std::size_t>(partLen), 'b'));
    s.insert(part, 1);
    EXPECT_EQ(s.len(), partLen == 191 ? 8191u : 8000u);
    if (partLen == 191) {
      EXPECT_EQ(bytes(s), "a" + std::string(191, 'b') + base.substr(1));
    }
  }
  vstring self("abc");
  self.insert(self, 1);
  EXPECT_EQ(bytes(self), "aabcbc");
}

TEST(Insert, InsertPart) {
  struct Case {
    const char* label;
    const char* text;
    const char* part;
    int offset;
    const char* want;
  };
  const Case cases[] = {
      {"inside", "abcdef", "XY", 1, "aXYdef"},
      {"clipped at the end", "abc", "XYZ", 2, "abX"},
      {"offset at the length", "abc", "X", 3, "abc"},
      {"negative offset", "abc", "X", -1, "abc"},
      {"empty part", "abc", "", 0, "abc"},
      {"empty string", "", "X", 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text), part(c.part);
    s.insertPart(part, c.offset);
    EXPECT_EQ(bytes(s), c.want);
    EXPECT_EQ(s.len(), std::strlen(c.text));
  }
}

TEST(Convert, TabsAndLineEnds) {
  vstring t("a\tb\t\t");
  EXPECT_EQ(bytes(t.TabToSpace()), "a b  ");
  struct Case {
    std::string text, want;
  };
  const Case cases[] = {
      {"a\r\nb\n\rc\rd", "a\nb\nc\nd"},
      {"\n\n", "\n\n"},
      {"\r\r", "\n\n"},
      {"\r\n\r", "\n\n"},
      {"\n\r\n", "\n\n"},
      {"", ""},
      {"no breaks", "no breaks"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const vstring s = make(c.text);
    EXPECT_EQ(bytes(s.CR_LF_to_LF()), c.want);
    EXPECT_EQ(bytes(s), c.text);
  }
}

TEST(Convert, Bin2hexEveryByteAgainstSnprintf) {
  std::string all, want;
  for (int b = 0; b < 256; ++b) {
    all += static_cast<char>(b);
    char hex[3];
    std::snprintf(hex, sizeof hex, "%02X", b);
    want += hex;
  }
  vstring s = make(all);
  EXPECT_EQ(bytes(s.bin2hex(256)), want);

  vstring part("abc");
  EXPECT_EQ(bytes(part.bin2hex(2)), "6162");
  vstring zero("abc");
  EXPECT_EQ(zero.bin2hex(0).blen(), 0u);
  vstring over("ab");
  EXPECT_EQ(bytes(over.bin2hex(10)), "6162") << "n beyond the length counts as the length";
  vstring empty;
  EXPECT_TRUE(empty.bin2hex(4).isNull());
}

}  // namespace
