// The exception types and the error catalogue.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <set>
#include <string>

namespace {

using txc::kErrorCatalogue;
using txc::kErrorCatalogueRows;

// ---- db_exception -------------------------------------------------------------

TEST(DbException, SharesItsTextAcrossCopies) {
  std::unique_ptr<db_exception> copy;
  {
    WorkingArrayRef text = MakeArrayText("x.csv;3;7");
    db_exception original(1917, text);
    EXPECT_EQ(text.rep->refCount, 2);
    EXPECT_EQ(original.separator, ';');
    copy = std::make_unique<db_exception>(original);
    EXPECT_EQ(copy->text.rep, text.rep) << "no characters copied";
    EXPECT_EQ(text.rep->refCount, 3);
  }
  // The copy outlives both the holder and the original.
  EXPECT_EQ(copy->text.rep->refCount, 1);
  EXPECT_EQ(copy->code, 1917);
  EXPECT_STREQ(reinterpret_cast<const char*>(copy->text.rep->items), "x.csv;3;7");
  EXPECT_STREQ(db_error_text(*copy).optr(), "bad data field 'x.csv' (line 3, col 7)");
}

TEST(DbException, ThrownAndCaughtByValueFreesItsText) {
  const std::int32_t blocks = trackedBlocks.load();
  try {
    WorkingArrayRef text = MakeArrayText("memo");
    throw db_exception(1929, text);
  } catch (const db_exception& caught) {
    db_exception e(caught);  // what a catch by value does
    EXPECT_EQ(e.text.rep->refCount, 2);
    EXPECT_STREQ(db_error_text(e).optr(), "unable to allocate memory for memo");
  }
  EXPECT_EQ(trackedBlocks.load(), blocks);
}

TEST(DbException, TextWithoutTerminatorIsReadWithinItsBlock) {
  WorkingArrayRef text = MakeArrayText("abc");
  text.rep->items[3] = 'd';  // count 4, no terminator left
  db_exception e(104, text);
  EXPECT_STREQ(db_error_text(e).optr(), "file 'abcd' does not exist");
  WorkingArrayRef none;
  EXPECT_STREQ(db_error_text(db_exception(104, none)).optr(), "file '' does not exist");
}

// ---- common_exception ---------------------------------------------------------

TEST(CommonException, OwnsACopyOrNothing) {
  char buffer[16] = "disk on fire";
  common_exception e(COMMON_ERROR_IO, buffer);
  std::strcpy(buffer, "overwritten");
  EXPECT_EQ(e.GetErrCode(), COMMON_ERROR_IO);
  EXPECT_STREQ(e.GetErrMsg(), "disk on fire");

  common_exception none(COMMON_ERROR_NONE, nullptr);
  EXPECT_EQ(none.GetErrMsg(), nullptr);
  common_exception bare(COMMON_ERROR_UNEXPECTED);
  EXPECT_EQ(bare.GetErrMsg(), nullptr);
  static_assert(sizeof(common_error_type) == 4);

  common_exception copy(e);
  EXPECT_NE(copy.GetErrMsg(), e.GetErrMsg());
  EXPECT_STREQ(copy.GetErrMsg(), "disk on fire");
}

TEST(CommonException, AssignmentSharesThePointer) {
  auto* target = new common_exception(COMMON_ERROR_IO);
  common_exception source(COMMON_ERROR_CONVERSION, "shared");
  *target = source;
  EXPECT_EQ(target->GetErrMsg(), source.GetErrMsg());
  EXPECT_EQ(target->GetErrCode(), COMMON_ERROR_CONVERSION);
  // Only one of the two may run its destructor.
  ::operator delete(target);
}

// ---- COM variant exceptions ---------------------------------------------------

template <class E>
void expect_private_copy() {
  std::string text = "This data object is not recognized.";
  auto e = std::make_unique<E>(text.c_str());
  text.assign(text.size(), '#');
  EXPECT_STREQ(e->what(), "This data object is not recognized.");
  E copy(*e);
  e.reset();
  EXPECT_STREQ(copy.what(), "This data object is not recognized.");
  E other("other");
  other = copy;
  E& alias = other;
  other = alias;
  EXPECT_STREQ(other.what(), "This data object is not recognized.");
  try {
    throw E("thrown");
  } catch (const std::exception& caught) {
    EXPECT_STREQ(caught.what(), "thrown");
  }
  EXPECT_STREQ(E(nullptr).what(), "");
}

TEST(VariantExceptions, KeepAPrivateCopyAndAreStdExceptions) {
  expect_private_copy<InvalidArgument>();
  expect_private_copy<ConversionException>();
  expect_private_copy<UnexpectedException>();
}

// ---- the catalogue ------------------------------------------------------------

TEST(ErrorCatalogue, Structure) {
  ASSERT_EQ(kErrorCatalogueRows, 204);
  EXPECT_EQ(kErrorCatalogue[0].code, 0);
  EXPECT_STREQ(kErrorCatalogue[0].message, "no outstanding errors");

  std::set<int> seen;
  std::vector<int> descents;  // codes that stand right after a greater one
  for (int i = 0; i < kErrorCatalogueRows; ++i) {
    const auto& row = kErrorCatalogue[i];
    SCOPED_TRACE(testing::Message() << "row " << i << " code " << row.code);
    ASSERT_NE(row.message, nullptr);
    EXPECT_GE(row.code, 0);
    EXPECT_TRUE(seen.insert(row.code).second) << "duplicate code";
    if (i > 0) {
      const int previous = kErrorCatalogue[i - 1].code;
      EXPECT_LE(previous / 100, row.code / 100) << "groups of hundreds ascend";
      if (row.code < previous) descents.push_back(row.code);
    }
  }
  EXPECT_EQ(descents, (std::vector<int>{1107, 1610, 1921}));
}

TEST(ErrorCatalogue, SampleRows) {
  struct Row {
    int code;
    const char* message;
  } rows[] = {
      {104, "file '%' does not exist"},
      {208, "database version is too old to support intraday data. Make a new database or "
            "use Proc->Copy on the existing database to store intraday data."},
      {305, "SECURITY_UID_INVALID"},
      {801, "INDEX_DUPLICATE_ENTRY"},
      {1107, "can't decode series data"},
      {1108, "can't decode query data: '%'"},
      {1607, "%"},
      {1707, "local host infomation not found"},
      {1918, "found '%' when looking for '%' (line %, col %)"},
      {1929, "unable to allocate memory for %"},
      {2201, "OLEDB Driver '%' is not installed."},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.code);
    const char* found = db_error_message(r.code);
    ASSERT_NE(found, nullptr);
    EXPECT_STREQ(found, r.message);
  }
  EXPECT_STREQ(kErrorCatalogue[kErrorCatalogueRows - 1].message, "OLEDB Driver '%' is not installed.");
  for (int missing : {-1, 1, 99, 119, 1200, 2102, 2202, 1000000}) {
    EXPECT_EQ(db_error_message(missing), nullptr) << missing;
  }
}

// FNV-1a over "code message\n" of every row in order: any edit of a row, a
// byte of a message or the order shows up here.
TEST(ErrorCatalogue, Fingerprint) {
  std::uint32_t h = 2166136261u;
  auto mix = [&h](const std::string& s) {
    for (unsigned char c : s) h = (h ^ c) * 16777619u;
  };
  std::size_t marks = 0;
  for (int i = 0; i < kErrorCatalogueRows; ++i) {
    mix(std::to_string(kErrorCatalogue[i].code) + " " + kErrorCatalogue[i].message + "\n");
    for (const char* p = kErrorCatalogue[i].message; *p; ++p) marks += (*p == '%');
  }
  EXPECT_EQ(marks, 144u);
  EXPECT_EQ(h, 0x66DA1143u);
}

TEST(ErrorCatalogue, MarksAreFilledFromTheArguments) {
  struct Case {
    int code;
    const char* arguments;
    char separator;
    const char* expected;
  } cases[] = {
      {1917, "x.csv;3;7", ';', "bad data field 'x.csv' (line 3, col 7)"},
      {1917, "x.csv;3;7;9", ';', "bad data field 'x.csv' (line 3, col 7;9)"},  // last takes the rest
      {1917, "x.csv", ';', "bad data field 'x.csv' (line , col )"},
      {900, "a;b", ';', "syntax error: a;b"},  // one mark: the text as it stands
      {905, "p|q", '|', "pattern 'p' and pattern 'q' are incompatible"},
      {905, "", ';', "pattern '' and pattern '' are incompatible"},
      {905, nullptr, ';', "pattern '' and pattern '' are incompatible"},
      {905, ";", ';', "pattern '' and pattern '' are incompatible"},
      {0, "ignored", ';', "no outstanding errors"},
      {1607, "100% sure", ';', "100% sure"},  // a '%' in an argument is not a mark
      {119, "anything", ';', ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.code << " [" << (c.arguments ? c.arguments : "null") << "]");
    EXPECT_STREQ(db_error_text(c.code, c.arguments, c.separator).optr(), c.expected);
  }
  std::string big(300000, '\xE9');
  EXPECT_EQ(db_error_text(104, big.c_str()).len(), big.size() + 22);
}

}  // namespace
