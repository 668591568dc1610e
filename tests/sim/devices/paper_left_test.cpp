// Paper that comes to its end.
#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

class PaperLeft : public PrinterFixture {
 protected:
  /// As many lines of a font of 24, each of which takes 30 dots.
  static std::string lines(int count) {
    std::string text;
    for (int line = 1; line <= count; ++line) text += std::to_string(line) + "\n";
    return text;
  }
};

TEST_F(PaperLeft, IsEndlessAtFirst) {
  for (const Printer& printer : printers_.all()) {
    EXPECT_EQ(printer.paperLeft(), std::nullopt) << printer.name();
  }
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.paperLeft(), std::nullopt);
}

TEST_F(PaperLeft, EverythingThatMovesPaperUsesItUp) {
  ticket_.setPaperLeft(1000);
  ticket_.feed(5);
  EXPECT_EQ(ticket_.paperLeft(), 960);
  ticket_.printText("a\nb", 24);
  EXPECT_EQ(ticket_.paperLeft(), 900);
  ticket_.printImage(Bitmap(8, 100));
  EXPECT_EQ(ticket_.paperLeft(), 800);
  ticket_.feed(10);
  EXPECT_EQ(ticket_.paperLeft(), 720);
  ticket_.finishJob();
  ticket_.cut(70);
  ticket_.calibratePaperEnd();
  EXPECT_EQ(ticket_.paperLeft(), 720);
}

TEST_F(PaperLeft, LabelsUseTheirRestWithTheNextJobACutOrByHand) {
  label_.setPaperLeft(5000);
  label_.printText("a", 24);
  label_.finishJob();
  EXPECT_EQ(label_.paperLeft(), 5000 - 30);
  label_.printText("b", 24);
  EXPECT_EQ(label_.paperLeft(), 5000 - 344 - 30);
  label_.cut(70);
  EXPECT_EQ(label_.paperLeft(), 5000 - 2 * 344);
  label_.printText("c", 24);
  label_.tearOff();
  EXPECT_EQ(label_.paperLeft(), 5000 - 3 * 344);
  label_.calibrateLabelGap();
  EXPECT_EQ(label_.paperLeft(), 5000 - 5 * 344);
}

TEST_F(PaperLeft, OfATextTheLinesThatFitArePrinted) {
  ticket_.setPaperLeft(100);
  EXPECT_EQ(ticket_.printText(lines(5), 24), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"1\"@24", "\"2\"@24", "\"3\"@24", "feed 10", "end of roll"}));
  EXPECT_EQ(ticket_.paperLeft(), 0);
  EXPECT_FALSE(ticket_.job()->isFinished());
}

TEST_F(PaperLeft, OfAPictureTheUpperRowsArePrinted) {
  ticket_.setPaperLeft(100);
  EXPECT_EQ(ticket_.printText("a", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.printImage(Bitmap(8, 71)), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "[image 8x70]", "end of roll"}));
}

TEST_F(PaperLeft, OfAPictureOnTheNextLabelAsWell) {
  label_.setPaperLeft(400);
  EXPECT_EQ(label_.printText("a", 24), ResultCode::Ok);
  EXPECT_EQ(label_.printImage(Bitmap(8, 300)), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 314", "[image 8x56]", "end of roll"}));
  EXPECT_EQ(label_.job()->paper().tops(), (std::vector<int>{0, 30, 344, 400}));
}

TEST_F(PaperLeft, OfAFeedSoMuchIsFed) {
  ticket_.setPaperLeft(100);
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.feed(9), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 70", "end of roll"}));
}

TEST_F(PaperLeft, MayEndBeforeACut) {
  label_.setPaperLeft(100);
  label_.printText("a", 24);
  EXPECT_EQ(label_.cut(70), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 70", "end of roll"}));
  EXPECT_FALSE(label_.job()->isFinished());
}

TEST_F(PaperLeft, MayEndWithWhatIsPrintedLast) {
  ticket_.setPaperLeft(60);
  EXPECT_EQ(ticket_.printText(lines(2), 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"1\"@24", "\"2\"@24", "end of roll"}));
  EXPECT_EQ(ticket_.status(), ResultCode::OutOfPaper);
}

TEST_F(PaperLeft, StopsEverythingThatMovesPaperAtItsEnd) {
  ticket_.setPaperLeft(30);
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.printText("b", 24), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.printImage(Bitmap(1, 1)), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.feed(1), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.cut(70), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.calibratePaperEnd(), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "end of roll"}));
  EXPECT_FALSE(ticket_.hasFault(PrinterFault::OutOfPaper));
  ticket_.setFault(PrinterFault::Abnormal, true);
  EXPECT_EQ(ticket_.status(), ResultCode::PrtStatusAbnormal);
  ticket_.setFault(PrinterFault::Abnormal, false);
  ticket_.setFault(PrinterFault::Busy, true);
  EXPECT_EQ(ticket_.status(), ResultCode::OutOfPaper);
}

TEST_F(PaperLeft, ANewRollLetsTheJobGoOn) {
  ticket_.setPaperLeft(100);
  ticket_.printText(lines(5), 24);
  EXPECT_EQ(ticket_.loadPaper(8000), ResultCode::Ok);
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("again", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(paperOf(1),
            (Items{"\"1\"@24", "\"2\"@24", "\"3\"@24", "feed 10", "end of roll", "\"again\"@24"}));
  // 100 dots, the 40 that the head does not reach, and the line on the new roll.
  EXPECT_EQ(printers_.jobs().newest()->paper().length(), 170);
  EXPECT_EQ(ticket_.paperLeft(), 7970);
}

TEST_F(PaperLeft, ANewRollDuringAJobShowsTheEndOfTheOneThatWasTakenOut) {
  ticket_.printText("a", 24);
  ticket_.loadPaper(std::nullopt);
  ticket_.loadPaper(std::nullopt);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "end of roll", "\"b\"@24"}));
}

TEST_F(PaperLeft, ANewRollTakesFinishedPaperAway) {
  ticket_.printText("a", 24);
  ticket_.finishJob();
  ticket_.loadPaper(std::nullopt);
  EXPECT_EQ(ticket_.job(), nullptr);
  EXPECT_EQ(printers_.jobs().newest()->end(), JobEnd::Torn);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
  ticket_.feed(5);
  ticket_.loadPaper(std::nullopt);
  EXPECT_EQ(ticket_.freshPaper(), 0);
}

TEST_F(PaperLeft, MendingTheFaultLoadsAnEndlessRoll) {
  ticket_.setPaperLeft(0);
  EXPECT_EQ(ticket_.status(), ResultCode::OutOfPaper);
  ticket_.setFault(PrinterFault::OutOfPaper, false);
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
  EXPECT_EQ(ticket_.paperLeft(), std::nullopt);
}

TEST_F(PaperLeft, MendingTheFaultLeavesARollThatHasNotEnded) {
  ticket_.setPaperLeft(100);
  ticket_.printText("a", 24);
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  ticket_.setFault(PrinterFault::OutOfPaper, false);
  EXPECT_EQ(ticket_.paperLeft(), 70);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
}

TEST_F(PaperLeft, LoadingMendsTheFault) {
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  ticket_.loadPaper(500);
  EXPECT_FALSE(ticket_.hasFault(PrinterFault::OutOfPaper));
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
}

TEST_F(PaperLeft, MoreThanNothingMendsTheFault) {
  ticket_.setPaperLeft(100);
  ticket_.printText("a", 24);
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  ticket_.setPaperLeft(0);
  EXPECT_TRUE(ticket_.hasFault(PrinterFault::OutOfPaper));
  ticket_.setPaperLeft(500);
  EXPECT_FALSE(ticket_.hasFault(PrinterFault::OutOfPaper));
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("b", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.paperLeft(), 470);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "end of roll", "\"b\"@24"}));
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  ticket_.setPaperLeft(std::nullopt);
  EXPECT_EQ(ticket_.status(), ResultCode::Ok);
}

TEST_F(PaperLeft, StaysWithinItsBounds) {
  ticket_.setPaperLeft(-1);
  EXPECT_EQ(ticket_.paperLeft(), 0);
  ticket_.setPaperLeft(2147483647);
  EXPECT_EQ(ticket_.paperLeft(), Printer::kMostPaper);
  ticket_.loadPaper(-5);
  EXPECT_EQ(ticket_.paperLeft(), 0);
}

TEST_F(PaperLeft, MoreAfterTheEndIsANewRoll) {
  ticket_.setPaperLeft(30);
  ticket_.printText("a", 24);
  ticket_.setPaperLeft(60);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "end of roll", "\"b\"@24"}));
}

TEST_F(PaperLeft, ThatReachesForNothingBeginsNoJob) {
  ticket_.setPaperLeft(29);
  EXPECT_EQ(ticket_.printText("a", 24), ResultCode::OutOfPaper);
  EXPECT_EQ(jobs(), 0U);
  EXPECT_EQ(ticket_.paperLeft(), 0);
  EXPECT_EQ(ticket_.freshPaper(), 29);
  ticket_.loadPaper(std::nullopt);
  ticket_.printText("a", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24"}));
}

TEST_F(PaperLeft, ThatEndsAfterAFinishedJobEndsOnItsPaper) {
  ticket_.setPaperLeft(50);
  ticket_.printText("a", 24);
  ticket_.finishJob();
  EXPECT_EQ(ticket_.printText("b", 24), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 20", "end of roll"}));
  label_.setPaperLeft(344);
  label_.printText("c", 24);
  label_.finishJob();
  EXPECT_EQ(label_.printText("d", 24), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(2), (Items{"\"c\"@24", "feed 314", "end of roll"}));
  label_.loadPaper(344 + 29);
  label_.printText("e", 24);
  label_.finishJob();
  EXPECT_EQ(label_.printText("f", 24), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(3), (Items{"\"e\"@24", "feed 343", "end of roll"}));
}

TEST_F(PaperLeft, FreshPaperEndsAsWell) {
  ticket_.setPaperLeft(50);
  EXPECT_EQ(ticket_.feed(7), ResultCode::OutOfPaper);
  EXPECT_EQ(ticket_.freshPaper(), 50);
  EXPECT_EQ(ticket_.status(), ResultCode::OutOfPaper);
}

TEST_F(PaperLeft, WhatIsTooLongLeavesNoTrace) {
  ticket_.setPaperLeft(100);
  EXPECT_EQ(ticket_.printText(std::string(10000, '\n'), 24), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.paperLeft(), 100);
  EXPECT_EQ(jobs(), 0U);
}

TEST_F(PaperLeft, EndlessChangesOfRollsKeepAJobSmall) {
  ticket_.printText("a", 24);
  for (int i = 0; i < 10000; ++i) ticket_.loadPaper(std::nullopt);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "end of roll"}));
}

}  // namespace
}  // namespace tolvex::sim
