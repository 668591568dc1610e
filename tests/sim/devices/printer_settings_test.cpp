// The settings of a printer and their bounds.
#include "devices/printer_settings.h"

#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

class PrinterSettingsTest : public PrinterFixture {};

TEST_F(PrinterSettingsTest, TheTableIsInTheOrderOfTheNumbers) {
  for (std::size_t i = 0; i < kSettings; ++i) {
    EXPECT_EQ(static_cast<std::size_t>(printerSettings()[i].setting), i)
        << printerSettings()[i].name;
  }
}

TEST_F(PrinterSettingsTest, BeginWithTheirInitialValues) {
  const PrinterSettings settings;
  for (const SettingRow& row : printerSettings()) {
    EXPECT_EQ(settings[row.setting], row.initial) << row.name;
  }
  EXPECT_EQ(ticket_.settings()[Setting::PaperWidth], 640);
  EXPECT_EQ(ticket_.settings()[Setting::GapType], 0);
  EXPECT_EQ(ticket_.settings()[Setting::TextWrapMode], 1);
  EXPECT_EQ(label_.settings()[Setting::PaperWidth], 480);
  EXPECT_EQ(label_.settings()[Setting::GapType], 1);
}

TEST_F(PrinterSettingsTest, TakeTheirBoundsAndNothingBeyond) {
  for (const SettingRow& row : printerSettings()) {
    PrinterSettings settings;
    EXPECT_TRUE(settings.set(row.setting, row.largest)) << row.name;
    EXPECT_EQ(settings[row.setting], row.largest) << row.name;
    EXPECT_TRUE(settings.set(row.setting, row.smallest)) << row.name;
    for (const int value : {row.smallest - 1, row.largest + 1, -2147483647 - 1, 2147483647}) {
      EXPECT_FALSE(settings.set(row.setting, value)) << row.name << " " << value;
    }
    EXPECT_EQ(settings[row.setting], row.smallest) << row.name;
  }
}

TEST_F(PrinterSettingsTest, AreEachPrintersOwn) {
  EXPECT_EQ(ticket_.set(Setting::Contrast, 70), ResultCode::Ok);
  EXPECT_EQ(ticket_.settings()[Setting::Contrast], 70);
  EXPECT_EQ(third_.settings()[Setting::Contrast], 50);
  EXPECT_EQ(ticket_.set(Setting::Contrast, 101), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.settings()[Setting::Contrast], 70);
}

TEST_F(PrinterSettingsTest, CanBeChangedInSpiteOfAFault) {
  ticket_.setFault(PrinterFault::OutOfPaper, true);
  EXPECT_EQ(ticket_.set(Setting::PrintSpeed, 5), ResultCode::Ok);
  EXPECT_EQ(ticket_.settings()[Setting::PrintSpeed], 5);
}

TEST_F(PrinterSettingsTest, APaperIsNoWiderThanThePrinterTakes) {
  EXPECT_EQ(label_.set(Setting::PaperWidth, 481), ResultCode::InvalidParam);
  EXPECT_EQ(label_.printable(), 448);
  EXPECT_EQ(label_.set(Setting::PaperWidth, 480), ResultCode::Ok);
  EXPECT_EQ(label_.printable(), 448);
  EXPECT_EQ(label_.set(Setting::PaperWidth, 447), ResultCode::Ok);
  EXPECT_EQ(label_.printable(), 447);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 127), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 128), ResultCode::Ok);
  EXPECT_EQ(ticket_.printable(), 128);
}

TEST_F(PrinterSettingsTest, MarginsLeaveRoomBetweenThem) {
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 513), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.settings()[Setting::LeftMargin], 0);
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 512), ResultCode::Ok);
  EXPECT_EQ(ticket_.set(Setting::RightMargin, 1), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 575), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 576), ResultCode::Ok);
}

TEST_F(PrinterSettingsTest, MarginsLeaveRoomOnThePaperThatIsBeingPrinted) {
  ticket_.set(Setting::PaperWidth, 128);
  ticket_.printText("a", 24);
  EXPECT_EQ(ticket_.set(Setting::PaperWidth, 576), ResultCode::Ok);
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 65), ResultCode::InvalidParam);
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 64), ResultCode::Ok);
  ticket_.finishJob();
  EXPECT_EQ(ticket_.set(Setting::LeftMargin, 65), ResultCode::Ok);
}

}  // namespace
}  // namespace tolvex::sim
