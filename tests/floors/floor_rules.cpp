#include "floors/floor_rules.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

namespace brivane {
namespace {

namespace fs = std::filesystem;

const std::map<std::string, int> kFloors = {{"model", 1},   {"geometry", 2}, {"panels", 3},
                                            {"patches", 3}, {"export", 4},   {"view", 4},
                                            {"ui", 5}};
constexpr int kTopFloor = 5;

const std::set<std::string> kPosixUsers = {"model/text_file.cpp", "model/region.cpp"};

const std::set<std::string> kPosixHeaders = {
    "dirent.h", "errno.h",  "fcntl.h",    "langinfo.h",  "limits.h",    "locale.h",
    "signal.h", "stdlib.h", "sys/stat.h", "sys/types.h", "sys/xattr.h", "unistd.h"};

// clang-format off
const std::set<std::string> kStandardHeaders = {
    "algorithm", "any", "array", "atomic", "barrier", "bit", "bitset", "cassert", "cctype",
    "cerrno", "cfenv", "cfloat", "charconv", "chrono", "cinttypes", "climits", "clocale",
    "cmath", "codecvt", "compare", "complex", "concepts", "condition_variable", "coroutine",
    "csetjmp", "csignal", "cstdarg", "cstddef", "cstdint", "cstdio", "cstdlib", "cstring",
    "ctime", "cuchar", "cwchar", "cwctype", "deque", "exception", "execution", "filesystem",
    "format", "forward_list", "fstream", "functional", "future", "initializer_list", "iomanip",
    "ios", "iosfwd", "iostream", "istream", "iterator", "latch", "limits", "list", "locale",
    "map", "memory", "memory_resource", "mutex", "new", "numbers", "numeric", "optional",
    "ostream", "queue", "random", "ranges", "ratio", "regex", "scoped_allocator", "semaphore",
    "set", "shared_mutex", "source_location", "span", "sstream", "stack", "stdexcept",
    "stop_token", "streambuf", "string", "string_view", "strstream", "syncstream",
    "system_error", "thread", "tuple", "type_traits", "typeindex", "typeinfo", "unordered_map",
    "unordered_set", "utility", "valarray", "variant", "vector", "version"};
// clang-format on

/// What is wrong with the include of a system header by a file of the core, empty where nothing is.
std::string SystemHeaderFault(const std::string& file, const std::string& header) {
  if (kStandardHeaders.contains(header)) return "";
  if (kPosixHeaders.contains(header) && kPosixUsers.contains(file)) return "";
  return "<" + header + "> is not of the C++ standard library";
}

/// What is wrong with the include of one of our own headers, empty where nothing is.
std::string OwnHeaderFault(const fs::path& sourceFolder, const std::string& folder,
                           const std::string& header) {
  const std::string target = header.substr(0, header.find('/'));
  if (!fs::is_regular_file(sourceFolder / header) || header.find("..") != std::string::npos)
    return "\"" + header + "\" is no header below the source folder";
  if (target == folder) return "";
  if (!kFloors.contains(target)) return "\"" + header + "\" stands on no floor";
  if (kFloors.at(target) < kFloors.at(folder)) return "";
  return "\"" + header + "\" does not lie below " + folder;
}

/// One line of a source taken apart, where it includes something.
struct Include {
  bool Found = false;
  bool Own = false;    ///< "..." rather than <...>
  std::string Header;  ///< empty where it cannot be read
};

Include ReadInclude(const std::string& line) {
  const auto skipBlanks = [&line](std::size_t at) {
    return std::min(line.find_first_not_of(" \t", at), line.size());
  };
  std::size_t at = skipBlanks(0);
  if (line.compare(at, 1, "#") != 0) return {line.compare(at, 7, "import ") == 0, false, ""};
  at = skipBlanks(at + 1);
  const bool import = line.compare(at, 6, "import") == 0;
  if (!import && line.compare(at, 7, "include") != 0) return {};
  at = skipBlanks(at + 7);
  const char opening = import || at == line.size() ? ' ' : line[at];
  if (opening != '"' && opening != '<') return {true, false, ""};
  const std::size_t end = line.find(opening == '<' ? '>' : '"', at + 1);
  if (end == std::string::npos) return {true, false, ""};
  return {true, opening == '"', line.substr(at + 1, end - at - 1)};
}

void CheckFile(const fs::path& sourceFolder, const fs::path& path,
               std::vector<FloorFault>& faults) {
  const std::string file = fs::relative(path, sourceFolder).generic_string();
  const std::string folder = file.substr(0, file.find('/'));
  if (folder == file || !kFloors.contains(folder)) {
    faults.push_back({file, 0, file + ": stands on no floor"});
    return;
  }
  std::ifstream stream(path, std::ios::binary);
  std::string text;
  for (int line = 1; std::getline(stream, text); ++line) {
    const Include include = ReadInclude(text);
    std::string fault;
    if (include.Found && include.Header.empty())
      fault = "an include that cannot be read";
    else if (include.Own)
      fault = OwnHeaderFault(sourceFolder, folder, include.Header);
    else if (include.Found && kFloors.at(folder) < kTopFloor)
      fault = SystemHeaderFault(file, include.Header);
    if (!fault.empty())
      faults.push_back({file, line, file + ":" + std::to_string(line) + ": " + fault});
  }
}

}  // namespace

std::vector<FloorFault> FindFloorFaults(const fs::path& sourceFolder) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(sourceFolder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".h" || extension == ".cpp" || extension == ".hpp" || extension == ".inc")
      files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<FloorFault> faults;
  for (const fs::path& file : files) CheckFile(sourceFolder, file, faults);
  return faults;
}

}  // namespace brivane
