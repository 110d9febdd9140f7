#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "fuzz/targets.h"
#include "support/source_folder.h"
#include "support/temporary_folder.h"

// Replays what the fuzzer starts from and what it once found.

namespace brivane {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const std::string& kind, std::string_view target) {
  std::vector<fs::path> files;
  const fs::path folder = fs::path(SourceFolder()) / "tests/fuzz" / kind / target;
  if (!fs::is_directory(folder)) return files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

class Replay : public testing::TestWithParam<FuzzTarget> {
 protected:
  static void Run(const std::vector<fs::path>& files) {
    for (const fs::path& file : files) {
      SCOPED_TRACE(file.string());
      EXPECT_NO_THROW(GetParam().Try(BytesOf(file.string())));
    }
  }
};

TEST_P(Replay, TheCorpus) {
  const std::vector<fs::path> files = FilesOf("corpus", GetParam().Name);
  EXPECT_FALSE(files.empty());
  Run(files);
}

TEST_P(Replay, Regressions) { Run(FilesOf("regressions", GetParam().Name)); }

TEST_P(Replay, NothingAndOneByte) {
  EXPECT_NO_THROW(GetParam().Try(""));
  for (int byte = 0; byte < 256; ++byte)
    EXPECT_NO_THROW(GetParam().Try(std::string(1, static_cast<char>(byte)))) << byte;
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay, testing::ValuesIn(kFuzzTargets),
                         [](const auto& suite) { return std::string(suite.param.Name); });

}  // namespace
}  // namespace brivane
