// Printing, paper, drawer and settings, as they reach the simulator.
#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

const char kCut[] = "- - - - - - - - - - - - - - - - - - - - - - - -";

class Printing : public DeviceTest {};

TEST_F(Printing, PrintsStandardInputAsOneJobWithACut) {
  EXPECT_EQ(tolvexctl({"print", "-"}, "Hello\nKäse 1,50 €\n").out, "Printed, job 8_CUT.\n");
  EXPECT_EQ(simulator.paper("Ticket"), (Words{"Hello", "Käse 1,50 €", kCut}));
}

TEST_F(Printing, NamesTheCharacterThatTheCodePageLacks) {
  const ordered_json error =
      json({"print", "-"}, 1, "gut\nПривет", {{"LC_ALL", "de_DE.ISO-8859-1"}})["error"];
#ifdef _WIN32
  const std::string codePage = "code page 1252";
#else
  const std::string codePage = "ISO-8859-1";
#endif
  EXPECT_EQ(error["message"],
            "the system's ANSI code page (" + codePage + ") has no \"П\" (line 2)");
}

TEST_F(Printing, ConvertsToTheCodePageOfTheSystem) {
  EXPECT_EQ(json({"print", "-"}, 0, "Käse", {{"LC_ALL", "de_DE.ISO-8859-1"}})["printed"], true);
  EXPECT_EQ(simulator.paper("Ticket"), (Words{"Käse", kCut}));
}

TEST_F(Printing, PrintsAFileWithAJobTypeOfAnyName) {
  writeBytes(home.file("label.txt"),
             "\xEF\xBB\xBF"
             "Apples\r\n");
  for (const char* type : {"dot_lbl", "2_DOT_LBL", "2"}) {
    const ordered_json expected = {{"ok", true}, {"printed", true}, {"job", "2_DOT_LBL"}};
    EXPECT_EQ(json({"print", home.file("label.txt"), "--job", type}, 0), expected) << type;
  }
}

TEST_F(Printing, PrintsPastTheJob) {
  const ordered_json expected = {{"ok", true}, {"printed", true}, {"printer", 1}, {"cut", true}};
  EXPECT_EQ(json({"print", "-", "--direct", "--printer", "1", "--width", "58"}, 0, "สวัสดี\n\nend"),
            expected);
  EXPECT_EQ(simulator.paper("Ticket"), (Words{"สวัสดี", "", "end", kCut}));
}

TEST_F(Printing, SaysWhenThePaperIsOutAndDoesNotTryAgain) {
  simulator.type("fault out-of-paper on Ticket");
  const ordered_json error = json({"print", "-"}, 4, "Hello")["error"];
  EXPECT_EQ(error["message"], "cannot print the text");
  EXPECT_EQ(error["code"], 2006);
  EXPECT_EQ(error["meaning"], "The printer has no paper left.");
}

TEST_F(Printing, RefusesTextThatCanNotBePrintedBeforeAnythingIs) {
  const auto message = [&](const std::string& input, const Words& more = {}) -> std::string {
    Words words = {"print", "-"};
    words.insert(words.end(), more.begin(), more.end());
    return json(words, more.empty() ? 1 : 4, input)["error"]["message"];
  };
  EXPECT_EQ(message(""), "there is nothing to print");
  EXPECT_EQ(message("good\nbad \xE4"), "line 2 of the text is not UTF-8");
  EXPECT_EQ(message(std::string("a\0b", 3)), "line 1 of the text has a NUL");
  EXPECT_EQ(message("good\n" + std::string(2049, 'x'), {"--font", "24"}), "cannot print line 2");
  EXPECT_EQ(json({"print", home.file("none.txt")}, 1)["error"]["message"],
            "cannot read " + home.file("none.txt"));
}

TEST_F(Printing, PrintsAnImage) {
  EXPECT_EQ(json({"image", LOGO, "--angle", "90", "--align", "left"}, 0)["printed"], true);
  EXPECT_EQ(json({"image", LOGO, "--direct", "--printer", "0", "--no-cut"}, 0)["cut"], false);
  EXPECT_EQ(json({"image", home.file("none.bmp")}, 1)["error"]["message"],
            "there is no image " + home.file("none.bmp"));
}

TEST_F(Printing, FeedsCutsAndCalibrates) {
  EXPECT_EQ(tolvexctl({"feed"}).out, "Fed.\n");
  EXPECT_EQ(tolvexctl({"feed", "--distance", "40"}).out, "Fed.\n");
  EXPECT_EQ(tolvexctl({"feed", "--printer", "0"}).out, "Fed.\n");
  EXPECT_EQ(tolvexctl({"cut"}).out, "Cut.\n");
  EXPECT_EQ(tolvexctl({"cut", "--printer", "1"}).out, "Cut.\n");
  EXPECT_EQ(tolvexctl({"calibrate"}).out,
            "Gap between the labels calibrated on the label printer.\n");
  EXPECT_EQ(tolvexctl({"calibrate", "paper"}).out,
            "Sensor for the paper's end calibrated on the ticket printer.\n");
}

TEST_F(Printing, OpensTheDrawer) {
  EXPECT_EQ(tolvexctl({"drawer"}).out, "The drawer is open.\n");
  EXPECT_EQ(simulator.type("drawer"), "ok drawer open, openings 1");
}

TEST_F(Printing, ListsThePrinters) {
  EXPECT_EQ(tolvexctl({"printers"}).out, "Label\nTicket\nThird\n");
  const ordered_json list = json({"printers", "--versions"}, 0)["printers"];
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0]["name"], "Label");
  EXPECT_NE(list[0]["firmware"], "");
}

TEST_F(Printing, ShowsTheStateOfEveryPrinterWithItsRemedy) {
  EXPECT_EQ(
      tolvexctl({"status"}).out,
      "0 the label printer: ready\n1 the ticket printer: ready\n2 the third printer: ready\n");
  simulator.type("fault out-of-paper on Ticket");
  const Finished finished = tolvexctl({"status"});
  EXPECT_EQ(finished.exitCode, 4);
  EXPECT_NE(finished.out.find("1 the ticket printer: 2006 OUT_OF_PAPER (Out of Paper)\n"
                              "  The printer has no paper left.\n  fix: "),
            std::string::npos)
      << finished.out;
  EXPECT_EQ(json({"status", "--printer", "0"}, 0)["printers"][0]["ready"], true);
  EXPECT_EQ(json({"status", "--printer", "77"}, 4)["printers"][0]["name"], "PRINTER_NOT_FOUND");
}

TEST_F(Printing, SetsEverySetting) {
  const std::vector<Words> settings = {{"width", "58", "--printer", "1"},
                                       {"gap-type", "1", "--printer", "0"},
                                       {"direction", "1", "--printer", "0"},
                                       {"wrap", "1"},
                                       {"left-margin", "8", "--printer", "Label"},
                                       {"right-margin", "8", "--printer", "Label"},
                                       {"offset", "4", "--printer", "Label"},
                                       {"contrast", "60", "--printer", "Label"},
                                       {"speed", "100", "--printer", "Label"},
                                       {"autoprint", "on", "--printer", "Label"},
                                       {"rollback", "off", "--printer", "Label"},
                                       {"takeup-sensor", "on", "--printer", "Label"},
                                       {"overload-alarm", "on"}};
  for (const Words& setting : settings) {
    Words words = {"settings"};
    words.insert(words.end(), setting.begin(), setting.end());
    EXPECT_EQ(json(words, 0)["setting"], setting[0]);
  }
  EXPECT_EQ(tolvexctl({"settings", "contrast", "60", "--printer", "Label"}).out,
            "contrast of Label is set to 60.\n");
  EXPECT_EQ(json({"settings", "contrast", "60", "--printer", "Nobody"}, 4)["error"]["message"],
            "cannot set contrast of Nobody");
}

TEST_F(Printing, ShowsAndSetsTheLogLevelOfTheService) {
  EXPECT_EQ(json({"settings", "log-level", "print", "3"}, 0)["level"], "3");
  EXPECT_EQ(tolvexctl({"settings", "log-level", "print"}).out, "print 3\n");
}

TEST_F(Printing, TakesALogLevelThatCanNotBeReadForNoRefusal) {
  simulator.type("wire result code=0 command=getloglevel");  // and nothing else
  const ordered_json value = json({"settings", "log-level", "print"}, 3);
  EXPECT_EQ(value["error"]["message"],
            "cannot read the log level of print: the library can not read the service's reply");
}

TEST_F(Printing, SendsRawCommandsAndShowsTheReply) {
  const ordered_json value = json({"raw", "lc", "checkConnection"}, 0);
  EXPECT_EQ(value["reply"], (ordered_json{{"result", "0"}}));
  const ordered_json unknown = json({"raw", "prt", "brew", "--timeout", "20s"}, 4);
  EXPECT_EQ(unknown["name"], "UNSUPPORT_PRINT_CMD");
  EXPECT_EQ(unknown["reply_text"], R"({"result":"2002"})");
}

}  // namespace
}  // namespace tolvex::test
