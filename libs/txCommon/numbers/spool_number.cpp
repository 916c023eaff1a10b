// The number side of StringSpool.
#include <txCommon/StringSpool.h>

#include <cstdio>

// Provisional: "g" form with 17 significant digits through the C library until
// the library's own number writer takes over here.
void StringSpool::cat(double value) {
  if (!Size(30)) return;
  std::snprintf(scratch, sizeof scratch, "%.17g", value);
  cat_scratch();
}
