// Internal: not part of the public interface. Formatting engines.
#pragma once

#include <txCommon/export.h>
