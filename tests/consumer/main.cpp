// Uses only the public interface of the shared library.
#include <txCommon/txCommon.h>

#include <cstdio>
#include <cstring>

int main() {
  txcommon_initialize(nullptr);
  vstring s("GENR Y = X * 2");
  vstring word = s.left(4);
  word.cat('!');
  const bool ok = std::strcmp(word.optr(), "GENR!") == 0 && ISNA(dNA) == 1;
  std::printf("consumer: %s\n", ok ? "ok" : "FAILED");
  return ok ? 0 : 1;
}
