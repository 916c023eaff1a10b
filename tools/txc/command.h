// txc subcommands. Each file of this folder registers its subcommand with a
// static Registration; main.cpp dispatches on the first argument.
#pragma once

#include <string>
#include <vector>

namespace txc_tool {

using Args = std::vector<std::string>;

// A command is named by one word (`version`) or by a word and a verb
// (`date parse`): `verb` is null for the first kind.
struct Command {
  const char* name;
  const char* verb;
  const char* summary;      // one line for `txc help`
  const char* usage;        // full text for `txc help NAME`
  int (*run)(const Args&);  // arguments after the subcommand name
  void (*tour)();           // part of the no-argument tour, or null
};

std::vector<Command>& commands();

struct Registration {
  explicit Registration(const Command& c) { commands().push_back(c); }
};

// Shows bytes so that blanks, quotes and control bytes are visible:
// [a b] with control and high bytes as \xNN.
std::string visible(const char* text, std::size_t n);
std::string visible(const char* text);

// Reads \n \r \t \\ \" and \xNN in an argument; anything else stays as written.
std::string unescape(const std::string& in);

// A decimal 32-bit integer, the whole text; false for anything else.
bool to_int(const std::string& text, int* out);

// Flag arguments: a number (0x.. allowed) or names from `table` joined by
// ',' or '+'; each is or-ed into *out. False for an unknown name.
struct FlagName {
  const char* name;
  unsigned bit;
};
bool parse_flags(const std::string& text, const FlagName* table, std::size_t count, unsigned* out);

}  // namespace txc_tool
