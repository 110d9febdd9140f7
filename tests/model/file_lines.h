#pragma once

#include <string>
#include <vector>

namespace brivane {

/// The lines of a file, without their ends.
using Lines = std::vector<std::string>;

/// The text of these lines.
inline std::string Joined(const Lines& lines, const std::string& end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + end;
  return text;
}

}  // namespace brivane
