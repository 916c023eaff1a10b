#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

TEST(VstringCore, EmptyStringsHoldNoBlock) {
  vstring a;
  vstring b("");
  for (const vstring* s : {&a, &b}) {
    EXPECT_EQ(s->blen(), 0u);
    ASSERT_NE(s->optr(), nullptr);
    EXPECT_EQ(*s->optr(), '\0');
    EXPECT_TRUE(s->IsEmpty());
  }
}

}  // namespace
