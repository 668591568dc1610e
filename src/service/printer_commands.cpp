// The commands of the printers, all on the printing connection. Each row reads: checks, command,
// members in the order in which they are sent. That order differs between the setters.
#include <cstring>

#include "log/nlog.h"
#include "service/envelope.h"
#include "service/reply.h"
#include "service/reply_copy.h"
#include "service/result_codes.h"
#include "service/route.h"

namespace tolvex {
namespace {

constexpr int kOrdinaryFontSize = 28;

bool isPrinterName(const char* name) {
  return name != nullptr && strnlen(name, kLongestPrinterName + 1) <= kLongestPrinterName;
}

const char* orBlank(const char* text) { return text[0] != '\0' ? text : " "; }
int orOrdinary(int fontSize) { return fontSize != 0 ? fontSize : kOrdinaryFontSize; }

// Paper widths are given in millimetres and sent in dots. Defined for every number.
int inDots(int width) { return static_cast<int>(static_cast<unsigned>(width) * 8U); }

}  // namespace

struct VcoClientApi::Member {
  Member(const char* name, int value) : key(name), number(value) {}
  Member(const char* name, const char* value) : key(name), text(value != nullptr ? value : "") {}

  const char* key;
  const char* text = nullptr;  // null: the number
  int number = 0;
  bool isUsable = true;
};

VcoClientApi::Member VcoClientApi::printer(int type) { return {"printerType", type}; }

VcoClientApi::Member VcoClientApi::printer(const char* name) {
  Member member("printerName", name);
  member.isUsable = isPrinterName(name);
  return member;
}

std::int32_t VcoClientApi::printerCommand(const char* cmd, std::initializer_list<Member> members) {
  Envelope request(cmd);
  for (const Member& member : members) {
    if (!member.isUsable) return result::kInvalidParam;
    if (member.text != nullptr) {
      request.add(member.key, member.text);
    } else {
      request.add(member.key, member.number);
    }
  }
  Reply reply;
  return command(printingRoute(), request, reply).code;
}

unsigned VcoClientApi::printing(const char* cmd, std::initializer_list<Member> members) {
  return kept(printerCommand(cmd, members));
}

// ---- Jobs ----

unsigned VcoClientApi::beginPrint(int printerType) {
  return printing("beginPrint", {printer(printerType)});
}

unsigned VcoClientApi::printText(const char* text, int fontSize, int printerType) {
  if (text == nullptr) return kept(result::kInvalidParam);
  if (strnlen(text, kLongestText + 1) > kLongestText) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 463,
              "printText Input params is too long(%s)!", text);
    return kept(result::kTooMuchToPrint);
  }
  return printing(
      "printtext",
      {printer(printerType), {"fontsize", orOrdinary(fontSize)}, {"text", orBlank(text)}});
}

unsigned VcoClientApi::printTextByPaperWidth(const char* text, int fontSize, int width,
                                             int printerType) {
  if (text == nullptr) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 493,
              "[printTextByPaperWidth] str is NULL");
    return kept(result::kInvalidParam);
  }
  return printing("print_text_width", {printer(printerType),
                                       {"fontsize", orOrdinary(fontSize)},
                                       {"width", inDots(width)},
                                       {"text", orBlank(text)}});
}

unsigned VcoClientApi::printBmpFile(const char* fileName, int angle, int printerType) {
  if (fileName == nullptr || fileName[0] == '\0') return kept(result::kInvalidParam);
  return printing("printbmpfile", {printer(printerType), {"angle", angle}, {"filename", fileName}});
}

// ---- Paper ----

unsigned VcoClientApi::printBlanks(int distance, int printerType) {
  if (distance < kLeastBlanks || distance > kMostBlanks) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 565, "[printBlanks] Invalid Param:%d",
              distance);
    return kept(result::kInvalidParam);
  }
  return printing("printblanks", {{"distance", distance}, printer(printerType)});
}

unsigned VcoClientApi::feedPaper(int printerType) {
  return printBlanks(kFeedDistance, printerType);
}

unsigned VcoClientApi::cutPaper(int printerType, int percent) {
  return printing("cutPaper", {printer(printerType), {"Percent", percent}});
}

unsigned VcoClientApi::calibrateLabelGap(int printerType) {
  return printing("calibrateLabelGap", {printer(printerType)});
}

unsigned VcoClientApi::calibrateOutOfPaper(int printerType) {
  return printing("calibrateOutOfPaper", {printer(printerType)});
}

// ---- Information ----

unsigned VcoClientApi::printerStatus(int printerType) {
  return printing("printerStatus", {printer(printerType)});
}

unsigned VcoClientApi::openCashBox() { return printing("opencashbox", {}); }

// The result in the reply does not count: a list that came is a list.
unsigned VcoClientApi::getPrinterList(char* out, unsigned outLen) {
  if (out == nullptr) return kept(result::kInvalidParam);
  Envelope request("getPrinterList");
  Reply reply;
  const Outcome outcome = command(printingRoute(), request, reply);
  if (!outcome.answered) return kept(outcome.code);
  const char* const list = reply.text("PrinterList");
  if (list == nullptr) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 688,
              "[%s][getPrinterList] json parse fail:%s", getClientName().c_str(), reply.raw());
    return kept(result::kJsonErr);
  }
  return kept(copyExactText(out, outLen, list));
}

unsigned VcoClientApi::getPrinterVersion(char* out, unsigned outLen, const char* printerName) {
  if (!isPrinterName(printerName)) return kept(result::kInvalidParam);
  Envelope request("getprinterversion");
  request.add("printerName", printerName);
  return kept(wholeReplyCommand(printingRoute(), request, out, outLen));
}

// ---- Settings ----

unsigned VcoClientApi::setPaperWidth(int width, int printerType) {
  return printing("setpaperwidth", {{"width", inDots(width)}, printer(printerType)});
}

unsigned VcoClientApi::setGapType(int gapType, int printerType) {
  return printing("setGapType", {{"gapType", gapType}, printer(printerType)});
}

unsigned VcoClientApi::setDirection(int direction, int printerType) {
  return printing("setdirection", {{"direction", direction}, printer(printerType)});
}

unsigned VcoClientApi::setTextWrapMode(int wrapMode, int printerType) {
  return static_cast<unsigned>(
      printerCommand("setTextWrapMode", {printer(printerType), {"WrapMode", wrapMode}}));
}

unsigned VcoClientApi::setLeftMargin(int leftMargin, const char* printerName) {
  return printing("setLeftMargin", {printer(printerName), {"leftMargin", leftMargin}});
}

unsigned VcoClientApi::setRightMargin(int rightMargin, const char* printerName) {
  return printing("setRightMargin", {printer(printerName), {"rightMargin", rightMargin}});
}

unsigned VcoClientApi::setPrtAutoPrint(int enable, const char* printerName) {
  return printing("setPrtAutoPrint", {printer(printerName), {"enable", enable}});
}

unsigned VcoClientApi::setPaperOffset(int offset, const char* printerName) {
  return printing("setPaperOffset", {{"offset", offset}, printer(printerName)});
}

unsigned VcoClientApi::setContrast(int contrast, const char* printerName) {
  return printing("setcontrast", {{"contrast", contrast}, printer(printerName)});
}

unsigned VcoClientApi::setPrintSpeed(int speed, const char* printerName) {
  return printing("setprintspeed", {{"speed", speed}, printer(printerName)});
}

unsigned VcoClientApi::setRollback(int enable, const char* printerName) {
  return printing("setRollback", {{"enable", enable}, printer(printerName)});
}

unsigned VcoClientApi::setTakePaperSensor(int enable, const char* printerName) {
  return printing("settakepapersensor", {{"enable", enable != 0 ? 1 : 0}, printer(printerName)});
}

// ---- Others ----

unsigned VcoClientApi::setOverloadAlarm(int enable) {
  return printing("setOverloadAlarm", {{"enable", enable}});
}

unsigned VcoClientApi::sendRawCmdToPrt(const char* printerName, const char* cmd, int intParam,
                                       const char* paramList, char* out, unsigned outLen,
                                       unsigned timeoutMs) {
  if (cmd == nullptr) return kept(result::kInvalidParam);
  if (!isPrinterName(printerName)) return result::kInvalidParam;
  Envelope request(cmd);
  request.add("printerName", printerName).add("intParam", intParam);
  if (paramList != nullptr && paramList[0] != '\0') request.add("paramList", paramList);
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 1012, "[sendRawCmdToPrt] Req: %s",
            request.text());
  return rawCommand(printingRoute(), request, out, outLen, timeoutMs);
}

}  // namespace tolvex
