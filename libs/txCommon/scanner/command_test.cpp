// The statement scanner with no host: word boundaries, cursors, the readers
// built on word(), dropWord, and hostile text.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }

// Every word of `text` read with `read` until the empty word.
template <typename Read>
std::vector<std::string> words(const char* text, Read read) {
  command c(text);
  std::vector<std::string> out;
  for (int guard = 0; guard < 100; ++guard) {
    const std::string w = bytes(read(c));
    if (w.empty()) break;
    out.push_back(w);
  }
  return out;
}

using Words = std::vector<std::string>;

TEST(CommandWord, Boundaries) {
  struct Case {
    const char* text;
    Words want;
  };
  const Case cases[] = {
      {"", {}},
      {" \t\r\n ", {}},
      {"a  b  ", {"a", "b"}},
      {"f(a b) c", {"f(a b)", "c"}},
      {"\"a b\" c", {"\"a b\"", "c"}},
      {"f(x) + y", {"f(x)", "+", "y"}},
      {"f(x)+ y", {"f(x)+", "y"}},
      {"f(x)y", {"f(x)", "y"}},
      {"(a)(b)", {"(a)", "(b)"}},
      {"f(x)*g(y)", {"f(x)*g(y)"}},
      {"f(x),g f(x)]h", {"f(x),g", "f(x)]h"}},
      {"f(x)[1]", {"f(x)", "[1]"}},
      {"a\"b c\"d e", {"a\"b c\"d", "e"}},
      {"a)b", {"a)", "b"}},
      {"(a b", {"(a b"}},
      {"\"a b", {"\"a b"}},
      {"f((a) b) c", {"f((a) b)", "c"}},
      {"\"(\" x", {"\"(\"", "x"}},
      {"x @ y", {"x", "@", "y"}},
      {"caf\xE9 \x93" "a b\x94", {"caf\xE9", "\x93" "a", "b\x94"}},  // no host: 0x93 is a letter
      {"a\x01" "b\x1F" "c", {"a", "b", "c"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(words(c.text, [](command& k) -> vstring& { return k.word(1); }), c.want);
    EXPECT_EQ(words(c.text, [](command& k) -> vstring& { return k.word(0); }), c.want);
  }
}

TEST(CommandWord, CursorsAndBackup) {
  command c("  ab   cd  ");
  EXPECT_EQ(c.AtEnd(), 0);
  EXPECT_EQ(bytes(c.word(1)), "ab");
  EXPECT_EQ(c.GetOffset(), 7);  // behind the blanks that follow
  EXPECT_EQ(bytes(c.word(1)), "cd");
  EXPECT_EQ(c.AtEnd(), 1);
  c.backup();
  EXPECT_EQ(c.GetOffset(), 7);
  c.backup();  // a second backup does nothing more
  EXPECT_EQ(c.GetOffset(), 7);
  EXPECT_EQ(bytes(c.word(1)), "cd");
  EXPECT_EQ(bytes(c.word(1)), "");
  EXPECT_EQ(c.GetOffset(), 11);

  command empty;
  EXPECT_EQ(empty.AtEnd(), 1);
  EXPECT_EQ(bytes(empty.word(1)), "");
  EXPECT_EQ(empty.num_words(), 0);
  command blanks("   ");
  blanks.word(1);
  EXPECT_EQ(blanks.GetOffset(), 3);
  EXPECT_EQ(blanks.AtEnd(), 1);
}

TEST(CommandWord, WholeTextOperationsResetTheCursors) {
  command c("a b c");
  c.word(1);
  c.word(1);
  command copy(c);
  EXPECT_EQ(copy.GetOffset(), 0);
  EXPECT_EQ(bytes(copy), "a b c");
  c = "x y";
  EXPECT_EQ(c.GetOffset(), 0);
  c.word(1);
  c.cat(" z");
  EXPECT_EQ(c.GetOffset(), 0);
  EXPECT_EQ(bytes(c), "x y z");
  c.word(1);
  c.putUpr("q r");
  EXPECT_EQ(c.GetOffset(), 0);
  EXPECT_EQ(bytes(c), "Q R");
  c.word(1);
  c = static_cast<const char*>(nullptr);
  EXPECT_TRUE(c.isNull());
  c = "abc def";
  c.word(1);
  c.trunc(2);  // the cursors stay
  EXPECT_EQ(c.GetOffset(), 4);
  EXPECT_EQ(bytes(c), "ab");
  EXPECT_EQ(bytes(c.word(1)), "");  // a cursor beyond the text reads as the end
  c.SetOffset(-5);
  EXPECT_EQ(bytes(c.word(1)), "ab");
}

TEST(CommandWord, Remainder) {
  command c("GENR   Y = 1  ");
  c.word(1);
  EXPECT_EQ(bytes(c.Remainder()), "Y = 1  ");
  EXPECT_EQ(c.GetOffset(), 7);
  c.SetOffset(100);
  EXPECT_EQ(bytes(c.Remainder()), "");
}

TEST(CommandSep, Separators) {
  struct Case {
    const char* text;
    char sep;
    int raw;
    Words want;
  };
  const Case cases[] = {
      {"a b , c", ',', 0, {"a b", "c"}},
      {"a b  ,c", ',', 0, {"a b", "c"}},
      {"a b  ", ',', 0, {"a b  "}},
      {"f(a,b),c", ',', 0, {"f(a,b)", "c"}},
      {"\"a,b\",c", ',', 0, {"\"a,b\"", "c"}},
      {"\"a,b\",c", ',', 1, {"\"a", "b\"", "c"}},
      {"f(x)y z", ' ', 0, {"f(x)", "y", "z"}},
      {"f(x)y,z", ',', 0, {"f(x)y", "z"}},
      {"a;b;c", ';', 0, {"a", "b", "c"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const char sep = c.sep;
    const int raw = c.raw;
    EXPECT_EQ(words(c.text, [=](command& k) -> vstring& { return k.word(sep, raw, 1); }), c.want);
  }
}

TEST(CommandSep, LoneAt) {
  command c("x @ y");
  EXPECT_EQ(bytes(c.word(' ', 0, 1)), "x");
  EXPECT_EQ(bytes(c.word(' ', 0, 1)), "");
  EXPECT_EQ(c.GetOffset(), 2);  // standing on the @
  EXPECT_EQ(bytes(c.word(1)), "@");
  command tail("a@ b@");
  EXPECT_EQ(bytes(tail.word(' ', 0, 1)), "a");
  command raw("x @ y");
  raw.word(' ', 1, 1);
  EXPECT_EQ(bytes(raw.word(' ', 1, 1)), "@");
}

TEST(CommandSep, UnmatchedParenthesis) {
  command reported("a)b c");
  EXPECT_EQ(bytes(reported.word(' ', 0, 1)), "a");
  EXPECT_EQ(reported.GetOffset(), 1);  // the ) stays unread
  command quiet("a)b c");
  EXPECT_EQ(bytes(quiet.word(' ', 0, 0)), "a)b");
}

TEST(CommandBracket, Words) {
  const Words want_a = {"x[a b]", "y"};
  EXPECT_EQ(words("x[a b] y", [](command& k) -> vstring& { return k.wordwithbracket(); }), want_a);
  // `)` lets a bracket word go on, but an unmatched one is left unread.
  EXPECT_EQ(words("x[1])+y z", [](command& k) -> vstring& { return k.wordwithbracket(); }),
            Words({"x[1]"}));
  const Words want_c = {"a[1]+b[2]", "c"};
  EXPECT_EQ(words("a[1]+b[2] c", [](command& k) -> vstring& { return k.wordwithbracket(); }), want_c);
  const Words want_d = {"a[1]", "[2]"};
  EXPECT_EQ(words("a[1][2]", [](command& k) -> vstring& { return k.wordwithbracket(); }), want_d);
  command at("x @");
  at.wordwithbracket();
  EXPECT_EQ(bytes(at.wordwithbracket()), "");
}

TEST(CommandReaders, ForWordCommaSpaceStripDb) {
  command f("\"a b\" c");
  EXPECT_EQ(bytes(f.forWord()), "a b");
  EXPECT_EQ(bytes(f.forWord()), "c");

  EXPECT_EQ(words("f(a,b) c", [](command& k) -> vstring& { return k.wordCommaSpace(); }),
            Words({"f(a,b) c"}));
  EXPECT_EQ(words("a,b c", [](command& k) -> vstring& { return k.wordCommaSpace(); }),
            Words({"a", "b", "c"}));
  EXPECT_EQ(words("a b", [](command& k) -> vstring& { return k.wordCommaSpace(); }),
            Words({"a", "b"}));

  struct Case {
    const char* text;
    const char* want;
  };
  const Case db[] = {{"db::name", "name"}, {"::name", "name"}, {"name", "name"}, {"a::b::c", "b::c"},
                     {"x::", ""}};
  for (const Case& c : db) {
    command k(c.text);
    EXPECT_EQ(bytes(k.wordStripDB()), c.want) << c.text;
  }
}

TEST(CommandReaders, FirstWordToSeperator) {
  struct Case {
    const char* text;
    const char* want;
    char sep;
    int paren;
    int offset;
  };
  const Case cases[] = {
      {"abc(1,2) = x", "abc", '=', 1, 9},
      {"x.y", "x", '.', 0, 1},
      {"(a)=b", "", '=', 1, 3},
      {"name = 3", "name", '=', 0, 5},
      {"name", "name", '\0', 0, 4},
      {"a'b", "a", '\'', 0, 1},
      {"f((a)", "f", '(', 1, 5},
      {"f(\")\") = 1", "f", '(', 1, 4},  // quotes are not looked at
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    command k(c.text);
    k.word(1);
    char sep = 'z';
    int paren = 7;
    EXPECT_EQ(bytes(k.FirstWordToSeperator(sep, paren)), c.want);
    EXPECT_EQ(sep, c.sep);
    EXPECT_EQ(paren, c.paren);
    EXPECT_EQ(k.GetOffset(), c.offset);
  }
  command empty;
  char sep = 'z';
  int paren = 7;
  EXPECT_EQ(bytes(empty.FirstWordToSeperator(sep, paren)), "");
  EXPECT_EQ(sep, 'z');
  EXPECT_EQ(paren, 0);
}

TEST(CommandReaders, WordToSeperator) {
  auto read = [](command& k) -> vstring& { return k.WordToSeperator(); };
  EXPECT_EQ(words("ab+c", read), Words({"ab", "+", "c"}));
  EXPECT_EQ(words("a.b c", read), Words({"a.b", "c"}));
  EXPECT_EQ(words("x = (y)", read), Words({"x", "=", "(", "y", ")"}));
  EXPECT_EQ(words("a\rb\tc", read), Words({"a\rb", "c"}));
  command end("ab");
  end.WordToSeperator();
  EXPECT_EQ(bytes(end.WordToSeperator()), "");
  EXPECT_EQ(end.GetOffset(), 2);  // never past the terminator
  command op("+ a");
  op.WordToSeperator();
  EXPECT_EQ(op.GetOffset(), 1);  // no blanks skipped behind an operator
}

TEST(CommandCount, NumWordsAndIsWord) {
  struct Case {
    const char* text;
    int count;
    int isWord;
  };
  const Case cases[] = {
      {"", 0, 1},           {"a", 1, 1},         {" a", 1, 0},       {"a b", 2, 0},
      {"f(a b)", 1, 1},     {"\"a b\"", 1, 1},   {"f(x)y", 2, 0},    {"(a b", 1, 1},
      {"a  b  c ", 3, 0},   {"a)", 1, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    command k(c.text);
    k.word(1);
    EXPECT_EQ(k.num_words(), c.count);
    EXPECT_EQ(k.GetOffset(), 0);
    EXPECT_EQ(k.wordcount(), c.count);
    EXPECT_EQ(vstring(c.text).isWord(), c.isWord);
  }
}

TEST(CommandDrop, DropWord) {
  struct Case {
    const char* text;
    std::vector<int> drop;
    const char* want;
  };
  const Case cases[] = {
      {"  a b c  ", {1}, "  a c   "},
      {"a b c", {0}, "b c"},
      {"  a b c", {0}, "  b c"},
      {"a b c", {2}, "a b "},
      {"a b c", {0, 2}, "b "},
      {"a b c", {0, 1, 2}, ""},
      {"f(a b) c d", {1}, "f(a b) d"},
      {"a b c", {}, "a b c"},
      {"a b c", {7}, "a b c"},
      {"a b c \xE9", {0}, "b c \xE9 "},  // a high byte counts as trailing blank
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    command k(c.text);
    std::vector<int> drop = c.drop;
    k.word(1);
    k.dropWord(drop.data(), static_cast<int>(drop.size()));
    EXPECT_EQ(bytes(k), c.want);
    if (!drop.empty()) {
      EXPECT_EQ(k.GetOffset(), 0);
    }
  }
}

TEST(CommandHostile, HugeAndUnbalancedText) {
  std::string huge(300000, 'x');
  huge += " y";
  command c(huge.c_str());
  // The word is cut at the scratch buffer and the rest comes with the next read.
  const unsigned first = c.word(1).len();
  EXPECT_EQ(first, 131039u);
  EXPECT_EQ(c.word(1).len(), 131039u);
  EXPECT_EQ(c.word(1).len(), 300000u - 2 * 131039u);
  EXPECT_EQ(bytes(c.word(1)), "y");

  command s(huge.c_str());
  EXPECT_EQ(s.word(' ', 0, 1).len(), 131040u);
  command w(huge.c_str());
  EXPECT_EQ(w.WordToSeperator().len(), 131039u);
  command b(huge.c_str());
  EXPECT_EQ(b.wordwithbracket().len(), 131039u);

  std::string parens(100000, '(');
  command p(parens.c_str());
  EXPECT_EQ(p.num_words(), 1);
  std::string quotes(100001, '"');
  command q(quotes.c_str());
  EXPECT_EQ(q.num_words(), 1);
  std::string closers(1000, ')');
  command k(closers.c_str());
  EXPECT_EQ(k.num_words(), 1000);
  std::string high(5000, '\xFF');
  command h(high.c_str());
  EXPECT_EQ(h.num_words(), 1);
}

}  // namespace
