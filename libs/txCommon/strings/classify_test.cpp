// Shape questions and the hash, with no host.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace {

vstring make(const std::string& s) { return vstring(s.data(), static_cast<txlong>(s.size())); }

TEST(Classify, IsInteger) {
  struct Case {
    const char* text;
    int want;
  } cases[] = {
      {"  -12", 1}, {"12", 1},   {"+0", 1},   {"\t\x01 7", 1}, {"007", 1},
      {"12 ", 0},   {"-", 0},    {"", 0},     {"1.5", 0},      {"--1", 0},
      {"1-", 0},    {"\xA0" "1", 0},  // 0xA0 is not a leading blank
      {"1e5", 0},   {" ", 0},    {"+", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(vstring(c.text).isInteger(), c.want);
  }
}

TEST(Classify, IsAlphaNumeric) {
  struct Case {
    const char* text;
    int want;
  } cases[] = {{"", 1}, {"abc123XYZ", 1}, {"a_b", 0}, {"a b", 0}, {"\xE9", 0}, {"9", 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s(c.text);
    EXPECT_EQ(s.IsAlphaNumeric(), c.want);
  }
}

TEST(Classify, HasWhiteSpaceMatchesIsspaceForEveryByte) {
  for (int b = 1; b < 256; ++b) {
    SCOPED_TRACE(b);
    const char text[] = {'x', static_cast<char>(b), 'y', '\0'};
    EXPECT_EQ(vstring(text).hasWhiteSpace(), std::isspace(b) ? 1 : 0);
  }
  EXPECT_EQ(vstring().hasWhiteSpace(), 0);
}

TEST(Classify, HasSeperator) {
  const std::string separators("\t\n (),*+-/<=>^", 15);
  for (int b = 1; b < 256; ++b) {
    SCOPED_TRACE(b);
    const char text[] = {'a', static_cast<char>(b), 'b', '\0'};
    const bool want = separators.find(static_cast<char>(b)) != std::string::npos;
    EXPECT_EQ(vstring(text).hasSeperator(), want ? 1 : 0);
  }
  EXPECT_EQ(vstring("a.b").hasSeperator(), 0);
  EXPECT_EQ(vstring("a:b").hasSeperator(), 0);
  EXPECT_EQ(vstring().hasSeperator(), 0);
  EXPECT_EQ(make(std::string("a\0b", 3)).hasSeperator(), 1) << "a zero byte inside the length";
}

// Values worked out independently (Python, modulo 2^32).
TEST(Hash, KnownValues) {
  struct Case {
    std::string text;
    unsigned want;
  } cases[] = {
      {"", 0x866f0831u},
      {"a", 0x71893264u},
      {"abc", 0x505f4dc7u},
      {"GENR", 0xd28e8353u},
      {"hello world", 0x3e3e1571u},
      {std::string("\xFF\x80\0A", 4), 0x8ce8cab1u},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(make(c.text).hash(), c.want);
  }
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(make(all).hash(), 0xa3470cdeu);
}

TEST(Hash, EmptyWithAndWithoutBlock) {
  vstring withBlock;
  withBlock.calloc(16);
  withBlock.alloc(0);
  EXPECT_EQ(withBlock.hash(), vstring().hash());
  EXPECT_EQ(vstring().hash(), 0x866f0831u);
}

}  // namespace
