// _variant_t: a VARIANT that owns its contents.
#include <txCommon/internal/platform_com.h>

#include <cstring>

namespace pf = txc::platform;

namespace {

void raise_on_failure(HRESULT hr) {
  if (hr != S_OK) throw _com_error(hr);
}

}  // namespace

_variant_t::_variant_t() noexcept : tagVARIANT() { pf::VariantInit(this); }

_variant_t::_variant_t(double value) noexcept : tagVARIANT() {
  pf::VariantInit(this);
  vt = VT_R8;
  dblVal = value;
}

_variant_t::_variant_t(const wchar_t* text) : tagVARIANT() {
  pf::VariantInit(this);
  vt = VT_BSTR;
  bstrVal = pf::SysAllocString(text != nullptr ? text : L"");
  if (bstrVal == nullptr) {
    vt = VT_EMPTY;
    throw _com_error(E_OUTOFMEMORY);
  }
}

_variant_t::_variant_t(const char* text) : tagVARIANT() {
  pf::VariantInit(this);
  const char* t = text != nullptr ? text : "";
  const std::size_t n = std::strlen(t);
  if (n > 0x3FFFFFFFu) throw _com_error(E_OUTOFMEMORY);
  BSTR b = pf::SysAllocStringLen(nullptr, static_cast<std::uint32_t>(n));
  if (b == nullptr) throw _com_error(E_OUTOFMEMORY);
  if (n != 0) {
    pf::MultiByteToWideChar(pf::CP_ACP, 0, t, static_cast<int>(n), b, static_cast<int>(n));
  }
  vt = VT_BSTR;
  bstrVal = b;
}

_variant_t::_variant_t(const tagVARIANT& other) : tagVARIANT() {
  pf::VariantInit(this);
  raise_on_failure(pf::VariantCopy(this, &other));
}

_variant_t::_variant_t(const _variant_t& other) : tagVARIANT() {
  pf::VariantInit(this);
  raise_on_failure(pf::VariantCopy(this, &other));
}

_variant_t::_variant_t(_variant_t&& other) noexcept : tagVARIANT() {
  pf::VariantInit(this);
  Attach(other);
}

_variant_t& _variant_t::operator=(const _variant_t& other) {
  if (this != &other) raise_on_failure(pf::VariantCopy(this, &other));
  return *this;
}

_variant_t& _variant_t::operator=(_variant_t&& other) noexcept {
  if (this != &other) {
    pf::VariantClear(this);
    Attach(other);
  }
  return *this;
}

_variant_t::~_variant_t() { pf::VariantClear(this); }

void _variant_t::Clear() { raise_on_failure(pf::VariantClear(this)); }

void _variant_t::Attach(tagVARIANT& value) noexcept {
  pf::VariantClear(this);
  std::memcpy(static_cast<void*>(static_cast<tagVARIANT*>(this)), &value, sizeof value);
  pf::VariantInit(&value);
}

tagVARIANT _variant_t::Detach() noexcept {
  tagVARIANT out = *this;
  pf::VariantInit(this);
  return out;
}
