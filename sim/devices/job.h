// One piece of paper as a printer puts it out.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "paper/paper.h"

namespace tolvex::sim {

/// What was printed from one confirmation to the next. A finished job may still change: a feed or a
/// cut that follows at once belongs to the same piece of paper.
class Job {
 public:
  /// Bounds of one piece of paper; the first keeps the paper sensible, the second the memory.
  static constexpr int kMaxLength = 20'000 * kDotsPerMm;
  static constexpr std::size_t kMaxBytes = std::size_t{16} * 1024 * 1024;

  Job(int number, std::string printer, const PaperFormat& format)
      : number_(number), printer_(std::move(printer)), paper_(format) {}

  /// Counts up from 1 over all printers.
  int number() const { return number_; }
  /// Name of the printer.
  const std::string& printer() const { return printer_; }
  const Paper& paper() const { return paper_; }
  bool isFinished() const { return finished_; }
  /// About as much memory as the paper takes.
  std::size_t bytes() const { return bytes_; }

  /// Puts all items on the paper, or none of them if they would go beyond the bounds. What is left
  /// blank at the ends of labels only counts for what comes after it.
  bool add(std::vector<PaperItem> items);
  void finish() { finished_ = true; }
  /// The paper ends here. Always fits.
  void cut(int percent);
  /// The printer is done with the paper: gives back the memory that only serves to draw it once
  /// more after a change.
  void settle() { paper_.forgetDrawing(); }

 private:
  int number_;
  std::string printer_;
  Paper paper_;
  bool finished_ = false;
  std::size_t bytes_ = 0;
};

}  // namespace tolvex::sim
