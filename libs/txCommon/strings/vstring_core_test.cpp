// vstring core on the built-in road: blocks, the sizing rule, assignment,
// appending, cutting and the temporaries.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

std::string str(const vstring& s) { return std::string(s.optr(), s.len()); }

TEST(VstringCore, EmptyStringsHoldNoBlock) {
  vstring a;
  vstring b("");
  vstring c(static_cast<const char*>(nullptr));
  vstring d("abc", 0);
  for (const vstring* s : {&a, &b, &c, &d}) {
    EXPECT_EQ(s->blen(), 0u);
    ASSERT_NE(s->optr(), nullptr);
    EXPECT_EQ(*s->optr(), '\0');
    EXPECT_TRUE(s->IsEmpty());
    EXPECT_EQ(s->isNull(), 1);
    EXPECT_EQ(s->len(), 0u);
  }
  EXPECT_EQ(a.optr(), b.optr()) << "both read as the one shared empty text";
}

TEST(VstringCore, NewBlockHasExactCapacity) {
  vstring s;
  s = "abc";
  EXPECT_EQ(s.blen(), 3u);
  EXPECT_EQ(s.len(), 3u);
  EXPECT_EQ(txc::block::capacity_word(s.optr()), 16u);
  EXPECT_EQ(std::strcmp(s.optr(), "abc"), 0);
}

TEST(VstringCore, AllocKeepsBlockBySlackRule) {
  struct Case {
    unsigned capacity;
    unsigned n;
    bool kept;
  } cases[] = {
      {33, 10, true},       // slack 23: below 24
      {34, 10, false},      // slack 24, and 24 is not below 10/16
      {1699, 1600, true},   // slack 99, below 1600/16 = 100
      {1700, 1600, false},  // slack 100
      {10, 0, true},        // alloc(0) keeps the block, length 0
      {10, 11, false},      // negative slack
      {10, 10, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "capacity " << c.capacity << " n " << c.n);
    vstring s;
    s.calloc(c.capacity);
    const char* before = s.optr();
    char* p = s.alloc(c.n);
    EXPECT_EQ(s.len(), c.n);
    EXPECT_EQ(p[0], '\0');
    if (c.kept) {
      EXPECT_EQ(p, before);
      EXPECT_EQ(s.blen(), c.capacity);
    } else {
      EXPECT_EQ(s.blen(), c.n);
    }
  }
}

TEST(VstringCore, AllocZeroKeepsBlockButReadsEmpty) {
  vstring s;
  s.calloc(10);
  s.alloc(0);
  EXPECT_EQ(s.isNull(), 1);
  EXPECT_EQ(s.blen(), 10u);
  vstring t;
  EXPECT_EQ(*t.alloc(0), '\0');
  EXPECT_EQ(t.blen(), 0u);
}

TEST(VstringCore, PutReleasesOrCopies) {
  vstring s("hello");
  s.put(s);
  EXPECT_EQ(str(s), "hello");
  s.put(vstring());
  EXPECT_EQ(s.blen(), 0u);
  s = "x";
  s = static_cast<const char*>(nullptr);
  EXPECT_EQ(s.blen(), 0u);
  s = "abc";
  s = "";
  EXPECT_EQ(s.blen(), 0u);
}

TEST(VstringCore, PutCharKeepsSmallBlocks) {
  struct Case {
    unsigned capacity;
    unsigned after;
  } cases[] = {{24, 24}, {25, 1}, {1, 1}, {0, 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.capacity);
    vstring s;
    s.calloc(c.capacity);
    s.putLen(0);
    s.put('a');
    EXPECT_EQ(str(s), "a");
    EXPECT_EQ(s.blen(), c.after);
  }
  vstring s("abc");
  s = '\0';
  EXPECT_EQ(s.blen(), 0u);
  vstring none;
  none = 'z';
  EXPECT_EQ(txc::block::capacity_word(none.optr()), 14u);
}

TEST(VstringCore, CountedConstructorCopiesEveryByte) {
  const char bytes[] = {'a', '\0', 'b', 'c'};
  vstring s(bytes, 4);
  EXPECT_EQ(s.len(), 4u);
  EXPECT_EQ(s.blen(), 4u);
  EXPECT_EQ(std::memcmp(s.optr(), bytes, 4), 0);
  EXPECT_EQ(s.optr()[4], '\0');
  EXPECT_EQ(vstring(nullptr, 5).blen(), 0u);
}

TEST(VstringCore, PutchStopsAtZeroOrCount) {
  vstring s("old");
  s.putch("abcdef", 3);
  EXPECT_EQ(str(s), "abc");
  s.putch("ab\0cd", 5);
  EXPECT_EQ(str(s), "ab");
  s.putch("abc", 0);
  EXPECT_EQ(s.blen(), 0u);
  s.putch(nullptr, 4);
  EXPECT_EQ(s.blen(), 0u);
}

TEST(VstringCore, CpytextIsZeroBased) {
  vstring src("0123456789");
  vstring s;
  s.cpytext(src, 2, 3);
  EXPECT_EQ(str(s), "234");
  s.cpytext(src, 0, 0);
  EXPECT_EQ(s.blen(), 0u);
}

TEST(VstringCore, MoveAndSwapTransferBlocks) {
  vstring a("alpha"), b("beta");
  const char* pa = a.optr();
  b.move(a);
  EXPECT_EQ(b.optr(), pa);
  EXPECT_EQ(a.blen(), 0u);
  vstring c("gamma");
  b.Swap(c);
  EXPECT_EQ(str(b), "gamma");
  EXPECT_EQ(str(c), "alpha");
  c.swap(b);
  EXPECT_EQ(str(c), "gamma");
  b.move(b);
  EXPECT_EQ(str(b), "alpha");
}

TEST(VstringCore, CatTable) {
  struct Case {
    const char* a;
    const char* b;
    const char* plain;
    const char* comma;
    const char* linebreak;
  } cases[] = {
      {"", "", "", "", ""},
      {"", "x", "x", "x", "x"},
      {"a", "", "a", "a, ", "a"},
      {"a", "b", "ab", "a, b", "a\nb"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << '[' << c.a << "] [" << c.b << ']');
    vstring s(c.a);
    s.cat(vstring(c.b));
    EXPECT_EQ(str(s), c.plain);
    vstring t(c.a);
    t.cat(c.b);
    EXPECT_EQ(str(t), c.plain);
    vstring u(c.a);
    u.catwithcomma(vstring(c.b));
    EXPECT_EQ(str(u), c.comma);
    vstring w(c.a);
    w.catwithlinebreak(vstring(c.b));
    EXPECT_EQ(str(w), c.linebreak);
  }
  vstring none;
  none.cat(vstring());
  EXPECT_EQ(none.blen(), 0u) << "two empties make no block";
}

TEST(VstringCore, CatOfItselfAndInPlace) {
  vstring s("abc");
  s.cat(s);
  EXPECT_EQ(str(s), "abcabc");
  EXPECT_EQ(s.blen(), 6u) << "reallocation is to the exact size";
  vstring room;
  room.calloc(40);
  room.putLen(0);
  room.optr()[0] = '\0';
  const char* before = room.optr();
  room.cat("hello");
  room += ' ';
  room += vstring("world");
  EXPECT_EQ(room.optr(), before);
  EXPECT_EQ(str(room), "hello world");
}

TEST(VstringCore, CatZeroByteCountsInLength) {
  vstring s("ab");
  s.cat('\0');
  EXPECT_EQ(s.len(), 3u);
  EXPECT_EQ(std::strlen(s.optr()), 2u);
}

TEST(VstringCore, OperatorsPlusMakeTemporaries) {
  vstring a("ab"), b("cd"), empty;
  EXPECT_EQ(str(a + b), "abcd");
  EXPECT_EQ(str(a + "xy"), "abxy");
  EXPECT_EQ(str(a + 'z'), "abz");
  EXPECT_EQ(str(a + '\0'), "ab");
  EXPECT_EQ(str("xy" + a), "xyab");
  EXPECT_EQ(str('q' + a), "qab");
  vstring& e = empty + empty;
  EXPECT_TRUE(e.IsEmpty());
  EXPECT_EQ(e.blen(), 0u);
}

TEST(VstringCore, CuttingTable) {
  const vstring s("abcdef");
  struct Case {
    const char* label;
    const vstring& got;
    const char* want;
  } cases[] = {
      {"left 2", s.left(2), "ab"},
      {"left 0", s.left(0), ""},
      {"left -3", s.left(-3), ""},
      {"left len+5", s.left(11), "abcdef"},
      {"Left 3", s.Left(3), "abc"},
      {"right 2", s.right(2), "ef"},
      {"right len", s.right(6), "abcdef"},
      {"right len+5", s.right(11), "abcdef"},
      {"right 0", s.right(0), ""},
      {"mid 2,3", s.mid(2, 3), "bcd"},
      {"mid 0,2", s.mid(0, 2), "ab"},
      {"mid -4,2", s.mid(-4, 2), "ab"},
      {"mid len+1", s.mid(7, 2), ""},
      {"mid 2,0", s.mid(2, 0), ""},
      {"mid 5,100", s.mid(5, 100), "ef"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(str(c.got), c.want);
  }
}

TEST(VstringCore, TruncMovesOnlyLargeCuts) {
  std::string text(60, 'x');
  vstring a(text.c_str());
  a.trunc(36);  // 24 cut off: block stays
  EXPECT_EQ(a.len(), 36u);
  EXPECT_EQ(a.blen(), 60u);
  vstring b(text.c_str());
  b.trunc(35);  // 25 cut off: fitted block
  EXPECT_EQ(b.len(), 35u);
  EXPECT_EQ(b.blen(), 35u);
  EXPECT_EQ(str(b), std::string(35, 'x'));
  b.trunc(100);
  EXPECT_EQ(b.len(), 35u);
  b.trunc(0);
  EXPECT_EQ(b.blen(), 0u);
  vstring none;
  none.trunc(-1);
  EXPECT_EQ(none.blen(), 0u);
}

TEST(VstringCore, ReadingNamesAgree) {
  vstring s("xyz");
  const vstring& c = s;
  EXPECT_EQ(s.optr(), c.optr());
  EXPECT_EQ(s.ioptr(), c.GetString());
  EXPECT_EQ(s.GetBuffer(), s.GetBuffer(99));
  EXPECT_EQ(static_cast<const char*>(c), c.optr());
  EXPECT_EQ(s.GetLength(), 3);
  EXPECT_EQ(c[1], 'y');
  s[1] = 'Y';
  EXPECT_EQ(str(s), "xYz");
  char out[8];
  std::memset(out, '#', sizeof out);
  c.cpy(out);
  EXPECT_STREQ(out, "xYz");
  std::memset(out, '#', sizeof out);
  c.cpy(out, 1);
  EXPECT_EQ(out[3], '#');
  c.cpy(out, 0);
  EXPECT_EQ(out[3], '\0');
}

TEST(VstringCore, DoNothingNames) {
  vstring s("abc");
  char buf[] = "q";
  EXPECT_EQ(s.GetAt(0), 0);
  EXPECT_EQ(s.Find(buf, 0), 0);
  EXPECT_EQ(s.Replace(buf, buf), 0);
  EXPECT_EQ(s.GetBufferSetLength(10), nullptr);
  s.SetAt(0, 'z');
  s.ReleaseBuffer();
  s.ReleaseBufferSetLength(1);
  s.Format(buf, 1, 2);
  s.AppendFormat("%d", 3);
  s.FormatMessage(buf);
  s.FormatMessage(5u);
  s.FormatMessageA(buf);
  s.FormatMessageA(5u);
  s.print();
  EXPECT_EQ(str(s), "abc");
}

TEST(VstringCore, HugeTextsAreMade) {
  std::string big(3 * 1024 * 1024, 'q');
  big[12345] = '\xFF';
  vstring s(big.c_str());
  EXPECT_EQ(s.len(), big.size());
  vstring t = s.mid(12345, 3);
  EXPECT_EQ(str(t), "q\xFFq");
  s.cat(s);
  EXPECT_EQ(s.len(), 2 * big.size());
  EXPECT_EQ(str(s.right(3)), "qqq");
}

TEST(VstringCore, HostileArgumentsReadAsEmpty) {
  vstring negative("abc", -1);
  EXPECT_EQ(negative.blen(), 0u) << "a negative count makes no block";
  vstring s("ab");
  s.cat(static_cast<const char*>(nullptr));
  EXPECT_EQ(str(s), "ab");
  EXPECT_EQ(str(s + static_cast<const char*>(nullptr)), "ab");
  EXPECT_EQ(str(static_cast<const char*>(nullptr) + s), "ab");
  std::string high(200, '\x93');
  high += "\xFF\x80";
  vstring h(high.c_str());
  EXPECT_EQ(str(h.mid(200, 3)), "\x93\xFF\x80");
  EXPECT_EQ(str(h.left(INT_MAX)), high);
  EXPECT_EQ(str(h.mid(INT_MAX, INT_MAX)), "");
  EXPECT_EQ(str(h.mid(INT_MIN, 2)), "\x93\x93");
  EXPECT_EQ(str(h.right(INT_MIN)), "");
}

// Texts that point into the string being assigned: the block may be freed or
// overwritten by alloc, so the text must be read first.
TEST(VstringCore, AssigningFromItsOwnText) {
  struct Case {
    const char* label;
    const char* text;
    int offset;
    int count;  // putch count; 0 for put
    const char* want;
  } cases[] = {
      {"put of a tail, block kept", "abcdef", 2, 0, "cdef"},
      {"put of a tail, block replaced", "0123456789012345678901234567890123456789", 38, 0, "89"},
      {"put of the whole text", "abcdef", 0, 0, "abcdef"},
      {"putch of a middle", "abcdef", 1, 3, "bcd"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    vstring s(c.text);
    if (c.count == 0) {
      s.put(s.optr() + c.offset);
    } else {
      s.putch(s.optr() + c.offset, c.count);
    }
    EXPECT_EQ(str(s), c.want);
  }
  vstring self("abcdef");
  self.cpytext(self, 0, 3);
  EXPECT_EQ(str(self), "abc");
  self.cpytext(self, 1, 2);
  EXPECT_EQ(str(self), "bc");
}

TEST(VstringCore, CpytextBeyondTheSourceReadsZeros) {
  const vstring src("abcdef");
  struct Case {
    unsigned start;
    unsigned n;
    const char* text;  // what the result reads as
    unsigned len;
  } cases[] = {
      {2, 4, "cdef", 4},    // exactly to the end
      {2, 10, "cdef", 10},  // past the end: length as asked, text ends early
      {6, 3, "", 3},        // from the terminator
      {100, 5, "", 5},      // far outside the source
      {0xFFFFFFF0u, 2, "", 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.start << ',' << c.n);
    vstring s;
    s.cpytext(src, c.start, c.n);
    EXPECT_EQ(s.len(), c.len);
    EXPECT_STREQ(s.optr(), c.text);
    EXPECT_EQ(s.optr()[c.n], '\0');
  }
  vstring s;
  s.cpytext(vstring(), 3, 4);
  EXPECT_EQ(s.len(), 4u);
  EXPECT_STREQ(s.optr(), "");
}

// putLen writes the length field and nothing else; what is read through a
// length beyond the capacity never comes from outside the block, and copies
// of a length set short end with a terminator.
TEST(VstringCore, PutLenAtAndBeyondItsLimits) {
  vstring shortened("abcdef");
  shortened.putLen(3);
  EXPECT_EQ(shortened.len(), 3u);
  EXPECT_STREQ(shortened.optr(), "abcdef");
  vstring copy(shortened);
  EXPECT_EQ(str(copy), "abc");
  EXPECT_EQ(copy.optr()[3], '\0');
  EXPECT_EQ(str(shortened + "x"), "abcx");
  vstring appended("abcdef");
  appended.putLen(3);
  appended.cat('!');
  EXPECT_STREQ(appended.optr(), "abc!");

  vstring full;
  full.calloc(8);
  std::memcpy(full.optr(), "12345678", 9);
  full.putLen(full.blen());  // at the limit: valid
  EXPECT_EQ(str(vstring(full)), "12345678");

  const unsigned lengths[] = {9, 100, 0x7FFFFFF0u, 0xFFFFFFFFu};
  for (unsigned n : lengths) {
    SCOPED_TRACE(n);
    vstring s("abc");
    s.putLen(n);
    EXPECT_EQ(s.len(), n);
    EXPECT_EQ(str(vstring(s)), "abc");
    EXPECT_EQ(str(s.left(50)), "abc");
    EXPECT_EQ(str(s.right(2)), "bc");
    EXPECT_EQ(str(s.mid(2, 50)), "bc");
    EXPECT_EQ(str(s + s), "abcabc");
    vstring t("x");
    t.cat(s);
    EXPECT_EQ(str(t), "xabc");
    s.trunc(50);
    s.cat("d");
    EXPECT_EQ(str(s), "abcd");
  }
  vstring none;
  none.putLen(5);
  EXPECT_EQ(none.len(), 0u) << "no block, nothing written";
}

}  // namespace
