// Which labels can lie in a printer.
#pragma once

#include "paper/label_stock.h"
#include "paper/paper.h"

namespace tolvex::sim {

/// Bounds of the sizes of labels, in dots.
constexpr int kSmallestLabel = 5 * kDotsPerMm;
constexpr int kLargestLabel = 300 * kDotsPerMm;
constexpr int kSmallestGap = 1 * kDotsPerMm;
constexpr int kLargestGap = 30 * kDotsPerMm;

/// Whether the sizes are within their bounds and the head is on a label or in a gap. Holds for
/// continuous stock as well, although its sizes mean nothing.
constexpr bool isPossible(int label, int gap, int position) {
  return label >= kSmallestLabel && label <= kLargestLabel && gap >= kSmallestGap &&
         gap <= kLargestGap && position >= 0 && position < label + gap;
}

inline bool isPossible(const LabelStock& stock) {
  return isPossible(stock.label, stock.gap, stock.position);
}

}  // namespace tolvex::sim
