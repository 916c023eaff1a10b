// SAFEARRAY shape, locking, creation and destruction: the OLEAUT32 calls of
// the platform layer where the system has no COM.
//
// An array made here carries its cell type in the 4 bytes in front of the
// structure, flagged by FADF_HAVEVARTYPE, as the system's arrays do; the
// kinds of cell that own something are flagged too, so that destruction
// knows what to release.
#include <txCommon/internal/platform_com.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace txc::platform {
namespace {

constexpr std::uint16_t FADF_HAVEVARTYPE = 0x0080;
constexpr std::uint16_t FADF_BSTR = 0x0100;
constexpr std::uint16_t FADF_UNKNOWN = 0x0200;
constexpr std::uint16_t FADF_DISPATCH = 0x0400;
constexpr std::uint16_t FADF_VARIANT = 0x0800;
// The header in front of the structure: the cell type in its last 4 bytes.
constexpr std::size_t kHeader = 16;
// More cells than this (or more bytes than half the address space) are
// refused rather than overflowing a size.
constexpr std::uint64_t kMaxBytes = std::uint64_t{1} << 40;
constexpr int kMaxCopyDepth = 64;

std::uint32_t cell_size(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: return 1;
    case VT_I2: case VT_UI2: case VT_BOOL: return 2;
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_R4: case VT_ERROR: return 4;
    case VT_R8: case VT_CY: case VT_DATE: case VT_I8: case VT_UI8: return 8;
    case VT_BSTR: case VT_DISPATCH: case VT_UNKNOWN: return sizeof(void*);
    case VT_DECIMAL: return sizeof(DECIMAL);
    case VT_VARIANT: return sizeof(tagVARIANT);
    default: return 0;
  }
}

std::uint16_t features_of(VARTYPE vt) {
  switch (vt) {
    case VT_BSTR: return FADF_BSTR;
    case VT_UNKNOWN: return FADF_UNKNOWN;
    case VT_DISPATCH: return FADF_DISPATCH;
    case VT_VARIANT: return FADF_VARIANT;
    default: return 0;
  }
}

std::uint64_t cell_count(const tagSAFEARRAY* a) {
  std::uint64_t n = 1;
  for (std::uint32_t i = 0; i < a->cDims; ++i) {
    n *= a->rgsabound[i].cElements;
    if (n > kMaxBytes) return kMaxBytes + 1;
  }
  return n;
}

// The system stores the bounds last dimension first.
const tagSAFEARRAYBOUND* bound_of(const tagSAFEARRAY* a, std::uint32_t dim) {
  if (a == nullptr || dim < 1 || dim > a->cDims) return nullptr;
  return &a->rgsabound[a->cDims - dim];
}

unsigned char* header_of(tagSAFEARRAY* a) { return reinterpret_cast<unsigned char*>(a) - kHeader; }

void release_cells(tagSAFEARRAY* a) {
  const std::uint64_t n = cell_count(a);
  if (a->pvData == nullptr) return;
  for (std::uint64_t i = 0; i < n; ++i) {
    unsigned char* cell = static_cast<unsigned char*>(a->pvData) + i * a->cbElements;
    if ((a->fFeatures & FADF_BSTR) != 0) {
      BSTR b;
      std::memcpy(&b, cell, sizeof b);
      SysFreeString(b);
    } else if ((a->fFeatures & FADF_VARIANT) != 0) {
      VariantClear(reinterpret_cast<tagVARIANT*>(cell));
    } else if ((a->fFeatures & (FADF_UNKNOWN | FADF_DISPATCH)) != 0) {
      IUnknown* u;
      std::memcpy(&u, cell, sizeof u);
      if (u != nullptr) u->Release();
    }
  }
}

}  // namespace

std::uint32_t SafeArrayGetDim(tagSAFEARRAY* array) { return array != nullptr ? array->cDims : 0; }

HRESULT SafeArrayGetLBound(tagSAFEARRAY* array, std::uint32_t dim, std::int32_t* bound) {
  const tagSAFEARRAYBOUND* b = bound_of(array, dim);
  if (bound == nullptr) return E_INVALIDARG;
  if (b == nullptr) return DISP_E_BADINDEX;
  *bound = b->lLbound;
  return S_OK;
}

HRESULT SafeArrayGetUBound(tagSAFEARRAY* array, std::uint32_t dim, std::int32_t* bound) {
  const tagSAFEARRAYBOUND* b = bound_of(array, dim);
  if (bound == nullptr) return E_INVALIDARG;
  if (b == nullptr) return DISP_E_BADINDEX;
  // Wraps as the system's 32-bit LONG arithmetic does.
  *bound = static_cast<std::int32_t>(static_cast<std::uint32_t>(b->lLbound) + b->cElements - 1u);
  return S_OK;
}

HRESULT SafeArrayAccessData(tagSAFEARRAY* array, void** cells) {
  if (array == nullptr || cells == nullptr) return E_INVALIDARG;
  if (array->cLocks == 0xFFFFFFFFu) return E_UNEXPECTED;
  ++array->cLocks;
  *cells = array->pvData;
  return S_OK;
}

HRESULT SafeArrayUnaccessData(tagSAFEARRAY* array) {
  if (array == nullptr) return E_INVALIDARG;
  if (array->cLocks == 0) return E_UNEXPECTED;
  --array->cLocks;
  return S_OK;
}

tagSAFEARRAY* SafeArrayCreate(VARTYPE vt, std::uint32_t dims, const SAFEARRAYBOUND* bounds) {
  const std::uint32_t size = cell_size(vt);
  if (size == 0 || dims == 0 || dims > 64 || bounds == nullptr) return nullptr;
  const std::size_t structBytes =
      sizeof(tagSAFEARRAY) + (dims - 1) * sizeof(tagSAFEARRAYBOUND);
  auto* block = static_cast<unsigned char*>(std::calloc(1, kHeader + structBytes));
  if (block == nullptr) return nullptr;
  auto* a = reinterpret_cast<tagSAFEARRAY*>(block + kHeader);
  const std::uint32_t vt32 = vt;
  std::memcpy(block + kHeader - 4, &vt32, 4);
  a->cDims = static_cast<std::uint16_t>(dims);
  a->fFeatures = static_cast<std::uint16_t>(FADF_HAVEVARTYPE | features_of(vt));
  a->cbElements = size;
  for (std::uint32_t d = 0; d < dims; ++d) a->rgsabound[dims - 1 - d] = bounds[d];
  const std::uint64_t bytes = cell_count(a) * size;
  if (bytes > kMaxBytes) {
    std::free(block);
    return nullptr;
  }
  a->pvData = std::calloc(1, bytes != 0 ? static_cast<std::size_t>(bytes) : 1);
  if (a->pvData == nullptr) {
    std::free(block);
    return nullptr;
  }
  return a;
}

VARTYPE safe_array_type(const tagSAFEARRAY* array) {
  if (array == nullptr || (array->fFeatures & FADF_HAVEVARTYPE) == 0) return VT_EMPTY;
  std::uint32_t vt;
  std::memcpy(&vt, reinterpret_cast<const unsigned char*>(array) - 4, 4);
  return static_cast<VARTYPE>(vt);
}

HRESULT SafeArrayCopy(tagSAFEARRAY* array, tagSAFEARRAY** copy) {
  if (array == nullptr || copy == nullptr) return E_INVALIDARG;
  *copy = nullptr;
  // Arrays of variants that hold arrays nest; an array that holds itself
  // would nest without end.
  thread_local int depth = 0;
  if (depth >= kMaxCopyDepth) return E_INVALIDARG;
  struct Depth {
    Depth() { ++depth; }
    ~Depth() { --depth; }
  } level;
  const VARTYPE vt = safe_array_type(array);
  // Only arrays of this layer are known, and they have 64 dimensions at most.
  if (vt == VT_EMPTY || array->cDims == 0 || array->cDims > 64) return E_INVALIDARG;
  SAFEARRAYBOUND bounds[64] = {};
  for (std::uint32_t d = 0; d < array->cDims; ++d) bounds[d] = *bound_of(array, d + 1);
  tagSAFEARRAY* out = SafeArrayCreate(vt, array->cDims, bounds);
  if (out == nullptr) return E_OUTOFMEMORY;
  const std::uint64_t n = cell_count(array);
  for (std::uint64_t i = 0; i < n; ++i) {
    const unsigned char* from =
        static_cast<const unsigned char*>(array->pvData) + i * array->cbElements;
    unsigned char* to = static_cast<unsigned char*>(out->pvData) + i * out->cbElements;
    HRESULT hr = S_OK;
    if (vt == VT_BSTR) {
      BSTR b;
      std::memcpy(&b, from, sizeof b);
      BSTR c = b != nullptr ? SysAllocStringLen(b, SysStringLen(b)) : nullptr;
      if (b != nullptr && c == nullptr) hr = E_OUTOFMEMORY;
      std::memcpy(to, &c, sizeof c);
    } else if (vt == VT_VARIANT) {
      hr = VariantCopy(reinterpret_cast<tagVARIANT*>(to),
                       reinterpret_cast<const tagVARIANT*>(from));
    } else {
      std::memcpy(to, from, array->cbElements);
      if (vt == VT_DISPATCH || vt == VT_UNKNOWN) {
        IUnknown* u;
        std::memcpy(&u, from, sizeof u);
        if (u != nullptr) u->AddRef();
      }
    }
    if (hr != S_OK) {
      SafeArrayDestroy(out);
      return hr;
    }
  }
  *copy = out;
  return S_OK;
}

HRESULT SafeArrayDestroy(tagSAFEARRAY* array) {
  if (array == nullptr) return S_OK;
  if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
  release_cells(array);
  std::free(array->pvData);
  std::free(header_of(array));
  return S_OK;
}

}  // namespace txc::platform
