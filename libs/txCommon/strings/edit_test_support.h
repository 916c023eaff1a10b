// Test helpers shared by the editing and quoting tests: byte-exact strings.
#pragma once

#include <txCommon/internal.h>

#include <string>

namespace edit_test {

// A vstring holding exactly the bytes of `s` (zero bytes included).
inline vstring make(const std::string& s) {
  return vstring(s.data(), static_cast<txlong>(s.size()));
}

// The len() bytes of `v`, for byte-exact comparison.
inline std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }

// A text of n bytes cycling through `alphabet`.
inline std::string cycle(const std::string& alphabet, std::size_t n) {
  std::string s(n, ' ');
  for (std::size_t i = 0; i < n; ++i) s[i] = alphabet[i % alphabet.size()];
  return s;
}

}  // namespace edit_test
