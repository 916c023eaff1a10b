// Registry values by key text, and small file-system helpers.
//
// A key is named by one text whose first component is a root, long or short
// form, compared byte for byte (case counts):
//   HKEY_LOCAL_MACHINE / HKLM, HKEY_CLASSES_ROOT / HKCR, HKEY_USERS / HKU,
//   HKEY_CURRENT_USER / HKCU.
// Components are separated by one backslash and hold 127 bytes at most; a
// single trailing backslash is harmless, two in a row name no key.
//
//   SetRegKeyValue("HKCU\\Software\\Tarnix\\Paths", "Data", "C:\\data", 7,
//                  RegistryDefault);        // 1: missing keys are created
//   char buf[64]; int size = sizeof buf;
//   GetRegKeyValue("HKCU\\Software\\Tarnix\\Paths", "Data", buf, &size,
//                  RegistryDefault);        // 1, buf "C:\data", size 7
//   GetRegKeyValue("HKCU\\Software\\Tarnix", nullptr, nullptr, nullptr,
//                  RegistryDefault);        // 1: the key exists
//   DeleteRegKeyTree("HKCU\\Software\\Tarnix", RegistryDefault);  // 1
//
// Every function answers 1 for success and 0 for any failure, and nothing
// else: no error code survives, nothing is reported to the host, nothing is
// thrown. Keys that SetRegKeyValue created before a later step failed stay.
//
// Where the operating system has no registry (Linux), the library keeps an
// in-process store with the same tree of keys and typed values and the two
// views; it lives as long as the process and starts empty.
#pragma once

#include <txCommon/export.h>
#include <txCommon/vstring.h>

#include <cstdint>

#if defined(_WIN32)
#include <windows.h>
#else
// The registry's handle type and the predefined roots, with the values and
// the sign extension of the Windows headers.
struct HKEY__;
typedef HKEY__* HKEY;
#define TXC_PREDEFINED_HKEY(v) \
  (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<std::int32_t>(v))))
#define HKEY_CLASSES_ROOT TXC_PREDEFINED_HKEY(0x80000000u)
#define HKEY_CURRENT_USER TXC_PREDEFINED_HKEY(0x80000001u)
#define HKEY_LOCAL_MACHINE TXC_PREDEFINED_HKEY(0x80000002u)
#define HKEY_USERS TXC_PREDEFINED_HKEY(0x80000003u)
#endif

// The view of the registry an operation works on. Any value other than 1 and
// 2 means the process's own view.
enum RegistryBitness : std::int32_t {
  RegistryDefault = 0,
  Registry32 = 1,  // KEY_WOW64_32KEY
  Registry64 = 2,  // KEY_WOW64_64KEY
};

// Reads the REG_SZ value `value` of `key` into `data`: `*size` gives the room
// in bytes and receives the size stored (a text written without its end byte
// comes back without it). 1 if the value was read and is a REG_SZ; a value of
// another type gives 0 though `data` has been filled. A null `value` only
// tests the key: 1 if the whole path opens. An empty `value` names the key's
// default value. A negative `*size` gives 0.
TXC_API int GetRegKeyValue(const char* key, const char* value, char* data, int* size,
                           RegistryBitness bitness);
// The same through a buffer of 1024 bytes. `data` receives the bytes read up
// to the first zero, even when the result is 0 because the type was not
// REG_SZ; it is emptied when nothing was read (also for a longer value).
TXC_API int GetRegKeyValue(const vstring& key, const vstring& value, vstring& data,
                           RegistryBitness bitness);

// Reads a REG_DWORD value. 1 if it was read and is of that type. A null
// `value` only tests the key.
TXC_API int GetRegKeyDWordValue(const char* key, const char* value, txulong& data,
                                RegistryBitness bitness);

// Reads a REG_DWORD value below an open key, with a default: `data` holds
// `fallback` when `subkey` or `value` does not exist, and the result is 1 then
// too. Any other failure, and a value of another type, give 0.
TXC_API int GetRegKeyDWord(HKEY parent, const char* subkey, const char* value, txulong& data,
                           txulong fallback, RegistryBitness bitness);

// Stores `length` bytes of `data` as the REG_SZ value `value` of `key`,
// creating every missing key on the way. 1 if the value was stored. A path
// that is a root alone, or a negative `length`, gives 0.
TXC_API int SetRegKeyValue(const char* key, const char* value, const char* data, int length,
                           RegistryBitness bitness);
// The same with `length` the length of `data`, without its end byte.
TXC_API int SetRegKeyValue(const vstring& key, const vstring& value, const vstring& data,
                           RegistryBitness bitness);

// Deletes `key` with everything below it. 1 if it is gone. An empty or null
// text, and a root alone, give 0: a root is never deleted.
TXC_API int DeleteRegKeyTree(const char* key, RegistryBitness bitness);
TXC_API int DeleteRegKeyTree(const vstring& key, RegistryBitness bitness);

// 1 if `path` names a directory; 0 for a plain file, a missing path or an
// empty text. The text is handed to the file system as it stands.
TXC_API int CheckDirExists(vstring& path);

// 1 on a 64-bit operating system, the only kind the library is built for
// (a 64-bit build answers without asking; a 32-bit one asks the kernel).
TXC_API int IsRunningOn64BitOS();

// Kept for the interface: formats nothing and writes nothing.
TXC_API void DebugOutput(const char* format, ...);
