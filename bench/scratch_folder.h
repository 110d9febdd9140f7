#pragma once

#include <string>

namespace bench {

/// A folder of our own in memory (tmpfs) where there is one, removed at the end.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  /// The path of a file in it.
  std::string File(const std::string& name) const { return path_ + "/" + name; }
  bool InMemory() const { return inMemory_; }

 private:
  std::string path_;
  bool inMemory_ = false;
};

}  // namespace bench
