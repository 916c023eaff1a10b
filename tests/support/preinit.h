// What the no-host test executable saw before it called txcommon_initialize.
#pragma once

#include <cstdint>

struct PreInit {
  int isnaZero = -1;
  int isnaOne = -1;
  std::uint64_t dnaBits = 1;
  std::uint32_t naMask = 1;
};

extern PreInit g_preinit;
