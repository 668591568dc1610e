#include "logs/record_builder.h"

#include <algorithm>

namespace tolvex::ctl {

std::optional<LogRecord> RecordBuilder::feed(std::string_view line, std::int64_t leftOut) {
  const std::optional<LogHeader> header = parseLogHeader(line);
  const bool cleared = line == kClearedMark;
  if (!header && !cleared && pending_) {
    continueWith(logTextInUtf8(line));
    leftOut_ += leftOut;
    return {};
  }
  std::optional<LogRecord> ended = finish();
  begin(cleared ? kClearedMark.substr(1) : std::string_view());
  if (header) {
    pending_->time = header->time;
    pending_->level = levelOfLetter(header->letter);
    pending_->line = header->line;
    pending_->module = logTextInUtf8(header->module);
    put(logTextInUtf8(header->message));
  } else if (!cleared) {
    put(logTextInUtf8(line));
  }
  leftOut_ += leftOut;
  return ended;
}

std::optional<LogRecord> RecordBuilder::finish() {
  if (pending_ && leftOut_ > 0) {
    pending_->text += "\n[... " + std::to_string(leftOut_) + " bytes left out]";
  }
  leftOut_ = 0;
  std::optional<LogRecord> record = std::move(pending_);
  pending_.reset();
  return record;
}

std::optional<LogTime> RecordBuilder::pendingTime() const {
  return pending_ ? pending_->time : std::nullopt;
}

void RecordBuilder::continueWith(std::string_view text) {
  if (!pending_) return;
  if (!isBareHeader(*pending_)) put("\n");
  put(text);
}

void RecordBuilder::put(std::string_view text) {
  const std::size_t room = kLongestText - std::min(kLongestText, pending_->text.size());
  // Once something is left out, all that follows is: no text with a hole in it.
  const std::size_t taken = leftOut_ > 0 || text.size() > room ? 0 : text.size();
  pending_->text.append(text.substr(0, taken));
  leftOut_ += static_cast<std::int64_t>(text.size() - taken);
}

void RecordBuilder::begin(std::string_view text) {
  pending_.emplace();
  pending_->file = file_;
  pending_->text = text;
}

bool isOrphan(const LogRecord& record) {
  const std::string_view mark = kClearedMark.substr(1);
  return !record.time && record.text.compare(0, mark.size(), mark) != 0;
}

bool isBareHeader(const LogRecord& record) {
  return record.time.has_value() && record.text.empty();
}

}  // namespace tolvex::ctl
