#include "paper/svg_shapes.h"

#include <cstdint>

#include "paper/svg_text.h"

namespace tolvex::sim {

namespace {

// In dots.
constexpr int kTooth = 10;
constexpr double kBridgeLength = 7;

constexpr int kAllOfTheWidth = 100;

}  // namespace

std::string svgRectangle(double x, double y, double width, double height, const std::string& more) {
  return "<rect x=\"" + svgNumber(x) + "\" y=\"" + svgNumber(y) + "\" width=\"" + svgNumber(width) +
         "\" height=\"" + svgNumber(height) + "\"" + more + "/>\n";
}

std::string svgPath(const std::string& path, const std::string& more) {
  return "<path d=\"" + path + "\"" + more + "/>\n";
}

std::string svgTornEdge(double left, double right, double y) {
  std::string edge;
  std::uint32_t seed = 1;
  bool isOut = true;
  const int teeth = static_cast<int>((right - left - 1) / kTooth);
  for (int tooth = 1; tooth <= teeth; ++tooth, isOut = !isOut) {
    seed = seed * 1664525U + 1013904223U;
    const double depth = (seed >> 24U) / 64.0 + (isOut ? 3 : -6);
    edge += "L" + svgNumber(right - tooth * kTooth) + " " + svgNumber(y + depth);
  }
  return edge + "L" + svgNumber(left) + " " + svgNumber(y);
}

std::string svgCutEdge(double left, double right, double y, int percent) {
  if (percent >= kAllOfTheWidth) return "H" + svgNumber(left);
  const double half = (right - left) * (kAllOfTheWidth - percent) / 200.0;
  const double middle = (left + right) / 2;
  const std::string below = svgNumber(y + kBridgeLength);
  return "H" + svgNumber(middle + half) + "L" + svgNumber(middle + half / 2) + " " + below + "L" +
         svgNumber(middle) + " " + svgNumber(y + kBridgeLength / 2) + "L" +
         svgNumber(middle - half / 2) + " " + below + "L" + svgNumber(middle - half) + " " +
         svgNumber(y) + "H" + svgNumber(left);
}

}  // namespace tolvex::sim
