// What the setters make of their number. Their whole requests and outcomes are tested with those of
// all printer commands.
#include <gtest/gtest.h>

#include <ostream>

#include "service/service_test.h"

namespace tolvex {
namespace {

struct Setter {
  const char* testName;
  unsigned (*run)(VcoClientApi& client, int number);
  const char* before;  // the request up to the number
  const char* after;   // and behind it
};

void PrintTo(const Setter& setter, std::ostream* out) { *out << setter.testName; }

// Those that send their number as it is.
const Setter kSetters[] = {
    {"GapType", [](VcoClientApi& client, int number) { return client.setGapType(number, 1); },
     R"({"cmd":"setGapType","gapType":")", R"(","printerType":"1"})"},
    {"Direction", [](VcoClientApi& client, int number) { return client.setDirection(number, 1); },
     R"({"cmd":"setdirection","direction":")", R"(","printerType":"1"})"},
    {"TextWrapMode",
     [](VcoClientApi& client, int number) { return client.setTextWrapMode(number, 1); },
     R"({"cmd":"setTextWrapMode","printerType":"1","WrapMode":")", R"("})"},
    {"LeftMargin",
     [](VcoClientApi& client, int number) { return client.setLeftMargin(number, "P"); },
     R"({"cmd":"setLeftMargin","printerName":"P","leftMargin":")", R"("})"},
    {"RightMargin",
     [](VcoClientApi& client, int number) { return client.setRightMargin(number, "P"); },
     R"({"cmd":"setRightMargin","printerName":"P","rightMargin":")", R"("})"},
    {"PrtAutoPrint",
     [](VcoClientApi& client, int number) { return client.setPrtAutoPrint(number, "P"); },
     R"({"cmd":"setPrtAutoPrint","printerName":"P","enable":")", R"("})"},
    {"PaperOffset",
     [](VcoClientApi& client, int number) { return client.setPaperOffset(number, "P"); },
     R"({"cmd":"setPaperOffset","offset":")", R"(","printerName":"P"})"},
    {"Contrast", [](VcoClientApi& client, int number) { return client.setContrast(number, "P"); },
     R"({"cmd":"setcontrast","contrast":")", R"(","printerName":"P"})"},
    {"PrintSpeed",
     [](VcoClientApi& client, int number) { return client.setPrintSpeed(number, "P"); },
     R"({"cmd":"setprintspeed","speed":")", R"(","printerName":"P"})"},
    {"Rollback", [](VcoClientApi& client, int number) { return client.setRollback(number, "P"); },
     R"({"cmd":"setRollback","enable":")", R"(","printerName":"P"})"},
};

class PrinterSetting : public ServiceTest, public ::testing::WithParamInterface<Setter> {};

TEST_P(PrinterSetting, SendsAnyNumberAsItIs) {
  Texts expected;
  for (const int number : {0, 5, -5, kLowest, kHighest}) {
    EXPECT_EQ(GetParam().run(client, number), 0U);
    expected.push_back(GetParam().before + std::to_string(number) + GetParam().after);
  }
  EXPECT_EQ(printing.requests, expected);
}

INSTANTIATE_TEST_SUITE_P(Of, PrinterSetting, ::testing::ValuesIn(kSetters),
                         [](const auto& setter) { return std::string(setter.param.testName); });

class PaperWidth : public ServiceTest {
 protected:
  void expectWidth(int given, const std::string& sent) {
    EXPECT_EQ(client.setPaperWidth(given, 0), 0U);
    expectSentOn(printing,
                 R"({"cmd":"setpaperwidth","width":")" + sent + R"(","printerType":"0"})");
  }
};

TEST_F(PaperWidth, GoesOutTimesEight) { expectWidth(58, "464"); }

TEST_F(PaperWidth, MayBeZero) { expectWidth(0, "0"); }

TEST_F(PaperWidth, MayBeNegative) { expectWidth(-1, "-8"); }

TEST_F(PaperWidth, WrapsAroundBeyondThirtyTwoBits) { expectWidth(268435456, "-2147483648"); }

TEST_F(PaperWidth, WrapsTheHighestAround) { expectWidth(kHighest, "-8"); }

TEST_F(PaperWidth, WrapsTheLowestAround) { expectWidth(kLowest, "0"); }

class TakePaperSensor : public ServiceTest {
 protected:
  void expectEnable(int given, const std::string& sent) {
    EXPECT_EQ(client.setTakePaperSensor(given, "P"), 0U);
    expectSentOn(printing,
                 R"({"cmd":"settakepapersensor","enable":")" + sent + R"(","printerName":"P"})");
  }
};

TEST_F(TakePaperSensor, GoesOutAsZeroForZero) { expectEnable(0, "0"); }

TEST_F(TakePaperSensor, GoesOutAsOneForFive) { expectEnable(5, "1"); }

TEST_F(TakePaperSensor, GoesOutAsOneForANegativeNumber) { expectEnable(-1, "1"); }

TEST_F(TakePaperSensor, GoesOutAsOneForTheLowestNumber) { expectEnable(kLowest, "1"); }

}  // namespace
}  // namespace tolvex
