// The word table: its hash against vstring::hash, its sizes, its growth up to
// 65536 buckets, and the tracked memory it gives back.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

TEST(WordTable, HashIsVstringHash) {
  std::mt19937 gen(1);
  std::uniform_int_distribution<int> byte(1, 255);
  for (int n = 0; n < 64; ++n) {
    for (int round = 0; round < 20; ++round) {
      std::string text;
      for (int i = 0; i < n; ++i) text += static_cast<char>(byte(gen));
      SCOPED_TRACE(n);
      const vstring s(text.data(), static_cast<txlong>(text.size()));
      ASSERT_EQ(txc::word_hash(text.data(), n), s.hash());
    }
  }
}

TEST(WordTable, SizeHints) {
  struct Case {
    std::uint32_t length;
    std::uint32_t hint;
  } const hints[] = {{0, 16}, {63, 16}, {68, 17}, {4000, 1000}, {8192, 2048}, {8195, 2048},
                     {4000000000u, 2048}};
  for (const Case& c : hints) {
    SCOPED_TRACE(c.length);
    EXPECT_EQ(txc::word_table_hint(c.length), c.hint);
  }
  struct Buckets {
    std::uint32_t hint;
    std::uint32_t count;
  } const buckets[] = {{0, 8},       {1, 8},         {8, 8},         {9, 16},
                       {16, 16},     {17, 32},       {2048, 2048},   {65535, 65536},
                       {65536, 65536}, {65537, 65536}, {0xFFFFFFFFu, 65536}};
  for (const Buckets& c : buckets) {
    SCOPED_TRACE(c.hint);
    txc::WordTable table(c.hint);
    ASSERT_TRUE(table.usable());
    EXPECT_EQ(table.bucketCount(), c.count);
    EXPECT_EQ(table.entryCount(), 0u);
  }
}

TEST(WordTable, FindInsertAndLookup) {
  const char text[] = "alpha beta alpha";
  txc::WordTable table(0);
  bool made = false;
  txc::WordEntry* a = table.findOrInsert(text, 5, &made);
  ASSERT_NE(a, nullptr);
  EXPECT_TRUE(made);
  EXPECT_EQ(a->value, 0);
  EXPECT_EQ(a->word, text) << "the entry points into the text";
  a->value = 7;
  EXPECT_EQ(table.findOrInsert(text + 11, 5, &made), a);
  EXPECT_FALSE(made);
  EXPECT_EQ(a->value, 7);
  EXPECT_EQ(table.lookup(txc::word_hash("beta", 4), "beta", 4), nullptr);
  EXPECT_EQ(table.entryCount(), 1u) << "lookup makes nothing";
  EXPECT_NE(table.findOrInsert(text + 6, 4, &made), nullptr);
  EXPECT_TRUE(made);
  // Equal hash is not enough: the length and the bytes must agree too.
  EXPECT_EQ(table.lookup(txc::word_hash("alph", 4), "alph", 4), nullptr);
  EXPECT_EQ(table.lookup(txc::word_hash("beta", 4), "beta", 4)->word, text + 6);
}

TEST(WordTable, GrowsWhenFullAndStopsAt65536) {
  std::vector<std::string> words;
  for (int i = 0; i < 200000; ++i) words.push_back(std::string("w").append(std::to_string(i)));
  const std::int32_t blocks = trackedBlocks.load();
  const std::int32_t bytes = trackedBytes.load();
  {
    txc::WordTable table(8);
    bool made = false;
    for (int i = 0; i < 8; ++i) table.findOrInsert(words[i].data(), static_cast<int>(words[i].size()), &made);
    EXPECT_EQ(table.bucketCount(), 8u) << "a full table has not grown yet";
    table.findOrInsert(words[8].data(), static_cast<int>(words[8].size()), &made);
    EXPECT_EQ(table.bucketCount(), 16u);
    for (const std::string& w : words) table.findOrInsert(w.data(), static_cast<int>(w.size()), &made);
    EXPECT_EQ(table.bucketCount(), 65536u);
    EXPECT_EQ(table.entryCount(), 200000u);
    EXPECT_EQ(trackedBytes.load() - bytes, 65536 * static_cast<int>(sizeof(void*)));
    for (const std::string& w : words) {
      const int n = static_cast<int>(w.size());
      const txc::WordEntry* e = table.lookup(txc::word_hash(w.data(), n), w.data(), n);
      ASSERT_NE(e, nullptr) << w;
      EXPECT_EQ(e->word, w.data());
    }
  }
  EXPECT_EQ(trackedBlocks.load(), blocks);
  EXPECT_EQ(trackedBytes.load(), bytes);
}

}  // namespace
