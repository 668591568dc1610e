#include "devices/paper_supply.h"

#include <algorithm>

namespace tolvex::sim {

PaperSupply::PaperSupply(const PaperFormat& format) {
  if (!format.hasLabels()) return;
  stock_ = LabelStock{StockKind::Gap, format.labelHeight, format.labelGap};
  learnt_ = stock_;
}

int PaperSupply::advance(int distance) {
  const int moved = left_ ? std::min(distance, *left_) : distance;
  if (left_) *left_ -= moved;
  if (stock_) stock_ = stock_->moved(moved);
  if (learnt_) learnt_ = learnt_->moved(moved);
  return moved;
}

void PaperSupply::load(std::optional<int> left, const std::optional<LabelStock>& stock) {
  left_ = left;
  if (stock) stock_ = stock;
  if (stock_ && !stock) stock_->position = 0;
  if (learnt_) learnt_->position = 0;
}

}  // namespace tolvex::sim
