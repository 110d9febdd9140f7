#pragma once

#include <vector>

#include "model/language.h"
#include "model/sail.h"
#include "view/drawing.h"
#include "view/paper.h"

namespace brivane {

/// The pages of the printed panels. Every page carries program and sail, the file that holds the
/// offsets in detail, and its number. The panels follow in order, as many on a page as fit whole,
/// all at one scale with which the longest takes 0.9 of the page's width and the highest fits the
/// height, each with its number, its guide line dashed, and the offsets of its corners and of
/// every fifth point of its seams. A sail without panels gives one page with the heading alone.
std::vector<Drawing> PrintedPanels(const Sail& sail, const Paper& paper, Language language,
                                   const TextMeasure& measure);

}  // namespace brivane
