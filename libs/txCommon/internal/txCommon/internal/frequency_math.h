// Internal: not part of the public interface. Frequency arithmetic.
#pragma once

#include <txCommon/export.h>
