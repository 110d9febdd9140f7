#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "fuzz/every_output.h"
#include "geometry/outline.h"
#include "model/failures.h"
#include "model/file_lines.h"
#include "model/sail_file.h"
#include "panels/design_pass.h"
#include "support/sample_sail_files.h"
#include "support/slowness.h"
#include "support/temporary_folder.h"

// Whatever a file holds, opening it comes to an answer, and soon.

namespace brivane {
namespace {

constexpr std::size_t kReaders = 4;

/// The longest that an answer may take, s of the processor.
const double kMostSeconds = 0.1 * Slowness();
/// One in so many of the files is tried: all but under the sanitizers and, slower still, valgrind.
/// Primes, so that the hostile values take turns from line to line.
const std::size_t kStride = Slowness() < kSanitizedSlowness    ? 1
                            : Slowness() == kSanitizedSlowness ? 7
                                                               : 47;

/// Time that the processor has spent on this program, s: other programs do not count.
double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Values that no sail has, in the bytes of a file.
const Lines& HostileValues() {
  static const Lines values = {
      "1E999", "-1E999", "1E308", "-1E308", "1E-320", "nan", "NaN", "-nan", "inf", "-inf",
      "Infinity", "1.#INF", "1.#QNAN", "-", "+", ".", ",", "E5", "1E", "1E+", "1D5", "1d-5",
      "1D999", "1234567890123456789012345678901234567890",
      "0.1234567890123456789012345678901234567890", "32767", "32768", "-32768", "-32769", "32767.5",
      "65536", "2147483648", "1E15", "1E16", "0x10", "&H10", "1e3e3", "1..2", "--5", "+-5",
      "1 2 3 4", "1,5", "1;5", "1'000", "0", "-0", "-1", "5", "6", "10", "90", "100",
      "3.14159265358979", "1.5707963267949", "TRUE", "%s%n%d",
      // digits of other scripts: Arabic, Devanagari, full-width, and the old code page's own
      "\xD9\xA1\xD9\xA2", "\xE0\xA5\xA7", "\xEF\xBC\x91", "\xB9\xB2\xB3", "\xBD",
      "\xA0"
      "5",
      std::string(1, '\0'),
      std::string("4\0"
                  "5",
                  3),
      std::string("\x01\x1A\x7F\xFF", 4), std::string(300, ' '), std::string(5000, '9'),
      std::string(5000, '.'), "1" + std::string(400, '0'), "." + std::string(400, '0') + "1", "\t5",
      "5\t5", "\"5\""};
  return values;
}

class Opening : public testing::Test {
 protected:
  /// Opens a file of these bytes as both generations and as a mould, designs what was read and puts
  /// it out in every way.
  void Open(const std::string& bytes, const std::string& what) {
    SCOPED_TRACE(what);
    PutBytes(path, bytes);
    OpenFile();
  }

  void OpenFile() {
    for (std::size_t reader = 0; reader < kReaders; ++reader) Read(reader, true);
  }

  /// The same, but only what the generation's own reader makes of it is designed.
  void OpenOnce(const std::string& bytes, const std::string& what, std::size_t own) {
    SCOPED_TRACE(what);
    PutBytes(path, bytes);
    for (std::size_t reader = 0; reader < kReaders; ++reader) Read(reader, reader == own);
  }

  void Read(std::size_t reader, bool isDesigned) {
    Sail sail;
    const double start = ProcessorSeconds();
    const bool isRead = Answer([&] {
      SailDefinition& record = sail.Definition;
      if (reader == 0) ReadSailDataFile(path, record, '.');
      if (reader == 1) ReadSailDataFileV4(path, record);
      if (reader == 2) ReadSailDataFile(path, record, ',');
      if (reader == 3) ReadMouldFromFile(path, record);
    });
    EXPECT_EQ(FaultOfRecord(sail.Definition), "");
    if (isRead && isDesigned) Answer([&] { DesignPass(sail); });
    const double seconds = ProcessorSeconds() - start;
    EXPECT_LT(seconds, kMostSeconds);
    longest_ = std::max(longest_, seconds);
    ++opened_;
    // Many a hostile value reads as 0: the same sail is put out but once.
    if (isDesigned && designed_.insert(SailDataText(sail.Definition)).second) {
      EXPECT_EQ(FaultOfDesign(sail), "");
    }
  }

  /// Does a part of the open command. Whether it was not refused; a refusal says something.
  static bool Answer(const std::function<void()>& work) {
    try {
      work();
      return true;
    } catch (const FileError& error) {
      EXPECT_STRNE(error.what(), "");
    } catch (const ReadError& error) {
      EXPECT_NE(std::string(error.what()).find("(line "), std::string::npos) << error.what();
    } catch (const GeometryFault& fault) {
      EXPECT_FALSE(fault.Words.English.empty() || fault.Words.French.empty());
    }
    return false;
  }

  static void TearDownTestSuite() {
    std::printf("note: opened %d files, %zu sails; the longest took %.1f ms of the processor\n",
                opened_, designed_.size(), 1000 * longest_);
  }

  TemporaryFolder folder;
  std::string path = folder.Path("sail.bv3");

 private:
  static inline std::set<std::string> designed_;
  static inline int opened_ = 0;
  static inline double longest_ = 0;
};

/// Both generations in turn.
class EachLine : public Opening, public testing::WithParamInterface<bool> {
 protected:
  Lines Base() const { return GetParam() ? OldSailLines("1999") : DefaultSailLines(); }

  /// Opens the file with each of its lines changed in turn.
  void ChangeEach(const std::string& what, const std::function<void(Lines&, std::size_t)>& change) {
    for (std::size_t line = 0; line < Base().size(); ++line) {
      Lines lines = Base();
      change(lines, line);
      if (++changes_ % kStride != 0) continue;
      OpenOnce(Joined(lines), what + ", line " + std::to_string(line + 1), GetParam() ? 1 : 0);
    }
  }

 private:
  std::size_t changes_ = 0;
};

TEST_P(EachLine, CutOffAtEveryByte) {
  const std::string text = Joined(Base());
  for (std::size_t size = 0; size <= text.size(); size += kStride)
    OpenOnce(text.substr(0, size), "cut off at byte " + std::to_string(size), GetParam() ? 1 : 0);
}

TEST_P(EachLine, CutInTheMiddle) {
  ChangeEach("cut", [](Lines& lines, std::size_t at) { lines[at].resize(lines[at].size() / 2); });
}

TEST_P(EachLine, Emptied) {
  ChangeEach("emptied", [](Lines& lines, std::size_t at) { lines[at].clear(); });
}

TEST_P(EachLine, Dropped) {
  ChangeEach("dropped", [](Lines& lines, std::size_t at) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
  });
}

TEST_P(EachLine, Doubled) {
  ChangeEach("doubled", [](Lines& lines, std::size_t at) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), std::string(lines[at]));
  });
}

TEST_P(EachLine, SwappedWithAnother) {
  for (const std::size_t distance : {std::size_t{1}, std::size_t{2}, std::size_t{7}})
    ChangeEach("swapped", [&](Lines& lines, std::size_t at) {
      std::swap(lines[at], lines[(at + distance) % lines.size()]);
    });
}

TEST_P(EachLine, Hostile) {
  for (const std::string& value : HostileValues())
    ChangeEach("\"" + value.substr(0, 40) + "\"",
               [&](Lines& lines, std::size_t at) { lines[at] = value; });
}

TEST_P(EachLine, AllHostile) {
  for (const std::string& value : HostileValues()) {
    Lines lines = Base();
    for (std::string& line : lines) line = value;
    Open(Joined(lines), "all \"" + value.substr(0, 40) + "\"");
  }
}

TEST_P(EachLine, SeveralHostile) {
  std::mt19937 random(41);
  for (int round = 0; round < 700; round += static_cast<int>(kStride)) {
    Lines lines = Base();
    for (int change = 0; change < 4; ++change)
      lines[random() % lines.size()] = HostileValues()[random() % HostileValues().size()];
    OpenOnce(Joined(lines), "round " + std::to_string(round), GetParam() ? 1 : 0);
  }
}

TEST_P(EachLine, OfAnotherLineEnd) {
  for (const std::string end : {"\n", "\r", "\n\r", "\r\r\n", "\x0B", "", "\xC2\x85"})
    Open(Joined(Base(), end), "line ends of " + std::to_string(end.size()) + " bytes");
}

TEST_P(EachLine, OfAnotherEncoding) {
  const std::string text = Joined(Base());
  Open("\xEF\xBB\xBF" + text, "UTF-8 with its mark");
  Open("\xEF\xBB" + text, "half a mark");
  for (const bool isBigEndian : {false, true}) {
    std::string wide = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) wide += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    Open(wide, "UTF-16");
    Open(wide.substr(2), "UTF-16 without its mark");
    Open(wide.substr(0, wide.size() - 1), "UTF-16 cut in a character");
  }
}

INSTANTIATE_TEST_SUITE_P(Generations, EachLine, testing::Bool(),
                         [](const auto& suite) { return suite.param ? "Old" : "New"; });

// --- Files that are no sail --------------------------------------------------------------------

TEST_F(Opening, NoSail) {
  Open("", "nothing");
  Open("\n", "a line feed");
  for (const char byte : {'\0', '\n', '9', ',', '\xFF', ' '})
    Open(std::string(std::size_t{1} << 20, byte), "a mebibyte of " + std::to_string(byte));
  Open(std::string((std::size_t{1} << 20) + 1, '1'), "a byte too much");
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  Open(all, "every byte");
}

TEST_F(Opening, RandomBytes) {
  std::mt19937 random(43);
  for (int round = 0; round < 140; round += static_cast<int>(kStride)) {
    std::string bytes(random() % 3000, ' ');
    for (char& byte : bytes) byte = static_cast<char>(random());
    Open(bytes, "round " + std::to_string(round));
  }
}

TEST_F(Opening, AGigabyteOfNothing) {
  PutBytes(path, Joined(DefaultSailLines()));
  ASSERT_EQ(truncate(path.c_str(), off_t{1} << 30), 0);
  OpenFile();
}

TEST_F(Opening, WhatIsNoFile) {
  OpenFile();  // there is none
  ASSERT_EQ(mkdir(path.c_str(), 0755), 0);
  OpenFile();
  ASSERT_EQ(rmdir(path.c_str()), 0);
  ASSERT_EQ(mkfifo(path.c_str(), 0666), 0);
  OpenFile();
  ASSERT_EQ(unlink(path.c_str()), 0);
  for (const char* device : {"/dev/zero", "/dev/null", "/dev/full", "sail.bv3", "/proc/self/mem"}) {
    ASSERT_EQ(symlink(device, path.c_str()), 0);
    OpenFile();
    ASSERT_EQ(unlink(path.c_str()), 0);
  }
}

}  // namespace
}  // namespace brivane
