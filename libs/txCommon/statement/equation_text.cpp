// vstring: small rewrites of expression text, and the way to a number through
// the host's evaluator.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

bool low_blank(char c) { return static_cast<unsigned char>(c) <= 0x20; }

// The bytes [from, to) of `text`, blanks (0x00-0x20) off both ends.
vstring& trimmed_piece(const char* text, std::size_t from, std::size_t to) {
  while (from < to && low_blank(text[from])) ++from;
  while (to > from && low_blank(text[to - 1])) --to;
  return txc::next_temp().putch(text + from, static_cast<txlong>(to - from));
}

std::size_t skip_controls(const char* t, std::size_t i) {
  while (t[i] >= 0x01 && t[i] <= 0x20) ++i;
  return i;
}

}  // namespace

vstring& vstring::left_of_equal() const {
  const char* t = optr();
  const char* eq = std::strchr(t, '=');
  if (eq == nullptr) return txc::next_temp().clear();
  return trimmed_piece(t, 0, static_cast<std::size_t>(eq - t));
}

vstring& vstring::right_of_equal() const {
  const char* t = optr();
  const char* eq = std::strchr(t, '=');
  if (eq == nullptr) return txc::next_temp().clear();
  const std::size_t from = static_cast<std::size_t>(eq - t) + 1;
  const std::size_t limit = txc::temp_buf_len() > 0 ? static_cast<std::size_t>(txc::temp_buf_len()) : 0;
  const std::size_t to = len() - from > limit ? from + limit : len();
  return trimmed_piece(t, from, to);
}

vstring& vstring::paren_int(int a) {
  txc::ensure_temp_buf(static_cast<int>(len() < 0x7FFFFFDFu ? len() + 32 : 0x7FFFFFFFu));
  char text[32];
  std::snprintf(text, sizeof text, "(%d)", a);
  return cat(text);
}

vstring& vstring::paren_int(int a, int b) {
  txc::ensure_temp_buf(static_cast<int>(len() < 0x7FFFFFDFu ? len() + 32 : 0x7FFFFFFFu));
  char text[32];
  std::snprintf(text, sizeof text, "(%d,%d)", a, b);
  return cat(text);
}

int vstring::OnlyParenExpression() const {
  const char* t = optr();
  std::size_t i = skip_controls(t, 0);
  if (t[i] != '(') return 0;
  int depth = 1;
  for (++i; depth > 0; ++i) {
    if (t[i] == '\0') return 0;
    if (t[i] == '(') ++depth;
    if (t[i] == ')') --depth;
  }
  return t[skip_controls(t, i)] == '\0' ? 1 : 0;
}

vstring& vstring::surroundForMult() {
  const char* t = optr();
  const unsigned n = len();
  if (n < 2) return *this;
  int depth = t[0] == '(' ? 1 : 0;
  bool needed = false;
  for (unsigned i = 1; i < n && !needed; ++i) {
    if (t[i] == '(') ++depth;
    if (t[i] == ')') --depth;
    if (depth != 0) continue;
    needed = std::strchr("+-<=>", t[i]) != nullptr || std::strncmp(t + i, " AND ", 5) == 0 ||
             std::strncmp(t + i, " OR ", 4) == 0;
  }
  if (!needed) return *this;
  vstring wrapped("(");
  wrapped.cat(*this).cat(')');
  return put(wrapped);
}

double vstring::evaluate(int* status) {
  ITXCommonCallback* h = txc::host();
  return h != nullptr ? h->EvaluateExpression(*this, status) : 0.0;
}

namespace {

// atoi of a sign and digits, held at the 32-bit limits.
int saturated_atoi(const char* p) {
  const bool negative = *p == '-';
  if (*p == '+' || *p == '-') ++p;
  long long value = 0;
  for (; *p >= '0' && *p <= '9'; ++p) {
    value = value * 10 + (*p - '0');
    if (value > 2147483648LL) value = 2147483648LL;
  }
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  return static_cast<int>(value);
}

// Whether all that follows the leading blanks and one sign is digits.
bool plain_integer(const char* t, const char** sign) {
  std::size_t i = skip_controls(t, 0);
  *sign = t + i;
  if (t[i] == '+' || t[i] == '-') ++i;
  while (t[i] >= '0' && t[i] <= '9') ++i;
  return t[i] == '\0';
}

}  // namespace

int vstring::evaluateToInt(int* status) {
  if (status != nullptr) *status = 0;
  if (len() == 0) return 0;
  if (txc::error_pending() != 0) return 0;
  const char* sign = nullptr;
  if (plain_integer(optr(), &sign)) return saturated_atoi(sign);
  const double value = evaluate(status);
  if (txc::error_pending() != 0) return 0;
  if (ISNA(value)) return 0;
  if (value >= -2147483648.0 && value <= 2147483647.0) return static_cast<int>(std::floor(value));
  txc::report_error(65);
  return 0;
}
