// What text and pictures become on the paper.
#include "paper/render.h"
#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

class PrinterText : public PrinterFixture {
 protected:
  // A text of this many narrow cells.
  static std::string cells(std::size_t count) { return std::string(count, 'x'); }
};

TEST_F(PrinterText, StandsOnALineOfItsOwn) {
  EXPECT_EQ(ticket_.printText("Bäckerei 苹果", 28), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("Total 3.98", 40), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"Bäckerei 苹果\"@28", "\"Total 3.98\"@40"}));
  EXPECT_EQ(plainTextOf(ticket_.job()->paper()), "Bäckerei 苹果\nTotal 3.98\n");
}

TEST_F(PrinterText, WrapsAtThePrintableWidth) {
  // 576 dots hold 48 cells of 12 dots.
  EXPECT_EQ(ticket_.printText(cells(49), 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"" + cells(48) + "\"@24", "\"x\"@24"}));
  EXPECT_EQ(label_.printText("apples and " + cells(30), 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(2), (Items{"\"apples and\"@24", "\"" + cells(30) + "\"@24"}));
}

TEST_F(PrinterText, IsCutAtThePrintableWidthWhenSetSo) {
  EXPECT_EQ(ticket_.set(Setting::TextWrapMode, 0), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText(cells(49) + "\n" + cells(2), 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"" + cells(48) + "\"@24", "\"xx\"@24"}));
}

TEST_F(PrinterText, KeepsToTheWidthThatIsAskedFor) {
  EXPECT_EQ(ticket_.printText(cells(11), 24, 120), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"" + cells(10) + "\"@24", "\"x\"@24"}));
}

TEST_F(PrinterText, NeverGoesBeyondThePaper) {
  EXPECT_EQ(ticket_.printText(cells(49), 24, 2147483647), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"" + cells(48) + "\"@24", "\"x\"@24"}));
}

TEST_F(PrinterText, AWidthTooNarrowForAnythingHoldsOneCharacter) {
  EXPECT_EQ(ticket_.printText("abc", 24, 1), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"b\"@24", "\"c\"@24"}));
}

TEST_F(PrinterText, HasLineEnds) {
  EXPECT_EQ(ticket_.printText("a\r\n\nb", 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"\"@24", "\"b\"@24"}));
}

TEST_F(PrinterText, ALineEndAtTheEndBeginsNoFurtherLine) {
  EXPECT_EQ(ticket_.printText("a\n", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("b\r\n", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("c\n\n", 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"b\"@24", "\"c\"@24", "\"\"@24"}));
}

TEST_F(PrinterText, AnEmptyTextIsAnEmptyLine) {
  EXPECT_EQ(ticket_.printText("", 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("\n", 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"\"@24", "\"\"@24"}));
}

TEST_F(PrinterText, HasAFontWithinBounds) {
  for (const int size : {-2147483647 - 1, -1, 0, 7, 256, 2147483647}) {
    EXPECT_EQ(ticket_.printText("x", size), ResultCode::InvalidParam) << size;
  }
  EXPECT_EQ(ticket_.printText("x", 24, -1), ResultCode::InvalidParam);
  EXPECT_EQ(jobs(), 0U);
  EXPECT_EQ(ticket_.printText("x", 8), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("x", 255), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"x\"@8", "\"x\"@255"}));
}

TEST_F(PrinterText, StandsBetweenTheMargins) {
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 80), ResultCode::Ok);
  EXPECT_EQ(ticket_.set(Setting::RightMargin, 16), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText(cells(41), 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText(cells(3), 24, 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1),
            (Items{"80+\"" + cells(40) + "\"@24", "80+\"x\"@24", "80+\"xx\"@24", "80+\"x\"@24"}));
}

TEST_F(PrinterText, MarginsMoveWithinAJob) {
  ticket_.printText("a", 24);
  ticket_.set(Setting::LeftMargin, 8);
  ticket_.printText("b", 24);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "8+\"b\"@24"}));
}

TEST_F(PrinterText, FollowsThePaperWidthFromTheNextJobOn) {
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 384), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText(cells(49), 24), ResultCode::Ok);
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText(cells(33), 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"a\"@24", "\"" + cells(48) + "\"@24", "\"x\"@24"}));
  EXPECT_EQ(paperOf(2), (Items{"\"" + cells(32) + "\"@24", "\"x\"@24"}));
  EXPECT_EQ(ticket_.job()->paper().format().width, 640);
  EXPECT_EQ(ticket_.job()->paper().format().printable, 384);
}

TEST_F(PrinterText, PicturesStandAtTheLeftMarginAndAreCutAtTheRightOne) {
  EXPECT_EQ(ticket_.printImage(Bitmap(384, 120)), ResultCode::Ok);
  EXPECT_EQ(ticket_.printImage(Bitmap(900, 2)), ResultCode::Ok);
  ticket_.set(Setting::LeftMargin, 100);
  ticket_.set(Setting::RightMargin, 76);
  EXPECT_EQ(ticket_.printImage(Bitmap(900, 3)), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"[image 384x120]", "[image 576x2]", "100+[image 400x3]"}));
}

TEST_F(PrinterText, PicturesKeepTheirDots) {
  Bitmap bitmap(2, 2);
  bitmap.set(1, 0, true);
  ASSERT_EQ(ticket_.printImage(bitmap), ResultCode::Ok);
  const auto& item = std::get<ImageItem>(ticket_.job()->paper().items().at(0));
  EXPECT_TRUE(item.bitmap == bitmap);
}

}  // namespace
}  // namespace tolvex::sim
