// Word lists as sets: WUnique, WUnion, WIntersect and WNotIn.
//
// One hashed pass over each list. Words are taken as nextWord finds them,
// quotes and inner spacing included, and compared byte for byte, so `abc`,
// `ABC` and `"abc"` are three different words.
//
//   vstring("a b a  c b").WUnique();            // "a b c"
//   vstring("b a").WUnion("c a b");             // "b a c"
//   vstring("a b a c").WNotIn("b");             // "a c"
//   vstring("d b").WIntersect("a b c d");       // "b d": the longer text's order
//
// Each call opens its result spool and then its word table before it reads
// a word, and gives both back before it returns. When the table's bucket
// array cannot be had (the failure line is on standard error) the call gives
// an empty temporary: there is no way to tell repeated words apart.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/word_result.h>
#include <txCommon/internal/word_scan.h>
#include <txCommon/internal/word_table.h>
#include <txCommon/vstring.h>

#include <climits>
#include <cstdint>

namespace {

// Spools are sized from the operands in advance, never below 64 bytes.
constexpr long long kMinSpool = 64;

int spool_capacity(long long bytes) {
  if (bytes < kMinSpool) return static_cast<int>(kMinSpool);
  return bytes > INT_MAX - 1 ? INT_MAX - 1 : static_cast<int>(bytes);
}

// The working storage of one set operation, in the order it is opened.
struct SetWork {
  SetWork(long long spoolBytes, const vstring& self)
      : out(spool_capacity(spoolBytes)), table(txc::word_table_hint(self.len())) {}
  txc::WordResult out;
  txc::WordTable table;
};

// Every word of `list` goes into the table; with `out`, a word seen for the
// first time is appended to the result as well.
void collect(const vstring& list, txc::WordTable& table, txc::WordResult* out) {
  const char* cursor = list.optr();
  const char* start = nullptr;
  int length = 0;
  while (nextWord(cursor, start, length)) {
    bool made = false;
    table.findOrInsert(start, length, &made);
    if (made && out != nullptr) out->add(start, length);
  }
}

}  // namespace

vstring& vstring::WUnique() const {
  SetWork work(len(), *this);
  if (!work.table.usable()) return txc::next_temp().clear();
  collect(*this, work.table, &work.out);
  return work.out.finish();
}

vstring& vstring::WUnion(const vstring& other) const {
  SetWork work(static_cast<long long>(len()) + other.len(), *this);
  if (!work.table.usable()) return txc::next_temp().clear();
  collect(*this, work.table, &work.out);
  collect(other, work.table, &work.out);
  return work.out.finish();
}

vstring& vstring::WNotIn(const vstring& other) const {
  SetWork work(len(), *this);
  if (!work.table.usable()) return txc::next_temp().clear();
  collect(other, work.table, nullptr);
  collect(*this, work.table, &work.out);
  return work.out.finish();
}

vstring& vstring::WIntersect(const vstring& other) const {
  const unsigned mine = len();
  const unsigned theirs = other.len();
  SetWork work(mine < theirs ? mine : theirs, *this);
  if (!work.table.usable()) return txc::next_temp().clear();
  // The shorter text goes into the table and the longer one is walked, so
  // the result follows the longer text; on equal lengths this list is walked.
  const bool storeMine = mine < theirs;
  collect(storeMine ? *this : other, work.table, nullptr);
  const vstring& walked = storeMine ? other : *this;
  const char* cursor = walked.optr();
  const char* start = nullptr;
  int length = 0;
  while (nextWord(cursor, start, length)) {
    txc::WordEntry* e = work.table.lookup(txc::word_hash(start, length), start, length);
    if (e == nullptr || e->value != 0) continue;
    e->value = 1;
    work.out.add(start, length);
  }
  return work.out.finish();
}
