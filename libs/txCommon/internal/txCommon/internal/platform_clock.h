// Internal: not part of the public interface. Clock and local time.
#pragma once

#include <txCommon/export.h>
