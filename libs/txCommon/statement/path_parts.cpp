// vstring: taking file names apart — extension, directory, bare name — and
// making sure of an extension. An extension is a last dot (not the first
// byte) with at most four bytes behind it, or one of a few longer names of
// data formats.
#include <txCommon/vstring.h>

#include <cstring>
#include <string>

#include "path_text.h"

using txc::path::assign;
using txc::path::text_of;

namespace {

// 0-based offset of the last '.' at offset 1 or later; npos for none.
std::size_t last_dot(const std::string& text) {
  const std::size_t dot = text.rfind('.');
  return dot != std::string::npos && dot >= 1 ? dot : std::string::npos;
}

// The text with enclosing quotes off and leading ..\ steps resolved.
std::string resolved_copy(const vstring& s, vstring* base) {
  vstring copy;
  assign(copy, txc::path::without_enclosing_quotes(text_of(s)));
  copy.replaceDotDot(base);
  return text_of(copy);
}

}  // namespace

vstring& vstring::GetExt() {
  const std::string text = resolved_copy(*this, nullptr);
  vstring& result = txc::next_temp();
  if (txc::error_pending() != 0) return result.clear();
  const std::size_t dot = last_dot(text);
  if (dot == std::string::npos) return result.clear();
  const std::string ext = text.substr(dot);
  if (dot + 1 + 4 >= text.size() || txc::path::is_long_extension_of_getext(ext.c_str())) {
    return assign(result, ext);
  }
  return result.clear();
}

vstring& vstring::GetPath(vstring* base) {
  if (txc::error_pending() != 0) return txc::next_temp().clear();
  std::string rest = resolved_copy(*this, base);
  std::string path;
  const std::size_t slash = rest.rfind('\\');
  if (slash != std::string::npos) {
    path = rest.substr(0, slash + 1);
    rest.erase(0, slash + 1);
  }
  const std::size_t colon = rest.find(':');
  if (colon != std::string::npos && rest.compare(colon, 2, "::") != 0) path = rest.substr(0, colon + 1);
  return assign(txc::next_temp(), path);
}

vstring& vstring::stripPathAndExt(vstring* base, int forwardToo) {
  if (txc::error_pending() != 0) return *this;
  StripQuotes();
  replaceDotDot(base);
  std::string text = text_of(*this);
  std::size_t cut = text.rfind('\\');
  if (cut != std::string::npos) text.erase(0, cut + 1);
  if (forwardToo != 0 && (cut = text.rfind('/')) != std::string::npos) text.erase(0, cut + 1);
  const std::size_t colon = text.find(':');
  if (colon != std::string::npos && text.compare(colon, 2, "::") != 0) {
    text.erase(0, colon + 1);
  }
  const std::size_t dot = last_dot(text);
  if (dot != std::string::npos) {
    // More than four bytes behind the dot: an extension only by name.
    std::string ext = text.substr(dot);
    if (text.size() - dot - 1 <= 4 || txc::path::is_long_extension_of_strip(ext.c_str())) {
      text.erase(dot);
    }
  }
  return assign(*this, text);
}

vstring& vstring::stripExt() {
  const bool quoted = optr()[0] == '"';
  if (quoted) StripQuotes();
  if (txc::error_pending() != 0) return *this;
  vstring copy(GetPath(nullptr));
  stripPathAndExt(nullptr, 1);
  copy.cat(*this);
  if (quoted) copy.SurroundWithQuotes();
  return put(copy);
}

vstring& vstring::stripPath() {
  const bool quoted = optr()[0] == '"';
  if (quoted) StripQuotes();
  if (txc::error_pending() != 0) return *this;
  const vstring ext(GetExt());
  stripPathAndExt(nullptr, 1);
  cat(ext);
  if (quoted) SurroundWithQuotes();
  return *this;
}

void vstring::insureExt(const char* extension) {
  if (extension == nullptr || *extension == '\0') return;
  StripQuotes();
  const vstring current(GetExt());
  std::string wanted(extension);
  if (wanted[0] != '.') wanted.insert(0, 1, '.');
  if (!txc::path::same_text_nocase(current.optr(), wanted.c_str(), txc::temp_buf_len())) {
    cat(wanted.c_str());
  }
}

void vstring::insureExt(const vstring& extension) { insureExt(extension.optr()); }

void vstring::splitObDB(vstring& object, vstring& database) {
  const std::string text = text_of(*this);
  const std::size_t colons = text.find("::");
  if (colons != std::string::npos) {
    assign(database, text.substr(0, colons));
    assign(object, text.substr(colons + 2));
  } else {
    assign(object, text);
    database.clear();
  }
  object.StripQuotes();
}

void vstring::splitObSubdir(vstring& name, vstring& directory) {
  const std::string text = text_of(*this);
  const std::size_t slash = text.rfind('\\');
  if (slash != std::string::npos) {
    assign(name, text.substr(slash + 1));
    assign(directory, text.substr(0, slash));
  } else {
    assign(name, text);
    directory.clear();
  }
}
