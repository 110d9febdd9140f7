#pragma once

#include "model/language.h"

namespace brivane {

/// Makes the texts of the toolkit's own dialogs follow the language: the toolkit's catalogue where
/// it is installed, else the program's own words for the buttons and labels that it shows.
void TranslateToolkit(Language language);

}  // namespace brivane
