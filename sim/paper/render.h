// Paper as pictures and as text.
#pragma once

#include <string>

#include "paper/paper.h"

namespace tolvex::sim {

/// The paper as an SVG picture that stands alone: text as text, images embedded, in the
/// proportions of the head (one unit of the view box is one dot; width and height are in mm). A
/// roll has a torn lower edge or, after a cut, a straight one, with the torn bridge that a partial
/// cut leaves; labels lie on their backing with gaps between them, the last one whole, its cut
/// below it. What lies beyond the printable width or between two labels is not shown. Text of any
/// bytes gives well-formed XML.
enum class Form {
  Picture,  // with background around it
  Strip,    // the paper alone, to be joined with what hangs above and below it
};
std::string svgOf(const Paper& paper, Form form = Form::Picture);

/// What can be read on the paper, one line of text for each printed one, in UTF-8 with "\n" ends
/// and without blanks before them. Lines of the font that most lines have read as they are; what a
/// larger font sets apart stays as far apart (see paper/plain_line.h). Images read
/// "[image 384x120]", blank paper becomes empty lines in proportion to its length, a cut reads as a
/// dashed line, the gap after a label as a dotted one.
std::string plainTextOf(const Paper& paper);

}  // namespace tolvex::sim
