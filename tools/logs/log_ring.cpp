#include "logs/log_ring.h"

#include <array>
#include <limits>
#include <system_error>

#include "platform/paths.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kRingFiles = 10;
// Which names the logger gives its files: the library's, and that of a logger which nobody named.
constexpr std::array<const char*, 2> kBases = {"DLL", "NLog"};

}  // namespace

// One file: the record that comes next, and what stands at its front without a header.
class LogRing::Source {
 public:
  explicit Source(const LogFile& file) : lines_(file.path, 0, file.size), builder_(file.name) {
    advance();
    if (head_ && isOrphan(*head_)) {
      orphan_ = std::move(head_);
      advance();
    }
  }

  bool isEmpty() const { return !head_ && !orphan_; }
  const std::optional<LogRecord>& head() const { return head_; }
  const std::optional<LogRecord>& orphan() const { return orphan_; }

  std::optional<LogRecord> take() {
    std::optional<LogRecord> record = std::move(head_);
    if (second_) {
      head_ = std::move(second_);
      second_.reset();
    } else {
      advance();
    }
    return record;
  }

  // The text without a header belongs to the last record of that file ...
  void continueWith(const Source& successor) {
    tail_ = successor.orphan_->text;
    if (atEnd_ && head_) head_->text += (isBareHeader(*head_) ? "" : "\n") + tail_;
  }
  // ... or, where there is none, it is a record of its own.
  void keepOrphan() {
    if (!orphan_) return;
    orphan_->order = head_ ? head_->order : std::numeric_limits<LogTime>::max();
    second_ = std::move(head_);
    head_ = std::move(orphan_);
  }

 private:
  void advance() {
    head_.reset();
    std::string line;
    while (!head_ && lines_.next(line)) head_ = builder_.feed(line, lines_.leftOut());
    if (!head_) end();
    if (!head_) return;
    const LogTime last = std::numeric_limits<LogTime>::max();
    head_->order = head_->time.value_or(builder_.pendingTime().value_or(last));
  }

  void end() {
    if (atEnd_) return;
    atEnd_ = true;
    if (!tail_.empty()) builder_.continueWith(tail_);
    head_ = builder_.finish();
  }

  LineReader lines_;
  RecordBuilder builder_;
  std::optional<LogRecord> head_;
  std::optional<LogRecord> second_;
  std::optional<LogRecord> orphan_;
  std::string tail_;
  bool atEnd_ = false;
};

std::vector<std::string> logFolders() {
  return {tolvex::platform::libraryLogDirectory(), tolvex::platform::loggerDefaultDirectory()};
}

std::vector<LogFile> findLogFiles(const std::vector<std::string>& folders) {
  std::vector<LogFile> files;
  for (const std::string& folder : folders) {
    for (const char* base : kBases) {
      for (unsigned number = 0; number < kRingFiles; ++number) {
        const std::string name = std::string(base) + '_' + std::to_string(number) + ".log";
        const std::filesystem::path path = std::filesystem::u8path(folder) / name;
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) continue;
        const auto size = std::filesystem::file_size(path, error);
        if (!error) files.push_back({path, name, base, number, static_cast<std::int64_t>(size)});
      }
    }
  }
  return files;
}

LogRing::LogRing(const std::vector<LogFile>& files) {
  for (const LogFile& file : files) sources_.push_back(std::make_unique<Source>(file));
  settleOrphans(files);
}

LogRing::~LogRing() = default;

// A file that is full in the middle of a long text, after its header, leaves the text to the next.
void LogRing::settleOrphans(const std::vector<LogFile>& files) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!sources_[i]->orphan()) continue;
    const bool continues = i > 0 && files[i].number > 0 && files[i - 1].base == files[i].base &&
                           files[i - 1].number + 1 == files[i].number &&
                           files[i - 1].path.parent_path() == files[i].path.parent_path() &&
                           sources_[i - 1]->head();
    if (continues) {
      sources_[i - 1]->continueWith(*sources_[i]);
    } else {
      sources_[i]->keepOrphan();
    }
  }
}

std::optional<LogRecord> LogRing::next() {
  Source* first = nullptr;
  for (const std::unique_ptr<Source>& source : sources_) {
    if (!source->head()) continue;
    if (first == nullptr || source->head()->order < first->head()->order) first = source.get();
  }
  return first != nullptr ? first->take() : std::nullopt;
}

}  // namespace tolvex::ctl
