// Cutting, feeding, calibrating: the values that go out and those that are refused.
#include <climits>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

using Paper = PrintingTest;

TEST_F(Paper, PrintBlanksSendsTheLeastAndTheMostDistance) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(printBlanks, 1U), 240);
  EXPECT_EQ(host.call(printBlanks, 1000U), 240);
  EXPECT_EQ(newRequests(),
            (Lines{R"({"cmd":"printblanks","distance":"1","printerType":"100"})",
                   R"({"cmd":"printblanks","distance":"1000","printerType":"100"})"}));
}

TEST_F(Paper, PrintBlanksRefusesEveryOtherDistanceWithTwoAndBothLines) {
  printer.alwaysAnswers(kOk);
  const std::pair<unsigned, const char*> refused[] = {
      {0U, "0"}, {1001U, "1001"}, {UINT_MAX, "-1"}, {unsigned{INT_MAX}, "2147483647"}};
  for (int (*const print)(unsigned) : {printBlanks, printBlanks_stdcall}) {
    for (const auto& [distance, shown] : refused) {
      EXPECT_EQ(host.call(OpenCashDrawerEx), 240) << "so that the last error is 0";
      newLines();
      EXPECT_EQ(host.call(print, distance), 255) << shown;
      EXPECT_EQ(newLines(),
                (Lines{"[T] L:812 M:DLL [printBlanks] Entry",
                       std::string("[W] L:565 M:DLL [printBlanks] Invalid Param:") + shown,
                       "[W] L:816 M:DLL [printBlanks] Err:2"}));
      EXPECT_EQ(lastError(), 2) << shown;
    }
  }
  EXPECT_EQ(newRequests(), Lines(8, R"({"cmd":"opencashbox"})")) << "no paper is fed";
}

TEST_F(Paper, APrinterTypeGoesOutAsASignedNumberWhateverItIs) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(cutPaperById, UINT_MAX), 0);
  EXPECT_EQ(host.call(feedPaperById, 0x80000000U), 240);
  EXPECT_EQ(host.call(calibrateLabel, 12345U), 240);
  EXPECT_EQ(host.call(testPaper, UINT_MAX), 0);
  EXPECT_EQ(newRequests(),
            (Lines{R"({"cmd":"cutPaper","printerType":"-1","Percent":"70"})",
                   R"({"cmd":"printblanks","distance":"13","printerType":"-2147483648"})",
                   R"({"cmd":"calibrateLabelGap","printerType":"12345"})",
                   R"({"cmd":"calibrateOutOfPaper","printerType":"-1"})"}));
}

TEST_F(Paper, TheSameCutIs240OnTheDefaultPrinterAndZeroByType) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(cutPaper), 240);
  EXPECT_EQ(host.call(cutPaperById, 100U), 0);
  const Lines requests = newRequests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0], requests[1]);
}

TEST_F(Paper, NothingOfItTouchesTheQueuedJob) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  host.call(cutPaper);
  host.call(cutPaperById, 1U);
  host.call(feedPaper);
  host.call(feedPaperById, 1U);
  host.call(printBlanks, 5U);
  host.call(calibrateLabel, 0U);
  host.call(testPaper, 1U);
  EXPECT_EQ(newRequests().size(), 7U);
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("Milch"), confirmation()}));
}

}  // namespace
}  // namespace tolvex::test
