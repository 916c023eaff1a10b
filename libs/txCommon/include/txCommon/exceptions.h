// Exceptions and the error catalogue.
#pragma once

#include <txCommon/export.h>
