#include "model/file_faults.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <limits>

#include "support/direct_calls.h"

namespace {

struct ArmedFault {
  brivane::SystemCall Call = brivane::SystemCall::Open;
  int Error = 0;
  int Skipped = 0;
  int Times = 0;
  int Struck = 0;
};

ArmedFault armed;
std::size_t mostBytes = std::numeric_limits<std::size_t>::max();

/// Whether this call is to fail; sets errno.
bool Strikes(brivane::SystemCall call) {
  if (armed.Error == 0 || armed.Call != call) return false;
  if (armed.Skipped > 0) {
    --armed.Skipped;
    return false;
  }
  if (armed.Struck == armed.Times) return false;
  ++armed.Struck;
  errno = armed.Error;
  return true;
}

}  // namespace

namespace brivane {

SystemFault::SystemFault(SystemCall call, int error, int skipped, int times) {
  armed = {call, error, skipped, times, 0};
}
SystemFault::~SystemFault() { armed = {}; }
int SystemFault::Struck() const { return armed.Struck; }

ShortWrites::ShortWrites(std::size_t most) { mostBytes = most; }
ShortWrites::~ShortWrites() { mostBytes = std::numeric_limits<std::size_t>::max(); }

}  // namespace brivane

using brivane::SystemCall;
namespace direct = brivane::direct;

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (Strikes(SystemCall::Open)) return -1;
  return direct::Open(path, flags, mode);
}

ssize_t read(int descriptor, void* buffer, std::size_t count) {
  if (Strikes(SystemCall::Read)) return -1;
  return direct::Read(descriptor, buffer, count);
}

ssize_t write(int descriptor, const void* buffer, std::size_t count) {
  if (Strikes(SystemCall::Write)) return -1;
  if (mostBytes == 0) return 0;
  return direct::Write(descriptor, buffer, std::min(count, mostBytes));
}

int fsync(int descriptor) {
  if (Strikes(SystemCall::Flush)) return -1;
  return direct::Flush(descriptor);
}

int close(int descriptor) {
  const int result = direct::Close(descriptor);
  return Strikes(SystemCall::Close) ? -1 : result;
}

int rename(const char* from, const char* to) noexcept {
  if (Strikes(SystemCall::Rename)) return -1;
  return direct::Rename(from, to);
}

int unlink(const char* path) noexcept {
  if (Strikes(SystemCall::Unlink)) return -1;
  return direct::Unlink(path);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  if (Strikes(SystemCall::ChangeMode)) return -1;
  return direct::ChangeMode(descriptor, mode);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  if (Strikes(SystemCall::ChangeOwner)) return -1;
  return direct::ChangeOwner(descriptor, owner, group);
}

int fstat(int descriptor, struct stat* status) noexcept {
  if (Strikes(SystemCall::Status)) return -1;
  return direct::Status(descriptor, status);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  if (Strikes(SystemCall::Access)) return -1;
  return direct::Access(folder, path, mode, flags);
}

int fcntl(int descriptor, int command, ...) {
  std::va_list arguments;
  va_start(arguments, command);
  const long argument = va_arg(arguments, long);
  va_end(arguments);
  if (Strikes(SystemCall::Control)) return -1;
  return direct::Control(descriptor, command, argument);
}

}  // extern "C"
