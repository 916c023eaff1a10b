// CDateMin: the date-time value and the calendar.
#pragma once

#include <txCommon/export.h>
