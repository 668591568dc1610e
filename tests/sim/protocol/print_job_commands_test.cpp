// The commands that put something on paper or move it, with whole replies.
#include "printer_commands_fixture.h"

namespace tolvex::sim {
namespace {

class PrintJobCommands : public PrinterCommandsFixture {};

TEST_F(PrintJobCommands, NeedTheirMembers) {
  expectAllNeeded("printtext", {{"printerType", "1"}, {"fontsize", "28"}, {"text", "x"}});
  expectAllNeeded("print_text_width",
                  {{"printerType", "1"}, {"fontsize", "28"}, {"width", "464"}, {"text", "x"}});
  expectAllNeeded("printbmpfile", {{"printerType", "1"}, {"angle", "0"}, {"filename", "x"}});
  expectAllNeeded("beginPrint", {{"printerType", "1"}});
  expectAllNeeded("printblanks", {{"distance", "13"}, {"printerType", "1"}});
  expectAllNeeded("cutPaper", {{"printerType", "1"}, {"Percent", "70"}});
  expectAllNeeded("calibrateLabelGap", {{"printerType", "0"}});
  expectAllNeeded("calibrateOutOfPaper", {{"printerType", "1"}});
  expectAllNeeded("printerStatus", {{"printerType", "1"}});
  EXPECT_EQ(devices_.printers.jobs().newest(), nullptr);
}

TEST_F(PrintJobCommands, NeedAPrinter) {
  const auto sendAll = [this](std::string_view type) {
    return Items{send("printtext", {{"printerType", type}, {"fontsize", "28"}, {"text", "x"}}),
                 send("print_text_width",
                      {{"printerType", type}, {"fontsize", "28"}, {"width", "464"}, {"text", "x"}}),
                 send("printbmpfile", {{"printerType", type}, {"angle", "0"}, {"filename", "x"}}),
                 send("beginPrint", {{"printerType", type}}),
                 send("printblanks", {{"distance", "13"}, {"printerType", type}}),
                 send("cutPaper", {{"printerType", type}, {"Percent", "70"}}),
                 send("calibrateLabelGap", {{"printerType", type}}),
                 send("calibrateOutOfPaper", {{"printerType", type}}),
                 send("printerStatus", {{"printerType", type}})};
  };
  for (const char* type : kNoNumbers) EXPECT_EQ(sendAll(type), Items(9, "2")) << type;
  for (const char* type : {"3", "-1", "99", "101", "2147483647"}) {
    EXPECT_EQ(sendAll(type), Items(9, "2008")) << type;
  }
  devices_.printers.findType(2)->setFault(PrinterFault::Unplugged, true);
  EXPECT_EQ(sendAll("2"), Items(9, "2008"));
}

TEST_F(PrintJobCommands, AnswerTheFaultOfTheirPrinter) {
  for (const PrinterFaultRow& row : printerFaults()) {
    Printer& printer = *devices_.printers.findType(0);
    printer.setFault(row.fault, true);
    const std::string code = toText(row.code);
    EXPECT_EQ(send("printtext", {{"printerType", "0"}, {"fontsize", "28"}, {"text", "x"}}), code);
    EXPECT_EQ(send("print_text_width",
                   {{"printerType", "0"}, {"fontsize", "28"}, {"width", "0"}, {"text", "x"}}),
              code);
    EXPECT_EQ(send("printbmpfile", {{"printerType", "0"}, {"angle", "0"}, {"filename", "x"}}),
              code);
    EXPECT_EQ(send("beginPrint", {{"printerType", "0"}}), code);
    EXPECT_EQ(send("printblanks", {{"distance", "13"}, {"printerType", "0"}}), code);
    EXPECT_EQ(send("cutPaper", {{"printerType", "0"}, {"Percent", "70"}}), code);
    EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "0"}}), code);
    EXPECT_EQ(send("calibrateOutOfPaper", {{"printerType", "0"}}), code);
    EXPECT_EQ(send("printerStatus", {{"printerType", "0"}}), code);
    printer.setFault(row.fault, false);
  }
  EXPECT_EQ(send("printerStatus", {{"printerType", "0"}}), "0");
  EXPECT_EQ(devices_.printers.jobs().newest(), nullptr);
}

TEST_F(PrintJobCommands, PrintAReceipt) {
  EXPECT_EQ(send("printtext", {{"printerType", "1"}, {"fontsize", "28"}, {"text", "Käse 0.482"}}),
            "0");
  EXPECT_EQ(
      send("print_text_width",
           {{"printerType", "1"}, {"fontsize", "24"}, {"width", "96"}, {"text", "Total 3.98"}}),
      "0");
  EXPECT_EQ(send("beginPrint", {{"printerType", "1"}}), "0");
  EXPECT_EQ(send("printblanks", {{"distance", "13"}, {"printerType", "1"}}), "0");
  EXPECT_EQ(send("cutPaper", {{"printerType", "1"}, {"Percent", "70"}}), "0");
  const auto job = devices_.printers.jobs().newest("Ticket");
  ASSERT_NE(job, nullptr);
  EXPECT_TRUE(job->isFinished());
  EXPECT_EQ(itemsOf(job->paper()),
            (Items{"\"Käse 0.482\"@28", "\"Total\"@24", "\"3.98\"@24", "feed 104", "cut 70"}));
}

TEST_F(PrintJobCommands, GoToThePrinterOfTheType) {
  for (const char* type : {"0", "1", "2", "100"}) {
    EXPECT_EQ(send("printtext", {{"printerType", type}, {"fontsize", "28"}, {"text", type}}), "0");
  }
  EXPECT_EQ(paperOf("Label"), (Items{"\"0\"@28"}));
  EXPECT_EQ(paperOf("Ticket"), (Items{"\"1\"@28", "\"100\"@28"}));
  EXPECT_EQ(paperOf("Third"), (Items{"\"2\"@28"}));
}

TEST_F(PrintJobCommands, CheckTheirValues) {
  std::vector<std::string> wrong(std::begin(kNoNumbers), std::end(kNoNumbers));
  wrong.insert(wrong.end(), {"-1", "2147483647", "-2147483648"});
  for (const std::string& value : wrong) {
    EXPECT_EQ(send("printtext", {{"printerType", "1"}, {"fontsize", value}, {"text", "x"}}), "2")
        << value;
    EXPECT_EQ(send("printblanks", {{"distance", value}, {"printerType", "1"}}), "2") << value;
    EXPECT_EQ(send("cutPaper", {{"printerType", "1"}, {"Percent", value}}), "2") << value;
    if (value == "2147483647") continue;  // any width is one, cut to the paper's
    EXPECT_EQ(send("print_text_width",
                   {{"printerType", "1"}, {"fontsize", "28"}, {"width", value}, {"text", "x"}}),
              "2")
        << value;
  }
  for (const char* size : {"0", "7", "256"}) {
    EXPECT_EQ(send("printtext", {{"printerType", "1"}, {"fontsize", size}, {"text", "x"}}), "2");
  }
  EXPECT_EQ(send("printblanks", {{"distance", "1001"}, {"printerType", "1"}}), "2");
  EXPECT_EQ(send("cutPaper", {{"printerType", "1"}, {"Percent", "101"}}), "2");
  EXPECT_EQ(devices_.printers.jobs().newest(), nullptr);
}

TEST_F(PrintJobCommands, RefuseTooMuch) {
  const std::string text(std::size_t{1} << 20U, 'x');
  EXPECT_EQ(send("printtext", {{"printerType", "1"}, {"fontsize", "28"}, {"text", text}}), "6");
  EXPECT_EQ(devices_.printers.jobs().newest(), nullptr);
}

TEST_F(PrintJobCommands, MayReachTheEndOfThePaper) {
  devices_.printers.findType(1)->setPaperLeft(100);
  EXPECT_EQ(
      send("printtext", {{"printerType", "1"}, {"fontsize", "24"}, {"text", "a\\nb\\nc\\nd"}}),
      "2006");
  EXPECT_EQ(paperOf("Ticket"),
            (Items{"\"a\"@24", "\"b\"@24", "\"c\"@24", "feed 10", "end of roll"}));
  EXPECT_EQ(send("printerStatus", {{"printerType", "1"}}), "2006");
  EXPECT_EQ(send("beginPrint", {{"printerType", "1"}}), "2006");
  devices_.printers.findType(1)->loadPaper(std::nullopt);
  EXPECT_EQ(send("beginPrint", {{"printerType", "1"}}), "0");
}

TEST_F(PrintJobCommands, CalibrateTheKindOfGapThatIsSet) {
  Printer& label = *devices_.printers.findType(0);
  label.setStock({StockKind::Mark, 240, 16});
  EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "0"}}), "2003");
  EXPECT_EQ(send("setGapType", {{"printerType", "0"}, {"gapType", "2"}}), "0");
  EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "0"}}), "0");
  EXPECT_TRUE(label.isInRegister());
}

TEST_F(PrintJobCommands, OnlyTheLabelPrinterHasALabelGap) {
  EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "0"}}), "0");
  EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "100"}}), "2003");
  EXPECT_EQ(send("calibrateLabelGap", {{"printerType", "2"}}), "2003");
  for (const char* type : {"0", "1", "2"}) {
    EXPECT_EQ(send("calibrateOutOfPaper", {{"printerType", type}}), "0");
  }
  EXPECT_TRUE(devices_.printers.findType(0)->knowsLabelGap());
  EXPECT_TRUE(devices_.printers.findType(2)->knowsPaperEnd());
}

class PrintImage : public PrintJobCommands {
 protected:
  PrintImage() { pictures_.emplace("Käse 苹果.png", Bitmap(3, 2)); }

  std::string print(std::string_view angle, std::string_view file = "Käse 苹果.png") {
    return send("printbmpfile", {{"printerType", "1"}, {"angle", angle}, {"filename", file}});
  }
};

TEST_F(PrintImage, PrintsThePictureOfTheName) {
  EXPECT_EQ(print("0"), "0");
  EXPECT_EQ(paperOf("Ticket"), (Items{"[image 3x2]"}));
}

TEST_F(PrintImage, TurnsIt) {
  for (const char* angle : {"90", "1", "-90", "180", "360", "45", "2147483647", "-2147483648"}) {
    EXPECT_EQ(print(angle), "0") << angle;
  }
  EXPECT_EQ(paperOf("Ticket"), (Items{"[image 2x3]", "[image 2x3]", "[image 2x3]", "[image 3x2]",
                                      "[image 3x2]", "[image 3x2]", "[image 3x2]", "[image 3x2]"}));
}

TEST_F(PrintImage, NeedsANumberForTheAngle) {
  for (const char* angle : kNoNumbers) EXPECT_EQ(print(angle), "2") << angle;
  EXPECT_EQ(paperOf("Ticket"), Items{});
}

TEST_F(PrintImage, NeedsAPicture) {
  for (const char* file : {"", ".", "no-such-file.bmp", "\\u0000"}) {
    EXPECT_EQ(print("0", file), "2") << file;
  }
  EXPECT_EQ(paperOf("Ticket"), Items{});
}

TEST_F(PrintImage, FindsNoPictureWithoutALoader) {
  Service service(devices_);
  EXPECT_EQ(
      service
          .answer(Half::Printing,
                  request("printbmpfile",
                          {{"printerType", "1"}, {"angle", "0"}, {"filename", "Käse 苹果.png"}}),
                  now_)
          .json(),
      R"({"result":"2"})");
}

}  // namespace
}  // namespace tolvex::sim
