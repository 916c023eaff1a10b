// Registry values by key text, over the in-process store.
#include <txCommon/registry.h>

#include <txCommon/internal/platform_registry.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace pf = txc::platform;

class Registry : public ::testing::Test {
protected:
  void SetUp() override { pf::registry_reset(); }
  void TearDown() override {
    EXPECT_EQ(pf::registry_open_handles(), 0) << "a handle was left open";
    pf::registry_trace(false);
  }
};

int set(const char* key, const char* value, const char* data,
        RegistryBitness bitness = RegistryDefault) {
  return SetRegKeyValue(key, value, data, static_cast<int>(std::strlen(data)), bitness);
}

std::string get(const char* key, const char* value, RegistryBitness bitness = RegistryDefault) {
  char buf[256] = {};
  int size = sizeof buf - 1;
  if (GetRegKeyValue(key, value, buf, &size, bitness) != 1) return "<fail>";
  return std::string(buf, static_cast<std::size_t>(size));
}

// A path of `n` components below HKCU, each "kI".
std::string deep_path(int n) {
  std::string p = "HKCU";
  for (int i = 1; i < n; ++i) p += "\\k" + std::to_string(i);
  return p;
}

TEST_F(Registry, RootsLongAndShortFormsCaseCounts) {
  ASSERT_EQ(set("HKLM\\Software\\T", "v", "one"), 1);
  struct Case {
    const char* key;
    int ok;
  };
  const Case cases[] = {
      {"HKLM\\Software\\T", 1},
      {"HKEY_LOCAL_MACHINE\\Software\\T", 1},
      {"HKEY_LOCAL_MACHINE\\SOFTWARE\\t", 1},  // below the root the store ignores case
      {"hklm\\Software\\T", 0},
      {"HKEY_CURRENT_CONFIG\\Software\\T", 0},
      {"HKCU\\Software\\T", 0},
      {"HKLM\\Software\\T\\", 1},
      {"HKLM\\\\Software\\T", 0},
      {"HKLM\\Software\\\\T", 0},
      {"", 0},
      {"\\", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.key);
    EXPECT_EQ(get(c.key, "v") != "<fail>", c.ok == 1);
    EXPECT_EQ(GetRegKeyValue(c.key, nullptr, nullptr, nullptr, RegistryDefault), c.ok);
  }
  EXPECT_EQ(GetRegKeyValue(nullptr, "v", nullptr, nullptr, RegistryDefault), 0);
}

TEST_F(Registry, EveryRootTakesValues) {
  for (const char* root : {"HKLM", "HKCR", "HKU", "HKCU", "HKEY_LOCAL_MACHINE",
                           "HKEY_CLASSES_ROOT", "HKEY_USERS", "HKEY_CURRENT_USER"}) {
    SCOPED_TRACE(root);
    const std::string key = std::string(root) + "\\A";
    EXPECT_EQ(set(key.c_str(), "v", root), 1);
    EXPECT_EQ(get(key.c_str(), "v"), root);
    // A root alone reads as an existing key.
    EXPECT_EQ(GetRegKeyValue(root, nullptr, nullptr, nullptr, RegistryDefault), 1);
  }
}

TEST_F(Registry, NullValueTestsKeyEmptyValueIsTheDefault) {
  ASSERT_EQ(set("HKCU\\S", "", "default"), 1);
  EXPECT_EQ(get("HKCU\\S", ""), "default");
  EXPECT_EQ(GetRegKeyValue("HKCU\\S", nullptr, nullptr, nullptr, RegistryDefault), 1);
  EXPECT_EQ(GetRegKeyValue("HKCU\\Missing", nullptr, nullptr, nullptr, RegistryDefault), 0);
  EXPECT_EQ(get("HKCU\\S", "other"), "<fail>");
  txulong d = 0;
  EXPECT_EQ(GetRegKeyDWordValue("HKCU\\S", nullptr, d, RegistryDefault), 1);
  EXPECT_EQ(GetRegKeyDWordValue("HKCU\\Missing", nullptr, d, RegistryDefault), 0);
}

TEST_F(Registry, ComponentOf127BytesPassesAnd128FailsWithoutACall) {
  const std::string c127(127, 'x');
  const std::string c128(128, 'x');
  EXPECT_EQ(set(("HKCU\\" + c127).c_str(), "v", "ok"), 1);
  EXPECT_EQ(get(("HKCU\\" + c127).c_str(), "v"), "ok");
  pf::registry_trace(true);
  EXPECT_EQ(set(("HKCU\\a\\" + c128).c_str(), "v", "no"), 0);
  EXPECT_EQ(get(("HKCU\\" + c128).c_str(), "v"), "<fail>");
  EXPECT_EQ(DeleteRegKeyTree(("HKCU\\" + c128).c_str(), RegistryDefault), 0);
  EXPECT_TRUE(pf::registry_take_trace().empty());
  EXPECT_EQ(GetRegKeyValue("HKCU\\a", nullptr, nullptr, nullptr, RegistryDefault), 0)
      << "nothing was created on the way to a bad component";
}

TEST_F(Registry, FifteenComponentsReadSixteenWriteAndDelete) {
  const std::string p15 = deep_path(15);
  const std::string p16 = deep_path(16);
  const std::string p17 = deep_path(17);
  ASSERT_EQ(set(p16.c_str(), "v", "deep"), 1);
  EXPECT_EQ(GetRegKeyValue(p15.c_str(), nullptr, nullptr, nullptr, RegistryDefault), 1);
  EXPECT_EQ(get(p16.c_str(), "v"), "<fail>");
  EXPECT_EQ(GetRegKeyValue(p16.c_str(), nullptr, nullptr, nullptr, RegistryDefault), 0);
  EXPECT_EQ(set(p17.c_str(), "v", "deeper"), 0);
  EXPECT_EQ(DeleteRegKeyTree(p17.c_str(), RegistryDefault), 0);
  EXPECT_EQ(DeleteRegKeyTree(p16.c_str(), RegistryDefault), 1);
  EXPECT_EQ(GetRegKeyValue(p15.c_str(), nullptr, nullptr, nullptr, RegistryDefault), 1);
  EXPECT_EQ(DeleteRegKeyTree(p16.c_str(), RegistryDefault), 0) << "already gone";
}

TEST_F(Registry, DwordValueThroughTextReaderGivesZeroWithRawBytes) {
  HKEY key = nullptr;
  ASSERT_EQ(pf::RegCreateKeyExA(HKEY_CURRENT_USER, "N", 0, nullptr, 0, 0x20006, nullptr, &key,
                                nullptr),
            0);
  const unsigned char dword[4] = {'A', 'B', 0, 0};
  ASSERT_EQ(pf::RegSetValueExA(key, "d", 0, pf::kRegDword, dword, 4), 0);
  ASSERT_EQ(pf::RegCloseKey(key), 0);

  char buf[8] = {};
  int size = 8;
  EXPECT_EQ(GetRegKeyValue("HKCU\\N", "d", buf, &size, RegistryDefault), 0);
  EXPECT_EQ(size, 4) << "filled though the type is wrong";
  vstring out("stale");
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\N"), vstring("d"), out, RegistryDefault), 0);
  EXPECT_STREQ(out.optr(), "AB");

  txulong d = 7;
  EXPECT_EQ(GetRegKeyDWordValue("HKCU\\N", "d", d, RegistryDefault), 1);
  EXPECT_EQ(d, 0x4241u);
  ASSERT_EQ(set("HKCU\\N", "s", "xyz"), 1);
  EXPECT_EQ(GetRegKeyDWordValue("HKCU\\N", "s", d, RegistryDefault), 0);
}

TEST_F(Registry, TextReaderLimits) {
  vstring out("stale");
  const std::string k1024(1024, 'q');
  ASSERT_EQ(set("HKCU\\L", "fits", k1024.c_str()), 1);
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\L"), vstring("fits"), out, RegistryDefault), 1);
  EXPECT_EQ(out.len(), 1024u) << "a text without its end byte still ends";
  ASSERT_EQ(set("HKCU\\L", "long", (k1024 + "z").c_str()), 1);
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\L"), vstring("long"), out, RegistryDefault), 0);
  EXPECT_EQ(out.len(), 0u);

  char small[4];
  int size = 4;
  EXPECT_EQ(GetRegKeyValue("HKCU\\L", "fits", small, &size, RegistryDefault), 0);
  EXPECT_EQ(size, 1024) << "the size needed";
  size = -1;
  EXPECT_EQ(GetRegKeyValue("HKCU\\L", "fits", small, &size, RegistryDefault), 0);
  EXPECT_EQ(GetRegKeyValue("HKCU\\L", "fits", small, nullptr, RegistryDefault), 0);
  EXPECT_EQ(SetRegKeyValue("HKCU\\L", "neg", "x", -5, RegistryDefault), 0);
  EXPECT_EQ(SetRegKeyValue("HKCU\\L", "null", nullptr, 3, RegistryDefault), 0);
  EXPECT_EQ(SetRegKeyValue("HKCU\\L", "nothing", nullptr, 0, RegistryDefault), 1);
  EXPECT_EQ(get("HKCU\\L", "nothing"), "");
}

TEST_F(Registry, GetRegKeyDWordFallsBackOnMissingKeyOrValue) {
  HKEY key = nullptr;
  ASSERT_EQ(pf::RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Soft\\App", 0, nullptr, 0, 0x20006, nullptr,
                                &key, nullptr),
            0);
  const unsigned char five[4] = {5, 0, 0, 0};
  ASSERT_EQ(pf::RegSetValueExA(key, "n", 0, pf::kRegDword, five, 4), 0);
  ASSERT_EQ(pf::RegSetValueExA(key, "s", 0, pf::kRegSz,
                               reinterpret_cast<const unsigned char*>("ab"), 2), 0);
  ASSERT_EQ(pf::RegCloseKey(key), 0);
  struct Case {
    const char* subkey;
    const char* value;
    int result;
    txulong data;
  };
  const Case cases[] = {
      {"Soft\\App", "n", 1, 5},  {"Soft\\App", "gone", 1, 99}, {"Soft\\Gone", "n", 1, 99},
      {"Soft\\App", "s", 0, 0x6261}, {"Soft\\\\App", "n", 1, 99},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.subkey) + " " + c.value);
    txulong d = 0;
    EXPECT_EQ(GetRegKeyDWord(HKEY_LOCAL_MACHINE, c.subkey, c.value, d, 99, RegistryDefault),
              c.result);
    EXPECT_EQ(d, c.data);
  }
  txulong d = 0;
  EXPECT_EQ(GetRegKeyDWord(reinterpret_cast<HKEY>(std::uintptr_t{0x42}), "x", "n", d, 3,
                           RegistryDefault),
            0)
      << "a bad handle is no missing key";
  EXPECT_EQ(d, 3u);
}

TEST_F(Registry, SetCreatesThenWritesThroughReadThenWrite) {
  pf::registry_trace(true);
  ASSERT_EQ(set("HKCU\\A\\B", "v", "1"), 1);
  const std::vector<std::string> first = {
      "open A 0x20019", "create A 0x20006", "create B 0x20006", "set v", "close", "close"};
  EXPECT_EQ(pf::registry_take_trace(), first);
  ASSERT_EQ(set("HKCU\\A\\B", "v", "2"), 1);
  const std::vector<std::string> second = {"open A 0x20019", "open B 0x20019", "close",
                                           "open B 0x20002", "set v",          "close",
                                           "close"};
  EXPECT_EQ(pf::registry_take_trace(), second);
  EXPECT_EQ(get("HKCU\\A\\B", "v"), "2");
  pf::registry_take_trace();
  // The deepest key that exists is closed and taken again by the create call.
  ASSERT_EQ(set("HKCU\\A\\C", "v", "3"), 1);
  const std::vector<std::string> third = {"open A 0x20019", "open C 0x20019", "close",
                                          "create A 0x20006", "create C 0x20006", "set v",
                                          "close", "close"};
  EXPECT_EQ(pf::registry_take_trace(), third);
}

TEST_F(Registry, DeleteOpensTheLastComponentWithTheDeletingMask) {
  ASSERT_EQ(set("HKLM\\A\\B\\C", "v", "1"), 1);
  pf::registry_trace(true);
  EXPECT_EQ(DeleteRegKeyTree("HKLM\\A\\B", Registry32), 0) << "the other view holds nothing";
  EXPECT_EQ(DeleteRegKeyTree("HKLM\\A\\B", RegistryDefault), 1);
  const std::vector<std::string> expected = {"open A 0x20219", "open A 0x20019",
                                             "open B 0x3001B", "delete", "close", "close"};
  EXPECT_EQ(pf::registry_take_trace(), expected);
  EXPECT_EQ(GetRegKeyValue("HKLM\\A", nullptr, nullptr, nullptr, RegistryDefault), 1);
  EXPECT_EQ(GetRegKeyValue("HKLM\\A\\B", nullptr, nullptr, nullptr, RegistryDefault), 0);
  EXPECT_EQ(GetRegKeyValue("HKLM\\A\\B\\C", nullptr, nullptr, nullptr, RegistryDefault), 0);
}

TEST_F(Registry, DeleteRefusesEmptyNullAndRoots) {
  ASSERT_EQ(set("HKCU\\Keep", "v", "1"), 1);
  pf::registry_trace(true);
  for (const char* key : {"", "HKCU", "HKCU\\", "HKEY_CURRENT_USER", "hkcu\\Keep"}) {
    SCOPED_TRACE(key);
    EXPECT_EQ(DeleteRegKeyTree(key, RegistryDefault), 0);
    EXPECT_EQ(DeleteRegKeyTree(vstring(key), RegistryDefault), 0);
  }
  EXPECT_EQ(DeleteRegKeyTree(static_cast<const char*>(nullptr), RegistryDefault), 0);
  EXPECT_TRUE(pf::registry_take_trace().empty());
  EXPECT_EQ(get("HKCU\\Keep", "v"), "1");
}

TEST_F(Registry, SetOnRootAloneFails) {
  EXPECT_EQ(set("HKCU", "v", "x"), 0);
  EXPECT_EQ(set("HKCU\\", "v", "x"), 0);
  EXPECT_EQ(set("", "v", "x"), 0);
  EXPECT_EQ(SetRegKeyValue(nullptr, "v", "x", 1, RegistryDefault), 0);
  EXPECT_EQ(set("HKCU\\\\x", "v", "x"), 0) << "an empty key name cannot be made";
}

TEST_F(Registry, ViewsAreSeparateForMachineSharedForUser) {
  ASSERT_EQ(set("HKLM\\V", "v", "32", Registry32), 1);
  ASSERT_EQ(set("HKLM\\V", "v", "64", Registry64), 1);
  EXPECT_EQ(get("HKLM\\V", "v", Registry32), "32");
  EXPECT_EQ(get("HKLM\\V", "v", Registry64), "64");
  EXPECT_EQ(get("HKLM\\V", "v", RegistryDefault), sizeof(void*) == 8 ? "64" : "32");
  EXPECT_EQ(get("HKLM\\V", "v", static_cast<RegistryBitness>(77)),
            get("HKLM\\V", "v", RegistryDefault));
  ASSERT_EQ(set("HKCU\\V", "v", "shared", Registry32), 1);
  EXPECT_EQ(get("HKCU\\V", "v", Registry64), "shared");
}

TEST_F(Registry, FailedPlatformCallsGiveZero) {
  ASSERT_EQ(set("HKCU\\F\\G", "v", "1"), 1);
  struct Case {
    const char* kind;
    int (*run)();
  };
  const Case cases[] = {
      {"close", [] { return set("HKCU\\F\\G", "v", "2"); }},
      {"set", [] { return set("HKCU\\F\\G", "v", "2"); }},
      {"create", [] { return set("HKCU\\F\\New", "v", "2"); }},
      {"query", [] { return get("HKCU\\F\\G", "v") == "<fail>" ? 0 : 1; }},
      {"close", [] { return get("HKCU\\F\\G", "v") == "<fail>" ? 0 : 1; }},
      {"delete", [] { return DeleteRegKeyTree("HKCU\\F\\G", RegistryDefault); }},
      {"open", [] { return DeleteRegKeyTree("HKCU\\F\\G", RegistryDefault); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.kind);
    pf::registry_fail_next(c.kind, pf::kRegAccessDenied);
    EXPECT_EQ(c.run(), 0);
    EXPECT_EQ(pf::registry_open_handles(), 0);
  }
  EXPECT_EQ(get("HKCU\\F\\G", "v"), "1") << "no failed write changed the value";
}

TEST_F(Registry, VstringForms) {
  ASSERT_EQ(SetRegKeyValue(vstring("HKCU\\W"), vstring("name"), vstring("val\xE9"),
                           RegistryDefault), 1);
  vstring out;
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\W"), vstring("name"), out, RegistryDefault), 1);
  EXPECT_STREQ(out.optr(), "val\xE9");
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\W"), vstring(), out, RegistryDefault), 0)
      << "an empty name asks for the default value, which is not there";
  EXPECT_EQ(out.len(), 0u);
  EXPECT_EQ(SetRegKeyValue(vstring("HKCU\\W"), vstring(), vstring(), RegistryDefault), 1);
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\W"), vstring(), out, RegistryDefault), 1);
  EXPECT_EQ(out.len(), 0u);
  EXPECT_EQ(DeleteRegKeyTree(vstring("HKCU\\W"), RegistryDefault), 1);
}

TEST_F(Registry, HostileKeyTexts) {
  const std::string huge(4 << 20, 'k');
  std::string manySlashes = "HKCU";
  manySlashes += std::string(1 << 20, '\\');
  std::string high = "HKCU\\";
  for (int b = 0x81; b <= 0xFF; ++b) high += static_cast<char>(b);
  pf::registry_trace(true);
  const std::string* keys[] = {&huge, &manySlashes};
  for (const std::string* key : keys) {
    EXPECT_EQ(set(key->c_str(), "v", "x"), 0);
    EXPECT_EQ(get(key->c_str(), "v"), "<fail>");
    EXPECT_EQ(DeleteRegKeyTree(key->c_str(), RegistryDefault), 0);
  }
  EXPECT_TRUE(pf::registry_take_trace().empty()) << "refused before any call";
  EXPECT_EQ(set(high.c_str(), "v", "x"), 1) << "127 high bytes fit one component";
  EXPECT_EQ(get(high.c_str(), "v"), "x");
  const std::string huge_value(1 << 20, 'v');
  EXPECT_EQ(set("HKCU\\H", huge_value.c_str(), huge_value.c_str()), 1);
  vstring out;
  EXPECT_EQ(GetRegKeyValue(vstring("HKCU\\H"), vstring(huge_value.c_str()), out,
                           RegistryDefault), 0);
  EXPECT_EQ(out.len(), 0u);
}

TEST_F(Registry, ConcurrentWritersKeepTheStoreWhole) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t] {
      const std::string key = "HKCU\\T\\" + std::to_string(t);
      for (int i = 0; i < 200; ++i) {
        set(key.c_str(), "v", std::to_string(i).c_str());
        get("HKCU\\T\\0", "v");
      }
    });
  }
  for (std::thread& th : threads) th.join();
  for (int t = 0; t < 4; ++t) EXPECT_EQ(get(("HKCU\\T\\" + std::to_string(t)).c_str(), "v"), "199");
}

TEST(FileSystem, CheckDirExists) {
  char dir[] = "/tmp/txc_dirXXXXXX";
  ASSERT_NE(::mkdtemp(dir), nullptr);
  const std::string file = std::string(dir) + "/plain";
  std::FILE* f = std::fopen(file.c_str(), "w");
  ASSERT_NE(f, nullptr);
  std::fclose(f);
  struct Case {
    std::string path;
    int result;
  };
  const Case cases[] = {
      {dir, 1}, {std::string(dir) + "/", 1}, {file, 0}, {std::string(dir) + "/missing", 0},
      {"", 0},  {std::string(1 << 20, 'a'), 0}, {"\x80\xFF", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path.substr(0, 40));
    vstring p(c.path.c_str());
    EXPECT_EQ(CheckDirExists(p), c.result);
  }
  std::remove(file.c_str());
  ::rmdir(dir);
}

TEST(FileSystem, SixtyFourBitAndDebugOutput) {
  EXPECT_EQ(IsRunningOn64BitOS(), 1);
  DebugOutput("%s %d", "ignored", 1);
  DebugOutput(nullptr);
}

}  // namespace
