// Random generators.
#pragma once

#include <txCommon/export.h>
