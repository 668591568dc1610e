// Queued text: what is refused, how a text is cut into lines, and what the job then sends.
#include <climits>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

using Text = PrintingTest;
using TextByWidth = PrintingTest;

std::string entry(const char* size, const std::string& text) {
  return std::string("[T] L:528 M:DLL [library_tests][PrintText] font:") + size + " [" + text + "]";
}

// A text by paper width is logged as two records, the second without a head.
Lines entryByWidth(const std::string& text) {
  return {"[T] L:555 M:DLL ", "[PrintTextByPaperWidth] " + text};
}

constexpr char kTooBig[] = "[W] L:532 M:DLL [PrintText] font size too big:";
constexpr char kTooSmall[] = "[W] L:536 M:DLL [PrintText] font size too small:";

struct FontSize {
  unsigned size;
  int verdict;
  std::string refusal;  // the line that it is logged with
  const char* shown;
};

const FontSize kFontSizes[] = {
    {12, 240, "", "12"},
    {72, 240, "", "72"},
    {11, 242, std::string(kTooSmall) + "11", "11"},
    {0, 242, std::string(kTooSmall) + "0", "0"},
    {73, 243, std::string(kTooBig) + "73", "73"},
    {UINT_MAX, 243, std::string(kTooBig) + "-1", "-1"},
    {0x80000000U, 243, std::string(kTooBig) + "-2147483648", "-2147483648"},
    {65548, 243, std::string(kTooBig) + "65548", "65548"},  // 12 in sixteen bits
};

TEST_F(Text, IsTakenInSizes12To72AndRefusedOutsideWithItsLine) {
  printer.alwaysAnswers(kOk);
  for (int (*const print)(const char*, unsigned) : {PrintText, PrintText_stdcall}) {
    for (const FontSize& font : kFontSizes) {
      SCOPED_TRACE(font.shown);
      EXPECT_EQ(host.call(print, "Milch", font.size), font.verdict);
      Lines expected = {entry(font.shown, "Milch")};
      if (!font.refusal.empty()) expected.push_back(font.refusal);
      EXPECT_EQ(newLines(), expected);
    }
    EXPECT_EQ(newRequests(), Lines{}) << "nothing is sent before the end of the job";
    EXPECT_EQ(requestsOfTicket(),
              (Lines{textRequest("Milch", 12), textRequest("Milch", 72), confirmation()}));
    newLines();
  }
}

TEST_F(TextByWidth, IsTakenInSizes12To72AndRefusedUnderPrintTextsName) {
  printer.alwaysAnswers(kOk);
  for (int (*const print)(const char*, unsigned, unsigned) :
       {PrintTextByPaperWidth, PrintTextByPaperWidth_stdcall}) {
    for (const FontSize& font : kFontSizes) {
      SCOPED_TRACE(font.shown);
      EXPECT_EQ(host.call(print, "Milch", font.size, 58U), font.verdict);
      Lines expected = entryByWidth("Milch");
      if (!font.refusal.empty()) expected.push_back(font.refusal);
      EXPECT_EQ(newLines(), expected);
    }
    EXPECT_EQ(newRequests(), Lines{});
    EXPECT_EQ(requestsOfTicket(), (Lines{widthRequest("Milch", 12, 464),
                                         widthRequest("Milch", 72, 464), confirmation()}));
    newLines();
  }
}

TEST_F(Text, ThatIsNullIs255AndOneThatIsEmpty240AndNeitherIsQueued) {
  for (int (*const print)(const char*, unsigned) : {PrintText, PrintText_stdcall}) {
    EXPECT_EQ(host.call(print, nullptr, 24U), 255);
    EXPECT_EQ(host.call(print, "", 24U), 240);
    EXPECT_EQ(host.call(print, "", 999U), 240) << "the size does not matter any more";
    EXPECT_EQ(newLines(), (Lines{"[W] L:521 M:DLL [PrintText] Input param is NULL",
                                 "[W] L:525 M:DLL [PrintText] Input param len is 0",
                                 "[W] L:525 M:DLL [PrintText] Input param len is 0"}));
  }
  EXPECT_EQ(lastError(), 0);
  EXPECT_EQ(host.call(BeginPrint, 0), 255) << "nothing is queued";
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(TextByWidth, ThatIsNullIs255AndOneThatIsEmpty240AndNeitherIsQueued) {
  for (int (*const print)(const char*, unsigned, unsigned) :
       {PrintTextByPaperWidth, PrintTextByPaperWidth_stdcall}) {
    EXPECT_EQ(host.call(print, nullptr, 24U, 58U), 255);
    EXPECT_EQ(host.call(print, "", 24U, 58U), 240);
    EXPECT_EQ(newLines(), (Lines{"[W] L:548 M:DLL [PrintTextByPaperWidth] Input param is NULL",
                                 "[W] L:552 M:DLL [PrintTextByPaperWidth] Input param len is 0"}));
  }
  EXPECT_EQ(lastError(), 0);
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(TextByWidth, HasAWidthOf80AtMostWhichGoesOutTimesEight) {
  printer.alwaysAnswers(kOk);
  for (const unsigned width : {0U, 1U, 58U, 80U, 81U, 100U, UINT_MAX - 4U, 65536U}) {
    EXPECT_EQ(host.call(PrintTextByPaperWidth, "x", 20U, width), 240);
  }
  EXPECT_EQ(
      requestsOfTicket(),
      (Lines{widthRequest("x", 20, 0), widthRequest("x", 20, 8), widthRequest("x", 20, 464),
             widthRequest("x", 20, 640), widthRequest("x", 20, 640), widthRequest("x", 20, 640),
             widthRequest("x", 20, 640), widthRequest("x", 20, 640), confirmation()}));
}

TEST_F(Text, ThatIsRefusedLeavesWhatIsQueuedAndTheLastErrorAlone) {
  printer.answers(replyWith(2005));
  EXPECT_EQ(host.call(GetPrinterStatus, 1U), 2005);
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  EXPECT_EQ(host.call(PrintText, "Brot", 73U), 243);
  EXPECT_EQ(host.call(PrintText, nullptr, 24U), 255);
  EXPECT_EQ(host.call(PrintText, "", 24U), 240);
  EXPECT_EQ(lastError(), 2005);
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("Milch"), confirmation()}));
}

struct Cut {
  const char* text;
  Lines lines;  // as JSON writes them
};

const Cut kCuts[] = {
    {"A", {"A"}},
    {"A\r", {"A\\r"}},  // without a line feed the text stays as it is
    {"\r", {"\\r"}},
    {"A\r\nB", {"A", "B"}},
    {"L1\r\nL2\r\n", {"L1", "L2"}},
    {"A\n\nB\n", {"A", " ", "B"}},
    {"\nA", {" ", "A"}},
    {"\n", {" "}},
    {"\n\n", {" ", " "}},
    {"\r\n\r\n", {" ", " "}},
    {"A\r\r\nB", {"A\\r", "B"}},
    {"\r\r\n", {"\\r"}},
    {"A\nB\r", {"A", "B"}},
    {"A\n\r", {"A", " "}},
    {"A\rB\nC", {"A\\rB", "C"}},
    {" \n\t\n", {" ", "\\t"}},
    {"\"A\"\n\\n", {"\\\"A\\\"", "\\\\n"}},
};

TEST_F(Text, IsCutAtItsLineFeedsAndEachLineIsACommand) {
  printer.alwaysAnswers(kOk);
  for (const Cut& cut : kCuts) {
    EXPECT_EQ(host.call(PrintText, cut.text, 24U), 240) << cut.text;
    Lines expected;
    for (const std::string& line : cut.lines) expected.push_back(textRequest(line));
    expected.push_back(confirmation());
    EXPECT_EQ(requestsOfTicket(), expected) << ::testing::PrintToString(cut.text);
  }
}

TEST_F(TextByWidth, IsCutInTheSameWayWithTheSizeAndWidthOnEveryLine) {
  printer.alwaysAnswers(kOk);
  for (const Cut& cut : kCuts) {
    EXPECT_EQ(host.call(PrintTextByPaperWidth, cut.text, 30U, 40U), 240) << cut.text;
    Lines expected;
    for (const std::string& line : cut.lines) expected.push_back(widthRequest(line, 30, 320));
    expected.push_back(confirmation());
    EXPECT_EQ(requestsOfTicket(), expected) << ::testing::PrintToString(cut.text);
  }
}

TEST_F(Text, GoesOutInTheOrderInWhichItWasQueued) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "1\n2", 24U), 240);
  EXPECT_EQ(host.call(PrintTextByPaperWidth, "3\n4", 12U, 80U), 240);
  EXPECT_EQ(host.call(PrintText, "5", 72U), 240);
  EXPECT_EQ(requestsOfTicket(),
            (Lines{textRequest("1"), textRequest("2"), widthRequest("3", 12, 640),
                   widthRequest("4", 12, 640), textRequest("5", 72), confirmation()}));
}

TEST_F(Text, IsLoggedAndNotTakenForAFormat) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "%s%n%d", 24U), 240);
  EXPECT_EQ(host.call(PrintTextByPaperWidth, "%s%n%d", 24U, 58U), 240);
  EXPECT_EQ(newLines(),
            (Lines{entry("24", "%s%n%d"), "[T] L:555 M:DLL ", "[PrintTextByPaperWidth] %s%n%d"}));
  EXPECT_EQ(requestsOfTicket(),
            (Lines{textRequest("%s%n%d"), widthRequest("%s%n%d", 24, 464), confirmation()}));
}

TEST_F(Text, OfMoreThan510CharactersIsCutInTheLogAndOneByPaperWidthIsNot) {
  const std::string text(600, 'x');
  EXPECT_EQ(host.call(PrintText, text.c_str(), 24U), 240);
  const Lines lines = newLines();
  ASSERT_EQ(lines.size(), 1U);
  // What was taken off the front of the line is its time, of 27 characters.
  EXPECT_EQ(lines[0], entry("24", text).substr(0, 510 - 27));
  EXPECT_EQ(host.call(PrintTextByPaperWidth, text.c_str(), 24U, 58U), 240);
  EXPECT_EQ(newLines(), entryByWidth(text));
}

TEST_F(Text, IsNotLoggedWhenTheThresholdIsAboveTrace) {
  host.withLogConfig("DLL=7\n");
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  EXPECT_EQ(host.call(PrintTextByPaperWidth, "Milch", 24U, 58U), 240);
  EXPECT_EQ(host.call(PrintText, nullptr, 24U), 255);
  EXPECT_EQ(host.call(BeginPrint, 0), 240);
  EXPECT_FALSE(exists(log.file()));
}

// ---- Past the queue ----

using TextById = PrintingTest;

TEST_F(TextById, GoesOutAsItIsWithoutCuttingAndLimits) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(printTextById, "A\r\n\nB\n", 5U, 0U), 0);
  EXPECT_EQ(host.call(printTextById, "\xE4\xC4\xE3\"\\", 500U, 7U), 0);
  EXPECT_EQ(host.call(printTextById, "A", UINT_MAX, UINT_MAX), 0);
  EXPECT_EQ(newRequests(),
            (Lines{textRequest("A\\r\\n\\nB\\n", 5, 0), textRequest("\xE4\xC4\xE3\\\"\\\\", 500, 7),
                   textRequest("A", -1, -1)}));
  EXPECT_EQ(newLines(), Lines{});
}

TEST_F(TextById, ByPaperWidthGoesOutWithEightTimesAnyWidth) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(printTextByPaperWidthById, "A\nB", 5U, 58U, 0U), 0);
  EXPECT_EQ(host.call(printTextByPaperWidthById, "\xE4", 500U, 100U, 7U), 0);
  EXPECT_EQ(host.call(printTextByPaperWidthById, "A", UINT_MAX, UINT_MAX - 4U, UINT_MAX), 0);
  EXPECT_EQ(newRequests(),
            (Lines{widthRequest("A\\nB", 5, 464, 0), widthRequest("\xE4", 500, 800, 7),
                   widthRequest("A", -1, -40, -1)}));
  EXPECT_EQ(newLines(), Lines{});
}

TEST_F(TextById, ThatIsEmptyIsOneBlankAndSizeZeroIs28) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(printTextById, "", 0U, 1U), 0);
  EXPECT_EQ(host.call(printTextByPaperWidthById, "", 0U, 0U, 1U), 0);
  EXPECT_EQ(newRequests(), (Lines{textRequest(" ", 28), widthRequest(" ", 28, 0)}));
}

TEST_F(TextById, ThatIsNullIsTwoAndOnlyByPaperWidthLogged) {
  EXPECT_EQ(host.call(printTextById, nullptr, 24U, 1U), 2);
  EXPECT_EQ(lastError(), 2);
  EXPECT_EQ(newLines(), Lines{});
  printer.answers(kOk);
  EXPECT_EQ(host.call(printTextById, "A", 24U, 1U), 0);
  EXPECT_EQ(host.call(printTextByPaperWidthById, nullptr, 24U, 58U, 1U), 2);
  EXPECT_EQ(lastError(), 2);
  EXPECT_EQ(newLines(), Lines{"[W] L:493 M:DLL [printTextByPaperWidth] str is NULL"});
  EXPECT_EQ(newRequests(), Lines{textRequest("A")});
}

TEST_F(TextById, Of2048BytesIsSentAndOneByteMoreIsSixAndLogged) {
  printer.alwaysAnswers(kOk);
  const std::string longest(2048, 'x');
  EXPECT_EQ(host.call(printTextById, longest.c_str(), 24U, 1U), 0);
  EXPECT_EQ(newRequests(), Lines{textRequest(longest)});
  EXPECT_EQ(newLines(), Lines{});
  const std::string tooLong = longest + 'x';
  EXPECT_EQ(host.call(printTextById, tooLong.c_str(), 24U, 1U), 6);
  EXPECT_EQ(lastError(), 6);
  EXPECT_EQ(newRequests(), Lines{});
  const std::string line = "[W] L:463 M:DLL printText Input params is too long(" + tooLong + ")!";
  EXPECT_EQ(newLines(), Lines{line.substr(0, 510 - 27)});
  EXPECT_EQ(host.call(printTextByPaperWidthById, tooLong.c_str(), 24U, 58U, 1U), 0);
  EXPECT_EQ(newRequests(), Lines{widthRequest(tooLong, 24, 464)});
}

TEST_F(TextById, LeavesTheQueuedJobAlone) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  EXPECT_EQ(host.call(printTextById, "now", 24U, 1U), 0);
  EXPECT_EQ(host.call(printTextByPaperWidthById, "now", 24U, 1U, 1U), 0);
  EXPECT_EQ(newRequests(), (Lines{textRequest("now"), widthRequest("now", 24, 8)}));
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("Milch"), confirmation()}));
}

}  // namespace
}  // namespace tolvex::test
