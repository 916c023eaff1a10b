// Internal: not part of the public interface.
//
// The one rule for editing and quoting results laid out in the scratch
// buffer (TempBuf(), TempBufLen() bytes plus 8 spare ones).
//
// Several operations build their result there with no size test of their own:
// SurroundWithQuotes, MakeQuoted, ConvertToDblQuotes, removeCharacter,
// removeWhiteSpace(nq), MakeAlphaNumeric, CR_LF_to_LF and replace_mult. On the
// built-in road the buffer never grows, and a host may hand out less than the
// operation asked EnsureTempBuf for. So every one of them writes through a
// ScratchWriter, and a result that would outgrow the buffer gets the same
// treatment everywhere:
//
//   The source is read in whole units (one byte, a doubled quote, one
//   replacement) while the unit still fits within TempBufLen() bytes; the
//   first unit that does not fit ends the reading, and the rest of the source
//   is dropped without a report. Closing bytes (the final quote of the
//   quoting operations) are reserved up front, so a cut result is still well
//   formed: `"` + head of text + `"`.
//
// So a text too large for the buffer always gets the head of its full result,
// cut between units, with no report: never a split doubled quote, never a
// missing closing quote, never a byte beyond the buffer. replace_mult keeps
// its own, earlier stop (see replace.cpp): it reads on only while its output
// is below TempBufLen() minus the length of `to`, so that one more
// replacement always fits; its result is the same kind of head.
//
// A result is thus at most TempBufLen() bytes, or exactly its closing bytes
// when the host reports a buffer smaller than those; the 8 spare bytes hold
// them and the terminator. With no host, TempBufLen() is 131,040.
#pragma once

#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <climits>
#include <cstring>

namespace txc {

// length + extra for EnsureTempBuf, held at INT_MAX instead of wrapping.
inline int scratch_need(unsigned length, unsigned extra) {
  const unsigned long long sum = static_cast<unsigned long long>(length) + extra;
  return sum > static_cast<unsigned long long>(INT_MAX) ? INT_MAX : static_cast<int>(sum);
}

// Assigns n bytes (no terminator needed) to `s` by the class's sizing rule;
// n of 0 releases the block. `bytes` may not point into `s`.
inline vstring& assign_bytes(vstring& s, const char* bytes, unsigned n) {
  if (n == 0) return s.clear();
  char* p = s.alloc(n);
  std::memcpy(p, bytes, n);
  p[n] = '\0';
  return s;
}

class ScratchWriter {
public:
  // `closing`: bytes the caller will append with close() at the end (at most
  // 7, so that they and the terminator always fit the spare room).
  explicit ScratchWriter(unsigned closing = 0)
      : buf_(temp_buf()), closing_(closing) {
    const int reported = temp_buf_len();
    const unsigned cap = reported > 0 ? static_cast<unsigned>(reported) : 0;
    room_ = cap > closing ? cap - closing : 0;
  }

  // True when n more bytes fit in front of the reserved closing bytes.
  bool fits(unsigned n) const { return used_ <= room_ && n <= room_ - used_; }
  // Appends when the unit fits; false (and nothing written) when it does not.
  bool put(char c) {
    if (used_ >= room_) return false;
    buf_[used_++] = c;
    return true;
  }
  bool put(const char* bytes, unsigned n) {
    if (!fits(n)) return false;
    std::memcpy(buf_ + used_, bytes, n);
    used_ += n;
    return true;
  }
  // Appends a reserved closing byte; never fails for the bytes announced.
  void close(char c) {
    if (closed_ < closing_) {
      buf_[used_++] = c;
      ++closed_;
    }
  }
  unsigned size() const { return used_; }
  // Zero-ends the result and copies it into `s`.
  vstring& assign_to(vstring& s) {
    buf_[used_] = '\0';
    return assign_bytes(s, buf_, used_);
  }

private:
  char* buf_;
  unsigned room_ = 0;
  unsigned used_ = 0;
  unsigned closing_;
  unsigned closed_ = 0;
};

}  // namespace txc
