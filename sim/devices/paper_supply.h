// The paper that lies in a printer.
#pragma once

#include <optional>

#include "devices/label_stock.h"
#include "paper/paper.h"

namespace tolvex::sim {

/// A roll, with or without labels, and what the printer believes about its labels. Both are labels
/// as the paper format says at first, in register. Not thread-safe.
class PaperSupply {
 public:
  explicit PaperSupply(const PaperFormat& format);

  /// What the head can still reach of the paper, in dots; nothing: it never ends.
  std::optional<int> left() const { return left_; }
  void setLeft(std::optional<int> left) { left_ = left; }
  bool isEmpty() const { return left_ == 0; }

  /// Whether the paper reaches for `distance` (>= 0) more dots.
  bool reaches(int distance) const { return !left_ || *left_ >= distance; }
  /// Moves the paper on by `distance` dots, or by as many as are left. Returns how many these were.
  int advance(int distance);

  /// The labels that are there, null on a roll without labels. The position is that of the head.
  const LabelStock* stock() const { return stock_ ? &*stock_ : nullptr; }
  /// The labels that the printer believes are there, and where it believes its head to be. Null on
  /// a roll without labels.
  const LabelStock* learnt() const { return learnt_ ? &*learnt_ : nullptr; }

  /// Exchanges the labels; the printer does not learn of it.
  void setStock(const LabelStock& stock) { stock_ = stock; }

  /// Puts in a new roll: the labels given, or else ones as before with their upper edge at the
  /// head, where the printer believes it to be in any case.
  void load(std::optional<int> left, const std::optional<LabelStock>& stock);

  /// The printer now knows what labels are there.
  void learn() { learnt_ = stock_; }

  /// Whether what the printer believes is true. It is on a roll without labels.
  bool isInRegister() const { return learnt_ == stock_; }

 private:
  std::optional<int> left_;
  std::optional<LabelStock> stock_;
  std::optional<LabelStock> learnt_;
};

}  // namespace tolvex::sim
