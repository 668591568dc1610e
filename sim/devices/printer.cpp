#include "devices/printer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "paper/text_layout.h"

namespace tolvex::sim {

namespace {

// Of the setting GapType; all others mean paper without labels.
constexpr int kGapBetweenLabels = 1;
constexpr int kMarkOnTheBack = 2;
constexpr int kWholeWidthPercent = 100;

// So that it can come before the first print as one feed.
static_assert(Printer::kMostFreshPaper <= std::min(kMaxItemHeight, Job::kMaxLength));

StockKind kindOfGapType(int gapType) {
  if (gapType == kGapBetweenLabels) return StockKind::Gap;
  return gapType == kMarkOnTheBack ? StockKind::Mark : StockKind::Continuous;
}

// How much of the item has to find room so that anything of it is printed.
int leastHeightOf(const PaperItem& item) {
  const int height = heightOf(item);
  return std::holds_alternative<ImageItem>(item) ? std::min(height, 1) : height;
}

}  // namespace

Printer::Printer(PrinterModel model, JobLog& log)
    : model_(std::move(model)), log_(&log), supply_(model_.format) {
  settings_.set(Setting::PaperWidth, model_.format.width);
  if (hasLabels()) settings_.set(Setting::GapType, kGapBetweenLabels);
}

void Printer::setFault(PrinterFault fault, bool on) {
  faults_.set(static_cast<std::size_t>(fault), on);
  if (fault == PrinterFault::OutOfPaper && !on && supply_.isEmpty()) loadPaper(std::nullopt);
}

bool Printer::hasFault(PrinterFault fault) const {
  return faults_.test(static_cast<std::size_t>(fault));
}

bool Printer::isPluggedIn() const { return !hasFault(PrinterFault::Unplugged); }

ResultCode Printer::status() const {
  for (const PrinterFaultRow& row : printerFaults()) {
    const bool isAtItsEnd = row.fault == PrinterFault::OutOfPaper && supply_.isEmpty();
    if (hasFault(row.fault) || isAtItsEnd) return row.code;
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
  return isPrinting() ? put(std::move(items)) : beginJob(std::move(items));
}

// There is no job before it is known that something can be printed. A job that follows another one
// begins with a label, as the printer believes; what is left of the label before is not fed on the
// account of that job.
ResultCode Printer::beginJob(std::vector<PaperItem> items) {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  auto fresh = newJob();
  if (!fresh->fits(items)) return ResultCode::TooMuchToPrint;
  const int toNextLabel = job_ ? restOfLabel() : 0;
  const Paper& paper = fresh->paper();
  const int skipped = job_ ? toNextLabel : paper.topFor(items.front()) - paper.length();
  if (!reaches(skipped + leastHeightOf(items.front()))) return ResultCode::OutOfPaper;
  if (supply_.advance(toNextLabel) > 0) fresh = newJob();
  beginFreshPaper(std::move(fresh));
  const ResultCode code = layDown(std::move(items));
  log_->add(job_);
  return code;
}

// A job on the paper below the head, with what was fed of it.
std::shared_ptr<Job> Printer::newJob() const {
  PaperFormat format = model_.format;
  format.printable = printable();
  auto job = std::make_shared<Job>(log_->nextNumber(), name(), format, job_ != nullptr);
  if (stock() != nullptr) job->lieOn(stock()->moved(-fed_));
  if (learnt() != nullptr) job->layOut(learnt()->moved(-fed_));
  if (fed_ > 0) job->add(FeedItem{fed_});  // never too long by itself
  return job;
}

ResultCode Printer::put(std::vector<PaperItem> items) {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (!job_->fits(items)) return ResultCode::TooMuchToPrint;
  const ResultCode code = layDown(std::move(items));
  log_->changed(*job_);
  return code;
}

// Puts the items on the paper of the job, as far as the roll reaches.
ResultCode Printer::layDown(std::vector<PaperItem> items) {
  for (PaperItem& item : items) {
    const Paper& paper = job_->paper();
    const int distance = paper.topFor(item) - paper.length() + heightOf(item);
    if (!supply_.reaches(distance)) {
      layDownToTheEnd(std::move(item));
      return ResultCode::OutOfPaper;
    }
    job_->add(std::move(item));
    supply_.advance(distance);
  }
  if (supply_.isEmpty()) job_->endRoll();
  return ResultCode::Ok;
}

// Of a picture the upper rows are printed, everything else leaves the rest of the roll blank.
void Printer::layDownToTheEnd(PaperItem item) {
  const Paper& paper = job_->paper();
  const auto* image = std::get_if<ImageItem>(&item);
  const int skipped = image == nullptr ? kMaxItemHeight : paper.topFor(item) - paper.length();
  if (const int blank = supply_.advance(skipped); blank > 0) job_->add(FeedItem{blank});
  const int rows = image == nullptr ? 0 : supply_.advance(heightOf(item));
  if (rows > 0) job_->add(ImageItem{cutToHeight(image->bitmap, rows), image->indent});
  job_->endRoll();
}

bool Printer::sensesItsStock() const {
  return hasLabels() && stock()->kind != StockKind::Continuous &&
         stock()->kind == kindOfGapType(settings_[Setting::GapType]);
}

bool Printer::searchesInVain() const {
  return hasLabels() && kindOfGapType(settings_[Setting::GapType]) != StockKind::Continuous &&
         !sensesItsStock();
}

ResultCode Printer::finishJob() {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (isPrinting() && searchesInVain()) {
    const ResultCode code = put({FeedItem{learnt()->pitch()}});
    if (code == ResultCode::OutOfPaper) return code;
  }
  endJob();
  return ResultCode::Ok;
}

void Printer::endJob() {
  if (!isPrinting()) return;
  job_->finish();
  log_->changed(*job_);
}

void Printer::tearOff() {
  takePaperAway();
  supply_.advance(restOfLabel());
}

void Printer::takePaperAway() {
  if (job_) {
    job_->tearOff();
    log_->noted(*job_);
  }
  endJob();
  beginFreshPaper(nullptr);
}

ResultCode Printer::feed(int mm) {
  if (mm < 1 || mm > kLongestFeedMm) return ResultCode::InvalidParam;
  return feedDots(mm * kDotsPerMm);
}

ResultCode Printer::feedDots(int dots) {
  if (job_) return put({FeedItem{dots}});
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (fed_ + dots > kMostFreshPaper) return ResultCode::TooMuchToPrint;
  if (!reaches(dots)) return ResultCode::OutOfPaper;
  fed_ += supply_.advance(dots);
  return ResultCode::Ok;
}

// Whether the roll reaches for so many more dots. If not, what is left of it comes out blank.
bool Printer::reaches(int dots) {
  if (supply_.reaches(dots)) return true;
  if (job_) {
    layDownToTheEnd(FeedItem{dots});
    log_->changed(*job_);
  } else {
    fed_ = std::min(fed_ + supply_.advance(dots), kMostFreshPaper);
  }
  return false;
}

// Up to the next label, as the printer believes.
int Printer::restOfLabel() const { return hasLabels() ? learnt()->toNextLabel() : 0; }

ResultCode Printer::cut(int percent) {
  if (percent < 1 || percent > kWholeWidthPercent) return ResultCode::InvalidParam;
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (job_) {
    const Paper& paper = job_->paper();
    const int distance = paper.topFor(CutItem{percent}) - paper.length();
    if (!reaches(distance)) return ResultCode::OutOfPaper;
    supply_.advance(distance);
    job_->cut(percent);
    log_->changed(*job_);
  }
  beginFreshPaper(nullptr);
  supply_.advance(restOfLabel());
  return ResultCode::Ok;
}

void Printer::beginFreshPaper(std::shared_ptr<Job> job) {
  if (job_) job_->settle();
  job_ = std::move(job);
  fed_ = 0;
}

void Printer::setPaperLeft(std::optional<int> left) {
  if (left) left = std::clamp(*left, 0, kMostPaper);
  const bool isOut = supply_.isEmpty() || hasFault(PrinterFault::OutOfPaper);
  if (isOut && left != 0) {
    loadPaper(left);
  } else {
    supply_.setLeft(left);
  }
}

ResultCode Printer::checkStock(const LabelStock& stock) const {
  if (!hasLabels()) return ResultCode::PrtDrvReturnError;
  return isPossible(stock) ? ResultCode::Ok : ResultCode::InvalidParam;
}

ResultCode Printer::setStock(const LabelStock& stock) {
  if (const ResultCode code = checkStock(stock); code != ResultCode::Ok) return code;
  if (stock == *this->stock()) return ResultCode::Ok;
  if (isPrinting()) {
    job_->lieOn(stock);
    log_->changed(*job_);
  } else if (job_) {
    tearOff();
  }
  supply_.setStock(stock);
  return ResultCode::Ok;
}

ResultCode Printer::loadPaper(std::optional<int> left, const std::optional<LabelStock>& stock) {
  if (stock) {
    if (const ResultCode code = checkStock(*stock); code != ResultCode::Ok) return code;
  }
  if (left) left = std::clamp(*left, 0, kMostPaper);
  if (isPrinting()) {
    job_->endRoll();
  } else {
    takePaperAway();
  }
  supply_.load(left, stock);
  faults_.reset(static_cast<std::size_t>(PrinterFault::OutOfPaper));
  if (!isPrinting()) return ResultCode::Ok;
  if (hasLabels()) {
    job_->lieOn(*supply_.stock());
    job_->layOut(*learnt());
  }
  log_->changed(*job_);
  return ResultCode::Ok;
}

ResultCode Printer::calibrateLabelGap() {
  if (const ResultCode code = status(); code != ResultCode::Ok) return code;
  if (!sensesItsStock()) return ResultCode::PrtDrvReturnError;
  // The gap below the present label shows where the next one begins, the one below that its size.
  const int distance = 2 * stock()->pitch() - stock()->position;
  if (const ResultCode code = feedDots(distance); code != ResultCode::Ok) return code;
  supply_.learn();
  if (job_) {
    job_->layOut(*learnt());
    log_->noted(*job_);
  }
  knowsLabelGap_ = true;
  return ResultCode::Ok;
}

ResultCode Printer::calibratePaperEnd() {
  const ResultCode code = status();
  if (code == ResultCode::Ok) knowsPaperEnd_ = true;
  return code;
}

}  // namespace tolvex::sim
