// Internal: not part of the public interface.
//
// The platform layer. Every call the library makes into the operating system
// (or into a stand-in for a Windows interface) goes through here, so that a
// port touches only the platform folder.
#pragma once

#include <cstdint>

namespace txc::platform {

// Stand-ins for USER32's CharUpperA/CharLowerA in code page 1252. Called with
// a pointer, they convert the zero-ended text in place and return it. Called
// with a value below 0x100 in place of the pointer, they convert that one byte
// and return it the same way.
char* CharUpperA(char* text);
char* CharLowerA(char* text);

// One byte of code page 1252, converted.
unsigned char upper_1252(unsigned char c);
unsigned char lower_1252(unsigned char c);

// The single-byte form of a "pointer" argument to the case slots.
inline char* byte_as_pointer(unsigned char c) {
  return reinterpret_cast<char*>(static_cast<std::uintptr_t>(c));
}
inline bool is_byte_argument(const char* p) {
  return reinterpret_cast<std::uintptr_t>(p) < 0x100;
}
inline unsigned char pointer_as_byte(const char* p) {
  return static_cast<unsigned char>(reinterpret_cast<std::uintptr_t>(p));
}

}  // namespace txc::platform
