// Sending what was queued.
#include "printing/drain.h"

#include "printing/printing_test.h"

namespace tolvex {
namespace {

class Drain : public PrintingTest {
 protected:
  void expectDrained(unsigned code, const Texts& requests) {
    EXPECT_EQ(drainPrintJob(client, 2), code);
    EXPECT_EQ(client.getLastErrCode(), static_cast<std::int32_t>(code));
    EXPECT_EQ(printing.requests, requests);
    EXPECT_TRUE(weighing.requests.empty());
    expectQueueReset();
  }
};

TEST_F(Drain, OfAnEmptyQueueIsUnknown) {
  expectDrained(1, {});
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Drain, OfAQueueThatWasTakenIsUnknown) {
  queueLine("a");
  client.printJob().takeNext();
  expectDrained(1, {});
}

TEST_F(Drain, SendsATextWithItsFontSize) {
  queue(PrintJobKind::kText, 72, 0, "Apples");
  expectDrained(0, {R"({"cmd":"printtext","printerType":"2","fontsize":"72","text":"Apples"})"});
}

TEST_F(Drain, SendsATextByWidthWithItsWidth) {
  queue(PrintJobKind::kTextByWidth, 12, 58, "Apples");
  expectDrained(
      0,
      {R"({"cmd":"print_text_width","printerType":"2","fontsize":"12","width":"464","text":"Apples"})"});
}

TEST_F(Drain, SendsAnImageWithItsAngleButNotItsAlignment) {
  queue(PrintJobKind::kImageFile, 90, 2, "logo.bmp");
  expectDrained(0,
                {R"({"cmd":"printbmpfile","printerType":"2","angle":"90","filename":"logo.bmp"})"});
}

TEST_F(Drain, SendsAnAngleAsItsSixteenBits) {
  queue(PrintJobKind::kImageFile, static_cast<std::uint16_t>(-90), 0, "logo.bmp");
  expectDrained(
      0, {R"({"cmd":"printbmpfile","printerType":"2","angle":"65446","filename":"logo.bmp"})"});
}

TEST_F(Drain, SendsAFontSizeOfZeroAs28) {
  queue(PrintJobKind::kText, 0, 0, "a");
  expectDrained(0, {R"({"cmd":"printtext","printerType":"2","fontsize":"28","text":"a"})"});
}

TEST_F(Drain, SendsThePayloadByteForByte) {
  queueLine("K\xC3\xA4sse \"1\"\r");
  expectDrained(0, {lineRequest("K\xC3\xA4sse \\\"1\\\"\\r", 2)});
}

TEST_F(Drain, SendsOneCommandForEachRecordInOrder) {
  queueLine("first");
  queue(PrintJobKind::kImageFile, 0, 1, "second.bmp");
  queue(PrintJobKind::kTextByWidth, 30, 80, "third");
  queueLine("fourth");
  expectDrained(
      0,
      {lineRequest("first", 2),
       R"({"cmd":"printbmpfile","printerType":"2","angle":"0","filename":"second.bmp"})",
       R"({"cmd":"print_text_width","printerType":"2","fontsize":"30","width":"640","text":"third"})",
       lineRequest("fourth", 2)});
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Drain, PassesOverARecordOfAnUnknownKind) {
  queueLine("first");
  queue(static_cast<PrintJobKind>(9), 1, 2, "unknown");
  queueLine("last");
  expectDrained(0, {lineRequest("first", 2), lineRequest("last", 2)});
}

TEST_F(Drain, StopsAtTheFirstFailure) {
  for (const char* const line : {"a", "b", "c", "d"}) queueLine(line);
  answerWith({"0", "2006"});
  expectDrained(2006, {lineRequest("a", 2), lineRequest("b", 2)});
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Drain, StopsAtAFailureOfTheFirst) {
  queueLine("a");
  queueLine("b");
  answerWith({"2008"});
  expectDrained(2008, {lineRequest("a", 2)});
}

TEST_F(Drain, TellsAFailureOfTheLast) {
  queueLine("a");
  queueLine("b");
  answerWith({"0", "10"});
  expectDrained(10, {lineRequest("a", 2), lineRequest("b", 2)});
}

TEST_F(Drain, StopsAtAnUnreadableReply) {
  queueLine("a");
  queueLine("b");
  printing.reply = "?";
  expectDrained(kUnreadable, {lineRequest("a", 2)});
}

TEST_F(Drain, StopsAtAFailedExchange) {
  queueLine("a");
  queueLine("b");
  printing.sendResult = -1;
  expectDrained(4, {lineRequest("a", 2)});
  EXPECT_EQ(log.records(), Texts{"[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:-1."});
}

TEST_F(Drain, StopsAtATextThatIsTooLongToSend) {
  queueLine("a");
  queueLine(std::string(2049, 'x'));
  queueLine("c");
  expectDrained(6, {lineRequest("a", 2)});
}

TEST_F(Drain, SendsATextByWidthOfAnyLength) {
  queue(PrintJobKind::kTextByWidth, 24, 1, std::string(5000, 'x'));
  expectDrained(0, {R"({"cmd":"print_text_width","printerType":"2","fontsize":"24","width":"8",)"
                    R"("text":")" +
                    std::string(5000, 'x') + R"("})"});
}

TEST_F(Drain, StopsAtAnImageWithoutAName) {
  queue(PrintJobKind::kImageFile, 0, 0, "");
  queueLine("b");
  expectDrained(2, {});
}

TEST_F(Drain, WithoutAConnectionHasItsCode) {
  VcoClientApi half(&weighing, nullptr);
  half.printJob().append(PrintJobKind::kText, 24, 0, "a");
  half.printJob().append(PrintJobKind::kText, 24, 0, "b");
  EXPECT_EQ(drainPrintJob(half, 1), 2001U);
  EXPECT_EQ(half.getLastErrCode(), 2001);
  EXPECT_TRUE(half.printJob().isEmpty());
  EXPECT_EQ(log.records(), Texts{"[W] L:112 M:DLL [SndCmdToPrinter] Print Conn is NULL"});
}

TEST_F(Drain, LeavesTheQueueUsable) {
  queueLine("lost");
  queueLine("lost as well");
  answerWith({"2006"});
  EXPECT_EQ(drainPrintJob(client, 2), 2006U);
  printing.requests.clear();
  queueLine("next");
  expectDrained(0, {lineRequest("next", 2)});
}

}  // namespace
}  // namespace tolvex
