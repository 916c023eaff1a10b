// Wildcard patterns: matching, compatibility, translation to a regular
// expression, and rewriting names by pattern.
//
// Internal: not part of the public interface.
//
// A pattern is bytes with two wildcards and no escape: `*` is any run of bytes
// (also none), `?` exactly one byte, every other byte itself, case counting.
// Matching is a small matcher of its own that allocates nothing; rewriting
// translates the source pattern to an ECMAScript regular expression and the
// destination to a replacement template ($01..$99) and runs std::regex:
//
//   source a*b, destination x*y:  regex ^a(.*?)b$, template x$01y, a12b -> x12y
//   source *a*, destination *b*:  regex a,         template b,      xaya -> xbyb
#pragma once

#include <txCommon/vstring.h>

#include <string>

// True when the whole of `text` matches `pattern`. Neither needs a zero byte;
// a negative length counts as 0. Each inner segment takes its first fit and
// the last segment is anchored at the end, which is exact for `*` and `?`.
bool wildcardMatch(const char* text, int textLength, const char* pattern, int patternLength);

// True when the two patterns carry the same wildcards in the same order, and
// `first` has no two `*` without a literal byte between them (`**`, `*?*`).
bool wildcardsCompatible(const char* first, int firstLength, const char* second,
                         int secondLength);

// The regular expression for `pattern`, or with forTemplate the replacement
// template. keepLeading / keepTrailing keep an outer `*` that would otherwise
// be dropped (leaving the match unanchored on that side). The pattern `*`
// alone gives "^(.*)$" / "$01". A template that would need a hundredth
// wildcard reports 500 to the host and comes back empty.
vstring wildcardToRegex(const vstring& pattern, bool forTemplate, bool keepLeading,
                        bool keepTrailing);

// Rewrites `text` from `source` to `destination` into `output`, zero-ended,
// and sets *outputLength (its value on entry is not read). With checkPatterns
// the two patterns must be compatible, unless the text is the source itself
// and the destination holds a single `*`. False, with nothing rewritten, when
// the patterns are refused, when the regular-expression facility fails, when
// the text or a pattern exceeds kWildcardRegexLimit bytes (beyond that the
// facility's recursion could exhaust a thread's stack), when the backtracking
// bound (text length + 1)^(lazy groups + 1) passes 2^30 (such a search can
// run for minutes: three `*` over 2 KB of text), or when the result
// and its zero byte do not fit `outputCapacity`; *outputLength is then 0 and
// output holds an empty text when it has room for one.
bool wildcardReplace(char* output, int* outputLength, const char* text, int textLength,
                     const char* source, int sourceLength, const char* destination,
                     int destinationLength, bool ignoreCase, bool checkPatterns, bool firstOnly,
                     int outputCapacity);

namespace txc {

// Longest text, and longest pattern, that a rewrite hands to std::regex. Its
// matcher recurses once per byte of text (about 300 bytes of stack each in an
// optimised build), so 2048 bytes stay well inside a thread of 1 MB.
inline constexpr int kWildcardRegexLimit = 2048;

// The translation of wildcardToRegex on a byte range, appended to `out`.
// False (with `out` emptied) when a template needed a hundredth wildcard; the
// report 500 has gone to the host then.
bool wildcard_translate(const char* pattern, int patternLength, bool forTemplate,
                        bool keepLeading, bool keepTrailing, std::string& out);

}  // namespace txc
