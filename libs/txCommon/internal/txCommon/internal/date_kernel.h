// Internal: not part of the public interface. The date kernel.
#pragma once

#include <txCommon/export.h>
