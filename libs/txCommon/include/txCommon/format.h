// Formatting of numbers to text.
#pragma once

#include <txCommon/export.h>
