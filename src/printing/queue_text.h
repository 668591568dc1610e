// From the caller's text to records of the print job.
#pragma once

#include <cstdint>

#include "service/print_job_buffer.h"

namespace tolvex {

// Converts the text from the system's ANSI code page to UTF-8 and queues it with the kind and the
// parameters given: as one record when it has no line feed, otherwise one record for each line. A
// line without anything in it, or with nothing but a carriage return, is queued as one blank; of
// the others one carriage return at the end is dropped. A line feed at the very end begins no
// further line. An empty text queues nothing.
//
// Throws std::bad_alloc; then nothing of the text is queued.
void queueText(PrintJobBuffer& job, PrintJobKind kind, std::uint16_t param1, std::uint16_t param2,
               const char* text);

}  // namespace tolvex
