// txc str: runs one vstring operation on a text and shows the result.
//
//   txc str OP TEXT [ARGS...]        e.g.  txc str trim "  a b  " 0
//   txc str -e OP TEXT [ARGS...]     TEXT and ARGS read with \n \r \t \\ \xNN
//
// Text results are printed between brackets with control bytes, bytes of
// 0x80 and up and the backslash as \xNN (txc_tool::visible), so blanks and
// quotes can be counted. Numeric results are printed as numbers. No host is
// registered: 0x93/0x94 are ordinary bytes, and dlgCase/sheetCase upper-case.
// The vstringArray lookups (Map, FindString) and replace_arrays take their
// array entries as further arguments:
//
//   txc str FindString ABE ABC ABD XYZ      -> nearest: 1, then -1
//   txc str replace_arrays "f(%1,%2)" 0 %1 X %2 Y   -> [f(X,Y)]
#include "command.h"

#include <txCommon/txCommon.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using txc_tool::to_int;

using txc_tool::Args;

// What an operation hands back to the printer.
struct Result {
  bool isText;
  std::string text;
  long long number;
};

Result text_of(const vstring& s) { return {true, std::string(s.optr(), s.len()), 0}; }
Result number_of(long long n) { return {false, std::string(), n}; }

vstring arg_text(const std::string& a) { return vstring(a.data(), static_cast<txlong>(a.size())); }


// The arguments an operation reads, checked before it runs: T text, I int,
// C one byte. Lower case marks an optional trailing argument.
struct Op {
  const char* name;
  const char* args;     // e.g. "TII" or "Tii"
  const char* meaning;  // one line for the listing
  Result (*run)(vstring& s, const Args& a, const int* n);
};

// The arguments from a[first] on, as an array.
void fill_array(vstringArray& array, const Args& a, std::size_t first, std::size_t step = 1) {
  for (std::size_t k = first; k < a.size(); k += step) array.add(arg_text(a[k]));
}

// TEXT CASEBLIND FROM1 TO1 [FROM2 TO2 ...]: the pairs as two arrays.
Result replace_by_arrays(vstring& s, const Args& a, const int* n) {
  vstringArray from, to;
  fill_array(from, a, 1, 2);
  fill_array(to, a, 2, 2);
  s.replace_mult(from, to, n[0]);
  return text_of(s);
}

// KEY ENTRIES...: FindString over the entries as given (they should be
// sorted by the library's ordering), the whole range.
Result find_string(vstring& key, const Args& a, const int*) {
  vstringArray entries;
  fill_array(entries, a, 0);
  int nearest = 0;
  const int found = entries.FindString(key, -1, -1, &nearest);
  std::printf("nearest: %d\n", nearest);
  return number_of(found);
}

Result map_key(vstring& key, const Args& a, const int*) {
  vstringArray entries;
  fill_array(entries, a, 0);
  return number_of(entries.Map(key));
}

// The cpy forms write into a buffer of the caller's: len() + 1 bytes.
template <class Copy>
Result copied(const vstring& s, Copy copy) {
  std::string target(s.len() + 1, '\0');
  copy(target.data());
  return {true, target.substr(0, s.len()), 0};
}

// a[k] is the k-th argument behind TEXT; n[k] its value when numeric.
#define TXT(k) arg_text(a[k])
#define CH(k) (a[k].empty() ? '\0' : a[k][0])

const Op kOps[] = {
    // ---- editing and trimming
    {"ltrim", "", "leading low blanks off", [](vstring& s, const Args&, const int*) { return text_of(s.ltrim()); }},
    {"rtrim", "", "trailing low blanks off", [](vstring& s, const Args&, const int*) { return text_of(s.rtrim()); }},
    {"rtrim1", "", "trailing spaces off", [](vstring& s, const Args&, const int*) { return text_of(s.rtrim1()); }},
    {"trim", "i", "HIGHTOO: both ends", [](vstring& s, const Args& a, const int* n) { return text_of(s.trim(a.empty() ? 0 : n[0])); }},
    {"itrim", "", "both ends in place", [](vstring& s, const Args&, const int*) { return text_of(s.itrim()); }},
    {"TrimRight", "", "trailing low blanks off", [](vstring& s, const Args&, const int*) { s.TrimRight(); return text_of(s); }},
    {"removeCharacter", "C", "BYTE: every such byte goes", [](vstring& s, const Args& a, const int*) { return text_of(s.removeCharacter(CH(0))); }},
    {"removeWhiteSpace", "", "bytes 0x00-0x20 go", [](vstring& s, const Args&, const int*) { return text_of(s.removeWhiteSpace()); }},
    {"removeWhiteSpacenq", "", "signed blanks go outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.removeWhiteSpacenq()); }},
    {"dropchars", "T", "KINDS (a d w p): drop byte classes", [](vstring& s, const Args& a, const int*) { return text_of(s.dropchars(TXT(0))); }},
    {"StripComments", "i", "ATCOMMAND: cut at the first ' outside quotes", [](vstring& s, const Args& a, const int* n) { return text_of(s.StripComments(a.empty() ? 0 : n[0])); }},
    {"findCommentChar", "", "position of the comment", [](vstring& s, const Args&, const int*) { return number_of(s.findCommentChar()); }},
    {"remove_parens", "", "one enclosing ( ) off", [](vstring& s, const Args&, const int*) { return text_of(s.remove_parens()); }},
    {"StripParens", "", "the same as remove_parens", [](vstring& s, const Args&, const int*) { return text_of(s.StripParens()); }},
    {"remove_brackets", "", "one enclosing [ ] off", [](vstring& s, const Args&, const int*) { return text_of(s.remove_brackets()); }},
    {"StripBraces", "", "leading { and trailing } off", [](vstring& s, const Args&, const int*) { return text_of(s.StripBraces()); }},
    {"SurroundWithBraces", "", "{text}", [](vstring& s, const Args&, const int*) { return text_of(s.SurroundWithBraces()); }},
    {"replace", "TTii", "FROM TO [FIRSTONLY CASEBLIND]", [](vstring& s, const Args& a, const int* n) { s.replace(TXT(0), TXT(1), a.size() > 2 ? n[2] : 0, a.size() > 3 ? n[3] : 0); return text_of(s); }},
    {"caselessReplace", "TTi", "FROM TO [FIRSTONLY]", [](vstring& s, const Args& a, const int* n) { s.caselessReplace(TXT(0), TXT(1), a.size() > 2 ? n[2] : 0); return text_of(s); }},
    {"replace_mult", "TTII", "FROM TO MAXCOUNT CASEBLIND", [](vstring& s, const Args& a, const int* n) { return text_of(s.replace_mult(TXT(0), TXT(1), n[2], n[3])); }},
    {"replace_arrays", "ITT*", "CASEBLIND FROM1 TO1 [FROM2 TO2...]: replace_mult by arrays", replace_by_arrays},
    {"replaceName", "TT", "FROM TO: first whole name", [](vstring& s, const Args& a, const int*) { const int r = s.replaceName(TXT(0), TXT(1)); std::printf("replaced: %d\n", r); return text_of(s); }},
    {"insert", "TI", "PART POSITION", [](vstring& s, const Args& a, const int* n) { vstring part = TXT(0); return text_of(s.insert(part, n[1])); }},
    {"insertPart", "TI", "PART OFFSET: overwrite from 0-based OFFSET", [](vstring& s, const Args& a, const int* n) { vstring part = TXT(0); s.insertPart(part, n[1]); return text_of(s); }},
    {"TabToSpace", "", "tabs become blanks", [](vstring& s, const Args&, const int*) { return text_of(s.TabToSpace()); }},
    {"CR_LF_to_LF", "", "every line end one LF", [](vstring& s, const Args&, const int*) { return text_of(s.CR_LF_to_LF()); }},
    {"MakeAlphaNumeric", "t", "[EXTRA]: junk in front off", [](vstring& s, const Args& a, const int*) { std::string extra = a.empty() ? std::string() : a[0]; return text_of(s.MakeAlphaNumeric(extra.data(), static_cast<int>(extra.size()))); }},
    {"bin2hex", "I", "N: first N bytes as hex", [](vstring& s, const Args&, const int* n) { return text_of(s.bin2hex(static_cast<unsigned>(n[0] < 0 ? 0 : n[0]))); }},
    // ---- quoting and escapes
    {"SurroundWithQuotes", "", "\"text\"", [](vstring& s, const Args&, const int*) { return text_of(s.SurroundWithQuotes()); }},
    {"MakeQuoted", "", "\"text\" with inner quotes doubled", [](vstring& s, const Args&, const int*) { return text_of(s.MakeQuoted()); }},
    {"AddQuotesEx", "", "the same as MakeQuoted", [](vstring& s, const Args&, const int*) { return text_of(s.AddQuotesEx()); }},
    {"AddQuotesIfNecessary", "i", "[IGNOREQUOTED]: MakeQuoted when white space", [](vstring& s, const Args& a, const int* n) { return text_of(s.AddQuotesIfNecessary(!a.empty() && n[0] != 0)); }},
    {"StripQuotes", "", "outer quote bytes off", [](vstring& s, const Args&, const int*) { return text_of(s.StripQuotes()); }},
    {"StripQuotesEx", "", "strict: outer pair off, inner undoubled", [](vstring& s, const Args&, const int*) { return text_of(s.StripQuotesEx()); }},
    {"ConvertToDblQuotes", "", "double each quote byte", [](vstring& s, const Args&, const int*) { return text_of(s.ConvertToDblQuotes()); }},
    {"ConvertFromDblQuotes", "", "undouble quote pairs", [](vstring& s, const Args&, const int*) { return text_of(s.ConvertFromDblQuotes()); }},
    {"ConvertEscSequencesToAscii", "", "line ends to \\n, \\ to \\\\ (sic)", [](vstring& s, const Args&, const int*) { s.ConvertEscSequencesToAscii(); return text_of(s); }},
    {"ConvertAsciiToEscSequences", "", "\\n \\r \\\\ back to bytes (sic)", [](vstring& s, const Args&, const int*) { s.ConvertAsciiToEscSequences(); return text_of(s); }},
    // ---- search, comparison and hashing
    {"instr", "Tii", "NEEDLE [OCCURRENCE START]", [](vstring& s, const Args& a, const int* n) { vstring nd = TXT(0); return number_of(s.instr(nd, a.size() > 1 ? static_cast<unsigned>(n[1]) : 1u, a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u)); }},
    {"rinstr", "Tii", "NEEDLE [OCCURRENCE LIMIT]", [](vstring& s, const Args& a, const int* n) { vstring nd = TXT(0); return number_of(s.rinstr(nd, a.size() > 1 ? static_cast<unsigned>(n[1]) : 1u, a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u)); }},
    {"instrc", "Cii", "BYTE [OCCURRENCE START]: byte form", [](vstring& s, const Args& a, const int* n) { return number_of(s.instr(CH(0), a.size() > 1 ? static_cast<unsigned>(n[1]) : 1u, a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u)); }},
    {"rinstrc", "Cii", "BYTE [OCCURRENCE LIMIT]: byte form", [](vstring& s, const Args& a, const int* n) { return number_of(a.size() > 1 ? s.rinstr(CH(0), static_cast<unsigned>(n[1]), a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u) : s.rinstr(CH(0))); }},
    {"instrsub", "Tii", "NEEDLE [OCCURRENCE START]", [](vstring& s, const Args& a, const int* n) { std::string nd = a[0]; return number_of(s.instrsub(nd.data(), a.size() > 1 ? static_cast<unsigned>(n[1]) : 1u, a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u)); }},
    {"rinstrsub", "Tii", "NEEDLE [OCCURRENCE LIMIT]", [](vstring& s, const Args& a, const int* n) { std::string nd = a[0]; return number_of(s.rinstrsub(nd.data(), a.size() > 1 ? static_cast<unsigned>(n[1]) : 1u, a.size() > 2 ? static_cast<unsigned>(n[2]) : 0u)); }},
    {"inchar", "C", "BYTE: first position", [](vstring& s, const Args& a, const int*) { return number_of(s.inchar(static_cast<unsigned char>(CH(0)))); }},
    {"rinchar", "C", "BYTE: last position", [](vstring& s, const Args& a, const int*) { return number_of(s.rinchar(static_cast<unsigned char>(CH(0)))); }},
    {"incharnq", "C", "BYTE: first outside quotes", [](vstring& s, const Args& a, const int*) { return number_of(s.incharnq(static_cast<unsigned char>(CH(0)))); }},
    {"CharCount", "C", "BYTE: how many", [](vstring& s, const Args& a, const int*) { return number_of(s.CharCount(CH(0))); }},
    {"MatchingStartChars", "T", "OTHER: shared leading bytes", [](vstring& s, const Args& a, const int*) { return number_of(s.MatchingStartChars(TXT(0))); }},
    {"compare", "T", "OTHER: the ordering rule", [](vstring& s, const Args& a, const int*) { return number_of(s.compare(TXT(0))); }},
    {"compareX", "T", "OTHER: case-blind, then compare", [](vstring& s, const Args& a, const int*) { return number_of(s.compareX(TXT(0))); }},
    {"CompareNoCase", "T", "OTHER", [](vstring& s, const Args& a, const int*) { return number_of(s.CompareNoCase(a[0].c_str())); }},
    {"cmp", "TI", "OTHER N: bounded ordering", [](vstring& s, const Args& a, const int* n) { vstring o = TXT(0); return number_of(s.cmp(o, static_cast<unsigned>(n[1]))); }},
    {"fcmp", "TI", "OTHER N", [](vstring& s, const Args& a, const int* n) { return number_of(s.fcmp(a[0].c_str(), static_cast<unsigned>(n[1]))); }},
    {"eq", "T", "OTHER: operator==", [](vstring& s, const Args& a, const int*) { return number_of(s == TXT(0)); }},
    {"ne", "T", "OTHER: operator!=", [](vstring& s, const Args& a, const int*) { return number_of(s != TXT(0)); }},
    {"lt", "T", "OTHER: operator<", [](vstring& s, const Args& a, const int*) { return number_of(s < TXT(0)); }},
    {"gt", "T", "OTHER: operator>", [](vstring& s, const Args& a, const int*) { return number_of(s > TXT(0)); }},
    {"le", "T", "OTHER: operator<=", [](vstring& s, const Args& a, const int*) { return number_of(s <= TXT(0)); }},
    {"ge", "T", "OTHER: operator>=", [](vstring& s, const Args& a, const int*) { return number_of(s >= TXT(0)); }},
    {"eqc", "C", "BYTE: operator==(char)", [](vstring& s, const Args& a, const int*) { return number_of(s == CH(0)); }},
    {"caselessEqual", "T", "OTHER", [](vstring& s, const Args& a, const int*) { return number_of(s.caselessEqual(TXT(0))); }},
    {"isInteger", "", "", [](vstring& s, const Args&, const int*) { return number_of(s.isInteger()); }},
    {"IsAlphaNumeric", "", "", [](vstring& s, const Args&, const int*) { return number_of(s.IsAlphaNumeric()); }},
    {"hasWhiteSpace", "", "", [](vstring& s, const Args&, const int*) { return number_of(s.hasWhiteSpace()); }},
    {"hasSeperator", "", "", [](vstring& s, const Args&, const int*) { return number_of(s.hasSeperator()); }},
    {"hash", "", "32-bit hash", [](vstring& s, const Args&, const int*) { return number_of(s.hash()); }},
    // ---- case conversion
    {"MakeUpper", "", "upper case", [](vstring& s, const Args&, const int*) { return text_of(s.MakeUpper()); }},
    {"mbuprnq", "", "upper case outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.mbuprnq()); }},
    {"mblwrnq", "", "lower case outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.mblwrnq()); }},
    {"outCase", "", "upper case outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.outCase()); }},
    {"putUpr", "", "assign, then upper case", [](vstring& s, const Args&, const int*) { const std::string t(s.optr()); return text_of(s.putUpr(t.c_str())); }},
    {"putUprnq", "", "assign, then upper case outside quotes", [](vstring& s, const Args&, const int*) { const std::string t(s.optr()); return text_of(s.putUprnq(t.c_str())); }},
    {"cpyupr", "", "upper-cased copy", [](vstring& s, const Args&, const int*) { return copied(s, [&](char* t) { s.cpyupr(t); }); }},
    {"cpylwr", "", "lower-cased copy", [](vstring& s, const Args&, const int*) { return copied(s, [&](char* t) { s.cpylwr(t); }); }},
    {"cpylwrnq", "", "lower-cased copy outside quotes", [](vstring& s, const Args&, const int*) { return copied(s, [&](char* t) { s.cpylwrnq(t); }); }},
    {"cpyDlgCase", "", "dlgCase copy", [](vstring& s, const Args&, const int*) { return copied(s, [&](char* t) { s.cpyDlgCase(t); }); }},
    {"upr", "", "upper case", [](vstring& s, const Args&, const int*) { return text_of(s.upr()); }},
    {"lwr", "", "lower case", [](vstring& s, const Args&, const int*) { return text_of(s.lwr()); }},
    {"uprnq", "", "upper case outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.uprnq()); }},
    {"lwrnq", "", "lower case outside quotes", [](vstring& s, const Args&, const int*) { return text_of(s.lwrnq()); }},
    {"dlgCase", "", "by the host's setting (none: upper)", [](vstring& s, const Args&, const int*) { return text_of(s.dlgCase(0)); }},
    {"sheetCase", "", "by the host's setting (none: upper)", [](vstring& s, const Args&, const int*) { return text_of(s.sheetCase()); }},
    {"capitalize", "", "lower case, first byte upper", [](vstring& s, const Args&, const int*) { return text_of(s.capitalize()); }},
    {"titleCase", "II", "FIRSTWORDONLY LOWERREST", [](vstring& s, const Args&, const int* n) { return text_of(s.titleCase(n[0], n[1])); }},
    {"isMixedCase", "", "", [](vstring& s, const Args&, const int*) { return number_of(s.isMixedCase()); }},
    // ---- vstringArray (TEXT is the key)
    {"Map", "*", "ENTRIES...: index of the entry named TEXT (name:rest)", map_key},
    {"FindString", "*", "SORTED ENTRIES...: binary search for TEXT", find_string},
};

#undef TXT
#undef CH

using txc_tool::unescape;

const Op* find_op(const std::string& name) {
  for (const Op& op : kOps) {
    if (name == op.name) return &op;
  }
  return nullptr;
}

int usage_error(const std::string& what) {
  std::fprintf(stderr, "txc str: %s (try 'txc help str')\n", what.c_str());
  return 2;
}

void print(const Result& r) {
  if (r.isText) {
    std::printf("%s\n", txc_tool::visible(r.text.data(), r.text.size()).c_str());
  } else {
    std::printf("%lld\n", r.number);
  }
}

int run(const Args& args) {
  Args a = args;
  bool escapes = false;
  if (!a.empty() && a[0] == "-e") {
    escapes = true;
    a.erase(a.begin());
  }
  if (a.size() < 2) return usage_error("needs OP and TEXT");
  const Op* op = find_op(a[0]);
  if (op == nullptr) return usage_error("no operation '" + a[0] + "'");
  if (escapes) {
    for (std::size_t k = 1; k < a.size(); ++k) a[k] = unescape(a[k]);
  }
  vstring text = arg_text(a[1]);
  const Args rest(a.begin() + 2, a.end());
  // A trailing '*' takes any number of further texts.
  std::string pattern = op->args;
  const bool variadic = !pattern.empty() && pattern.back() == '*';
  if (variadic) pattern.pop_back();
  std::size_t required = 0;
  for (char p : pattern) required += (p >= 'A' && p <= 'Z') ? 1 : 0;
  if (rest.size() < required || (!variadic && rest.size() > pattern.size())) {
    return usage_error(std::string(op->name) + " takes " + (op->args[0] == '\0' ? "no arguments" : op->meaning));
  }
  int numbers[8] = {0, 0, 0, 0, 0, 0, 0, 0};
  for (std::size_t k = 0; k < rest.size() && k < pattern.size(); ++k) {
    const char kind = static_cast<char>(pattern[k] & ~0x20);
    if (kind == 'I' && !to_int(rest[k], &numbers[k])) return usage_error("'" + rest[k] + "' is no number");
    if (kind == 'C' && rest[k].size() != 1) return usage_error("'" + rest[k] + "' is not one byte");
  }
  print(op->run(text, rest, numbers));
  return 0;
}

std::string build_usage() {
  std::string u =
      "txc str [-e] OP TEXT [ARGS...]\n"
      "  Runs one vstring operation on TEXT and prints the result as [bytes], with\n"
      "  control bytes, bytes of 0x80 and up and '\\' shown as \\xNN; numbers plain.\n"
      "  -e reads TEXT and ARGS with the escapes \\n \\r \\t \\\\ \\\" \\xNN.\n"
      "  No host is registered (0x93/0x94 are ordinary bytes).\n\nOperations:\n";
  for (const Op& op : kOps) {
    char line[160];
    std::snprintf(line, sizeof line, "  %-27s %s\n", op.name, op.meaning);
    u += line;
  }
  return u;
}

const std::string g_usage = build_usage();

void tour() {
  const char* samples[][3] = {
      {"trim", "  x\xE9  ", "1"},
      {"replace_mult", "aXa", nullptr},
      {"MakeQuoted", "say \"hi\"", nullptr},
      {"StripQuotesEx", "\"a\"\"b\"   ", nullptr},
      {"StripQuotesEx", "\"a\" \"b\"", nullptr},
      {"CR_LF_to_LF", "a\r\nb\n\rc", nullptr},
      {"instr", "abcabc", nullptr},
      {"titleCase", "aBC dEF", nullptr},
  };
  for (const auto& s : samples) {
    Args a;
    if (std::string(s[0]) == "replace_mult") a = {"a", "bb", "9999999", "0"};
    else if (std::string(s[0]) == "instr") a = {"bc", "2", "0"};
    else if (std::string(s[0]) == "titleCase") a = {"0", "1"};
    else if (s[2] != nullptr) a = {s[2]};
    std::string shown;
    for (const std::string& x : a) shown += " " + x;
    std::printf("  %-14s %s%s\n    -> ", s[0], txc_tool::visible(s[1]).c_str(), shown.c_str());
    vstring text(s[1]);
    const Op* op = find_op(s[0]);
    int numbers[8] = {0, 0, 0, 0, 0, 0, 0, 0};
    for (std::size_t k = 0; k < a.size(); ++k) to_int(a[k], &numbers[k]);
    print(op->run(text, a, numbers));
  }
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "str", nullptr, "run one vstring text operation on a text", g_usage.c_str(), run, tour}};

}  // namespace
