// The stand-alone word `C` of a list: found, removed, or moved to a place.
//
// Regression lists carry the constant as the word `C`; these keep it where
// the caller wants it:
//
//   vstring s("X C Y");
//   s.findC();               // 2
//   s.removeC();             // "X Y "
//   s.adjustCPosition(1);    // "C X Y "
//
// hasC and findC look at bytes: a `C` with the start or a byte that is at most
// 0x20 as a signed value on each side (so bytes of 0x80 and up border it like
// blanks, and quotes do not protect it). removeC and adjustCPosition rebuild
// the list from the words of the statement scanner (command::word(1)), each
// word followed by one blank, the last one too.
#include <txCommon/StringSpool.h>
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

namespace {

// Blocks of the rebuilt list: at least this much, and for adjustCPosition
// the text's length plus room for the "C " it may add.
constexpr int kMinSpool = 64;
constexpr int kAdjustSlack = 10;

bool borders_c(char c) { return static_cast<signed char>(c) <= 0x20; }

bool is_c_word(const vstring& word) { return word.len() == 1 && word.optr()[0] == 'C'; }

void append_word(StringSpool& out, const vstring& word) {
  out.cat(word);
  out.cat(' ');
}

int adjust_capacity(unsigned length) {
  const long long wanted = static_cast<long long>(length) + kAdjustSlack;
  if (wanted < kMinSpool) return kMinSpool;
  return wanted > 0x7fff0000LL ? 0x7fff0000 : static_cast<int>(wanted);
}

}  // namespace

int vstring::findC() {
  const char* p = optr();
  for (long long i = 0; p[i] != '\0'; ++i) {
    if (p[i] == 'C' && (i == 0 || borders_c(p[i - 1])) && borders_c(p[i + 1])) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

int vstring::hasC() { return findC() >= 0 ? 1 : 0; }

vstring& vstring::removeC() {
  command words;
  words.swap(*this);  // this string starts out empty
  StringSpool out(kMinSpool);
  for (;;) {
    const vstring& word = words.word(1);
    if (word.len() == 0) break;
    if (!is_c_word(word)) append_word(out, word);
  }
  out.assign(*this);
  return *this;
}

void vstring::adjustCPosition(int position) {
  command words;
  words.swap(*this);
  StringSpool out(adjust_capacity(words.len()));
  static const char kC[] = "C ";
  int counter = 1;
  for (;;) {
    if (counter == position) {
      out.cat(kC);
      ++counter;
    }
    const vstring& word = words.word(1);
    if (word.len() == 0) break;
    if (is_c_word(word)) continue;  // dropped without counting
    append_word(out, word);
    ++counter;
  }
  // A position behind the last word puts C at the end.
  if (counter <= position) out.cat(kC);
  out.assign(*this);
}
