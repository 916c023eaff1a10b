// Internal: not part of the public interface. Multibyte stand-ins.
#pragma once

#include <txCommon/export.h>
