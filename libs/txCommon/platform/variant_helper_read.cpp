// VariantHelper: cells as doubles, texts and dates, and the two static
// conversions.
#include <txCommon/VariantHelper.h>

#include <txCommon/exceptions.h>
#include <txCommon/format.h>
#include <txCommon/host.h>
#include <txCommon/internal/platform_com.h>

#include <cstring>
#include <cwchar>
#include <memory>
#include <new>
#include <string>

namespace pf = txc::platform;

namespace {

void raise_on_failure(HRESULT hr) {
  if (hr != S_OK) throw _com_error(hr);
}

// The double encoding of the COM date `d`: invalid (dNA's pattern) when it is
// out of the calendar.
double date_of(double d) {
  CDateMin date;
  date.set(DF_COM_DATE, d, 1.0, 1.0);
  return static_cast<double>(date);
}

// A wide text in `codePage`, with `perChar` bytes of room for each character
// and one for the end; empty for a null text or a failed conversion.
vstring narrow(const wchar_t* text, std::uint32_t codePage, std::size_t perChar) {
  vstring out;
  if (text == nullptr || *text == L'\0') return out;
  const std::size_t n = std::wcslen(text);
  if (n > 0x3FFFFFF0u / perChar) return out;
  const std::size_t room = n * perChar + 1;
  std::unique_ptr<char[]> buffer(new (std::nothrow) char[room]);
  if (!buffer) throw _com_error(E_OUTOFMEMORY);
  const int written = pf::WideCharToMultiByte(codePage, 0, text, -1, buffer.get(),
                                              static_cast<int>(room), nullptr, nullptr);
  if (written <= 1) return out;
  out.putch(buffer.get(), static_cast<txlong>(written - 1));
  return out;
}

vstring bstr_text(BSTR text) { return narrow(text, pf::CP_THREAD_ACP, 2); }

}  // namespace

double VariantHelper::GetDouble(txlong row, txlong column) {
  return read(row, column, Want::Double, nullptr);
}

double VariantHelper::GetDate(txlong row, txlong column) {
  return read(row, column, Want::Date, nullptr);
}

vstring VariantHelper::GetString(txlong row, txlong column) {
  vstring text;
  read(row, column, Want::String, &text);
  return text;
}

// The three getters: range, fast roads by type, then the common road.
// `text` receives the string of Want::String; the result is the double of
// the other two (and of a number read for a string).
double VariantHelper::read(txlong row, txlong column, Want want, vstring* text) {
  if (row < 0 || column < 0) return dNA;
  if (array == 0 && (row > 0 || column > 0)) return dNA;
  if (array != 0 && !in_range(row, column)) return dNA;

  // A scalar's value lives in the VARIANT or behind its reference.
  const void* at = array != 0 ? cell(row, column)
                              : (byRef != 0 ? variant->byref
                                            : static_cast<const void*>(&variant->llVal));
  if (at != nullptr) {
    double d;
    if (want == Want::Double && type == VT_R8) {
      std::memcpy(&d, at, sizeof d);
      return d;
    }
    if (want == Want::Date && (type == VT_R8 || type == VT_DATE)) {
      std::memcpy(&d, at, sizeof d);
      return date_of(d);
    }
    if (want == Want::String && type == VT_BSTR) {
      BSTR b;
      std::memcpy(&b, at, sizeof b);
      *text = bstr_text(b);
      return dNA;
    }
  }
  if (array != 0 && type == VT_VARIANT) {
    txc::NestingGuard guard;
    tagVARIANT shallow = GetVariant(row, column);
    _variant_t copy;
    raise_on_failure(pf::VariantCopy(&copy, &shallow));
    VariantHelper inner(&copy);
    return inner.read(0, 0, want, text);
  }
  if (array == 0 && IsNumeric(0) != 0) {
    // In place: the caller's value is VT_R8 from now on.
    raise_on_failure(pf::VariantChangeType(variant, variant, 0, VT_R8));
    Initialize();
    const double d = variant->dblVal;
    if (want == Want::String) *text = strFormat(d);
    return want == Want::Date ? date_of(d) : d;
  }
  return read_common(row, column, want, text);
}

double VariantHelper::read_common(txlong row, txlong column, Want want, vstring* text) {
  _variant_t value = GetAsVariant(row, column);
  VariantHelper held(&value);
  if (held.IsNumeric(0) != 0) {
    raise_on_failure(pf::VariantChangeType(&value, &value, 0, VT_R8));
    const double d = value.dblVal;
    if (want == Want::String) *text = strFormat(d);
    if (want == Want::Date) return ISNA(d) ? dNA : date_of(d);
    return d;
  }
  static const char* const kUnknown[] = {
      "Cannot convert this unknown data type to double.",
      "Cannot convert this unknown data type to string.",
      "Cannot convert this unknown data type to date.",
  };
  // The temporary's value, behind its reference if it is one.
  const void* at = held.byRef != 0 ? value.byref : static_cast<const void*>(&value.llVal);
  switch (held.type) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return dNA;
    case VT_DATE: {
      if (at == nullptr) return dNA;
      double d;
      std::memcpy(&d, at, sizeof d);
      d = date_of(d);
      if (want == Want::String) *text = strFormat(d);
      return d;
    }
    case VT_BSTR: {
      BSTR b = nullptr;
      if (at != nullptr) std::memcpy(&b, at, sizeof b);
      if (want == Want::String) {
        *text = bstr_text(b);
        return dNA;
      }
      std::string message = "Cannot convert string value '";
      message += bstr_text(b).optr();
      message += want == Want::Double ? "' to double." : "' to date.";
      throw ConversionException(message.c_str());
    }
    default:
      throw ConversionException(kUnknown[static_cast<int>(want)]);
  }
}

unsigned int VariantHelper::GetMaxStringSize() {
  if (array == 0) return GetString(0, 0).len();
  unsigned int longest = 0;
  for (std::uint32_t c = 0; c < sizes[1]; ++c) {
    for (std::uint32_t r = 0; r < sizes[0]; ++r) {
      const unsigned int n = GetString(static_cast<txlong>(r), static_cast<txlong>(c)).len();
      if (n > longest) longest = n;
    }
  }
  return longest;
}

void VariantHelper::ConvertDate(tagVARIANT& out, CDateMin& date, ComDateFormat format) {
  if (date.is_rawint()) {
    int count = 0;
    int unusedB = 0;
    int unusedC = 0;
    CDateMin::split_date(date.gregday, date.tics, DF_RAW_COUNT, &count, &unusedB, &unusedC);
    out.vt = VT_I4;
    out.lVal = count;
    return;
  }
  double value = 0.0;
  if (format == ComDateDayCount) {
    CDateMin::split_date(date.gregday, date.tics, DF_GREGDAY, &value);
    if (ISNA(value)) return;
    out.vt = VT_R8;
    out.dblVal = value + 365.0;
    return;
  }
  CDateMin::split_date(date.gregday, date.tics, DF_COM_DATE, &value);
  if (ISNA(value)) return;
  out.vt = VT_DATE;
  out.date = value;
}

void VariantHelper::ConvertBSTRToVString(vstring& out, wchar_t*& text) {
  out = narrow(text, pf::CP_ACP, 1);
}
