// txCommon internal engines. Not part of the public interface: this header is
// on the include path of txcommon_static only, for tests and tools.
#pragma once

#include <txCommon/txCommon.h>

#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/platform.h>
#include <txCommon/internal/platform_clock.h>
#include <txCommon/internal/platform_registry.h>
#include <txCommon/internal/platform_com.h>
#include <txCommon/internal/mbcs.h>
#include <txCommon/internal/vstring_block.h>
#include <txCommon/internal/tracked_memory.h>
#include <txCommon/internal/date_kernel.h>
#include <txCommon/internal/frequency_math.h>
#include <txCommon/internal/date_text.h>
#include <txCommon/internal/number_io.h>
#include <txCommon/internal/number_format.h>
#include <txCommon/internal/random_engine.h>
#include <txCommon/internal/word_scan.h>
#include <txCommon/internal/word_result.h>
#include <txCommon/internal/word_table.h>
#include <txCommon/internal/wildcard.h>
