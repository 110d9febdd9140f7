#pragma once

#include <QString>

#include "model/language.h"

namespace brivane {

/// Makes the texts of the toolkit's own dialogs, menus and messages follow the language. The words
/// are the program's; the toolkit's catalogue, which need not be installed, is asked only for one
/// that they lack.
void TranslateToolkit(Language language);

/// The program's own French for a text of the toolkit; null where it has none.
QString OwnFrench(const char* source);

}  // namespace brivane
