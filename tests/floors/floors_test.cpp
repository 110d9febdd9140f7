#include <gtest/gtest.h>
#include <link.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "floors/floor_rules.h"
#include "support/source_folder.h"

namespace brivane {
namespace {

namespace fs = std::filesystem;

/// A made-up source folder, gone when the test ends.
class MadeUpTree : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "floors-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    Folder = pattern;
    Write("model/sail.h", "#pragma once\n#include <vector>\n");
    Write("geometry/plane.h", "#pragma once\n#include <cmath>\n#include \"model/sail.h\"\n");
    Write("panels/cut.cpp", "#include \"geometry/plane.h\"\n");
    Write("patches/patch.h", "#pragma once\n");
    Write("view/drawing.h", "#include \"patches/patch.h\"\n");
    Write("ui/window.cpp", "#include <QWidget>\n#include \"view/drawing.h\"\n");
  }
  void TearDown() override {
    if (!Folder.empty()) fs::remove_all(Folder);
  }

  void Write(const std::string& name, const std::string& text) {
    fs::create_directories((Folder / name).parent_path());
    std::ofstream(Folder / name) << text;
  }

  /// The only fault of the tree, "none" or "several".
  std::string OnlyFault() const {
    const std::vector<FloorFault> faults = FindFloorFaults(Folder);
    if (faults.empty()) return "none";
    return faults.size() == 1 ? faults.front().Text : "several";
  }

  fs::path Folder;
};

TEST_F(MadeUpTree, FollowsTheRule) { EXPECT_EQ(OnlyFault(), "none"); }

TEST_F(MadeUpTree, LooksUp) {
  Write("geometry/surface.cpp", "#include <cmath>\n\n#include \"panels/cut.h\"\n");
  Write("panels/cut.h", "#pragma once\n");
  EXPECT_EQ(OnlyFault(), "geometry/surface.cpp:3: \"panels/cut.h\" does not lie below geometry");
}

TEST_F(MadeUpTree, LooksSideways) {
  Write("panels/strip.cpp", "#include \"patches/patch.h\"\n");
  EXPECT_EQ(OnlyFault(), "panels/strip.cpp:1: \"patches/patch.h\" does not lie below panels");
}

TEST_F(MadeUpTree, TakesTheToolkitBelow) {
  Write("view/painter.h", "#  include <QPainter>  // for the screen\n");
  EXPECT_EQ(OnlyFault(), "view/painter.h:1: <QPainter> is not of the C++ standard library");
}

TEST_F(MadeUpTree, TakesTheSystemWhereTheDiskIsRead) {
  Write("model/text_file.cpp", "#include <unistd.h>\n#include <fcntl.h>\n");
  EXPECT_EQ(OnlyFault(), "none");
}

TEST_F(MadeUpTree, TakesTheSystemElsewhere) {
  Write("model/sail_file.cpp", "#include <unistd.h>\r\n");
  EXPECT_EQ(OnlyFault(), "model/sail_file.cpp:1: <unistd.h> is not of the C++ standard library");
}

TEST_F(MadeUpTree, HasAFolderOnNoFloor) {
  Write("util/strings.h", "#pragma once\n");
  EXPECT_EQ(OnlyFault(), "util/strings.h: stands on no floor");
}

TEST_F(MadeUpTree, ClimbsOutOfTheHouse) {
  Write("model/odd.cpp", "#include \"model/../geometry/plane.h\"\n");
  EXPECT_EQ(OnlyFault(),
            "model/odd.cpp:1: \"model/../geometry/plane.h\" is no header below the source folder");
}

TEST_F(MadeUpTree, ImportsAModule) {
  Write("model/odd.cpp", "import std;\n");
  EXPECT_EQ(OnlyFault(), "model/odd.cpp:1: an include that cannot be read");
}

TEST_F(MadeUpTree, OnlySpeaksOfIncludes) {
  Write("model/odd.cpp", "// #include <QWidget>\n#define INCLUDE\nint important = 0;\n#\n\n");
  EXPECT_EQ(OnlyFault(), "none");
}

TEST_F(MadeUpTree, IncludesByAName) {
  Write("model/odd.cpp", "#include HEADER\n");
  EXPECT_EQ(OnlyFault(), "model/odd.cpp:1: an include that cannot be read");
}

TEST(Floors, IncludesPointDownOnly) {
  for (const FloorFault& fault : FindFloorFaults(fs::path(SourceFolder()) / "src"))
    ADD_FAILURE() << fault.Text;
}

TEST(Floors, TheSourceFolderIsTheRealOne) {
  EXPECT_TRUE(fs::is_regular_file(fs::path(SourceFolder()) / "src/model/sail_definition.h"));
}

/// True for a library that every C++ program loads, or that the sanitizers add.
bool IsLanguageLibrary(std::string_view path) {
  static constexpr std::array<std::string_view, 9> kNames = {
      "linux-vdso", "ld-linux", "libstdc++", "libm",      "libgcc_s",
      "libc",       "libasan",  "libubsan",  "libpthread"};
  const std::string_view name = path.substr(path.rfind('/') + 1);
  for (std::string_view known : kNames) {
    if (!name.starts_with(known)) continue;
    const std::string_view rest = name.substr(known.size());
    if (rest.starts_with(".so") || rest.starts_with("-x86-64.so") ||
        rest.starts_with("-aarch64.so"))
      return true;
  }
  return false;
}

TEST(Floors, KnowsALibraryOfTheLanguage) {
  EXPECT_TRUE(IsLanguageLibrary("/lib/x86_64-linux-gnu/libc.so.6"));
  EXPECT_TRUE(IsLanguageLibrary("/lib64/ld-linux-x86-64.so.2"));
  EXPECT_TRUE(IsLanguageLibrary("linux-vdso.so.1"));
  EXPECT_FALSE(IsLanguageLibrary("/lib/x86_64-linux-gnu/libQt6Core.so.6"));
  EXPECT_FALSE(IsLanguageLibrary("/lib/x86_64-linux-gnu/libcups.so.2"));
}

/// This program links every object of the core: what it has loaded is what the core needs.
TEST(Floors, TheCoreLoadsTheStandardLibraryAlone) {
  const auto check = [](dl_phdr_info* info, std::size_t, void* count) {
    const std::string_view path = info->dlpi_name;
    if (!path.empty()) {
      ++*static_cast<int*>(count);
      EXPECT_TRUE(IsLanguageLibrary(path)) << path;
    }
    return 0;
  };
  int count = 0;
  dl_iterate_phdr(check, &count);
  EXPECT_GE(count, 3);
}

}  // namespace
}  // namespace brivane
