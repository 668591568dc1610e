// A simulated printer: what it does with what it is sent, and what becomes of its paper.
#pragma once

#include <bitset>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/result_code.h"
#include "devices/job_log.h"
#include "devices/label_stock.h"
#include "devices/paper_supply.h"
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
/// longer than a job may be. Refused, it leaves no trace on the paper. OutOfPaper alone can also
/// come in the middle: when the roll ends meanwhile, what it reached for stays printed, fed or
/// learnt, and the rest is not done. From then on the printer is out of paper until some is loaded;
/// a job that is being printed then goes on on the new roll.
///
/// On labels, what is printed falls where the printer believes the labels to be, whatever really
/// lies in it. Each piece of paper begins with a label, as the printer believes: it moves on to the
/// next one when a job is followed by another one, and after a cut.
class Printer {
 public:
  static constexpr int kSmallestFont = 8;
  static constexpr int kLargestFont = 255;
  static constexpr int kLongestFeedMm = 1000;
  /// Most fresh paper, in dots, that is fed before something is printed on it.
  static constexpr int kMostFreshPaper = 10'000 * kDotsPerMm;
  /// As many dots have to be left between the margins.
  static constexpr int kNarrowestText = 64;
  /// Most paper, in dots, that can be left of a roll that ends: 1 km.
  static constexpr int kMostPaper = 1'000'000 * kDotsPerMm;

  Printer(PrinterModel model, JobLog& log);

  int type() const { return model_.type; }
  const std::string& name() const { return model_.name; }
  bool hasLabels() const { return model_.format.hasLabels(); }
  /// Its paper as delivered.
  const PaperFormat& format() const { return model_.format; }

  /// Makes or mends a fault. Mending OutOfPaper loads an endless roll if the roll is at its end.
  void setFault(PrinterFault fault, bool on);
  /// Whether the fault was made; a roll that is at its end is none.
  bool hasFault(PrinterFault fault) const;
  bool isPluggedIn() const;
  /// The code of the gravest fault, Ok without any. OutOfPaper for the fault of that name and for a
  /// roll that is at its end.
  ResultCode status() const;

  /// What the head can still reach of the paper, in dots, 0 to kMostPaper; nothing: it never ends.
  std::optional<int> paperLeft() const { return supply_.left(); }
  /// Sets it; values out of bounds become the nearest one. On a printer that is out of paper, more
  /// than 0 loads a new roll, which ends the fault OutOfPaper.
  void setPaperLeft(std::optional<int> left);

  /// What lies in the printer: the labels with the position of the head, null on a roll without.
  const LabelStock* stock() const { return supply_.stock(); }
  /// Exchanges the labels. A job that is being printed goes on on the new ones, other paper that
  /// hangs out is taken away. What the printer has learnt stays. InvalidParam unless isPossible(),
  /// PrtDrvReturnError on a printer without labels; then nothing changes.
  ResultCode setStock(const LabelStock& stock);
  /// What the printer takes its paper for, and where it believes its head to be; null on a roll.
  const LabelStock* learnt() const { return supply_.learnt(); }
  /// Whether what the printer believes about its labels is true. It is on a roll without labels.
  bool isInRegister() const { return supply_.isInRegister(); }
  /// Fresh paper that was fed and not printed on, in dots.
  int freshPaper() const { return fed_; }

  /// Puts in new paper, `left` as paperLeft() has it, which ends the fault OutOfPaper: these labels,
  /// or else ones as before with their upper edge at the head, where the printer believes it to be
  /// in any case. A job that is being printed goes on on it, other paper that hangs out is taken
  /// away. Answers as setStock() does.
  ResultCode loadPaper(std::optional<int> left, const std::optional<LabelStock>& stock = {});

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

  /// Confirms what was printed: the job is finished. Without effect if nothing was. A printer that
  /// senses another kind of gap than its labels have looks for it in vain before that, and feeds as
  /// much paper as it believes a label with its gap to have.
  ResultCode finishJob();

  /// Moves the paper on by 1 to kLongestFeedMm. It belongs to the job that was printed last, or, on
  /// fresh paper, of which there can be kMostFreshPaper, to the next one.
  ResultCode feed(int mm);

  /// Cuts through 1 to 100 percent of the paper, below the label that has begun. Finishes the job
  /// that the paper belongs to; what comes next stands on fresh paper. On fresh paper only what was
  /// fed is cut off.
  ResultCode cut(int percent);

  /// Learns what labels are there: feeds the rest of the present one and one more, to the upper edge
  /// of a label, at most two in all. PrtDrvReturnError where there is no gap to be found: on a
  /// printer without labels, on continuous stock, and when the gap type is set to another kind.
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
  bool sensesItsStock() const;
  bool searchesInVain() const;
  int textWidth() const;
  int textWidthOn(int printable) const;
  ResultCode checkStock(const LabelStock& stock) const;
  std::shared_ptr<Job> newJob() const;
  ResultCode print(std::vector<PaperItem> items);
  ResultCode beginJob(std::vector<PaperItem> items);
  ResultCode put(std::vector<PaperItem> items);
  ResultCode layDown(std::vector<PaperItem> items);
  void layDownToTheEnd(PaperItem item);
  ResultCode feedDots(int dots);
  bool reaches(int dots);
  int restOfLabel() const;
  void takePaperAway();
  void beginFreshPaper(std::shared_ptr<Job> job);

  PrinterModel model_;
  JobLog* log_;
  PaperSupply supply_;
  std::bitset<kPrinterFaults> faults_;
  PrinterSettings settings_;
  std::shared_ptr<Job> job_;
  int fed_ = 0;  // fresh paper at the head, in dots
  bool knowsLabelGap_ = false;
  bool knowsPaperEnd_ = false;
};

}  // namespace tolvex::sim
