// Shapes in SVG.
#pragma once

#include <string>

namespace tolvex::sim {

/// `more`: further attributes, with a blank before each.
std::string svgRectangle(double x, double y, double width, double height, const std::string& more);

std::string svgPath(const std::string& path, const std::string& more);

/// The lower edge of paper that was torn off at `y`, from its right end to its left one, as
/// commands of a path: teeth of different lengths, the same ones for the same paper.
std::string svgTornEdge(double left, double right, double y);

/// The same for paper that was cut through `percent` of its width, from both sides: a bridge in the
/// middle was torn off last.
std::string svgCutEdge(double left, double right, double y, int percent);

/// How far an edge that is not straight reaches below its place at most.
constexpr int kSvgEdgeDepth = 8;

}  // namespace tolvex::sim
