#include "model/failures.h"

namespace brivane {

std::string WordsOf(const std::exception& failure, Language language) {
  if (const auto* spoken = dynamic_cast<const BilingualError*>(&failure))
    return std::string(spoken->Words.In(language));
  return failure.what();
}

}  // namespace brivane
