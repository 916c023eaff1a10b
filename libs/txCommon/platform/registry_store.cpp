// The registry where the operating system has none: an in-process tree of
// keys and typed values behind the ADVAPI32/SHLWAPI calls of the platform
// layer, with the system's status codes and access checks.
//
// Keys are shared between the tree and the open handles, so a handle of a
// key that another handle deleted stays valid as a handle and answers
// ERROR_KEY_DELETED, as the system does.
#include <txCommon/internal/platform_registry.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace txc::platform {
namespace {

// Registry names compare without regard to case; ASCII folding is enough for
// the names this library writes.
struct NameLess {
  bool operator()(const std::string& a, const std::string& b) const {
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i) {
      const int x = fold(a[i]);
      const int y = fold(b[i]);
      if (x != y) return x < y;
    }
    return a.size() < b.size();
  }
  static int fold(char c) {
    const unsigned char u = static_cast<unsigned char>(c);
    return (u >= 'a' && u <= 'z') ? u - 32 : u;
  }
};

struct Value {
  RegDword type = 0;
  std::vector<unsigned char> bytes;
};

struct Key {
  std::map<std::string, std::shared_ptr<Key>, NameLess> subkeys;
  std::map<std::string, Value, NameLess> values;
  bool deleted = false;
  bool root = false;
};

struct OpenKey {
  std::shared_ptr<Key> key;
  RegDword access = 0;
};

enum RootIndex { kClasses32, kClasses64, kMachine32, kMachine64, kUser, kUsers, kRootCount };

struct Store {
  std::mutex lock;
  std::shared_ptr<Key> roots[kRootCount];
  std::map<std::uintptr_t, OpenKey> handles;
  std::uintptr_t nextHandle = 0x1000;
  bool tracing = false;
  std::vector<std::string> trace;
  std::string failKind;
  RegStatus failStatus = kRegSuccess;

  Store() { reset(); }
  void reset() {
    for (auto& r : roots) {
      r = std::make_shared<Key>();
      r->root = true;
    }
    handles.clear();
    trace.clear();
    failKind.clear();
  }
};

Store& store() {
  static Store s;
  return s;
}

void note(Store& s, const char* kind, const char* name, RegDword mask, bool withMask) {
  if (!s.tracing) return;
  std::string line = kind;
  if (name != nullptr) {
    line += ' ';
    line += name;
  }
  if (withMask) {
    char hex[16];
    std::snprintf(hex, sizeof hex, " 0x%X", static_cast<unsigned>(mask));
    line += hex;
  }
  s.trace.push_back(line);
}

// The injected failure of a call of this kind, or success.
RegStatus injected(Store& s, const char* kind) {
  if (s.failKind.empty() || s.failKind != kind) return kRegSuccess;
  s.failKind.clear();
  return s.failStatus;
}

bool is_64bit_process() { return sizeof(void*) == 8; }

// The view a call asks for: its flag, or the process's own.
bool wants_32bit_view(RegDword access) {
  if ((access & kKeyWow64_32) != 0) return true;
  if ((access & kKeyWow64_64) != 0) return false;
  return !is_64bit_process();
}

// A predefined root, in the view of `access`; null for any other value.
std::shared_ptr<Key> predefined(Store& s, HKEY key, RegDword access) {
  const bool v32 = wants_32bit_view(access);
  if (key == HKEY_CLASSES_ROOT) return s.roots[v32 ? kClasses32 : kClasses64];
  if (key == HKEY_LOCAL_MACHINE) return s.roots[v32 ? kMachine32 : kMachine64];
  if (key == HKEY_CURRENT_USER) return s.roots[kUser];
  if (key == HKEY_USERS) return s.roots[kUsers];
  return nullptr;
}

// The key behind a handle, and the rights it was opened with (all of them
// for a root). Null with `status` set when the handle is unknown or its key
// is gone.
std::shared_ptr<Key> resolve(Store& s, HKEY key, RegDword access, RegDword& rights,
                             RegStatus& status) {
  if (std::shared_ptr<Key> root = predefined(s, key, access)) {
    rights = ~RegDword{0};
    return root;
  }
  const auto it = s.handles.find(reinterpret_cast<std::uintptr_t>(key));
  if (it == s.handles.end()) {
    status = kRegInvalidHandle;
    return nullptr;
  }
  if (it->second.key->deleted) {
    status = kRegKeyDeleted;
    return nullptr;
  }
  rights = it->second.access;
  return it->second.key;
}

// The components of a subkey path. Null and empty name the key itself; an
// empty component (a leading, doubled or trailing backslash) makes the path
// invalid.
bool split_path(const char* path, std::vector<std::string>& parts) {
  parts.clear();
  if (path == nullptr || *path == '\0') return true;
  const char* p = path;
  for (;;) {
    const char* end = std::strchr(p, '\\');
    const std::size_t n = end != nullptr ? static_cast<std::size_t>(end - p) : std::strlen(p);
    if (n == 0) return false;
    parts.emplace_back(p, n);
    if (end == nullptr) return true;
    p = end + 1;
  }
}

HKEY new_handle(Store& s, std::shared_ptr<Key> key, RegDword access) {
  const std::uintptr_t id = s.nextHandle;
  s.nextHandle += 4;
  s.handles[id] = OpenKey{std::move(key), access};
  return reinterpret_cast<HKEY>(id);
}

void mark_deleted(Key& key) {
  key.deleted = true;
  for (auto& child : key.subkeys) mark_deleted(*child.second);
  key.subkeys.clear();
  key.values.clear();
}

// The parent of `target` below `from`, found by search, for deletion.
Key* parent_of(Key& from, const Key* target, std::string& name) {
  for (auto& child : from.subkeys) {
    if (child.second.get() == target) {
      name = child.first;
      return &from;
    }
    if (Key* p = parent_of(*child.second, target, name)) return p;
  }
  return nullptr;
}

}  // namespace

RegStatus RegOpenKeyExA(HKEY key, const char* subKey, RegDword options, RegDword access,
                        HKEY* result) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "open", subKey != nullptr ? subKey : "", access, true);
  if (RegStatus st = injected(s, "open")) return st;
  if (result == nullptr || options != 0) return kRegInvalidParameter;
  if ((access & kKeyWow64_32) != 0 && (access & kKeyWow64_64) != 0) return kRegInvalidParameter;
  RegDword rights = 0;
  RegStatus status = kRegSuccess;
  std::shared_ptr<Key> at = resolve(s, key, access, rights, status);
  if (!at) return status;
  std::vector<std::string> parts;
  if (!split_path(subKey, parts)) return kRegFileNotFound;
  for (const std::string& part : parts) {
    const auto it = at->subkeys.find(part);
    if (it == at->subkeys.end()) return kRegFileNotFound;
    at = it->second;
  }
  *result = new_handle(s, std::move(at), access);
  return kRegSuccess;
}

RegStatus RegQueryValueExA(HKEY key, const char* name, RegDword* reserved, RegDword* type,
                           unsigned char* data, RegDword* size) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "query", name != nullptr ? name : "", 0, false);
  if (RegStatus st = injected(s, "query")) return st;
  if (reserved != nullptr) return kRegInvalidParameter;
  if (data != nullptr && size == nullptr) return kRegInvalidParameter;
  RegDword rights = 0;
  RegStatus status = kRegSuccess;
  std::shared_ptr<Key> at = resolve(s, key, 0, rights, status);
  if (!at) return status;
  if ((rights & kKeyQueryValue) == 0) return kRegAccessDenied;
  const auto it = at->values.find(name != nullptr ? name : "");
  if (it == at->values.end()) return kRegFileNotFound;
  const Value& v = it->second;
  if (type != nullptr) *type = v.type;
  const RegDword need = static_cast<RegDword>(v.bytes.size());
  if (size == nullptr) return kRegSuccess;
  if (data != nullptr && need > *size) {
    *size = need;
    return kRegMoreData;
  }
  if (data != nullptr && need != 0) std::memcpy(data, v.bytes.data(), need);
  *size = need;
  return kRegSuccess;
}

RegStatus RegSetValueExA(HKEY key, const char* name, RegDword reserved, RegDword type,
                         const unsigned char* data, RegDword size) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "set", name != nullptr ? name : "", 0, false);
  if (RegStatus st = injected(s, "set")) return st;
  if (reserved != 0) return kRegInvalidParameter;
  if (data == nullptr && size != 0) return kRegNoAccess;
  RegDword rights = 0;
  RegStatus status = kRegSuccess;
  std::shared_ptr<Key> at = resolve(s, key, 0, rights, status);
  if (!at) return status;
  if ((rights & kKeySetValue) == 0) return kRegAccessDenied;
  Value v;
  v.type = type;
  if (size != 0) v.bytes.assign(data, data + size);
  at->values[name != nullptr ? name : ""] = std::move(v);
  return kRegSuccess;
}

RegStatus RegCreateKeyExA(HKEY key, const char* subKey, RegDword reserved, char* classText,
                          RegDword options, RegDword access, void* security, HKEY* result,
                          RegDword* disposition) {
  static_cast<void>(classText);
  static_cast<void>(security);
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "create", subKey != nullptr ? subKey : "", access, true);
  if (RegStatus st = injected(s, "create")) return st;
  if (result == nullptr || reserved != 0 || options != 0) return kRegInvalidParameter;
  if ((access & kKeyWow64_32) != 0 && (access & kKeyWow64_64) != 0) return kRegInvalidParameter;
  RegDword rights = 0;
  RegStatus status = kRegSuccess;
  std::shared_ptr<Key> at = resolve(s, key, access, rights, status);
  if (!at) return status;
  std::vector<std::string> parts;
  if (!split_path(subKey, parts)) return kRegBadPathname;
  RegDword how = kRegOpenedExistingKey;
  for (const std::string& part : parts) {
    auto it = at->subkeys.find(part);
    if (it == at->subkeys.end()) {
      if ((rights & kKeyCreateSubKey) == 0) return kRegAccessDenied;
      it = at->subkeys.emplace(part, std::make_shared<Key>()).first;
      how = kRegCreatedNewKey;
    }
    at = it->second;
    rights = ~RegDword{0};  // below a key made or opened here, the caller made the path
  }
  if (disposition != nullptr) *disposition = how;
  *result = new_handle(s, std::move(at), access);
  return kRegSuccess;
}

RegStatus RegCloseKey(HKEY key) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "close", nullptr, 0, false);
  const RegStatus forced = injected(s, "close");
  if (predefined(s, key, 0)) return forced;
  const auto it = s.handles.find(reinterpret_cast<std::uintptr_t>(key));
  if (it == s.handles.end()) return forced != kRegSuccess ? forced : kRegInvalidHandle;
  s.handles.erase(it);
  return forced;
}

RegStatus SHDeleteKeyA(HKEY key, const char* subKey) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  note(s, "delete", subKey != nullptr && *subKey != '\0' ? subKey : nullptr, 0, false);
  if (RegStatus st = injected(s, "delete")) return st;
  RegDword rights = 0;
  RegStatus status = kRegSuccess;
  std::shared_ptr<Key> at = resolve(s, key, 0, rights, status);
  if (!at) return status;
  std::vector<std::string> parts;
  if (!split_path(subKey, parts)) return kRegFileNotFound;
  if (parts.empty()) {
    if (at->root) return kRegAccessDenied;
    if ((rights & kKeyDelete) == 0) return kRegAccessDenied;
  }
  for (const std::string& part : parts) {
    const auto it = at->subkeys.find(part);
    if (it == at->subkeys.end()) return kRegFileNotFound;
    at = it->second;
  }
  for (const auto& root : s.roots) {
    std::string name;
    if (Key* parent = parent_of(*root, at.get(), name)) {
      parent->subkeys.erase(name);
      break;
    }
  }
  mark_deleted(*at);
  return kRegSuccess;
}

void registry_reset() {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  s.reset();
}

int registry_open_handles() {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  return static_cast<int>(s.handles.size());
}

void registry_trace(bool on) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  s.tracing = on;
  s.trace.clear();
}

std::vector<std::string> registry_take_trace() {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  std::vector<std::string> out;
  out.swap(s.trace);
  return out;
}

void registry_fail_next(const char* kind, RegStatus status) {
  Store& s = store();
  std::lock_guard<std::mutex> guard(s.lock);
  s.failKind = kind != nullptr ? kind : "";
  s.failStatus = status;
}

}  // namespace txc::platform
