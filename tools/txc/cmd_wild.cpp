// txc wild: wildcard patterns by hand. Match a name, show the regular
// expression and template a rewrite uses, rewrite a list, expand a list.
#include "command.h"

#include <txCommon/internal.h>

#include <cstdio>
#include <string>

namespace {

using txc_tool::visible;

int len(const std::string& s) { return static_cast<int>(s.size()); }

void show_match(const std::string& pattern, const std::string& name) {
  const bool m = wildcardMatch(name.data(), len(name), pattern.data(), len(pattern));
  std::printf("match %s %s: %s\n", visible(pattern.c_str()).c_str(), visible(name.c_str()).c_str(),
              m ? "yes" : "no");
}

void show_regex(const std::string& pattern) {
  const vstring p(pattern.c_str());
  std::printf("%s\n", visible(pattern.c_str()).c_str());
  // The four ways a rewrite may ask for it: which outer `*` stay.
  for (int flags = 3; flags >= 0; --flags) {
    const bool lead = (flags & 2) != 0;
    const bool trail = (flags & 1) != 0;
    const vstring re = wildcardToRegex(p, false, lead, trail);
    const vstring tp = wildcardToRegex(p, true, lead, trail);
    std::printf("  keep leading %d trailing %d: regex %-20s template %s\n", lead, trail,
                visible(re.optr(), re.len()).c_str(), visible(tp.optr(), tp.len()).c_str());
  }
}

void show_replace(const std::string& list, const std::string& source,
                  const std::string& destination, bool firstOnly) {
  const vstring& out = vstring(list.c_str()).WReplace(vstring(source.c_str()),
                                                      vstring(destination.c_str()), firstOnly);
  std::printf("replace %s -> %s%s in %s\n  %s\n", visible(source.c_str()).c_str(),
              visible(destination.c_str()).c_str(), firstOnly ? " (first only)" : "",
              visible(list.c_str()).c_str(), visible(out.optr(), out.len()).c_str());
}

void show_keep(const std::string& list, const std::string& patterns) {
  const vstring l(list.c_str());
  const vstring p(patterns.c_str());
  const vstring kept = l.WKeep(p);
  const vstring& dropped = l.WDrop(p);
  std::printf("keep/drop %s in %s\n  keep %s\n  drop %s\n", visible(patterns.c_str()).c_str(),
              visible(list.c_str()).c_str(), visible(kept.optr(), kept.len()).c_str(),
              visible(dropped.optr(), dropped.len()).c_str());
}

void show_expand(const std::string& list, const std::string& pattern) {
  command c(list.c_str());
  vstring p(pattern.c_str());
  const vstring& out = c.ExpandListWithWildcards(p);
  std::printf("expand %s with %s\n  %s\n", visible(list.c_str()).c_str(),
              visible(pattern.c_str()).c_str(), visible(out.optr(), out.len()).c_str());
}

void show_forms(const std::string& text) {
  command c(text.c_str());
  c.TranslateIntoListForm();
  std::printf("list form %s\n  %s\n", visible(text.c_str()).c_str(),
              visible(c.optr(), c.len()).c_str());
  c.TranslateFromListForm();
  std::printf("  back: %s\n", visible(c.optr(), c.len()).c_str());
}

int run(const txc_tool::Args& a) {
  if (a.size() == 3 && a[0] == "match") {
    show_match(a[1], a[2]);
    return 0;
  }
  if (a.size() == 2 && a[0] == "regex") {
    show_regex(a[1]);
    return 0;
  }
  if ((a.size() == 4 || (a.size() == 5 && a[4] == "first")) && a[0] == "replace") {
    show_replace(a[3], a[1], a[2], a.size() == 5);
    return 0;
  }
  if (a.size() == 3 && a[0] == "keep") {
    show_keep(a[2], a[1]);
    return 0;
  }
  if (a.size() == 3 && a[0] == "expand") {
    show_expand(a[1], a[2]);
    return 0;
  }
  if (a.size() == 2 && a[0] == "listform") {
    show_forms(a[1]);
    return 0;
  }
  std::fprintf(stderr, "usage: txc wild match|regex|replace|keep|expand|listform ...   (txc help wild)\n");
  return 2;
}

void tour() {
  show_match("a*b*c", "aXbXc");
  show_match("*ab", "abab");
  show_regex("a*c*");
  show_replace("xaya a1", "*a*", "*b*", false);
  show_replace("xaya a1", "*a*", "*b*", true);
  show_keep("x1 y1 x2 \"x 3\"", "x*");
  show_expand("a b", "x*");
  show_forms("a \"b c\" f(x, y)");
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "wild", nullptr, "wildcard patterns: match, regex translation, rewrite, expand",
    "txc wild match PATTERN NAME      wildcardMatch (* any run, ? one byte, case counts)\n"
    "txc wild regex PATTERN           the regular expression and template, all four flag pairs\n"
    "txc wild replace SOURCE DEST LIST [first]   vstring::WReplace\n"
    "txc wild keep PATTERNS LIST      vstring::WKeep and WDrop\n"
    "txc wild expand LIST PATTERN     command::ExpandListWithWildcards (upper-cased)\n"
    "txc wild listform TEXT           TranslateIntoListForm, then TranslateFromListForm",
    run, tour}};

}  // namespace
