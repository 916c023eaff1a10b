// VariantHelper's reports to a registered host.
#include "fake_host.h"

#include <txCommon/VariantHelper.h>
#include <txCommon/internal/platform_com.h>

#include <gtest/gtest.h>

namespace {

// Opens GetVariant to the test.
class OpenHelper : public VariantHelper {
public:
  using VariantHelper::GetVariant;
  using VariantHelper::VariantHelper;
};

TEST(VariantHelperHost, NullValueIsReportedAndReadsAsEmpty) {
  fakeHost().reset();
  VariantHelper h(nullptr);
  EXPECT_EQ(fakeHost().asserts.size(), 1u);
  EXPECT_NE(h.IsEmpty(), 0);
  EXPECT_NE(h.IsScalar(), 0);
  EXPECT_EQ(h.GetString(0, 0).len(), 0u);
  EXPECT_NE(ISNA(h.GetDouble(0, 0)), 0);
}

TEST(VariantHelperHost, NestedCellAccessOnOtherTypesIsReported) {
  fakeHost().reset();
  _variant_t v(1.0);
  OpenHelper h(&v);
  EXPECT_EQ(h.GetVariantPointer(0, 0), nullptr);
  EXPECT_EQ(h.GetVariant(0, 0).vt, VT_EMPTY);
  EXPECT_EQ(fakeHost().asserts.size(), 2u);
  EXPECT_TRUE(fakeHost().reports.empty());
}

}  // namespace
