// The records of a print job as values.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "service/print_job_buffer.h"

namespace tolvex {

using Records = std::vector<PrintJobRecord>;

inline bool operator==(const PrintJobRecord& a, const PrintJobRecord& b) {
  return a.kind == b.kind && a.param1 == b.param1 && a.param2 == b.param2 && a.payload == b.payload;
}

inline void PrintTo(const PrintJobRecord& record, std::ostream* out) {
  constexpr std::size_t kReadable = 200;
  *out << static_cast<unsigned>(record.kind) << ' ' << record.param1 << ' ' << record.param2 << " ["
       << record.payload.substr(0, kReadable) << "] " << record.payload.size();
}

inline Records takeAll(PrintJobBuffer& job) {
  Records records;
  for (;;) {
    PrintJobRecord next = job.takeNext();
    if (next.kind == PrintJobKind::kNone) return records;
    records.push_back(std::move(next));
  }
}

}  // namespace tolvex
