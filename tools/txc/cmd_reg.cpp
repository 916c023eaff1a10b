// txc reg STEP...: registry operations by key text on the in-process store,
// which starts empty in each run, so one run takes a sequence of steps.
#include "command.h"

#include <txCommon/internal/platform_registry.h>
#include <txCommon/registry.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

// Key texts are full of backslashes; show them as they are, and only
// control and high bytes as \xNN.
std::string visible(const char* text, std::size_t n) {
  std::string out = "[";
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c < 0x20 || c >= 0x7F) {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "]";
}
std::string visible(const char* text) { return visible(text, std::strlen(text)); }

RegistryBitness view_named(const std::string& word, bool& isView) {
  isView = true;
  if (word == "--32") return Registry32;
  if (word == "--64") return Registry64;
  isView = word == "--default";
  return RegistryDefault;
}

// One step at args[at]; the number of arguments it took, or 0 for a bad step.
std::size_t step(const txc_tool::Args& args, std::size_t at, RegistryBitness& view) {
  const std::string& op = args[at];
  const std::size_t left = args.size() - at - 1;
  bool isView = false;
  const RegistryBitness named = view_named(op, isView);
  if (isView) {
    view = named;
    return 1;
  }
  if (op == "set" && left >= 3) {
    const char* data = args[at + 3].c_str();
    const int r = SetRegKeyValue(args[at + 1].c_str(), args[at + 2].c_str(), data,
                                 static_cast<int>(std::strlen(data)), view);
    std::printf("set %s %s = %s -> %d\n", visible(args[at + 1].c_str()).c_str(),
                visible(args[at + 2].c_str()).c_str(), visible(data).c_str(), r);
    return 4;
  }
  if (op == "get" && left >= 2) {
    vstring data;
    const int r = GetRegKeyValue(vstring(args[at + 1].c_str()), vstring(args[at + 2].c_str()),
                                 data, view);
    std::printf("get %s %s -> %d %s\n", visible(args[at + 1].c_str()).c_str(),
                visible(args[at + 2].c_str()).c_str(), r,
                visible(data.optr(), data.len()).c_str());
    return 3;
  }
  if (op == "test" && left >= 1) {
    const int r = GetRegKeyValue(args[at + 1].c_str(), nullptr, nullptr, nullptr, view);
    std::printf("test %s -> %d\n", visible(args[at + 1].c_str()).c_str(), r);
    return 2;
  }
  if (op == "delete" && left >= 1) {
    const int r = DeleteRegKeyTree(args[at + 1].c_str(), view);
    std::printf("delete %s -> %d\n", visible(args[at + 1].c_str()).c_str(), r);
    return 2;
  }
  if (op == "dir" && left >= 1) {
    vstring path(args[at + 1].c_str());
    std::printf("dir %s -> %d\n", visible(args[at + 1].c_str()).c_str(), CheckDirExists(path));
    return 2;
  }
  return 0;
}

int run_steps(const txc_tool::Args& args) {
  RegistryBitness view = RegistryDefault;
  for (std::size_t at = 0; at < args.size();) {
    const std::size_t took = step(args, at, view);
    if (took == 0) {
      std::fprintf(stderr, "txc reg: bad step at '%s'   (txc help reg)\n", args[at].c_str());
      return 2;
    }
    at += took;
  }
  return 0;
}

int run(const txc_tool::Args& args) {
  if (args.empty()) {
    std::fprintf(stderr, "usage: txc reg STEP...   (txc help reg)\n");
    return 2;
  }
  return run_steps(args);
}

void tour() {
  run_steps({"set", "HKCU\\Software\\Tarnix\\Paths", "Data", "C:\\data", "get",
             "HKCU\\Software\\Tarnix\\Paths", "Data", "test", "HKEY_CURRENT_USER\\Software",
             "test", "hkcu\\Software", "--32", "get", "HKCU\\Software\\Tarnix\\Paths", "Data",
             "--default", "delete", "HKCU\\Software\\Tarnix", "test",
             "HKCU\\Software\\Tarnix", "dir", "/tmp"});
}

const txc_tool::Registration kRegistration{txc_tool::Command{
    "reg", nullptr, "registry values by key text (in-process store), CheckDirExists",
    "txc reg STEP...   steps run in order on one store that starts empty:\n"
    "  set KEY VALUE DATA   SetRegKeyValue (missing keys are created)\n"
    "  get KEY VALUE        GetRegKeyValue into a vstring ('' is the default value)\n"
    "  test KEY             GetRegKeyValue with no value: does the key open?\n"
    "  delete KEY           DeleteRegKeyTree\n"
    "  dir PATH             CheckDirExists\n"
    "  --32 | --64 | --default   the registry view of the steps that follow\n"
    "  KEY: ROOT\\A\\B with ROOT one of HKEY_LOCAL_MACHINE HKLM HKEY_CLASSES_ROOT HKCR\n"
    "       HKEY_USERS HKU HKEY_CURRENT_USER HKCU (case counts).\n"
    "  Each step prints its result, 1 or 0.",
    run, tour}};

}  // namespace
