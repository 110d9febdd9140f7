#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace brivane {

/// The root of the tree.
std::filesystem::path Root();

/// The bytes of a document, which are UTF-8 unlike those of the program's own files.
std::string TextOf(const std::filesystem::path& path);

/// The lines of a text, without their ends.
std::vector<std::string> LinesOf(const std::string& text);

/// What the first group of the expression matches, each time that the expression is met.
std::vector<std::string> Matches(const std::string& text, const std::string& expression);

}  // namespace brivane
