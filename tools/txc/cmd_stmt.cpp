// txc stmt OP TEXT: statement text taken apart — equations, option lists and
// delimited lists.
#include "command.h"

#include <txCommon/internal.h>

#include <cstdio>
#include <string>

namespace {

using txc_tool::visible;

std::string show(const vstring& s) { return visible(s.optr(), s.len()); }

void equation(const char* text) {
  vstring eq(text);
  vstring l, r, g, t;
  eq.SplitEquation(l, r, g, t);
  std::printf("equation %s\n  assignment sign at %d\n  left %s right %s group %s tail %s\n",
              visible(text).c_str(), eq.instrAssign(), show(l).c_str(), show(r).c_str(),
              show(g).c_str(), show(t).c_str());
  std::printf("  compound written out %s\n", show(eq.ConvertFromCompoundEquality()).c_str());
}

void options(const char* text) {
  vstring s(text);
  vstring out[50];
  s.split_options(out, 50, 0);
  std::printf("options of %s\n  text %s\n", visible(text).c_str(), show(s).c_str());
  for (int i = 0; i < 50; ++i) {
    if (out[i].len() != 0) std::printf("  [%d] %s\n", i, show(out[i]).c_str());
  }
  s.add_options(out, 50);
  std::printf("  put back %s\n", show(s).c_str());
}

void list(const char* text, char delimiter) {
  vstring out[100];
  vstring(text).parse_delimitedlist(out, 100, delimiter, 1);
  std::printf("list %s at %s\n", visible(text).c_str(), visible(&delimiter, 1).c_str());
  for (int i = 0; i < 100 && !out[i].isNull(); ++i) std::printf("  [%d] %s\n", i, show(out[i]).c_str());
}

int run(const txc_tool::Args& args) {
  if (args.size() == 2 && args[0] == "equation") {
    equation(args[1].c_str());
    return 0;
  }
  if (args.size() == 2 && args[0] == "options") {
    options(args[1].c_str());
    return 0;
  }
  if ((args.size() == 2 || args.size() == 3) && args[0] == "list") {
    list(args[1].c_str(), args.size() == 3 && !args[2].empty() ? args[2][0] : ',');
    return 0;
  }
  std::fprintf(stderr, "usage: txc stmt equation|options|list TEXT [DELIMITER]\n");
  return 2;
}

void tour() {
  equation("y = a(1) + x + [k(1)=.5] @ t");
  options("PRINT(a, b=\"x,y\", c(1,2))");
  list("a;\"b;c\";d", ';');
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "stmt", nullptr, "equations, option lists and delimited lists of statement text",
    "txc stmt equation TEXT   instrAssign, SplitEquation, ConvertFromCompoundEquality\n"
    "txc stmt options TEXT    split_options, then add_options to put them back\n"
    "txc stmt list TEXT [D]   parse_delimitedlist at D (default ','), quotes honoured",
    run, tour}};

}  // namespace
