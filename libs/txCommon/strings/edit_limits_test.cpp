// The scratch-buffer bound with no host: every operation that lays its result
// out in the 131,040-byte built-in buffer, fed texts far beyond it. Results
// stay within TempBufLen() bytes, are the head of the full result, and keep
// their closing quote and doubled quotes whole. (Run under ASan/UBSan too.)
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <random>
#include <string>
#include <vector>

using edit_test::bytes;
using edit_test::cycle;
using edit_test::make;

namespace {

constexpr unsigned kBuiltIn = 131040;
const std::size_t kSizes[] = {kBuiltIn - 3, kBuiltIn - 1, kBuiltIn, kBuiltIn + 1, 300001, 1000000};

TEST(ScratchLimit, BuiltInSize) { EXPECT_EQ(_psTempBufLen2(), static_cast<txlong>(kBuiltIn)); }

// `got` must be a head of `full` of at most `room` bytes: all of it when it
// fits, else cut less than one unit (`unit` bytes of output) short of `room`.
void expect_head(const std::string& got, const std::string& full, std::size_t room = kBuiltIn,
                 std::size_t unit = 1) {
  EXPECT_LE(got.size(), room);
  ASSERT_LE(got.size(), full.size());
  EXPECT_TRUE(full.compare(0, got.size(), got) == 0);
  if (full.size() <= room) {
    EXPECT_EQ(got.size(), full.size());
  } else {
    EXPECT_GT(got.size() + unit, room);
  }
}

TEST(ScratchLimit, QuotingKeepsItsShape) {
  for (std::size_t n : kSizes) {
    SCOPED_TRACE(n);
    const std::string text = cycle("ab\"", n);
    vstring s = make(text);
    const std::string surround = bytes(s.SurroundWithQuotes());
    ASSERT_GE(surround.size(), 2u);
    EXPECT_EQ(surround.front(), '"');
    EXPECT_EQ(surround.back(), '"');
    expect_head(surround.substr(1, surround.size() - 2), text, kBuiltIn - 2);

    std::string doubled;
    for (char c : text) doubled += c == '"' ? std::string("\"\"") : std::string(1, c);
    vstring q = make(text);
    const std::string quoted = bytes(q.MakeQuoted());
    EXPECT_LE(quoted.size(), kBuiltIn);
    EXPECT_EQ(quoted.back(), '"');
    const std::string body = quoted.substr(1, quoted.size() - 2);
    expect_head(body, doubled, kBuiltIn - 2, 2);
    // A doubled quote is never split: the result strips back to a head.
    vstring back = make(quoted);
    back.StripQuotesEx();
    const std::string stripped = bytes(back);
    EXPECT_TRUE(text.compare(0, stripped.size(), stripped) == 0);

    vstring d = make(text);
    const std::string dbl = bytes(d.ConvertToDblQuotes());
    expect_head(dbl, doubled, kBuiltIn, 2);
    vstring und = make(dbl);
    const std::string undoubled = bytes(und.ConvertFromDblQuotes());
    EXPECT_TRUE(text.compare(0, undoubled.size(), undoubled) == 0);

    vstring a = make(text + " x");
    const std::string added = bytes(a.AddQuotesIfNecessary(false));
    EXPECT_LE(added.size(), kBuiltIn);
    EXPECT_EQ(added.back(), '"');
  }
}

TEST(ScratchLimit, RemovingCutsOnlyBeyondTheBuffer) {
  for (std::size_t n : kSizes) {
    SCOPED_TRACE(n);
    const std::string text = cycle("a, \xE9", n);
    std::string noComma, noWhite, noWhiteNq;
    for (char c : text) {
      if (c != ',') noComma += c;
      if (c != ' ') noWhite += c;
      if (c != ' ' && c != '\xE9') noWhiteNq += c;
    }
    vstring r = make(text);
    expect_head(bytes(r.removeCharacter(',')), noComma);
    vstring w = make(text);
    expect_head(bytes(w.removeWhiteSpace()), noWhite);
    vstring wn = make(text);
    expect_head(bytes(wn.removeWhiteSpacenq()), noWhiteNq);
    vstring m = make("--" + text);
    expect_head(bytes(m.MakeAlphaNumeric(nullptr, 0)), text);
    const std::string lines = cycle("a\r\n", n);
    expect_head(bytes(make(lines).CR_LF_to_LF()), cycle("a\n", n / 3 * 2 + n % 3));
  }
}

TEST(ScratchLimit, ReplaceMultStopsAtTheBound) {
  for (std::size_t n : kSizes) {
    SCOPED_TRACE(n);
    const std::string text = cycle("ab", n);
    vstring s = make(text);
    s.replace_mult(vstring("a"), vstring("xyz"), 9999999, 0);
    std::string full;
    for (char c : text) full += c == 'a' ? std::string("xyz") : std::string(1, c);
    // The pass stops once the output reaches TempBufLen() - len(to).
    const std::string got = bytes(s);
    EXPECT_LE(got.size(), kBuiltIn - 1);
    EXPECT_TRUE(full.compare(0, got.size(), got) == 0);
    if (full.size() < kBuiltIn - 3) {
      EXPECT_EQ(got, full);
    } else {
      EXPECT_GE(got.size(), kBuiltIn - 3);
    }
  }
  // A text beyond the bound with nothing to replace is cut at the bound too.
  vstring plain = make(std::string(kBuiltIn + 10, 'q'));
  plain.replace_mult(vstring("a"), vstring("xy"), 9999999, 0);
  EXPECT_EQ(plain.len(), kBuiltIn - 2);
  // A replacement longer than the buffer leaves nothing.
  vstring huge("a");
  huge.replace_mult(vstring("a"), make(std::string(kBuiltIn + 1, 'z')), 1, 0);
  EXPECT_TRUE(huge.isNull());
  // An empty `from` repeated without end fills the buffer and stops.
  vstring front("abc");
  front.replace_mult(vstring(), vstring("-"), 2000000000, 0);
  EXPECT_EQ(bytes(front), std::string(kBuiltIn - 1, '-'));
}

TEST(ScratchLimit, InsertAndNamesOnHugeTexts) {
  vstring s = make(std::string(500000, 'a'));
  vstring part("b");
  s.insert(part, 3);
  EXPECT_EQ(s.len(), 500000u) << "refused: far beyond 8192";
  vstring name = make("X " + std::string(400000, 'a'));
  EXPECT_EQ(name.replaceName(vstring("X"), vstring("Y")), 1);
  // The tail is taken as mid(..., TempBufLen()).
  EXPECT_EQ(name.len(), 2u + kBuiltIn - 1);
}

// Every editing and quoting entry point on hostile texts: empty, a zero byte
// inside, unbalanced runs of brackets and quotes, high bytes, line-end and
// backslash runs, megabytes of mixed bytes. Nothing may crash or touch a byte
// outside its buffers (ASan), scratch results stay within the buffer, and
// const operations leave their string alone.
TEST(ScratchLimit, HostileInputs) {
  std::mt19937 gen(4242);
  std::uniform_int_distribution<int> byte(0, 255);
  std::string mixed(1500000, ' ');
  for (char& c : mixed) c = static_cast<char>(byte(gen));
  const std::vector<std::string> inputs = {
      "",
      std::string("a\0b\"\0'", 6),
      std::string(300000, '('),
      std::string(300000, ')'),
      std::string(300000, '"'),
      "\"" + std::string(300000, 'a'),
      std::string(300000, '\xFF'),
      std::string(300000, '\\'),
      cycle("\r\n\\n\\r\\", 300000),
      cycle("{[(\"'@ \x93\x94", 300000),
      mixed,
  };
  for (const std::string& text : inputs) {
    SCOPED_TRACE(text.size());
    const vstring src = make(text);
    for (vstring* r : {&src.ltrim(), &src.rtrim(), &src.rtrim1(), &src.trim(0), &src.trim(1),
                       &src.dropchars(vstring("adwp")), &src.dropchars(vstring("p"))}) {
      EXPECT_LE(r->len(), text.size());
    }
    EXPECT_LE(src.CR_LF_to_LF().len(), kBuiltIn);
    EXPECT_EQ(bytes(src), text);

    using Op = void (*)(vstring&);
    const Op scratchOps[] = {
        [](vstring& s) { s.removeCharacter('"'); },
        [](vstring& s) { s.removeWhiteSpace(); },
        [](vstring& s) { s.removeWhiteSpacenq(); },
        [](vstring& s) { s.MakeAlphaNumeric(nullptr, 0); },
        [](vstring& s) { s.SurroundWithQuotes(); },
        [](vstring& s) { s.MakeQuoted(); },
        [](vstring& s) { s.ConvertToDblQuotes(); },
        [](vstring& s) { s.replace_mult(vstring("\""), vstring("\"\"\""), 9999999, 1); },
        [](vstring& s) { s.replace_mult(vstring(), vstring("x"), 9999999, 0); },
    };
    for (Op op : scratchOps) {
      vstring s = src;
      op(s);
      EXPECT_LE(s.len(), kBuiltIn);
    }
    const Op inPlaceOps[] = {
        [](vstring& s) { s.itrim(); },
        [](vstring& s) { s.TrimRight(); },
        [](vstring& s) { s.StripComments(1); },
        [](vstring& s) { s.remove_parens(); },
        [](vstring& s) { s.remove_brackets(); },
        [](vstring& s) { s.StripBraces(); },
        [](vstring& s) { s.StripQuotes(); },
        [](vstring& s) { s.StripQuotesEx(); },
        [](vstring& s) { s.ConvertFromDblQuotes(); },
        [](vstring& s) { s.ConvertAsciiToEscSequences(); },
        [](vstring& s) { s.TabToSpace(); },
        [](vstring& s) { vstring p("xyz"); s.insertPart(p, 1); },
        [](vstring& s) { vstring p("xyz"); s.insert(p, 1); },
        [](vstring& s) { s.replaceName(vstring("A"), vstring("B")); },
    };
    for (Op op : inPlaceOps) {
      vstring s = src;
      op(s);
      EXPECT_LE(s.len(), text.size() + 3);
    }
    // Quoted through the scratch buffer, or left exactly as it is.
    vstring added = src;
    added.AddQuotesIfNecessary(true);
    if (bytes(added) != text) {
      EXPECT_LE(added.len(), kBuiltIn);
    }
    vstring esc = src;
    esc.ConvertEscSequencesToAscii();
    EXPECT_LE(esc.len(), 2 * text.size());
    vstring hex = src;
    hex.bin2hex(hex.len());
    EXPECT_EQ(hex.len(), 2 * text.size());
  }
}

}  // namespace
