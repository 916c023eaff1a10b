// txCommon: the whole public interface.
//
// Strings made for cutting command text (vstring), their companions
// (StringSpool, vstringArray), the host bridge, exceptions, the calendar and
// date value (CDateMin), and the number face of vstring.
#pragma once

#include <txCommon/export.h>
#include <txCommon/host.h>
#include <txCommon/vstring.h>
#include <txCommon/StringSpool.h>
