#pragma once

#include <functional>
#include <optional>
#include <string>

#include "model/failures.h"

namespace brivane {

/// The failure of an action on files, if it fails.
std::optional<FileError> FaultOf(const std::function<void()>& action);

/// Expects an action to fail for this cause, at this step, after so many bytes.
void ExpectFault(const std::function<void()>& action, FileErrorKind kind, FileStep step,
                 std::size_t bytes = 0);

/// A socket that a path leads to.
class SocketFile {
 public:
  explicit SocketFile(const std::string& path);
  ~SocketFile();
  SocketFile(const SocketFile&) = delete;
  SocketFile& operator=(const SocketFile&) = delete;

 private:
  int descriptor_;
};

}  // namespace brivane
