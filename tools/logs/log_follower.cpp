#include "logs/log_follower.h"

#include <algorithm>

namespace tolvex::ctl {

LogFollower::LogFollower(std::vector<std::string> folders, const std::vector<LogFile>& known)
    : folders_(std::move(folders)) {
  for (const LogFile& file : known) {
    files_.emplace(file.path, Followed{file.size, RecordBuilder(file.name)});
  }
}

std::vector<LogRecord> LogFollower::poll() {
  std::vector<LogRecord> records;
  for (const LogFile& file : findLogFiles(folders_)) {
    Followed& followed =
        files_.try_emplace(file.path, Followed{0, RecordBuilder(file.name)}).first->second;
    if (file.size < followed.position) followed.position = 0;
    read(file, followed, records);
  }
  for (LogRecord& record : records) record.order = record.time.value_or(latest_);
  std::stable_sort(records.begin(), records.end(),
                   [](const LogRecord& a, const LogRecord& b) { return a.order < b.order; });
  if (!records.empty()) latest_ = std::max(latest_, records.back().order);
  return records;
}

void LogFollower::read(const LogFile& file, Followed& followed, std::vector<LogRecord>& records) {
  const auto keep = [&](std::optional<LogRecord> record) {
    if (record) records.push_back(std::move(*record));
  };
  LineReader lines(file.path, followed.position, file.size);
  std::string line;
  bool any = false;
  while (lines.next(line)) {
    if (!lines.ended()) break;  // the rest of it is still to be written
    any = true;
    keep(followed.builder.feed(line, lines.leftOut()));
    followed.position = lines.position();
  }
  if (!any) keep(followed.builder.finish());
}

}  // namespace tolvex::ctl
