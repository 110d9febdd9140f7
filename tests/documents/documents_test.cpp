#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "documents/document_texts.h"

// The documents: every link and every picture leads somewhere. Those of an installed program are
// walked where the environment variable BRIVANE_DOCUMENTS names their folder.

namespace brivane {
namespace {

namespace fs = std::filesystem;

void AddDocuments(const fs::path& folder, std::vector<fs::path>& paths) {
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.path().extension() == ".md") paths.push_back(entry.path());
}

std::vector<fs::path> Documents() {
  std::vector<fs::path> paths;
  if (const char* installed = std::getenv("BRIVANE_DOCUMENTS")) {
    AddDocuments(installed, paths);
    return paths;
  }
  for (const auto& entry : fs::directory_iterator(Root()))
    if (entry.path().extension() == ".md") paths.push_back(entry.path());
  for (const char* folder : {"docs", "examples"}) AddDocuments(Root() / folder, paths);
  return paths;
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

/// Links and pictures, as a document writes them and as the markup within it does.
std::vector<std::string> LinksOf(const std::string& text) {
  std::vector<std::string> links = Matches(text, "\\]\\(([^)\\s]+)\\)");
  for (const std::string& link : Matches(text, "(?:src|href)=\"([^\"]+)\"")) links.push_back(link);
  std::erase_if(links, [](const std::string& link) { return link.starts_with("http"); });
  return links;
}

TEST(Documents, EveryLinkLeadsSomewhere) {
  std::size_t links = 0;
  for (const fs::path& document : Documents()) {
    for (const std::string& link : LinksOf(TextOf(document))) {
      ++links;
      const std::size_t hash = std::min(link.find('#'), link.size());
      const fs::path target = hash == 0 ? document : document.parent_path() / link.substr(0, hash);
      EXPECT_TRUE(fs::exists(target)) << link << " in " << document;
      if (hash == link.size() || !fs::exists(target)) continue;
      EXPECT_TRUE(AnchorsOf(TextOf(target)).count(link.substr(hash + 1)))
          << link << " in " << document;
    }
  }
  EXPECT_GT(links, 50u);
}

TEST(Documents, NoPictureIsLeftOver) {
  std::string all;
  for (const fs::path& document : Documents()) all += TextOf(document);
  for (const auto& entry : fs::directory_iterator(Root() / "docs" / "pictures"))
    EXPECT_NE(all.find(entry.path().filename().string()), std::string::npos) << entry.path();
}

TEST(Documents, ArchitectureNamesEveryHeader) {
  const std::string text = TextOf(Root() / "docs" / "architecture.md");
  for (const auto& entry : fs::recursive_directory_iterator(Root() / "src"))
    if (entry.path().extension() == ".h") {
      const std::string topic = entry.path().stem().string();
      EXPECT_NE(text.find("`" + topic + "`"), std::string::npos) << entry.path();
    }
}

/// The pictures of the program that a software centre shows are those of the documents.
TEST(Documents, EveryPictureOfTheMetainfoStands) {
  const std::string text = TextOf(Root() / "packaging" / "org.brivane.brivane.metainfo.xml.in");
  const std::vector<std::string> pictures = Matches(text, "@BRIVANE_HOMEPAGE@([^<]+\\.png)");
  EXPECT_GE(pictures.size(), 4u);
  for (const std::string& picture : pictures) EXPECT_TRUE(fs::exists(Root() / picture)) << picture;
}

}  // namespace
}  // namespace brivane
