// Entry point of the no-host test executable. It notes what the library
// looks like before txcommon_initialize, then starts it with a null host, so
// the constants are set but the built-in road stays in use for the whole run.
#include "preinit.h"

#include <txCommon/txCommon.h>

#include <gtest/gtest.h>

#include <cstring>

PreInit g_preinit;

int main(int argc, char** argv) {
  g_preinit.isnaZero = ISNA(0.0);
  g_preinit.isnaOne = ISNA(1.0);
  std::memcpy(&g_preinit.dnaBits, &dNA, sizeof dNA);
  g_preinit.naMask = NaMask;
  txcommon_initialize(nullptr);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
