// From lines to records.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "logs/log_record.h"

namespace tolvex::ctl {

// A record keeps this much of its text; what is longer says how much was left out.
constexpr std::size_t kLongestText = 1 << 20;

// Puts together what belongs together: a line with a header begins a record, one without continues
// the record above, because texts of receipts have line feeds, and long texts stand below their
// header.
class RecordBuilder {
 public:
  explicit RecordBuilder(std::string file) : file_(std::move(file)) {}

  // Takes the next line; `leftOut` is how many bytes of it are missing. Returns the record that ended
  // with the line before, if one did.
  std::optional<LogRecord> feed(std::string_view line, std::int64_t leftOut = 0);

  // Ends the record at hand, if there is one.
  std::optional<LogRecord> finish();

  // Whether a record has begun and not ended, and its time if it has one.
  bool hasPending() const { return pending_.has_value(); }
  std::optional<LogTime> pendingTime() const;

  // Continues the record at hand with a line in UTF-8 from elsewhere.
  void continueWith(std::string_view text);

 private:
  void begin(std::string_view text);
  void put(std::string_view text);

  std::string file_;
  std::optional<LogRecord> pending_;
  std::int64_t leftOut_ = 0;
};

// Whether the record is what follows a header that stands in the file before.
bool isOrphan(const LogRecord& record);

// Whether the record is the header of a long text, whose first line does not stand beside it.
bool isBareHeader(const LogRecord& record);

}  // namespace tolvex::ctl
