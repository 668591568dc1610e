// A simulated printer: what it does with what it is sent, and what becomes of its paper.
#pragma once

#include <bitset>
#include <memory>
#include <string>
#include <string_view>

#include "base/result_code.h"
#include "devices/job_log.h"
#include "devices/printer_fault.h"
#include "devices/printer_settings.h"
#include "paper/paper.h"

namespace tolvex::sim {

/// What a printer is, as opposed to how it is set.
struct PrinterModel {
  int type;
  std::string name;
  PaperFormat format;
};

/// A thermal printer of 203 dpi. Not thread-safe; the log must outlive it.
///
/// Everything that moves paper answers Ok or the first reason against it: InvalidParam for a value
/// out of its bounds, the code of the gravest fault, TooMuchToPrint when the paper would become
/// longer than a job may be. Refused, it leaves no trace on the paper.
class Printer {
 public:
  static constexpr int kSmallestFont = 8;
  static constexpr int kLargestFont = 255;
  static constexpr int kLongestFeedMm = 1000;
  /// Most fresh paper, in dots, that is fed before something is printed on it.
  static constexpr int kMostFreshPaper = 10'000 * kDotsPerMm;
  /// As many dots have to be left between the margins.
  static constexpr int kNarrowestText = 64;

  Printer(PrinterModel model, JobLog& log);

  int type() const { return model_.type; }
  const std::string& name() const { return model_.name; }
  bool hasLabels() const { return model_.format.hasLabels(); }

  void setFault(PrinterFault fault, bool on);
  bool hasFault(PrinterFault fault) const;
  bool isPluggedIn() const;
  /// The code of the gravest fault, Ok without any.
  ResultCode status() const;

  /// InvalidParam for a value out of bounds, for a paper wider than the printer takes, and for a
  /// paper width or margins that would leave less than kNarrowestText; then nothing changes.
  ResultCode set(Setting setting, int value);
  const PrinterSettings& settings() const { return settings_; }
  /// The width that is printed on, from the next job on. A paper width beyond the reach of the head
  /// stands for all of its reach.
  int printable() const;

  /// Prints UTF-8 text between the margins, at most `width` dots wide (0: no further limit).
  /// Longer lines are wrapped or cut as the text wrap mode says. A line end at the very end of the
  /// text begins no further line, since every text stands on lines of its own.
  ResultCode printText(std::string_view text, int fontSize, int width = 0);

  /// Prints a picture at the left margin, cut at the right one.
  ResultCode printImage(const Bitmap& bitmap);

  /// Confirms what was printed: the job is finished. Without effect if nothing was.
  ResultCode finishJob();

  /// Moves the paper on by 1 to kLongestFeedMm. It belongs to the job that was printed last, or, on
  /// fresh paper, of which there can be kMostFreshPaper, to the next one.
  ResultCode feed(int mm);

  /// Cuts through 1 to 100 percent of the paper, below the label that has begun. Finishes the job
  /// that the paper belongs to; what comes next stands on fresh paper. On fresh paper only what was
  /// fed is cut off.
  ResultCode cut(int percent);

  /// Learns the gap between labels; PrtDrvReturnError on a printer without labels.
  ResultCode calibrateLabelGap();
  bool knowsLabelGap() const { return knowsLabelGap_; }

  /// Learns how the end of the paper looks.
  ResultCode calibratePaperEnd();
  bool knowsPaperEnd() const { return knowsPaperEnd_; }

  /// The job that is being printed, or, until fresh paper begins, was; null on fresh paper.
  const Job* job() const { return job_.get(); }

  /// Finishes what was printed, whatever state the printer is in.
  void endJob();

  /// Tears the paper off by hand, whatever state the printer is in: finishes what was printed, and
  /// what comes next stands on fresh paper.
  void tearOff();

 private:
  bool isPrinting() const { return job_ && !job_->isFinished(); }
  int textWidth() const;
  int textWidthOn(int printable) const;
  ResultCode print(std::vector<PaperItem> items);
  ResultCode put(std::vector<PaperItem> items);
  void beginFreshPaper(std::shared_ptr<Job> job);

  PrinterModel model_;
  JobLog& log_;
  std::bitset<kPrinterFaults> faults_;
  PrinterSettings settings_;
  std::shared_ptr<Job> job_;
  int fed_ = 0;  // fresh paper at the head, in dots
  bool knowsLabelGap_ = false;
  bool knowsPaperEnd_ = false;
};

}  // namespace tolvex::sim
