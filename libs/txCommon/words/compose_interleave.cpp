// WInterleave: groups of words taken from two lists in turn.
//
//   vstring("a b c").WInterleave("x y", 2, 1);   // a b x c "" y
//
// A list that runs out is padded with `""`, so every group is complete and
// the words keep their places: word k of a group is always the k-th word of
// its list's share. Words are copied as they stand, quotes included.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/word_scan.h>
#include <txCommon/vstring.h>

#include "compose_out.h"

namespace {

// Code reported for a count below 1.
constexpr int kBadCount = 110;
constexpr int kSpoolCapacity = 2048;

// The word in hand of one list, and the road to its next one.
class ListReader {
public:
  explicit ListReader(const char* text) : cursor_(text) {}

  void next() {
    if (!nextWord(cursor_, start_, length_)) length_ = 0;
  }
  bool exhausted() const { return length_ == 0; }

  // The word in hand, or the two bytes "" that stand in for a missing one.
  bool append(txc::ComposeOut& out) const {
    static const char kPad[2] = {'"', '"'};
    return exhausted() ? out.piece(" ", 1, kPad, 2) : out.piece(" ", 1, start_, length_);
  }

private:
  const char* cursor_;
  const char* start_ = nullptr;
  int length_ = 0;
};

// The word in hand and then `count` - 1 more. False once the output is full.
bool append_share(txc::ComposeOut& out, ListReader& list, int count) {
  list.append(out);
  for (int k = 1; k < count && !out.full(); ++k) {
    list.next();
    list.append(out);
  }
  return !out.full();
}

// Every word of both lists always fits (words and the blanks after them take
// at most the two texts and one blank); only the padding is bounded.
int result_limit(unsigned mine, unsigned theirs) {
  const long long limit = static_cast<long long>(mine) + theirs + 1 + txc::ComposeOut::kResultLimit;
  return limit > txc::ComposeOut::kLengthLimit ? txc::ComposeOut::kLengthLimit : static_cast<int>(limit);
}

}  // namespace

vstring& vstring::WInterleave(const vstring& other, int countThis, int countOther) const {
  if (countThis < 1 || countOther < 1) {
    txc::report_error(kBadCount);
    return txc::next_temp().clear();
  }
  txc::ComposeOut out(kSpoolCapacity, result_limit(len(), other.len()));
  ListReader mine(optr());
  ListReader theirs(other.optr());
  mine.next();
  theirs.next();
  while (!mine.exhausted() || !theirs.exhausted()) {
    // A host that has flagged an error gets what is assembled so far.
    if (txc::error_pending() != 0) break;
    // The blank between groups is the one in front of the group's first word.
    if (!append_share(out, mine, countThis)) break;
    if (!append_share(out, theirs, countOther)) break;
    mine.next();
    theirs.next();
  }
  return out.finish();
}
