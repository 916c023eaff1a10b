// The library's generator object, made at load and deleted at unload.
//
// The pointers are constant-initialised to null, so code that runs before
// this file's initialiser sees no generator rather than a stale one.
#include <txCommon/random.h>

RndGen* pRandomGenerator = nullptr;
RndGen* pDefaultRandomGenerator = nullptr;

namespace {

struct GlobalGenerator {
  GlobalGenerator() {
    delete pRandomGenerator;
    pRandomGenerator = new RndGenKnuth02();
    pDefaultRandomGenerator = pRandomGenerator;
  }
  ~GlobalGenerator() {
    delete pRandomGenerator;
    pRandomGenerator = nullptr;
    pDefaultRandomGenerator = nullptr;
  }
  GlobalGenerator(const GlobalGenerator&) = delete;
  GlobalGenerator& operator=(const GlobalGenerator&) = delete;
};

const GlobalGenerator globalGenerator;

}  // namespace
