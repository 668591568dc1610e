// The codes that the library makes by itself, each by the condition that makes it. 1001 and 2001, for a
// connection that is missing, are tested with the command client: the exports always have both.
#include "library/printing_test.h"

namespace tolvex::test {
namespace {

class OwnCode : public PrintingTest {
 protected:
  char buffer[2048] = {};
};

TEST_F(OwnCode, UnknownIsAJobWithNothingQueuedAndAnUnknownModule) {
  EXPECT_EQ(host.call(BeginPrint, 0), TOLVEX_FAILED);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_UNKNOWN);
  EXPECT_EQ(host.call(setLogLevel, "drawer", "6"), TOLVEX_RESULT_UNKNOWN);
  EXPECT_EQ(host.call(getLogLevel, "drawer", buffer, 2048U), TOLVEX_RESULT_UNKNOWN);
}

TEST_F(OwnCode, InvalidParamIsADistanceOutOfRangeAndAPrinterWithoutAName) {
  EXPECT_EQ(host.call(printBlanks, 1001U), TOLVEX_FAILED);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_INVALID_PARAM);
  EXPECT_EQ(host.call(setLeftMargin, 1U, nullptr), TOLVEX_RESULT_INVALID_PARAM);
  EXPECT_EQ(host.call(printTextById, nullptr, 24U, 1U), TOLVEX_RESULT_INVALID_PARAM);
  EXPECT_EQ(newRequests(), Lines());
}

TEST_F(OwnCode, SocketInterruptIsAConnectionThatTheServiceEndsInsteadOfAnswering) {
  service.weighing().closes();
  EXPECT_EQ(host.call(send_zero), TOLVEX_FAILED);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_SOCKET_INTERRUPT);
  printer.resets();
  EXPECT_EQ(host.call(GetPrinterStatus, 1U), TOLVEX_RESULT_SOCKET_INTERRUPT);
}

TEST_F(OwnCode, BufferNotEnoughIsAReplyLongerThanTheBufferAndNoBuffer) {
  service.answers(kOk);
  EXPECT_EQ(host.call(getLCVersion, buffer, unsigned{sizeof(kOk)} - 2),
            TOLVEX_RESULT_BUFFER_NOT_ENOUGH);
  service.answers(kOk);
  EXPECT_EQ(host.call(getLCVersion, buffer, unsigned{sizeof(kOk)} - 1), TOLVEX_RESULT_OK);
  service.answers(kOk);
  EXPECT_EQ(host.call(getLCVersion, nullptr, 2048U), TOLVEX_RESULT_BUFFER_NOT_ENOUGH);
}

TEST_F(OwnCode, TooMuchToPrintIsALineBeyond2048Bytes) {
  printer.answers(kOk);
  EXPECT_EQ(host.call(printTextById, std::string(2048, 'x').c_str(), 24U, 1U), TOLVEX_RESULT_OK);
  EXPECT_EQ(host.call(printTextById, std::string(2049, 'x').c_str(), 24U, 1U),
            TOLVEX_RESULT_TOO_MUCH_TO_PRINT);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_TOO_MUCH_TO_PRINT);
}

TEST_F(OwnCode, JsonErrIsASuccessWithoutWhatWasAskedFor) {
  service.answers(kOk);
  EXPECT_EQ(host.call(clear_tare, buffer), TOLVEX_FAILED);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_JSON_ERR);
  printer.answers(kOk);
  EXPECT_EQ(host.call(getLogLevel, "print", buffer, 2048U), TOLVEX_RESULT_JSON_ERR);
  printer.answers(kOk);
  EXPECT_EQ(host.call(GetPrinterList, buffer, 2048U), TOLVEX_FAILED);
  EXPECT_EQ(lastError(), TOLVEX_RESULT_JSON_ERR);
}

TEST_F(OwnCode, OfFontsThatDoNotFitAreTheVerdictItself) {
  for (const unsigned size : {0U, 11U}) {
    EXPECT_EQ(host.call(PrintText, "a", size), TOLVEX_FONT_TOO_SMALL);
    EXPECT_EQ(host.call(PrintTextByPaperWidth, "a", size, 58U), TOLVEX_FONT_TOO_SMALL);
  }
  for (const unsigned size : {73U, 4294967295U}) {
    EXPECT_EQ(host.call(PrintText, "a", size), TOLVEX_FONT_TOO_BIG);
    EXPECT_EQ(host.call(PrintTextByPaperWidth, "a", size, 58U), TOLVEX_FONT_TOO_BIG);
  }
  EXPECT_EQ(lastError(), TOLVEX_RESULT_OK);
}

}  // namespace
}  // namespace tolvex::test
