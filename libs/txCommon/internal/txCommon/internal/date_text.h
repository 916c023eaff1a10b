// Internal: not part of the public interface. Date text parsing.
#pragma once

#include <txCommon/export.h>
