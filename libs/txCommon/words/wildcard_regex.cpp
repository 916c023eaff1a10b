// Rewriting by wildcard pattern through std::regex.
//
// The source pattern becomes an ECMAScript regular expression, each kept
// wildcard a capture group (`*` the lazy `(.*?)`, `?` the group `(.)`), and
// the destination becomes a template that names the groups in two digits,
// so that a digit behind a wildcard never joins the number. An outer `*` on
// the same side of both patterns is dropped on both: the match is then open
// on that side, and the text beyond the match stays as it is.
//
//   a*b -> x*y    regex ^a(.*?)b$  template x$01y   a12b -> x12y
//   *a  -> *b     regex a$         template b       xa   -> xb
//   a*c* -> x*y*  regex ^a(.*?)c   template x$01y   a1c2 -> x1y2
//
// Nothing is cached: each rewrite translates and compiles afresh.
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/wildcard.h>
#include <txCommon/vstring.h>

#include <cstring>
#include <exception>

// g++ 12 at -O1 with the sanitizers sees std::function members inside
// libstdc++'s regex compiler as "maybe uninitialized"; the warning is about
// the library's own code, so it is silenced for this file alone.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>
#include <string>

namespace {

// The whole-word pattern `*` has fixed translations, whatever the flags.
constexpr const char* kWholeWordRegex = "^(.*)$";
constexpr const char* kWholeWordTemplate = "$01";
// Template numbers have two digits: $01..$99.
constexpr int kMaxTemplateWildcard = 99;
// Report to the host when a template would need a hundredth wildcard.
constexpr int kTooManyWildcards = 500;

bool needs_backslash(char c) {
  return c != '\0' && std::strchr("$()+.[\\]^{|}", c) != nullptr;
}

// std::regex backtracks: a search over n bytes with s lazy groups may try
// on the order of (n + 1)^(s + 1) paths before it gives up (3 groups over 2
// KB run for minutes). A rewrite whose bound passes 2^30 paths, about two
// seconds, is refused as the facility's own complexity limit would refuse it.
// Names of statements are far below: 5 stars still take 31 bytes.
constexpr double kPathBudget = 1073741824.0;

bool within_budget(const std::string& expression, int textLength) {
  int groups = 0;
  for (std::size_t at = expression.find("(.*?)"); at != std::string::npos;
       at = expression.find("(.*?)", at + 5)) {
    ++groups;
  }
  double paths = 1.0;
  for (int i = 0; i <= groups; ++i) {
    paths *= static_cast<double>(textLength) + 1.0;
    if (paths > kPathBudget) return false;
  }
  return true;
}

bool all_stars(const char* p, int n) {
  for (int i = 0; i < n; ++i) {
    if (p[i] != '*') return false;
  }
  return true;
}

}  // namespace

namespace txc {

bool wildcard_translate(const char* pattern, int patternLength, bool forTemplate,
                        bool keepLeading, bool keepTrailing, std::string& out) {
  const int n = (pattern == nullptr || patternLength < 0) ? 0 : patternLength;
  if (n == 1 && pattern[0] == '*') {
    out += forTemplate ? kWholeWordTemplate : kWholeWordRegex;
    return true;
  }
  if (!forTemplate && (keepLeading || (n > 0 && pattern[0] != '*'))) out += '^';
  int first = 0;
  int last = n;
  if (!keepLeading && n > 0 && pattern[0] == '*') first = 1;
  bool trailingDropped = false;
  if (!keepTrailing && last > first && pattern[last - 1] == '*') {
    --last;
    trailingDropped = true;
  }
  int wildcard = 0;
  for (int i = first; i < last; ++i) {
    const char c = pattern[i];
    if (c == '*' || c == '?') {
      if (!forTemplate) {
        out += c == '*' ? "(.*?)" : "(.)";
        continue;
      }
      if (++wildcard > kMaxTemplateWildcard) {
        report_error(kTooManyWildcards);
        out.clear();
        return false;
      }
      out += '$';
      out += static_cast<char>('0' + wildcard / 10);
      out += static_cast<char>('0' + wildcard % 10);
      continue;
    }
    if (forTemplate) {
      if (c == '$') out += '$';
    } else if (needs_backslash(c)) {
      out += '\\';
    }
    out += c;
  }
  if (!forTemplate && (keepTrailing || !trailingDropped)) out += '$';
  return true;
}

}  // namespace txc

vstring wildcardToRegex(const vstring& pattern, bool forTemplate, bool keepLeading,
                        bool keepTrailing) {
  std::string out;
  txc::wildcard_translate(pattern.optr(), static_cast<int>(pattern.len()), forTemplate,
                          keepLeading, keepTrailing, out);
  return vstring(out.data(), static_cast<txlong>(out.size()));
}

namespace {

// The rewrite proper: false when the search is over the path budget. It may
// throw what std::regex and std::string throw.
bool rewrite(std::string& result, const char* text, int textLength, const char* source,
             int sourceLength, const char* destination, int destinationLength, bool ignoreCase,
             bool firstOnly) {
  const bool regexKeepTrailing = destinationLength > 0 && destination[destinationLength - 1] != '*';
  const bool regexKeepLeading = destinationLength > 0 && destination[0] != '*';
  const bool stars = all_stars(source, sourceLength);
  const bool templateKeepTrailing = stars || source[sourceLength - 1] != '*';
  const bool templateKeepLeading = stars || source[0] != '*';

  std::string expression;
  txc::wildcard_translate(source, sourceLength, false, regexKeepLeading, regexKeepTrailing,
                          expression);
  // A template refused for its hundredth wildcard is empty: each match is
  // then replaced by nothing.
  std::string format;
  txc::wildcard_translate(destination, destinationLength, true, templateKeepLeading,
                          templateKeepTrailing, format);

  if (!within_budget(expression, textLength)) return false;

  auto syntax = std::regex_constants::ECMAScript;
  if (ignoreCase) syntax |= std::regex_constants::icase;
  const std::regex re(expression, syntax);
  auto flags = std::regex_constants::format_default;
  if (firstOnly) flags |= std::regex_constants::format_first_only;
  result = std::regex_replace(std::string(text, static_cast<std::size_t>(textLength)), re, format,
                              flags);
  return true;
}

}  // namespace

bool wildcardReplace(char* output, int* outputLength, const char* text, int textLength,
                     const char* source, int sourceLength, const char* destination,
                     int destinationLength, bool ignoreCase, bool checkPatterns, bool firstOnly,
                     int outputCapacity) {
  if (outputLength != nullptr) *outputLength = 0;
  if (output != nullptr && outputCapacity > 0) output[0] = '\0';
  if (output == nullptr || outputLength == nullptr) return false;
  if (text == nullptr || textLength < 0) textLength = 0;
  if (source == nullptr || sourceLength < 0) sourceLength = 0;
  if (destination == nullptr || destinationLength < 0) destinationLength = 0;
  if (text == nullptr) text = "";
  if (source == nullptr) source = "";
  if (destination == nullptr) destination = "";

  if (checkPatterns &&
      !wildcardsCompatible(source, sourceLength, destination, destinationLength)) {
    // The text that is the source pattern itself may still go over whole,
    // to a destination with one `*` and nothing else wild.
    const bool isSource = textLength == sourceLength &&
                          std::memcmp(text, source, static_cast<std::size_t>(textLength)) == 0;
    if (!isSource || !wildcardsCompatible("*", 1, destination, destinationLength)) return false;
    source = "*";
    sourceLength = 1;
  }
  const int limit = txc::kWildcardRegexLimit;
  if (textLength > limit || sourceLength > limit || destinationLength > limit) return false;

  std::string result;
  try {
    if (!rewrite(result, text, textLength, source, sourceLength, destination, destinationLength,
                 ignoreCase, firstOnly)) {
      return false;
    }
  } catch (const std::exception&) {
    // regex_error above all; a failed allocation is a failed rewrite too.
    return false;
  }
  if (result.size() >= static_cast<std::size_t>(outputCapacity)) return false;
  std::memcpy(output, result.data(), result.size());
  output[result.size()] = '\0';
  *outputLength = static_cast<int>(result.size());
  return true;
}
