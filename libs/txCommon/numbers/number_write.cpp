// WriteNumber: a double laid out in a field by a NumFormat record.
//
// The value is scaled once to D decimal digits (see the digit budget in
// number_io.h), W significant digits are cut from that integer-sized double,
// and the rest decides the rounding. The field decides W first: when the
// digits do not fit, fraction digits go (status NUM_LOST), then the form may
// move to exponent notation (letters g, z, c), and only then is the field
// filled with '#' (NUM_OVERFLOW).
//
//   NumFormat f{'f', '=', 0, 6, 2};
//   WriteNumber(12345.678, f, buf, 32, &outcome, &n);  // " 12346", NUM_LOST
//
// Every byte goes through a cursor bounded by the field's maximum, which is
// never above the caller's size: an arithmetic surprise on hostile arguments
// becomes an overflow fill, never a write past the buffer.
#include <txCommon/internal/number_io.h>

#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// Digit buffer: W is cut to 17 before digits are made, and a carry writes one
// digit more at most. Positions beyond the digits made read as '0'.
constexpr int kDigitCap = 24;
// |W| and |x| are held inside this bound: any field is far smaller, so the
// clamp changes no result and keeps the arithmetic inside int.
constexpr long long kCountClamp = 1000000;

int clamp_count(long long v) {
  if (v > kCountClamp) return static_cast<int>(kCountClamp);
  if (v < -kCountClamp) return static_cast<int>(-kCountClamp);
  return static_cast<int>(v);
}

char lower_ascii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

// The bounded output cursor. Bytes beyond `cap` are refused and remembered.
struct Out {
  char* buf;
  int cap;
  int len = 0;
  bool over = false;
  void put(char c) {
    if (len < cap) buf[len++] = c; else over = true;
  }
  void repeat(char c, long long n) {
    for (; n > 0 && !over; --n) put(c);
  }
};

struct Job {
  // The record, as the letter table leaves it.
  char letter = 0;  // folded; `p` becomes `f` once x has grown
  bool upper = false;
  std::uint32_t flags = 0;
  int precision = 0;
  int base = 10;
  // The value.
  bool negative = false;
  double value = 0.0;
  double m = 0.0;  // scaled mantissa, then the rest after the cut
  int x = 0;       // position of the decimal point
  // The field.
  int min = 0, max = 0;
  int P = 0, Q = 0, R = 0, T = 2;
  int W = 0, A = 0;
  int status = NUM_OK;
  int dropped = 0;
  char digits[kDigitCap];
  int ndig = 0;
  char lead = 0;

  char digit(int i) const { return (i >= 0 && i < ndig) ? digits[i] : '0'; }
};

int exponent_digits(int x) { return (x >= -98 && x <= 100) ? 2 : 3; }

// W of the letter for the present x.
int letter_width(const Job& j) {
  const long long p = j.precision;
  switch (j.letter) {
    case 'f': return clamp_count(p + j.x);
    case 'e': return clamp_count(p + 1);
    case 'g': case 'z': case 'c': return j.precision;
    default: return j.x;  // s, r; the integer letters set W when fitting
  }
}

// Step 3: the letter's flags, base and W. Returns false for an unknown letter.
bool apply_letter(Job& j, char letter) {
  j.letter = lower_ascii(letter);
  j.upper = letter >= 'A' && letter <= 'Z';
  switch (j.letter) {
    case 'f': j.flags |= NF_ZEROS; break;
    case 'e': j.flags |= NF_ZEROS | NF_EXP; break;
    case 'g': j.flags |= NF_AUTO; break;
    case 'z': j.flags |= NF_AUTO | NF_ZEROS; break;
    case 'c':
      j.flags |= NF_AUTO | NF_ZEROS | NF_BLANK | NF_POINT;
      if (j.max > j.precision) j.max = j.precision < 0 ? 0 : j.precision;
      break;
    case 'p':
      j.flags |= NF_ZEROS;
      if (j.m != 0.0) j.x += 2;
      j.letter = 'f';
      break;
    case 's': j.x = clamp_count(static_cast<long long>(j.x) + j.precision); break;
    case 'i': j.flags |= NF_INTEGER; j.base = 10; break;
    case 'h': j.flags |= NF_INTEGER; j.base = 16; break;
    case 'o': j.flags |= NF_INTEGER; j.base = 8; break;
    case 'b': j.flags |= NF_INTEGER; j.base = 2; break;
    case 'r': j.flags |= NF_RATIONAL; break;
    default: return false;
  }
  j.W = letter_width(j);
  if ((j.flags & NF_AUTO) && (j.x < -3 || j.x > j.W)) j.flags |= NF_EXP;
  return true;
}

// Step 4. Returns false when not even the sign and its companions fit.
bool sign_and_margins(Job& j) {
  if (j.negative) {
    j.lead = (j.flags & NF_PAREN) ? '(' : '-';
  } else if (j.flags & NF_PLUS) {
    j.lead = '+';
  } else if (j.flags & NF_BLANK) {
    j.lead = ' ';
  }
  j.m = std::fabs(j.m);
  j.P = (j.lead != 0 ? 1 : 0) + ((j.flags & NF_CURRENCY) ? 1 : 0);
  j.Q = ((j.flags & NF_PAREN) ? 1 : 0) + ((j.flags & NF_PERCENT) ? 1 : 0);
  j.R = j.max - j.P - j.Q;
  j.T = exponent_digits(j.x);
  return j.P + j.Q < j.max;
}

// Room A for the digits of a fixed or exponent form at the present x; may
// switch a g/z/c form to exponent notation. Returns false on overflow.
bool fixed_room(Job& j) {
  if (j.x > 0) {
    j.A = j.R - ((j.flags & NF_GROUP) ? (j.x - 1) / 3 : 0);
    if (j.x < j.A) {
      j.A -= 1;
    } else if (j.x > j.A) {
      if (!(j.flags & NF_AUTO)) return false;
      j.A = j.R - j.T - 3;
      if (j.A < 0) return false;
      if (j.A == 0) j.A = 1;
      j.flags |= NF_EXP;
    }
  } else {
    j.A = j.R - 2 + j.x;
    if (j.A == 0 && j.x == -3 && (j.flags & NF_AUTO)) {
      j.flags |= NF_EXP;
      j.A = 1;
    }
  }
  return true;
}

int integer_width(const Job& j) {
  if (j.base == 10) return j.x;
  int e = 0;
  std::frexp(j.value, &e);
  switch (j.base) {
    case 16: return (e + 3) / 4;
    case 8: return (e + 2) / 3;
    default: return e;
  }
}

// Step 5. Returns false on overflow.
bool fit(Job& j) {
  if (j.flags & (NF_INTEGER | NF_RATIONAL)) {
    if (j.flags & NF_INTEGER) j.W = integer_width(j);
    if (j.W < 1) j.W = 1;
    return j.W <= j.R;
  }
  if (j.flags & NF_EXP) {
    j.A = j.R - j.T - 3;
    if (j.W > j.A) {
      if (j.A < 0) return false;
      j.status = NUM_LOST;
      j.dropped = j.A >= 1 ? j.W - j.A : j.W - 1;
      j.W = j.A >= 1 ? j.A : 1;
    }
  } else {
    if (!fixed_room(j)) return false;
    if (j.W > j.A) {
      j.status = NUM_LOST;
      j.dropped = clamp_count(static_cast<long long>(j.W) - j.A);
      j.W = j.A;
    }
  }
  if (j.W > 17) j.W = 17;
  return true;
}

// Step 10: W digits out of the scaled mantissa, the rest as a fraction of the
// last digit. D is the digit budget of this call.
void cut_digits(Job& j, int D) {
  j.ndig = 0;
  std::memset(j.digits, '0', sizeof j.digits);
  if (j.W <= 0) {
    if (j.m != 0.0) j.m /= Pow10Table[D];
    return;
  }
  j.ndig = j.W;
  if (j.m == 0.0) return;
  const int s = D - j.W;
  double q = 0.0;
  if (s >= 1) {
    q = std::floor(j.m / Pow10Table[s]);
    if (q != 0.0) j.m -= q * Pow10Table[s];
  } else {
    q = std::floor(j.m * Pow10Table[-s]);
    if (q != 0.0) j.m -= q / Pow10Table[-s];
  }
  // The scaled mantissa lies below 10^D, so q has at most W digits; the clamp
  // only guards the conversion against a rounding at the very top.
  const double top = Pow10Table[j.W] - 1.0;
  std::uint64_t u = q <= 0.0 ? 0 : static_cast<std::uint64_t>(q < top ? q : top);
  for (int i = j.W - 1; i >= 0; --i) {
    j.digits[i] = static_cast<char>('0' + u % 10);
    u /= 10;
  }
  if (j.m != 0.0) {
    const int k = D - j.W;
    j.m = k >= 1 ? j.m / Pow10Table[k] : j.m * Pow10Table[-k];
  }
}

// Step 11.3 to 11.5: the field after a carry added an integer digit.
bool refit_after_carry(Job& j) {
  j.x += 1;
  std::memset(j.digits, '0', sizeof j.digits);
  j.digits[0] = '1';
  if (j.ndig < 1) j.ndig = 1;
  j.T = exponent_digits(j.x);
  if (j.flags & NF_AUTO) {
    if (j.x < -3 || j.x > j.W) j.flags |= NF_EXP; else j.flags &= ~static_cast<std::uint32_t>(NF_EXP);
  }
  if (j.flags & NF_EXP) {
    j.A = j.R - j.T - 3;
    if (j.A == 0) j.A = 1;
  } else if (!fixed_room(j)) {
    return false;
  }
  if ((j.flags & NF_EXP) && j.A <= 0) return false;
  j.W = letter_width(j);
  if (j.W > j.A) {
    j.W = j.A;
    if (j.precision != 999) j.status = NUM_LOST;
  }
  j.m -= 1.0;
  return true;
}

// Step 11. Halves round away from zero; NF_ROUNDUP wins over NF_TRUNCATE.
bool round_digits(Job& j) {
  const bool up = (j.m >= 0.5 && !(j.flags & NF_TRUNCATE)) || (j.m > 0.0 && (j.flags & NF_ROUNDUP));
  if (!up) return true;
  for (int i = j.ndig - 1; i >= 0; --i) {
    if (j.digits[i] != '9') {
      ++j.digits[i];
      j.m -= 1.0;
      return true;
    }
    j.digits[i] = '0';
  }
  return refit_after_carry(j);
}

int significant(const Job& j) {
  int sig = j.ndig;
  while (sig > 0 && j.digits[sig - 1] == '0') --sig;
  return sig;
}

// Integer digits 0..x-1 with group characters where the digits still to come
// are a positive multiple of three; positions from `sig` on are zeros.
void put_integer_digits(const Job& j, Out& o, int sig, char group) {
  for (int i = 0; i < j.x && !o.over; ++i) {
    o.put(i < sig ? j.digit(i) : '0');
    const int rest = j.x - 1 - i;
    if ((j.flags & NF_GROUP) && rest > 0 && rest % 3 == 0) o.put(group);
  }
}

// Step 13.
void lay_out_fixed(const Job& j, Out& o, int sig, char point, char group) {
  const bool zeros = (j.flags & NF_ZEROS) != 0;
  if (j.x < 1) {
    o.put('0');
    if (j.W < 1) {
      if (zeros && j.x < j.W) {
        o.put(point);
        o.repeat('0', static_cast<long long>(j.W) - j.x);
      }
      return;
    }
    o.put(point);
    o.repeat('0', -static_cast<long long>(j.x));
    for (int i = 0; i < sig; ++i) o.put(j.digit(i));
    if (zeros) o.repeat('0', j.W - sig);
  } else if (j.x >= j.W) {
    put_integer_digits(j, o, sig, group);
    if (!(j.flags & NF_GROUP) && (j.flags & NF_POINT) && o.len - j.P < j.R) o.put(point);
  } else {
    put_integer_digits(j, o, j.x, group);
    if (sig > j.x) {
      o.put(point);
      for (int i = j.x; i < sig; ++i) o.put(j.digit(i));
      if (zeros) o.repeat('0', j.W - sig);
    } else if (zeros) {
      o.put(point);
      o.repeat('0', j.W - j.x);
    }
  }
}

// Step 14.
void lay_out_exponent(const Job& j, Out& o, int sig, char point) {
  if (j.ndig > 0) o.put(j.digit(0));
  if (sig > 1 || ((j.flags & NF_ZEROS) && j.W > 1)) {
    o.put(point);
    for (int i = 1; i < sig; ++i) o.put(j.digit(i));
    if (j.flags & NF_ZEROS) o.repeat('0', j.W - (sig > 1 ? sig : 1));
  } else if ((j.flags & NF_POINT) && j.W == 1 && o.len + j.T + 2 + j.Q < j.max) {
    o.put(point);
  }
  o.put(j.upper ? 'E' : 'e');
  const int shown = j.x - 1;
  o.put(shown < 0 ? '-' : '+');
  int magnitude = shown < 0 ? -shown : shown;
  char text[8];
  for (int i = j.T - 1; i >= 0; --i) {
    text[i] = static_cast<char>('0' + magnitude % 10);
    magnitude /= 10;
  }
  for (int i = 0; i < j.T; ++i) o.put(text[i]);
}

int overflow(const Job& j, char* buffer, int size, int* outcome, int* written) {
  if (outcome != nullptr) *outcome = j.negative ? 6 : 5;
  if (j.max > 0) std::memset(buffer, '#', static_cast<std::size_t>(j.max));
  if (j.max < size) buffer[j.max] = '\0';
  if (written != nullptr) *written = j.max;
  return NUM_OVERFLOW;
}

// Steps 10 to 14 for the decimal forms. Returns false on overflow.
bool write_decimal(Job& j, Out& o, int D) {
  cut_digits(j, D);
  if (!round_digits(j)) return false;
  const int sig = significant(j);
  if (j.dropped >= 1 && j.dropped <= 23 && !(j.flags & NF_ZEROS) &&
      std::fabs(j.m * Pow10Table[j.dropped]) < 1.0) {
    j.status = NUM_OK;
  }
  const char point = (j.flags & NF_COMMA) ? ',' : '.';
  const char group = (j.flags & NF_BLANKGROUP) ? ' ' : (j.flags & NF_COMMA) ? '.' : ',';
  if (j.flags & NF_EXP) lay_out_exponent(j, o, sig, point); else lay_out_fixed(j, o, sig, point, group);
  return true;
}

// Steps 8 and 9: the integer and fraction forms write into the room R.
bool write_whole(Job& j, Out& o) {
  const int room = j.R < o.cap - o.len ? j.R : o.cap - o.len;
  char* at = o.buf + o.len;
  if (j.flags & NF_INTEGER) {
    const bool stated = j.precision != 999;
    const int n = WriteBaseInteger(at, room, std::fabs(j.value) + 0.5, j.base,
                                   stated ? j.precision : 0, stated ? NF_ZEROFILL : 0u);
    if (n <= 0) return false;  // rounding added a digit the field had no room for
    o.len += n;
    return true;
  }
  const double largest = j.precision >= 0 ? Pow10Exact(j.precision) - 1.0 : 1.0;
  int n = 0;
  j.status = WriteRational(at, room, &n, std::fabs(j.value), largest, j.flags);
  if (n < 0) n = 0;
  if (n > room) n = room;
  o.len += n;
  return true;
}

// Step 16: pad to `min`, which never exceeds the caller's size.
int pad(const Job& j, char* buffer, int len) {
  if (len >= j.min) return len;
  const int fill = j.min - len;
  if (j.flags & NF_LEFT) {
    std::memset(buffer + len, ' ', static_cast<std::size_t>(fill));
  } else {
    const int keep = (j.flags & NF_ZEROFILL) ? j.P : 0;
    std::memmove(buffer + keep + fill, buffer + keep, static_cast<std::size_t>(len - keep));
    std::memset(buffer + keep, (j.flags & NF_ZEROFILL) ? '0' : ' ', static_cast<std::size_t>(fill));
  }
  return j.min;
}

void field_bounds(Job& j, const NumFormat& format, int size) {
  const int w = format.width < size ? format.width : size;
  if (format.align == '<') {
    j.min = 0;
    j.max = w;
  } else if (format.align == '=') {
    j.min = w;
    j.max = w;
  } else {
    j.min = w;
    j.max = size;
  }
  if (j.min < 0) j.min = 0;
  if (j.max < 0) j.max = 0;
}

int nonfinite(const Job& j, double value, char* buffer, int size, int* outcome, int* written) {
  if (outcome != nullptr) *outcome = std::isnan(value) ? 9 : (value > 0 ? 7 : 8);
  if (j.min > 0) std::memset(buffer, ' ', static_cast<std::size_t>(j.min));
  if (j.min < size) buffer[j.min] = '\0';
  if (written != nullptr) *written = j.min;
  return NUM_NONFINITE;
}

}  // namespace

int WriteNumber(double value, const NumFormat& format, char* buffer, int size,
                int* outcome, int* written) {
  if (buffer == nullptr || size < 0) size = 0;
  Job j;
  field_bounds(j, format, size);
  j.precision = format.precision;
  j.flags = format.flags;
  j.value = value;
  const int D = format.precision >= 17 ? 17 : 15;
  if (SplitDecimal(&j.m, &j.x, value, D) == 1) return nonfinite(j, value, buffer, size, outcome, written);
  if (j.m == 0.0) j.x = 1;
  if (!apply_letter(j, format.letter)) {
    if (outcome != nullptr) *outcome = 1;
    if (written != nullptr) *written = 0;
    if (size > 0) buffer[0] = '\0';
    return NUM_BADLETTER;
  }
  j.negative = value < 0.0;
  if (!sign_and_margins(j) || !fit(j)) return overflow(j, buffer, size, outcome, written);
  if (j.precision == 999 && j.status == NUM_LOST) j.status = NUM_OK;
  Out o{buffer, j.max};
  if (j.lead != 0) o.put(j.lead);
  if (j.flags & NF_CURRENCY) o.put('$');
  const bool fits = (j.flags & (NF_INTEGER | NF_RATIONAL)) ? write_whole(j, o) : write_decimal(j, o, D);
  if (!fits) return overflow(j, buffer, size, outcome, written);
  if (j.flags & NF_PERCENT) o.put('%');
  if (j.flags & NF_PAREN) o.put(j.negative ? ')' : ' ');
  if (o.over) return overflow(j, buffer, size, outcome, written);
  const int len = pad(j, buffer, o.len);
  if (len < size) buffer[len] = '\0';
  if (written != nullptr) *written = len;
  if (outcome != nullptr) *outcome = 0;
  return j.status;
}
