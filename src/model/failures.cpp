#include "model/failures.h"

namespace brivane {

std::string WordsOf(const std::exception& failure, Language language) {
  if (const auto* spoken = dynamic_cast<const BilingualError*>(&failure))
    return std::string(spoken->Words.In(language));
  const auto* read = dynamic_cast<const ReadError*>(&failure);
  if (read != nullptr && language == Language::French) return read->French;
  return failure.what();
}

}  // namespace brivane
