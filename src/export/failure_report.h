#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>

#include "export/export_file.h"
#include "model/language.h"

namespace brivane {

/// Title of a message box: the program title and the label of the routine.
std::string TitleOf(std::string_view label);

/// What a message box says about a failed writing: the one fixed text of the path and file access
/// family, else the failure's own words.
std::string WordsOfWriting(const std::exception& failure, Language language);

/// Runs the writer. A failure comes back as a report under TitleOf(label).
SaveOutcome RunReported(std::string_view label, Language language,
                        const std::function<void()>& writer);

}  // namespace brivane
