// Registry values by key text: the key walk and the five public operations.
//
// A key text is cut into components before anything is opened, so a text
// with an unknown root, a component of 128 bytes or more, or too many
// components costs no platform call at all. Every handle lives in the call's
// frame and is closed, deepest first, on every way out.
#include <txCommon/registry.h>

#include <txCommon/internal/platform_registry.h>

#include <cstring>

namespace {

namespace pf = txc::platform;
using pf::RegDword;

// Handle array of the walk: the root and at most 15 keys below it.
constexpr int kMaxHandles = 16;
// The longest component, without its end byte.
constexpr std::size_t kMaxComponent = 127;

constexpr RegDword kMaskRead = 0x20019;    // KEY_READ
constexpr RegDword kMaskWrite = 0x20002;   // KEY_WRITE less KEY_CREATE_SUB_KEY
constexpr RegDword kMaskCreate = 0x20006;  // KEY_WRITE
constexpr RegDword kMaskDelete = 0x3001B;  // KEY_READ | KEY_SET_VALUE | DELETE

RegDword view_flag(RegistryBitness bitness) {
  if (bitness == Registry32) return pf::kKeyWow64_32;
  if (bitness == Registry64) return pf::kKeyWow64_64;
  return 0;
}

struct RootName {
  const char* longForm;
  const char* shortForm;
  HKEY handle;
};

HKEY root_of(const char* text, std::size_t n) {
  const RootName roots[] = {
      {"HKEY_LOCAL_MACHINE", "HKLM", HKEY_LOCAL_MACHINE},
      {"HKEY_CLASSES_ROOT", "HKCR", HKEY_CLASSES_ROOT},
      {"HKEY_USERS", "HKU", HKEY_USERS},
      {"HKEY_CURRENT_USER", "HKCU", HKEY_CURRENT_USER},
  };
  for (const RootName& r : roots) {
    for (const char* name : {r.longForm, r.shortForm}) {
      if (std::strlen(name) == n && std::memcmp(name, text, n) == 0) return r.handle;
    }
  }
  return nullptr;
}

// The components of a key text, as (start, length) pairs into it.
struct KeyPath {
  const char* text = nullptr;
  int count = 0;
  std::size_t start[kMaxHandles] = {};
  std::size_t length[kMaxHandles] = {};
  HKEY root = nullptr;

  // One component, with its end byte, in `out` (kMaxComponent + 1 bytes).
  void copy(int i, char* out) const {
    std::memcpy(out, text + start[i], length[i]);
    out[length[i]] = '\0';
  }
};

// Cuts `text` into components. A component takes its first byte whatever it
// is, a backslash included, and runs to the next backslash, which is stepped
// over: "HKCU\\x" gives "HKCU" and "\x", "HKCU\" gives "HKCU" alone. False for
// no component, an unknown root, a component longer than kMaxComponent, or
// more than `maxCount` components.
bool cut_key_path(const char* text, int maxCount, KeyPath& path) {
  path = KeyPath{};
  path.text = text;
  if (text == nullptr) return false;
  std::size_t at = 0;
  while (text[at] != '\0') {
    if (path.count == maxCount) return false;
    std::size_t end = at + 1;
    while (text[end] != '\0' && text[end] != '\\') {
      if (end - at >= kMaxComponent) return false;
      ++end;
    }
    path.start[path.count] = at;
    path.length[path.count] = end - at;
    ++path.count;
    at = text[end] == '\\' ? end + 1 : end;
  }
  if (path.count == 0) return false;
  path.root = root_of(text, path.length[0]);
  return path.root != nullptr;
}

// The open keys of one call. Entry 0 is the root, never opened or closed.
class KeyChain {
public:
  explicit KeyChain(HKEY root) { handles_[0] = root; }
  KeyChain(const KeyChain&) = delete;
  KeyChain& operator=(const KeyChain&) = delete;
  ~KeyChain() { static_cast<void>(close_all()); }

  HKEY at(int i) const { return handles_[i]; }
  int deepest() const { return depth_; }

  // Opens components 1, 2, ... of `path` below each other, the last one
  // with `lastMask`; stops at the first failure. True if all opened.
  bool open(const KeyPath& path, RegDword mask, RegDword lastMask) {
    char name[kMaxComponent + 1];
    for (int i = depth_ + 1; i < path.count; ++i) {
      path.copy(i, name);
      HKEY next = nullptr;
      const RegDword access = i == path.count - 1 ? lastMask : mask;
      if (pf::RegOpenKeyExA(handles_[i - 1], name, 0, access, &next) != pf::kRegSuccess) {
        return false;
      }
      handles_[i] = next;
      depth_ = i;
    }
    return true;
  }

  // Opens or makes components from depth() + 1 on, each below the one before.
  bool create(const KeyPath& path, RegDword access) {
    char name[kMaxComponent + 1];
    char noClass[1] = {'\0'};
    for (int i = depth_ + 1; i < path.count; ++i) {
      path.copy(i, name);
      HKEY next = nullptr;
      RegDword disposition = 0;
      if (pf::RegCreateKeyExA(handles_[i - 1], name, 0, noClass, 0, access, nullptr, &next,
                              &disposition) != pf::kRegSuccess) {
        return false;
      }
      handles_[i] = next;
      depth_ = i;
    }
    return true;
  }

  // Opens component `i` once more, below its parent, in place of the handle
  // held for it.
  bool reopen(const KeyPath& path, int i, RegDword access) {
    if (!close_deepest()) return false;
    char name[kMaxComponent + 1];
    path.copy(i, name);
    HKEY next = nullptr;
    if (pf::RegOpenKeyExA(handles_[i - 1], name, 0, access, &next) != pf::kRegSuccess) {
      return false;
    }
    handles_[i] = next;
    depth_ = i;
    return true;
  }

  // Closes the deepest open key; false if the close failed.
  bool close_deepest() {
    if (depth_ == 0) return true;
    const bool ok = pf::RegCloseKey(handles_[depth_]) == pf::kRegSuccess;
    handles_[depth_--] = nullptr;
    return ok;
  }

  // Closes every open key, deepest first; false if any close failed.
  bool close_all() {
    bool ok = true;
    while (depth_ > 0) ok = close_deepest() && ok;
    return ok;
  }

private:
  HKEY handles_[kMaxHandles] = {};
  int depth_ = 0;
};

// The common road of both readers: walk, then query the deepest key.
int read_value(const char* key, const char* value, RegDword wantType, unsigned char* data,
               RegDword* size, RegistryBitness bitness) {
  KeyPath path;
  if (!cut_key_path(key, kMaxHandles - 1, path)) return 0;
  KeyChain chain(path.root);
  const RegDword mask = kMaskRead | view_flag(bitness);
  bool ok = chain.open(path, mask, mask);
  if (ok && value != nullptr) {
    RegDword type = 0;
    ok = pf::RegQueryValueExA(chain.at(chain.deepest()), value, nullptr, &type, data, size) ==
             pf::kRegSuccess &&
         type == wantType;
  }
  return chain.close_all() && ok ? 1 : 0;
}

const char* text_of(const vstring& s) { return s.len() != 0 ? s.optr() : ""; }

}  // namespace

int GetRegKeyValue(const char* key, const char* value, char* data, int* size,
                   RegistryBitness bitness) {
  RegDword room = 0;
  RegDword* roomPtr = nullptr;
  if (size != nullptr) {
    if (*size < 0) return 0;
    room = static_cast<RegDword>(*size);
    roomPtr = &room;
  }
  const int result = read_value(key, value, pf::kRegSz, reinterpret_cast<unsigned char*>(data),
                                roomPtr, bitness);
  // The size read goes back even when the type was wrong, as the data does.
  if (size != nullptr && value != nullptr && room <= 0x7FFFFFFFu) {
    *size = static_cast<int>(room);
  }
  return result;
}

int GetRegKeyValue(const vstring& key, const vstring& value, vstring& data,
                   RegistryBitness bitness) {
  // One byte beyond the 1024 offered stays zero, so a text stored without its
  // end byte still ends.
  constexpr int kRoom = 1024;
  char buffer[kRoom + 1] = {};
  int size = kRoom;
  const int result = GetRegKeyValue(text_of(key), text_of(value), buffer, &size, bitness);
  if (buffer[0] != '\0') {
    data = buffer;
  } else {
    data.clear();
  }
  return result;
}

int GetRegKeyDWordValue(const char* key, const char* value, txulong& data,
                        RegistryBitness bitness) {
  unsigned char bytes[4];
  std::memcpy(bytes, &data, 4);
  RegDword size = 4;
  const int result = read_value(key, value, pf::kRegDword, bytes, &size, bitness);
  std::memcpy(&data, bytes, 4);
  return result;
}

int GetRegKeyDWord(HKEY parent, const char* subkey, const char* value, txulong& data,
                   txulong fallback, RegistryBitness bitness) {
  data = fallback;
  HKEY key = nullptr;
  const pf::RegStatus opened =
      pf::RegOpenKeyExA(parent, subkey, 0, kMaskRead | view_flag(bitness), &key);
  if (opened == pf::kRegFileNotFound) return 1;
  if (opened != pf::kRegSuccess) return 0;
  unsigned char bytes[4];
  std::memcpy(bytes, &data, 4);
  RegDword size = 4;
  RegDword type = 0;
  const pf::RegStatus read = pf::RegQueryValueExA(key, value, nullptr, &type, bytes, &size);
  std::memcpy(&data, bytes, 4);
  int result = 0;
  if (read == pf::kRegFileNotFound) {
    data = fallback;
    result = 1;
  } else if (read == pf::kRegSuccess) {
    result = type == pf::kRegDword ? 1 : 0;
  }
  pf::RegCloseKey(key);
  return result;
}

int SetRegKeyValue(const char* key, const char* value, const char* data, int length,
                   RegistryBitness bitness) {
  if (length < 0) return 0;
  KeyPath path;
  if (!cut_key_path(key, kMaxHandles, path)) return 0;
  // A root alone has no parent to reopen it from.
  if (path.count < 2) return 0;
  const RegDword view = view_flag(bitness);
  KeyChain chain(path.root);
  bool ok;
  if (chain.open(path, kMaskRead | view, kMaskRead | view)) {
    ok = chain.reopen(path, path.count - 1, kMaskWrite | view);
  } else {
    // Start again at the deepest key that opened (made writable by opening it
    // anew through the create call), or at the root.
    if (chain.deepest() > 0 && !chain.close_deepest()) return 0;
    ok = chain.create(path, kMaskCreate | view);
  }
  if (ok) {
    ok = pf::RegSetValueExA(chain.at(chain.deepest()), value, 0, pf::kRegSz,
                            reinterpret_cast<const unsigned char*>(data),
                            static_cast<RegDword>(length)) == pf::kRegSuccess;
  }
  return chain.close_all() && ok ? 1 : 0;
}

int SetRegKeyValue(const vstring& key, const vstring& value, const vstring& data,
                   RegistryBitness bitness) {
  return SetRegKeyValue(text_of(key), text_of(value), text_of(data),
                        static_cast<int>(data.len()), bitness);
}

int DeleteRegKeyTree(const char* key, RegistryBitness bitness) {
  KeyPath path;
  if (!cut_key_path(key != nullptr ? key : "", kMaxHandles, path)) return 0;
  // Deleting a root would empty a whole hive; the walk refuses it.
  if (path.count < 2) return 0;
  const RegDword view = view_flag(bitness);
  KeyChain chain(path.root);
  bool ok = chain.open(path, kMaskRead | view, kMaskDelete | view) &&
            pf::SHDeleteKeyA(chain.at(chain.deepest()), "") == pf::kRegSuccess;
  return chain.close_all() && ok ? 1 : 0;
}

int DeleteRegKeyTree(const vstring& key, RegistryBitness bitness) {
  return DeleteRegKeyTree(text_of(key), bitness);
}

int CheckDirExists(vstring& path) {
  const RegDword attributes = pf::GetFileAttributesA(text_of(path));
  if (attributes == pf::kInvalidFileAttributes) return 0;
  return (attributes & pf::kFileAttributeDirectory) != 0 ? 1 : 0;
}

int IsRunningOn64BitOS() { return pf::is_64bit_os() ? 1 : 0; }

void DebugOutput(const char* format, ...) { static_cast<void>(format); }
