// The first line is "FONT WIDTH", or "FONT" for a text without a paper width; what follows is the text.
#include <string>
#include <vector>

#include "api/context.h"
#include "api/exports.h"
#include "platform/text_encoding.h"
#include "service/vco_client_api.h"
#include "support/lines.h"
#include "support/log.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

struct Order {
  unsigned font = 0;
  unsigned width = 0;
  bool byWidth = false;
  std::string text;
};

Order orderOf(std::string_view input) {
  Order order;
  std::string_view line = input.substr(0, input.find('\n'));
  input.remove_prefix(line.size() < input.size() ? line.size() + 1 : line.size());
  order.font = takeNumber(line);
  order.byWidth = takeLetter(line) == ' ';
  order.width = takeNumber(line);
  if (takeLetter(line) == '-') order.width = 0U - order.width;
  order.text = std::string(input).c_str();
  return order;
}

// One line of a receipt: never empty, and without one carriage return at its end.
std::string asPrinted(std::string line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line.empty() ? " " : line;
}

std::vector<std::string> linesOf(const std::string& text) {
  const std::string utf8 = platform::AnsiToUtf8(text.c_str());
  if (utf8.find('\n') == std::string::npos) return {utf8};
  std::vector<std::string> lines;
  std::string line;
  for (const char c : utf8) {
    if (c != '\n') {
      line += c;
      continue;
    }
    lines.push_back(asPrinted(line));
    line.clear();
  }
  if (!line.empty()) lines.push_back(asPrinted(line));
  return lines;
}

int print(const Order& order) {
  return order.byWidth ? PrintTextByPaperWidth(order.text.c_str(), order.font, order.width)
                       : PrintText(order.text.c_str(), order.font);
}

int expectedVerdict(const Order& order) {
  if (order.text.empty()) return TOLVEX_OK;
  if (order.font > 72) return TOLVEX_FONT_TOO_BIG;
  return order.font < 12 ? TOLVEX_FONT_TOO_SMALL : TOLVEX_OK;
}

void compare(PrintJobBuffer& job, const Order& order) {
  const unsigned width = order.byWidth ? (order.width < 80 ? order.width : 80) : 0;
  for (const std::string& line : linesOf(order.text)) {
    const PrintJobRecord record = job.takeNext();
    require(record.kind == (order.byWidth ? PrintJobKind::kTextByWidth : PrintJobKind::kText),
            "each line of the text is a record");
    require(record.payload == line, "a record holds its line");
    require(record.payload.find('\n') == std::string::npos, "no line feed reaches the printer");
    require(record.param1 == order.font && record.param2 == width,
            "each line has the font and the width of the text");
  }
}

}  // namespace

void targets::text_lines(std::string_view input) {
  startLog();
  // An address where nobody listens; printing needs no service until BeginPrint.
  static const int chosen = SetServerIpForRemoteAccess("127.74.9.9");
  require(chosen == TOLVEX_OK, "the address is one");
  PrintJobBuffer& job = libraryClient()->printJob();
  job.reset();

  const Order order = orderOf(input);
  const int verdict = print(order);
  require(verdict == expectedVerdict(order), "the verdict is that of the font's size");
  if (verdict == TOLVEX_OK && !order.text.empty()) compare(job, order);
  require(job.takeNext().kind == PrintJobKind::kNone, "nothing else is queued");
}

}  // namespace tolvex::fuzz
