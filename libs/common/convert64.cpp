#include <common/convert64.h>

#include <cstdio>
#include <cstdlib>

namespace common {

void fatal_check_failed(const char* check, const char* file, int line) {
  std::fprintf(stderr, "fatal internal error: check failed: %s (%s:%d)\n", check, file, line);
  std::abort();
}

}  // namespace common
