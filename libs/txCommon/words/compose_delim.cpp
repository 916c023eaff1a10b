// WDelim: a list rewritten from one delimiter to another.
//
//   vstring("a, b c").WDelim("C", "S");    // a "b c"
//   vstring("a \"b c\"").WDelim("S", ","); // a,b c
//   vstring("a,,b").WDelim(",", ";");      // a;;b  (an empty item stays)
//   vstring("a,b,").WDelim(",", ";");      // a;b   (a trailing delimiter ends)
//
// A delimiter is named by one byte: T tab, C comma, S blank (either case), or
// any byte that is not a letter, a digit or a quote byte, standing for
// itself. Items are read by the statement scanner, command::word(from, 0, 1),
// so quotes and parentheses hold an item together and the scanner's reports
// (23, 102, 2146) reach the host. Each item loses its outer quotes and gets
// quotes anew only where the new delimiter needs them.
#include <txCommon/command.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include "compose_out.h"

#include <cctype>
#include <climits>
#include <cstring>

namespace {

// Code reported for a delimiter that is not one byte, or a byte refused.
constexpr int kBadDelimiter = 2112;
// The spool holds the text and this much room for new quotes.
constexpr int kSpoolSlack = 100;

bool is_separator(char c) { return c >= 0x01 && c <= 0x20; }

// The delimiter that a one-byte name stands for; false when it is refused.
// Letters and digits other than T, C and S are kept for future names, and a
// quote byte could never be told from the quotes of an item. The zero byte
// is refused too: it would end the text it is meant to stand in.
bool delimiter_of(const vstring& name, char& delimiter) {
  if (name.len() != 1) return false;
  const char given = name.optr()[0];
  const int upper = std::toupper(static_cast<unsigned char>(given));
  if (upper == 'T') delimiter = '\t';
  else if (upper == 'C') delimiter = ',';
  else if (upper == 'S') delimiter = ' ';
  else if (given == '\0' || isQuoteByte(given) || std::isalnum(upper)) return false;
  else delimiter = given;
  return true;
}

// An item needs quotes where its new delimiter, or a reader's blank skipping,
// would otherwise take it apart or lose it.
bool needs_quotes(const vstring& item, char to) {
  const char* p = item.optr();
  const unsigned n = item.len();
  if (n == 0) return to == ' ';
  return is_separator(p[0]) || is_separator(p[n - 1]) || std::memchr(p, to, n) != nullptr;
}

bool at_text_end(command& items) {
  const int at = items.GetOffset();
  return at < 0 || static_cast<unsigned>(at) >= items.len() || items.optr()[at] == '\0';
}

// The scanner leaves its cursor in front of a lone `@` (and of an unmatched
// `)`) and reads an empty item there again and again. That byte is taken as
// an item of its own, and the cursor steps over it as a read would: over
// the blanks behind it and one delimiter.
vstring take_stuck_byte(command& items, char from) {
  const char* text = items.optr();
  int at = items.GetOffset();
  vstring item(text + at, 1);
  ++at;
  while (static_cast<signed char>(text[at]) >= 1 && text[at] <= 0x20) ++at;
  if (text[at] == from && from != '\0') ++at;
  items.SetOffset(at);
  return item;
}

int spool_capacity(unsigned length) {
  const long long wanted = static_cast<long long>(length) + kSpoolSlack;
  return wanted > txc::ComposeOut::kLengthLimit ? txc::ComposeOut::kLengthLimit
                                                : static_cast<int>(wanted);
}

}  // namespace

vstring& vstring::WDelim(const vstring& from, const vstring& to) const {
  char fromByte = 0;
  char toByte = 0;
  if (!delimiter_of(from, fromByte) || !delimiter_of(to, toByte)) {
    txc::report_error(kBadDelimiter);
    return txc::next_temp().put(*this);
  }
  txc::ComposeOut out(spool_capacity(len()), txc::ComposeOut::kLengthLimit);
  command items(*this);
  while (!out.full()) {
    const int before = items.GetOffset();
    vstring item(items.word(fromByte, 0, 1));
    if (item.len() == 0 && at_text_end(items)) break;
    if (item.len() == 0 && items.GetOffset() == before) item = take_stuck_byte(items, fromByte);
    item.StripQuotesEx();
    if (needs_quotes(item, toByte)) item.MakeQuoted();
    out.piece(&toByte, 1, item.optr(), static_cast<int>(item.len()));
  }
  return out.finish();
}
