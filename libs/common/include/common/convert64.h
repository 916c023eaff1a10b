// Checked narrowing of 64-bit byte counts to the 32-bit lengths the library
// works in. A value outside int's range is a fatal internal error: the
// failed check ("val <= INT_MAX" or "val >= INT_MIN") is printed on standard
// error and the process ends.
//
//   int n = convert64(std::strlen(text));   // sizes, differences, counts
#pragma once

#include <climits>
#include <type_traits>

namespace common {

[[noreturn]] void fatal_check_failed(const char* check, const char* file, int line);

template <typename T>
  requires std::is_integral_v<T>
inline int convert64(T val) {
  if constexpr (std::is_signed_v<T>) {
    if (!(val <= INT_MAX)) fatal_check_failed("val <= INT_MAX", __FILE__, __LINE__);
    if (!(val >= INT_MIN)) fatal_check_failed("val >= INT_MIN", __FILE__, __LINE__);
  } else {
    if (!(val <= static_cast<unsigned long long>(INT_MAX))) {
      fatal_check_failed("val <= INT_MAX", __FILE__, __LINE__);
    }
  }
  return static_cast<int>(val);
}

}  // namespace common

using common::convert64;
