// VARIANT life and conversion, BSTR allocation and wide text in code page
// 1252: the OLEAUT32 calls of the platform layer where the system has no COM.
#include <txCommon/internal/platform_com.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>

namespace txc::platform {
namespace {

// A BSTR is preceded by its length in bytes, without the end character.
constexpr std::size_t kBstrPrefix = sizeof(std::uint32_t);
// Longest BSTR in bytes: the prefix holds 32 bits.
constexpr std::uint64_t kMaxBstrBytes = 0x7FFFFFF0u;

BSTR alloc_bstr(const void* bytes, std::uint64_t byteCount) {
  if (byteCount > kMaxBstrBytes) return nullptr;
  const std::size_t n = static_cast<std::size_t>(byteCount);
  auto* block = static_cast<unsigned char*>(std::malloc(kBstrPrefix + n + sizeof(OLECHAR)));
  if (block == nullptr) return nullptr;
  const std::uint32_t prefix = static_cast<std::uint32_t>(n);
  std::memcpy(block, &prefix, kBstrPrefix);
  if (bytes != nullptr && n != 0) {
    std::memcpy(block + kBstrPrefix, bytes, n);
  } else {
    std::memset(block + kBstrPrefix, 0, n);
  }
  std::memset(block + kBstrPrefix + n, 0, sizeof(OLECHAR));
  return reinterpret_cast<BSTR>(block + kBstrPrefix);
}

// Where the value of `v` lives: in the VARIANT (a DECIMAL lies over all of
// it, its first word being the type), or behind its reference.
const void* value_of(const tagVARIANT& v) {
  if ((v.vt & VT_BYREF) != 0) return v.byref;
  if (v.vt == VT_DECIMAL) return &v.decVal;
  return &v.llVal;
}

template <typename T>
T read_as(const void* p) {
  T x;
  std::memcpy(&x, p, sizeof x);
  return x;
}

HRESULT decimal_to_double(const DECIMAL& d, double& out) {
  if (d.scale > 28) return E_INVALIDARG;
  long double mantissa = static_cast<long double>(d.Hi32) * 18446744073709551616.0L +
                         static_cast<long double>(d.Lo64);
  out = static_cast<double>(mantissa / std::pow(10.0L, static_cast<long double>(d.scale)));
  if ((d.sign & DECIMAL_NEG) != 0) out = -out;
  return S_OK;
}

// The numeric value of a scalar of type `vt` stored at `p`.
HRESULT to_double(VARTYPE vt, const void* p, double& out) {
  switch (vt) {
    case VT_EMPTY: out = 0.0; return S_OK;
    case VT_I2: out = read_as<std::int16_t>(p); return S_OK;
    case VT_I4: case VT_INT: out = read_as<std::int32_t>(p); return S_OK;
    case VT_R4: out = read_as<float>(p); return S_OK;
    case VT_R8: case VT_DATE: out = read_as<double>(p); return S_OK;
    case VT_CY: out = static_cast<double>(read_as<std::int64_t>(p)) / 10000.0; return S_OK;
    case VT_BOOL: out = read_as<VARIANT_BOOL>(p); return S_OK;
    case VT_DECIMAL: return decimal_to_double(read_as<DECIMAL>(p), out);
    case VT_I1: out = read_as<std::int8_t>(p); return S_OK;
    case VT_UI1: out = read_as<std::uint8_t>(p); return S_OK;
    case VT_UI2: out = read_as<std::uint16_t>(p); return S_OK;
    case VT_UI4: case VT_UINT: out = read_as<std::uint32_t>(p); return S_OK;
    case VT_I8: out = static_cast<double>(read_as<std::int64_t>(p)); return S_OK;
    case VT_UI8: out = static_cast<double>(read_as<std::uint64_t>(p)); return S_OK;
    default: return DISP_E_TYPEMISMATCH;
  }
}

// Unicode of the bytes 0x80 to 0x9F of code page 1252; 0 where the code page
// has no character, which the system maps to the control of the same value.
constexpr char16_t k1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// One wide character in code page 1252, or '?' when it has no byte there.
char to_1252(OLECHAR w) {
  const std::uint32_t u = static_cast<std::uint32_t>(w);
  if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
  for (int i = 0; i < 32; ++i) {
    if (k1252High[i] == u || (k1252High[i] == 0 && u == 0x80u + static_cast<unsigned>(i))) {
      return static_cast<char>(0x80 + i);
    }
  }
  return '?';
}

}  // namespace

void VariantInit(tagVARIANT* v) {
  if (v == nullptr) return;
  std::memset(static_cast<void*>(v), 0, sizeof *v);
  v->vt = VT_EMPTY;
}

HRESULT VariantClear(tagVARIANT* v) {
  if (v == nullptr) return E_INVALIDARG;
  const VARTYPE vt = v->vt;
  if ((vt & VT_BYREF) == 0) {
    if ((vt & VT_ARRAY) != 0) {
      if (v->parray != nullptr) {
        const HRESULT hr = SafeArrayDestroy(v->parray);
        if (hr != S_OK) return hr;
      }
    } else if (vt == VT_BSTR) {
      SysFreeString(v->bstrVal);
    } else if ((vt == VT_DISPATCH || vt == VT_UNKNOWN) && v->punkVal != nullptr) {
      v->punkVal->Release();
    }
  }
  VariantInit(v);
  return S_OK;
}

HRESULT VariantCopy(tagVARIANT* dest, const tagVARIANT* src) {
  if (dest == nullptr || src == nullptr) return E_INVALIDARG;
  if (dest == src) return S_OK;
  const HRESULT cleared = VariantClear(dest);
  if (cleared != S_OK) return cleared;
  const VARTYPE vt = src->vt;
  if ((vt & VT_BYREF) != 0) {
    *dest = *src;
    return S_OK;
  }
  if ((vt & VT_ARRAY) != 0) {
    tagSAFEARRAY* copy = nullptr;
    if (src->parray != nullptr) {
      const HRESULT hr = SafeArrayCopy(src->parray, &copy);
      if (hr != S_OK) return hr;
    }
    *dest = *src;
    dest->parray = copy;
    return S_OK;
  }
  if ((vt & VT_TYPEMASK) == VT_VARIANT) return DISP_E_BADVARTYPE;
  *dest = *src;
  if (vt == VT_BSTR && src->bstrVal != nullptr) {
    dest->bstrVal = SysAllocStringByteLen(reinterpret_cast<const char*>(src->bstrVal),
                                          SysStringLen(src->bstrVal) * sizeof(OLECHAR));
    if (dest->bstrVal == nullptr) {
      VariantInit(dest);
      return E_OUTOFMEMORY;
    }
  } else if ((vt == VT_DISPATCH || vt == VT_UNKNOWN) && src->punkVal != nullptr) {
    src->punkVal->AddRef();
  }
  return S_OK;
}

HRESULT VariantChangeType(tagVARIANT* dest, const tagVARIANT* src, std::uint16_t flags,
                          VARTYPE vt) {
  static_cast<void>(flags);
  if (dest == nullptr || src == nullptr) return E_INVALIDARG;
  if (vt != VT_R8 || (src->vt & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH;
  const void* p = value_of(*src);
  if (p == nullptr) return E_INVALIDARG;
  double value = 0.0;
  const HRESULT hr = to_double(static_cast<VARTYPE>(src->vt & VT_TYPEMASK), p, value);
  if (hr != S_OK) return hr;
  if (dest != src) {
    const HRESULT cleared = VariantClear(dest);
    if (cleared != S_OK) return cleared;
  }
  // Numbers, dates and booleans own nothing, so the source needs no clearing.
  VariantInit(dest);
  dest->vt = VT_R8;
  dest->dblVal = value;
  return S_OK;
}

BSTR SysAllocString(const OLECHAR* text) {
  if (text == nullptr) return nullptr;
  return alloc_bstr(text, static_cast<std::uint64_t>(std::wcslen(text)) * sizeof(OLECHAR));
}

BSTR SysAllocStringLen(const OLECHAR* text, std::uint32_t length) {
  return alloc_bstr(text, static_cast<std::uint64_t>(length) * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(const char* text, std::uint32_t bytes) {
  return alloc_bstr(text, bytes);
}

void SysFreeString(BSTR text) {
  if (text == nullptr) return;
  std::free(reinterpret_cast<unsigned char*>(text) - kBstrPrefix);
}

std::uint32_t SysStringLen(BSTR text) {
  if (text == nullptr) return 0;
  std::uint32_t bytes;
  std::memcpy(&bytes, reinterpret_cast<unsigned char*>(text) - kBstrPrefix, kBstrPrefix);
  return bytes / static_cast<std::uint32_t>(sizeof(OLECHAR));
}

int WideCharToMultiByte(std::uint32_t codePage, std::uint32_t flags, const OLECHAR* text,
                        int length, char* out, int room, const char* defaultChar,
                        int* usedDefault) {
  static_cast<void>(flags);
  static_cast<void>(defaultChar);
  if (codePage != CP_ACP && codePage != CP_THREAD_ACP && codePage != 1252) return 0;
  if (text == nullptr || length < -1 || room < 0 || (room > 0 && out == nullptr)) return 0;
  const std::size_t n = length == -1 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
  if (n > 0x7FFFFFFFu) return 0;
  if (usedDefault != nullptr) *usedDefault = 0;
  if (room == 0) return static_cast<int>(n);
  if (n > static_cast<std::size_t>(room)) return 0;  // ERROR_INSUFFICIENT_BUFFER
  for (std::size_t i = 0; i < n; ++i) {
    out[i] = to_1252(text[i]);
    if (out[i] == '?' && text[i] != L'?' && usedDefault != nullptr) *usedDefault = 1;
  }
  return static_cast<int>(n);
}

int MultiByteToWideChar(std::uint32_t codePage, std::uint32_t flags, const char* text,
                        int length, OLECHAR* out, int room) {
  static_cast<void>(flags);
  if (codePage != CP_ACP && codePage != CP_THREAD_ACP && codePage != 1252) return 0;
  if (text == nullptr || length < -1 || room < 0 || (room > 0 && out == nullptr)) return 0;
  const std::size_t n = length == -1 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
  if (n > 0x7FFFFFFFu) return 0;
  if (room == 0) return static_cast<int>(n);
  if (n > static_cast<std::size_t>(room)) return 0;
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const bool high = c >= 0x80 && c < 0xA0 && k1252High[c - 0x80] != 0;
    out[i] = static_cast<OLECHAR>(high ? k1252High[c - 0x80] : c);
  }
  return static_cast<int>(n);
}

}  // namespace txc::platform
