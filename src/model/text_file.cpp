#include "model/text_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "model/failures.h"
#include "model/system_words.h"

namespace brivane {
namespace {

constexpr mode_t kAnyWritePermission = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFileMode = 0666;
constexpr int kMostLinks = 40;
constexpr int kMostTemporaries = 100;
constexpr std::string_view kTemporaryStart = ".brivane-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr time_t kLongestSaving = 60;  ///< seconds
constexpr int kMostLockTries = 100;
constexpr std::chrono::milliseconds kLockPause(10);
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// --- Failures ----------------------------------------------------------------------------------

FileErrorKind KindOf(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return FileErrorKind::NoSuchFolder;
    case EISDIR:
      return FileErrorKind::IsAFolder;
    case EROFS:
      return FileErrorKind::ReadOnly;
    case EACCES:
    case EPERM:
      return FileErrorKind::NoPermission;
    case ENXIO:
    case ENODEV:
      return FileErrorKind::NotARegularFile;
    default:
      return FileErrorKind::Other;
  }
}

[[noreturn]] void Fail(int code, FileStep step, std::size_t bytesWritten = 0) {
  throw FileError(KindOf(code), step, SystemErrorWords(code), bytesWritten);
}

/// A path that the system would read otherwise than it is written.
void RefuseUnusablePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) Fail(ENOENT, FileStep::Opening);
}

// --- System calls, taken up again when interrupted ---------------------------------------------

template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// An open file. Leaving it without Close closes it unchecked, after another failure.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Descriptor() const { return descriptor_; }

  /// Error code of the closing, 0 for success. An interrupted close has closed the file.
  int Close() {
    const int result = close(std::exchange(descriptor_, -1));
    return result == 0 || errno == EINTR ? 0 : errno;
  }

 private:
  int descriptor_;
};

int OpenUninterrupted(const std::string& path, int flags, mode_t mode = 0) {
  constexpr int kAlways = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  return Uninterrupted([&] { return open(path.c_str(), flags | kAlways, mode); });
}

struct stat StatusOf(const OpenFile& file) {
  struct stat status {};
  if (fstat(file.Descriptor(), &status) != 0) Fail(errno, FileStep::Opening);
  return status;
}

/// How far a writing came, and the error code that ended it (0 for none).
struct Written {
  std::size_t Bytes = 0;
  int Error = 0;
};

Written WriteAll(const OpenFile& file, std::string_view bytes) {
  Written written;
  while (written.Bytes < bytes.size()) {
    const std::string_view rest = bytes.substr(written.Bytes);
    const ssize_t count =
        Uninterrupted([&] { return write(file.Descriptor(), rest.data(), rest.size()); });
    if (count <= 0) {
      written.Error = count < 0 ? errno : EIO;
      break;
    }
    written.Bytes += static_cast<std::size_t>(count);
  }
  return written;
}

// --- Targets -----------------------------------------------------------------------------------

/// Status of the file that is to be replaced; nothing where there is none yet.
std::optional<struct stat> StatusOfTarget(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status;
  if (errno != ENOENT) Fail(errno, FileStep::Opening);
  return std::nullopt;
}

void RefuseFolder(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) Fail(EISDIR, FileStep::Opening);
}

[[noreturn]] void FailNotRegular() {
  throw FileError(FileErrorKind::NotARegularFile, FileStep::Opening,
                  {"Not a regular file", "Pas un fichier ordinaire"});
}

void RefuseReadOnly(const struct stat& status) {
  if (S_ISREG(status.st_mode) && (status.st_mode & kAnyWritePermission) == 0)
    throw FileError(FileErrorKind::ReadOnly, FileStep::Opening, SystemErrorWords(EACCES));
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

/// Where the links that a path's last name may be lead to, whether or not there is a file.
std::string FollowLinks(std::string path) {
  for (int link = 0; link < kMostLinks; ++link) {
    std::array<char, 4096> target;
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    if (length < 0) {
      // Neither a link nor anything else; whatever else is wrong, a link might be lost by going on.
      if (errno == EINVAL || errno == ENOENT) return path;
      Fail(errno, FileStep::Opening);
    }
    const std::string to(target.data(), static_cast<std::size_t>(length));
    if (to.starts_with('/'))
      path = to;
    else
      path = FolderOf(path).append(to);
  }
  Fail(ELOOP, FileStep::Opening);
}

// --- Plain writing -----------------------------------------------------------------------------

/// Keeps another program of ours from writing to the same file until this one is closed. A file
/// system without locks leaves it to the user.
void LockForWriting(const OpenFile& file) {
  struct flock whole {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  for (int tries = 0; fcntl(file.Descriptor(), F_SETLK, &whole) != 0; ++tries) {
    if (errno != EACCES && errno != EAGAIN && errno != EINTR) return;
    if (tries == kMostLockTries)
      throw FileError(
          FileErrorKind::Other, FileStep::Opening,
          {"Another program is writing to this file", "Un autre programme écrit dans ce fichier"});
    std::this_thread::sleep_for(kLockPause);
  }
}

/// Waits until nobody else writes to the file and empties it. A device has nothing to be emptied;
/// it is written to at its own pace.
void PrepareForWriting(const OpenFile& file) {
  if (S_ISREG(StatusOf(file).st_mode)) {
    LockForWriting(file);
    if (Uninterrupted([&] { return ftruncate(file.Descriptor(), 0); }) != 0)
      Fail(errno, FileStep::Opening);
    return;
  }
  const int flags = fcntl(file.Descriptor(), F_GETFL);
  if (flags < 0 || fcntl(file.Descriptor(), F_SETFL, flags & ~O_NONBLOCK) != 0)
    Fail(errno, FileStep::Opening);
}

// --- Safe writing ------------------------------------------------------------------------------

/// A new file beside the target, removed again unless it has been put in the target's place.
class TemporaryFile {
 public:
  /// The short name fits wherever the target's own does.
  explicit TemporaryFile(const std::string& folder) {
    const std::string stem = folder + std::string(kTemporaryStart) + std::to_string(getpid()) + '-';
    for (int number = 0;; ++number) {
      path_ = stem + std::to_string(number) + std::string(kTemporaryEnd);
      descriptor_ = OpenUninterrupted(path_, O_WRONLY | O_CREAT | O_EXCL, kNewFileMode);
      if (descriptor_ >= 0) return;
      if (errno != EEXIST || number == kMostTemporaries) Fail(errno, FileStep::Opening);
    }
  }
  ~TemporaryFile() {
    if (!replaced_) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  int Descriptor() const { return descriptor_; }

  void Replace(const std::string& target) {
    if (std::rename(path_.c_str(), target.c_str()) != 0) Fail(errno, FileStep::Closing);
    replaced_ = true;
  }

 private:
  std::string path_;
  int descriptor_ = -1;
  bool replaced_ = false;
};

/// The process that made a temporary file of ours, by the file's name; 0 for any other file.
pid_t MakerOf(std::string_view name) {
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd)) return 0;
  name.remove_prefix(kTemporaryStart.size());
  name.remove_suffix(std::min(name.size(), kTemporaryEnd.size()));
  pid_t maker = 0;
  const char* const end = name.data() + name.size();
  const auto [rest, error] = std::from_chars(name.data(), end, maker);
  return error == std::errc() && rest != end && *rest == '-' && maker > 0 ? maker : 0;
}

/// Removes the temporary files that programs left here when they were killed: their maker no longer
/// runs, and they are older than any saving takes (it may be another computer's, whose processes
/// are not seen from here). Ages go by the file system's own clock, on which `now` was told.
void RemoveLeftovers(const std::string& folder, time_t now) {
  std::error_code error;
  std::filesystem::directory_iterator entries(folder, error);
  for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
    const pid_t maker = MakerOf(entries->path().filename().native());
    if (maker == 0 || kill(maker, 0) == 0 || errno != ESRCH) continue;
    const std::string& path = entries->path().native();
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
        now - status.st_mtime > kLongestSaving)
      unlink(path.c_str());
  }
}

/// The owner goes first, as changing it may clear mode bits; only the superuser can give a file
/// away, so a refusal is no failure.
void KeepOwnerAndMode(const OpenFile& file, const struct stat& old) {
  const struct stat fresh = StatusOf(file);
  if (fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid)
    static_cast<void>(!fchown(file.Descriptor(), old.st_uid, old.st_gid));
  if ((StatusOf(file).st_mode & kPermissions) != (old.st_mode & kPermissions) &&
      fchmod(file.Descriptor(), old.st_mode & kPermissions) != 0)
    Fail(errno, FileStep::Opening);
}

/// Makes the new name last. A folder that cannot be opened for reading, or a file system that
/// cannot flush one, leaves it to the system.
void FlushFolder(const std::string& folder) {
  const int descriptor = OpenUninterrupted(folder, O_RDONLY | O_DIRECTORY);
  if (descriptor < 0) return;
  const OpenFile opened(descriptor);
  if (Uninterrupted([&] { return fsync(descriptor); }) != 0 && errno == EIO)
    Fail(errno, FileStep::Closing);
}

/// Yields the time of the last write, on the file system's clock.
time_t FillTemporary(const TemporaryFile& temporary, const std::optional<struct stat>& old,
                     std::string_view bytes) {
  OpenFile file(temporary.Descriptor());
  if (old) KeepOwnerAndMode(file, *old);
  if (const Written written = WriteAll(file, bytes); written.Error != 0)
    Fail(written.Error, FileStep::Writing, written.Bytes);
  if (Uninterrupted([&] { return fsync(file.Descriptor()); }) != 0)
    Fail(errno, FileStep::Closing, bytes.size());
  const time_t now = StatusOf(file).st_mtime;
  if (const int error = file.Close(); error != 0) Fail(error, FileStep::Closing, bytes.size());
  return now;
}

// --- Reading -----------------------------------------------------------------------------------

[[noreturn]] void FailTooLarge() {
  throw FileError(FileErrorKind::Other, FileStep::Reading,
                  {"The file is larger than 1 MiB", "Le fichier dépasse 1 Mio"});
}

/// All bytes of a file of that size. What another program adds meanwhile is left out, but a file
/// that the system makes up as it is read tells the size 0 and is read to its end.
std::string ReadBytes(const OpenFile& file, std::size_t size) {
  std::string bytes;
  std::array<char, 16384> block;
  for (;;) {
    const ssize_t count =
        Uninterrupted([&] { return read(file.Descriptor(), block.data(), block.size()); });
    if (count < 0) Fail(errno, FileStep::Reading);
    bytes.append(block.data(), static_cast<std::size_t>(count));
    if (bytes.size() > kLargestFile) FailTooLarge();
    if (count == 0 || bytes.size() == size) return bytes;
  }
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
  RefuseUnusablePath(path);
  const OpenFile file(OpenUninterrupted(path, O_RDONLY));
  if (file.Descriptor() < 0) Fail(errno, FileStep::Opening);
  const struct stat status = StatusOf(file);
  RefuseFolder(status);
  if (!S_ISREG(status.st_mode)) FailNotRegular();
  if (status.st_size > static_cast<off_t>(kLargestFile)) FailTooLarge();
  std::string bytes = ReadBytes(file, static_cast<std::size_t>(status.st_size));
  if (IsPlainText(bytes)) return bytes;
  const bool isMarked = bytes.starts_with(kByteOrderMark);
  std::string_view text = bytes;
  if (isMarked) text.remove_prefix(kByteOrderMark.size());
  return isMarked && IsSoundUtf8(text) ? std::string(text) : FromCodePage1252(text);
}

void WritePlainFile(const std::string& path, std::string_view text) {
  RefuseUnusablePath(path);
  if (const auto old = StatusOfTarget(path)) {
    RefuseFolder(*old);
    if (!S_ISREG(old->st_mode) && !S_ISCHR(old->st_mode)) FailNotRegular();
    RefuseReadOnly(*old);
  }
  OpenFile file(OpenUninterrupted(path, O_WRONLY | O_CREAT, kNewFileMode));
  if (file.Descriptor() < 0) Fail(errno, FileStep::Opening);
  PrepareForWriting(file);
  const Written written = WriteAll(file, IsPlainText(text) ? text : ToCodePage1252(text));
  if (written.Error != 0) Fail(written.Error, FileStep::Writing, written.Bytes);
  if (const int error = file.Close(); error != 0) Fail(error, FileStep::Closing, written.Bytes);
}

void RemoveOldFile(const std::string& path) {
  RefuseUnusablePath(path);
  const auto old = StatusOfTarget(path);
  if (!old) return;
  RefuseFolder(*old);
  if (!S_ISREG(old->st_mode)) FailNotRegular();
  RefuseReadOnly(*old);
  if (unlink(path.c_str()) != 0 && errno != ENOENT) Fail(errno, FileStep::Opening);
}

void WriteFileSafely(const std::string& path, std::string_view text) {
  WriteBytesSafely(path, ToCodePage1252(text));
}

void WriteBytesSafely(const std::string& path, std::string_view bytes) {
  RefuseUnusablePath(path);
  const std::string target = FollowLinks(path);
  const std::optional<struct stat> old = StatusOfTarget(target);
  if (old) {
    RefuseFolder(*old);
    if (!S_ISREG(old->st_mode)) FailNotRegular();
    RefuseReadOnly(*old);
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) Fail(errno, FileStep::Opening);
  }
  const std::string folder = FolderOf(target);
  TemporaryFile temporary(folder);
  const time_t now = FillTemporary(temporary, old, bytes);
  temporary.Replace(target);
  FlushFolder(folder);
  RemoveLeftovers(folder, now);
}

}  // namespace brivane
