#include "documents/document_texts.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include "support/source_folder.h"

namespace brivane {

std::filesystem::path Root() { return SourceFolder(); }

std::string TextOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> Matches(const std::string& text, const std::string& expression) {
  const std::regex pattern(expression);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

}  // namespace brivane
