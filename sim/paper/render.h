// Paper as pictures and as text.
#pragma once

#include <string>

#include "paper/paper.h"

namespace tolvex::sim {

/// The paper as an SVG picture that stands alone: text as text, images embedded, in the
/// proportions of the head (one unit of the view box is one dot; width and height are in mm). A
/// roll has a ragged or cut lower edge, labels lie on their backing with gaps between them.
std::string svgOf(const Paper& paper);

/// What can be read on the paper, one line of text for each printed one, in UTF-8 with "\n" ends.
/// Images read "[image 384x120]", blank paper becomes empty lines in proportion to its length, a
/// cut reads as a dashed line.
std::string plainTextOf(const Paper& paper);

}  // namespace tolvex::sim
