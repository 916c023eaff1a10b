// File names with no host: the default directory is empty, so completion
// works from an explicit base only.
#include <txCommon/internal.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::string bytes(const vstring& v) { return std::string(v.optr(), v.len()); }

TEST(PathComplete, FromABase) {
  struct Case {
    const char* name;
    const char* base;  // null: the default directory (empty here)
    const char* want;
  };
  const Case cases[] = {
      {"x.txt", nullptr, "x.txt"},
      {"x.txt", "c:\\work", "c:\\work\\x.txt"},
      {"x.txt", "c:\\work\\", "c:\\work\\x.txt"},
      {"\\x.txt", "c:\\work", "c:\\x.txt"},
      {"d:\\x.txt", "c:\\work", "d:\\x.txt"},
      {"\\\\srv\\x.txt", "c:\\work", "\\\\srv\\x.txt"},
      {"a:b", "c:\\work", "a:b"},
      {"\\x.txt", "\\\\srv\\share", "\\\\srv\\x.txt"},
      {"\\x.txt", "\\\\srv", "\\\\\\x.txt"},  // no server behind: the two backslashes stay
      {"\"my file.txt\"", "c:\\work", "c:\\work\\my file.txt"},
      {"<addins>tool.prg", "c:\\work", "c:\\work\\tool.prg"},  // no host: empty add-ins path
      {"<ADDINSX", "c:\\work", "c:\\work\\<ADDINSX"},
      {".\\x", "c:\\work", "c:\\work\\x"},  // empty line path: the rest applies to x
      {"..\\x", "c:\\a\\b\\", "c:\\a\\x"},
      {"..\\..\\x", "c:\\a\\b", "c:\\x"},
      {"..\\..\\..\\x", "c:\\a\\b", "c:\\a\\b\\..\\..\\..\\x"},
      {"", "c:\\work", "c:\\work\\"},
      {"x", "", "x"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " on " + (c.base ? c.base : "(default)"));
    vstring s(c.name);
    vstring base(c.base ? c.base : "");
    s.addPathIfNone(c.base ? &base : nullptr);
    EXPECT_EQ(bytes(s), c.want);
  }
}

TEST(PathComplete, ReplaceDotDot) {
  struct Case {
    const char* name;
    const char* base;
    const char* want;
  };
  const Case cases[] = {
      {"..\\x", "c:\\a\\b\\", "c:\\a\\x"},
      {"..\\x", "c:\\a\\b", "c:\\a\\x"},
      {"..\\..\\x", "c:\\a\\b\\", "c:\\x"},
      {"..\\..\\..\\x", "c:\\a\\b", "..\\..\\..\\x"},
      {"./x", "c:\\a", "./x"},
      {"..x", "c:\\a", "..x"},
      {"a\\..\\x", "c:\\a", "a\\..\\x"},
      {"..\\", "c:\\a\\b", "c:\\a\\"},
      {"..\\x", "", "..\\x"},
      {"..\\x", "\\", "..\\x"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.name) + " on " + c.base);
    vstring s(c.name);
    vstring base(c.base);
    EXPECT_EQ(&s.replaceDotDot(&base), &s);
    EXPECT_EQ(bytes(s), c.want);
  }
}

TEST(PathParts, GetExtAndGetPath) {
  struct Case {
    const char* name;
    const char* ext;
    const char* path;
  };
  const Case cases[] = {
      {"a.csv", ".csv", ""},
      {"a.sas7bdat", ".sas7bdat", ""},
      {"a.SAS7BDAT", ".SAS7BDAT", ""},
      {"a.longname", "", ""},
      {".profile", "", ""},
      {"c:\\a.b\\c", ".b\\c", "c:\\a.b\\"},
      {"a.JSON", ".JSON", ""},
      {"a.accdb", ".accdb", ""},
      {"c:\\dir\\a.csv", ".csv", "c:\\dir\\"},
      {"c:a", "", "c:"},
      {"a", "", ""},
      {"\"c:\\dir\\a.csv\"", ".csv", "c:\\dir\\"},
      {"db::obj", "", ""},
      {"x\\db::obj.tx", ".tx", "x\\"},
      {"a.", ".", ""},
      {"", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    vstring s(c.name);
    EXPECT_EQ(bytes(s.GetExt()), c.ext);
    EXPECT_EQ(bytes(s.GetPath(nullptr)), c.path);
    EXPECT_EQ(bytes(s), c.name);  // the string stays as it is
  }
}

TEST(PathParts, Stripping) {
  struct Case {
    const char* name;
    int forwardToo;
    const char* bare;       // stripPathAndExt(null, forwardToo)
    const char* noExt;      // stripExt()
    const char* noPath;     // stripPath()
  };
  const Case cases[] = {
      {"c:\\dir\\a.csv", 0, "a", "c:\\dir\\a", "a.csv"},
      {"db::obj.x", 0, "db::obj", "db::obj", "db::obj.x"},
      {"\"c:\\dir\\a.csv\"", 0, "a", "\"c:\\dir\\a\"", "\"a.csv\""},
      {"a/b/c.txt", 0, "a/b/c", "c", "c.txt"},
      {"a/b/c.txt", 1, "c", "c", "c.txt"},
      {"c:a.txt", 0, "a", "c:a", "a.txt"},
      {"a.longname", 0, "a.longname", "a.longname", "a.longname"},
      {"a.rdata", 0, "a", "a", "a.rdata"},
      {".profile", 0, ".profile", ".profile", ".profile"},
      {"", 0, "", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    vstring a(c.name);
    EXPECT_EQ(bytes(a.stripPathAndExt(nullptr, c.forwardToo)), c.bare);
    vstring b(c.name);
    EXPECT_EQ(bytes(b.stripExt()), c.noExt);
    vstring d(c.name);
    EXPECT_EQ(bytes(d.stripPath()), c.noPath);
  }
}

TEST(PathParts, InsureExt) {
  struct Case {
    const char* name;
    const char* ext;
    const char* want;
  };
  const Case cases[] = {
      {"a", "csv", "a.csv"},       {"a.CSV", "csv", "a.CSV"},  {"\"a\"", "csv", "a.csv"},
      {"a.txt", "csv", "a.txt.csv"}, {"a", ".csv", "a.csv"},  {"a", "", "a"},
      {"a.sas7bdat", "SAS7BDAT", "a.sas7bdat"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    vstring s(c.name);
    s.insureExt(c.ext);
    EXPECT_EQ(bytes(s), c.want);
    vstring t(c.name);
    vstring base("c:\\w");
    EXPECT_EQ(&t.addPathAndExt(c.ext, &base), &t);
  }
  vstring s("a");
  s.insureExt(static_cast<const char*>(nullptr));
  EXPECT_EQ(bytes(s), "a");
  vstring ext("dat");
  vstring base("c:\\w\\");
  vstring name("x");
  EXPECT_EQ(bytes(name.addPathAndExt(ext, &base)), "c:\\w\\x.dat");
}

TEST(PathParts, SplitNames) {
  vstring object, database;
  vstring("db::\"my obj\"").splitObDB(object, database);
  EXPECT_EQ(bytes(object), "my obj");
  EXPECT_EQ(bytes(database), "db");
  database = "old";
  vstring("obj").splitObDB(object, database);
  EXPECT_EQ(bytes(object), "obj");
  EXPECT_TRUE(database.isNull());
  vstring("::x").splitObDB(object, database);
  EXPECT_EQ(bytes(object), "x");
  EXPECT_EQ(bytes(database), "");

  vstring name, dir;
  vstring s("a\\b\\c");
  s.splitObSubdir(name, dir);
  EXPECT_EQ(bytes(name), "c");
  EXPECT_EQ(bytes(dir), "a\\b");
  EXPECT_EQ(bytes(s), "a\\b\\c");
  vstring("plain").splitObSubdir(name, dir);
  EXPECT_EQ(bytes(name), "plain");
  EXPECT_TRUE(dir.isNull());
  vstring("x\\").splitObSubdir(name, dir);
  EXPECT_EQ(bytes(name), "");
  EXPECT_EQ(bytes(dir), "x");
}

TEST(PathHostile, HugeAndOddNames) {
  std::string deep;
  for (int i = 0; i < 50000; ++i) deep += "..\\";
  deep += "x";
  vstring s(deep.c_str());
  vstring base("c:\\a\\b");
  s.replaceDotDot(&base);
  EXPECT_EQ(s.len(), deep.size());  // too many steps: unchanged
  std::string longName(3000000, 'n');
  longName += ".csv";
  vstring big(longName.c_str());
  EXPECT_EQ(bytes(big.GetExt()), ".csv");
  big.addPathIfNone(&base);
  EXPECT_EQ(big.len(), longName.size() + 7);
  big.stripPathAndExt(nullptr, 1);
  EXPECT_EQ(big.len(), 3000000u);
  vstring high("\xE9\\\xFF.\x80");
  EXPECT_EQ(bytes(high.GetExt()), ".\x80");
  EXPECT_EQ(bytes(high.GetPath(nullptr)), "\xE9\\");
  vstring quote("\"");
  quote.addPathIfNone(&base);
  EXPECT_EQ(bytes(quote).rfind("c:\\a\\b\\", 0), 0u);
}

}  // namespace
