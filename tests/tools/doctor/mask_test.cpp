#include "bundle/mask.h"

#include <gtest/gtest.h>

namespace tolvex::ctl {
namespace {

const std::string kTrace = "2024-03-05 14:07:09 Ms:042 [T] L:528 M:DLL ";
const std::string kTraffic = "2024-03-05 14:07:09 Ms:042 [D] L:122 M:DLL ";

std::string trace(const std::string& message) {
  return maskLogLine(kTrace + message).substr(kTrace.size());
}

TEST(MaskText, KeepsLengthAndLayout) {
  EXPECT_EQ(maskText("Milk 1,5%   2.49 EUR*"), "xxxx 9,9%   9.99 xxx*");
  EXPECT_EQ(maskText("K\xC3\xA4se \xE2\x82\xAC"), "xxxxx xxx");
}

TEST(MaskText, MasksBothBytesOfACharacterOfTwo) {
  EXPECT_EQ(maskText("\xB0\x5B\x81\x40 \xC4\xE3"), "xxxx xx");
}

TEST(MaskJson, MasksTextsWhateverTheyHold) {
  EXPECT_EQ(maskJson(R"({"cmd":"printtext","printerType":"1","fontsize":"24","text":"Milk 2.49"})"),
            R"({"cmd":"printtext","printerType":"1","fontsize":"24","text":"xxxx 9.99"})");
  EXPECT_EQ(maskJson(R"({"cmd":"print_text_width","width":"640","text":"42"})"),
            R"({"cmd":"print_text_width","width":"640","text":"99"})");
}

TEST(MaskJson, KeepsEscapesValid) {
  EXPECT_EQ(maskJson(R"({"text":"say \"Milk\"\nK\u00e4se \\ a"})"),
            R"({"text":"xxx \"xxxx\"\nx\u0078xx \\ x"})");
  EXPECT_EQ(maskJson(R"({"cmd":"x","paramList":"{\"text\":\"Milk\",\"n\":\"12\"}"})"),
            R"({"cmd":"x","paramList":"{\"xxxx\":\"xxxx\",\"x\":\"99\"}"})");
}

TEST(MaskJson, KeepsWeightsCodesAndNames) {
  const std::string reply =
      R"({"result":"0","net":"0.482","tare":"0.000","zero":"0","weightUnit":"kg","PrinterList":"Ticket,Label"})";
  EXPECT_EQ(maskJson(reply), reply);
  const std::string file =
      R"({"cmd":"printbmpfile","angle":"0","filename":"c:/VARN/Log/prt_0.bmp"})";
  EXPECT_EQ(maskJson(file), file);
}

TEST(MaskJson, MasksWhatIsNotKnown) {
  EXPECT_EQ(maskJson(R"({"result":"0","note":"Milk","number":"4006381333931","n":42,"b":true})"),
            R"({"result":"0","note":"xxxx","number":"9999999999999","n":42,"b":true})");
  EXPECT_EQ(maskJson("Milk, 2 x"), "xxxx, 2 x");
  EXPECT_EQ(maskJson(R"({"cmd":"show Milk"})"), R"({"cmd":"xxxx xxxx"})");
  EXPECT_EQ(maskJson(R"({"text":["Milk",{"text":"Bread"}],"a":"b"})"),
            R"({"text":["xxxx",{"text":"xxxxx"}],"a":"x"})");
}

TEST(MaskJson, MasksAStringThatIsCutOff) {
  EXPECT_EQ(maskJson(R"({"cmd":"printtext","text":"Mil)"), R"({"cmd":"printtext","text":"xxx)");
  EXPECT_EQ(maskJson(R"({"cmd":"printtext","tex)"), R"({"cmd":"printtext","xxx)");
  EXPECT_EQ(maskJson(R"({"text":"a\)"), R"({"text":"x\)");
  EXPECT_EQ(maskJson(R"({"text":"a\u00)"), R"({"text":"x\u00)");
}

TEST(MaskLogLine, MasksTextsOfLines) {
  EXPECT_EQ(trace("[shop][PrintText] font:24 [Milk 2.49]"),
            "[shop][PrintText] font:24 [xxxx 9.99]");
  EXPECT_EQ(trace("printText Input params is too long(Milk)!"),
            "printText Input params is too long(xxxx)!");
  EXPECT_EQ(
      trace("[sendRawCmdToPrt] Req: {\"cmd\":\"a\",\"printerName\":\"T\",\"paramList\":\"Milk\"}"),
      "[sendRawCmdToPrt] Req: {\"cmd\":\"a\",\"printerName\":\"T\",\"paramList\":\"xxxx\"}");
  EXPECT_EQ(
      maskLogLine(
          kTraffic +
          "[shop]==>[Zelkad][SndCmdToPrinter] Snd: {\"cmd\":\"printtext\",\"text\":\"Milk\"}."),
      kTraffic +
          "[shop]==>[Zelkad][SndCmdToPrinter] Snd: {\"cmd\":\"printtext\",\"text\":\"xxxx\"}.");
}

TEST(MaskLogLine, MasksLinesWithoutAHeader) {
  EXPECT_EQ(maskLogLine("[PrintTextByPaperWidth] Milk 2"), "[PrintTextByPaperWidth] xxxx 9");
  EXPECT_EQ(maskLogLine("Bread  1.10]"), "xxxxx  9.99]");
  EXPECT_EQ(maskLogLine(" ===== Clear All logs ====="), " ===== Clear All logs =====");
  EXPECT_EQ(maskLogLine(" ===== Clear All logs ===== Milk"), " ===== xxxxx xxx xxxx ===== xxxx");
}

TEST(MaskLogLine, MasksALineThatTheLibraryDoesNotWrite) {
  EXPECT_EQ(trace("Milk 2.49"), "xxxx 9.99");
  EXPECT_EQ(trace("Milk [BeginPrint] 0_Ticket OK"), "xxxx [xxxxxxxxxx] 9_xxxxxx xx");
  EXPECT_EQ(maskLogLine("2024-03-05 14:07:09 Ms:042 [T] L:528 M:Milk Bread"),
            "9999-99-99 99:99:99 xx:999 [x] x:999 x:xxxx xxxxx");
}

TEST(MaskLogLine, TakesTheFirstWordsOfTheLibraryInALine) {
  EXPECT_EQ(trace("[shop][PrintText] font:24 [<==[Zelkad][SndCmdToLC] Rcv: 4711]"),
            "[shop][PrintText] font:24 [<==[xxxxxx][xxxxxxxxxx] xxx: 9999]");
}

TEST(MaskLogLine, KeepsWhatTellsWhatWentWrong) {
  for (const char* message :
       {"[shop][BeginPrint] 0_Ticket Err when printing, ret:2006", "[cutPaper] Err: 2005",
        "[DLL] setting Server IP from zelkad_ip_config.ini file, IP: 10.1.2.3",
        "======= tolvex_dll V3.0.3.2  ================", "[shop][send_pre_tare] Enter 0.500",
        "[shop][GetPrinterList] OK, Ticket,Label", "[SndCmdToLC] Rcv failed:-1!",
        "[shop][cacheImage] Copy a.bmp(size:12) to c:/VARN/Log/prt_0.bmp",
        "[shop][read_baseinfo] End, 240,{\"result\":\"0\",\"maxRange1\":\"15\"}"}) {
    EXPECT_EQ(trace(message), message);
  }
  EXPECT_EQ(trace("[shop][send_pre_tare] Enter Milk"), "[shop][send_pre_tare] Enter xxxx");
}

}  // namespace
}  // namespace tolvex::ctl
