// Labels that are not as the printer takes them for.
#include "devices/label_stock.h"

#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

// 30 mm with gaps of 2 mm, instead of 40 mm with gaps of 3 mm.
constexpr LabelStock kShort{StockKind::Gap, 240, 16};
constexpr LabelStock kMarks{StockKind::Mark, 320, 24};
constexpr LabelStock kUnbroken{StockKind::Continuous, 320, 24};

class LabelStockTest : public PrinterFixture {
 protected:
  void printLabel(const std::string& text) {
    label_.printText(text, 24);
    label_.finishJob();
  }

  std::vector<int> topsOf(int number) const {
    return printers_.jobs().find(number)->paper().tops();
  }
  LabelStock stock() const { return *label_.stock(); }
  LabelStock learnt() const { return *label_.learnt(); }
};

TEST_F(LabelStockTest, IsLearntAndInRegisterAsDelivered) {
  const LabelStock delivered{StockKind::Gap, 320, 24, 0};
  EXPECT_EQ(stock(), delivered);
  EXPECT_EQ(learnt(), delivered);
  EXPECT_TRUE(label_.isInRegister());
}

TEST_F(LabelStockTest, IsNotThereOnRolls) {
  EXPECT_EQ(ticket_.stock(), nullptr);
  EXPECT_EQ(ticket_.learnt(), nullptr);
  EXPECT_TRUE(ticket_.isInRegister());
  EXPECT_EQ(ticket_.setStock(kShort), ResultCode::PrtDrvReturnError);
  EXPECT_EQ(ticket_.loadPaper(100, kShort), ResultCode::PrtDrvReturnError);
  EXPECT_EQ(ticket_.paperLeft(), std::nullopt);
}

TEST_F(LabelStockTest, HasKindsWithNames) {
  EXPECT_STREQ(name(StockKind::Gap), "gap");
  EXPECT_STREQ(name(StockKind::Mark), "mark");
  EXPECT_STREQ(name(StockKind::Continuous), "continuous");
}

TEST_F(LabelStockTest, HasBounds) {
  const auto set = [this](int label, int gap, int position) {
    return label_.setStock({StockKind::Gap, label, gap, position});
  };
  EXPECT_EQ(set(40, 8, 47), ResultCode::Ok);
  EXPECT_EQ(set(2400, 240, 2639), ResultCode::Ok);
  const LabelStock before = stock();
  EXPECT_EQ(set(39, 8, 0), ResultCode::InvalidParam);
  EXPECT_EQ(set(2401, 8, 0), ResultCode::InvalidParam);
  EXPECT_EQ(set(40, 7, 0), ResultCode::InvalidParam);
  EXPECT_EQ(set(40, 241, 0), ResultCode::InvalidParam);
  EXPECT_EQ(set(40, 8, 48), ResultCode::InvalidParam);
  EXPECT_EQ(set(40, 8, -1), ResultCode::InvalidParam);
  EXPECT_EQ(label_.loadPaper(100, LabelStock{}), ResultCode::InvalidParam);
  EXPECT_EQ(stock(), before);
  EXPECT_EQ(label_.paperLeft(), std::nullopt);
}

TEST_F(LabelStockTest, MovesWithThePaper) {
  label_.feed(5);
  EXPECT_EQ(stock().position, 40);
  printLabel("a");
  EXPECT_EQ(stock().position, 70);
  label_.feed(40);
  EXPECT_EQ(stock().position, 70 + 320 - 344);
  EXPECT_TRUE(label_.isInRegister());
  label_.cut(70);
  EXPECT_EQ(stock().position, 0);
  EXPECT_TRUE(label_.isInRegister());
}

TEST_F(LabelStockTest, ChangedIsUnknownToThePrinter) {
  EXPECT_EQ(label_.setStock(kShort), ResultCode::Ok);
  EXPECT_EQ(stock(), kShort);
  EXPECT_EQ(learnt(), (LabelStock{StockKind::Gap, 320, 24, 0}));
  EXPECT_FALSE(label_.isInRegister());
}

TEST_F(LabelStockTest, DriftsFurtherWithEachJobUnlessCalibrated) {
  label_.setStock(kShort);
  printLabel("a");
  printLabel("b");
  EXPECT_EQ(stock().position, (344 + 30) % 256);
  printLabel("c");
  EXPECT_EQ(stock().position, (2 * 344 + 30) % 256);
  // Each job begins with a label, as the printer believes, and shows what really lay there.
  const auto& jobs = printers_.jobs();
  EXPECT_EQ(jobs.find(2)->paper().stretches().at(0).stock.position, 344 - 256);
  EXPECT_EQ(jobs.find(3)->paper().stretches().at(0).stock.position, 2 * 344 - 2 * 256);
  EXPECT_EQ(topsOf(3), std::vector<int>{0});
}

TEST_F(LabelStockTest, DoesNotDecideWhereThePrintFalls) {
  label_.setStock(kShort);
  label_.printImage(Bitmap(8, 300));
  label_.printImage(Bitmap(8, 300));
  EXPECT_EQ(topsOf(1), (std::vector<int>{0, 344}));
  label_.cut(70);
  EXPECT_EQ(topsOf(1), (std::vector<int>{0, 344, 664}));
}

TEST_F(LabelStockTest, IsLearntByCalibration) {
  label_.setStock(kShort);
  label_.feed(5);
  EXPECT_EQ(label_.calibrateLabelGap(), ResultCode::Ok);
  EXPECT_EQ(learnt(), kShort);
  EXPECT_TRUE(label_.isInRegister());
  // 40 fed, the 216 that were left of the label and its gap, and another one.
  EXPECT_EQ(label_.freshPaper(), 512);
  label_.printImage(Bitmap(8, 200));
  label_.printImage(Bitmap(8, 200));
  EXPECT_EQ(paperOf(1), (Items{"feed 512", "[image 8x200]", "[image 8x200]"}));
  EXPECT_EQ(topsOf(1), (std::vector<int>{0, 512, 768}));
}

TEST_F(LabelStockTest, CanBeCalibratedInTheMiddleOfAJob) {
  label_.setStock(kShort);
  label_.printText("a", 24);
  EXPECT_EQ(label_.calibrateLabelGap(), ResultCode::Ok);
  label_.printImage(Bitmap(8, 200));
  label_.printImage(Bitmap(8, 200));
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 482", "[image 8x200]", "[image 8x200]"}));
  EXPECT_EQ(topsOf(1), (std::vector<int>{0, 30, 512, 768}));
  EXPECT_TRUE(label_.isInRegister());
}

TEST_F(LabelStockTest, CalibrationAfterAJobFeedsItsPaper) {
  printLabel("a");
  EXPECT_EQ(label_.calibrateLabelGap(), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 658"}));
  EXPECT_EQ(stock().position, 0);
}

TEST_F(LabelStockTest, CalibrationNeedsAGapOfTheKindThatIsSet) {
  struct Row {
    int gapType;
    LabelStock stock;
    ResultCode code;
  };
  for (const Row& row : {
           Row{1, kShort, ResultCode::Ok},
           Row{1, kMarks, ResultCode::PrtDrvReturnError},
           Row{1, kUnbroken, ResultCode::PrtDrvReturnError},
           Row{2, kShort, ResultCode::PrtDrvReturnError},
           Row{2, kMarks, ResultCode::Ok},
           Row{2, kUnbroken, ResultCode::PrtDrvReturnError},
           Row{0, kShort, ResultCode::PrtDrvReturnError},
           Row{0, kUnbroken, ResultCode::PrtDrvReturnError},
           Row{3, kShort, ResultCode::PrtDrvReturnError},
           Row{9, kMarks, ResultCode::PrtDrvReturnError},
       }) {
    label_.loadPaper(std::nullopt, row.stock);
    label_.set(Setting::GapType, row.gapType);
    EXPECT_EQ(label_.calibrateLabelGap(), row.code) << row.gapType << name(row.stock.kind);
    EXPECT_EQ(label_.freshPaper() > 0, row.code == ResultCode::Ok);
  }
}

TEST_F(LabelStockTest, CalibrationWithoutEnoughPaperLearnsNothing) {
  label_.loadPaper(500, kShort);
  EXPECT_EQ(label_.calibrateLabelGap(), ResultCode::OutOfPaper);
  EXPECT_FALSE(label_.knowsLabelGap());
  EXPECT_FALSE(label_.isInRegister());
  EXPECT_EQ(label_.paperLeft(), 0);
}

TEST_F(LabelStockTest, AGapThatIsNotThereIsSearchedInVainAfterEachJob) {
  label_.setStock(kMarks);
  printLabel("a");
  printLabel("b");
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 344"}));
  EXPECT_EQ(paperOf(2), (Items{"\"b\"@24", "feed 344"}));
  label_.setStock(kUnbroken);
  printLabel("c");
  EXPECT_EQ(paperOf(3), (Items{"\"c\"@24", "feed 344"}));
  label_.set(Setting::GapType, 0);
  printLabel("d");
  EXPECT_EQ(paperOf(4), (Items{"\"d\"@24"}));
  label_.setStock(kMarks);
  label_.set(Setting::GapType, 2);
  printLabel("e");
  EXPECT_EQ(paperOf(5), (Items{"\"e\"@24"}));
}

TEST_F(LabelStockTest, NothingIsSearchedWithoutAJob) {
  label_.setStock(kMarks);
  EXPECT_EQ(label_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(label_.freshPaper(), 0);
  EXPECT_EQ(stock().position, 0);
}

TEST_F(LabelStockTest, TheSearchMayReachTheEndOfTheRoll) {
  label_.loadPaper(100, kMarks);
  label_.printText("a", 24);
  EXPECT_EQ(label_.finishJob(), ResultCode::OutOfPaper);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "feed 70", "end of roll"}));
  EXPECT_FALSE(label_.job()->isFinished());
}

TEST_F(LabelStockTest, AChangeDuringAJobLeavesWhatWasPrinted) {
  label_.printText("a", 24);
  label_.setStock({StockKind::Gap, 240, 16, 100});
  label_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"b\"@24"}));
  const auto& stretches = label_.job()->paper().stretches();
  ASSERT_EQ(stretches.size(), 2U);
  EXPECT_EQ(stretches[0].top, 0);
  EXPECT_EQ(stretches[0].stock, (LabelStock{StockKind::Gap, 320, 24, 0}));
  EXPECT_EQ(stretches[1].top, 30);
  EXPECT_EQ(stretches[1].stock, (LabelStock{StockKind::Gap, 240, 16, 100}));
  EXPECT_EQ(stock().position, 130);
}

TEST_F(LabelStockTest, ManyChangesDuringAJobKeepItSmall) {
  label_.printText("a", 24);
  for (int i = 0; i < 1000; ++i) label_.setStock({StockKind::Gap, 240, 16, i % 100});
  EXPECT_EQ(label_.job()->paper().stretches().size(), 2U);
}

TEST_F(LabelStockTest, AChangeTakesFinishedPaperAway) {
  printLabel("a");
  label_.setStock(stock());
  EXPECT_NE(label_.job(), nullptr);
  label_.setStock(kShort);
  EXPECT_EQ(label_.job(), nullptr);
  EXPECT_EQ(printers_.jobs().newest()->end(), JobEnd::Torn);
  EXPECT_EQ(stock(), kShort);
  EXPECT_EQ(learnt().position, 0);
}

TEST_F(LabelStockTest, LoadedLabelsBeginAtTheHead) {
  printLabel("a");
  EXPECT_EQ(label_.loadPaper(5000), ResultCode::Ok);
  EXPECT_TRUE(label_.isInRegister());
  EXPECT_EQ(stock().position, 0);
  EXPECT_EQ(label_.loadPaper(5000, LabelStock{StockKind::Gap, 320, 24, 8}), ResultCode::Ok);
  EXPECT_FALSE(label_.isInRegister());
  EXPECT_EQ(learnt().position, 0);
}

TEST_F(LabelStockTest, AJobGoesOnWithALabelOfTheNewRoll) {
  label_.setPaperLeft(100);
  label_.printText("a", 24);
  label_.printImage(Bitmap(8, 100));
  label_.loadPaper(std::nullopt, kShort);
  label_.printImage(Bitmap(8, 300));
  label_.printImage(Bitmap(8, 300));
  EXPECT_EQ(paperOf(1),
            (Items{"\"a\"@24", "[image 8x70]", "end of roll", "[image 8x300]", "[image 8x300]"}));
  EXPECT_EQ(topsOf(1), (std::vector<int>{0, 30, 100, 140, 484}));
  EXPECT_EQ(label_.job()->paper().stretches().at(1).top, 140);
}

}  // namespace
}  // namespace tolvex::sim
