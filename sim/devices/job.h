// One piece of paper as a printer puts it out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "paper/paper.h"

namespace tolvex::sim {

/// What became of the paper below a job.
enum class JobEnd {
  Open,  // it hangs in the printer, or the printer's next job stands on it
  Cut,
  Torn,  // torn off by hand, or taken out with its roll
};

/// What was printed from one confirmation to the next. A finished job may still change: a feed or a
/// cut that follows at once belongs to the same piece of paper.
class Job {
 public:
  /// Bounds of one piece of paper; the first keeps the paper sensible, the second the memory.
  static constexpr int kMaxLength = 20'000 * kDotsPerMm;
  static constexpr std::size_t kMaxBytes = std::size_t{16} * 1024 * 1024;

  Job(int number, std::string printer, const PaperFormat& format, bool continues = false)
      : number_(number), printer_(std::move(printer)), paper_(format), continues_(continues) {}

  /// Counts up from 1 over all printers.
  int number() const { return number_; }
  /// Name of the printer.
  const std::string& printer() const { return printer_; }
  const Paper& paper() const { return paper_; }
  bool isFinished() const { return finished_; }
  JobEnd end() const;
  /// Whether it stands on the same piece of paper as the printer's job before.
  bool continues() const { return continues_; }
  /// What JobLog::changes() was after its latest change.
  std::uint64_t revision() const { return revision_; }
  /// About as much memory as the paper takes.
  std::size_t bytes() const { return bytes_; }

  /// Whether the items stay within the bounds. What is left blank at the ends of labels only counts
  /// for what comes after it.
  bool fits(const std::vector<PaperItem>& items) const;
  /// Puts an item on the paper.
  void add(PaperItem item);
  /// What the paper below is taken for, and what it really is; see Paper.
  void layOut(const LabelStock& labels) { paper_.layOut(labels); }
  void lieOn(const LabelStock& stock) { paper_.lieOn(stock); }
  /// Its roll ends here, if it does not already.
  void endRoll();
  void finish() { finished_ = true; }
  /// The paper ends here. Always fits.
  void cut(int percent);
  /// The paper is torn off here.
  void tearOff() { paper_.tearOff(); }
  void setRevision(std::uint64_t revision) { revision_ = revision; }
  /// The printer is done with the paper: gives back the memory that only serves to draw it once
  /// more after a change.
  void settle() { paper_.forgetDrawing(); }

 private:
  int number_;
  std::string printer_;
  Paper paper_;
  bool finished_ = false;
  bool continues_;
  std::uint64_t revision_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace tolvex::sim
