#include "scratch_folder.h"

#include <linux/magic.h>
#include <stdlib.h>
#include <sys/vfs.h>

#include <filesystem>
#include <stdexcept>

namespace bench {

ScratchFolder::ScratchFolder() {
  struct statfs status {};
  inMemory_ = statfs("/dev/shm", &status) == 0 && status.f_type == TMPFS_MAGIC;
  const std::filesystem::path root =
      inMemory_ ? "/dev/shm" : std::filesystem::temp_directory_path();
  path_ = (root / "brivane-bench-XXXXXX").string();
  if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no folder can be made");
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace bench
