// Pieces shared by the file-name operations.
#include "path_text.h"

namespace txc::path {

std::string setting(const char* label) {
  ITXCommonCallback* h = host();
  if (h == nullptr) return std::string();
  const vstring answer = h->QuerySetting(label);
  return text_of(answer);
}

std::string base_directory(const vstring* base) {
  return base != nullptr ? text_of(*base) : setting("pTarnixIni->DefPath()");
}

namespace {

char ascii_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool in_list(const char* dotted, const char* const* names, int count) {
  for (int i = 0; i < count; ++i) {
    if (same_text_nocase(dotted, names[i], temp_buf_len())) return true;
  }
  return false;
}

}  // namespace

bool same_text_nocase(const char* a, const char* b, int limit) {
  for (int i = 0; i < limit; ++i) {
    if (ascii_lower(a[i]) != ascii_lower(b[i])) return false;
    if (a[i] == '\0') return true;
  }
  return true;
}

std::string without_enclosing_quotes(const std::string& text) {
  if (text.size() >= 2 && isQuoteByte(text.front()) && isQuoteByte(text.back())) {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

// ".macw" and ".json" have four letters and pass the general test anyway;
// they stand here so that the list reads as the formats it is about.
bool is_long_extension_of_getext(const char* dotted) {
  static const char* const kNames[] = {".macw", ".sas7bdat", ".accdb", ".rdata", ".json"};
  return in_list(dotted, kNames, 5);
}

bool is_long_extension_of_strip(const char* dotted) {
  static const char* const kNames[] = {".sas7bdat", ".accdb", ".rdata"};
  return in_list(dotted, kNames, 3);
}

}  // namespace txc::path
