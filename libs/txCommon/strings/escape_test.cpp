// Escape sequences with no host: both directions on the documented cases,
// runs of backslashes, and the round trip over seeded random texts.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include "edit_test_support.h"

#include <random>
#include <string>
#include <vector>

using edit_test::bytes;
using edit_test::make;

namespace {

TEST(Escape, Writing) {
  struct Case {
    std::string text, want;
  };
  const Case cases[] = {
      {"a\r\nb", "a\\nb"},   {"a\\b", "a\\\\b"},     {"a\n\rb", "a\\nb"},  {"\r", "\\n"},
      {"\n\n", "\\n\\n"},    {"\r\n\r\n", "\\n\\n"}, {"\t\"", "\t\""},     {"", ""},
      {"\\", "\\\\"},        {"\n\\", "\\n\\\\"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s = make(c.text);
    s.ConvertEscSequencesToAscii();
    EXPECT_EQ(bytes(s), c.want);
  }
}

TEST(Escape, Reading) {
  struct Case {
    std::string text, want;
  };
  const Case cases[] = {
      {"a\\nb", "a\r\nb"},
      {"a\\\\b", "a\\b"},
      {"\\r\\n", "\r\n"},
      {"\\n\\r", "\r\n"},
      {"\\n\\n", "\r\n\r\n"},
      {"\\r\\r", "\r\n\r\n"},
      {"\\n\\t", "\\n\\t"},
      {"\\t", "\\t"},
      {"\\\"", "\\\""},
      {"\\r", "\r\n"},
      {"a\\", "a\\"},
      {"\\n\\", "\\n\\"},
      {"\\n\\\\", "\\n\\"},
      {"\\\\\\\\\\\\", "\\\\\\"},
      {"\\\\n", "\\n"},
      {"", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    vstring s = make(c.text);
    s.ConvertAsciiToEscSequences();
    EXPECT_EQ(bytes(s), c.want);
  }
  // Many backslashes in a row: every pair falls to one, however long.
  vstring run = make(std::string(200000, '\\'));
  run.ConvertAsciiToEscSequences();
  EXPECT_EQ(bytes(run), std::string(100000, '\\'));
}

// Back and forth gives the text with line ends as CR LF, except that a line
// end right in front of a backslash stays written as \n. The reader takes
// two escaped line ends in a row as one unit, so the second of such a pair
// is converted whatever follows it.
std::string expected_round_trip(const std::string& s) {
  std::vector<std::string> tokens;  // "\n" for each line end, else one byte
  for (std::size_t i = 0; i < s.size(); ++i) {
    const char c = s[i];
    if (c != '\r' && c != '\n') {
      tokens.emplace_back(1, c);
      continue;
    }
    const char partner = c == '\r' ? '\n' : '\r';
    if (i + 1 < s.size() && s[i + 1] == partner) ++i;
    tokens.emplace_back("\n");
  }
  std::string out;
  for (std::size_t k = 0; k < tokens.size(); ++k) {
    if (tokens[k] != "\n") {
      out += tokens[k];
    } else if (k + 1 < tokens.size() && tokens[k + 1] == "\n") {
      out += "\r\n\r\n";
      ++k;
    } else if (k + 1 < tokens.size() && tokens[k + 1] == "\\") {
      out += "\\n";
    } else {
      out += "\r\n";
    }
  }
  return out;
}

TEST(Escape, RoundTrip) {
  std::mt19937 gen(99);
  const std::string alphabet = "\\\r\nnrta";
  std::uniform_int_distribution<int> len(0, 20), pick(0, static_cast<int>(alphabet.size()) - 1);
  for (int round = 0; round < 5000; ++round) {
    std::string text(static_cast<std::size_t>(len(gen)), ' ');
    for (char& c : text) c = alphabet[static_cast<std::size_t>(pick(gen))];
    SCOPED_TRACE(text);
    vstring s = make(text);
    s.ConvertEscSequencesToAscii();
    s.ConvertAsciiToEscSequences();
    EXPECT_EQ(bytes(s), expected_round_trip(text));
  }
}

}  // namespace
