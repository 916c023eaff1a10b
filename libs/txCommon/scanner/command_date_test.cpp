// Date words with no host and the hint at its start value.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }
using Words = std::vector<std::string>;

Words dates(const char* text, int plain, const RegularFreq* freq) {
  command c(text);
  Words out;
  for (int guard = 0; guard < 100; ++guard) {
    const std::string w = bytes(c.word_date_full(plain, freq));
    if (w.empty()) break;
    out.push_back(w);
  }
  return out;
}

TEST(WordDate, JoinsATimeOfDay) {
  struct Case {
    const char* text;
    const char* want;
    const char* next;  // the word behind
  };
  const Case cases[] = {
      {"1/15/90 10:30 x", "1/15/90 10:30", "x"},
      {"1/15/90    3pm", "1/15/90 3pm", ""},
      {"1/15/90 25:00", "1/15/90", "25:00"},
      {"1/15/90 7", "1/15/90", "7"},
      {"1/15/90 09:30", "1/15/90 09:30", ""},
      {"1/15/90 23:59:59 y", "1/15/90 23:59:59", "y"},
      {"1/15/90 9:30pm", "1/15/90 9:30pm", ""},
      {"1/15/90 11AM", "1/15/90 11AM", ""},
      {"1/15/90 24:00", "1/15/90", "24:00"},
      {"1/15/90 9:75", "1/15/90", "9:75"},
      {"1/15/90 9:300", "1/15/90", "9:300"},
      {"1/15/90 9:30:75", "1/15/90", "9:30:75"},
      {"1/15/90 12", "1/15/90", "12"},
      {"abcd 10:30", "abcd", "10:30"},
      {"1990 10:30", "1990", "10:30"},
      {"(x) 10:30", "(x)", "10:30"},
      {"jan90 10:30", "jan90 10:30", ""},
      {"january 10:30", "january", "10:30"},
      {"x+y z", "x+y", "z"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    command k(c.text);
    EXPECT_EQ(bytes(k.word_date()), c.want);
    EXPECT_EQ(bytes(k.word(1)), c.next);
  }
}

TEST(WordDate, BackupReturnsInFrontOfTheDate) {
  command k("a  1/15/90 10:30 x");
  k.word(1);
  EXPECT_EQ(bytes(k.word_date()), "1/15/90 10:30");
  k.backup();
  EXPECT_EQ(k.GetOffset(), 3);
  RegularFreq unused{};
  EXPECT_EQ(bytes(k.word_date(unused)), "1/15/90 10:30");
}

TEST(WordDateFull, WholeDates) {
  EXPECT_EQ(dates("1/15/90 10:30 EST rest", 0, nullptr), Words({"1/15/90 10:30 EST", "rest"}));
  EXPECT_EQ(dates("1 2 3", 0, nullptr), Words({"1 2 3"}));
  EXPECT_EQ(dates("1 2 3", 1, nullptr), Words({"1", "2", "3"}));
  EXPECT_EQ(dates("1990Q1 2000Q4", 0, nullptr), Words({"1990Q1", "2000Q4"}));
  EXPECT_EQ(dates("abc", 0, nullptr), Words({"abc"}));
  EXPECT_EQ(dates("", 0, nullptr), Words());
}

TEST(WordDateFull, RecordAsksForAFinerDate) {
  RegularFreq daily{};
  daily.frequency = FREQ_DAILY;
  daily.multiple = 1;
  command k("1990 x");
  EXPECT_EQ(bytes(k.word_date_full(0, &daily)), "1990");
  EXPECT_EQ(bytes(k.word(1)), "x");
  EXPECT_EQ(dates("1/15/90 1/16/90", 0, &daily), Words({"1/15/90", "1/16/90"}));
}

TEST(NumDates, Counts) {
  command k("1990Q1 2000Q4");
  k.word(1);
  EXPECT_EQ(k.num_dates(0, nullptr), 2);
  EXPECT_EQ(k.GetOffset(), 0);
  command w("abc");
  EXPECT_EQ(w.num_dates(0, nullptr), 1);
  command t("1/15/90 10:30 EST 2/1/91");
  EXPECT_EQ(t.num_dates(0, nullptr), 2);
  EXPECT_EQ(t.num_dates(1, nullptr), 4);
}

TEST(WordDate, HostileText) {
  std::string digits(300000, '1');
  command k(digits.c_str());
  EXPECT_EQ(k.num_dates(0, nullptr), 3);  // cut at the scratch buffer, three words
  std::string blanks = "1 " + std::string(200000, ' ') + "2";
  command b(blanks.c_str());
  EXPECT_GE(b.num_dates(0, nullptr), 1);
  command high("\xE9\xE9\xE9\xE9\xE9 10:30");
  EXPECT_EQ(bytes(high.word_date()), "\xE9\xE9\xE9\xE9\xE9");
}

}  // namespace
