// Where labels really are on a paper.
#pragma once

#include <vector>

#include "paper/paper.h"

namespace tolvex::sim {

/// What is to be seen of a label, a mark or a stretch of paper without either, in dots from the top
/// of the paper.
struct LabelSpan {
  StockKind kind;
  int top;
  int bottom;
  bool begins = true;  // its upper edge is to be seen
  bool ends = true;    // so is its lower edge
};

/// The labels between `from` and `to` on paper with labels, from the top down. A label that begins
/// or ends beyond them, or was exchanged for another, is cut off there. Of marked and continuous
/// paper, which prints anywhere, each stretch is one span.
std::vector<LabelSpan> labelsOn(const Paper& paper, int from, int to);

/// The marks between `from` and `to`, in the same way.
std::vector<LabelSpan> marksOn(const Paper& paper, int from, int to);

/// The gaps and marks between `from` and `to`, in the same way.
std::vector<LabelSpan> gapsOn(const Paper& paper, int from, int to);

}  // namespace tolvex::sim
