// Closing a job: job types, printers, the order of commands, and what a failure leaves undone.
#include <climits>
#include <tuple>

#include "library/printing_test.h"

namespace tolvex::test {
namespace {

const std::string kHead = "[library_tests]";

std::string begun(const std::string& name) {
  return "[T] L:612 M:DLL " + kHead + "[BeginPrint] " + name + " Begin";
}
std::string closed(const std::string& name) {
  return "[T] L:714 M:DLL " + kHead + "[BeginPrint] " + name + " OK";
}
// Always its own verdict, whatever the command's code was.
std::string notClosed(const std::string& name) {
  return "[W] L:711 M:DLL " + kHead + "[BeginPrint] " + name + " Err, ret:0xff";
}
std::string printed(const std::string& name) {
  return "[T] L:734 M:DLL " + kHead + "[BeginPrint] " + name + " OK";
}
std::string notPrinted(const std::string& name, int code) {
  return "[W] L:725 M:DLL " + kHead + "[BeginPrint] " + name +
         " Err when printing, ret:" + std::to_string(code);
}
std::string notConfirmed(const std::string& name, const std::string& code) {
  return "[W] L:731 M:DLL " + kHead + "[BeginPrint] " + name + " Err, ret:" + code;
}

enum class Action { kPrint, kFeed, kCut, kCalibrateGap, kCalibrateEnd, kNothing };

struct JobType {
  int type;
  const char* name;
  Action action;
  int printerType;
};

const JobType kJobTypes[] = {
    {0, "0_Ticket", Action::kPrint, 1},
    {2, "2_DOT_LBL", Action::kPrint, 0},
    {7, "7_IMG_TKT", Action::kPrint, 1},
    {204, "204_IMG_LBL", Action::kPrint, 0},
    {205, "205_DOT_LBL", Action::kPrint, 0},
    {4, "4_FEED", Action::kFeed, 1},
    {104, "104_FP_FEED", Action::kFeed, 1},
    {206, "206_FEED_AUTO", Action::kFeed, 0},
    {208, "208_FEED_LBL", Action::kFeed, 0},
    {304, "304_FLLP_FEED", Action::kFeed, 2},
    {8, "8_CUT", Action::kCut, 1},
    {105, "105_FP_CUT", Action::kCut, 1},
    {207, "207_FLP_CUT", Action::kCut, 1},
    {305, "305_FLLP_CUT", Action::kCut, 2},
    {80, "80_CALIB_LBL", Action::kCalibrateGap, 0},
    {90, "90", Action::kCalibrateGap, 0},
    {81, "81_CALIB_TKT", Action::kCalibrateEnd, 1},
    {91, "91", Action::kCalibrateEnd, 1},
    {6, "6", Action::kNothing, 1},
    {106, "106", Action::kNothing, 1},
    {209, "209", Action::kNothing, 1},
    {306, "306", Action::kNothing, 2},
    // Types that no table knows are tickets; 301 to 311 go to the third printer.
    {42, "42", Action::kPrint, 1},
    {1, "1", Action::kPrint, 1},
    {300, "300", Action::kPrint, 1},
    {301, "301", Action::kPrint, 2},
    {311, "311", Action::kPrint, 2},
    {312, "312", Action::kPrint, 1},
    {-1, "-1", Action::kPrint, 1},
    {INT_MIN, "-2147483648", Action::kPrint, 1},
    {INT_MAX, "2147483647", Action::kPrint, 1},
};

bool prints(Action action) {
  return action == Action::kPrint || action == Action::kFeed || action == Action::kCut;
}

// The command that a job of this kind ends with; empty where none does.
std::string closingRequest(const JobType& job) {
  const std::string type = std::to_string(job.printerType);
  switch (job.action) {
    case Action::kFeed:
      return R"({"cmd":"printblanks","distance":"13","printerType":")" + type + "\"}";
    case Action::kCut:
      return R"({"cmd":"cutPaper","printerType":")" + type + R"(","Percent":"70"})";
    case Action::kCalibrateGap:
      return R"({"cmd":"calibrateLabelGap","printerType":")" + type + "\"}";
    case Action::kCalibrateEnd:
      return R"({"cmd":"calibrateOutOfPaper","printerType":")" + type + "\"}";
    case Action::kPrint:
    case Action::kNothing:
      break;
  }
  return {};
}

Lines requestsOf(const JobType& job, const Lines& queued) {
  Lines requests;
  if (prints(job.action) && !queued.empty()) {
    requests = queued;
    requests.push_back(confirmation(job.printerType));
  }
  const std::string closing = closingRequest(job);
  if (!closing.empty()) requests.push_back(closing);
  return requests;
}

Lines linesOf(const JobType& job, bool queued) {
  const std::string name = job.name;
  Lines lines = {begun(name)};
  if (job.action == Action::kFeed && queued) {
    lines.push_back("[T] L:649 M:DLL " + kHead + "[Feed - BeginPrint] " + name + " OK");
  }
  if (job.action == Action::kCut && queued) {
    lines.push_back("[T] L:677 M:DLL " + kHead + "[Cut - BeginPrint] " + name + " OK");
  }
  if (job.action == Action::kPrint) {
    lines.push_back(queued ? printed(name) : notPrinted(name, 1));
  } else if (job.action == Action::kNothing) {
    lines.push_back("[T] L:700 M:DLL " + kHead + "[BeginPrint] " + name + " OK");
  } else {
    lines.push_back(closed(name));
  }
  return lines;
}

struct Job : PrintingTest {
  void queue(const char* text) { EXPECT_EQ(host.call(PrintText, text, 24U), 240); }
  // Queues them and drops the lines that this logs.
  void queueQuietly(std::initializer_list<const char*> texts) {
    for (const char* const text : texts) queue(text);
    newLines();
    newRequests();
  }
};

TEST_F(Job, OfEachTypeSendsWhatIsQueuedToItsPrinterAndClosesInItsWay) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(std::size(kJobTypes), 31U);
  for (int (*const begin)(int) : {BeginPrint, BeginPrint_stdcall}) {
    for (const JobType& job : kJobTypes) {
      SCOPED_TRACE(job.name);
      queueQuietly({"A", "B"});
      EXPECT_EQ(host.call(begin, job.type), 240);
      EXPECT_EQ(newRequests(), requestsOf(job, {textRequest("A", 24, job.printerType),
                                                textRequest("B", 24, job.printerType)}));
      EXPECT_EQ(newLines(), linesOf(job, true));
      EXPECT_EQ(lastError(), 0);
      if (!prints(job.action)) {
        EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("A"), textRequest("B"), confirmation()}))
            << "the queue stays";
      }
    }
  }
  EXPECT_TRUE(service.requests().empty());
}

TEST_F(Job, OfEachTypeWithNothingQueuedClosesOnlyAndFailsWhereItOnlyPrints) {
  printer.alwaysAnswers(kOk);
  for (const JobType& job : kJobTypes) {
    SCOPED_TRACE(job.name);
    const bool onlyPrints = job.action == Action::kPrint;
    EXPECT_EQ(host.call(OpenCashDrawerEx), 240);  // so that the last error is 0
    newRequests();
    newLines();
    EXPECT_EQ(host.call(BeginPrint, job.type), onlyPrints ? 255 : 240);
    EXPECT_EQ(newRequests(), requestsOf(job, {}));
    EXPECT_EQ(newLines(), linesOf(job, false));
    EXPECT_EQ(lastError(), onlyPrints ? 1 : 0);
  }
}

TEST_F(Job, OfEachTypeWhoseClosingFailsShows255WhateverTheCode) {
  for (const JobType& job : kJobTypes) {
    if (closingRequest(job).empty()) continue;
    for (const int code : {2006, 10, -1}) {
      SCOPED_TRACE(job.name);
      printer.answers(replyWith(code));
      EXPECT_EQ(host.call(BeginPrint, job.type), 255);
      EXPECT_EQ(newRequests(), requestsOf(job, {}));
      EXPECT_EQ(newLines(), (Lines{begun(job.name), notClosed(job.name)}));
      EXPECT_EQ(lastError(), code);
    }
  }
}

TEST_F(Job, EndsAtTheFirstRecordThatCannotBePrinted) {
  for (const JobType& job : kJobTypes) {
    if (!prints(job.action)) continue;
    SCOPED_TRACE(job.name);
    queueQuietly({"A", "B", "C"});
    printer.answers(kOk);
    printer.answers(replyWith(2006));
    EXPECT_EQ(host.call(BeginPrint, job.type), 255);
    EXPECT_EQ(newRequests(),
              (Lines{textRequest("A", 24, job.printerType), textRequest("B", 24, job.printerType)}))
        << "neither the rest nor a confirmation, feed or cut";
    std::string line = notPrinted(job.name, 2006);
    if (job.action == Action::kFeed) {
      line = "[W] L:640 M:DLL " + kHead + "[Feed - BeginPrint] " + job.name +
             " Err when printing, ret:2006";
    } else if (job.action == Action::kCut) {
      line = "[W] L:668 M:DLL " + kHead + "[Cut - BeginPrint] " + job.name +
             " Err when printing, ret:2006";
    }
    EXPECT_EQ(newLines(), (Lines{begun(job.name), line}));
    EXPECT_EQ(lastError(), 2006);
    EXPECT_EQ(host.call(BeginPrint, 0), 255) << "the rest is gone";
    EXPECT_EQ(newRequests(), Lines{});
    newLines();
  }
}

TEST_F(Job, ThatOnlyPrintsFailsWithItsConfirmationInHexadecimal) {
  for (const JobType& job : kJobTypes) {
    if (job.action != Action::kPrint) continue;
    for (const auto& [reply, code, shown] :
         {std::tuple<std::string, int, const char*>{replyWith(2005), 2005, "0x7d5"},
          {replyWith(8), 8, "0x8"},
          {"nonsense", -1, "0xffffffff"}}) {
      SCOPED_TRACE(std::string(job.name) + " " + shown);
      queueQuietly({"A"});
      printer.answers(kOk);
      printer.answers(reply);
      EXPECT_EQ(host.call(BeginPrint, job.type), 255);
      EXPECT_EQ(newRequests(), requestsOf(job, {textRequest("A", 24, job.printerType)}));
      EXPECT_EQ(newLines(), (Lines{begun(job.name), notConfirmed(job.name, shown)}));
      EXPECT_EQ(lastError(), code);
    }
  }
}

TEST_F(Job, ThatFeedsOrCutsGoesOnWhenItsConfirmationFails) {
  for (const JobType& job : kJobTypes) {
    const bool feeds = job.action == Action::kFeed;
    if (!feeds && job.action != Action::kCut) continue;
    SCOPED_TRACE(job.name);
    const std::string line = (feeds ? "[W] L:646 M:DLL " + kHead + "[Feed - BeginPrint] "
                                    : "[W] L:674 M:DLL " + kHead + "[Cut - BeginPrint] ") +
                             job.name + " Err, ret:0x7d5";
    queueQuietly({"A"});
    printer.answers(kOk);
    printer.answers(replyWith(2005));
    printer.answers(kOk);
    EXPECT_EQ(host.call(BeginPrint, job.type), 240);
    EXPECT_EQ(newRequests(), requestsOf(job, {textRequest("A", 24, job.printerType)}));
    EXPECT_EQ(newLines(), (Lines{begun(job.name), line, closed(job.name)}));
    EXPECT_EQ(lastError(), 0);

    queueQuietly({"A"});
    printer.answers(kOk);
    printer.answers(replyWith(2005));
    printer.answers(replyWith(2006));
    EXPECT_EQ(host.call(BeginPrint, job.type), 255);
    EXPECT_EQ(newLines(), (Lines{begun(job.name), line, notClosed(job.name)}));
    EXPECT_EQ(lastError(), 2006);
    newRequests();
  }
}

TEST_F(Job, IsEmptyAfterItWasPrinted) {
  printer.alwaysAnswers(kOk);
  queue("A");
  EXPECT_EQ(host.call(BeginPrint, 8), 240);
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  queue("B");
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("B"), confirmation()}));
}

TEST_F(Job, WithALineOfMoreThan2048BytesFailsWithSixAndPrintsNothingAfterIt) {
  printer.alwaysAnswers(kOk);
  const std::string tooLong(2049, 'x');
  queueQuietly({"A", tooLong.c_str(), "B"});
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  EXPECT_EQ(newRequests(), Lines{textRequest("A")});
  const std::string refusal =
      "[W] L:463 M:DLL printText Input params is too long(" + tooLong + ")!";
  EXPECT_EQ(newLines(),
            (Lines{begun("0_Ticket"), refusal.substr(0, 510 - 27), notPrinted("0_Ticket", 6)}));
  EXPECT_EQ(lastError(), 6);
}

TEST_F(Job, WithAReplyThatCannotBeReadFailsWithMinusOne) {
  queueQuietly({"A", "B"});
  printer.answers(R"({"result":0})");
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  EXPECT_EQ(newRequests(), Lines{textRequest("A")});
  EXPECT_EQ(newLines(), (Lines{begun("0_Ticket"), notPrinted("0_Ticket", -1)}));
  EXPECT_EQ(lastError(), -1);
}

TEST_F(Job, OfAServiceThatClosesFailsWithFour) {
  queueQuietly({"A", "B"});
  printer.answers(kOk);
  printer.closes();
  EXPECT_EQ(host.call(BeginPrint, 8), 255);
  EXPECT_EQ(newRequests(), (Lines{textRequest("A"), textRequest("B")}));
  EXPECT_EQ(newLines(), (Lines{begun("8_CUT"), "[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: -1!",
                               "[W] L:668 M:DLL " + kHead +
                                   "[Cut - BeginPrint] 8_CUT Err when printing, ret:4"}));
  EXPECT_EQ(lastError(), 4);
  reconnect();
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(BeginPrint, 8), 240) << "nothing is left of it";
  EXPECT_EQ(newRequests(), Lines{R"({"cmd":"cutPaper","printerType":"1","Percent":"70"})"});
}

TEST_F(Job, ForAServiceThatIsGoneFailsAndIsDropped) {
  queueQuietly({"A", "B"});
  printer.goesAway();
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  const Lines lines = newLines();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), begun("0_Ticket"));
  EXPECT_EQ(lines.back(), notPrinted("0_Ticket", 4));
  EXPECT_EQ(std::count(lines.begin(), lines.end(),
                       "[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:-1."),
            1)
      << "one command, then no more";
  EXPECT_EQ(lastError(), 4);
}

TEST_F(Job, ThatDoesNothingLeavesTheLastErrorAlone) {
  printer.answers(replyWith(2009));
  EXPECT_EQ(host.call(GetPrinterStatus, 1U), 2009);
  for (const int type : {6, 106, 209, 306}) EXPECT_EQ(host.call(BeginPrint, type), 240);
  EXPECT_EQ(lastError(), 2009);
}

TEST_F(Job, AsTheFirstCallFindsNothingQueued) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(BeginPrint, 4), 240);
  EXPECT_EQ(newRequests(), Lines{R"({"cmd":"printblanks","distance":"13","printerType":"1"})"});
  EXPECT_EQ(newLines(), (Lines{begun("4_FEED"), closed("4_FEED")}));
}

}  // namespace
}  // namespace tolvex::test
