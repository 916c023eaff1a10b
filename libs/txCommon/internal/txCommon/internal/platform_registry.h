// Internal: not part of the public interface. The registry and file-system
// calls of the platform layer.
//
// The registry functions carry the names, arguments and status codes of
// ADVAPI32/SHLWAPI, so that a Windows build maps them one to one onto the
// system. Elsewhere they work on an in-process store: a tree of keys with
// typed values, one lock around it, and separate 32-bit and 64-bit views of
// HKEY_LOCAL_MACHINE and HKEY_CLASSES_ROOT (HKEY_CURRENT_USER and HKEY_USERS
// are shared between the views). Key and value names compare without regard
// to ASCII case, and keep the case they were created with.
#pragma once

#include <txCommon/registry.h>

#include <cstdint>
#include <string>
#include <vector>

namespace txc::platform {

using RegStatus = std::int32_t;
using RegDword = std::uint32_t;

// Status codes, as the system's.
inline constexpr RegStatus kRegSuccess = 0;
inline constexpr RegStatus kRegFileNotFound = 2;     // ERROR_FILE_NOT_FOUND
inline constexpr RegStatus kRegAccessDenied = 5;     // ERROR_ACCESS_DENIED
inline constexpr RegStatus kRegInvalidHandle = 6;    // ERROR_INVALID_HANDLE
inline constexpr RegStatus kRegInvalidParameter = 87;
inline constexpr RegStatus kRegBadPathname = 161;    // ERROR_BAD_PATHNAME
inline constexpr RegStatus kRegMoreData = 234;       // ERROR_MORE_DATA
inline constexpr RegStatus kRegNoAccess = 998;       // ERROR_NOACCESS: bad buffer
inline constexpr RegStatus kRegKeyDeleted = 1018;    // ERROR_KEY_DELETED

// Value types.
inline constexpr RegDword kRegSz = 1;     // REG_SZ
inline constexpr RegDword kRegDword = 4;  // REG_DWORD

// Access rights and view flags.
inline constexpr RegDword kKeyQueryValue = 0x0001;
inline constexpr RegDword kKeySetValue = 0x0002;
inline constexpr RegDword kKeyCreateSubKey = 0x0004;
inline constexpr RegDword kKeyDelete = 0x10000;  // DELETE
inline constexpr RegDword kKeyWow64_64 = 0x0100;
inline constexpr RegDword kKeyWow64_32 = 0x0200;

// Disposition outputs of RegCreateKeyExA.
inline constexpr RegDword kRegCreatedNewKey = 1;
inline constexpr RegDword kRegOpenedExistingKey = 2;

// Opens `subKey` (a path of components separated by backslashes; null or
// empty for `key` itself) below `key`. The rights in `access` are checked by
// the later calls on the handle.
RegStatus RegOpenKeyExA(HKEY key, const char* subKey, RegDword options, RegDword access,
                        HKEY* result);
// Reads value `name` (null or empty: the default value). With `data` null
// only `*type` and `*size` are given. A value longer than `*size` leaves
// `data` untouched, puts the size needed in `*size` and gives kRegMoreData.
// Stored bytes come back as they were stored: no end byte is added.
RegStatus RegQueryValueExA(HKEY key, const char* name, RegDword* reserved, RegDword* type,
                           unsigned char* data, RegDword* size);
RegStatus RegSetValueExA(HKEY key, const char* name, RegDword reserved, RegDword type,
                         const unsigned char* data, RegDword size);
// Opens or creates `subKey` below `key`, which needs the right to create
// subkeys when a key is made. `classText` and `security` are accepted and
// ignored.
RegStatus RegCreateKeyExA(HKEY key, const char* subKey, RegDword reserved, char* classText,
                          RegDword options, RegDword access, void* security, HKEY* result,
                          RegDword* disposition);
RegStatus RegCloseKey(HKEY key);
// Removes `subKey` of `key` (null or empty: `key` itself, which needs the
// DELETE right) with everything below it. A predefined root is never
// removed.
RegStatus SHDeleteKeyA(HKEY key, const char* subKey);

// GetFileAttributesA: 0x10 for a directory, 0x80 for anything else that
// exists, 0xFFFFFFFF when the path cannot be examined.
inline constexpr RegDword kInvalidFileAttributes = 0xFFFFFFFFu;
inline constexpr RegDword kFileAttributeDirectory = 0x10;
inline constexpr RegDword kFileAttributeNormal = 0x80;
RegDword GetFileAttributesA(const char* path);

// Whether the operating system is a 64-bit one.
bool is_64bit_os();

// ---- test hooks (process-wide; the store itself is locked) ------------------

// Empties the store and forgets every open handle.
void registry_reset();
// Handles opened and not yet closed.
int registry_open_handles();
// While on, each call appends one line to the trace, e.g.
// "open Software 0x20119", "create Tarnix 0x20106", "query Data",
// "set Data", "close", "delete".
void registry_trace(bool on);
std::vector<std::string> registry_take_trace();
// The next call of the named kind ("open", "query", "set", "create", "close",
// "delete") gives `status` without doing anything. One-shot.
void registry_fail_next(const char* kind, RegStatus status);

}  // namespace txc::platform
