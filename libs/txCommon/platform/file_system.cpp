// File attributes and the system's word size, from POSIX.
//
// GetFileAttributesA answers with the Windows attribute bits the library
// reads: only "is a directory" matters to it, so anything else that exists is
// a normal file.
#include <txCommon/internal/platform_registry.h>

#include <sys/stat.h>
#include <sys/utsname.h>

#include <cstring>

namespace txc::platform {

RegDword GetFileAttributesA(const char* path) {
  if (path == nullptr) return kInvalidFileAttributes;
  struct stat info;
  if (::stat(path, &info) != 0) return kInvalidFileAttributes;
  return S_ISDIR(info.st_mode) ? kFileAttributeDirectory : kFileAttributeNormal;
}

bool is_64bit_os() {
  if (sizeof(void*) == 8) return true;
  // A 32-bit build may still run on a 64-bit kernel: ask the kernel.
  struct utsname name;
  if (::uname(&name) != 0) return false;
  return std::strstr(name.machine, "64") != nullptr;
}

}  // namespace txc::platform
