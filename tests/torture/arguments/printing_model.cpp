#include <algorithm>
#include <utility>

#include "outcomes.h"
#include "platform/text_encoding.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kLongestLine = 2048;
constexpr int kDefaultType = 100;

// ---- The queue ----

std::vector<std::string> lines;  // the requests of what is queued
bool tooLongLine = false;        // behind them, the job ends

void queue(const Value& text, const std::function<std::string(const std::string&)>& asRequest,
           bool limited) {
  const std::string utf8 = platform::AnsiToUtf8(text.text.c_str());
  const bool several = utf8.find('\n') != std::string::npos;
  for (std::size_t begin = 0; begin < utf8.size() && !tooLongLine;) {
    const std::size_t end = std::min(utf8.find('\n', begin), utf8.size());
    std::string line = utf8.substr(begin, end - begin);
    if (several && !line.empty() && line.back() == '\r') line.pop_back();
    if (several && line.empty()) line = " ";
    begin = end + 1;
    tooLongLine = limited && line.size() > kLongestLine;
    if (!tooLongLine) lines.push_back(asRequest(line));
  }
}

int fontVerdict(int size) {
  const auto dots = static_cast<unsigned>(size);
  return dots > 72 ? 243 : dots < 12 ? 242 : 240;
}

Expected queuedText(const Values& v, bool byWidth) {
  if (v[0].isNull) return refused(255);
  if (v[0].text.empty()) return silently(240);
  const int verdict = fontVerdict(v[1].number);
  if (verdict != 240) return refused(verdict);
  const int width =
      byWidth ? static_cast<int>(std::min(80U, static_cast<unsigned>(v[2].number))) : 0;
  queue(
      v[0],
      [&](const std::string& line) {
        return byWidth ? request("print_text_width", {{"printerType", 1},
                                                      {"fontsize", v[1].number},
                                                      {"width", width * 8},
                                                      {"text", line}})
                       : request("printtext",
                                 {{"printerType", 1}, {"fontsize", v[1].number}, {"text", line}});
      },
      !byWidth);
  return silently(240);
}

Expected queuedImage(const Values& v) {
  if (v[0].isNull) return refused(255);
  queue(
      v[0],
      [&](const std::string& line) {
        return request("printbmpfile",
                       {{"printerType", 1}, {"angle", v[1].number & 0xFFFF}, {"filename", line}});
      },
      false);
  return silently(240);
}

// ---- Printers ----

Expected ifNamed(const Value& name, int refusal, const Expected& expected) {
  return isName(name) ? expected : refused(refusal);
}

Expected feed(int verdict, int distance, int type) {
  return sent(verdict, request("printblanks", {{"distance", distance}, {"printerType", type}}));
}

Expected cut(int result, int type) {
  return sent(result, request("cutPaper", {{"printerType", type}, {"Percent", 70}}));
}

bool isOneOf(int number, const std::vector<int>& some) {
  return std::find(some.begin(), some.end(), number) != some.end();
}

int printerOf(int job) {
  if (isOneOf(job, {2, 80, 90, 204, 205, 206, 208})) return 0;
  return job >= 301 && job <= 311 ? 2 : 1;
}

// With nothing queued.
Expected emptyJob(int job) {
  const int type = printerOf(job);
  if (isOneOf(job, {4, 104, 206, 208, 304})) return feed(240, 13, type);
  if (isOneOf(job, {8, 105, 207, 305})) return cut(240, type);
  if (isOneOf(job, {80, 90}))
    return sent(240, request("calibrateLabelGap", {{"printerType", type}}));
  if (isOneOf(job, {81, 91})) {
    return sent(240, request("calibrateOutOfPaper", {{"printerType", type}}));
  }
  return isOneOf(job, {6, 106, 209, 306}) ? silently(240) : refused(255);
}

Expected typed(const char* command, const char* key, const Values& v, bool typeFirst = false) {
  const Member value(key, v[0].number);
  const Member type("printerType", v[1].number);
  return sent(0, typeFirst ? request(command, {type, value}) : request(command, {value, type}));
}

Expected named(const char* command, const char* key, const Values& v, bool nameFirst = false) {
  const Member value(key, v[0].number);
  const Member name("printerName", v[1].text);
  return ifNamed(
      v[1], 2,
      sent(0, nameFirst ? request(command, {name, value}) : request(command, {value, name})));
}

int inDots(int millimetres) { return static_cast<int>(static_cast<unsigned>(millimetres) * 8U); }

Expected paperWidth(int width, int type) {
  return sent(0, request("setpaperwidth", {{"width", inDots(width)}, {"printerType", type}}));
}

Expected textNow(const Values& v) {
  if (v[0].isNull) return refused(2);
  if (v[0].text.size() > kLongestLine) return refused(6);
  return sent(0, request("printtext", {{"printerType", v[2].number},
                                       {"fontsize", v[1].number != 0 ? v[1].number : 28},
                                       {"text", v[0].text.empty() ? " " : v[0].text}}));
}

Expected widthTextNow(const Values& v) {
  if (v[0].isNull) return refused(2);
  return sent(0, request("print_text_width", {{"printerType", v[3].number},
                                              {"fontsize", v[1].number != 0 ? v[1].number : 28},
                                              {"width", inDots(v[2].number)},
                                              {"text", v[0].text.empty() ? " " : v[0].text}}));
}

Expected imageNow(const Values& v) {
  if (v[0].isNull || v[0].text.empty()) return refused(2);
  return sent(
      0, request("printbmpfile",
                 {{"printerType", v[2].number}, {"angle", v[1].number}, {"filename", v[0].text}}));
}

}  // namespace

Models printingModels() {
  return {
      {"PrintText", [](const Values& v) { return queuedText(v, false); }},
      {"PrintTextByPaperWidth", [](const Values& v) { return queuedText(v, true); }},
      {"PrintBitmapFile", queuedImage},
      {"PrintBitmapFileWithAlign", queuedImage},
      {"BeginPrint", [](const Values& v) { return emptyJob(v[0].number); }},
      {"printTextById", textNow},
      {"printTextByPaperWidthById", widthTextNow},
      {"printBitmapFileById", imageNow},
      {"printBlanks",
       [](const Values& v) {
         const int distance = v[0].number;
         return distance < 1 || distance > 1000 ? refused(255) : feed(240, distance, kDefaultType);
       }},
      {"feedPaper", [](const Values&) { return feed(240, 13, kDefaultType); }},
      {"feedPaperById", [](const Values& v) { return feed(240, 13, v[0].number); }},
      {"cutPaper", [](const Values&) { return cut(240, kDefaultType); }},
      {"cutPaperById", [](const Values& v) { return cut(0, v[0].number); }},
      {"calibrateLabel",
       [](const Values& v) {
         return sent(240, request("calibrateLabelGap", {{"printerType", v[0].number}}));
       }},
      {"testPaper",
       [](const Values& v) {
         return sent(0, request("calibrateOutOfPaper", {{"printerType", v[0].number}}));
       }},
      {"setDefaultPaperWidth",
       [](const Values& v) { return paperWidth(v[0].number, v[1].number); }},
      {"SetDefaultPaperWidth",
       [](const Values& v) { return paperWidth(v[0].number, kDefaultType); }},
      {"setGapType", [](const Values& v) { return typed("setGapType", "gapType", v); }},
      {"setPrinterDirection",
       [](const Values& v) { return typed("setdirection", "direction", v); }},
      {"setTextWrapMode",
       [](const Values& v) { return typed("setTextWrapMode", "WrapMode", v, true); }},
      {"setLeftMargin",
       [](const Values& v) { return named("setLeftMargin", "leftMargin", v, true); }},
      {"setRightMargin",
       [](const Values& v) { return named("setRightMargin", "rightMargin", v, true); }},
      {"setPaperOffset", [](const Values& v) { return named("setPaperOffset", "offset", v); }},
      {"setPrintContrast", [](const Values& v) { return named("setcontrast", "contrast", v); }},
      {"setPrintSpeed", [](const Values& v) { return named("setprintspeed", "speed", v); }},
      {"setPrtAutoPrint",
       [](const Values& v) { return named("setPrtAutoPrint", "enable", v, true); }},
      {"setRollback", [](const Values& v) { return named("setRollback", "enable", v); }},
      {"setTakeupPaperSensor",
       [](const Values& v) {
         const Member enable("enable", v[0].number != 0 ? 1 : 0);
         return ifNamed(
             v[1], 255,
             sent(240, request("settakepapersensor", {enable, {"printerName", v[1].text}})));
       }},
      {"GetPrinterList",
       [](const Values& v) {
         return v[0].isNull ? refused(255)
                            : exactText(request("getPrinterList"), v[0], v[1], kPrinters, 240, 255);
       }},
      {"GetPrinterStatus",
       [](const Values& v) {
         return sent(0, request("printerStatus", {{"printerType", v[0].number}}));
       }},
      {"getPrinterVersion",
       [](const Values& v) {
         return ifNamed(v[2], 255,
                        wholeReply(request("getprinterversion", {{"printerName", v[2].text}}), v[0],
                                   v[1], 240, 255));
       }},
      {"OpenCashDrawerEx", [](const Values&) { return sent(240, request("opencashbox")); }},
      {"PrintLabelImage", [](const Values&) { return silently(255); }},
  };
}

Expected expectedJob() {
  Expected expected = refused(255);  // nothing queued, or a line that is too long
  expected.requests = std::exchange(lines, {});
  if (!std::exchange(tooLongLine, false) && !expected.requests.empty()) {
    expected.result = 240;
    expected.requests.push_back(request("beginPrint", {{"printerType", 1}}));
  }
  return expected;
}

}  // namespace tolvex::test
