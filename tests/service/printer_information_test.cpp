// What the service tells of its printers.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

class GetPrinterList : public ServiceTest {
 protected:
  GetPrinterList() {
    printing.reply = R"({"result":"0","PrinterList":"Till 1;Labels"})";  // 13 bytes of list
    leaveLastError(77);
  }

  unsigned get(unsigned size) { return client.getPrinterList(out.data(), size); }

  void expectKept(unsigned code, unsigned expected) {
    EXPECT_EQ(code, expected);
    EXPECT_EQ(client.getLastErrCode(), static_cast<std::int32_t>(expected));
  }

  void expectUntouched() { EXPECT_EQ(out, std::string(16, '#')); }

  // The reply has no list; it is logged whole.
  void expectJsonErr(const std::string& reply) {
    printing.reply = reply;
    expectKept(get(16), 7);
    expectUntouched();
    EXPECT_EQ(log.records(),
              Texts{"[W] L:688 M:DLL [service_test][getPrinterList] json parse fail:" + reply});
  }

  std::string out = std::string(16, '#');
};

TEST_F(GetPrinterList, SendsItsRequest) {
  expectKept(get(16), 0);
  expectSentOn(printing, R"({"cmd":"getPrinterList"})");
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(GetPrinterList, CopiesExactlyTheTextWithoutTerminator) {
  expectKept(get(16), 0);
  EXPECT_EQ(out, "Till 1;Labels###");
}

TEST_F(GetPrinterList, TakesABufferOfTheExactSize) {
  expectKept(get(13), 0);
  EXPECT_EQ(out, "Till 1;Labels###");
}

TEST_F(GetPrinterList, IntoOneByteLessCopiesNothing) {
  expectKept(get(12), 5);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(GetPrinterList, OfNoSizeIsBufferNotEnough) {
  expectKept(get(0), 5);
  expectUntouched();
}

TEST_F(GetPrinterList, TakesAnEmptyListIntoNoSize) {
  printing.reply = R"({"result":"0","PrinterList":""})";
  expectKept(get(0), 0);
  expectUntouched();
}

TEST_F(GetPrinterList, IntoANullBufferIsInvalidParam) {
  expectKept(client.getPrinterList(nullptr, 16), 2);
  EXPECT_EQ(log.records(), Texts{});
  expectNothingSent();
}

TEST_F(GetPrinterList, DoesNotReadTheResult) {
  printing.reply = R"({"result":"2008","PrinterList":"Till 1"})";
  expectKept(get(16), 0);
  EXPECT_EQ(out, "Till 1##########");
}

TEST_F(GetPrinterList, NeedsNoResult) {
  printing.reply = R"({"PrinterList":"Till 1"})";
  expectKept(get(16), 0);
  EXPECT_EQ(out, "Till 1##########");
}

TEST_F(GetPrinterList, TakesAResultThatIsANumber) {
  printing.reply = R"({"result":0,"PrinterList":"Till 1"})";
  expectKept(get(16), 0);
  EXPECT_EQ(out, "Till 1##########");
}

TEST_F(GetPrinterList, DecodesTheText) {
  printing.reply = R"({"PrinterList":"a\"\\\u00e9\n"})";
  expectKept(get(16), 0);
  EXPECT_EQ(out, "a\"\\\xC3\xA9\n##########");
}

TEST_F(GetPrinterList, LogsAReplyWithoutAList) { expectJsonErr(R"({"result":"0"})"); }

TEST_F(GetPrinterList, LogsAnErrorWithoutAList) { expectJsonErr(R"({"result":"2008"})"); }

TEST_F(GetPrinterList, LogsAListThatIsNoText) { expectJsonErr(R"({"PrinterList":["Till 1"]})"); }

TEST_F(GetPrinterList, LogsAListUnderAnotherName) { expectJsonErr(R"({"printerList":"Till 1"})"); }

TEST_F(GetPrinterList, LogsAReplyThatIsNoJson) { expectJsonErr("Till 1"); }

TEST_F(GetPrinterList, LogsAReplyThatIsNoObject) { expectJsonErr(R"(["PrinterList"])"); }

TEST_F(GetPrinterList, KeepsAFailedSend) {
  printing.sendResult = 0;
  expectKept(get(16), 4);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{"[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:0."});
}

TEST_F(GetPrinterList, KeepsAFailedReceive) {
  printing.receiveResult = -1;
  expectKept(get(16), 4);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{"[W] L:129 M:DLL [SndCmdToPrinter] Rcv failed: -1!"});
}

TEST_F(GetPrinterList, KeepsAMissingConnection) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(half.getPrinterList(out.data(), 16), 2001U);
  EXPECT_EQ(half.getLastErrCode(), 2001);
  expectUntouched();
}

constexpr char kVersion[] = R"({"result":"0","ver":"1.2"})";  // 26 bytes

class GetPrinterVersion : public ServiceTest {
 protected:
  GetPrinterVersion() {
    printing.reply = kVersion;
    leaveLastError(77);
  }

  void expectKept(unsigned size, unsigned expected) {
    EXPECT_EQ(client.getPrinterVersion(out.data(), size, "P"), expected);
    EXPECT_EQ(client.getLastErrCode(), static_cast<std::int32_t>(expected));
    EXPECT_EQ(log.records(), Texts{});
  }

  std::string out = std::string(32, '#');
};

TEST_F(GetPrinterVersion, CopiesTheWholeReplyAndFillsTheBuffer) {
  expectKept(30, 0);
  EXPECT_EQ(out, kVersion + std::string(4, '\0') + "##");
}

TEST_F(GetPrinterVersion, IntoABufferOfTheExactSizeHasNoTerminator) {
  expectKept(26, 0);
  EXPECT_EQ(out, kVersion + std::string(6, '#'));
}

TEST_F(GetPrinterVersion, IntoOneByteLessCopiesTheBeginning) {
  expectKept(25, 5);
  EXPECT_EQ(out, std::string(kVersion).substr(0, 25) + std::string(7, '#'));
}

TEST_F(GetPrinterVersion, OfNoSizeIsBufferNotEnough) {
  expectKept(0, 5);
  EXPECT_EQ(out, std::string(32, '#'));
}

TEST_F(GetPrinterVersion, IntoANullBufferIsBufferNotEnough) {
  EXPECT_EQ(client.getPrinterVersion(nullptr, 32, "P"), 5U);
  EXPECT_EQ(client.getLastErrCode(), 5);
  expectSentOn(printing, R"({"cmd":"getprinterversion","printerName":"P"})");
}

TEST_F(GetPrinterVersion, CopiesTheReplyOfAnErrorAsWell) {
  printing.reply = R"({"result":"2008"})";
  expectKept(17, 2008);
  EXPECT_EQ(out, printing.reply + std::string(15, '#'));
}

TEST_F(GetPrinterVersion, CopiesAnUnreadableReplyAsWell) {
  printing.reply = "1.2";
  expectKept(3, kUnreadable);
  EXPECT_EQ(out, "1.2" + std::string(29, '#'));
}

TEST_F(GetPrinterVersion, OfAFailedExchangeCopiesNothing) {
  printing.receiveResult = 0;
  EXPECT_EQ(client.getPrinterVersion(out.data(), 32, "P"), 4U);
  EXPECT_EQ(out, std::string(32, '#'));
}

}  // namespace
}  // namespace tolvex
