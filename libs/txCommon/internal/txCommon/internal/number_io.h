// Internal: not part of the public interface. The number reader and writer.
#pragma once

#include <txCommon/export.h>
