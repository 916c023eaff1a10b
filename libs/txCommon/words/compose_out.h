// Internal: not part of the public interface.
//
// The text a composition (WInterleave, WCross, WDelim) is building. It is a
// StringSpool (host's Allocate, or the system allocator) with two guards:
//
// - A result never grows past `limit` bytes. Counts and cross products are
//   the caller's to choose: WInterleave of two short lists with a count of
//   two billion, or the cross of two 100 KB lists, would grow the spool
//   towards the 32-bit length every string is bound by (where the length
//   check ends the process), 16,000 bytes a step, each step copying all that
//   is built so far. Once an append would pass the limit the output is
//   `full()`: it takes nothing more, and the caller stops reading.
// - A piece the spool could not take (the host refused to let it grow) is
//   dropped whole, with the separator in front of it, so that the text never
//   ends in a dangling separator.
//
//   txc::ComposeOut out(2048, txc::ComposeOut::kResultLimit);
//   out.piece(" ", 1, "a", 1);     // first piece: the separator is left out
//   out.piece(" ", 1, "b", 1);     // "a b"
//   return out.finish();
#pragma once

#include <txCommon/StringSpool.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <climits>

namespace txc {

class ComposeOut {
public:
  // What WInterleave may add beyond the words of its lists (padding), and
  // what WCross may build: a result of this size already takes about a
  // second of spool growth; 64 MB took four minutes.
  static constexpr int kResultLimit = 4000000;
  // WDelim rewrites a text that already exists, so only the 32-bit length
  // bounds it; the margin keeps the spool's terminator and growth
  // arithmetic inside int.
  static constexpr int kLengthLimit = INT_MAX - 65536;

  ComposeOut(int capacity, int limit) : spool_(capacity), limit_(limit) {}

  // Appends `sep` (unless nothing has been appended yet) and then `text`.
  // False when the piece did not go in: the output is full, or the host
  // refused the growth.
  bool piece(const char* sep, int sepLength, const char* text, int length) {
    if (full_) return false;
    const int before = spool_.len();
    const int lead = started_ ? sepLength : 0;
    if (static_cast<long long>(before) + lead + length > limit_) {
      full_ = true;
      return false;
    }
    if (lead > 0) spool_.cat(sep, lead);
    if (length > 0) spool_.cat(text, length);
    if (spool_.len() == before + lead + length) {
      started_ = true;
      return true;
    }
    spool_.trunc(before);
    return false;
  }

  bool full() const { return full_; }
  int length() const { return spool_.len(); }

  // The text so far, in the next temporary.
  vstring& finish() {
    vstring& result = next_temp();
    spool_.assign(result);
    return result;
  }

private:
  StringSpool spool_;
  int limit_;
  bool started_ = false;
  bool full_ = false;
};

}  // namespace txc
