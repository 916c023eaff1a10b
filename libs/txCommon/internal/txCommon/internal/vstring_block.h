// Internal: not part of the public interface.
//
// Access to the block behind a vstring's text pointer. The header is two
// 32-bit words in front of the text: capacityWord (capacity + 13) and length.
// A block of capacity n is n + 13 bytes: 8 header bytes, n text bytes, the
// terminator, and 4 bytes of unused tail that the layout has always carried.
#pragma once

#include <cstdint>
#include <cstring>

namespace txc::block {

inline constexpr unsigned kOverhead = 13;  // header 8 + terminator 1 + tail 4
inline constexpr unsigned kHeader = 8;

inline std::uint32_t& capacity_word(char* text) {
  return *reinterpret_cast<std::uint32_t*>(text - kHeader);
}
inline std::uint32_t capacity_word(const char* text) {
  std::uint32_t v;
  std::memcpy(&v, text - kHeader, sizeof v);
  return v;
}
inline std::uint32_t& length(char* text) {
  return *reinterpret_cast<std::uint32_t*>(text - 4);
}
inline std::uint32_t length(const char* text) {
  std::uint32_t v;
  std::memcpy(&v, text - 4, sizeof v);
  return v;
}

// A new block of capacity n from the system allocator; length n, capacity
// word n + 13. Returns the text pointer. Nothing else is set.
char* make(unsigned n);
// Gives a block back to the system allocator.
void release(char* text);

}  // namespace txc::block
