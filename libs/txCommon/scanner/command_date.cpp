// command: taking one date off the cursor as one word, however many
// blank-separated pieces it has (`1/15/90 10:30`, `1990Q1`, `15 Jan 1990`).
// The date parser only says where a date ends; the text itself is returned.
#include <txCommon/command.h>
#include <txCommon/internal/date_text.h>
#include <txCommon/internal/host_bridge.h>

#include <cstring>
#include <string>
#include <vector>

#include "scan_chars.h"

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool digit_at_most(char c, char top) { return c >= '0' && c <= top; }

// `9:30`, `09:30`, `23:59:59`, `9:30pm`, `3pm`, `11AM`; not `24:00`, `9:75`,
// `9:300` or a bare number.
bool is_time_of_day(const char* n) {
  if (!is_digit(n[0])) return false;
  const char* colon = std::strchr(n, ':');
  const char* q = n;
  if (is_digit(n[1])) {
    if (n[0] > '2' || (n[0] == '2' && n[1] > '3')) return false;
    ++q;
  }
  if (colon != nullptr) {
    if (colon - q != 1) return false;  // one hour digit left in front of ':'
    if (!digit_at_most(q[2], '5') || !is_digit(q[3]) || is_digit(q[4])) return false;
    return q[4] != ':' || (digit_at_most(q[5], '5') && is_digit(q[6]));
  }
  const bool meridian = q[1] == 'A' || q[1] == 'P' || q[1] == 'a' || q[1] == 'p';
  return meridian && (q[2] == 'M' || q[2] == 'm');
}

struct Parsed {
  bool valid = false;
  int frequency = 0;
  int consumed = 0;
};

Parsed parse_at(const char* text, int length, bool wantConsumed, const RegularFreq* freq) {
  Parsed p;
  int day = 0, tics = 0, step = 0;
  p.valid = parse_date_text(day, tics, p.frequency, step, text, length,
                            wantConsumed ? &p.consumed : nullptr, 1, freq, txc::date_hint());
  return p;
}

bool fine_enough(const Parsed& p, const RegularFreq* freq) {
  return freq == nullptr || p.frequency >= freq->frequency;
}

}  // namespace

vstring& command::word_date() {
  vstring& w = word(1);
  const char* t = w.optr();
  if (w.len() < 5 || !(is_digit(t[0]) || is_letter(t[0]))) return w;
  if (!parse_at(t, static_cast<int>(w.len()), false, nullptr).valid) return w;
  const txlong savedOffset = offset;
  const txlong savedPrev = prevOffset;
  const std::string date(t, w.len());
  const vstring& n = word(1);
  prevOffset = savedPrev;  // backup() returns in front of the date
  if (!is_time_of_day(n.optr())) {
    offset = savedOffset;
    return w;
  }
  const std::string joined = date + ' ' + std::string(n.optr(), n.len());
  return txc::scan::temp_word(joined.data(), static_cast<unsigned>(joined.size()));
}

vstring command::word_date(RegularFreq&) { return vstring(word_date()); }

vstring& command::word_date_full(int plain, const RegularFreq* freq) {
  if (plain != 0) return word(1);
  const unsigned s = cursor();
  const char* text = optr();
  Parsed p = parse_at(text + s, -1, true, freq);
  if (!p.valid) return word(1);
  if (!fine_enough(p, freq)) {
    // Coarser than the record asks: try shorter stretches, ending at word
    // starts inside the one the parser took.
    offset = static_cast<txlong>(s);
    skip_word();
    skip_word();
    std::vector<unsigned> starts;
    while (cursor() < len() && cursor() < s + static_cast<unsigned>(p.consumed)) {
      starts.push_back(cursor());
      skip_word();
    }
    while (true) {
      if (starts.empty()) {
        offset = prevOffset = static_cast<txlong>(s);
        return word(1);
      }
      p = parse_at(text + s, static_cast<int>(starts.back() - s), true, freq);
      if (p.valid && fine_enough(p, freq)) break;
      const unsigned reach = s + static_cast<unsigned>(p.consumed);
      starts.pop_back();
      while (!starts.empty() && starts.back() >= reach) starts.pop_back();
    }
    while (starts.size() > 1 && starts[starts.size() - 2] > s + static_cast<unsigned>(p.consumed)) {
      starts.pop_back();
    }
    offset = static_cast<txlong>(starts.back());
  } else {
    const unsigned reach = s + static_cast<unsigned>(p.consumed);
    while (cursor() < reach) {
      const unsigned before = cursor();
      skip_word();
      if (cursor() == before) break;
    }
  }
  unsigned from = s;
  unsigned to = s + static_cast<unsigned>(p.consumed);
  while (from < to && static_cast<signed char>(text[from]) <= 32) ++from;
  while (to > from && static_cast<signed char>(text[to - 1]) <= 32) --to;
  return txc::scan::temp_word(text + from, to - from);
}

int command::num_dates(int plain, const RegularFreq* freq) {
  reset();
  int count = 0;
  while (true) {
    const unsigned before = cursor();
    if (word_date_full(plain, freq).len() == 0) break;
    ++count;
    if (cursor() == before) break;
  }
  reset();
  return count;
}
