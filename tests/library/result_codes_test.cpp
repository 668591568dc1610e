// Every result code of the service through every export that asks it.
#include <functional>

#include "api/exports.h"
#include "library/printing_test.h"

namespace tolvex::test {
namespace {

// How an export answers to a reply with a code.
enum class Answer {
  kVerdict,     // 240 for 0, otherwise 255
  kCode,        // the code
  kUnkeptCode,  // the code, which does not become the last error
  kWeight,      // as read_standard does
  kList,        // 240, and 0 as the last error: a list that came is a list
  kConnection,  // 1, whatever the service answered
};

struct AskingExport {
  const char* name;
  Answer answer;
  std::function<int()> call;
};

char room[4096];  // of any export that fills a buffer

const AskingExport kWeighing[] = {
    {"read_baseinfo", Answer::kVerdict, [] { return read_baseinfo(room); }},
    {"read_standard", Answer::kWeight, [] { return read_standard(room); }},
    {"send_zero", Answer::kVerdict, [] { return send_zero(); }},
    {"set_tare_bykey", Answer::kVerdict, [] { return set_tare_bykey(room); }},
    {"send_tare", Answer::kVerdict, [] { return send_tare(room); }},
    {"send_pre_tare", Answer::kVerdict, [] { return send_pre_tare(room); }},
    {"clear_tare", Answer::kVerdict, [] { return clear_tare(room); }},
    {"getLCVersion", Answer::kCode, [] { return getLCVersion(room, 2048); }},
    {"sendRawCmdToLC", Answer::kUnkeptCode,
     [] { return sendRawCmdToLC("any", "1", room, 2048, 9000); }},
    {"checkConnection", Answer::kConnection, [] { return checkConnection(); }},
    {"getLogLevel", Answer::kCode, [] { return getLogLevel("loadcell", room, 2048); }},
    {"setLogLevel", Answer::kCode, [] { return setLogLevel("loadcell", "6"); }},
};

const AskingExport kPrinting[] = {
    {"printTextById", Answer::kCode, [] { return printTextById("a", 24, 1); }},
    {"printTextByPaperWidthById", Answer::kCode,
     [] { return printTextByPaperWidthById("a", 24, 58, 1); }},
    {"printBitmapFileById", Answer::kCode, [] { return printBitmapFileById("a.bmp", 0, 1); }},
    {"sendRawCmdToPrt", Answer::kUnkeptCode,
     [] { return sendRawCmdToPrt("p", "any", 1, "2", room, 2048, 9000); }},
    {"printBlanks", Answer::kVerdict, [] { return printBlanks(40); }},
    {"feedPaper", Answer::kVerdict, [] { return feedPaper(); }},
    {"feedPaperById", Answer::kVerdict, [] { return feedPaperById(1); }},
    {"cutPaper", Answer::kVerdict, [] { return cutPaper(); }},
    {"cutPaperById", Answer::kCode, [] { return cutPaperById(1); }},
    {"calibrateLabel", Answer::kVerdict, [] { return calibrateLabel(0); }},
    {"testPaper", Answer::kCode, [] { return testPaper(1); }},
    {"SetDefaultPaperWidth", Answer::kCode, [] { return SetDefaultPaperWidth(58); }},
    {"setDefaultPaperWidth", Answer::kCode, [] { return setDefaultPaperWidth(58, 1); }},
    {"setGapType", Answer::kCode, [] { return setGapType(1, 0); }},
    {"setPrinterDirection", Answer::kCode, [] { return setPrinterDirection(1, 0); }},
    {"setTextWrapMode", Answer::kUnkeptCode, [] { return setTextWrapMode(1, 0); }},
    {"setLeftMargin", Answer::kCode, [] { return setLeftMargin(1, "p"); }},
    {"setRightMargin", Answer::kCode, [] { return setRightMargin(1, "p"); }},
    {"setPaperOffset", Answer::kCode, [] { return setPaperOffset(1, "p"); }},
    {"setPrintContrast", Answer::kCode, [] { return setPrintContrast(1, "p"); }},
    {"setPrintSpeed", Answer::kCode, [] { return setPrintSpeed(1, "p"); }},
    {"setPrtAutoPrint", Answer::kCode, [] { return setPrtAutoPrint(1, "p"); }},
    {"setRollback", Answer::kCode, [] { return setRollback(1, "p"); }},
    {"setTakeupPaperSensor", Answer::kVerdict, [] { return setTakeupPaperSensor(1, "p"); }},
    {"GetPrinterList", Answer::kList, [] { return GetPrinterList(room, 2048); }},
    {"GetPrinterStatus", Answer::kCode, [] { return GetPrinterStatus(1); }},
    {"getPrinterVersion", Answer::kVerdict, [] { return getPrinterVersion(room, 2048, "p"); }},
    {"OpenCashDrawerEx", Answer::kVerdict, [] { return OpenCashDrawerEx(); }},
    {"setOverloadAlarm", Answer::kCode, [] { return setOverloadAlarm(1); }},
    {"getLogLevel", Answer::kCode, [] { return getLogLevel("print", room, 2048); }},
    {"setLogLevel", Answer::kCode, [] { return setLogLevel("print", "6"); }},
    {"BeginPrint that cuts", Answer::kVerdict, [] { return BeginPrint(8); }},
    {"BeginPrint that prints", Answer::kVerdict,
     [] {
       PrintText("a", 24);
       return BeginPrint(0);
     }},
};

int weightAnswer(int code) {
  if (code == TOLVEX_RESULT_UNDER_LOAD) return TOLVEX_UNDER_LOAD;
  if (code == TOLVEX_RESULT_OVER_LOAD) return TOLVEX_OVER_LOAD;
  const bool isWeight = code == TOLVEX_RESULT_OK || code == TOLVEX_RESULT_WEIGHT_NOT_STABLE ||
                        code == TOLVEX_RESULT_INVALID_WEIGHT;
  return isWeight ? TOLVEX_OK : TOLVEX_FAILED;
}

int expectedOf(int code, Answer answer) {
  switch (answer) {
    case Answer::kVerdict:
      return code == 0 ? TOLVEX_OK : TOLVEX_FAILED;
    case Answer::kWeight:
      return weightAnswer(code);
    case Answer::kList:
      return TOLVEX_OK;
    case Answer::kConnection:
      return 1;
    case Answer::kCode:
    case Answer::kUnkeptCode:
      break;
  }
  return code;
}

class ResultCodes : public PrintingTest {
 protected:
  // What stands as the last error before each call; no service answers it.
  static constexpr int kBefore = 4321;

  void makeLastError(int code) {
    printer.answers(replyWith(code));
    ASSERT_EQ(host.call(setOverloadAlarm, 0U), code);
    ASSERT_EQ(lastError(), code);
  }

  template <std::size_t size>
  void expectEachCodeOf(const AskingExport (&exports)[size], ServicePort& port) {
    for (const int code : kCodes) {
      for (const AskingExport& row : exports) {
        SCOPED_TRACE(row.name + (" answered with " + std::to_string(code)));
        makeLastError(kBefore);
        // With all that any command looks for.
        port.alwaysAnswers(R"({"result":")" + std::to_string(code) +
                           R"(","tare":"0.1","net":"1.5","level":"6","PrinterList":"p"})");
        EXPECT_EQ(host.call(row.call), expectedOf(code, row.answer));
        const int kept = row.answer == Answer::kUnkeptCode ? kBefore
                         : row.answer == Answer::kList     ? 0
                                                           : code;
        EXPECT_EQ(lastError(), kept);
      }
    }
  }

  static const std::vector<int> kCodes;
};

// Those of the table, and one that a newer service may have.
const std::vector<int> ResultCodes::kCodes = {
#define TOLVEX_CODE(code, NAME, Name, text, meaning, remedy) code,
    TOLVEX_RESULT_CODES(TOLVEX_CODE)
#undef TOLVEX_CODE
        2999};

TEST_F(ResultCodes, OfTheScaleReachTheApplicationThroughEveryExport) {
  expectEachCodeOf(kWeighing, service.weighing());
}

TEST_F(ResultCodes, OfThePrinterReachTheApplicationThroughEveryExport) {
  expectEachCodeOf(kPrinting, printer);
}

TEST_F(ResultCodes, UnreadableReplyIsMinusOneThroughEveryExportThatTellsACode) {
  service.weighing().alwaysAnswers("no JSON");
  printer.alwaysAnswers("no JSON");
  const auto expectUnreadable = [&](const AskingExport& row) {
    SCOPED_TRACE(row.name);
    if (row.answer != Answer::kCode && row.answer != Answer::kUnkeptCode) return;
    makeLastError(kBefore);
    EXPECT_EQ(host.call(row.call), TOLVEX_UNREADABLE_REPLY);
    EXPECT_EQ(lastError(), row.answer == Answer::kCode ? TOLVEX_UNREADABLE_REPLY : kBefore);
  };
  for (const auto& row : kWeighing) expectUnreadable(row);
  for (const auto& row : kPrinting) expectUnreadable(row);
}

}  // namespace
}  // namespace tolvex::test
