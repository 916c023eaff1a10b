// txc num format / txc num iformat: the formatting codes of vstring on a
// value from the command line. The text is printed between brackets so that
// its blanks show.
//
//   txc num format 1234.5678 8.2                 [ 1234.57]
//   txc num format 1234.5678 12.2 --flags left   [ 1234.57    ]
//   txc num iformat 1234.5678 -1003              [ 1.235e+03]
#include "command.h"

#include <iterator>

#include <txCommon/internal.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using txc_tool::to_int;

using txc_tool::Args;

using txc_tool::FlagName;

// The caller's flag bits by name, as the help text lists them.
constexpr FlagName kFlagNames[] = {
    {"plus", NF_PLUS},         {"blank", NF_BLANK},       {"paren", NF_PAREN},
    {"currency", NF_CURRENCY}, {"zerofill", NF_ZEROFILL}, {"comma", NF_COMMA},
    {"point", NF_POINT},       {"blankgroup", NF_BLANKGROUP}, {"percent", NF_PERCENT},
    {"left", NF_LEFT},         {"zeros", NF_ZEROS},       {"group", NF_GROUP},
    {"truncate", NF_TRUNCATE}, {"roundup", NF_ROUNDUP},
};

int usage_error(const std::string& what) {
  std::fprintf(stderr, "txc num: %s (try 'txc help num')\n", what.c_str());
  return 2;
}

// "NA" is the missing value; everything else goes through strtod, whole.
bool parse_value(const std::string& text, double* out) {
  if (text == "NA" || text == "na") {
    *out = dNA;
    return true;
  }
  if (text.empty()) return false;
  char* end = nullptr;
  *out = std::strtod(text.c_str(), &end);
  return *end == '\0';
}



void print_text(const vstring& s) { std::printf("%s\n", txc_tool::visible(s.optr(), s.len()).c_str()); }

int run_format(const Args& args) {
  double value = 0;
  float spec = 0;
  int positional = 0;
  unsigned flags = 0;
  int before = 0;
  int after = 0;
  bool padded = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool hasValue = i + 1 < args.size();
    if (a == "--flags" && hasValue) {
      if (!txc_tool::parse_flags(args[++i], kFlagNames, std::size(kFlagNames), &flags)) return usage_error("bad --flags '" + args[i] + "'");
    } else if ((a == "--before" || a == "--after") && hasValue) {
      if (!to_int(args[++i], a == "--before" ? &before : &after)) return usage_error("bad " + a);
      padded = true;
    } else if (a.size() > 2 && a[0] == '-' && a[1] == '-') {
      return usage_error("unknown option '" + a + "'");
    } else if (positional == 0) {
      if (!parse_value(a, &value)) return usage_error("bad VALUE '" + a + "'");
      ++positional;
    } else if (positional == 1) {
      char* end = nullptr;
      spec = std::strtof(a.c_str(), &end);
      if (a.empty() || *end != '\0') return usage_error("bad SPEC '" + a + "'");
      ++positional;
    } else {
      return usage_error("unexpected argument '" + a + "'");
    }
  }
  if (positional != 2) return usage_error("'num format' needs VALUE and SPEC");
  if (padded && flags != 0) return usage_error("--before/--after take no --flags");
  vstring s;
  if (padded) {
    s.format(value, spec, before, after);
  } else {
    s.format(value, spec, flags);
  }
  print_text(s);
  return 0;
}

int run_iformat(const Args& args) {
  double value = 0;
  int digits = 0;
  if (args.size() != 2) return usage_error("'num iformat' needs VALUE and DIGITS");
  if (!parse_value(args[0], &value)) return usage_error("bad VALUE '" + args[0] + "'");
  if (!to_int(args[1], &digits)) return usage_error("bad DIGITS '" + args[1] + "'");
  vstring s;
  s.iformat(value, digits);
  print_text(s);
  return 0;
}

void tour_format() {
  struct Sample {
    double value;
    float spec;
    unsigned flags;
    const char* code;
  };
  const Sample samples[] = {{1234.5678, 8.2f, 0, "8.2"},
                            {1234.5678, 12.2f, NF_LEFT, "12.2 left"},
                            {-1234.5678, 12.2f, NF_PAREN, "12.2 paren"},
                            {1234567.891, 14.2f, NF_GROUP, "14.2 group"},
                            {1234.5678, 0.03f, 0, "0.03"},
                            {1234.5678, 0.0f, 0, "0.0"},
                            {1e30, 8.2f, 0, "8.2"}};
  for (const Sample& s : samples) {
    vstring t;
    t.format(s.value, s.spec, s.flags);
    std::printf("format(%.10g, %s) %s\n", s.value, s.code, txc_tool::visible(t.optr(), t.len()).c_str());
  }
  std::printf("strFormat(1234.5678) %s\n", txc_tool::visible(strFormat(1234.5678)).c_str());
}

void tour_iformat() {
  const int codes[] = {2, 0, -8, -1003, -4};
  for (const int d : codes) {
    vstring t;
    t.iformat(1234.5678, d);
    std::printf("iformat(1234.5678, %d) %s\n", d, txc_tool::visible(t.optr(), t.len()).c_str());
  }
  vstring na;
  na.iformat(dNA, 2);
  std::printf("iformat(NA, 2) %s\n", txc_tool::visible(na.optr(), na.len()).c_str());
}

const txc_tool::Registration formatRegistration{txc_tool::Command{
    "num", "format", "a number by a width.decimals code",
    "txc num format VALUE SPEC [--flags F] [--before N --after M]\n"
    "  vstring::format of VALUE (a number, or NA) by SPEC:\n"
    "    0        the \"%.12g\" text\n"
    "    W.D > 1  width W, D decimals (one decimal of the code counts)\n"
    "    0 < S <= 1  exponent form with S*100 decimals (0.03: 3)\n"
    "    negative the iformat code\n"
    "  F is a number (0x.. allowed) or names joined by ',': plus blank paren\n"
    "  currency zerofill comma point blankgroup percent left zeros group\n"
    "  truncate roundup. --before/--after use the padded form (no flags).\n"
    "  The text is printed between brackets.",
    run_format, tour_format}};

const txc_tool::Registration iformatRegistration{txc_tool::Command{
    "num", "iformat", "a number by a digits code",
    "txc num iformat VALUE DIGITS\n"
    "  vstring::iformat of VALUE (a number, or NA): DIGITS >= 0 decimals,\n"
    "  -1..-999 a column of -DIGITS bytes, below -999 exponent form with\n"
    "  -1000-DIGITS decimals. The text is printed between brackets.",
    run_iformat, tour_iformat}};

}  // namespace
