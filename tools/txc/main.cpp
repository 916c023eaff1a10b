// txc: try the txCommon library on real text from the command line.
//
//   txc                 a short tour on built-in samples
//   txc help [NAME]     the subcommands, or one in full
//   txc version
#include "command.h"

#include <txCommon/internal.h>

#include <algorithm>
#include <cstdio>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace txc_tool {

std::vector<Command>& commands() {
  static std::vector<Command> all;
  return all;
}

std::string visible(const char* text, std::size_t n) {
  std::string out = "[";
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c < 0x20 || c >= 0x7F || c == '\\') {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "]";
}

std::string visible(const char* text) { return visible(text, std::strlen(text)); }

// Reads \n \r \t \\ \" and \xNN; anything else stays as written.
std::string unescape(const std::string& in) {
  std::string out;
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in[i] != '\\' || i + 1 == in.size()) {
      out += in[i];
      continue;
    }
    const char c = in[++i];
    if (c == 'n') out += '\n';
    else if (c == 'r') out += '\r';
    else if (c == 't') out += '\t';
    else if (c == '\\' || c == '"') out += c;
    else if (c == 'x' && i + 2 < in.size() && std::isxdigit(static_cast<unsigned char>(in[i + 1])) &&
             std::isxdigit(static_cast<unsigned char>(in[i + 2]))) {
      out += static_cast<char>(std::strtol(in.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      out += '\\';
      out += c;
    }
  }
  return out;
}

bool to_int(const std::string& text, int* out) {
  if (text.empty()) return false;
  errno = 0;
  char* end = nullptr;
  const long long v = std::strtoll(text.c_str(), &end, 10);
  if (errno != 0 || *end != '\0' || v < -2147483647LL - 1 || v > 2147483647LL) return false;
  *out = static_cast<int>(v);
  return true;
}

bool parse_flags(const std::string& text, const FlagName* table, std::size_t count, unsigned* out) {
  char* end = nullptr;
  errno = 0;
  const unsigned long v = std::strtoul(text.c_str(), &end, 0);
  if (!text.empty() && errno == 0 && *end == '\0') {
    *out |= static_cast<unsigned>(v);
    return true;
  }
  for (std::size_t start = 0; start <= text.size();) {
    std::size_t stop = text.find_first_of(",+", start);
    if (stop == std::string::npos) stop = text.size();
    const std::string word = text.substr(start, stop - start);
    bool known = false;
    for (std::size_t k = 0; k < count; ++k) {
      if (word == table[k].name) {
        *out |= table[k].bit;
        known = true;
      }
    }
    if (!known) return false;
    start = stop + 1;
  }
  return true;
}

}  // namespace txc_tool

namespace {

using namespace txc_tool;

void sort_commands() {
  std::sort(commands().begin(), commands().end(),
            [](const Command& a, const Command& b) {
              const int byName = std::strcmp(a.name, b.name);
              if (byName != 0) return byName < 0;
              return std::strcmp(a.verb ? a.verb : "", b.verb ? b.verb : "") < 0;
            });
}

std::string title(const Command& c) {
  return c.verb != nullptr ? std::string(c.name) + " " + c.verb : std::string(c.name);
}

int help(const Args& args) {
  if (!args.empty()) {
    bool found = false;
    for (const Command& c : commands()) {
      if (args[0] == c.name && (args.size() < 2 || (c.verb && args[1] == c.verb))) {
        std::printf("%s\n\n", c.usage);
        found = true;
      }
    }
    if (!found) std::fprintf(stderr, "txc: no subcommand '%s'\n", args[0].c_str());
    return found ? 0 : 2;
  }
  std::printf("usage: txc [SUBCOMMAND [ARGS...]]\n\nWith no arguments, a short tour.\n\n");
  for (const Command& c : commands()) std::printf("  %-14s %s\n", title(c).c_str(), c.summary);
  std::printf("\n'txc help NAME' shows one subcommand in full.\n");
  return 0;
}

void tour() {
  std::printf("txCommon tour\n=============\n");
  for (const Command& c : commands()) {
    if (c.tour != nullptr) {
      std::printf("\n-- %s --\n", title(c).c_str());
      c.tour();
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  txcommon_initialize(nullptr);
  sort_commands();
  if (argc < 2) {
    tour();
    return 0;
  }
  const std::string name = argv[1];
  Args args(argv + 2, argv + argc);
  if (name == "help" || name == "--help" || name == "-h") return help(args);
  if (name == "version" || name == "--version") {
    std::printf("txc (txCommon) 0.1.0\n");
    return 0;
  }
  for (const Command& c : commands()) {
    if (name != c.name) continue;
    if (c.verb == nullptr) return c.run(args);
    if (!args.empty() && args[0] == c.verb) return c.run(Args(args.begin() + 1, args.end()));
  }
  std::fprintf(stderr, "txc: unknown subcommand '%s' (try 'txc help')\n", name.c_str());
  return 2;
}
