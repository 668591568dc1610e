// Lines of text in SVG.
#pragma once

#include <string>

#include "paper/paper.h"

namespace tolvex::sim {

/// The number in SVG's notation, to the thousandth.
std::string svgNumber(double value);

/// The line as a text element with its upper edge at `top`. Each glyph is put into its cell, so
/// that columns stand below each other whatever the viewer's font is. The element inherits the font
/// family; its text is well-formed XML, whatever the item holds.
std::string svgTextOf(const TextItem& item, int top);

}  // namespace tolvex::sim
