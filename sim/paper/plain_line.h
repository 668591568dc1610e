// A line of a large font among lines of the common one.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// The line as it reads in cells of `plainWidth` dots when its own are `cellWidth` dots wide. A
/// font that is not wider than the plain one gives the text as it is. Of a wider one, the words
/// that blanks set apart (two of them at least, or any at the beginning) keep their place on paper:
/// at the beginning of the line their left end, behind leading blanks their middle, behind a gap in
/// the line their right end.
std::string plainLine(std::string_view text, int cellWidth, int plainWidth);

}  // namespace tolvex::sim
