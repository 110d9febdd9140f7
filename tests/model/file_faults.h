#pragma once

#include <cstddef>

namespace brivane {

/// The system calls of the core that a test can make fail. They are replaced for the whole test
/// program and go to the system unless a fault is armed.
enum class SystemCall {
  Open,
  Read,
  Write,
  Flush,
  Close,
  Rename,
  Unlink,
  ChangeMode,
  ChangeOwner,
  Status,
  Access,
  Control
};

/// While it lives, a system call fails with an error code: after `skipped` calls that go through,
/// `times` times. A failing close closes the file all the same. One fault at a time.
class SystemFault {
 public:
  explicit SystemFault(SystemCall call, int error, int skipped = 0, int times = 1);
  ~SystemFault();
  SystemFault(const SystemFault&) = delete;
  SystemFault& operator=(const SystemFault&) = delete;

  /// How often it has struck.
  int Struck() const;
};

/// While it lives, a call to write takes no more than some bytes; none where that is 0.
class ShortWrites {
 public:
  explicit ShortWrites(std::size_t mostBytes);
  ~ShortWrites();
  ShortWrites(const ShortWrites&) = delete;
  ShortWrites& operator=(const ShortWrites&) = delete;
};

}  // namespace brivane
