// The COM stand-ins of the platform layer: text conversion, BSTR layout,
// array shape and VariantChangeType's rules.
#include <txCommon/internal/platform_com.h>

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>

namespace {

namespace pf = txc::platform;

TEST(ComPlatform, CodePage1252BothWays) {
  // Spot values from Python's cp1252 codec.
  struct Case {
    wchar_t wide;
    unsigned char byte;
  };
  const Case cases[] = {{L'A', 'A'},        {0x20AC, 0x80}, {0x201C, 0x93}, {0x201D, 0x94},
                        {0x0178, 0x9F},     {0x00E9, 0xE9}, {0x00A0, 0xA0}, {0x0081, 0x81},
                        {0x009D, 0x9D},     {0x4E2D, '?'},  {0x0100, '?'}};
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.wide));
    const wchar_t w[2] = {c.wide, 0};
    char out[2] = {1, 1};
    EXPECT_EQ(pf::WideCharToMultiByte(pf::CP_ACP, 0, w, -1, out, 2, nullptr, nullptr), 2);
    EXPECT_EQ(static_cast<unsigned char>(out[0]), c.byte);
    EXPECT_EQ(out[1], '\0');
  }
  // Every byte goes to Unicode and back unchanged.
  for (int b = 1; b < 256; ++b) {
    const char in[1] = {static_cast<char>(b)};
    wchar_t w = 0;
    ASSERT_EQ(pf::MultiByteToWideChar(pf::CP_ACP, 0, in, 1, &w, 1), 1);
    char back = 0;
    ASSERT_EQ(pf::WideCharToMultiByte(pf::CP_THREAD_ACP, 0, &w, 1, &back, 1, nullptr, nullptr), 1);
    EXPECT_EQ(back, in[0]) << b;
  }
}

TEST(ComPlatform, WideCharToMultiByteRefusals) {
  const wchar_t text[] = L"abc";
  char out[8];
  EXPECT_EQ(pf::WideCharToMultiByte(pf::CP_ACP, 0, text, -1, out, 3, nullptr, nullptr), 0)
      << "no room for the end";
  EXPECT_EQ(pf::WideCharToMultiByte(pf::CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr), 4);
  EXPECT_EQ(pf::WideCharToMultiByte(65001, 0, text, -1, out, 8, nullptr, nullptr), 0);
  EXPECT_EQ(pf::WideCharToMultiByte(pf::CP_ACP, 0, nullptr, -1, out, 8, nullptr, nullptr), 0);
  EXPECT_EQ(pf::WideCharToMultiByte(pf::CP_ACP, 0, text, -2, out, 8, nullptr, nullptr), 0);
}

TEST(ComPlatform, BstrCarriesItsByteLength) {
  BSTR b = pf::SysAllocString(L"hello");
  ASSERT_NE(b, nullptr);
  EXPECT_EQ(pf::SysStringLen(b), 5u);
  std::uint32_t prefix = 0;
  std::memcpy(&prefix, reinterpret_cast<char*>(b) - 4, 4);
  EXPECT_EQ(prefix, 5u * sizeof(wchar_t));
  EXPECT_EQ(b[5], L'\0');
  pf::SysFreeString(b);
  BSTR z = pf::SysAllocStringByteLen(nullptr, 3);
  EXPECT_EQ(std::memcmp(z, "\0\0\0", 3), 0);
  pf::SysFreeString(z);
  EXPECT_EQ(pf::SysStringLen(nullptr), 0u);
  EXPECT_EQ(pf::SysAllocString(nullptr), nullptr);
}

TEST(ComPlatform, SafeArrayShape) {
  const SAFEARRAYBOUND bounds[2] = {{3, 5}, {2, -1}};
  tagSAFEARRAY* a = pf::SafeArrayCreate(VT_R8, 2, bounds);
  ASSERT_NE(a, nullptr);
  std::int32_t lo = 0, hi = 0;
  EXPECT_EQ(pf::SafeArrayGetDim(a), 2u);
  EXPECT_EQ(pf::SafeArrayGetLBound(a, 1, &lo), S_OK);
  EXPECT_EQ(pf::SafeArrayGetUBound(a, 1, &hi), S_OK);
  EXPECT_EQ(lo, 5);
  EXPECT_EQ(hi, 7);
  EXPECT_EQ(pf::SafeArrayGetLBound(a, 2, &lo), S_OK);
  EXPECT_EQ(pf::SafeArrayGetUBound(a, 2, &hi), S_OK);
  EXPECT_EQ(lo, -1);
  EXPECT_EQ(hi, 0);
  EXPECT_EQ(a->rgsabound[0].lLbound, -1) << "the system keeps the last dimension first";
  EXPECT_EQ(pf::SafeArrayGetUBound(a, 3, &hi), DISP_E_BADINDEX);
  EXPECT_EQ(pf::SafeArrayGetUBound(a, 0, &hi), DISP_E_BADINDEX);
  void* cells = nullptr;
  EXPECT_EQ(pf::SafeArrayAccessData(a, &cells), S_OK);
  EXPECT_EQ(pf::SafeArrayDestroy(a), DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(pf::SafeArrayUnaccessData(a), S_OK);
  EXPECT_EQ(pf::SafeArrayUnaccessData(a), E_UNEXPECTED);
  EXPECT_EQ(pf::SafeArrayDestroy(a), S_OK);
  const SAFEARRAYBOUND huge[2] = {{0xFFFFFFFFu, 0}, {0xFFFFFFFFu, 0}};
  EXPECT_EQ(pf::SafeArrayCreate(VT_R8, 2, huge), nullptr);
  EXPECT_EQ(pf::SafeArrayCreate(VT_NULL, 1, bounds), nullptr);
}

TEST(ComPlatform, ChangeTypeToR8) {
  struct Case {
    VARTYPE vt;
    std::int64_t raw;
    double expected;
  };
  const Case cases[] = {
      {VT_EMPTY, 0, 0.0},     {VT_BOOL, 0xFFFF, -1.0},  {VT_CY, 123456, 12.3456},
      {VT_I1, 0xFF, -1.0},    {VT_UI4, 0xFFFFFFFF, 4294967295.0},
      {VT_I8, -9, -9.0},      {VT_UINT, 7, 7.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.vt);
    tagVARIANT v;
    pf::VariantInit(&v);
    v.vt = c.vt;
    v.llVal = c.raw;
    ASSERT_EQ(pf::VariantChangeType(&v, &v, 0, VT_R8), S_OK);
    EXPECT_EQ(v.vt, VT_R8);
    EXPECT_EQ(v.dblVal, c.expected);
  }
  tagVARIANT d;
  pf::VariantInit(&d);
  d.decVal.scale = 2;
  d.decVal.sign = DECIMAL_NEG;
  d.decVal.Lo64 = 12345;
  d.vt = VT_DECIMAL;  // the type word lies over wReserved
  ASSERT_EQ(pf::VariantChangeType(&d, &d, 0, VT_R8), S_OK);
  EXPECT_DOUBLE_EQ(d.dblVal, -123.45);
  tagVARIANT s;
  pf::VariantInit(&s);
  s.vt = VT_BSTR;
  s.bstrVal = pf::SysAllocString(L"12");
  EXPECT_EQ(pf::VariantChangeType(&s, &s, 0, VT_R8), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(pf::VariantChangeType(&s, &s, 0, VT_I4), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(pf::VariantClear(&s), S_OK);
  EXPECT_EQ(s.vt, VT_EMPTY);
  static_assert(sizeof(tagVARIANT) == 24 || sizeof(void*) != 8 || sizeof(tagVARIANT) == 16,
                "VARIANT is 16 bytes of header and value, or 24 with 64-bit pointers");
}

}  // namespace
