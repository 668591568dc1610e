// The job types that end in a feed or a cut.
#include <ostream>

#include "printing/begin_print_test.h"

namespace tolvex {
namespace {

struct JobType {
  int number;
  const char* name;
  int printerType;
  const char* closing;  // the request of the feed or the cut
  const char* part;     // how the log calls the part before it
  const char* notPrinted;
  const char* notConfirmed;
  const char* confirmed;
};

void PrintTo(const JobType& type, std::ostream* out) { *out << type.name; }

constexpr char kFeed0[] = R"({"cmd":"printblanks","distance":"13","printerType":"0"})";
constexpr char kFeed1[] = R"({"cmd":"printblanks","distance":"13","printerType":"1"})";
constexpr char kFeed2[] = R"({"cmd":"printblanks","distance":"13","printerType":"2"})";
constexpr char kCut1[] = R"({"cmd":"cutPaper","printerType":"1","Percent":"70"})";
constexpr char kCut2[] = R"({"cmd":"cutPaper","printerType":"2","Percent":"70"})";

const JobType kJobTypes[] = {
    {4, "4_FEED", 1, kFeed1, "Feed", "L:640", "L:646", "L:649"},
    {104, "104_FP_FEED", 1, kFeed1, "Feed", "L:640", "L:646", "L:649"},
    {206, "206_FEED_AUTO", 0, kFeed0, "Feed", "L:640", "L:646", "L:649"},
    {208, "208_FEED_LBL", 0, kFeed0, "Feed", "L:640", "L:646", "L:649"},
    {304, "304_FLLP_FEED", 2, kFeed2, "Feed", "L:640", "L:646", "L:649"},
    {8, "8_CUT", 1, kCut1, "Cut", "L:668", "L:674", "L:677"},
    {105, "105_FP_CUT", 1, kCut1, "Cut", "L:668", "L:674", "L:677"},
    {207, "207_FLP_CUT", 1, kCut1, "Cut", "L:668", "L:674", "L:677"},
    {305, "305_FLLP_CUT", 2, kCut2, "Cut", "L:668", "L:674", "L:677"},
};

class FeedOrCutJob : public BeginPrintTest, public ::testing::WithParamInterface<JobType> {
 protected:
  void expectJob(int verdict, std::int32_t lastError, const Texts& requests, const Texts& logged) {
    expectRun(GetParam().number, GetParam().name, verdict, lastError, requests, logged);
    expectQueueReset();
  }

  static std::string closing() { return GetParam().closing; }
  static std::string line(const std::string& text) {
    return lineRequest(text, GetParam().printerType);
  }
  static std::string confirmation() { return beginPrintRequest(GetParam().printerType); }

  static std::string ofPart(char level, const char* lineNumber, const std::string& what) {
    return std::string("[") + level + "] " + lineNumber + " M:DLL [printing_test][" +
           GetParam().part + " - BeginPrint] " + GetParam().name + what;
  }
  static std::string notPrinted(const std::string& code) {
    return ofPart('W', GetParam().notPrinted, " Err when printing, ret:" + code);
  }
  static std::string notConfirmed(const std::string& code) {
    return ofPart('W', GetParam().notConfirmed, " Err, ret:" + code);
  }
  static std::string confirmed() { return ofPart('T', GetParam().confirmed, " OK"); }
  static std::string done() {
    return std::string("[T] L:714 M:DLL [printing_test][BeginPrint] ") + GetParam().name + " OK";
  }
  // It shows the verdict of the whole, whatever the code was.
  static std::string notClosed() {
    return std::string("[W] L:711 M:DLL [printing_test][BeginPrint] ") + GetParam().name +
           " Err, ret:0xff";
  }
};

TEST_P(FeedOrCutJob, WithAnEmptyQueueOnlyCloses) { expectJob(240, 0, {closing()}, {done()}); }

TEST_P(FeedOrCutJob, WithAnEmptyQueueFailsWithItsClosing) {
  answerWith({"2006"});
  expectJob(255, 2006, {closing()}, {notClosed()});
}

TEST_P(FeedOrCutJob, PrintsAndConfirmsWhatIsQueuedBeforeItCloses) {
  queueLine("a");
  queueLine("b");
  expectJob(240, 0, {line("a"), line("b"), confirmation(), closing()}, {confirmed(), done()});
}

TEST_P(FeedOrCutJob, OfAFailedRecordIsNotClosed) {
  for (const char* const text : {"a", "b", "c"}) queueLine(text);
  answerWith({"0", "2006"});
  expectJob(255, 2006, {line("a"), line("b")}, {notPrinted("2006")});
}

TEST_P(FeedOrCutJob, OfAnUnreadableReplyToARecordIsNotClosed) {
  queueLine("a");
  printing.nextReplies = {"?"};
  expectJob(255, -1, {line("a")}, {notPrinted("-1")});
}

// The queue counts as empty only after a reset, and this one fails like any drain of nothing.
TEST_P(FeedOrCutJob, OfAQueueThatWasTakenIsNotClosed) {
  queueLine("a");
  client.printJob().takeNext();
  expectJob(255, 1, {}, {notPrinted("1")});
}

TEST_P(FeedOrCutJob, ClosesInSpiteOfAFailedConfirmation) {
  queueLine("a");
  answerWith({"0", "2005"});
  expectJob(240, 0, {line("a"), confirmation(), closing()}, {notConfirmed("0x7d5"), done()});
}

TEST_P(FeedOrCutJob, ClosesInSpiteOfAnUnreadableConfirmation) {
  queueLine("a");
  printing.nextReplies = {R"({"result":"0"})", "?"};
  expectJob(240, 0, {line("a"), confirmation(), closing()}, {notConfirmed("0xffffffff"), done()});
}

TEST_P(FeedOrCutJob, ClosesInSpiteOfAConfirmationWithoutReply) {
  queueLine("a");
  printing.nextReplies = {R"({"result":"0"})", ""};
  expectJob(240, 0, {line("a"), confirmation(), closing()},
            {"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: 0!", notConfirmed("0x4"), done()});
}

TEST_P(FeedOrCutJob, FailsWithItsClosing) {
  queueLine("a");
  answerWith({"0", "0", "2007"});
  expectJob(255, 2007, {line("a"), confirmation(), closing()}, {confirmed(), notClosed()});
}

TEST_P(FeedOrCutJob, FailsWithAnUnreadableClosing) {
  queueLine("a");
  printing.nextReplies = {R"({"result":"0"})", R"({"result":"0"})", "?"};
  expectJob(255, -1, {line("a"), confirmation(), closing()}, {confirmed(), notClosed()});
}

TEST_P(FeedOrCutJob, TellsBothFailures) {
  queueLine("a");
  answerWith({"0", "2005", "2007"});
  expectJob(255, 2007, {line("a"), confirmation(), closing()},
            {notConfirmed("0x7d5"), notClosed()});
}

INSTANTIATE_TEST_SUITE_P(Of, FeedOrCutJob, ::testing::ValuesIn(kJobTypes),
                         [](const auto& type) { return std::string("Job") + type.param.name; });

}  // namespace
}  // namespace tolvex
