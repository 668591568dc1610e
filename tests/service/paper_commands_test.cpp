// The commands that move and cut the paper.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

class PrintBlanks : public ServiceTest {
 protected:
  PrintBlanks() { leaveLastError(77); }

  void expectSent(int distance, const std::string& number) {
    EXPECT_EQ(client.printBlanks(distance, 2), 0U);
    expectSentOn(printing,
                 R"({"cmd":"printblanks","distance":")" + number + R"(","printerType":"2"})");
    EXPECT_EQ(client.getLastErrCode(), 0);
    EXPECT_EQ(log.records(), Texts{});
  }

  void expectRefused(int distance, const std::string& number) {
    EXPECT_EQ(client.printBlanks(distance, 2), 2U);
    EXPECT_EQ(client.getLastErrCode(), 2);
    EXPECT_EQ(log.records(), Texts{"[W] L:565 M:DLL [printBlanks] Invalid Param:" + number});
    expectNothingSent();
  }
};

TEST_F(PrintBlanks, FeedsTheLeastDistance) { expectSent(1, "1"); }

TEST_F(PrintBlanks, FeedsTheLargestDistance) { expectSent(1000, "1000"); }

TEST_F(PrintBlanks, RefusesNoDistance) { expectRefused(0, "0"); }

TEST_F(PrintBlanks, RefusesOneBeyondTheLargestDistance) { expectRefused(1001, "1001"); }

TEST_F(PrintBlanks, RefusesANegativeDistance) { expectRefused(-1, "-1"); }

TEST_F(PrintBlanks, RefusesTheExtremesOfThirtyTwoBits) {
  expectRefused(kLowest, "-2147483648");
  EXPECT_EQ(client.printBlanks(kHighest, 2), 2U);
  expectNothingSent();
}

TEST_F(PrintBlanks, OfARefusedDistanceNeedsNoConnection) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(half.printBlanks(0, 2), 2U);
  EXPECT_EQ(half.getLastErrCode(), 2);
}

using CutPaper = ServiceTest;

TEST_F(CutPaper, SendsAnyPercentage) {
  for (const int percent : {0, 100, 101, -1}) client.cutPaper(0, percent);
  EXPECT_EQ(printing.requests, (Texts{R"({"cmd":"cutPaper","printerType":"0","Percent":"0"})",
                                      R"({"cmd":"cutPaper","printerType":"0","Percent":"100"})",
                                      R"({"cmd":"cutPaper","printerType":"0","Percent":"101"})",
                                      R"({"cmd":"cutPaper","printerType":"0","Percent":"-1"})"}));
}

}  // namespace
}  // namespace tolvex
