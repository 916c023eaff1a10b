// txc num read / txc num write: the format-directed number reader and writer
// on text and values from the command line.
//
//   txc num read '1,234.5 kg' --flags group    1234.5  status 0 NUM_OK  consumed 7
//   txc num write 12345.678 --letter f --precision 2 --width 6 --align =
//                                              [ 12346]  status 8 NUM_LOST  outcome 0
#include "command.h"

#include <iterator>

#include <txCommon/internal.h>
#include <txCommon/internal/number_io.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using txc_tool::to_int;

using txc_tool::Args;

using txc_tool::FlagName;

constexpr FlagName kFlags[] = {
    {"plus", NF_PLUS},           {"blank", NF_BLANK},       {"paren", NF_PAREN},
    {"currency", NF_CURRENCY},   {"zerofill", NF_ZEROFILL}, {"comma", NF_COMMA},
    {"point", NF_POINT},         {"blankzero", NF_BLANKZERO}, {"fixedden", NF_FIXEDDEN},
    {"reduce", NF_REDUCE},       {"blankgroup", NF_BLANKGROUP}, {"percent", NF_PERCENT},
    {"left", NF_LEFT},           {"zeros", NF_ZEROS},       {"group", NF_GROUP},
    {"truncate", NF_TRUNCATE},   {"roundup", NF_ROUNDUP},
};

const char* status_name(int status) {
  switch (status) {
    case NUM_OK: return "NUM_OK";
    case NUM_NOTE: return "NUM_NOTE";
    case NUM_BADLETTER: return "NUM_BADLETTER";
    case NUM_SYNTAX: return "NUM_SYNTAX";
    case NUM_OVERFLOW: return "NUM_OVERFLOW";
    case NUM_LOST: return "NUM_LOST";
    case NUM_NONFINITE: return "NUM_NONFINITE";
    default: return "?";
  }
}

int fail(const std::string& what) {
  std::fprintf(stderr, "txc num: %s (try 'txc help num')\n", what.c_str());
  return 2;
}



struct Options {
  std::vector<std::string> positional;
  NumFormat format{'g', 0, 0, 0, 999};
  int size = 64;
  bool whole = false;  // read: no `consumed`, so trailing text fails
};

// Parses the options shared by both verbs. Returns an empty text or the error.
std::string parse_options(const Args& args, Options& o) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool has_value = i + 1 < args.size();
    if (a == "--whole") {
      o.whole = true;
    } else if (a.rfind("--", 0) != 0 || a == "--") {
      o.positional.push_back(a == "--" && has_value ? args[++i] : a);
    } else if (!has_value) {
      return "option " + a + " needs a value";
    } else if (a == "--letter") {
      const std::string& v = args[++i];
      if (v.size() != 1) return "--letter takes one character";
      o.format.letter = v[0];
    } else if (a == "--align") {
      const std::string& v = args[++i];
      o.format.align = v.empty() ? '\0' : v[0];
    } else if (a == "--precision") {
      if (!to_int(args[++i], &o.format.precision)) return "bad --precision";
    } else if (a == "--width") {
      if (!to_int(args[++i], &o.format.width)) return "bad --width";
    } else if (a == "--size") {
      if (!to_int(args[++i], &o.size) || o.size < 0 || o.size > 4096) return "--size takes 0..4096";
    } else if (a == "--flags") {
      if (!txc_tool::parse_flags(args[++i], kFlags, std::size(kFlags), &o.format.flags)) return "unknown flag in " + args[i];
    } else {
      return "unknown option " + a;
    }
  }
  return "";
}

int run_read(const Args& args) {
  Options o;
  o.format.letter = 'c';
  const std::string err = parse_options(args, o);
  if (!err.empty()) return fail(err);
  if (o.positional.size() != 1) return fail("read takes one TEXT");
  const std::string& text = o.positional[0];
  double value = 0.0;
  int consumed = 0, failed = 0;
  errno = 0;
  const int status = ReadNumber(o.format, text.c_str(), static_cast<int>(text.size()),
                                o.whole ? nullptr : &consumed, &value, &failed);
  const bool range = errno == ERANGE;
  std::printf("%s  %.17g  status %d %s", txc_tool::visible(text.c_str()).c_str(), value, status,
              status_name(status));
  if (!o.whole) std::printf("  consumed %d", consumed);
  if (range) std::printf("  errno ERANGE");
  std::printf("\n");
  return 0;
}

bool to_value(const std::string& text, double* out) {
  if (text.empty()) return false;
  char* end = nullptr;
  *out = std::strtod(text.c_str(), &end);
  return *end == '\0';
}

void show_write(double value, const NumFormat& f, int size) {
  std::vector<char> buffer(static_cast<std::size_t>(size) + 1, '\0');
  int outcome = -1, written = 0;
  const int status = WriteNumber(value, f, buffer.data(), size, &outcome, &written);
  std::printf("%s  status %d %s  outcome %d\n", txc_tool::visible(buffer.data(), static_cast<std::size_t>(written)).c_str(),
              status, status_name(status), outcome);
}

int run_write(const Args& args) {
  Options o;
  o.format.precision = 6;
  const std::string err = parse_options(args, o);
  if (!err.empty()) return fail(err);
  if (o.positional.size() != 1) return fail("write takes one VALUE");
  double value = 0.0;
  if (!to_value(o.positional[0], &value)) return fail("not a value: " + o.positional[0]);
  show_write(value, o.format, o.size);
  return 0;
}

void tour() {
  const char* const texts[] = {"1,234.5", "(12)", "3 1/4"};
  const NumFormat reads[] = {{'c', 0, NF_GROUP, 0, 999}, {'c', 0, 0, 0, 999}, {'r', 0, 0, 0, 999}};
  for (int i = 0; i < 3; ++i) {
    double v = 0.0;
    int used = 0;
    const int status = ReadNumber(reads[i], texts[i], static_cast<int>(std::strlen(texts[i])), &used, &v, nullptr);
    std::printf("read %-10s as %c  ->  %.17g  status %d  consumed %d\n", texts[i], reads[i].letter, v, status, used);
  }
  struct Sample { double value; NumFormat f; };
  const Sample writes[] = {{1234567.891, {'f', 0, NF_GROUP, 0, 2}},
                           {12345.678, {'f', '=', 0, 6, 2}},
                           {3.14159, {'r', 0, 0, 0, 3}},
                           {-5, {'f', 0, NF_PAREN | NF_CURRENCY, 0, 1}}};
  for (const Sample& s : writes) {
    std::printf("write %-12.10g as %c p%d w%d  ->  ", s.value, s.f.letter, s.f.precision, s.f.width);
    show_write(s.value, s.f, 64);
  }
}

const char kReadUsage[] =
    "txc num read TEXT [--letter L] [--flags F,...] [--precision P] [--whole]\n"
    "  Reads one number from TEXT with ReadNumber and prints the value, the\n"
    "  status and the bytes consumed. --letter: c f g e p s b o i h r (default c).\n"
    "  --whole: no consumed count, so trailing text is a syntax failure.\n"
    "  Flags: paren currency comma blankzero percent group (others are writing flags),\n"
    "  joined by ',' or '+', or a number.";
const char kWriteUsage[] =
    "txc num write VALUE [--letter L] [--precision P] [--width W] [--align <|=] [--flags F,...] [--size N]\n"
    "  Writes VALUE with WriteNumber and prints the field between brackets, the\n"
    "  status and the outcome. --letter: f e g z c p s i h o b r (default g),\n"
    "  --precision default 6 (999: none stated), --size the buffer (default 64).\n"
    "  Flags: plus blank paren currency zerofill comma point fixedden reduce\n"
    "  blankgroup percent left zeros group truncate roundup.";

const txc_tool::Registration kRead{txc_tool::Command{
    "num", "read", "read a number with ReadNumber", kReadUsage, run_read, tour}};
const txc_tool::Registration kWrite{txc_tool::Command{
    "num", "write", "write a number with WriteNumber", kWriteUsage, run_write, nullptr}};

}  // namespace
