#include "printing/queue_text.h"

#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace tolvex {
namespace {

std::string_view cleaned(std::string_view line) {
  if (line.empty() || line == "\r") return " ";
  if (line.back() == '\r') line.remove_suffix(1);
  return line;
}

}  // namespace

void queueText(PrintJobBuffer& job, PrintJobKind kind, std::uint16_t param1, std::uint16_t param2,
               const char* text) {
  if (text[0] == '\0') return;
  const std::string utf8 = platform::AnsiToUtf8(text);
  std::string_view rest = utf8;
  if (rest.find('\n') == std::string_view::npos) {
    job.append(kind, param1, param2, rest);
    return;
  }
  const PrintJobBuffer::Mark before = job.mark();
  try {
    while (!rest.empty()) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      job.append(kind, param1, param2, cleaned(line));
      rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
    }
  } catch (...) {
    job.rewind(before);
    throw;
  }
}

}  // namespace tolvex
