// Frequencies, RegularFreq and the date hint.
#pragma once

#include <txCommon/export.h>
