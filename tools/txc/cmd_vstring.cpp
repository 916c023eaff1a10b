// txc vstring TEXT [START N]: make a string, cut it and append to it, and show
// the block and the temporaries behind each step.
#include "command.h"

#include <txCommon/internal.h>

#include <cstdio>
#include <cstdlib>

namespace {

using txc_tool::visible;

void show(const char* label, const vstring& s) {
  std::printf("  %-22s %-24s len %-4u capacity %u\n", label, visible(s.optr(), s.len()).c_str(),
              s.len(), s.blen());
}

void walk(const char* text, int start, int n) {
  vstring s(text);
  show("vstring(text)", s);
  show("left(4)", s.left(4));
  show("right(3)", s.right(3));
  char label[40];
  std::snprintf(label, sizeof label, "mid(%d, %d)", start, n);
  show(label, s.mid(start, n));
  vstring& t = s + " + more";
  show("text + \" + more\"", t);
  vstring kept = s.mid(start, n);
  kept.cat(", appended");
  show("copy of mid, cat", kept);
  kept.trunc(3);
  show("trunc(3)", kept);
  // A const result is a ring entry; the same entry comes back after 96 takes.
  const vstring* first = &s.left(1);
  for (int i = 0; i < 95; ++i) s.left(1);
  std::printf("  temporaries: %s\n",
              first == &s.left(1) ? "the 96th result reuses the first ring entry"
                                  : "served by the host");
}

int run(const txc_tool::Args& args) {
  if (args.empty()) {
    std::fprintf(stderr, "usage: txc vstring TEXT [START N]\n");
    return 2;
  }
  const int start = args.size() > 2 ? std::atoi(args[1].c_str()) : 2;
  const int n = args.size() > 2 ? std::atoi(args[2].c_str()) : 5;
  walk(args[0].c_str(), start, n);
  return 0;
}

void tour() { walk("GENR LOGY = LOG(Y)", 6, 4); }

txc_tool::Registration reg{{"vstring", nullptr, "make, cut and append a string: txc vstring TEXT [START N]",
                            "txc vstring TEXT [START N]\n"
                            "  Shows left(4), right(3), mid(START, N), an append and a trunc,\n"
                            "  with the length and block capacity of each result.",
                            run, tour}};

}  // namespace
