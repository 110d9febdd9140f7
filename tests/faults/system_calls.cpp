#include "faults/system_calls.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <map>
#include <optional>
#include <system_error>

#include "support/direct_calls.h"

namespace {

using brivane::CallEffect;
using brivane::CallReach;

struct Watch {
  bool Armed = false;
  brivane::CallFault Fault;
  std::vector<std::string> Names;
  std::vector<std::string> Struck;
};

Watch watch;
constexpr std::size_t kEverything = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kShortWrite = 97;
std::size_t mostTaken = kEverything;  // of a write, bytes
bool isWatching = false;  // constant from the start: the libraries call what is replaced here

bool IsMet(const std::string& name, int number) {
  const brivane::CallFault& fault = watch.Fault;
  if (!watch.Armed || number < fault.At) return false;
  if (static_cast<int>(watch.Struck.size()) >= fault.Times) return false;
  if (number == fault.At || fault.Reach == CallReach::AllCalls) return true;
  return fault.Reach == CallReach::SameCall &&
         name == watch.Names[static_cast<std::size_t>(fault.At)];
}

/// Counts a call. What is to befall it; nothing where it goes through.
std::optional<CallEffect> Count(const char* name) {
  if (!isWatching) return std::nullopt;
  const int number = static_cast<int>(watch.Names.size());
  watch.Names.emplace_back(name);
  if (!IsMet(name, number)) return std::nullopt;
  watch.Struck.emplace_back(name);
  return watch.Fault.Effect;
}

[[noreturn]] void Die() {
  kill(getpid(), SIGKILL);
  for (;;) pause();
}

/// Makes the call unless a fault strikes it.
template <typename Call>
auto Watched(const char* name, Call call) {
  const std::optional<CallEffect> effect = Count(name);
  if (effect == CallEffect::Kill) Die();
  if (effect == CallEffect::Fail) {
    // A file that cannot be closed in order is closed all the same.
    if (watch.Names.back() == "close") call();
    errno = watch.Fault.Error;
    return decltype(call())(-1);
  }
  mostTaken = kEverything;
  if (effect == CallEffect::None) mostTaken = 0;
  if (effect == CallEffect::Short) mostTaken = kShortWrite;
  const auto result = call();
  if (effect == CallEffect::KillThen) Die();
  return result;
}

}  // namespace

namespace brivane {

std::string CallFault::Words(const std::vector<std::string>& calls) const {
  std::string words = "call " + std::to_string(At);
  if (At >= 0 && At < static_cast<int>(calls.size()))
    words += " (" + calls[static_cast<std::size_t>(At)] + ')';
  switch (Effect) {
    case CallEffect::Fail:
      words += ": " + std::generic_category().message(Error);
      break;
    case CallEffect::Short:
      words += ": takes a few bytes";
      break;
    case CallEffect::None:
      words += ": takes nothing";
      break;
    case CallEffect::Kill:
      words += ": killed before it";
      break;
    case CallEffect::KillThen:
      words += ": killed after it";
      break;
  }
  if (Reach == CallReach::SameCall) words += ", for good";
  if (Reach == CallReach::AllCalls) words += ", and all that follows";
  return words;
}

WatchedCalls::WatchedCalls() {
  watch = {};
  watch.Names.reserve(4096);
  isWatching = true;
}
WatchedCalls::WatchedCalls(const CallFault& fault) : WatchedCalls() {
  watch.Fault = fault;
  watch.Armed = true;
}
WatchedCalls::~WatchedCalls() { isWatching = false; }
const std::vector<std::string>& WatchedCalls::Names() const { return watch.Names; }
bool WatchedCalls::Struck() const { return !watch.Struck.empty(); }
bool WatchedCalls::Struck(const std::string& name) const {
  return std::find(watch.Struck.begin(), watch.Struck.end(), name) != watch.Struck.end();
}

const std::vector<int>& ErrorsOf(const std::string& name) {
  static const std::map<std::string, std::vector<int>> errors = {
      {"open", {EACCES, ENOSPC, EMFILE, EIO, EINTR, EROFS}},
      {"write", {ENOSPC, EIO, EDQUOT, EFBIG, EINTR}},
      {"fsync", {EIO, ENOSPC, EINVAL, EINTR}},
      {"close", {EIO, ENOSPC, EDQUOT, EINTR}},
      {"rename", {EACCES, EROFS, ENOSPC, EIO}},
      {"unlink", {EACCES, EIO}},
      {"stat", {EIO, EACCES}},
      {"lstat", {EIO, EACCES}},
      {"fstat", {EIO, ENOMEM}},
      {"readlink", {EIO, EACCES}},
      {"faccessat", {EACCES, EROFS, EIO}},
      {"fchmod", {EPERM, EIO}},
      {"fchown", {EPERM, EIO}},
      {"ftruncate", {EIO, EINTR}},
      {"fcntl", {EBADF, EIO, ENOLCK}}};
  return errors.at(name);
}

}  // namespace brivane

namespace direct = brivane::direct;

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  return Watched("open", [&] { return direct::Open(path, flags, mode); });
}

ssize_t write(int descriptor, const void* buffer, std::size_t count) {
  return Watched("write", [&]() -> ssize_t {
    return direct::Write(descriptor, buffer, std::min(count, mostTaken));
  });
}

int fsync(int descriptor) {
  return Watched("fsync", [&] { return direct::Flush(descriptor); });
}

int close(int descriptor) {
  return Watched("close", [&] { return direct::Close(descriptor); });
}

int ftruncate(int descriptor, off_t length) noexcept {
  return Watched("ftruncate", [&] { return direct::Truncate(descriptor, length); });
}

int rename(const char* from, const char* to) noexcept {
  return Watched("rename", [&] { return direct::Rename(from, to); });
}

int unlink(const char* path) noexcept {
  return Watched("unlink", [&] { return direct::Unlink(path); });
}

ssize_t readlink(const char* path, char* buffer, std::size_t size) noexcept {
  return Watched("readlink", [&]() -> ssize_t {
    return syscall(SYS_readlinkat, AT_FDCWD, path, buffer, size);
  });
}

int fchmod(int descriptor, mode_t mode) noexcept {
  return Watched("fchmod", [&] { return direct::ChangeMode(descriptor, mode); });
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  return Watched("fchown", [&] { return direct::ChangeOwner(descriptor, owner, group); });
}

int stat(const char* path, struct stat* status) noexcept {
  return Watched("stat", [&] { return fstatat(AT_FDCWD, path, status, 0); });
}

int lstat(const char* path, struct stat* status) noexcept {
  return Watched("lstat", [&] { return fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW); });
}

int fstat(int descriptor, struct stat* status) noexcept {
  return Watched("fstat", [&] { return direct::Status(descriptor, status); });
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  return Watched("faccessat", [&] { return direct::Access(folder, path, mode, flags); });
}

int fcntl(int descriptor, int command, ...) {
  std::va_list arguments;
  va_start(arguments, command);
  const long argument = va_arg(arguments, long);
  va_end(arguments);
  return Watched("fcntl", [&] { return direct::Control(descriptor, command, argument); });
}

}  // extern "C"
