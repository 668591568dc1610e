// What labels are like, and how they lie below the head.
#pragma once

namespace tolvex::sim {

enum class StockKind {
  Gap,         // labels on a backing, with gaps between them
  Mark,        // paper with marks on its back, one below each label
  Continuous,  // paper without labels; its sizes mean nothing
};

/// "gap", "mark" or "continuous", for people to read. The text is static.
inline const char* name(StockKind kind) {
  switch (kind) {
    case StockKind::Mark:
      return "mark";
    case StockKind::Continuous:
      return "continuous";
    case StockKind::Gap:
      break;
  }
  return "gap";
}

/// Labels, one below the other. All measures are in dots along the paper.
struct LabelStock {
  StockKind kind = StockKind::Gap;
  int label = 0;     // height of one
  int gap = 0;       // between two of them, or height of a mark
  int position = 0;  // of the head, from the upper edge of a label: 0 to pitch() - 1

  /// From the beginning of one label to that of the next, above 0.
  int pitch() const { return label + gap; }

  /// From the head to the next label; 0 at the upper edge of one.
  int toNextLabel() const { return position == 0 ? 0 : pitch() - position; }

  /// After the paper has moved on by `distance`, or, negated, back.
  LabelStock moved(int distance) const {
    LabelStock result = *this;
    result.position = ((position + distance % pitch()) % pitch() + pitch()) % pitch();
    return result;
  }
};

inline bool operator==(const LabelStock& a, const LabelStock& b) {
  return a.kind == b.kind && a.label == b.label && a.gap == b.gap && a.position == b.position;
}
inline bool operator!=(const LabelStock& a, const LabelStock& b) { return !(a == b); }

}  // namespace tolvex::sim
