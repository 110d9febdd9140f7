#pragma once

#include <QString>
#include <string_view>

#include "model/language.h"
#include "model/sail.h"
#include "view/view_state.h"

namespace brivane {

/// Everything that the windows share: the one sail, how it is seen, and in which language.
struct CurrentSail {
  Sail TheSail;
  ViewState View;
  brivane::Language Language = brivane::Language::English;
  char DecimalMark = '.';  ///< of the user's regional settings, for the files that carry it
};

/// The current sail. It lives as long as the program.
CurrentSail& Current();

/// Makes the current sail a new one and computes its outline: rules that need a corner find one
/// from the start.
void ResetCurrentSail();

/// The text in the current language, as Qt's.
QString CurrentText(const BilingualText& text);

/// A window caption or a message title: the program's title followed by the suffix.
QString TitleWith(std::string_view suffix);
QString TitleWith(const BilingualText& suffix);

}  // namespace brivane
