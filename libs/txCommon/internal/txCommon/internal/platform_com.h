// Internal: not part of the public interface. The COM automation calls of
// the platform layer (OLEAUT32, and WideCharToMultiByte of KERNEL32).
//
// Names, arguments and status codes are the system's, so that a Windows
// build maps them one to one. Elsewhere they work on the plain structures of
// <txCommon/com_types.h>:
//   - VariantChangeType converts to VT_R8 only (from every numeric type, a
//     date, a boolean and VT_EMPTY); any other pair is DISP_E_TYPEMISMATCH.
//   - WideCharToMultiByte knows code page 1252, which also answers for the
//     system's and the thread's code page (CP_ACP, CP_THREAD_ACP); a
//     character outside it becomes '?'.
//   - SafeArrayCreate/SafeArrayDestroy are here for tests and tools that need
//     to build arrays; the library itself only reads them.
#pragma once

#include <txCommon/com_types.h>

#include <cstdint>

namespace txc::platform {

void VariantInit(tagVARIANT* v);
// Frees what `v` owns (text, array, object reference) and leaves it VT_EMPTY.
// A reference (VT_BYREF) owns nothing.
HRESULT VariantClear(tagVARIANT* v);
// Clears `dest`, then copies `src` into it: a text or an array deeply, an
// object with one more reference, a reference as the pointer it is.
HRESULT VariantCopy(tagVARIANT* dest, const tagVARIANT* src);
// Converts `src` (read through a reference) into `dest`, which may be `src`.
HRESULT VariantChangeType(tagVARIANT* dest, const tagVARIANT* src, std::uint16_t flags,
                          VARTYPE vt);

std::uint32_t SafeArrayGetDim(tagSAFEARRAY* array);
// Dimensions count from 1, in the caller's order (the first is the
// fastest-varying one).
HRESULT SafeArrayGetLBound(tagSAFEARRAY* array, std::uint32_t dim, std::int32_t* bound);
HRESULT SafeArrayGetUBound(tagSAFEARRAY* array, std::uint32_t dim, std::int32_t* bound);
HRESULT SafeArrayAccessData(tagSAFEARRAY* array, void** cells);
HRESULT SafeArrayUnaccessData(tagSAFEARRAY* array);
// An array of cells of `vt` (VT_I2 to VT_UINT, VT_VARIANT), zeroed, with
// `bounds` in the caller's order; null for a bad type or no memory.
tagSAFEARRAY* SafeArrayCreate(VARTYPE vt, std::uint32_t dims, const SAFEARRAYBOUND* bounds);
// A deep copy: texts, nested variants and object references of the cells
// are copied as VariantCopy copies them.
HRESULT SafeArrayCopy(tagSAFEARRAY* array, tagSAFEARRAY** copy);
// Clears every cell of a text, variant or object array, then frees it.
// DISP_E_ARRAYISLOCKED while it is locked. Only for arrays made here (and so
// for VariantClear and VariantCopy of a VARIANT that holds an array).
HRESULT SafeArrayDestroy(tagSAFEARRAY* array);
// The type of the cells of an array made by SafeArrayCreate.
VARTYPE safe_array_type(const tagSAFEARRAY* array);

BSTR SysAllocString(const OLECHAR* text);
BSTR SysAllocStringLen(const OLECHAR* text, std::uint32_t length);
// `bytes` bytes of `text` (or zeros for null) and two zero bytes behind them.
BSTR SysAllocStringByteLen(const char* text, std::uint32_t bytes);
void SysFreeString(BSTR text);
// Characters, from the count in front of the text; 0 for null.
std::uint32_t SysStringLen(BSTR text);

inline constexpr std::uint32_t CP_ACP = 0;
inline constexpr std::uint32_t CP_THREAD_ACP = 3;
// `length` -1 converts up to and with the end character. `room` 0 asks for
// the size needed. The bytes written, or 0 on failure (room too small, an
// unknown code page, a null text).
int WideCharToMultiByte(std::uint32_t codePage, std::uint32_t flags, const OLECHAR* text,
                        int length, char* out, int room, const char* defaultChar,
                        int* usedDefault);

// The way back, one wide character for each byte; same conventions.
int MultiByteToWideChar(std::uint32_t codePage, std::uint32_t flags, const char* text,
                        int length, OLECHAR* out, int room);

}  // namespace txc::platform

namespace txc {

// Counts the VariantHelpers made on nested cells on this thread while it
// lives; one level too many (64) throws InvalidArgument, so that an array
// that holds a reference to itself fails instead of exhausting the stack.
class NestingGuard {
public:
  NestingGuard();
  NestingGuard(const NestingGuard&) = delete;
  NestingGuard& operator=(const NestingGuard&) = delete;
  ~NestingGuard();
};

}  // namespace txc
