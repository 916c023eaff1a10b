// txc scan READER TEXT: cut a statement into words with one of the command
// readers and show each word with the cursor behind it.
#include "command.h"

#include <txCommon/internal.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

using txc_tool::visible;

// One reader of the scanner, by name.
struct Reader {
  const char* name;
  vstring& (*read)(command&);
};

const Reader kReaders[] = {
    {"word", [](command& c) -> vstring& { return c.word(1); }},
    {"word0", [](command& c) -> vstring& { return c.word(0); }},
    {"blank", [](command& c) -> vstring& { return c.word(' ', 0, 1); }},
    {"comma", [](command& c) -> vstring& { return c.word(',', 0, 1); }},
    {"raw", [](command& c) -> vstring& { return c.word(' ', 1, 1); }},
    {"bracket", [](command& c) -> vstring& { return c.wordwithbracket(); }},
    {"forword", [](command& c) -> vstring& { return c.forWord(); }},
    {"commaspace", [](command& c) -> vstring& { return c.wordCommaSpace(); }},
    {"stripdb", [](command& c) -> vstring& { return c.wordStripDB(); }},
    {"operator", [](command& c) -> vstring& { return c.WordToSeperator(); }},
    {"eq", [](command& c) -> vstring& { return c.eqword(); }},
    {"date", [](command& c) -> vstring& { return c.word_date(); }},
    {"datefull", [](command& c) -> vstring& { return c.word_date_full(0, nullptr); }},
};

const Reader* find_reader(const std::string& name) {
  for (const Reader& r : kReaders) {
    if (name == r.name) return &r;
  }
  return nullptr;
}

void scan(const Reader& reader, const char* text) {
  command c(text);
  std::printf("%s %s\n", reader.name, visible(text).c_str());
  for (int n = 0; n < 1000; ++n) {
    const int before = c.GetOffset();
    const vstring& w = reader.read(c);
    if (w.len() == 0) {
      std::printf("  (empty word, cursor %d)\n", c.GetOffset());
      break;
    }
    std::printf("  %-24s cursor %d -> %d\n", visible(w.optr(), w.len()).c_str(), before,
                c.GetOffset());
  }
}

void head(const char* text) {
  command c(text);
  char sep = 0;
  int paren = 0;
  const vstring& w = c.FirstWordToSeperator(sep, paren);
  std::printf("head %s\n  %s sep %s paren %d cursor %d\n", visible(text).c_str(),
              visible(w.optr(), w.len()).c_str(), visible(&sep, sep ? 1 : 0).c_str(), paren,
              c.GetOffset());
}

int run(const txc_tool::Args& args) {
  if (args.size() == 2 && args[0] == "head") {
    head(args[1].c_str());
    return 0;
  }
  if (args.size() == 2 && args[0] == "count") {
    command c(args[1].c_str());
    std::printf("words %d, dates %d\n", c.num_words(), c.num_dates(0, nullptr));
    return 0;
  }
  if (args.size() == 2 && args[0] == "squeeze") {
    command c(args[1].c_str());
    c.eqRemoveWhiteSpace();
    std::printf("%s\n", visible(c.optr(), c.len()).c_str());
    return 0;
  }
  if (args.size() == 2 && args[0] == "parens") {
    command c(args[1].c_str());
    const vstring& g = c.get_between_parens();
    std::printf("%s arguments %d, cursor %d\n", visible(g.optr(), g.len()).c_str(),
                command(args[1].c_str()).eqCountArgs(), c.GetOffset());
    return 0;
  }
  const Reader* reader = args.size() == 2 ? find_reader(args[0]) : nullptr;
  if (reader == nullptr) {
    std::fprintf(stderr, "usage: txc scan READER TEXT   (txc help scan)\n");
    return 2;
  }
  scan(*reader, args[1].c_str());
  return 0;
}

void tour() {
  scan(kReaders[0], "GENR Y = f(a b)+1 \"x y\" g(z)w");
  scan(kReaders[9], "ab+c.d = (e)");
  scan(kReaders[10], "y = 1.5 E + 3*f(x, \"a b\") ' note");
  scan(kReaders[12], "1/15/90 10:30 EST 1990Q1 15 Jan 1990");
  head("abc(1,2) = x");
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "scan", nullptr, "cut statement text into words with a command reader",
    "txc scan READER TEXT | txc scan head|count|squeeze|parens TEXT\n"
    "  READER: word (word(1)), word0, blank (word(' ',0,1)), comma (word(',',0,1)),\n"
    "          raw (word(' ',1,1)), bracket, forword, commaspace, stripdb,\n"
    "          operator (WordToSeperator), eq (eqword), date (word_date),\n"
    "          datefull (word_date_full(0, no record))\n"
    "  head: FirstWordToSeperator; count: num_words and num_dates;\n"
    "  squeeze: eqRemoveWhiteSpace; parens: get_between_parens and eqCountArgs.",
    run, tour}};

}  // namespace
