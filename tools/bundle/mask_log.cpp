#include <algorithm>

#include "bundle/mask.h"
#include "logs/log_record.h"

namespace tolvex::ctl {
namespace {

// What a message of the library says behind its own words.
enum class Tail {
  kHarmless,  // numbers, addresses, paths, printer names: stays
  kNumber,    // a text of the caller that should be a number: stays if it is one
  kFontText,  // a font size, and the text of a line
  kText,      // a text of the caller
  kJson,      // a request or a reply
};

struct Words {
  std::string_view words;
  Tail tail;
};

// Every line that the library writes has one of these, perhaps behind "[client]". Where several fit,
// the first one in the line counts, then the first one here.
constexpr Words kLines[] = {
    {"[PrintText] font:", Tail::kFontText},
    {"[PrintText] font size too ", Tail::kHarmless},
    {"[PrintText] Input param ", Tail::kHarmless},
    {"[PrintTextByPaperWidth] Input param is NULL", Tail::kHarmless},
    {"[PrintTextByPaperWidth] Input param len is 0", Tail::kHarmless},
    {"[PrintTextByPaperWidth] ", Tail::kText},
    {"printText Input params is too long(", Tail::kText},
    {"[printTextByPaperWidth] str is NULL", Tail::kHarmless},
    {"==>[Zelkad][SndCmdToLC] Snd: ", Tail::kJson},
    {"==>[Zelkad][SndCmdToPrinter] Snd: ", Tail::kJson},
    {"<==[Zelkad][SndCmdToLC] Rcv: ", Tail::kJson},
    {"<==[Zelkad][SndCmdToPrinter] Rcv: ", Tail::kJson},
    {"[sendRawCmdToPrt] Req: ", Tail::kJson},
    {"[SndCmdToLC] ", Tail::kHarmless},
    {"[SndCmdToPrinter] ", Tail::kHarmless},
    {"[setPresetTare] json parse fail:", Tail::kJson},
    {"[setTare] json parse fail:", Tail::kJson},
    {"[clearTare] json parse fail:", Tail::kJson},
    {"[getLogLevel] json parse fail:", Tail::kJson},
    {"[getPrinterList] json parse fail:", Tail::kJson},
    {"[FormatBaseInfo] ", Tail::kJson},
    {"[WeightInfo] ", Tail::kJson},
    {"[read_baseinfo] End, ", Tail::kJson},
    {"[read_baseinfo] ", Tail::kHarmless},
    {"[read_standard] ", Tail::kHarmless},
    {"[getWeight] Oh Ye~", Tail::kHarmless},
    {"[send_zero] ", Tail::kHarmless},
    {"[set_tare_bykey] ", Tail::kHarmless},
    {"[send_tare] Enter", Tail::kHarmless},
    {"[send_pre_tare] Enter ", Tail::kNumber},
    {"[send_pre_tare] ", Tail::kHarmless},
    {"[clear_tare] ", Tail::kHarmless},
    {"[PrintBitmapFile] ", Tail::kHarmless},
    {"[PrintBitmapFileWithAlign] ", Tail::kHarmless},
    {"[cacheImage] ", Tail::kHarmless},
    {"[BeginPrint] ", Tail::kHarmless},
    {"[Feed - BeginPrint] ", Tail::kHarmless},
    {"[Cut - BeginPrint] ", Tail::kHarmless},
    {"[printBlanks] ", Tail::kHarmless},
    {"[feedPaper] ", Tail::kHarmless},
    {"[feedPaperById] ", Tail::kHarmless},
    {"[cutPaper] ", Tail::kHarmless},
    {"[calibrateLabel] ", Tail::kHarmless},
    {"[setTakeupPaperSensor] ", Tail::kHarmless},
    {"[GetPrinterList] ", Tail::kHarmless},
    {"[getPrinterVersion] OK, ver:", Tail::kJson},
    {"[getPrinterVersion] ", Tail::kHarmless},
    {"[OpenCashDrawerEx] ", Tail::kHarmless},
    {"[DLL] setting Server IP ", Tail::kHarmless},
    {"[DLL] Init conn to ", Tail::kHarmless},
    {"[NLog] No config file in: ", Tail::kHarmless},
    {"[CTcpClient::Send] ", Tail::kHarmless},
    {"[CTcpClient::Recv] ", Tail::kHarmless},
    {"[CTcpSocket] ", Tail::kHarmless},
    {"[Connect] ", Tail::kHarmless},
    {"Error: ", Tail::kHarmless},
    {"======= tolvex_dll V", Tail::kHarmless},
    {"===========================================", Tail::kHarmless},
};

struct Found {
  const Words* line = nullptr;
  std::size_t at = std::string_view::npos;
};

Found findWords(std::string_view message) {
  Found first;
  for (const Words& line : kLines) {
    const std::size_t at = message.find(line.words);
    if (at < first.at) first = {&line, at};
  }
  return first;
}

bool isHarmlessNumber(std::string_view text) {
  return text.find_first_not_of("+-.0123456789 ") == std::string_view::npos;
}

std::string maskTail(Tail tail, std::string_view text) {
  switch (tail) {
    case Tail::kHarmless:
      return std::string(text);
    case Tail::kNumber:
      return isHarmlessNumber(text) ? std::string(text) : maskText(text);
    case Tail::kFontText: {
      const std::size_t size = std::min(text.find_first_not_of("-0123456789"), text.size());
      return std::string(text.substr(0, size)) + maskText(text.substr(size));
    }
    case Tail::kJson:
      return maskJson(text);
    case Tail::kText:
      break;
  }
  return maskText(text);
}

// The library's words stand at the front, or behind "[client]" alone.
bool isClient(std::string_view text) {
  return text.empty() || (text.front() == '[' && text.back() == ']');
}

std::string maskMessage(std::string_view message) {
  const Found found = findWords(message);
  if (found.line == nullptr || !isClient(message.substr(0, found.at))) return maskText(message);
  const std::size_t end = found.at + found.line->words.size();
  return std::string(message.substr(0, end)) + maskTail(found.line->tail, message.substr(end));
}

// What stands without a header is a text of several lines.
std::string maskContinuation(std::string_view line) {
  constexpr std::string_view words = "[PrintTextByPaperWidth] ";
  if (line == kClearedMark) return std::string(line);
  const std::size_t kept = line.substr(0, words.size()) == words ? words.size() : 0;
  return std::string(line.substr(0, kept)) + maskText(line.substr(kept));
}

bool isModule(std::string_view module) {
  return module.empty() || module == "DLL" || module == "Socket" || module == "NLog";
}

}  // namespace

std::string maskLogLine(std::string_view line) {
  const std::optional<LogHeader> header = parseLogHeader(line);
  if (!header || !isModule(header->module)) return maskContinuation(line);
  const std::size_t kept = line.size() - header->message.size();
  return std::string(line.substr(0, kept)) + maskMessage(header->message);
}

}  // namespace tolvex::ctl
