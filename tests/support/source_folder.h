#pragma once

#include <string>

namespace brivane {

/// The root of the tree, as it was when the tests were built. The compiler is kept from knowing it:
/// what it warns of must not depend on how long the path is.
inline std::string SourceFolder() {
  static const char* volatile folder = BRIVANE_SOURCE_DIR;
  return folder;
}

}  // namespace brivane
