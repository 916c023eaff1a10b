// Word lists by position: WCount, WMid, WLeft, WRight, WordQ and Word.
//
// Every position counts words as nextWord finds them, from 1. Results join
// the words by one blank whatever stood between them in the source, with the
// one exception of WRight when it is asked for the whole list:
//
//   vstring s("  a   b  ");
//   s.WMid(1, 2);   // "a b"
//   s.WRight(1);    // "b"
//   s.WRight(2);    // "  a   b  " : the text exactly as it stands
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/word_result.h>
#include <txCommon/internal/word_scan.h>
#include <txCommon/vstring.h>

namespace {

// WRight's "all the rest": ten million words, more than any list holds that
// fits in a 32-bit length with blanks between.
constexpr int kAllWords = 10000000;

}  // namespace

int vstring::WCount() const {
  const char* cursor = optr();
  const char* start = nullptr;
  int length = 0;
  int count = 0;
  while (nextWord(cursor, start, length)) ++count;
  return count;
}

vstring& vstring::WMid(int first, int count) const {
  if (first < 1 || count < 1) return txc::next_temp().clear();
  txc::WordResult out;
  const char* cursor = optr();
  const char* start = nullptr;
  int length = 0;
  // Words before `first` are only stepped over, never copied.
  for (int skip = first - 1; skip > 0; --skip) {
    if (!nextWord(cursor, start, length)) return out.finish();
  }
  for (int left = count; left > 0 && nextWord(cursor, start, length); --left) {
    out.add(start, length);
  }
  return out.finish();
}

vstring& vstring::WLeft(int n) const { return WMid(1, n); }

vstring& vstring::WRight(int n) const {
  const int count = WCount();
  if (count < 1 || n < 1) return txc::next_temp().clear();
  if (txc::error_pending()) return txc::next_temp().clear();
  if (n >= count) return txc::next_temp().put(*this);
  return WMid(count - n + 1, kAllWords);
}

vstring& vstring::WordQ(int n) const { return WMid(n, 1); }

vstring& vstring::Word(int n) const { return WMid(n, 1).StripQuotesEx(); }
