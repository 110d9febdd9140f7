#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "model/dimension_fields.h"

// The documents: every link leads somewhere, and both manuals tell of every field.

namespace brivane {
namespace {

namespace fs = std::filesystem;

fs::path Root() { return BRIVANE_SOURCE_DIR; }

std::vector<fs::path> Documents() {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(Root()))
    if (entry.path().extension() == ".md") paths.push_back(entry.path());
  for (const char* folder : {"docs", "examples"})
    for (const auto& entry : fs::recursive_directory_iterator(Root() / folder))
      if (entry.path().extension() == ".md") paths.push_back(entry.path());
  return paths;
}

/// The bytes of a document, which are UTF-8 unlike those of the program's own files.
std::string TextOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Matches(const std::string& text, const std::string& pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    found.push_back((*match)[1]);
  return found;
}

/// The anchor of a heading, as sites that show such documents make it: small letters, blanks as
/// hyphens, no punctuation. Bytes of letters beyond ASCII stay.
std::string AnchorOf(const std::string& heading) {
  std::string anchor;
  for (const char c : heading) {
    if (c >= 'A' && c <= 'Z')
      anchor += static_cast<char>(c - 'A' + 'a');
    else if (c == ' ')
      anchor += '-';
    else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c < 0)
      anchor += c;
  }
  return anchor;
}

std::set<std::string> AnchorsOf(const std::string& text) {
  std::set<std::string> anchors;
  for (const std::string& heading : Matches('\n' + text, "\n#+ ([^\r\n]*)"))
    anchors.insert(AnchorOf(heading));
  for (const std::string& name : Matches(text, "<a name=\"([^\"]*)\">")) anchors.insert(name);
  return anchors;
}

TEST(Documents, EveryLinkLeadsSomewhere) {
  int links = 0;
  for (const fs::path& document : Documents()) {
    const std::string text = TextOf(document);
    for (const std::string& link : Matches(text, "\\]\\(([^)\\s]+)\\)")) {
      if (link.rfind("http", 0) == 0) continue;
      ++links;
      const std::size_t hash = std::min(link.find('#'), link.size());
      const fs::path target = hash == 0 ? document : document.parent_path() / link.substr(0, hash);
      EXPECT_TRUE(fs::exists(target)) << link << " in " << document;
      if (hash == link.size() || !fs::exists(target)) continue;
      EXPECT_TRUE(AnchorsOf(TextOf(target)).count(link.substr(hash + 1)))
          << link << " in " << document;
    }
  }
  EXPECT_GT(links, 50);
}

TEST(Documents, NoPictureIsLeftOver) {
  std::string all;
  for (const fs::path& document : Documents()) all += TextOf(document);
  for (const auto& entry : fs::directory_iterator(Root() / "docs" / "pictures"))
    EXPECT_NE(all.find(entry.path().filename().string()), std::string::npos) << entry.path();
}

TEST(Documents, BothManualsTellOfEveryField) {
  const std::string english = TextOf(Root() / "docs/manual/en/README.md");
  const std::string french = TextOf(Root() / "docs/manual/fr/README.md");
  for (const DimensionFieldInfo& info : DimensionFields()) {
    // The two positions of the rounds stand in one row.
    if (info.Field == DimensionField::LuffRondPos || info.Field == DimensionField::LeechRondPos)
      continue;
    EXPECT_NE(english.find("| " + std::string(info.Caption.English)), std::string::npos)
        << info.ControlName;
    EXPECT_NE(french.find("| " + std::string(info.Caption.French)), std::string::npos)
        << info.ControlName;
  }
}

}  // namespace
}  // namespace brivane
