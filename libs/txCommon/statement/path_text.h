// Internal: small pieces shared by the file-name operations. Paths are text in
// Windows style whatever the platform: `\` separates, `x:` is a drive, `\\`
// opens a network path. No file system is asked.
#pragma once

#include <txCommon/internal/host_bridge.h>
#include <txCommon/vstring.h>

#include <string>

namespace txc::path {

inline std::string text_of(const vstring& s) { return std::string(s.optr(), s.len()); }

inline vstring& assign(vstring& s, const std::string& text) {
  return s.putch(text.data(), static_cast<txlong>(text.size()));
}

// The host's answer for a setting label; empty with no host. Read at each
// call, never remembered.
std::string setting(const char* label);

// The base directory: *base, or the host's default directory.
std::string base_directory(const vstring* base);

// Case-blind comparison of two texts (ASCII letters), as far as the shorter
// one's terminator or `limit` bytes.
bool same_text_nocase(const char* a, const char* b, int limit);

// A first and a last quote byte taken off a text of at least two bytes.
std::string without_enclosing_quotes(const std::string& text);

// Extensions that count whatever their length.
bool is_long_extension_of_getext(const char* dotted);
bool is_long_extension_of_strip(const char* dotted);

}  // namespace txc::path
