// The commands of a print job: text, pictures, and the end of the job.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

// Every character that JSON wants escaped, and how it goes out.
std::string controlCharacters() {
  std::string text;
  for (char character = 1; character < ' '; ++character) text += character;
  return text + "\"\\";
}
constexpr char kEscaped[] =
    R"(\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000B\f\r\u000E\u000F)"
    R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019\u001A\u001B\u001C\u001D)"
    R"(\u001E\u001F\"\\)";

// Bytes above the ASCII range: UTF-8, GBK, and what is neither.
constexpr char kForeign[] = "\xC3\xA9 \xC6\xBB\xB9\xFB \xFF\xFE";

using BeginPrint = ServiceTest;

TEST_F(BeginPrint, SendsAnyPrinterType) {
  client.beginPrint(kDefaultPrinter);
  client.beginPrint(-1);
  client.beginPrint(kLowest);
  EXPECT_EQ(printing.requests, (Texts{R"({"cmd":"beginPrint","printerType":"100"})",
                                      R"({"cmd":"beginPrint","printerType":"-1"})",
                                      R"({"cmd":"beginPrint","printerType":"-2147483648"})"}));
}

class PrintText : public ServiceTest {
 protected:
  PrintText() { leaveLastError(77); }

  void expectSentAs(const std::string& text, const std::string& escaped) {
    EXPECT_EQ(client.printText(text.c_str(), 24, 1), 0U);
    expectSentOn(printing, R"({"cmd":"printtext","printerType":"1","fontsize":"24","text":")" +
                               escaped + R"("})");
    EXPECT_EQ(client.getLastErrCode(), 0);
    EXPECT_EQ(log.records(), Texts{});
  }

  void expectFontSize(int given, const std::string& sent) {
    EXPECT_EQ(client.printText("a", given, 1), 0U);
    expectSentOn(printing, R"({"cmd":"printtext","printerType":"1","fontsize":")" + sent +
                               R"(","text":"a"})");
  }
};

TEST_F(PrintText, OfNullIsInvalidParam) {
  EXPECT_EQ(client.printText(nullptr, 24, 1), 2U);
  EXPECT_EQ(client.getLastErrCode(), 2);
  EXPECT_EQ(log.records(), Texts{});
  expectNothingSent();
}

TEST_F(PrintText, SendsAnEmptyTextAsOneBlank) { expectSentAs("", " "); }

TEST_F(PrintText, SendsBlanksAsTheyAre) { expectSentAs("  ", "  "); }

TEST_F(PrintText, SendsAFontSizeOfZeroAs28) { expectFontSize(0, "28"); }

TEST_F(PrintText, SendsASmallFontSizeAsItIs) { expectFontSize(1, "1"); }

TEST_F(PrintText, SendsAHugeFontSizeAsItIs) { expectFontSize(kHighest, "2147483647"); }

TEST_F(PrintText, SendsANegativeFontSizeAsItIs) { expectFontSize(-1, "-1"); }

TEST_F(PrintText, EscapesEveryControlCharacter) { expectSentAs(controlCharacters(), kEscaped); }

TEST_F(PrintText, SendsOtherBytesAsTheyAre) { expectSentAs(kForeign, kForeign); }

TEST_F(PrintText, TakesItsTextForNoFormat) { expectSentAs("%s%n%d", "%s%n%d"); }

TEST_F(PrintText, Sends2048Bytes) { expectSentAs(std::string(2048, 'x'), std::string(2048, 'x')); }

TEST_F(PrintText, CountsBytesBeforeTheyAreEscaped) {
  std::string escaped;
  for (int count = 0; count < 2048; ++count) escaped += "\\\"";
  expectSentAs(std::string(2048, '"'), escaped);
}

// A log record ends after 510 characters, of which the time takes 27.
TEST_F(PrintText, Of2049BytesIsTooMuchToPrint) {
  EXPECT_EQ(client.printText(std::string(2049, 'x').c_str(), 24, 1), 6U);
  EXPECT_EQ(client.getLastErrCode(), 6);
  const std::string beginning = "[W] L:463 M:DLL printText Input params is too long(";
  EXPECT_EQ(log.records(), Texts{beginning + std::string(510 - 27 - beginning.size(), 'x')});
  expectNothingSent();
}

TEST_F(PrintText, OfSeveralMegabytesIsTooMuchToPrint) {
  EXPECT_EQ(client.printText(std::string(3U << 20, 'x').c_str(), 24, 1), 6U);
  EXPECT_EQ(client.getLastErrCode(), 6);
  expectNothingSent();
}

TEST_F(PrintText, OfTooManyBytesNeedsNoConnection) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(half.printText(std::string(2049, 'x').c_str(), 24, 1), 6U);
  EXPECT_EQ(half.getLastErrCode(), 6);
}

class PrintTextByPaperWidth : public ServiceTest {
 protected:
  PrintTextByPaperWidth() { leaveLastError(77); }

  static std::string request(const std::string& fontSize, const std::string& width,
                             const std::string& text) {
    return R"({"cmd":"print_text_width","printerType":"2","fontsize":")" + fontSize +
           R"(","width":")" + width + R"(","text":")" + text + R"("})";
  }

  void expectSentAs(const std::string& text, const std::string& escaped) {
    EXPECT_EQ(client.printTextByPaperWidth(text.c_str(), 24, 58, 2), 0U);
    expectSentOn(printing, request("24", "464", escaped));
    EXPECT_EQ(client.getLastErrCode(), 0);
    EXPECT_EQ(log.records(), Texts{});
  }

  void expectWidth(int given, const std::string& sent) {
    EXPECT_EQ(client.printTextByPaperWidth("a", 24, given, 2), 0U);
    expectSentOn(printing, request("24", sent, "a"));
  }
};

TEST_F(PrintTextByPaperWidth, OfNullIsInvalidParamAndLogged) {
  EXPECT_EQ(client.printTextByPaperWidth(nullptr, 24, 58, 2), 2U);
  EXPECT_EQ(client.getLastErrCode(), 2);
  EXPECT_EQ(log.records(), Texts{"[W] L:493 M:DLL [printTextByPaperWidth] str is NULL"});
  expectNothingSent();
}

TEST_F(PrintTextByPaperWidth, SendsAnEmptyTextAsOneBlank) { expectSentAs("", " "); }

TEST_F(PrintTextByPaperWidth, EscapesEveryControlCharacter) {
  expectSentAs(controlCharacters(), kEscaped);
}

TEST_F(PrintTextByPaperWidth, SendsOtherBytesAsTheyAre) { expectSentAs(kForeign, kForeign); }

TEST_F(PrintTextByPaperWidth, HasNoLongestText) {
  expectSentAs(std::string(2049, 'x'), std::string(2049, 'x'));
}

TEST_F(PrintTextByPaperWidth, SendsAMegabyte) {
  expectSentAs(std::string(1U << 20, 'x'), std::string(1U << 20, 'x'));
}

TEST_F(PrintTextByPaperWidth, SendsAFontSizeOfZeroAs28) {
  EXPECT_EQ(client.printTextByPaperWidth("a", 0, 58, 2), 0U);
  expectSentOn(printing, request("28", "464", "a"));
}

TEST_F(PrintTextByPaperWidth, SendsEightTimesTheWidth) { expectWidth(80, "640"); }

TEST_F(PrintTextByPaperWidth, SendsAWidthOfZero) { expectWidth(0, "0"); }

TEST_F(PrintTextByPaperWidth, SendsAWidthBeyondThePaper) { expectWidth(1000, "8000"); }

TEST_F(PrintTextByPaperWidth, SendsANegativeWidth) { expectWidth(-5, "-40"); }

TEST_F(PrintTextByPaperWidth, SendsTheLargestWidthThatEightfoldsWithinThirtyTwoBits) {
  expectWidth(268435455, "2147483640");
}

TEST_F(PrintTextByPaperWidth, WrapsALargerWidthAround) { expectWidth(268435456, "-2147483648"); }

TEST_F(PrintTextByPaperWidth, WrapsTheHighestWidthAround) { expectWidth(kHighest, "-8"); }

TEST_F(PrintTextByPaperWidth, WrapsTheLowestWidthAround) { expectWidth(kLowest, "0"); }

class PrintBmpFile : public ServiceTest {
 protected:
  PrintBmpFile() { leaveLastError(77); }

  void expectRefused(const char* fileName) {
    EXPECT_EQ(client.printBmpFile(fileName, 90, 1), 2U);
    EXPECT_EQ(client.getLastErrCode(), 2);
    EXPECT_EQ(log.records(), Texts{});
    expectNothingSent();
  }

  void expectSentAs(const std::string& fileName, const std::string& escaped) {
    EXPECT_EQ(client.printBmpFile(fileName.c_str(), 90, 1), 0U);
    expectSentOn(printing, R"({"cmd":"printbmpfile","printerType":"1","angle":"90","filename":")" +
                               escaped + R"("})");
  }
};

TEST_F(PrintBmpFile, OfNullIsInvalidParam) { expectRefused(nullptr); }

TEST_F(PrintBmpFile, OfAnEmptyNameIsInvalidParam) { expectRefused(""); }

TEST_F(PrintBmpFile, EscapesBackslashesAndQuotes) {
  expectSentAs(R"(C:\img\"a".bmp)", R"(C:\\img\\\"a\".bmp)");
}

TEST_F(PrintBmpFile, EscapesEveryControlCharacter) { expectSentAs(controlCharacters(), kEscaped); }

TEST_F(PrintBmpFile, SendsOtherBytesAsTheyAre) { expectSentAs(kForeign, kForeign); }

TEST_F(PrintBmpFile, HasNoLongestName) {
  expectSentAs(std::string(5000, 'p'), std::string(5000, 'p'));
}

TEST_F(PrintBmpFile, SendsAnyAngle) {
  client.printBmpFile("a", -90, 1);
  client.printBmpFile("a", 100000, 1);
  client.printBmpFile("a", 0, 1);
  EXPECT_EQ(printing.requests,
            (Texts{R"({"cmd":"printbmpfile","printerType":"1","angle":"-90","filename":"a"})",
                   R"({"cmd":"printbmpfile","printerType":"1","angle":"100000","filename":"a"})",
                   R"({"cmd":"printbmpfile","printerType":"1","angle":"0","filename":"a"})"}));
}

}  // namespace
}  // namespace tolvex
