// The drawer under the till.
#pragma once

namespace tolvex::sim {

/// Opened by command, closed by hand.
class CashDrawer {
 public:
  /// Fires the lock; an open drawer stays open.
  void open() {
    open_ = true;
    ++openings_;
  }
  void close() { open_ = false; }

  bool isOpen() const { return open_; }
  /// How many times the lock has been fired.
  int openings() const { return openings_; }

 private:
  bool open_ = false;
  int openings_ = 0;
};

}  // namespace tolvex::sim
