#include "service/result_codes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "api/exports.h"

namespace tolvex {
namespace {

struct Message {
  std::int32_t code;
  const char* text;
  const char* testName;
};

void PrintTo(const Message& message, std::ostream* out) { *out << message.code; }

const Message kMessages[] = {
    {0, "OK", "Ok"},
    {1, "Unknown", "Unknown"},
    {2, "Invalid Param", "InvalidParam"},
    {3, "Socket Listen Fail", "SocketListenFail"},
    {4, "Socket Interrupt", "SocketInterrupt"},
    {5, "Buffer Not Enough", "BufferNotEnough"},
    {6, "Too Much To Print", "TooMuchToPrint"},
    {7, "Json Err", "JsonErr"},
    {8, "Miss param", "MissParam"},
    {9, "Version Incompatible", "VersionIncompatible"},
    {10, "Command return fail", "CommandReturnFail"},
    {1001, "LC Connection Fail", "LcConnectionFail"},
    {1002, "Unsupport Weight Cmd", "UnsupportWeightCmd"},
    {1003, "Under Load", "UnderLoad"},
    {1004, "Over Load", "OverLoad"},
    {1005, "Weight Not Stable", "WeightNotStable"},
    {1006, "Invalid Weight", "InvalidWeight"},
    {1007, "LC not connected", "LcNotConnected"},
    {2001, "Prt Connection Fail", "PrtConnectionFail"},
    {2002, "Unsupport Print Cmd", "UnsupportPrintCmd"},
    {2003, "Prt-drv Return Error", "PrtDrvReturnError"},
    {2005, "Printer is Busy", "PrinterIsBusy"},
    {2006, "Out of Paper", "OutOfPaper"},
    {2007, "Print Head is Hot", "PrintHeadIsHot"},
    {2008, "Printer Not Found", "PrinterNotFound"},
    {2009, "Illegal Print Head", "IllegalPrintHead"},
    {2010, "Prt Status Abnormal", "PrtStatusAbnormal"},
};

class ResultMessage : public ::testing::TestWithParam<Message> {};

TEST_P(ResultMessage, HasItsExactWording) {
  EXPECT_STREQ(resultMessage(GetParam().code), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Of, ResultMessage, ::testing::ValuesIn(kMessages),
                         [](const auto& row) { return std::string(row.param.testName); });

const std::vector<std::int32_t> kCodes = {
#define TOLVEX_CODE(code, NAME, Name, text, meaning, remedy) code,
    TOLVEX_RESULT_CODES(TOLVEX_CODE)
#undef TOLVEX_CODE
};

TEST(ResultCodes, AreTwentySevenInAscendingOrder) {
  ASSERT_EQ(kCodes.size(), 27U);
  EXPECT_TRUE(std::is_sorted(kCodes.begin(), kCodes.end()));
  EXPECT_EQ(std::adjacent_find(kCodes.begin(), kCodes.end()), kCodes.end());
  for (std::size_t row = 0; row < kCodes.size(); ++row) EXPECT_EQ(kCodes[row], kMessages[row].code);
}

struct Advice {
  std::string meaning, remedy;
};

const std::vector<Advice> kAdvice = {
#define TOLVEX_ADVICE(code, NAME, Name, text, meaning, remedy) {meaning, remedy},
    TOLVEX_RESULT_CODES(TOLVEX_ADVICE)
#undef TOLVEX_ADVICE
#define TOLVEX_ADVICE(name, text, meaning, remedy) {meaning, remedy},
        TOLVEX_ANSWERS(TOLVEX_ADVICE)
#undef TOLVEX_ADVICE
};

TEST(ResultCodes, HaveAMeaningAndARemedyInWholeAsciiSentences) {
  for (const Advice& advice : kAdvice) {
    for (const std::string& text : {advice.meaning, advice.remedy}) {
      EXPECT_EQ(text.back(), '.') << text;
      EXPECT_EQ(text.find("  "), std::string::npos) << text;
      EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) {
        return c >= ' ' && c <= '~';
      })) << text;
    }
  }
}

TEST(ResultCodes, HaveNoMessageForTheGapAt2004) { EXPECT_EQ(resultMessage(2004), nullptr); }

TEST(ResultCodes, HaveNoMessageForAnUnreadableReply) {
  EXPECT_EQ(result::kUnreadableReply, -1);
  EXPECT_EQ(resultMessage(result::kUnreadableReply), nullptr);
}

TEST(ResultCodes, HaveNoMessageBesideTheGroups) {
  for (const std::int32_t code :
       {-2, 11, 240, 255, 1000, 1008, 2000, 2011, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(resultMessage(code), nullptr) << code;
  }
}

// Names every enumerator of the public header: one more there, or one missing, does not compile.
std::int32_t internalCode(tolvex_result code) {
  switch (code) {
#define SAME(header, name) \
  case header:             \
    return result::name
    SAME(TOLVEX_RESULT_OK, kOk);
    SAME(TOLVEX_RESULT_UNKNOWN, kUnknown);
    SAME(TOLVEX_RESULT_INVALID_PARAM, kInvalidParam);
    SAME(TOLVEX_RESULT_SOCKET_LISTEN_FAIL, kSocketListenFail);
    SAME(TOLVEX_RESULT_SOCKET_INTERRUPT, kSocketInterrupt);
    SAME(TOLVEX_RESULT_BUFFER_NOT_ENOUGH, kBufferNotEnough);
    SAME(TOLVEX_RESULT_TOO_MUCH_TO_PRINT, kTooMuchToPrint);
    SAME(TOLVEX_RESULT_JSON_ERR, kJsonErr);
    SAME(TOLVEX_RESULT_MISS_PARAM, kMissParam);
    SAME(TOLVEX_RESULT_VERSION_INCOMPATIBLE, kVersionIncompatible);
    SAME(TOLVEX_RESULT_COMMAND_RETURN_FAIL, kCommandReturnFail);
    SAME(TOLVEX_RESULT_LC_CONNECTION_FAIL, kLcConnectionFail);
    SAME(TOLVEX_RESULT_UNSUPPORT_WEIGHT_CMD, kUnsupportWeightCmd);
    SAME(TOLVEX_RESULT_UNDER_LOAD, kUnderLoad);
    SAME(TOLVEX_RESULT_OVER_LOAD, kOverLoad);
    SAME(TOLVEX_RESULT_WEIGHT_NOT_STABLE, kWeightNotStable);
    SAME(TOLVEX_RESULT_INVALID_WEIGHT, kInvalidWeight);
    SAME(TOLVEX_RESULT_LC_NOT_CONNECTED, kLcNotConnected);
    SAME(TOLVEX_RESULT_PRT_CONNECTION_FAIL, kPrtConnectionFail);
    SAME(TOLVEX_RESULT_UNSUPPORT_PRINT_CMD, kUnsupportPrintCmd);
    SAME(TOLVEX_RESULT_PRT_DRV_RETURN_ERROR, kPrtDrvReturnError);
    SAME(TOLVEX_RESULT_PRINTER_IS_BUSY, kPrinterIsBusy);
    SAME(TOLVEX_RESULT_OUT_OF_PAPER, kOutOfPaper);
    SAME(TOLVEX_RESULT_PRINT_HEAD_IS_HOT, kPrintHeadIsHot);
    SAME(TOLVEX_RESULT_PRINTER_NOT_FOUND, kPrinterNotFound);
    SAME(TOLVEX_RESULT_ILLEGAL_PRINT_HEAD, kIllegalPrintHead);
    SAME(TOLVEX_RESULT_PRT_STATUS_ABNORMAL, kPrtStatusAbnormal);
#undef SAME
  }
  return -12345;  // no enumerator has this number
}

TEST(ResultCodes, AreThoseOfThePublicHeader) {
  for (const std::int32_t code : kCodes) {
    EXPECT_EQ(internalCode(static_cast<tolvex_result>(code)), code);
  }
  EXPECT_EQ(TOLVEX_UNREADABLE_REPLY, result::kUnreadableReply);
}

}  // namespace
}  // namespace tolvex
