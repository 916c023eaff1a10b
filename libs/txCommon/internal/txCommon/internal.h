// txCommon internal engines. Not part of the public interface: this header is
// on the include path of txcommon_static only, for tests and tools.
#pragma once

#include <txCommon/txCommon.h>

#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/platform.h>
#include <txCommon/internal/vstring_block.h>
