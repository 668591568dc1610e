// Printer list, version and status, and the cash drawer.
#include "library/printing_test.h"

namespace tolvex::test {
namespace {

struct PrinterList : PrintingTest {
  static constexpr char kEnter[] = "[T] L:912 M:DLL [library_tests][GetPrinterList] Enter";
  static std::string ok(const std::string& list) {
    return "[T] L:919 M:DLL [library_tests][GetPrinterList] OK, " + list;
  }
  static std::string failed(int code) {
    return "[W] L:916 M:DLL [GetPrinterList] Err:" + std::to_string(code);
  }
  static std::string unreadable(const std::string& reply) {
    return "[W] L:688 M:DLL [library_tests][getPrinterList] json parse fail:" + reply;
  }
};

TEST_F(PrinterList, IsCopiedExactlyAndLoggedWithBothNames) {
  printer.alwaysAnswers(R"({"result":"0","PrinterList":"Bon;Etikett"})");
  for (int (*const get)(char*, unsigned) : {GetPrinterList, GetPrinterList_stdcall}) {
    CallerBuffer<16> buffer;
    std::fill_n(static_cast<char*>(buffer), 16, '\0');
    EXPECT_EQ(host.call(get, static_cast<char*>(buffer), 16U), 240);
    EXPECT_EQ(buffer.bytes(), padded("Bon;Etikett", 16));
    EXPECT_TRUE(buffer.guardHolds());
    EXPECT_EQ(newRequests(), Lines{R"({"cmd":"getPrinterList"})"});
    EXPECT_EQ(newLines(), (Lines{kEnter, ok("Bon;Etikett")}));
    EXPECT_EQ(lastError(), 0);
  }
}

TEST_F(PrinterList, ShowsOldBytesBehindTheTextInABufferThatWasNotZeroed) {
  printer.answers(R"({"result":"0","PrinterList":"Bon"})");
  CallerBuffer<8> buffer;
  EXPECT_EQ(host.call(GetPrinterList, buffer, 8U), 240);
  EXPECT_EQ(buffer.bytes(), "Bon#####");
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(newLines(), (Lines{kEnter, ok("Bon#####")}));
}

TEST_F(PrinterList, OfExactlyTheSizeFitsAndOneByteMoreIsFive) {
  printer.alwaysAnswers(R"({"result":"0","PrinterList":"12345678"})");
  CallerBuffer<8> exact;
  EXPECT_EQ(host.call(GetPrinterList, exact, 8U), 240);
  EXPECT_EQ(exact.bytes(), "12345678");
  EXPECT_TRUE(exact.guardHolds());
  EXPECT_EQ(newLines(), (Lines{kEnter, ok("12345678")}));
  CallerBuffer<8> small;
  EXPECT_EQ(host.call(GetPrinterList, small, 7U), 255);
  EXPECT_TRUE(small.isUntouched());
  EXPECT_EQ(newLines(), (Lines{kEnter, failed(5)}));
  EXPECT_EQ(lastError(), 5);
  EXPECT_EQ(host.call(GetPrinterList, small, 0U), 255);
  EXPECT_TRUE(small.isUntouched());
}

TEST_F(PrinterList, DoesNotDependOnTheResultOfTheReply) {
  for (const char* reply : {R"({"result":"2001","PrinterList":"Bon"})",
                            R"({"result":0,"PrinterList":"Bon"})", R"({"PrinterList":"Bon"})"}) {
    printer.answers(reply);
    CallerBuffer<4> buffer;
    EXPECT_EQ(host.call(GetPrinterList, buffer, 4U), 240) << reply;
    EXPECT_EQ(buffer.bytes(), "Bon#") << reply;
    EXPECT_EQ(lastError(), 0) << reply;
  }
}

TEST_F(PrinterList, ThatIsEmptyIsAListToo) {
  printer.answers(R"({"result":"0","PrinterList":""})");
  CallerBuffer<4> buffer("");
  EXPECT_EQ(host.call(GetPrinterList, buffer, 4U), 240);
  EXPECT_EQ(buffer.bytes(), std::string("\0###", 4));
  EXPECT_EQ(newLines(), (Lines{kEnter, ok("")}));
}

TEST_F(PrinterList, ThatIsMissingOrNoTextIsSevenAndShowsTheReply) {
  for (const char* reply :
       {R"({"result":"2001"})", R"({"result":"0"})", R"({"result":"0","PrinterList":["Bon"]})",
        R"({"result":"0","printerlist":"Bon"})", R"({"PrinterList":"Bon")", "nonsense"}) {
    printer.answers(reply);
    CallerBuffer<8> buffer;
    EXPECT_EQ(host.call(GetPrinterList, buffer, 8U), 255) << reply;
    EXPECT_TRUE(buffer.isUntouched()) << reply;
    EXPECT_EQ(newLines(), (Lines{kEnter, unreadable(reply), failed(7)}));
    EXPECT_EQ(lastError(), 7) << reply;
  }
}

TEST_F(PrinterList, IntoANullBufferIsTwoWithoutARequest) {
  EXPECT_EQ(host.call(GetPrinterList, nullptr, 8U), 255);
  EXPECT_EQ(newLines(), (Lines{kEnter, failed(2)}));
  EXPECT_EQ(lastError(), 2);
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(PrinterList, OfAServiceThatClosesOrIsGoneIsFour) {
  CallerBuffer<8> buffer;
  printer.closes();
  EXPECT_EQ(host.call(GetPrinterList, buffer, 8U), 255);
  EXPECT_EQ(newLines(),
            (Lines{kEnter, "[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: -1!", failed(4)}));
  reconnect();
  printer.goesAway();
  EXPECT_EQ(host.call(GetPrinterList, buffer, 8U), 255);
  const Lines lines = newLines();
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), kEnter);
  EXPECT_EQ(lines.back(), failed(4));
  EXPECT_EQ(lastError(), 4);
  EXPECT_TRUE(buffer.isUntouched());
}

struct PrinterVersion : PrintingTest {
  static constexpr char kEntry[] = "[T] L:928 M:DLL [library_tests][getPrinterVersion] Entry";
  static std::string failed(int code) {
    return "[W] L:932 M:DLL [getPrinterVersion] Err: " + std::to_string(code);
  }
  const std::string reply = R"({"result":"0","version":"4.2"})";  // 30 bytes
};

TEST_F(PrinterVersion, IsTheWholeReply) {
  printer.answers(reply);
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 64U, "Bon"), 240);
  EXPECT_EQ(buffer.bytes(), padded(reply, 64));
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(newRequests(), Lines{R"({"cmd":"getprinterversion","printerName":"Bon"})"});
  EXPECT_EQ(newLines(),
            (Lines{kEntry, "[T] L:935 M:DLL [library_tests][getPrinterVersion] OK, ver:" + reply}));
}

TEST_F(PrinterVersion, OfExactlyTheSizeArrivesWithoutATerminator) {
  printer.answers(reply);
  CallerBuffer<30> buffer;
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 30U, "Bon"), 240);
  EXPECT_EQ(buffer.bytes(), reply);
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(newLines().back(),
            "[T] L:935 M:DLL [library_tests][getPrinterVersion] OK, ver:" + reply);
}

TEST_F(PrinterVersion, OneByteShortIsFiveWithTheBeginningCopied) {
  printer.answers(reply);
  CallerBuffer<29> buffer;
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 29U, "Bon"), 255);
  EXPECT_EQ(buffer.bytes(), reply.substr(0, 29));
  EXPECT_TRUE(buffer.guardHolds());
  EXPECT_EQ(newLines(), (Lines{kEntry, failed(5)}));
  EXPECT_EQ(lastError(), 5);
}

TEST_F(PrinterVersion, IsCopiedWhateverTheCodeOfTheReply) {
  printer.answers(replyWith(2008));
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 64U, "Bon"), 255);
  EXPECT_EQ(buffer.bytes(), padded(replyWith(2008), 64));
  EXPECT_EQ(newLines(), (Lines{kEntry, failed(2008)}));
  EXPECT_EQ(lastError(), 2008);
}

TEST_F(PrinterVersion, IntoANullBufferIsFive) {
  printer.answers(reply);
  EXPECT_EQ(host.call(getPrinterVersion, nullptr, 64U, "Bon"), 255);
  EXPECT_EQ(newLines(), (Lines{kEntry, failed(5)}));
  EXPECT_EQ(lastError(), 5);
}

TEST_F(PrinterVersion, OfAPrinterWithoutAUsableNameIsTwoWithoutARequest) {
  const std::string tooLong(256, 'n');
  for (const char* const name : {static_cast<const char*>(nullptr), tooLong.c_str()}) {
    CallerBuffer<64> buffer;
    EXPECT_EQ(host.call(getPrinterVersion, buffer, 64U, name), 255);
    EXPECT_TRUE(buffer.isUntouched());
    EXPECT_EQ(newLines(), (Lines{kEntry, failed(2)}));
    EXPECT_EQ(lastError(), 2);
  }
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(PrinterVersion, LeavesTheBufferAloneWhenNoReplyComes) {
  printer.closes();
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 64U, "Bon"), 255);
  EXPECT_TRUE(buffer.isUntouched());
  EXPECT_EQ(lastError(), 4);
}

using PrinterStatus = PrintingTest;

TEST_F(PrinterStatus, IsTheServicesCodeForTheTypeAskedFor) {
  for (const int code : {0, 2005, 2006, 2007, 2010}) {
    printer.answers(replyWith(code));
    EXPECT_EQ(host.call(GetPrinterStatus, static_cast<unsigned>(code)), code);
    EXPECT_EQ(newRequests(),
              Lines{R"({"cmd":"printerStatus","printerType":")" + std::to_string(code) + "\"}"});
    EXPECT_EQ(lastError(), code);
  }
  EXPECT_EQ(newLines(), Lines{});
}

using PrinterInformation = PrintingTest;

TEST_F(PrinterInformation, LeavesTheQueuedJobAlone) {
  printer.alwaysAnswers(R"({"result":"0","PrinterList":"Bon"})");
  CallerBuffer<64> buffer;
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  EXPECT_EQ(host.call(GetPrinterList, buffer, 64U), 240);
  EXPECT_EQ(host.call(getPrinterVersion, buffer, 64U, "Bon"), 240);
  EXPECT_EQ(host.call(GetPrinterStatus, 1U), 0);
  EXPECT_EQ(host.call(OpenCashDrawerEx), 240);
  EXPECT_EQ(newRequests().size(), 4U);
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("Milch"), confirmation()}));
}

}  // namespace
}  // namespace tolvex::test
