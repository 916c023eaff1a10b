// Internal: not part of the public interface. Tracked allocation.
#pragma once

#include <txCommon/export.h>
