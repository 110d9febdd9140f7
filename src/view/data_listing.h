#pragma once

#include <string>
#include <vector>

#include "model/language.h"
#include "model/sail_definition.h"
#include "view/drawing.h"
#include "view/paper.h"

namespace brivane {

/// A text that starts at a print column, counted from 1.
struct ListingItem {
  int Column = 0;
  std::string Text;  ///< UTF-8
  bool operator==(const ListingItem&) const = default;
};

/// A line of the listing; a blank line holds nothing.
using ListingLine = std::vector<ListingItem>;

/// Columns of titles, of labels, and of the "=" with the value and its unit.
inline constexpr int kTitleColumn = 14;
inline constexpr int kLabelColumn = 18;
inline constexpr int kValueColumn = 32;

/// The paper record of a sail: its name and every parameter with its unit, line by line. The number
/// of panels is listed only where there is more than one. Throws GeometryFault where a value is not
/// finite.
std::vector<ListingLine> DataListing(const SailDefinition& sail, Language language);

/// The listing as plain text, one string a line, every item at its column. Behind a label that
/// reaches beyond the value's column, the value follows at once.
std::vector<std::string> ListingText(const std::vector<ListingLine>& listing);

/// The listing on one page, in the largest comfortable font with which it fits. A print column is
/// as wide as it takes to set the values off from their labels. A title too long for the page
/// goes on in further lines.
Drawing ListingPage(const std::vector<ListingLine>& listing, const Paper& paper,
                    const TextMeasure& measure);

}  // namespace brivane
