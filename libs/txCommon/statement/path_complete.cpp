// vstring: completing a file name from a statement to a full name.
//
//   .\name  ./name   the directory of the program line now running
//   ..\name          a base directory, one level up per ..\ step
//   <ADDINS>name     the add-ins directory (tag in any case, also <ADD-INS>)
//   \name            rooted: the drive or server of the base directory
//   \\srv\share\x    complete, as is any text with a ':'
//   name             the base directory, or the host's default directory
#include <txCommon/vstring.h>

#include <cstring>
#include <string>

#include "path_text.h"

using txc::path::assign;
using txc::path::text_of;

namespace {

// `.\x` and `./x`: the running line's directory goes in front.
void complete_from_line_path(vstring& s) {
  std::string name = text_of(s).substr(2);
  const std::string line = txc::path::setting("pExecutionHandler->GetCurrentLinePath().GetPath()");
  if (!line.empty()) {
    if (line.back() != '\\' && line.back() != '/') name.insert(0, 1, '\\');
    name.insert(0, line);
  }
  assign(s, name);
}

// With a host, `..` anywhere is left to its clean-up of paths.
void canonicalize(vstring& s) {
  ITXCommonCallback* h = txc::host();
  if (h == nullptr || std::strstr(s.optr(), "..") == nullptr) return;
  char* buf = txc::temp_buf();
  if (h->CanonicalizePath(buf, s.optr()) != 0) s.putch(buf, txc::temp_buf_len());
}

// `<ADDINS>` or `<ADD-INS>` in front, upper-cased the host's way: the tag
// gives way to the add-ins directory exactly, with no separator added.
void complete_from_addins(vstring& s) {
  static const char* const kTags[] = {"<ADDINS>", "<ADD-INS>"};
  for (const char* tag : kTags) {
    const int n = static_cast<int>(std::strlen(tag));
    vstring head = s.left(n);
    if (std::strcmp(head.upr().optr(), tag) != 0) continue;
    const std::string rest = text_of(s).substr(static_cast<std::size_t>(n));
    assign(s, txc::path::setting("pTXProgReg->mAddinPath") + rest);
    return;
  }
}

// `\x`: the drive of `dir` (its first two bytes), or `\\server` of a
// network directory, goes in front.
std::string root_of(const std::string& dir) {
  std::string root = dir.substr(0, 2);
  if (root == "\\\\") {
    const std::size_t cut = dir.find('\\', 2);
    if (cut != std::string::npos) root = dir.substr(0, cut);
  }
  return root;
}

}  // namespace

void vstring::addPathIfNone(vstring* base) {
  if (txc::error_pending() != 0) return;
  StripQuotes();
  if (optr()[0] == '.') {
    if (std::strncmp(optr(), ".\\", 2) == 0 || std::strncmp(optr(), "./", 2) == 0) {
      complete_from_line_path(*this);
    } else {
      replaceDotDot(base);
    }
    canonicalize(*this);
  }
  if (optr()[0] == '<') complete_from_addins(*this);
  const std::string dir = txc::path::base_directory(base);
  const std::string text = text_of(*this);
  if (text.size() >= 1 && text[0] == '\\' && text.compare(0, 2, "\\\\") != 0) {
    assign(*this, root_of(dir) + text);
    return;
  }
  if (text.find(':') != std::string::npos || text.compare(0, 2, "\\\\") == 0 || dir.empty()) return;
  assign(*this, dir + (dir.back() == '\\' ? "" : "\\") + text);
}

vstring& vstring::addPathAndExt(const char* extension, vstring* base) {
  if (txc::error_pending() != 0) return *this;
  addPathIfNone(base);
  insureExt(extension);
  return *this;
}

vstring& vstring::addPathAndExt(vstring& extension, vstring* base) {
  return addPathAndExt(extension.optr(), base);
}

vstring& vstring::replaceDotDot(vstring* base) {
  std::string rest = text_of(*this);
  int levels = 0;
  while (rest.compare(0, 3, "..\\") == 0) {
    ++levels;
    rest.erase(0, 3);
  }
  if (levels == 0) return *this;
  std::string dir = txc::path::base_directory(base);
  if (!dir.empty() && dir.back() == '\\') dir.pop_back();
  // The first level walks back from the byte in front of the last one kept,
  // each further level from the byte in front of the `\` found before.
  std::size_t cut = dir.size();
  for (int level = 0; level < levels; ++level) {
    const std::size_t found = cut >= 2 ? dir.rfind('\\', cut - 2) : std::string::npos;
    if (found == std::string::npos) {
      txc::report_error_args(415, *this);
      return *this;
    }
    cut = found + 1;  // the next walk starts in front of this `\`
  }
  return assign(*this, dir.substr(0, cut - 1) + "\\" + rest);
}
