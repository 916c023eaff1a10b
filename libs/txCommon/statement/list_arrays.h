// Internal: the two process-wide arrays of 50 strings that parse_commalist and
// split_options (with no array of the caller's) fill. Built on first use,
// safely against concurrent first callers, destroyed at exit; their contents
// hold until the next such call, from any thread.
#pragma once

#include <txCommon/vstring.h>

namespace txc {

inline constexpr int kListArraySize = 50;

vstring* commalist_array();
vstring* options_array();

}  // namespace txc
