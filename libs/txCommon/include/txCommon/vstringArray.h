// vstringArray: an array of heap strings on a working array.
#pragma once

#include <txCommon/export.h>
