// Internal: not part of the public interface.
//
// The hash table of the word-list set operations: a chained table from a
// word to a small integer that keeps no text of its own. Each entry points
// into the list text being walked, which must stay unchanged while the table
// lives; one table serves one call.
//
//   txc::WordTable table(txc::word_table_hint(list.len()));
//   bool made = false;
//   txc::WordEntry* e = table.findOrInsert("abc", 3, &made);   // made: true
//   table.findOrInsert("abc", 3, &made);                       // made: false
//
// The bucket array comes from the tracked allocator (counted, and reported on
// standard error when it cannot be had); entries come from operator new, so
// running out of memory there throws std::bad_alloc with the table intact
// for its destructor.
#pragma once

#include <txCommon/WorkingArray.h>

#include <cstdint>

namespace txc {

// The hash of vstring::hash over `length` bytes at `text`, without making a
// string of them. The two must agree: the table is keyed by this value.
std::uint32_t word_hash(const char* text, int length);

struct WordEntry {
  WordEntry* next;        // next entry of the chain
  std::uint32_t hash;     // word_hash of the word
  const char* word;       // the word's first byte, inside the caller's text
  std::int32_t length;    // bytes of the word
  std::int32_t value;     // caller's mark, 0 when the entry is made
};

// The size hint of the set operations, from the length of the list the call
// is made on: a quarter of it, at least 16 and at most 2048.
std::uint32_t word_table_hint(std::uint32_t listLength);

class WordTable {
public:
  // Bucket counts are powers of two from 8 to 65536.
  static constexpr std::uint32_t kMinBuckets = 8;
  static constexpr std::uint32_t kMaxBuckets = 65536;

  // The bucket count is the smallest power of two that is at least `hint`
  // and at least 8, and 65536 for any hint above that. When the bucket array
  // cannot be had, the failure line goes to standard error and usable() is
  // false; such a table holds nothing and finds nothing.
  explicit WordTable(std::uint32_t hint);
  ~WordTable();
  WordTable(const WordTable&) = delete;
  WordTable& operator=(const WordTable&) = delete;

  bool usable() const { return buckets_.items != nullptr; }

  // The entry of the word, made now (value 0, at the head of its chain) when
  // there was none; `*made` says which. Null only for an unusable table.
  WordEntry* findOrInsert(const char* word, int length, bool* made);
  // The entry of the word with this hash, or null; changes nothing.
  WordEntry* lookup(std::uint32_t hash, const char* word, int length) const;

  std::uint32_t bucketCount() const { return static_cast<std::uint32_t>(buckets_.count); }
  std::uint32_t entryCount() const { return entries_; }

private:
  WordEntry** heads() const { return reinterpret_cast<WordEntry**>(buckets_.items); }
  // Doubles the bucket array and moves the entries that now hash elsewhere.
  void grow();

  // The bucket array as a working-array representation, so that growth is a
  // tracked resize in place.
  WorkingArray buckets_{};
  std::uint32_t entries_ = 0;
  // Set once a resize has failed: the table then keeps its size, and chains
  // just get longer, rather than retrying (and writing the failure line)
  // at every new word.
  bool growthFailed_ = false;
};

}  // namespace txc
