#include <gtest/gtest.h>

#include <regex>

#include "documents/document_texts.h"

// No function is longer than 60 lines, no file longer than 500; where one is, a comment within it
// begins with "Long because" and says why.

namespace brivane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestFunction = 60;
constexpr std::size_t kLongestFile = 500;
constexpr const char* kReason = "Long because ";

std::size_t Indent(const std::string& line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

/// Whether the line opens the body of a function, or of a type written as one: it ends in a brace
/// that is no namespace's, type's or list's.
bool OpensFunction(const std::string& line) {
  static const std::regex pattern(".*(\\)|const|noexcept|override|>|\\w) \\{");
  static const std::regex other(
      " *(namespace|struct|class|enum|union|extern|if|else|for|while|switch|do|try|\\}|return)\\b."
      "*");
  return std::regex_match(line, pattern) && !std::regex_match(line, other);
}

bool HasReason(const std::vector<std::string>& lines, std::size_t from, std::size_t to) {
  for (std::size_t k = from; k < to; ++k)
    if (lines[k].find(kReason) != std::string::npos) return true;
  return false;
}

/// Whether the line is the head of a function in Python.
bool DefinesFunction(const std::string& line) {
  static const std::regex pattern(" *def \\w+\\(.*");
  return std::regex_match(line, pattern);
}

/// The line behind the function whose head is given: a body in braces ends with the first one that
/// stands under its head, an indented one before the next words that stand as far left as it.
std::size_t EndOfFunction(const std::vector<std::string>& lines, std::size_t head) {
  const std::size_t indent = Indent(lines[head]);
  const bool isIndented = DefinesFunction(lines[head]);
  const std::string closing = std::string(indent, ' ') + "}";
  std::size_t end = head + 1;
  for (; end < lines.size(); ++end) {
    if (!isIndented && lines[end].starts_with(closing)) return end + 1;
    if (isIndented && !lines[end].empty() && Indent(lines[end]) <= indent) break;
  }
  while (isIndented && lines[end - 1].empty()) --end;
  return isIndented ? end : head;  // a brace that nothing closes is no function's
}

/// The functions of a file that are too long and do not say why, each as "line: words".
std::vector<std::string> LongFunctions(const std::vector<std::string>& lines) {
  std::vector<std::string> found;
  for (std::size_t head = 0; head < lines.size(); ++head) {
    if (!OpensFunction(lines[head]) && !DefinesFunction(lines[head])) continue;
    const std::size_t end = EndOfFunction(lines, head);
    if (end <= head + kLongestFunction || HasReason(lines, head, end)) continue;
    found.push_back(std::to_string(head + 1) + ": " + lines[head]);
  }
  return found;
}

std::vector<fs::path> Sources() {
  std::vector<fs::path> paths;
  for (const char* folder : {"src", "tests", "bench", "scripts"})
    for (const auto& entry : fs::recursive_directory_iterator(Root() / folder)) {
      const std::string extension = entry.path().extension();
      const bool isText = extension == ".cpp" || extension == ".h" || extension == ".py" ||
                          (folder == std::string("scripts") && extension.empty());
      if (entry.is_regular_file() && isText) paths.push_back(entry.path());
    }
  for (const char* command : {"run", "test"}) paths.push_back(Root() / command);
  return paths;
}

TEST(Length, NoFileIsLongWithoutAReason) {
  std::size_t files = 0;
  for (const fs::path& path : Sources()) {
    const std::vector<std::string> lines = LinesOf(TextOf(path));
    ++files;
    EXPECT_TRUE(lines.size() <= kLongestFile || HasReason(lines, 0, lines.size()))
        << path << " has " << lines.size() << " lines";
  }
  EXPECT_GT(files, 200u);
}

TEST(Length, NoFunctionIsLongWithoutAReason) {
  for (const fs::path& path : Sources())
    for (const std::string& function : LongFunctions(LinesOf(TextOf(path))))
      ADD_FAILURE() << path << ":" << function;
}

TEST(Length, LongFunctionsAreFound) {
  const auto function = [](const std::string& head, std::size_t lines, const std::string& first) {
    std::vector<std::string> text = {head, first};
    text.resize(lines - 1, "  Step();");
    text.push_back(std::string(Indent(head), ' ') + "}");
    return text;
  };
  EXPECT_TRUE(LongFunctions(function("void Take() {", 60, "")).empty());
  EXPECT_EQ(LongFunctions(function("void Take() {", 61, "")).size(), 1u);
  EXPECT_EQ(LongFunctions(function("  int Count() const {", 61, "")).size(), 1u);
  EXPECT_EQ(LongFunctions(function("TEST(Topic, Name) {", 61, "")).size(), 1u);
  EXPECT_EQ(LongFunctions(function("Finish() {", 61, "")).size(), 1u);
  std::vector<std::string> indented = {"def take():"};
  indented.resize(60, "  step()");
  indented.insert(indented.end(), {"", "", "def next():", "  step()"});
  EXPECT_TRUE(LongFunctions(indented).empty());
  indented.insert(indented.begin() + 1, "  step()");
  EXPECT_EQ(LongFunctions(indented).size(), 1u);
  EXPECT_TRUE(LongFunctions(function("struct Row {", 61, "")).empty());
  EXPECT_TRUE(LongFunctions(function("namespace brivane {", 61, "")).empty());
  EXPECT_TRUE(LongFunctions(function("void Take() {", 61, "  // Long because it tells")).empty());
}

}  // namespace
}  // namespace brivane
