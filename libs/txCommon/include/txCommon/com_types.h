// The COM automation types of the variant interface, where the system has
// no COM of its own.
//
// On Windows these come from the system headers. Elsewhere they are plain
// structures with the published names, type codes and layouts: a VARIANT is
// a 16-bit type word (low 12 bits the type code, VT_ARRAY and VT_BYREF above
// them), three reserved words and an 8-byte value union, with a DECIMAL laid
// over the whole; a SAFEARRAY carries its dimensions with their bounds, the
// cell size, a lock count and the cells; a BSTR is a wide text with its byte
// count in the 4 bytes in front of it, made by SysAllocString.
//
//   _variant_t v(2.5);                 // VT_R8
//   VariantHelper h(&v);
//   h.GetDouble(0, 0);                 // 2.5
#pragma once

#include <txCommon/export.h>

#if defined(_WIN32)
#include <comutil.h>
#include <oaidl.h>
#include <windows.h>
#else

#include <cstdint>

using HRESULT = std::int32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using SCODE = std::int32_t;
using DATE = double;
using LCID = std::uint32_t;
using DISPID = std::int32_t;
using OLECHAR = wchar_t;
using BSTR = OLECHAR*;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000Eu);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057u);
inline constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFFu);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005u);
inline constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);
inline constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000Au);
inline constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000Bu);
inline constexpr HRESULT DISP_E_ARRAYISLOCKED = static_cast<HRESULT>(0x8002000Du);

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_TYPEMASK = 0x0FFF,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
};

// Currency: a count of ten-thousandths.
union tagCY {
  std::int64_t int64;
};
using CY = tagCY;

// 96-bit integer (Hi32:Lo64) divided by 10 to the power scale (0 to 28).
struct tagDEC {
  std::uint16_t wReserved;  // the VARIANT's type word when laid over one
  std::uint8_t scale;
  std::uint8_t sign;  // 0x80 for negative
  std::uint32_t Hi32;
  std::uint64_t Lo64;
};
using DECIMAL = tagDEC;
inline constexpr std::uint8_t DECIMAL_NEG = 0x80;

struct tagSAFEARRAYBOUND {
  std::uint32_t cElements;
  std::int32_t lLbound;
};
using SAFEARRAYBOUND = tagSAFEARRAYBOUND;

// rgsabound runs to cDims entries, the LAST dimension first, as the system
// keeps them.
struct tagSAFEARRAY {
  std::uint16_t cDims;
  std::uint16_t fFeatures;
  std::uint32_t cbElements;
  std::uint32_t cLocks;
  void* pvData;
  tagSAFEARRAYBOUND rgsabound[1];
};
using SAFEARRAY = tagSAFEARRAY;

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
using IID = GUID;
inline constexpr IID IID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};

inline constexpr LCID LOCALE_SYSTEM_DEFAULT = 2048;
inline constexpr std::uint16_t DISPATCH_PROPERTYGET = 2;

struct tagVARIANT;
struct tagDISPPARAMS {
  tagVARIANT* rgvarg;
  DISPID* rgdispidNamedArgs;
  unsigned int cArgs;
  unsigned int cNamedArgs;
};
using DISPPARAMS = tagDISPPARAMS;
struct tagEXCEPINFO;

class IUnknown {
public:
  virtual HRESULT QueryInterface(const IID& riid, void** object) = 0;
  virtual std::uint32_t AddRef() = 0;
  virtual std::uint32_t Release() = 0;

protected:
  ~IUnknown() = default;
};

class IDispatch : public IUnknown {
public:
  virtual HRESULT GetTypeInfoCount(unsigned int* count) = 0;
  virtual HRESULT GetTypeInfo(unsigned int index, LCID lcid, void** info) = 0;
  virtual HRESULT GetIDsOfNames(const IID& riid, OLECHAR** names, unsigned int count,
                                LCID lcid, DISPID* ids) = 0;
  virtual HRESULT Invoke(DISPID id, const IID& riid, LCID lcid, std::uint16_t flags,
                         DISPPARAMS* params, tagVARIANT* result, tagEXCEPINFO* exception,
                         unsigned int* argError) = 0;

protected:
  ~IDispatch() = default;
};

struct tagVARIANT {
  union {
    struct {
      VARTYPE vt;
      std::uint16_t wReserved1;
      std::uint16_t wReserved2;
      std::uint16_t wReserved3;
      union {
        std::int64_t llVal;
        std::int32_t lVal;
        std::uint8_t bVal;
        std::int16_t iVal;
        float fltVal;
        double dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        CY cyVal;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        tagSAFEARRAY* parray;
        std::int8_t cVal;
        std::uint16_t uiVal;
        std::uint32_t ulVal;
        std::uint64_t ullVal;
        std::int32_t intVal;
        std::uint32_t uintVal;
        // With VT_BYREF: where the value lives.
        double* pdblVal;
        BSTR* pbstrVal;
        IDispatch** ppdispVal;
        tagSAFEARRAY** pparray;
        tagVARIANT* pvarVal;
        void* byref;
      };
    };
    DECIMAL decVal;
  };
};
using VARIANT = tagVARIANT;
using VARIANTARG = tagVARIANT;

// The platform's exception for a failed COM call, with its status.
class TXC_API _com_error {
public:
  explicit _com_error(HRESULT status) noexcept : status_(status) {}
  HRESULT Error() const noexcept { return status_; }

private:
  HRESULT status_;
};

// A VARIANT that owns its contents: cleared when it goes, deep-copied when
// copied (through the platform's VariantClear and VariantCopy, which raise
// _com_error on failure).
class TXC_API _variant_t : public tagVARIANT {
public:
  _variant_t() noexcept;
  _variant_t(double value) noexcept;  // NOLINT: VT_R8, as the system's class
  // VT_BSTR with a copy of the text (wide or in code page 1252).
  _variant_t(const wchar_t* text);  // NOLINT
  _variant_t(const char* text);     // NOLINT
  // Deep copies.
  _variant_t(const tagVARIANT& other);  // NOLINT
  _variant_t(const _variant_t& other);
  _variant_t(_variant_t&& other) noexcept;
  _variant_t& operator=(const _variant_t& other);
  _variant_t& operator=(_variant_t&& other) noexcept;
  ~_variant_t();

  void Clear();
  // Takes over `value` without copying; `value` is left VT_EMPTY.
  void Attach(tagVARIANT& value) noexcept;
  // Hands the contents over and is left VT_EMPTY.
  tagVARIANT Detach() noexcept;
};

#endif
