// vstring: an equation text in its four pieces, `left = right + [group] @ tail`,
// and compound equalities written out (`a=b=1` as `a=1,b=1`). The pieces get
// no meaning here.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <string>
#include <string_view>

namespace {

// 701 / 702 name the whole statement, upper-cased outside quotes, in quotes.
void report_bracket(int code, const vstring& whole) {
  vstring shown(whole);
  shown.mbuprnq();
  shown.SurroundWithQuotes();
  txc::report_error_args(code, vstring("in ") + shown);
}

// The trailing `[...]` joined on by a `+`: into bracketGroup, and off the
// right side.
void split_bracket_group(const vstring& whole, vstring& rightSide, vstring& bracketGroup) {
  const char* t = rightSide.optr();
  const int n = static_cast<int>(rightSide.len());
  if (n == 0 || t[n - 1] != ']') return;
  int open = n - 2;
  for (int depth = 1; open >= 0; --open) {
    if (t[open] == ']') ++depth;
    if (t[open] == '[' && --depth == 0) break;
  }
  if (open < 0) {
    report_bracket(701, whole);
    return;
  }
  if (open + 1 < n - 1) bracketGroup = rightSide.mid(open + 2, n - 2 - open).trim(1);
  int k = open - 1;
  while (k >= 0 && static_cast<unsigned char>(t[k]) <= 0x20) --k;
  if ((k >= 0 && t[k] != '+') || bracketGroup.len() == 0) {
    report_bracket(702, whole);
    return;
  }
  if (k <= 0) {
    rightSide.clear();
  } else {
    rightSide = rightSide.left(k).trim(1);
  }
}

}  // namespace

void vstring::SplitEquation(vstring& leftSide, vstring& rightSide, vstring& bracketGroup,
                            vstring& tail) {
  if (txc::error_pending() != 0) return;
  const vstring whole(*this);
  leftSide.clear();
  bracketGroup.clear();
  tail.clear();
  rightSide = whole;
  const int limit = txc::temp_buf_len();
  if (const int at = rightSide.instr("@ "); at != 0) {
    tail = rightSide.mid(at + 2, limit).trim(1);
    rightSide = rightSide.left(at - 1);
  }
  if (const int sign = rightSide.instrAssign(); sign != 0) {
    leftSide = rightSide.left(sign - 1).trim(1);
    rightSide = rightSide.mid(sign + 1, limit).trim(1);
  }
  split_bracket_group(whole, rightSide, bracketGroup);
}

namespace {

// One comma-free part: `a=b=1` as `a=1,b=1`. Only `=` behind the first byte
// count, so `=a=1` stays. Each cut keeps at most `limit` bytes of the rest.
void write_out(std::string& out, std::string_view part, std::size_t limit) {
  const std::size_t last = part.size() > 1 ? part.rfind('=') : std::string_view::npos;
  if (last == std::string_view::npos || last == 0) {
    out += part;
    return;
  }
  const std::string_view value = part.substr(last, limit);
  std::string_view names = part.substr(0, last);
  for (std::size_t eq; names.size() > 1 && (eq = names.find('=', 1)) != std::string_view::npos;) {
    out += names.substr(0, eq);
    out += value;
    out += ',';
    names = names.substr(eq + 1, limit);
  }
  out += names;
  out += value;
}

}  // namespace

vstring& vstring::ConvertFromCompoundEquality() {
  const std::size_t limit = txc::temp_buf_len() > 0 ? static_cast<std::size_t>(txc::temp_buf_len()) : 0;
  std::string_view rest(optr(), len());
  std::string out;
  while (true) {
    const std::size_t comma = rest.find(',');
    write_out(out, rest.substr(0, comma), limit);
    if (comma == std::string_view::npos) break;
    out += ',';
    rest = rest.substr(comma + 1, limit);
  }
  return txc::next_temp().putch(out.data(), static_cast<txlong>(out.size()));
}

vstring& vstring::ExpandOptionRangeNames() { return txc::next_temp().put(*this); }
