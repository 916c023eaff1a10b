// VariantHelper: resolving a value to its cells, its shape, and what its
// cells hold.
#include <txCommon/VariantHelper.h>

#include <txCommon/exceptions.h>
#include <txCommon/internal/host_bridge.h>
#include <txCommon/internal/platform_com.h>

#include <cstdio>
#include <cstring>
#include <new>

namespace pf = txc::platform;

namespace {

// References to references and objects whose Value is an object may chain;
// a chain this long is a cycle, not data.
constexpr int kMaxResolveDepth = 64;
// Rows of a column of nested cells looked at to tell its kind.
constexpr std::uint32_t kKindRows = 100;

void raise_on_failure(HRESULT hr) {
  if (hr != S_OK) throw _com_error(hr);
}

// Helpers made on nested cells, on this thread, right now. An array that
// holds a reference to itself would otherwise recurse without end.
thread_local int tNestedHelpers = 0;
constexpr int kMaxNestedHelpers = 64;


// A heap VARIANT, cleared and freed on every way out unless released.
struct HeapVariant {
  tagVARIANT* v = new tagVARIANT;
  HeapVariant() { pf::VariantInit(v); }
  HeapVariant(const HeapVariant&) = delete;
  HeapVariant& operator=(const HeapVariant&) = delete;
  ~HeapVariant() {
    if (v != nullptr) {
      pf::VariantClear(v);
      delete v;
    }
  }
  tagVARIANT* release() {
    tagVARIANT* out = v;
    v = nullptr;
    return out;
  }
};

// The object's "Value" property into `out`.
void default_property(IDispatch* object, tagVARIANT* out) {
  static const char kNotRecognized[] = "This data object is not recognized.";
  wchar_t name[] = L"Value";
  OLECHAR* names[] = {name};
  DISPID id = 0;
  if (object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_SYSTEM_DEFAULT, &id) != S_OK) {
    throw InvalidArgument(kNotRecognized);
  }
  DISPPARAMS none = {nullptr, nullptr, 0, 0};
  if (object->Invoke(id, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYGET, &none, out,
                     nullptr, nullptr) != S_OK) {
    throw InvalidArgument(kNotRecognized);
  }
}

}  // namespace

namespace txc {

NestingGuard::NestingGuard() {
  if (tNestedHelpers >= kMaxNestedHelpers) {
    throw InvalidArgument("This data object is not recognized.");
  }
  ++tNestedHelpers;
}

NestingGuard::~NestingGuard() { --tNestedHelpers; }

}  // namespace txc

// ---- SafeArrayAccessDataHelper ------------------------------------------------

SafeArrayAccessDataHelper::SafeArrayAccessDataHelper(tagSAFEARRAY* a)
    : released(1), array(a), cells(nullptr) {
  if (a != nullptr && pf::SafeArrayAccessData(a, &cells) == S_OK) released = 0;
}

SafeArrayAccessDataHelper::SafeArrayAccessDataHelper(const SafeArrayAccessDataHelper& other)
    : SafeArrayAccessDataHelper(other.released == 0 ? other.array : nullptr) {
  array = other.array;
}

SafeArrayAccessDataHelper& SafeArrayAccessDataHelper::operator=(
    const SafeArrayAccessDataHelper& other) {
  if (this == &other) return *this;
  Release();
  array = other.array;
  cells = nullptr;
  if (other.released == 0 && array != nullptr && pf::SafeArrayAccessData(array, &cells) == S_OK) {
    released = 0;
  }
  return *this;
}

SafeArrayAccessDataHelper::~SafeArrayAccessDataHelper() { Release(); }

void SafeArrayAccessDataHelper::Release() {
  if (released != 0) return;
  pf::SafeArrayUnaccessData(array);
  released = 1;
  cells = nullptr;
}

// ---- life ---------------------------------------------------------------------

VariantHelper::VariantHelper(_variant_t* value)
    : variant(value), source(value), upper{}, lower{}, dimensions(0), sizes{1, 1, 1, 1},
      empty(0), scalar(0), vector(0), matrix(0), array(0), byRef(0), nested(0), type(0),
      access(nullptr), ownsVariant(0) {
  TXC_ASSERT(value != nullptr);
  try {
    if (value == nullptr) {
      // Nothing to read: stand for an empty scalar rather than a null.
      HeapVariant blank;
      adopt(blank.release());
    }
    Initialize();
  } catch (...) {
    drop_holdings();
    throw;
  }
}

VariantHelper::VariantHelper(const VariantHelper& other)
    : variant(other.variant), source(other.source), upper{}, lower{}, dimensions(0),
      sizes{1, 1, 1, 1}, empty(0), scalar(0), vector(0), matrix(0), array(0), byRef(0),
      nested(0), type(0), access(nullptr), ownsVariant(0) {
  *this = other;
}

VariantHelper& VariantHelper::operator=(const VariantHelper& other) {
  if (this == &other) return *this;
  // Each object owns what it releases: a resolved value is copied (first, so
  // that a failed copy leaves this object as it was), and the array is
  // locked once more for this object.
  HeapVariant copy;
  if (other.ownsVariant != 0) raise_on_failure(pf::VariantCopy(copy.v, other.variant));
  drop_holdings();
  variant = other.variant;
  source = other.source;
  std::memcpy(upper, other.upper, sizeof upper);
  std::memcpy(lower, other.lower, sizeof lower);
  dimensions = other.dimensions;
  std::memcpy(sizes, other.sizes, sizeof sizes);
  empty = other.empty;
  scalar = other.scalar;
  vector = other.vector;
  matrix = other.matrix;
  array = other.array;
  byRef = other.byRef;
  nested = other.nested;
  type = other.type;
  if (other.ownsVariant != 0) adopt(copy.release());
  if (other.access != nullptr) access = new SafeArrayAccessDataHelper(GetSafeArray());
  return *this;
}

VariantHelper::~VariantHelper() { drop_holdings(); }

void VariantHelper::drop_holdings() {
  delete access;
  access = nullptr;
  if (ownsVariant != 0) {
    pf::VariantClear(variant);
    delete variant;
    ownsVariant = 0;
    variant = source;
  }
}

// Makes `copy` (a heap VARIANT) the value read from now on, dropping any
// earlier own copy.
void VariantHelper::adopt(tagVARIANT* copy) {
  if (ownsVariant != 0) {
    pf::VariantClear(variant);
    delete variant;
  }
  variant = copy;
  ownsVariant = 1;
}

// ---- analysis -----------------------------------------------------------------

void VariantHelper::Initialize() { analyse(0); }

void VariantHelper::analyse(int depth) {
  for (;;) {
    const VARTYPE vt = variant->vt;
    array = vt & VT_ARRAY;
    byRef = vt & VT_BYREF;
    type = static_cast<std::uint16_t>(vt & VT_TYPEMASK);
    nested = type == VT_VARIANT ? 1 : 0;
    empty = (type < 2 || type == VT_ERROR) ? 1 : 0;
    if (array != 0 || (type != VT_VARIANT && type != VT_DISPATCH)) break;
    if (++depth > kMaxResolveDepth) throw InvalidArgument("This data object is not recognized.");
    HeapVariant next;
    if (type == VT_VARIANT) {
      // Only a reference can hold a VARIANT; VariantCopy refuses a plain one.
      if (byRef == 0 || variant->pvarVal == nullptr) raise_on_failure(DISP_E_BADVARTYPE);
      raise_on_failure(pf::VariantCopy(next.v, variant->pvarVal));
    } else {
      IDispatch* object = byRef != 0 ? (variant->ppdispVal != nullptr ? *variant->ppdispVal
                                                                       : nullptr)
                                     : variant->pdispVal;
      if (object == nullptr) {
        throw UnexpectedException(
            "Could not find the IDispatch interface for the passed in object.");
      }
      default_property(object, next.v);
    }
    adopt(next.release());
  }
  delete access;
  access = nullptr;
  read_shape();
  scalar = vector = matrix = 0;
  if (array == 0) {
    scalar = 1;
  } else if (dimensions == 1) {
    vector = 1;
  } else if (dimensions == 2) {
    matrix = 1;
    if (sizes[1] == 1) vector = 1;
  } else {
    throw InvalidArgument("The data object cannot be more than 2 dimensions.");
  }
}

// Dimensions, bounds and sizes, and the lock on the cells.
void VariantHelper::read_shape() {
  dimensions = 0;
  for (int i = 0; i < 4; ++i) {
    lower[i] = 0;
    upper[i] = 0;
    sizes[i] = 1;
  }
  tagSAFEARRAY* a = GetSafeArray();
  if (a == nullptr) return;
  dimensions = pf::SafeArrayGetDim(a);
  if (dimensions > 2) return;
  for (std::uint32_t d = 0; d < dimensions; ++d) {
    raise_on_failure(pf::SafeArrayGetLBound(a, d + 1, &lower[d]));
    raise_on_failure(pf::SafeArrayGetUBound(a, d + 1, &upper[d]));
    sizes[d] = static_cast<std::uint32_t>(upper[d]) - static_cast<std::uint32_t>(lower[d]) + 1u;
  }
  if (dimensions == 0) return;
  auto* held = new SafeArrayAccessDataHelper(a);
  if (held->released != 0) {
    delete held;
    throw UnexpectedException("Could not data elements in safe array.");
  }
  access = held;
}

int VariantHelper::IsArray() { return array; }
int VariantHelper::IsByRef() { return byRef; }
int VariantHelper::IsScalar() { return scalar; }
int VariantHelper::IsVector() { return vector; }
int VariantHelper::IsMatrix() { return matrix; }
int VariantHelper::IsEmpty() { return empty; }
int VariantHelper::IsVariant() { return nested; }
unsigned int VariantHelper::GetDim() { return dimensions; }
unsigned short VariantHelper::GetType() { return type; }

tagSAFEARRAY* VariantHelper::GetSafeArray() {
  if (array == 0) return nullptr;
  if (byRef != 0) return variant->pparray != nullptr ? *variant->pparray : nullptr;
  return variant->parray;
}

unsigned int VariantHelper::ArraySize(unsigned int dimension) {
  if (array == 0) return 1;
  if (dimension == 0) throw InvalidArgument("Invalid dimension passed to ArraySize.");
  if (dimension > dimensions || dimension > 4) return 1;
  return sizes[dimension - 1];
}

// ---- cells --------------------------------------------------------------------

bool VariantHelper::in_range(txlong row, txlong column) const {
  if (row < 0 || column < 0) return false;
  return static_cast<std::uint32_t>(row) < sizes[0] &&
         static_cast<std::uint32_t>(column) < sizes[1];
}

// The cell's bytes; null when there are none to read.
const void* VariantHelper::cell(txlong row, txlong column) const {
  if (access == nullptr || access->cells == nullptr || !in_range(row, column)) return nullptr;
  const std::uint64_t index = static_cast<std::uint64_t>(column) * sizes[0] +
                              static_cast<std::uint64_t>(row);
  const tagSAFEARRAY* a = access->array;
  return static_cast<const unsigned char*>(access->cells) + index * a->cbElements;
}

tagVARIANT VariantHelper::GetVariant(txlong row, txlong column) {
  tagVARIANT out;
  pf::VariantInit(&out);
  const tagVARIANT* p = GetVariantPointer(row, column);
  if (p != nullptr) out = *p;
  return out;
}

tagVARIANT* VariantHelper::GetVariantPointer(txlong row, txlong column) {
  if (type != VT_VARIANT) {
    TXC_ASSERT(type == VT_VARIANT);
    return nullptr;
  }
  if (array == 0) return variant;
  return static_cast<tagVARIANT*>(const_cast<void*>(cell(row, column)));
}

_variant_t VariantHelper::GetAsVariant(txlong row, txlong column) {
  _variant_t out;
  if (array == 0) {
    raise_on_failure(pf::VariantCopy(&out, variant));
    return out;
  }
  const void* p = cell(row, column);
  if (p == nullptr) return out;
  switch (type) {
    case VT_I2: case VT_I4: case VT_R4: case VT_R8: case VT_CY: case VT_DATE:
    case VT_I1: case VT_UI1: case VT_UI2: case VT_UI4: case VT_I8: case VT_UI8:
    case VT_INT: case VT_UINT:
      std::memcpy(&out.llVal, p, access->array->cbElements <= 8 ? access->array->cbElements : 8);
      out.vt = type;
      return out;
    case VT_DECIMAL: {
      DECIMAL d;
      std::memcpy(&d, p, sizeof d);
      out.decVal = d;
      out.vt = VT_DECIMAL;
      return out;
    }
    case VT_BSTR: {
      BSTR text;
      std::memcpy(&text, p, sizeof text);
      out.vt = VT_BSTR;
      out.bstrVal = nullptr;
      if (text != nullptr) {
        out.bstrVal = pf::SysAllocStringLen(text, pf::SysStringLen(text));
        if (out.bstrVal == nullptr) {
          out.vt = VT_EMPTY;
          throw _com_error(E_OUTOFMEMORY);
        }
      }
      return out;
    }
    case VT_BOOL: {
      VARIANT_BOOL b;
      std::memcpy(&b, p, sizeof b);
      out.vt = VT_INT;
      out.intVal = b != 0 ? 1 : 0;
      return out;
    }
    case VT_VARIANT:
      raise_on_failure(pf::VariantCopy(&out, static_cast<const tagVARIANT*>(p)));
      return out;
    default: {
      char message[1000];
      std::snprintf(message, sizeof message,
                    "An invalid data type was encountered (type=%i). [GetAsVariant]",
                    static_cast<int>(type));
      throw InvalidArgument(message);
    }
  }
}

// ---- cell kinds ---------------------------------------------------------------

// The shared rule: a type accepted directly answers 1; nested cells answer
// by the first non-empty one of the first 100 rows; else `whenEmpty`.
int VariantHelper::cell_kind(int column, int (VariantHelper::*same)(int), bool direct,
                             int whenEmpty) {
  if (direct) return 1;
  if (type != VT_VARIANT) return 0;
  const std::uint32_t rows = sizes[0] < kKindRows ? sizes[0] : kKindRows;
  txc::NestingGuard guard;
  for (std::uint32_t r = 0; r < rows; ++r) {
    tagVARIANT shallow = GetVariant(static_cast<txlong>(r), column);
    _variant_t copy;
    raise_on_failure(pf::VariantCopy(&copy, &shallow));
    VariantHelper inner(&copy);
    if (inner.empty == 0) return (inner.*same)(0);
  }
  return whenEmpty;
}

int VariantHelper::IsBool(int column) {
  return cell_kind(column, &VariantHelper::IsBool, type == VT_BOOL, 0);
}

int VariantHelper::IsNumeric(int column) {
  const bool direct = (type >= VT_I2 && type <= VT_CY) || type == VT_BOOL ||
                      type == VT_DECIMAL || (type >= VT_I1 && type <= VT_UINT);
  return cell_kind(column, &VariantHelper::IsNumeric, direct, 1);
}

int VariantHelper::IsString(int column) {
  return cell_kind(column, &VariantHelper::IsString, type == VT_BSTR, 0);
}

int VariantHelper::IsDate(int column) {
  return cell_kind(column, &VariantHelper::IsDate, type == VT_DATE, 0);
}
