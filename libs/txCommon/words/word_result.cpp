// Assembly of word-list results: one blank between words, none around them.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/word_result.h>
#include <txCommon/vstring.h>

namespace txc {

void WordResult::add(const char* word, int length) {
  if (length <= 0) return;
  const int before = spool_.len();
  if (before > 0) spool_.cat(' ');
  spool_.cat(word, length);
  // The spool drops an append it could not grow for; the blank may have fit
  // where the word did not, and must not be left dangling.
  const int expected = before + (before > 0 ? 1 : 0) + length;
  if (spool_.len() != expected) spool_.trunc(before);
}

vstring& WordResult::finish() {
  vstring& result = next_temp();
  spool_.assign(result);
  return result;
}

}  // namespace txc
