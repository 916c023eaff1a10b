// txc compose: builds a new word list out of old ones and shows the result.
//
//   txc compose WInterleave "a b c" "x y" 2 1    -> [a b x c "" y]
//   txc compose WCross "a b" "x y" "?_?"         -> [a_x a_y b_x b_y]
//   txc compose WDelim "a, b c" C S              -> [a "b c"]
//   txc compose adjustCPosition "X C Y" 1        -> [C X Y ]
//
// Text results are printed between brackets with control and high bytes as
// \xNN. No host is registered, so no code is reported: a refused argument
// shows as its documented neutral result.
#include "command.h"

#include <txCommon/internal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using txc_tool::to_int;

using txc_tool::Args;

vstring arg_text(const std::string& a) { return vstring(a.data(), static_cast<txlong>(a.size())); }

void print_text(const vstring& s) { std::printf("%s\n", txc_tool::visible(s.optr(), s.len()).c_str()); }


// `args` after TEXT: T a text, I a number.
struct Op {
  const char* name;
  const char* args;
  const char* meaning;
  void (*run)(vstring& s, const Args& a, const int* n);
};

const Op kOps[] = {
    {"WInterleave", "TII", "OTHER N M: N words of TEXT, M of OTHER, in turn",
     [](vstring& s, const Args& a, const int* n) { print_text(s.WInterleave(arg_text(a[0]), n[1], n[2])); }},
    {"WCross", "TT", "OTHER PATTERN: every pair, through a pattern with two ?",
     [](vstring& s, const Args& a, const int*) { print_text(s.WCross(arg_text(a[0]), arg_text(a[1]))); }},
    {"WDelim", "TT", "FROM TO: delimiters T tab, C comma, S blank, or the byte",
     [](vstring& s, const Args& a, const int*) { print_text(s.WDelim(arg_text(a[0]), arg_text(a[1]))); }},
    {"hasC", "", "1 when TEXT holds a stand-alone C",
     [](vstring& s, const Args&, const int*) { std::printf("%d\n", s.hasC()); }},
    {"findC", "", "offset from 0 of the first stand-alone C, -1 for none",
     [](vstring& s, const Args&, const int*) { std::printf("%d\n", s.findC()); }},
    {"removeC", "", "the list without its C words",
     [](vstring& s, const Args&, const int*) { print_text(s.removeC()); }},
    {"adjustCPosition", "I", "N: the list with C as word N",
     [](vstring& s, const Args&, const int* n) {
       s.adjustCPosition(n[0]);
       print_text(s);
     }},
};

std::string usage_text() {
  std::string u = "txc compose OP TEXT [ARGS...]\n";
  for (const Op& op : kOps) {
    u += "  ";
    u += op.name;
    u += " TEXT ";
    u += op.meaning;
    u += "\n";
  }
  return u;
}

const std::string g_usage = usage_text();

int run(const Args& args) {
  if (args.size() >= 2) {
    for (const Op& op : kOps) {
      if (args[0] != op.name) continue;
      const Args rest(args.begin() + 2, args.end());
      const std::string kinds = op.args;
      if (rest.size() != kinds.size()) break;
      int numbers[3] = {0, 0, 0};
      for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (kinds[i] == 'I' && !to_int(rest[i], &numbers[i])) {
          std::fprintf(stderr, "txc compose %s: %s is not a number\n", op.name, rest[i].c_str());
          return 2;
        }
      }
      vstring text = arg_text(args[1]);
      op.run(text, rest, numbers);
      return 0;
    }
  }
  std::fprintf(stderr, "usage: %s", g_usage.c_str());
  return 2;
}

void tour() {
  const vstring abc("a b c");
  std::printf("WInterleave [a b c] [x y] 2 1: ");
  print_text(abc.WInterleave(vstring("x y"), 2, 1));
  std::printf("WCross [a b] [x y] ?_?: ");
  print_text(vstring("a b").WCross(vstring("x y"), vstring("?_?")));
  std::printf("WDelim [a, b c] C S: ");
  print_text(vstring("a, b c").WDelim(vstring("C"), vstring("S")));
  vstring c("X C Y");
  std::printf("findC [X C Y]: %d, adjustCPosition 1: ", c.findC());
  c.adjustCPosition(1);
  print_text(c);
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "compose", nullptr, "compose word lists: interleave, cross, change delimiters, place C",
    g_usage.c_str(), run, tour}};

}  // namespace
