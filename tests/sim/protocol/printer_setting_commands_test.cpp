// The commands that set the printers up, with whole replies.
#include "printer_commands_fixture.h"

namespace tolvex::sim {
namespace {

struct Row {
  const char* command;
  const char* printer;
  const char* value;
  Setting setting;
  const char* example;
};

constexpr Row kRows[] = {
    {"setpaperwidth", "printerType", "width", Setting::PaperWidth, "464"},
    {"setGapType", "printerType", "gapType", Setting::GapType, "2"},
    {"setdirection", "printerType", "direction", Setting::Direction, "1"},
    {"setTextWrapMode", "printerType", "WrapMode", Setting::TextWrapMode, "0"},
    {"setLeftMargin", "printerName", "leftMargin", Setting::LeftMargin, "8"},
    {"setRightMargin", "printerName", "rightMargin", Setting::RightMargin, "16"},
    {"setPrtAutoPrint", "printerName", "enable", Setting::AutoPrint, "1"},
    {"setPaperOffset", "printerName", "offset", Setting::PaperOffset, "-5"},
    {"setcontrast", "printerName", "contrast", Setting::Contrast, "60"},
    {"setprintspeed", "printerName", "speed", Setting::PrintSpeed, "5"},
    {"setRollback", "printerName", "enable", Setting::Rollback, "1"},
    {"settakepapersensor", "printerName", "enable", Setting::TakePaperSensor, "1"},
};

class PrinterSettingCommands : public PrinterCommandsFixture {
 protected:
  static const char* third(const Row& row) {
    return std::string_view(row.printer) == "printerType" ? "2" : "Third";
  }

  int valueOf(const Row& row, int type = 2) {
    return devices_.printers.findType(type)->settings()[row.setting];
  }
};

TEST_F(PrinterSettingCommands, AreAllThere) { EXPECT_EQ(std::size(kRows), kSettings); }

TEST_F(PrinterSettingCommands, SetOnePrinter) {
  for (const Row& row : kRows) {
    const int before = valueOf(row, 1);
    EXPECT_EQ(send(row.command, {{row.value, row.example}, {row.printer, third(row)}}), "0")
        << row.command;
    EXPECT_EQ(std::to_string(valueOf(row)), row.example) << row.command;
    EXPECT_EQ(valueOf(row, 1), before) << row.command;
  }
}

TEST_F(PrinterSettingCommands, NeedTheirMembers) {
  for (const Row& row : kRows) {
    expectAllNeeded(row.command, {{row.printer, third(row)}, {row.value, row.example}});
  }
}

TEST_F(PrinterSettingCommands, NeedAPrinter) {
  devices_.printers.findType(0)->setFault(PrinterFault::Unplugged, true);
  for (const Row& row : kRows) {
    const bool byType = std::string_view(row.printer) == "printerType";
    const auto sendTo = [&](std::string_view printer) {
      return send(row.command, {{row.printer, printer}, {row.value, row.example}});
    };
    EXPECT_EQ(sendTo("Ticket "), byType ? "2" : "2008") << row.command;
    EXPECT_EQ(sendTo(""), byType ? "2" : "2008") << row.command;
    EXPECT_EQ(sendTo("3"), "2008") << row.command;
    EXPECT_EQ(sendTo(byType ? "0" : "Label"), "2008") << row.command;
    // The default printer has a type only; its name is that of the ticket printer.
    EXPECT_EQ(sendTo("100"), byType ? "0" : "2008") << row.command;
  }
}

TEST_F(PrinterSettingCommands, CheckTheirValues) {
  for (const Row& row : kRows) {
    const int before = valueOf(row);
    const SettingRow& bounds = printerSettings()[static_cast<std::size_t>(row.setting)];
    std::vector<std::string> wrong(std::begin(kNoNumbers), std::end(kNoNumbers));
    wrong.push_back(std::to_string(bounds.smallest - 1));
    wrong.push_back(std::to_string(bounds.largest + 1));
    for (const std::string& value : wrong) {
      EXPECT_EQ(send(row.command, {{row.printer, third(row)}, {row.value, value}}), "2")
          << row.command << " " << value;
    }
    EXPECT_EQ(valueOf(row), before) << row.command;
  }
}

TEST_F(PrinterSettingCommands, WorkInSpiteOfAFault) {
  devices_.printers.findType(2)->setFault(PrinterFault::OutOfPaper, true);
  for (const Row& row : kRows) {
    EXPECT_EQ(send(row.command, {{row.value, row.example}, {row.printer, third(row)}}), "0")
        << row.command;
  }
}

TEST_F(PrinterSettingCommands, HaveTheirEffectOnThePaper) {
  EXPECT_EQ(send("setpaperwidth", {{"width", "384"}, {"printerType", "1"}}), "0");
  EXPECT_EQ(send("setLeftMargin", {{"printerName", "Ticket"}, {"leftMargin", "120"}}), "0");
  EXPECT_EQ(send("setRightMargin", {{"printerName", "Ticket"}, {"rightMargin", "144"}}), "0");
  const auto print = [this] {
    return send("printtext", {{"printerType", "1"}, {"fontsize", "24"}, {"text", "0123456789AB"}});
  };
  EXPECT_EQ(print(), "0");
  EXPECT_EQ(send("setTextWrapMode", {{"printerType", "1"}, {"WrapMode", "0"}}), "0");
  EXPECT_EQ(print(), "0");
  EXPECT_EQ(paperOf("Ticket"),
            (Items{"120+\"0123456789\"@24", "120+\"AB\"@24", "120+\"0123456789\"@24"}));
}

TEST_F(PrinterSettingCommands, TheWidestPaperOfATillMeansTheWholeHead) {
  EXPECT_EQ(send("setpaperwidth", {{"width", "640"}, {"printerType", "100"}}), "0");
  EXPECT_EQ(devices_.printers.findType(1)->printable(), 576);
  EXPECT_EQ(send("setpaperwidth", {{"width", "640"}, {"printerType", "0"}}), "2");
}

}  // namespace
}  // namespace tolvex::sim
