// VariantHelper over the plain COM structures of the platform layer.
#include <txCommon/VariantHelper.h>

#include <txCommon/exceptions.h>
#include <txCommon/host.h>
#include <txCommon/internal/platform_com.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>
#include <functional>
#include <cstring>
#include <string>
#include <vector>

namespace {

namespace pf = txc::platform;

bool is_na(double d) { return ISNA(d) != 0; }

// An array variant of `vt` cells with the given bounds (first dimension
// first), owned by the _variant_t.
_variant_t make_array(VARTYPE vt, std::vector<SAFEARRAYBOUND> bounds) {
  _variant_t v;
  v.parray = pf::SafeArrayCreate(vt, static_cast<std::uint32_t>(bounds.size()), bounds.data());
  v.vt = static_cast<VARTYPE>(VT_ARRAY | vt);
  return v;
}

template <typename T>
T* cells(_variant_t& v) {
  return static_cast<T*>(v.parray->pvData);
}

BSTR bstr(const wchar_t* t) { return pf::SysAllocString(t); }

template <typename E>
std::string thrown_text(const std::function<void()>& f) {
  try {
    f();
  } catch (const E& e) {
    return e.what();
  }
  return "<nothing thrown>";
}

TEST(VariantHelper, ScalarR8) {
  _variant_t v(2.5);
  VariantHelper h(&v);
  EXPECT_NE(h.IsScalar(), 0);
  EXPECT_EQ(h.IsVector(), 0);
  EXPECT_EQ(h.IsMatrix(), 0);
  EXPECT_EQ(h.IsArray(), 0);
  EXPECT_EQ(h.GetDim(), 0u);
  EXPECT_EQ(h.GetType(), VT_R8);
  EXPECT_EQ(h.ArraySize(1), 1u);
  EXPECT_EQ(h.ArraySize(0), 1u) << "only an array refuses dimension 0";
  EXPECT_EQ(h.GetSafeArray(), nullptr);
  EXPECT_EQ(h.GetDouble(0, 0), 2.5);
  EXPECT_TRUE(is_na(h.GetDouble(1, 0)));
  EXPECT_TRUE(is_na(h.GetDouble(-1, 0)));
  EXPECT_TRUE(is_na(h.GetDouble(0, 1)));
  EXPECT_STREQ(h.GetString(0, 0).optr(), "2.500000");
  EXPECT_EQ(h.GetString(0, 1).len(), 0u);
  EXPECT_EQ(h.GetDate(0, 0), 693595.5);
  EXPECT_EQ(h.GetMaxStringSize(), 8u);
}

TEST(VariantHelper, EmptyKindsAreEmptyScalars) {
  for (VARTYPE vt : {VT_EMPTY, VT_NULL, VT_ERROR}) {
    SCOPED_TRACE(vt);
    _variant_t v;
    v.vt = vt;
    VariantHelper h(&v);
    EXPECT_NE(h.IsEmpty(), 0);
    EXPECT_NE(h.IsScalar(), 0);
    EXPECT_TRUE(is_na(h.GetDouble(0, 0)));
    EXPECT_TRUE(is_na(h.GetDate(0, 0)));
    EXPECT_EQ(h.GetString(0, 0).len(), 0u);
    EXPECT_EQ(h.IsNumeric(0), 0);
  }
}

TEST(VariantHelper, NumericScalarsChangeInPlace) {
  struct Case {
    VARTYPE vt;
    std::int64_t raw;
    double expected;
  };
  const Case cases[] = {
      {VT_I2, -7, -7.0},       {VT_I4, 123456, 123456.0},  {VT_CY, 25000, 2.5},
      {VT_BOOL, -1, -1.0},     {VT_UI1, 200, 200.0},       {VT_I8, -5, -5.0},
      {VT_INT, 42, 42.0},      {VT_UI2, 65535, 65535.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.vt);
    _variant_t v;
    v.vt = c.vt;
    v.llVal = 0;
    std::memcpy(&v.llVal, &c.raw, c.vt == VT_I2 || c.vt == VT_BOOL || c.vt == VT_UI2 ? 2
                                  : c.vt == VT_UI1                                 ? 1
                                  : c.vt == VT_I4 || c.vt == VT_INT               ? 4
                                                                                   : 8);
    VariantHelper h(&v);
    EXPECT_EQ(h.IsNumeric(0), 1);
    EXPECT_EQ(h.GetDouble(0, 0), c.expected);
    EXPECT_EQ(v.vt, VT_R8) << "the caller's value changed type";
  }
  _variant_t f;
  f.vt = VT_R4;
  f.fltVal = 0.25f;
  VariantHelper h(&f);
  EXPECT_STREQ(h.GetString(0, 0).optr(), "0.250000");
}

TEST(VariantHelper, DatesAndNa) {
  _variant_t d;
  d.vt = VT_DATE;
  d.date = 36526.5;
  VariantHelper h(&d);
  EXPECT_EQ(h.IsDate(0), 1);
  EXPECT_EQ(h.IsNumeric(0), 0);
  EXPECT_EQ(h.GetDate(0, 0), 730119.5);
  EXPECT_EQ(h.GetDouble(0, 0), 730119.5);
  EXPECT_STREQ(h.GetString(0, 0).optr(), "730119.500000");

  _variant_t na(dNA);
  VariantHelper n(&na);
  EXPECT_STREQ(n.GetString(0, 0).optr(), "NA");
  EXPECT_TRUE(is_na(n.GetDate(0, 0)));
}

TEST(VariantHelper, BoundsAndCellOrder) {
  _variant_t v = make_array(VT_R8, {{3, 5}, {2, 2}});  // rows 5..7, columns 2..3
  for (int i = 0; i < 6; ++i) cells<double>(v)[i] = i * 10.0;
  VariantHelper h(&v);
  EXPECT_EQ(h.ArraySize(1), 3u);
  EXPECT_EQ(h.ArraySize(2), 2u);
  EXPECT_EQ(h.ArraySize(3), 1u);
  EXPECT_NE(h.IsMatrix(), 0);
  EXPECT_EQ(h.IsVector(), 0);
  EXPECT_EQ(h.GetDouble(0, 0), 0.0);
  EXPECT_EQ(h.GetDouble(1, 0), 10.0) << "the next cell in memory is the next row";
  EXPECT_EQ(h.GetDouble(0, 1), 30.0);
  EXPECT_EQ(h.GetDouble(2, 1), 50.0);
  EXPECT_TRUE(is_na(h.GetDouble(3, 0)));
  EXPECT_TRUE(is_na(h.GetDouble(0, 2)));
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { h.ArraySize(0); }),
            "Invalid dimension passed to ArraySize.");
  EXPECT_EQ(v.parray->cLocks, 1u) << "locked while the helper lives";
}

TEST(VariantHelper, ShapesAndLocks) {
  {
    _variant_t col = make_array(VT_I4, {{3, 0}, {1, 0}});
    VariantHelper h(&col);
    EXPECT_NE(h.IsMatrix(), 0);
    EXPECT_NE(h.IsVector(), 0);
    _variant_t row = make_array(VT_I4, {{1, 0}, {3, 0}});
    VariantHelper r(&row);
    EXPECT_NE(r.IsMatrix(), 0);
    EXPECT_EQ(r.IsVector(), 0);
    _variant_t vec = make_array(VT_I4, {{4, 1}});
    VariantHelper w(&vec);
    EXPECT_NE(w.IsVector(), 0);
    EXPECT_EQ(w.IsMatrix(), 0);
    VariantHelper copy(w);
    EXPECT_EQ(vec.parray->cLocks, 2u) << "each copy holds its own lock";
    copy = r;
    EXPECT_EQ(vec.parray->cLocks, 1u);
    EXPECT_EQ(row.parray->cLocks, 2u);
    w.Initialize();
    EXPECT_EQ(vec.parray->cLocks, 1u) << "Initialize gives up the lock and takes it anew";
  }
  _variant_t cube = make_array(VT_R8, {{1, 0}, {1, 0}, {1, 0}});
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { VariantHelper h(&cube); }),
            "The data object cannot be more than 2 dimensions.");
  EXPECT_EQ(cube.parray->cLocks, 0u);
  _variant_t nullArray;
  nullArray.vt = VT_ARRAY | VT_R8;
  nullArray.parray = nullptr;
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { VariantHelper h(&nullArray); }),
            "The data object cannot be more than 2 dimensions.");
}

TEST(VariantHelper, NestedCells) {
  _variant_t v = make_array(VT_VARIANT, {{3, 0}});
  tagVARIANT* c = cells<tagVARIANT>(v);
  c[0].vt = VT_R8;
  c[0].dblVal = 1.5;
  c[1].vt = VT_BSTR;
  c[1].bstrVal = bstr(L"x");
  VariantHelper h(&v);
  EXPECT_NE(h.IsVariant(), 0);
  EXPECT_EQ(h.IsNumeric(0), 1);
  EXPECT_EQ(h.IsString(0), 0);
  EXPECT_EQ(h.GetDouble(0, 0), 1.5);
  EXPECT_EQ(thrown_text<ConversionException>([&] { h.GetDouble(1, 0); }),
            "Cannot convert string value 'x' to double.");
  EXPECT_EQ(thrown_text<ConversionException>([&] { h.GetDate(1, 0); }),
            "Cannot convert string value 'x' to date.");
  EXPECT_TRUE(is_na(h.GetDouble(2, 0)));
  EXPECT_STREQ(h.GetString(1, 0).optr(), "x");
  EXPECT_EQ(h.GetMaxStringSize(), 8u) << "1.500000";
  EXPECT_EQ(h.GetVariantPointer(1, 0), &c[1]);
  EXPECT_EQ(h.GetVariantPointer(3, 0), nullptr);
  EXPECT_EQ(h.GetVariantPointer(0, -1), nullptr);
}

TEST(VariantHelper, KindOfAColumnOfEmptyCells) {
  _variant_t v = make_array(VT_VARIANT, {{150, 0}});
  cells<tagVARIANT>(v)[120].vt = VT_BSTR;  // beyond the rows looked at
  cells<tagVARIANT>(v)[120].bstrVal = bstr(L"late");
  VariantHelper h(&v);
  EXPECT_EQ(h.IsNumeric(0), 1);
  EXPECT_EQ(h.IsString(0), 0);
  EXPECT_EQ(h.IsBool(0), 0);
  EXPECT_EQ(h.IsDate(0), 0);
}

TEST(VariantHelper, BooleanCellsReadOneScalarsMinusOne) {
  _variant_t arr = make_array(VT_BOOL, {{2, 0}});
  cells<VARIANT_BOOL>(arr)[0] = VARIANT_TRUE;
  VariantHelper h(&arr);
  EXPECT_EQ(h.IsBool(0), 1);
  EXPECT_EQ(h.IsNumeric(0), 1);
  EXPECT_EQ(h.GetDouble(0, 0), 1.0);
  EXPECT_EQ(h.GetDouble(1, 0), 0.0);
  _variant_t cell = h.GetAsVariant(0, 0);
  EXPECT_EQ(cell.vt, VT_INT);
  EXPECT_EQ(cell.intVal, 1);
  _variant_t scalar;
  scalar.vt = VT_BOOL;
  scalar.boolVal = VARIANT_TRUE;
  VariantHelper s(&scalar);
  EXPECT_EQ(s.GetDouble(0, 0), -1.0);
}

TEST(VariantHelper, TextCells) {
  _variant_t v = make_array(VT_BSTR, {{3, 1}});
  BSTR* b = cells<BSTR>(v);
  b[0] = bstr(L"caf\u00e9 \u20ac");
  b[2] = bstr(L"12");
  VariantHelper h(&v);
  EXPECT_EQ(h.IsString(0), 1);
  EXPECT_STREQ(h.GetString(0, 0).optr(), "caf\xE9 \x80");
  EXPECT_EQ(h.GetString(1, 0).len(), 0u) << "a null cell";
  EXPECT_EQ(thrown_text<ConversionException>([&] { h.GetDouble(1, 0); }),
            "Cannot convert string value '' to double.");
  EXPECT_EQ(thrown_text<ConversionException>([&] { h.GetDouble(2, 0); }),
            "Cannot convert string value '12' to double.")
      << "a text is never parsed";
  EXPECT_EQ(h.GetMaxStringSize(), 6u);
}

TEST(VariantHelper, UnknownCellTypesThrow) {
  _variant_t v = make_array(VT_UNKNOWN, {{1, 0}});
  VariantHelper h(&v);
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { h.GetAsVariant(0, 0); }),
            "An invalid data type was encountered (type=13). [GetAsVariant]");
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { h.GetDouble(0, 0); }),
            "An invalid data type was encountered (type=13). [GetAsVariant]");
  _variant_t unk;
  unk.vt = VT_UNKNOWN;
  unk.punkVal = nullptr;
  VariantHelper u(&unk);
  EXPECT_EQ(thrown_text<ConversionException>([&] { u.GetDouble(0, 0); }),
            "Cannot convert this unknown data type to double.");
  EXPECT_EQ(thrown_text<ConversionException>([&] { u.GetString(0, 0); }),
            "Cannot convert this unknown data type to string.");
  EXPECT_EQ(thrown_text<ConversionException>([&] { u.GetDate(0, 0); }),
            "Cannot convert this unknown data type to date.");
}

TEST(VariantHelper, ReferencesResolve) {
  _variant_t target = make_array(VT_R8, {{2, 0}});
  cells<double>(target)[1] = 9.0;
  _variant_t ref1;
  ref1.vt = VT_BYREF | VT_VARIANT;
  ref1.pvarVal = &target;
  _variant_t ref2;
  ref2.vt = VT_BYREF | VT_VARIANT;
  ref2.pvarVal = &ref1;
  VariantHelper h(&ref2);
  EXPECT_NE(h.IsVector(), 0);
  EXPECT_EQ(h.GetDouble(1, 0), 9.0);

  double value = 4.0;
  _variant_t byref;
  byref.vt = VT_BYREF | VT_R8;
  byref.pdblVal = &value;
  VariantHelper b(&byref);
  EXPECT_NE(b.IsByRef(), 0);
  EXPECT_EQ(b.GetDouble(0, 0), 4.0);

  _variant_t loop;
  loop.vt = VT_BYREF | VT_VARIANT;
  loop.pvarVal = &loop;
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { VariantHelper l(&loop); }),
            "This data object is not recognized.");
  loop.vt = VT_EMPTY;
}

// An object whose "Value" is a given VARIANT.
class ValueObject : public IDispatch {
public:
  explicit ValueObject(const tagVARIANT* value, bool knowsName = true)
      : value_(value), knowsName_(knowsName) {}
  HRESULT QueryInterface(const IID&, void**) override { return E_UNEXPECTED; }
  std::uint32_t AddRef() override { return ++refs; }
  std::uint32_t Release() override { return --refs; }
  HRESULT GetTypeInfoCount(unsigned int*) override { return E_UNEXPECTED; }
  HRESULT GetTypeInfo(unsigned int, LCID, void**) override { return E_UNEXPECTED; }
  HRESULT GetIDsOfNames(const IID&, OLECHAR** names, unsigned int count, LCID lcid,
                        DISPID* ids) override {
    if (!knowsName_ || count != 1 || lcid != 2048 || std::wcscmp(names[0], L"Value") != 0) {
      return DISP_E_BADINDEX;
    }
    ids[0] = 7;
    return S_OK;
  }
  HRESULT Invoke(DISPID id, const IID&, LCID lcid, std::uint16_t flags, DISPPARAMS* params,
                 tagVARIANT* result, tagEXCEPINFO*, unsigned int*) override {
    if (id != 7 || lcid != 2048 || flags != 2 || params->cArgs != 0) return E_UNEXPECTED;
    return pf::VariantCopy(result, value_);
  }
  std::uint32_t refs = 1;

private:
  const tagVARIANT* value_;
  bool knowsName_;
};

TEST(VariantHelper, ObjectsResolveThroughValue) {
  _variant_t arr = make_array(VT_R8, {{2, 0}, {2, 0}});
  cells<double>(arr)[3] = 3.5;
  ValueObject inner(&arr);
  _variant_t innerVar;
  innerVar.vt = VT_DISPATCH;
  innerVar.pdispVal = &inner;
  inner.AddRef();
  ValueObject outer(&innerVar);
  _variant_t v;
  v.vt = VT_DISPATCH;
  v.pdispVal = &outer;
  outer.AddRef();
  {
    VariantHelper h(&v);
    EXPECT_NE(h.IsMatrix(), 0);
    EXPECT_EQ(h.GetDouble(1, 1), 3.5);
    EXPECT_EQ(arr.parray->cLocks, 0u) << "the helper locks its own copy";
  }
  ValueObject mute(&arr, false);
  _variant_t m;
  m.vt = VT_DISPATCH;
  m.pdispVal = &mute;
  mute.AddRef();
  EXPECT_EQ(thrown_text<InvalidArgument>([&] { VariantHelper h(&m); }),
            "This data object is not recognized.");
  _variant_t none;
  none.vt = VT_DISPATCH;
  none.pdispVal = nullptr;
  EXPECT_EQ(thrown_text<UnexpectedException>([&] { VariantHelper h(&none); }),
            "Could not find the IDispatch interface for the passed in object.");
}

TEST(VariantHelper, ConvertDate) {
  struct Case {
    CDateMin date;
    ComDateFormat format;
    VARTYPE vt;
    double value;
  };
  CDateMin noon2000;
  noon2000.gregday = 730119;
  noon2000.tics = 43200000;
  CDateMin raw;
  raw.gregday = -1;
  raw.tics = 17;
  const Case cases[] = {
      {noon2000, ComDateSerial, VT_DATE, 36526.5},
      {noon2000, ComDateDayCount, VT_R8, 730119.0 + 365.0},  // the day count is whole days
      {noon2000, static_cast<ComDateFormat>(9), VT_DATE, 36526.5},
  };
  for (const Case& c : cases) {
    tagVARIANT out;
    pf::VariantInit(&out);
    CDateMin d = c.date;
    VariantHelper::ConvertDate(out, d, c.format);
    EXPECT_EQ(out.vt, c.vt);
    EXPECT_EQ(out.vt == VT_DATE ? out.date : out.dblVal, c.value);
  }
  tagVARIANT out;
  pf::VariantInit(&out);
  VariantHelper::ConvertDate(out, raw, ComDateSerial);
  EXPECT_EQ(out.vt, VT_I4);
  int expected = 0, b = 0, c = 0;
  CDateMin::split_date(raw.gregday, raw.tics, DF_RAW_COUNT, &expected, &b, &c);
  EXPECT_EQ(out.lVal, expected);
  tagVARIANT untouched;
  untouched.vt = VT_I2;
  untouched.iVal = 99;
  CDateMin invalid;
  VariantHelper::ConvertDate(untouched, invalid, ComDateDayCount);
  VariantHelper::ConvertDate(untouched, invalid, ComDateSerial);
  EXPECT_EQ(untouched.vt, VT_I2);
  EXPECT_EQ(untouched.iVal, 99);
}

TEST(VariantHelper, ConvertBSTRToVString) {
  vstring out("stale");
  wchar_t* text = nullptr;
  VariantHelper::ConvertBSTRToVString(out, text);
  EXPECT_EQ(out.len(), 0u);
  out = "stale";
  wchar_t emptyText[] = L"";
  text = emptyText;
  VariantHelper::ConvertBSTRToVString(out, text);
  EXPECT_EQ(out.len(), 0u);
  std::wstring big(1 << 20, L'\u00e9');
  big += L"\u4e2d";  // outside code page 1252
  text = big.data();
  VariantHelper::ConvertBSTRToVString(out, text);
  ASSERT_EQ(out.len(), (1u << 20) + 1);
  EXPECT_EQ(static_cast<unsigned char>(out.optr()[0]), 0xE9);
  EXPECT_EQ(out.optr()[1 << 20], '?');
}

TEST(VariantHelper, ArrayHoldingAReferenceToItselfFails) {
  _variant_t v = make_array(VT_VARIANT, {{2, 0}});
  tagVARIANT* c = cells<tagVARIANT>(v);
  c[0].vt = VT_BYREF | VT_VARIANT;
  c[0].pvarVal = &v;
  {
    VariantHelper h(&v);
    EXPECT_EQ(thrown_text<InvalidArgument>([&] { h.IsNumeric(0); }),
              "This data object is not recognized.");
    EXPECT_EQ(thrown_text<InvalidArgument>([&] { h.GetDouble(0, 0); }),
              "This data object is not recognized.");
    EXPECT_TRUE(is_na(h.GetDouble(1, 0)));
  }
  EXPECT_EQ(v.parray->cLocks, 0u) << "every lock given back on the way out";
}

TEST(VariantHelper, GetAsVariantKeepsTheCellType) {
  const VARTYPE types[] = {VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_I1, VT_UI1,
                           VT_UI2, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT};
  for (VARTYPE vt : types) {
    SCOPED_TRACE(vt);
    _variant_t v = make_array(vt, {{2, 0}});
    const std::uint32_t size = v.parray->cbElements;
    std::memset(static_cast<char*>(v.parray->pvData) + size, 0x41, size);
    VariantHelper h(&v);
    _variant_t cell = h.GetAsVariant(1, 0);
    EXPECT_EQ(cell.vt, vt);
    EXPECT_EQ(std::memcmp(&cell.llVal, static_cast<char*>(v.parray->pvData) + size, size), 0);
    EXPECT_EQ(h.GetAsVariant(2, 0).vt, VT_EMPTY);
    EXPECT_EQ(h.GetAsVariant(0, -1).vt, VT_EMPTY);
    EXPECT_EQ(h.IsNumeric(0), vt == VT_DATE ? 0 : 1);
  }
}

TEST(VariantHelper, CopiesOwnTheirResolvedValue) {
  _variant_t target = make_array(VT_R8, {{2, 0}});
  cells<double>(target)[0] = 6.0;
  _variant_t ref;
  ref.vt = VT_BYREF | VT_VARIANT;
  ref.pvarVal = &target;
  _variant_t other(1.0);
  VariantHelper kept(&other);
  {
    VariantHelper h(&ref);
    kept = h;
    VariantHelper copy(h);
    EXPECT_EQ(copy.GetDouble(0, 0), 6.0);
  }
  EXPECT_EQ(kept.GetDouble(0, 0), 6.0) << "the copy outlives the original";
  EXPECT_NE(kept.IsVector(), 0);
  EXPECT_EQ(target.parray->cLocks, 0u) << "the helpers read copies of the array";
}

TEST(VariantHelper, HostileTexts) {
  std::wstring big(4 << 20, L'a');
  big[17] = 0x201C;
  _variant_t v(big.c_str());
  VariantHelper h(&v);
  const vstring s = h.GetString(0, 0);
  ASSERT_EQ(s.len(), 4u << 20);
  EXPECT_EQ(static_cast<unsigned char>(s.optr()[17]), 0x93);
  EXPECT_EQ(h.GetMaxStringSize(), 4u << 20);
  _variant_t high("\x80\x81\xFF\"");
  VariantHelper g(&high);
  EXPECT_STREQ(g.GetString(0, 0).optr(), "\x80\x81\xFF\"");
  try {
    g.GetDouble(0, 0);
    ADD_FAILURE() << "no throw";
  } catch (const std::exception& e) {
    EXPECT_STREQ(e.what(), "Cannot convert string value '\x80\x81\xFF\"' to double.");
  }
}

TEST(VariantHelper, EmptyArrays) {
  _variant_t v = make_array(VT_R8, {{0, 0}});
  VariantHelper h(&v);
  EXPECT_EQ(h.ArraySize(1), 0u);
  EXPECT_EQ(h.GetMaxStringSize(), 0u);
  EXPECT_TRUE(is_na(h.GetDouble(0, 0)));
  _variant_t e = make_array(VT_VARIANT, {{0, 0}});
  VariantHelper n(&e);
  EXPECT_EQ(n.IsNumeric(0), 1);
  EXPECT_EQ(n.IsString(0), 0);
}

}  // namespace
