// The overload alarm and the raw printer command, which travel on the printing connection.
#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

using OverloadAlarm = ServiceTest;

TEST_F(OverloadAlarm, GoesOutOnThePrintingConnection) {
  EXPECT_EQ(client.setOverloadAlarm(1), 0U);
  expectSentOn(printing, R"({"cmd":"setOverloadAlarm","enable":"1"})");
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(OverloadAlarm, SendsTheNumberAsItIs) {
  client.setOverloadAlarm(0);
  client.setOverloadAlarm(5);
  client.setOverloadAlarm(static_cast<int>(0xFFFFFFFFU));
  EXPECT_EQ(printing.requests, (Texts{R"({"cmd":"setOverloadAlarm","enable":"0"})",
                                      R"({"cmd":"setOverloadAlarm","enable":"5"})",
                                      R"({"cmd":"setOverloadAlarm","enable":"-1"})"}));
}

TEST_F(OverloadAlarm, KeepsItsCode) {
  printing.reply = R"({"result":"2010"})";
  EXPECT_EQ(client.setOverloadAlarm(1), 2010U);
  EXPECT_EQ(client.getLastErrCode(), 2010);
  printing.receiveResult = 0;
  EXPECT_EQ(client.setOverloadAlarm(1), 4U);
  EXPECT_EQ(client.getLastErrCode(), 4);
}

TEST_F(OverloadAlarm, KeepsAMissingConnection) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(half.setOverloadAlarm(1), 2001U);
  EXPECT_EQ(half.getLastErrCode(), 2001);
}

constexpr char kPrinterReply[] = R"({"result":"2006","a":"b"})";  // 25 bytes

class RawPrinterCommand : public ServiceTest {
 protected:
  RawPrinterCommand() {
    printing.reply = kPrinterReply;
    leaveLastError(77);
  }

  unsigned raw(const char* printer, const char* command, const char* parameters, char* buffer,
               unsigned size) {
    return client.sendRawCmdToPrt(printer, command, -3, parameters, buffer, size, 40000);
  }

  void expectLastErrorUnchanged() { EXPECT_EQ(client.getLastErrCode(), 77); }

  std::string out = std::string(32, '#');
};

TEST_F(RawPrinterCommand, SendsItsMembersInOrder) {
  EXPECT_EQ(raw("Till 1", "feed", "a,b", out.data(), 32), 2006U);
  expectSentOn(printing,
               R"({"cmd":"feed","printerName":"Till 1","intParam":"-3","paramList":"a,b"})");
}

TEST_F(RawPrinterCommand, LogsItsRequest) {
  raw("Till 1", "feed", "a,b", out.data(), 32);
  EXPECT_EQ(log.records(),
            Texts{"[T] L:1012 M:DLL [sendRawCmdToPrt] Req: "
                  R"({"cmd":"feed","printerName":"Till 1","intParam":"-3","paramList":"a,b"})"});
}

TEST_F(RawPrinterCommand, LogsItsRequestBeforeItIsSent) {
  printing.sendResult = -1;
  EXPECT_EQ(raw("P", "feed", nullptr, out.data(), 32), 4U);
  EXPECT_EQ(log.records(), (Texts{"[T] L:1012 M:DLL [sendRawCmdToPrt] Req: "
                                  R"({"cmd":"feed","printerName":"P","intParam":"-3"})",
                                  "[W] L:122 M:DLL [SndCmdToPrinter] Snd failed, ret:-1."}));
  EXPECT_EQ(out, std::string(32, '#'));
}

TEST_F(RawPrinterCommand, SendsNoParametersForANull) {
  raw("P", "feed", nullptr, out.data(), 32);
  expectSentOn(printing, R"({"cmd":"feed","printerName":"P","intParam":"-3"})");
}

TEST_F(RawPrinterCommand, SendsNoParametersForAnEmptyText) {
  raw("P", "feed", "", out.data(), 32);
  expectSentOn(printing, R"({"cmd":"feed","printerName":"P","intParam":"-3"})");
}

TEST_F(RawPrinterCommand, HandsTheTimeoutToTheConnection) {
  client.sendRawCmdToPrt("P", "x", 0, nullptr, nullptr, 0, 1234);
  EXPECT_EQ(printing.receives, (std::vector<ScriptedConnection::Receive>{{2048, 1234}}));
}

TEST_F(RawPrinterCommand, OfANullCommandKeepsInvalidParam) {
  EXPECT_EQ(raw("P", nullptr, "a", out.data(), 32), 2U);
  EXPECT_EQ(client.getLastErrCode(), 2);
  EXPECT_EQ(log.records(), Texts{});
  expectNothingSent();
}

TEST_F(RawPrinterCommand, OfANullPrinterNameIsInvalidParam) {
  EXPECT_EQ(raw(nullptr, "feed", "a", out.data(), 32), 2U);
  expectLastErrorUnchanged();
  EXPECT_EQ(log.records(), Texts{});
  expectNothingSent();
}

TEST_F(RawPrinterCommand, TakesAPrinterNameOf255Bytes) {
  const std::string name(255, 'n');
  EXPECT_EQ(raw(name.c_str(), "feed", nullptr, out.data(), 32), 2006U);
  expectSentOn(printing, R"({"cmd":"feed","printerName":")" + name + R"(","intParam":"-3"})");
}

TEST_F(RawPrinterCommand, OfAPrinterNameOf256BytesIsInvalidParam) {
  EXPECT_EQ(raw(std::string(256, 'n').c_str(), "feed", nullptr, out.data(), 32), 2U);
  expectLastErrorUnchanged();
  EXPECT_EQ(log.records(), Texts{});
  expectNothingSent();
}

TEST_F(RawPrinterCommand, TakesAnEmptyPrinterName) {
  raw("", "feed", nullptr, out.data(), 32);
  expectSentOn(printing, R"({"cmd":"feed","printerName":"","intParam":"-3"})");
}

TEST_F(RawPrinterCommand, DoesNotKeepItsCode) {
  EXPECT_EQ(raw("P", "x", nullptr, out.data(), 32), 2006U);
  expectLastErrorUnchanged();
}

TEST_F(RawPrinterCommand, WithoutABufferReturnsTheCode) {
  EXPECT_EQ(raw("P", "x", nullptr, nullptr, 32), 2006U);
  EXPECT_EQ(raw("P", "x", nullptr, nullptr, 0), 2006U);
}

TEST_F(RawPrinterCommand, IntoABufferOfTheExactSizeHasNoTerminator) {
  EXPECT_EQ(raw("P", "x", nullptr, out.data(), 25), 2006U);
  EXPECT_EQ(out, kPrinterReply + std::string(7, '#'));
}

TEST_F(RawPrinterCommand, IntoOneByteLessCopiesTheBeginning) {
  EXPECT_EQ(raw("P", "x", nullptr, out.data(), 24), 5U);
  EXPECT_EQ(out, std::string(kPrinterReply).substr(0, 24) + std::string(8, '#'));
  expectLastErrorUnchanged();
}

TEST_F(RawPrinterCommand, ReturnsAMissingConnection) {
  VcoClientApi half(&weighing, nullptr);
  EXPECT_EQ(half.sendRawCmdToPrt("P", "x", 0, nullptr, out.data(), 32, 1), 2001U);
  EXPECT_EQ(half.getLastErrCode(), 0);
}

}  // namespace
}  // namespace tolvex
