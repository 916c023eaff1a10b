// vstring::instrAssign: where the assignment sign of a statement stands.
//
// The first `=` that follows an operand at bracket depth 0 is the sign; two
// operands side by side (other than around the keywords OR, AND, NOT) mean
// the text is no single statement of the form, and the answer is 0. So
// `x = 1` gives 3, `x <= 1` 0 (the operator ends the operand), `a b = 1` 0.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <cstring>
#include <initializer_list>

namespace {

enum class Kind { Quote, Blank, Opening, Closing, Operator, Equal, Word };

Kind kind_of(char c) {
  if (isQuoteByte(c)) return Kind::Quote;
  const auto u = static_cast<unsigned char>(c);
  if (u >= 0x01 && u <= 0x20) return Kind::Blank;
  if (c == '(' || c == '[') return Kind::Opening;
  if (c == ')' || c == ']') return Kind::Closing;
  if (c == '=') return Kind::Equal;
  if (c != '\0' && std::strchr("*+,-/<>^", c) != nullptr) return Kind::Operator;
  return Kind::Word;
}

bool starts_with(const char* text, const char* prefix) {
  return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// The keyword (upper case only) at `p`, or 0 when there is none.
std::size_t keyword_length(const char* p) {
  for (const char* kw : {"OR", "AND", "NOT"}) {
    if (starts_with(p, kw)) return std::strlen(kw);
  }
  return 0;
}

}  // namespace

int vstring::instrAssign() {
  const char* t = optr();
  const unsigned n = len();
  int result = 0;
  int depth = 0;
  bool afterOperand = false;
  bool afterBreak = false;
  for (unsigned i = 0; i < n; ++i) {
    switch (kind_of(t[i])) {
      case Kind::Quote:  // a quoted text is one operand, whatever stands before it
        for (++i; i < n && !isQuoteByte(t[i]);) ++i;
        afterOperand = true;
        afterBreak = false;
        break;
      case Kind::Blank:
        afterBreak = true;
        break;
      case Kind::Opening:
        ++depth;
        afterOperand = false;
        afterBreak = true;
        break;
      case Kind::Closing:
        --depth;
        afterOperand = true;
        afterBreak = true;
        break;
      case Kind::Operator:
        afterOperand = false;
        afterBreak = true;
        break;
      case Kind::Equal:
        if (result == 0 && depth == 0 && afterOperand) result = static_cast<int>(i + 1);
        afterOperand = false;
        afterBreak = true;
        break;
      case Kind::Word:
        if (afterOperand && afterBreak) {
          const std::size_t k = keyword_length(t + i);
          if (k == 0) return 0;
          const char behind = t[i + k];
          if (behind != ' ' && behind != '(' && behind != '+' && behind != '-') return 0;
          i += static_cast<unsigned>(k) - 1;
          while (t[i + 1] == ' ' && t[i + 2] == ' ') ++i;  // all blanks but the last
          if (starts_with(t + i + 1, " NOT ")) i += 4;     // AND NOT is one keyword
          afterOperand = false;
          afterBreak = false;
        } else if (t[i] == 'N' && !afterOperand && starts_with(t + i, "NOT ")) {
          i += 2;  // a leading negation is no operand
          afterBreak = false;
        } else {
          afterOperand = true;
          afterBreak = false;
        }
        break;
    }
  }
  return result;
}
