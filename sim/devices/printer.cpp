#include "devices/printer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "paper/text_layout.h"

namespace tolvex::sim {

namespace {

constexpr int kGapBetweenLabels = 1;
constexpr int kWholeWidthPercent = 100;

// So that it can come before the first print as one feed.
static_assert(Printer::kMostFreshPaper <= std::min(kMaxItemHeight, Job::kMaxLength));

}  // namespace

Printer::Printer(PrinterModel model, JobLog& log) : model_(std::move(model)), log_(log) {
  settings_.set(Setting::PaperWidth, model_.format.width);
  if (hasLabels()) settings_.set(Setting::GapType, kGapBetweenLabels);
}

void Printer::setFault(PrinterFault fault, bool on) {
  faults_.set(static_cast<std::size_t>(fault), on);
}

bool Printer::hasFault(PrinterFault fault) const {
  return faults_.test(static_cast<std::size_t>(fault));
}

bool Printer::isPluggedIn() const { return !hasFault(PrinterFault::Unplugged); }

ResultCode Printer::status() const {
  for (const PrinterFaultRow& row : printerFaults()) {
    if (hasFault(row.fault)) return row.code;
  }
  return ResultCode::Ok;
}

ResultCode Printer::set(Setting setting, int value) {
  const PrinterSettings before = settings_;
  const bool inBounds = settings_.set(setting, value) &&
                        settings_[Setting::PaperWidth] <= model_.format.width &&
                        textWidthOn(printable()) >= kNarrowestText && textWidth() >= kNarrowestText;
  if (inBounds) return ResultCode::Ok;
  settings_ = before;
  return ResultCode::InvalidParam;
}

int Printer::printable() const {
  return std::min(settings_[Setting::PaperWidth], model_.format.printable);
}

// Margins take effect at once, the paper width with the next job.
int Printer::textWidth() const {
  return textWidthOn(isPrinting() ? job_->paper().format().printable : printable());
}

int Printer::textWidthOn(int printable) const {
  return printable - settings_[Setting::LeftMargin] - settings_[Setting::RightMargin];
}

ResultCode Printer::printText(std::string_view text, int fontSize, int width) {
  if (fontSize < kSmallestFont || fontSize > kLargestFont || width < 0) {
    return ResultCode::InvalidParam;
  }
  const int lineWidth = width == 0 ? textWidth() : std::min(width, textWidth());
  const bool wraps = settings_[Setting::TextWrapMode] != 0;
  std::vector<PaperItem> items;
  for (std::string& line :
       linesOf(text, fontSize, lineWidth, wraps ? Overflow::Wrap : Overflow::Cut)) {
    items.emplace_back(TextItem{std::move(line), fontSize, settings_[Setting::LeftMargin]});
  }
  return print(std::move(items));
}

ResultCode Printer::printImage(const Bitmap& bitmap) {
  std::vector<PaperItem> items;
  items.emplace_back(ImageItem{cutToWidth(bitmap, textWidth()), settings_[Setting::LeftMargin]});
  return print(std::move(items));
}

// What is printed begins a job of its own, unless one is being printed.
ResultCode Printer::print(std::vector<PaperItem> items) {
  if (isPrinting()) return put(std::move(items));
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  PaperFormat format = model_.format;
  format.printable = printable();
  auto job = std::make_shared<Job>(log_.nextNumber(), name(), format);
  if (fed_ > 0) job->add({FeedItem{fed_}});  // never too long by itself
  if (!job->add(std::move(items))) return ResultCode::TooMuchToPrint;
  beginFreshPaper(std::move(job));
  log_.add(job_);
  return ResultCode::Ok;
}

ResultCode Printer::put(std::vector<PaperItem> items) {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (!job_->add(std::move(items))) return ResultCode::TooMuchToPrint;
  log_.changed(*job_);
  return ResultCode::Ok;
}

ResultCode Printer::finishJob() {
  const ResultCode code = status();
  if (code == ResultCode::Ok) endJob();
  return code;
}

void Printer::endJob() {
  if (!isPrinting()) return;
  job_->finish();
  log_.changed(*job_);
}

void Printer::tearOff() {
  endJob();
  beginFreshPaper(nullptr);
}

ResultCode Printer::feed(int mm) {
  if (mm < 1 || mm > kLongestFeedMm) return ResultCode::InvalidParam;
  const int dots = mm * kDotsPerMm;
  if (job_) return put({FeedItem{dots}});
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (fed_ + dots > kMostFreshPaper) return ResultCode::TooMuchToPrint;
  fed_ += dots;
  return ResultCode::Ok;
}

ResultCode Printer::cut(int percent) {
  if (percent < 1 || percent > kWholeWidthPercent) return ResultCode::InvalidParam;
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (job_) {
    job_->cut(percent);
    log_.changed(*job_);
  }
  beginFreshPaper(nullptr);
  return ResultCode::Ok;
}

void Printer::beginFreshPaper(std::shared_ptr<Job> job) {
  if (job_) job_->settle();
  job_ = std::move(job);
  fed_ = 0;
}

ResultCode Printer::calibrateLabelGap() {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (!hasLabels()) return ResultCode::PrtDrvReturnError;
  knowsLabelGap_ = true;
  return ResultCode::Ok;
}

ResultCode Printer::calibratePaperEnd() {
  const ResultCode code = status();
  if (code == ResultCode::Ok) knowsPaperEnd_ = true;
  return code;
}

}  // namespace tolvex::sim
