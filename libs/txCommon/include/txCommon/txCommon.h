// txCommon: the whole public interface.
//
// Strings made for cutting command text (vstring), their companions
// (StringSpool, vstringArray), the host bridge, exceptions, the calendar and
// date value (CDateMin), frequencies and the date hint, formatting and the
// random generators, the token scanner (command), variants and the registry.
#pragma once

#include <txCommon/export.h>
#include <txCommon/host.h>
#include <txCommon/vstring.h>
#include <txCommon/StringSpool.h>
#include <txCommon/WorkingArray.h>
#include <txCommon/exceptions.h>
#include <txCommon/vstringArray.h>
#include <txCommon/CDateMin.h>
#include <txCommon/frequency.h>
#include <txCommon/format.h>
#include <txCommon/random.h>
#include <txCommon/command.h>
#include <txCommon/VariantHelper.h>
#include <txCommon/registry.h>
