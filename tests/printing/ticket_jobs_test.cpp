// The job types that print what is queued and confirm it: tickets, labels, and all unknown ones.
#include <ostream>

#include "printing/begin_print_test.h"

namespace tolvex {
namespace {

struct TicketType {
  int number;
  const char* name;
  int printerType;
};

void PrintTo(const TicketType& type, std::ostream* out) { *out << type.name; }

const TicketType kTicketTypes[] = {
    {0, "0_Ticket", 1},      {2, "2_DOT_LBL", 0}, {7, "7_IMG_TKT", 1}, {204, "204_IMG_LBL", 0},
    {205, "205_DOT_LBL", 0}, {42, "42", 1},       {1, "1", 1},         {203, "203", 1},
    {300, "300", 1},         {301, "301", 2},     {303, "303", 2},     {307, "307", 2},
    {311, "311", 2},         {312, "312", 1},     {-1, "-1", 1},       {-8, "-8", 1},
};

class TicketJob : public BeginPrintTest, public ::testing::WithParamInterface<TicketType> {
 protected:
  void expectJob(int verdict, std::int32_t lastError, const Texts& requests, const Texts& logged) {
    expectRun(GetParam().number, name(), verdict, lastError, requests, logged);
    expectQueueReset();
  }

  static std::string name() { return GetParam().name; }
  static std::string line(const std::string& text) {
    return lineRequest(text, GetParam().printerType);
  }
  static std::string confirmation() { return beginPrintRequest(GetParam().printerType); }
  static std::string failedToPrint(const std::string& code) {
    return "[W] L:725 M:DLL [printing_test][BeginPrint] " + name() +
           " Err when printing, ret:" + code;
  }
  static std::string failedToConfirm(const std::string& code) {
    return "[W] L:731 M:DLL [printing_test][BeginPrint] " + name() + " Err, ret:" + code;
  }
};

TEST_P(TicketJob, WithAnEmptyQueueFails) { expectJob(255, 1, {}, {failedToPrint("1")}); }

TEST_P(TicketJob, PrintsWhatIsQueuedAndConfirmsIt) {
  queueLine("a");
  queueLine("b");
  expectJob(240, 0, {line("a"), line("b"), confirmation()},
            {"[T] L:734 M:DLL [printing_test][BeginPrint] " + name() + " OK"});
}

TEST_P(TicketJob, OfAFailedRecordIsNotConfirmed) {
  for (const char* const text : {"a", "b", "c"}) queueLine(text);
  answerWith({"0", "2006"});
  expectJob(255, 2006, {line("a"), line("b")}, {failedToPrint("2006")});
}

TEST_P(TicketJob, FailsWithItsConfirmation) {
  queueLine("a");
  answerWith({"0", "2005"});
  expectJob(255, 2005, {line("a"), confirmation()}, {failedToConfirm("0x7d5")});
}

TEST_P(TicketJob, WithAnUnreadableReplyToARecordTellsMinusOne) {
  queueLine("a");
  printing.nextReplies = {"?"};
  expectJob(255, -1, {line("a")}, {failedToPrint("-1")});
}

TEST_P(TicketJob, WithAnUnreadableConfirmationTellsAllBits) {
  queueLine("a");
  printing.nextReplies = {R"({"result":"0"})", R"({"result":0})"};
  expectJob(255, -1, {line("a"), confirmation()}, {failedToConfirm("0xffffffff")});
}

TEST_P(TicketJob, WithoutAReplyToARecordIsNotConfirmed) {
  queueLine("a");
  printing.receiveResult = 0;
  expectJob(255, 4, {line("a")},
            {"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: 0!", failedToPrint("4")});
}

TEST_P(TicketJob, WithoutAReplyToItsConfirmationFails) {
  queueLine("a");
  printing.nextReplies = {R"({"result":"0"})", ""};
  expectJob(255, 4, {line("a"), confirmation()},
            {"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: 0!", failedToConfirm("0x4")});
}

INSTANTIATE_TEST_SUITE_P(Of, TicketJob, ::testing::ValuesIn(kTicketTypes), [](const auto& type) {
  const int number = type.param.number;
  return number < 0 ? "Minus" + std::to_string(-number) : std::to_string(number);
});

class MixedJob : public BeginPrintTest {};

TEST_F(MixedJob, PrintsTextsAndImagesInTheirOrder) {
  queue(PrintJobKind::kText, 24, 0, "Shop");
  queue(PrintJobKind::kImageFile, 90, 2, "logo.bmp");
  queue(PrintJobKind::kTextByWidth, 30, 58, "Total");
  expectRun(
      303, "303", kOk, 0,
      {R"({"cmd":"printtext","printerType":"2","fontsize":"24","text":"Shop"})",
       R"({"cmd":"printbmpfile","printerType":"2","angle":"90","filename":"logo.bmp"})",
       R"({"cmd":"print_text_width","printerType":"2","fontsize":"30","width":"464","text":"Total"})",
       R"({"cmd":"beginPrint","printerType":"2"})"},
      {"[T] L:734 M:DLL [printing_test][BeginPrint] 303 OK"});
}

TEST_F(MixedJob, LosesWhatWasQueuedBeforeAFailure) {
  queueLine("lost");
  queueLine("lost as well");
  answerWith({"2006"});
  EXPECT_EQ(runPrintJob(client, 0), kFailed);
  queueLine("next");
  EXPECT_EQ(runPrintJob(client, 0), kOk);
  EXPECT_EQ(printing.requests,
            (Texts{lineRequest("lost", 1), lineRequest("next", 1), beginPrintRequest(1)}));
}

}  // namespace
}  // namespace tolvex
