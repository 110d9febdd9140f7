#include "export/failure_report.h"

#include "model/failures.h"

namespace brivane {

std::string TitleOf(std::string_view label) {
  return std::string(ProgramTitle) + std::string(label);
}

std::string WordsOfWriting(const std::exception& failure, Language language) {
  if (const auto* file = dynamic_cast<const FileError*>(&failure); file && file->IsPathAccess())
    return std::string(kPathAccessText);
  return WordsOf(failure, language);
}

SaveOutcome RunReported(std::string_view label, Language language,
                        const std::function<void()>& writer) {
  try {
    writer();
    return {};
  } catch (const std::exception& failure) {
    return {FailureReport{TitleOf(label), WordsOfWriting(failure, language)}, {}};
  }
}

}  // namespace brivane
