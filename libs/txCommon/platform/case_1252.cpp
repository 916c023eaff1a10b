// Case mapping of code page 1252, the stand-in for CharUpperA/CharLowerA.
//
// Besides ASCII, 1252 has Latin-1 letters at 0xC0-0xDE / 0xE0-0xFE (0x20
// apart, except the signs 0xD7 and 0xF7) and four pairs in the 0x80 block:
// S caron 0x8A/0x9A, OE 0x8C/0x9C, Z caron 0x8E/0x9E, Y diaeresis 0x9F/0xFF.
// Sharp s (0xDF) and micro (0xB5) have no partner in the code page.
#include <txCommon/internal/platform.h>

namespace txc::platform {

unsigned char upper_1252(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 0x20);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 0x20);
  switch (c) {
    case 0x9A: return 0x8A;
    case 0x9C: return 0x8C;
    case 0x9E: return 0x8E;
    case 0xFF: return 0x9F;
    default: return c;
  }
}

unsigned char lower_1252(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 0x20);
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 0x20);
  switch (c) {
    case 0x8A: return 0x9A;
    case 0x8C: return 0x9C;
    case 0x8E: return 0x9E;
    case 0x9F: return 0xFF;
    default: return c;
  }
}

namespace {

template <unsigned char (*Map)(unsigned char)>
char* convert(char* text) {
  if (is_byte_argument(text)) return byte_as_pointer(Map(pointer_as_byte(text)));
  for (char* p = text; *p != '\0'; ++p) {
    *p = static_cast<char>(Map(static_cast<unsigned char>(*p)));
  }
  return text;
}

}  // namespace

char* CharUpperA(char* text) { return convert<upper_1252>(text); }
char* CharLowerA(char* text) { return convert<lower_1252>(text); }

}  // namespace txc::platform
