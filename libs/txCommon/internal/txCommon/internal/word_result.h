// Internal: not part of the public interface.
//
// The result of a word-list operation in the making. Words go into a
// StringSpool (from the host's Allocate, or the system allocator with no
// host) joined by exactly one blank, with none in front and none behind,
// whatever stood between them in the source; finish() copies the text into
// the next temporary, and the spool's block goes back when the object dies,
// before the operation returns.
//
//   txc::WordResult out;              // 2048 bytes, grows on demand
//   out.add("a", 1);
//   out.add("(b c)", 5);
//   return out.finish();              // "a (b c)"
#pragma once

#include <txCommon/StringSpool.h>

class vstring;

namespace txc {

class WordResult {
public:
  // The capacity the positional operations open their spool with.
  static constexpr int kDefaultCapacity = 2048;

  explicit WordResult(int capacity = kDefaultCapacity) : spool_(capacity) {}

  // Appends one word as it stands, after a blank unless it is the first. A
  // word the spool cannot take (the host refused to let it grow) is dropped
  // whole, blank included, so the text never ends in a blank.
  void add(const char* word, int length);
  bool empty() const { return spool_.len() == 0; }
  // The text so far, in the next temporary.
  vstring& finish();

private:
  StringSpool spool_;
};

}  // namespace txc
