// The word table of the set operations: chained hashing into a power-of-two
// bucket array that doubles as entries arrive, up to 65536 buckets.
#include <txCommon/internal/tracked_memory.h>
#include <txCommon/internal/word_table.h>

#include <cstring>

namespace txc {

namespace {

// vstring::hash, step for step: a multiply-by-33 pass from a fixed seed, then
// a fixed scramble. The table must key words exactly as that method would,
// and the word itself is never copied into a string to call it.
constexpr std::uint32_t kHashSeed = 0xFE51983Bu;
constexpr std::uint32_t kHashStep = 33;
constexpr std::uint32_t kSpread = 4256657u;
constexpr std::uint32_t kMix = 8513314u;
constexpr std::uint32_t kDivisor = 1021u;
constexpr std::uint32_t kFold = 51079501u;

constexpr std::uint32_t kHintFloor = 16;
constexpr std::uint32_t kHintCeiling = 2048;

std::uint32_t bucket_count_for(std::uint32_t hint) {
  if (hint >= WordTable::kMaxBuckets) return WordTable::kMaxBuckets;
  std::uint32_t n = WordTable::kMinBuckets;
  while (n < hint) n <<= 1;
  return n;
}

bool same_word(const WordEntry& e, std::uint32_t hash, const char* word, int length) {
  return e.hash == hash && e.length == length &&
         std::memcmp(e.word, word, static_cast<std::size_t>(length)) == 0;
}

}  // namespace

std::uint32_t word_hash(const char* text, int length) {
  std::uint32_t h = kHashSeed;
  for (int i = 0; i < length; ++i) h = h * kHashStep + static_cast<unsigned char>(text[i]);
  const std::uint32_t x = h * kSpread;
  return x * kMix - (x / kDivisor) * kFold;
}

std::uint32_t word_table_hint(std::uint32_t listLength) {
  const std::uint32_t quarter = listLength / 4;
  if (quarter < kHintFloor) return kHintFloor;
  return quarter > kHintCeiling ? kHintCeiling : quarter;
}

WordTable::WordTable(std::uint32_t hint) {
  const std::uint32_t count = bucket_count_for(hint);
  buckets_.elementSize = static_cast<std::int32_t>(sizeof(WordEntry*));
  const std::uint32_t bytes = count * static_cast<std::uint32_t>(sizeof(WordEntry*));
  void* block = TrackedAlloc(bytes);
  if (block == nullptr) {
    // The failure line is written; TrackedFree evens the counters that the
    // failed request raised.
    TrackedFree(nullptr, bytes);
    return;
  }
  std::memset(block, 0, bytes);
  buckets_.items = static_cast<unsigned char*>(block);
  buckets_.count = static_cast<std::int32_t>(count);
}

WordTable::~WordTable() {
  if (!usable()) return;
  WordEntry** head = heads();
  for (std::uint32_t b = 0; b < bucketCount(); ++b) {
    for (WordEntry* e = head[b]; e != nullptr;) {
      WordEntry* next = e->next;
      delete e;
      e = next;
    }
  }
  TrackedFree(buckets_.items, bucketCount() * static_cast<std::uint32_t>(sizeof(WordEntry*)));
}

WordEntry* WordTable::lookup(std::uint32_t hash, const char* word, int length) const {
  if (!usable()) return nullptr;
  for (WordEntry* e = heads()[hash & (bucketCount() - 1)]; e != nullptr; e = e->next) {
    if (same_word(*e, hash, word, length)) return e;
  }
  return nullptr;
}

WordEntry* WordTable::findOrInsert(const char* word, int length, bool* made) {
  *made = false;
  if (!usable()) return nullptr;
  const std::uint32_t hash = word_hash(word, length);
  if (WordEntry* found = lookup(hash, word, length)) return found;
  if (entries_ >= bucketCount()) grow();
  // Made before it is linked in: should new throw, the table is as it was.
  auto* e = new WordEntry{nullptr, hash, word, length, 0};
  WordEntry*& head = heads()[hash & (bucketCount() - 1)];
  e->next = head;
  head = e;
  ++entries_;
  *made = true;
  return e;
}

void WordTable::grow() {
  const std::uint32_t old = bucketCount();
  if (old >= kMaxBuckets || growthFailed_) return;
  if (!ResizeArray(buckets_, static_cast<int>(old * 2))) {
    growthFailed_ = true;
    return;
  }
  WordEntry** head = heads();
  std::memset(head + old, 0, old * sizeof(WordEntry*));
  const std::uint32_t mask = old * 2 - 1;
  for (std::uint32_t b = 0; b < old; ++b) {
    WordEntry** link = &head[b];
    while (WordEntry* e = *link) {
      if ((e->hash & mask) == b) {
        link = &e->next;
        continue;
      }
      *link = e->next;  // unlink, then push on the head of bucket b + old
      e->next = head[b + old];
      head[b + old] = e;
    }
  }
}

}  // namespace txc
