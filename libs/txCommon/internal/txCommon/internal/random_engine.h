// Internal: not part of the public interface. Generator engines.
#pragma once

#include <txCommon/export.h>
