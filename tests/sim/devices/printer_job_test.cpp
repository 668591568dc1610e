// Which prints, feeds and cuts make one piece of paper.
#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

class PrinterJob : public PrinterFixture {
 protected:
  PrinterJob() {
    printers_.jobs().listen([this](const Job& job) {
      told_.push_back(std::to_string(job.number()) + " " + job.printer() +
                      (job.isFinished() ? " finished " : " printing ") +
                      std::to_string(job.paper().items().size()));
    });
  }

  std::vector<std::string> told_;
};

TEST_F(PrinterJob, IsFinishedByItsConfirmation) {
  ticket_.printText("a", 24);
  ticket_.printText("b", 24);
  EXPECT_FALSE(ticket_.job()->isFinished());
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_TRUE(ticket_.job()->isFinished());
  EXPECT_EQ(told_, (Items{"1 Ticket printing 1", "1 Ticket printing 2", "1 Ticket finished 2"}));
}

TEST_F(PrinterJob, NothingPrintedIsNoJob) {
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(ticket_.job(), nullptr);
  EXPECT_EQ(told_, Items{});
  ticket_.printText("a", 24);
  ticket_.finishJob();
  told_.clear();
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(told_, Items{});
}

TEST_F(PrinterJob, NumbersCountOverAllPrinters) {
  ticket_.printText("a", 24);
  label_.printText("b", 24);
  ticket_.finishJob();
  ticket_.printText("c", 24);
  EXPECT_EQ(ticket_.job()->number(), 3);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
  EXPECT_EQ(printers_.jobs().newest()->number(), 3);
  EXPECT_EQ(printers_.jobs().newest("Ticket")->number(), 3);
  EXPECT_EQ(printers_.jobs().newest("Label")->number(), 2);
  EXPECT_EQ(printers_.jobs().newest("Third"), nullptr);
}

TEST_F(PrinterJob, AFeedAfterItBelongsToItsPaper) {
  ticket_.printText("a", 24);
  ticket_.finishJob();
  EXPECT_EQ(ticket_.feed(13), ResultCode::Ok);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 104"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
  EXPECT_EQ(told_, (Items{"1 Ticket printing 1", "1 Ticket finished 1", "1 Ticket finished 2",
                          "2 Ticket printing 1"}));
}

TEST_F(PrinterJob, ACutAfterItEndsItsPaper) {
  ticket_.printText("a", 24);
  ticket_.finishJob();
  EXPECT_EQ(ticket_.feed(13), ResultCode::Ok);
  EXPECT_EQ(ticket_.cut(70), ResultCode::Ok);
  EXPECT_EQ(ticket_.job(), nullptr);
  EXPECT_EQ(ticket_.cut(70), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 104", "cut 70"}));
  EXPECT_EQ(told_, (Items{"1 Ticket printing 1", "1 Ticket finished 1", "1 Ticket finished 2",
                          "1 Ticket finished 3"}));
}

TEST_F(PrinterJob, ACutFinishesWhatWasNotConfirmed) {
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.cut(100), ResultCode::Ok);
  EXPECT_EQ(told_, (Items{"1 Ticket printing 1", "1 Ticket finished 2"}));
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "cut 100"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
}

TEST_F(PrinterJob, ACutLabelIsAsLongAsItIs) {
  label_.printText("a", 24);
  label_.finishJob();
  EXPECT_EQ(printers_.jobs().newest()->paper().length(), 30);
  EXPECT_EQ(label_.cut(70), ResultCode::Ok);
  EXPECT_EQ(printers_.jobs().newest()->paper().length(), 320);
}

TEST_F(PrinterJob, AFeedWithinItIsBlankPaper) {
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.feed(5), ResultCode::Ok);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 40", "\"b\"@24"}));
}

TEST_F(PrinterJob, AFeedOfFreshPaperComesBeforeTheNextPrint) {
  EXPECT_EQ(ticket_.feed(5), ResultCode::Ok);
  EXPECT_EQ(ticket_.feed(6), ResultCode::Ok);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(told_, Items{});
  ticket_.printText("a", 24);
  ticket_.cut(50);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"feed 88", "\"a\"@24", "cut 50"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
}

TEST_F(PrinterJob, ACutTakesFreshPaperAway) {
  ticket_.feed(5);
  EXPECT_EQ(ticket_.cut(50), ResultCode::Ok);
  ticket_.printText("a", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
}

TEST_F(PrinterJob, TearingOffFinishesItAndBeginsFreshPaper) {
  ticket_.printText("a", 24);
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  ticket_.tearOff();
  EXPECT_EQ(ticket_.job(), nullptr);
  EXPECT_EQ(told_, (Items{"1 Ticket printing 1", "1 Ticket finished 1"}));
  ticket_.setFault(PrinterFault::OutOfPaper, false);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
}

TEST_F(PrinterJob, TearingOffLeavesAFinishedOneAsItIs) {
  ticket_.printText("a", 24);
  ticket_.finishJob();
  told_.clear();
  ticket_.tearOff();
  EXPECT_EQ(told_, Items{});
  EXPECT_EQ(ticket_.feed(13), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
}

TEST_F(PrinterJob, TearingOffTakesFreshPaperAway) {
  ticket_.feed(5);
  ticket_.tearOff();
  ticket_.printText("a", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
}

TEST_F(PrinterJob, OtherPrintersDoNotComeBetween) {
  ticket_.printText("a", 24);
  ticket_.finishJob();
  label_.printText("b", 24);
  ticket_.cut(70);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "cut 70"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24"}));
}

TEST_F(PrinterJob, FeedsAndCutsHaveBounds) {
  ticket_.printText("a", 24);
  for (const int mm : {-2147483647 - 1, -1, 0, 1001, 2147483647}) {
    EXPECT_EQ(ticket_.feed(mm), ResultCode::InvalidParam) << mm;
  }
  for (const int percent : {-2147483647 - 1, -1, 0, 101, 2147483647}) {
    EXPECT_EQ(ticket_.cut(percent), ResultCode::InvalidParam) << percent;
  }
  EXPECT_EQ(ticket_.feed(1), ResultCode::Ok);
  EXPECT_EQ(ticket_.feed(1000), ResultCode::Ok);
  EXPECT_EQ(ticket_.cut(1), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 8", "feed 8000", "cut 1"}));
}

TEST_F(PrinterJob, GoesOnAfterAFault) {
  ticket_.printText("a", 24);
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::OutOfPaper);
  ticket_.setFault(PrinterFault::OutOfPaper, false);
  ticket_.printText("b", 24);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"b\"@24"}));
}

TEST_F(PrinterJob, IsFinishedAtTheEndWhateverHappens) {
  ticket_.printText("a", 24);
  ticket_.setFault(PrinterFault::Unplugged, true);
  label_.printText("b", 24);
  third_.printText("c", 24);
  third_.finishJob();
  told_.clear();
  printers_.endJobs();
  EXPECT_EQ(told_, (Items{"2 Label finished 1", "1 Ticket finished 1"}));
}

}  // namespace
}  // namespace tolvex::sim
