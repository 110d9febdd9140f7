#pragma once

#include "model/language.h"

namespace brivane {

/// What an error number of the system says, in both languages whatever the locale is. Every number
/// that the calls on files are documented to give has its words; any other has general ones.
BilingualText SystemErrorWords(int code);

}  // namespace brivane
