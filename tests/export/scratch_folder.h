#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>

namespace brivane {

/// A folder of its own for one test, removed with all it holds.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = std::filesystem::temp_directory_path() / "brivane-test-XXXXXX";
    path_ = mkdtemp(name.data());
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string operator/(const std::string& name) const { return path_ + '/' + name; }
  const std::string& Path() const { return path_; }

  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::string path_;
};

}  // namespace brivane
