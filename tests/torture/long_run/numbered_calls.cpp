#include "numbered_calls.h"

#include <cstdio>

#include "api/exports.h"

namespace tolvex::test {
namespace {

constexpr char kRaw[] = "probe";
constexpr char kPrinter[] = "printer";
constexpr unsigned kReplySize = 2048;
constexpr std::uint64_t kCodes = 1000000000;
constexpr int kFirstCode = 10000;  // above the library's own

// Commands whose result has to be 0, since what tells them apart stands elsewhere in the reply.
bool isAnsweredByText(const std::string& request) {
  for (const char* command : {"probe", "getweight", "getbaseinfo", "settarebykey", "clear_tare",
                              "getloglevel", "getPrinterList", "printtext", "beginPrint"}) {
    if (request.find(std::string("\"") + command + "\"") != std::string::npos) return true;
  }
  return false;
}

std::string replyWith(int result, std::uint64_t number) {
  const std::string weight = weightOf(number);
  const std::string digits = std::to_string(number);
  return R"({"result":")" + std::to_string(result) + R"(","net":")" + weight +
         R"(","highResNet":")" + weight + R"(","tare":")" + weight + R"(","level":")" + digits +
         R"(","PrinterList":")" + digits + R"(","systemVersion":")" + digits + R"("})";
}

// The text is read behind the call that fills it in, which may stand in the same line.
Outcome byText(bool failed, const char* text, const std::string& own) {
  if (failed) return Outcome::kFailed;
  return text == own ? Outcome::kOwn : Outcome::kAnothers;
}

Outcome byCode(int code, std::uint64_t number) {
  if (code == TOLVEX_RESULT_SOCKET_INTERRUPT || code == TOLVEX_UNREADABLE_REPLY) {
    return Outcome::kFailed;
  }
  return code == codeOf(number) ? Outcome::kOwn : Outcome::kAnothers;
}

// Of a verdict, which has to be the bad one: the code behind it is the call's.
Outcome byLastError(int verdict, std::uint64_t number) {
  return verdict == TOLVEX_OK ? Outcome::kAnothers : byCode(getLastErrCode(), number);
}

Outcome whole(int code, const char* reply, std::uint64_t number) {
  const Outcome outcome = byCode(code, number);
  if (outcome == Outcome::kFailed) return outcome;
  return reply == replyWith(code, number) ? outcome : Outcome::kAnothers;
}

Outcome level(const char* module, std::uint64_t number) {
  char text[64] = {};
  return byText(getLogLevel(module, text, sizeof(text) - 1) != 0, text, std::to_string(number));
}

using Tare = int (*)(char* reply);

Outcome tare(Tare command, std::uint64_t number) {
  char text[11] = {};
  return byText(command(text) == TOLVEX_FAILED, text, weightOf(number));
}

constexpr NumberedCall kCalls[kNumberedCalls] = {
    {"sendRawCmdToLC", true, [](std::uint64_t n) { return rawCall(true, n, kLongWait); }},
    {"read_standard", true,
     [](std::uint64_t n) {
       char record[24] = {};
       const int verdict = read_standard(record);
       return byText(verdict == TOLVEX_FAILED, std::string(record + 1, 7).c_str(), weightOf(n));
     }},
    {"read_baseinfo", true,
     [](std::uint64_t n) {
       tolvex_base_info info = {};
       const int verdict = read_baseinfo(reinterpret_cast<char*>(&info));
       return byText(verdict == TOLVEX_FAILED, info.system_version, std::to_string(n));
     }},
    {"send_tare", true, [](std::uint64_t n) { return tare(send_tare, n); }},
    {"clear_tare", true, [](std::uint64_t n) { return tare(clear_tare, n); }},
    {"send_pre_tare", true, [](std::uint64_t n) { return tare(send_pre_tare, n); }},
    {"send_zero", true, [](std::uint64_t n) { return byLastError(send_zero(), n); }},
    {"checkConnection", true,
     [](std::uint64_t n) {
       return checkConnection() == 0 ? Outcome::kFailed : byCode(getLastErrCode(), n);
     }},
    {"getLCVersion", true,
     [](std::uint64_t n) {
       char reply[kReplySize + 1] = {};
       return whole(getLCVersion(reply, kReplySize), reply, n);
     }},
    {"getLogLevel loadcell", true, [](std::uint64_t n) { return level("loadcell", n); }},
    {"sendRawCmdToPrt", false, [](std::uint64_t n) { return rawCall(false, n, kLongWait); }},
    {"getLogLevel print", false, [](std::uint64_t n) { return level("print", n); }},
    {"GetPrinterList", false,
     [](std::uint64_t n) {
       char list[64] = {};
       return byText(GetPrinterList(list, sizeof(list) - 1) == TOLVEX_FAILED, list,
                     std::to_string(n));
     }},
    {"setLeftMargin", false,
     [](std::uint64_t n) { return byCode(setLeftMargin(static_cast<unsigned>(n), kPrinter), n); }},
    {"printTextByPaperWidthById", false,
     [](std::uint64_t n) {
       return byCode(printTextByPaperWidthById(std::to_string(n).c_str(), 24, 80, 1), n);
     }},
    {"OpenCashDrawerEx", false, [](std::uint64_t n) { return byLastError(OpenCashDrawerEx(), n); }},
    // Two lines and the confirmation go well, the cut is told by its code.
    {"BeginPrint", false,
     [](std::uint64_t n) {
       const std::string text = "line " + std::to_string(n) + "\nand another one";
       if (PrintText(text.c_str(), 24) != TOLVEX_OK) return Outcome::kAnothers;
       return byLastError(BeginPrint(8), n);
     }},
};

}  // namespace

const char* textOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kOwn:
      return "its own reply";
    case Outcome::kAnothers:
      return "another call's reply";
    case Outcome::kFailed:
      break;
  }
  return "no reply";
}

std::string weightOf(std::uint64_t number) {
  char text[32];
  std::snprintf(text, sizeof(text), "%02u.%04u", static_cast<unsigned>(number % kWeights / 10000),
                static_cast<unsigned>(number % 10000));
  return text;
}

int codeOf(std::uint64_t number) { return kFirstCode + static_cast<int>(number % kCodes); }

std::string numberedReply(const std::string& request, std::uint64_t number) {
  return replyWith(isAnsweredByText(request) ? 0 : codeOf(number), number);
}

std::string rawReply(std::uint64_t number) { return replyWith(0, number); }

Outcome rawCall(bool weighing, std::uint64_t number, unsigned wait) {
  const std::string parameters = std::to_string(number);
  char reply[kReplySize + 1] = {};
  const int code =
      weighing ? sendRawCmdToLC(kRaw, parameters.c_str(), reply, kReplySize, wait)
               : sendRawCmdToPrt(kPrinter, kRaw, 0, parameters.c_str(), reply, kReplySize, wait);
  const bool failed = code == TOLVEX_RESULT_SOCKET_INTERRUPT || code == TOLVEX_UNREADABLE_REPLY;
  return byText(failed, reply, rawReply(number));
}

const NumberedCall& numberedCall(unsigned index) { return kCalls[index]; }

}  // namespace tolvex::test
