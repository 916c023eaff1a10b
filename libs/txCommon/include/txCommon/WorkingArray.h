// Reference-counted working arrays.
#pragma once

#include <txCommon/export.h>
