// txc words: runs one word-list operation on a text and shows the result.
//
//   txc words OP TEXT [ARGS...]        e.g.  txc words WMid "a  b   c" 2 2
//   txc words -e OP TEXT [ARGS...]     TEXT and ARGS read with \n \r \t \\ \" \xNN
//
// Text results are printed between brackets with control bytes, bytes of
// 0x80 and up and the backslash as \xNN, so the single blanks of a joined
// result can be counted. No host is registered: 0x93/0x94 are word bytes.
#include "command.h"

#include <txCommon/internal.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using txc_tool::to_int;

using txc_tool::Args;

vstring arg_text(const std::string& a) { return vstring(a.data(), static_cast<txlong>(a.size())); }

void print_text(const vstring& s) {
  std::printf("%s\n", txc_tool::visible(s.optr(), s.len()).c_str());
}


// Every word as the word step finds it, one a line, with its byte offset.
void show_words(const vstring& s) {
  const char* text = s.optr();
  const char* cursor = text;
  const char* start = nullptr;
  int length = 0;
  for (int n = 1; nextWord(cursor, start, length); ++n) {
    std::printf("%d @%d %s\n", n, static_cast<int>(start - text),
                txc_tool::visible(start, static_cast<std::size_t>(length)).c_str());
  }
}

// `args`: T a second text, I a number; lower case marks optional ones.
struct Op {
  const char* name;
  const char* args;
  const char* meaning;
  void (*run)(vstring& s, const Args& a, const int* n);
};

const Op kOps[] = {
    {"scan", "", "every word with its offset", [](vstring& s, const Args&, const int*) { show_words(s); }},
    {"WCount", "", "number of words", [](vstring& s, const Args&, const int*) { std::printf("%d\n", s.WCount()); }},
    {"WMid", "II", "FIRST COUNT: words FIRST.. joined by one blank", [](vstring& s, const Args&, const int* n) { print_text(s.WMid(n[0], n[1])); }},
    {"WLeft", "I", "N: the first N words", [](vstring& s, const Args&, const int* n) { print_text(s.WLeft(n[0])); }},
    {"WRight", "I", "N: the last N words (all: the text as it stands)", [](vstring& s, const Args&, const int* n) { print_text(s.WRight(n[0])); }},
    {"WordQ", "I", "N: word N with its quotes", [](vstring& s, const Args&, const int* n) { print_text(s.WordQ(n[0])); }},
    {"Word", "I", "N: word N, outer quotes off", [](vstring& s, const Args&, const int* n) { print_text(s.Word(n[0])); }},
    {"GetElement", "I", "N: element N from 0 (bytes 0x21-0x7F only)", [](vstring& s, const Args&, const int* n) { print_text(s.GetElement(n[0])); }},
    {"truncateList", "I", "N: cut at a break to at most N bytes", [](vstring& s, const Args&, const int* n) { print_text(s.truncateList(n[0])); }},
    {"GetLastWordBreak", "i", "[LIMIT]: offset of the last break (-1: whole text)", [](vstring& s, const Args& a, const int* n) { std::printf("%d\n", s.GetLastWordBreak(a.empty() ? -1 : n[0])); }},
    {"WUnique", "", "each word once", [](vstring& s, const Args&, const int*) { print_text(s.WUnique()); }},
    {"WUnion", "T", "OTHER: this list, then OTHER, each word once", [](vstring& s, const Args& a, const int*) { print_text(s.WUnion(arg_text(a[0]))); }},
    {"WIntersect", "T", "OTHER: words in both (order of the longer text)", [](vstring& s, const Args& a, const int*) { print_text(s.WIntersect(arg_text(a[0]))); }},
    {"WNotIn", "T", "OTHER: words not in OTHER", [](vstring& s, const Args& a, const int*) { print_text(s.WNotIn(arg_text(a[0]))); }},
    {"WFind", "Tii", "WORD [IGNORECASE FINDLAST]: number and byte offset", [](vstring& s, const Args& a, const int* n) {
       int position = -1;
       const int found = s.WFind(arg_text(a[0]), a.size() > 1 ? n[1] : 0, &position, a.size() > 2 ? n[2] : 0);
       std::printf("%d position %d\n", found, position);
     }},
};

using txc_tool::unescape;

const Op* find_op(const std::string& name) {
  for (const Op& op : kOps) {
    if (name == op.name) return &op;
  }
  return nullptr;
}

int usage_error(const std::string& what) {
  std::fprintf(stderr, "txc words: %s (try 'txc help words')\n", what.c_str());
  return 2;
}

int run(const Args& args) {
  Args a = args;
  const bool escapes = !a.empty() && a[0] == "-e";
  if (escapes) a.erase(a.begin());
  if (a.size() < 2) return usage_error("needs OP and TEXT");
  const Op* op = find_op(a[0]);
  if (op == nullptr) return usage_error("no operation '" + a[0] + "'");
  if (escapes) {
    for (std::size_t k = 1; k < a.size(); ++k) a[k] = unescape(a[k]);
  }
  vstring text = arg_text(a[1]);
  const Args rest(a.begin() + 2, a.end());
  const std::string pattern = op->args;
  std::size_t required = 0;
  for (char p : pattern) required += (p >= 'A' && p <= 'Z') ? 1 : 0;
  if (rest.size() < required || rest.size() > pattern.size()) {
    return usage_error(std::string(op->name) + " takes " + (pattern.empty() ? "no arguments" : op->meaning));
  }
  int numbers[4] = {0, 0, 0, 0};
  for (std::size_t k = 0; k < rest.size(); ++k) {
    const char kind = static_cast<char>(pattern[k] & ~0x20);
    if (kind == 'I' && !to_int(rest[k], &numbers[k])) return usage_error("'" + rest[k] + "' is no number");
  }
  op->run(text, rest, numbers);
  return 0;
}

std::string build_usage() {
  std::string u =
      "txc words [-e] OP TEXT [ARGS...]\n"
      "  Runs one word-list operation on TEXT. Text results print as [bytes] with\n"
      "  control bytes, bytes of 0x80 and up and '\\' as \\xNN; numbers plain.\n"
      "  -e reads TEXT and ARGS with the escapes \\n \\r \\t \\\\ \\\" \\xNN.\n"
      "  No host is registered (0x93/0x94 are word bytes).\n\nOperations:\n";
  for (const Op& op : kOps) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-17s %s\n", op.name, op.meaning);
    u += line;
  }
  return u;
}

const std::string g_usage = build_usage();

void tour() {
  struct Sample {
    const char* op;
    const char* text;
    Args args;
  };
  const Sample samples[] = {
      {"scan", "f(a b),c  (x y)+(z)  \"p q\"r", {}},
      {"WMid", "  a   b\tc  ", {"2", "5"}},
      {"WRight", "  a   b  ", {"2"}},
      {"Word", "x \"a \"\"b\"\" c\"", {"2"}},
      {"GetElement", "\"a b\"", {"1"}},
      {"WUnion", "b a", {"c a b"}},
      {"WIntersect", "d b", {"a b c d"}},
      {"WFind", "a b a", {"A", "1", "1"}},
  };
  for (const Sample& s : samples) {
    std::string shown;
    for (const std::string& x : s.args) shown.append(" ").append(txc_tool::visible(x.c_str()));
    std::printf("  %-11s %s%s\n", s.op, txc_tool::visible(s.text).c_str(), shown.c_str());
    vstring text(s.text);
    const Op* op = find_op(s.op);
    int numbers[4] = {0, 0, 0, 0};
    for (std::size_t k = 0; k < s.args.size(); ++k) to_int(s.args[k], &numbers[k]);
    std::printf(std::string(s.op) == "scan" ? "    ->\n" : "    -> ");
    op->run(text, s.args, numbers);
  }
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "words", nullptr, "run one word-list operation on a text", g_usage.c_str(), run, tour}};

}  // namespace
