#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstddef>

/// The system's own calls, for programs that replace the library's functions of these names.
namespace brivane::direct {

inline int Open(const char* path, int flags, mode_t mode) {
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
inline ssize_t Read(int descriptor, void* buffer, std::size_t count) {
  return syscall(SYS_read, descriptor, buffer, count);
}
inline ssize_t Write(int descriptor, const void* buffer, std::size_t count) {
  return syscall(SYS_write, descriptor, buffer, count);
}
inline int Flush(int descriptor) { return static_cast<int>(syscall(SYS_fsync, descriptor)); }
inline int Close(int descriptor) { return static_cast<int>(syscall(SYS_close, descriptor)); }
inline int Truncate(int descriptor, off_t length) {
  return static_cast<int>(syscall(SYS_ftruncate, descriptor, length));
}
inline int Rename(const char* from, const char* to) {
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
inline int Unlink(const char* path) {
  return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
inline int ChangeMode(int descriptor, mode_t mode) {
  return static_cast<int>(syscall(SYS_fchmod, descriptor, mode));
}
inline int ChangeOwner(int descriptor, uid_t owner, gid_t group) {
  return static_cast<int>(syscall(SYS_fchown, descriptor, owner, group));
}
inline int Status(int descriptor, struct stat* status) {
  return fstatat(descriptor, "", status, AT_EMPTY_PATH);
}
inline int Access(int folder, const char* path, int mode, int flags) {
  return static_cast<int>(syscall(SYS_faccessat2, folder, path, mode, flags));
}
inline int Control(int descriptor, int command, long argument) {
  return static_cast<int>(syscall(SYS_fcntl, descriptor, command, argument));
}

}  // namespace brivane::direct
