// txc path OP NAME [BASE]: the file-name operations of vstring on one name.
#include "command.h"

#include <txCommon/internal.h>

#include <cstdio>
#include <string>

namespace {

// Paths are shown as they stand, backslashes and all, between brackets.
std::string show(const char* text) {
  std::string out(1, '[');
  out.append(text);
  out.push_back(']');
  return out;
}
std::string show(const vstring& s) { return show(s.optr()); }

// Runs one operation; false for an unknown name.
bool apply(const std::string& op, vstring& name, vstring* base) {
  if (op == "complete") {
    name.addPathIfNone(base);
  } else if (op == "ext") {
    name = vstring(name.GetExt());
  } else if (op == "dir") {
    name = vstring(name.GetPath(base));
  } else if (op == "bare") {
    name.stripPathAndExt(base, 1);
  } else if (op == "noext") {
    name.stripExt();
  } else if (op == "nodir") {
    name.stripPath();
  } else if (op == "dotdot") {
    name.replaceDotDot(base);
  } else {
    return false;
  }
  return true;
}

void all(const char* text, const char* baseText) {
  static const char* const kOps[] = {"complete", "ext", "dir", "bare", "noext", "nodir", "dotdot"};
  vstring base(baseText);
  std::printf("%s on base %s\n", show(text).c_str(), show(baseText).c_str());
  for (const char* op : kOps) {
    vstring name(text);
    apply(op, name, &base);
    std::printf("  %-9s %s\n", op, show(name).c_str());
  }
  vstring object, database;
  vstring(text).splitObDB(object, database);
  std::printf("  %-9s object %s database %s\n", "obdb", show(object).c_str(), show(database).c_str());
}

int run(const txc_tool::Args& args) {
  if (args.size() == 2 || args.size() == 3) {
    vstring name(args[1].c_str());
    vstring base(args.size() == 3 ? args[2].c_str() : "");
    if (args[0] == "all") {
      all(args[1].c_str(), args.size() == 3 ? args[2].c_str() : "");
      return 0;
    }
    if (apply(args[0], name, args.size() == 3 ? &base : nullptr)) {
      std::printf("%s\n", show(name).c_str());
      return 0;
    }
  }
  std::fprintf(stderr, "usage: txc path OP NAME [BASE]   (txc help path)\n");
  return 2;
}

void tour() {
  all("..\\data\\gdp.sas7bdat", "c:\\work\\proj");
  all("\"db::my series\"", "c:\\work");
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "path", nullptr, "complete and take apart file names as statements write them",
    "txc path OP NAME [BASE]\n"
    "  OP: complete (addPathIfNone), ext (GetExt), dir (GetPath), bare\n"
    "      (stripPathAndExt, / too), noext (stripExt), nodir (stripPath),\n"
    "      dotdot (replaceDotDot), all (every one of them, and splitObDB).\n"
    "  BASE: the base directory; without it the host's default (none in txc).",
    run, tour}};

}  // namespace
